// CaricaStruttura: the cell surface derived from the column definitions and the control's
// size: how many rows fit, the width and alignment of each column, and the places of the scroll
// bar, the outline and the chooser button around the grid.
#include <cmath>

#include "grid/control_state.h"
#include "platform/runtime/rounding.h"

namespace TabulonLib12 {

void Tabulon12::CaricaStruttura(bool /*SoloRefresh: the build is the same either way*/) { impl_->CaricaStruttura(); }

void Tabulon12::Impl::CaricaStruttura() {
    CellGrid& fg = *FG1;
    const float W = surface.Width();
    Step(err, [&] { fg.setCols(Cols); });
    Step(err, [&] { fg.setWidth(W - 270); });
    ApplicaRegolaAltezza(true);
    if (!ImageLista.empty()) OggettoImageList = TrovaImageList(ImageLista);
    for (int32_t c = 0; c < fg.Cols(); ++c) {
        if (VoceInLista(std::to_string(c), ColonneScelte)) {
            fg.setColWidth(c, 0);
            Step(err, [&] { (*LabelMenu)(static_cast<int16_t>(c)).setCaption(""); });
        } else if (col.Has(c)) {
            Step(err, [&] { fg.setColWidth(c, col.ColsWidth[static_cast<size_t>(c)]); });
        }
        if (col.Has(c)) {
            switch (col.ColAlignment[static_cast<size_t>(c)]) {
                case 0: fg.setColAlignment(c, CellAlign::LeftCentre); break;
                case 1: fg.setColAlignment(c, CellAlign::RightCentre); break;
                case 2: fg.setColAlignment(c, CellAlign::CentreCentre); break;
                default: break;
            }
        }
        Step(err, [&] { fg.setCol(c); });
    }
    fg.setBackColorBkg(surface.BackColor());
    DisponiSfondiTesta();
    DisponiTestate();
    DisponiImmaginiColonna();
    RidimensionaColonne();
    DisponiIntornoGriglia();
    err.Clear();
}

void Tabulon12::Impl::ApplicaRegolaAltezza(bool dropFailures) {
    CellGrid& fg = *FG1;
    const float H = surface.Height();
    auto run = [&](auto&& step) {
        if (dropFailures) Step(err, step);
        else step();
    };
    run([&] { fg.setHeight(H - fg.Top() - static_cast<float>(BottomHeight)); });
    run([&] { fg.setRows(ToInt32(RoundHalfEven(static_cast<double>(fg.Height()) / fg.RowHeight(0) - 1))); });
    run([&] { fg.setHeight(static_cast<float>(fg.Rows()) * fg.RowHeight(0) - 15); });
    // Rounding leaves at least half a row free, so this fires on every sane size and keeps the
    // strip under the grid for the totals and the row count.
    if (H - fg.Top() - fg.Height() > static_cast<float>(BottomHeight)) {
        run([&] { fg.setRows(fg.Rows() - 1); });
        run([&] { fg.setHeight(static_cast<float>(fg.Rows()) * fg.RowHeight(0) - 15); });
    }
    MinRows = static_cast<int16_t>(std::min<int32_t>(fg.Rows(), INT16_MAX));
}

void Tabulon12::Impl::DisponiIntornoGriglia() {
    // The bar starts at the grid's width, not its right edge, so it covers the grid's last
    // FG1.Left twips.
    CellGrid& fg = *FG1;
    VS1->Move(fg.Width(), fg.Top() - 15, 255, fg.Height() + 15);
    Shape1->Move(fg.Left() - 10, 0, fg.Width() + VS1->Width() - 15, fg.Top() + fg.Height() + 15);
    ImageTools->setLeft(VS1->Left() - 15);
    ImageTools->ZOrder(0);
}

float Tabulon12::Impl::FattoreAdattamento() {
    const float W = surface.Width();
    if (AdattamentoColonneDisattivato) {
        LarghezzaRiferimento = ToInt32(W);
        return 1.0f;
    }
    const float ratio = LarghezzaRiferimento == 0 ? 1.0f : W / static_cast<float>(LarghezzaRiferimento);
    return std::trunc(ratio * 100.0f) / 100.0f;
}

void Tabulon12::Impl::RidimensionaColonne() {
    const float f = FattoreAdattamento();
    Step(err, [&] { DeltaWidth = ToInt32(static_cast<double>(LarghezzaRiferimento) - surface.Width()); });
    CellGrid& fg = *FG1;
    if (fg.Cols() <= 0) return;
    for (int32_t i = 0; i < fg.Cols(); ++i) {
        const auto index = static_cast<int16_t>(i);
        if (VoceInLista(std::to_string(i), ColonneScelte)) {
            fg.setColWidth(i, 0);
            Step(err, [&] { (*LabelMenu)(index).setCaption(""); });
            continue;
        }
        if (!col.Has(i)) continue;
        const int16_t designed = col.ColsWidth[static_cast<size_t>(i)];
        Step(err, [&] { fg.setColWidth(i, ToInt32(static_cast<float>(designed) * f)); });
        Step(err, [&] { (*LabelMenu)(index).setCaption(designed == 0 ? "" : col.Intestazione[static_cast<size_t>(i)]); });
    }
    DisponiSfondiTesta();
    DisponiTestate();
}

}  // namespace TabulonLib12
