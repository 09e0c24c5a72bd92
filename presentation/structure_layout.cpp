#include "presentation/structure_layout.h"

#include <algorithm>
#include <cmath>

#include "grid/values.h"
#include "platform/runtime/rounding.h"
#include "platform/runtime/steps.h"
#include "platform/runtime/text.h"

namespace TabulonLib12 {

namespace {

void ApplyAlignment(CellGrid& fg, int32_t c, int16_t alignment) {
    switch (alignment) {
        case 0: fg.setColAlignment(c, CellAlign::LeftCentre); break;
        case 1: fg.setColAlignment(c, CellAlign::RightCentre); break;
        case 2: fg.setColAlignment(c, CellAlign::CentreCentre); break;
        default: break;  // any other value leaves the grid's alignment as it is
    }
}

}  // namespace

int32_t ArrotondaTwips(float value) { return static_cast<int32_t>(ToInt16(value / 15.0f)) * 15; }

StructureLayout::StructureLayout(Surface& surface, CellGrid& fg, Scorrix& bar, Shape& outline,
                                 const ColumnDefinitions& columns, Neighbours& neighbours, ContainedControls* contained)
    : surface_(surface),
      fg_(fg),
      bar_(bar),
      outline_(outline),
      columns_(columns),
      neighbours_(neighbours),
      contained_(contained) {
    larghezzaRiferimento_ = static_cast<int32_t>(surface.Width());
}

void StructureLayout::CaricaStruttura(int16_t cols, std::string_view columnChoice) {
    CellGrid& fg = fg_;
    Steps steps;
    const float W = surface_.Width();
    steps([&] { fg.setCols(cols); });
    steps([&] { fg.setWidth(W - 270); });
    ApplicaRegolaAltezza(true);
    neighbours_.RefreshImageList();
    for (int32_t c = 0; c < fg.Cols(); ++c) {
        const auto index = static_cast<int16_t>(c);
        if (ListHolds(columnChoice, DecimalText(c))) {
            fg.setColWidth(c, 0);
            steps([&] { neighbours_.SetHeadingCaption(index, ""); });
        } else if (columns_.Has(c)) {
            steps([&] { fg.setColWidth(c, columns_.ColsWidth[static_cast<size_t>(c)]); });
        }
        if (columns_.Has(c)) ApplyAlignment(fg, c, columns_.ColAlignment[static_cast<size_t>(c)]);
        steps([&] { fg.setCol(c); });
    }
    fg.setBackColorBkg(surface_.BackColor());
    neighbours_.BuildBand();
    neighbours_.PlaceColumnPictures();
    steps([&] { RidimensionaColonne(columnChoice); });
    steps([&] { DisponiIntornoGriglia(); });
}

void StructureLayout::ApplicaRegolaAltezza(bool dropFailures) {
    CellGrid& fg = fg_;
    const float H = surface_.Height();
    Steps steps;
    auto run = [&](auto&& step) {
        if (dropFailures) steps(step);
        else step();
    };
    run([&] { fg.setHeight(H - fg.Top() - static_cast<float>(bottomHeight_)); });
    run([&] { fg.setRows(ToInt32(RoundHalfEven(static_cast<double>(fg.Height()) / fg.RowHeight(0) - 1))); });
    run([&] { fg.setHeight(static_cast<float>(fg.Rows()) * fg.RowHeight(0) - 15); });
    // Rounding leaves at least half a row free, so this fires on every sane size and keeps the
    // strip under the grid for the totals and the row count.
    if (H - fg.Top() - fg.Height() > static_cast<float>(bottomHeight_)) {
        run([&] { fg.setRows(fg.Rows() - 1); });
        run([&] { fg.setHeight(static_cast<float>(fg.Rows()) * fg.RowHeight(0) - 15); });
    }
    minRows_ = static_cast<int16_t>(std::min<int32_t>(fg.Rows(), INT16_MAX));
}

void StructureLayout::DisponiIntornoGriglia() {
    // The bar starts at the grid's width, not its right edge, so it covers the grid's last
    // FG1.Left twips.
    CellGrid& fg = fg_;
    bar_.Move(fg.Width(), fg.Top() - 15, 255, fg.Height() + 15);
    outline_.Move(fg.Left() - 10, 0, fg.Width() + bar_.Width() - 15, fg.Top() + fg.Height() + 15);
    neighbours_.PlaceChooserButton(bar_.Left() - 15);
}

float StructureLayout::FattoreAdattamento() {
    const float W = surface_.Width();
    if (adattamentoDisattivato_) {
        larghezzaRiferimento_ = ToInt32(W);
        return 1.0f;
    }
    const float ratio = larghezzaRiferimento_ == 0 ? 1.0f : W / static_cast<float>(larghezzaRiferimento_);
    return std::trunc(ratio * 100.0f) / 100.0f;
}

void StructureLayout::RidimensionaColonne(std::string_view columnChoice) {
    const float f = FattoreAdattamento();
    deltaWidth_ = ToInt32(static_cast<double>(larghezzaRiferimento_) - surface_.Width());
    CellGrid& fg = fg_;
    if (fg.Cols() <= 0) return;
    Steps captions;  // a caption of a heading not built yet is no failure of the rule
    for (int32_t i = 0; i < fg.Cols(); ++i) {
        const auto index = static_cast<int16_t>(i);
        if (ListHolds(columnChoice, DecimalText(i))) {
            fg.setColWidth(i, 0);
            captions([&] { neighbours_.SetHeadingCaption(index, ""); });
            continue;
        }
        if (!columns_.Has(i)) continue;
        const int16_t designed = columns_.ColsWidth[static_cast<size_t>(i)];
        fg.setColWidth(i, ToInt32(static_cast<float>(designed) * f));
        captions([&] { neighbours_.SetHeadingCaption(index, designed == 0 ? "" : columns_.Intestazione[static_cast<size_t>(i)]); });
    }
    neighbours_.BuildBand();
}

void StructureLayout::LayoutRidimensionamento(std::string_view columnChoice) {
    const float W = surface_.Width();
    CellGrid& fg = fg_;
    neighbours_.HideHoverTile();
    const bool giaDisposto = larghezzaPrecedente_ != 0 || altezzaSuperficiePrecedente_ != 0;
    if (larghezzaPrecedente_ != 0 && W != static_cast<float>(larghezzaPrecedente_)) {
        RidimensionaColonne(columnChoice);
        deltaWidth_ = ToInt32(static_cast<double>(larghezzaRiferimento_) - W);
    }
    larghezzaPrecedente_ = ToInt32(W);
    neighbours_.SetBandWidth(W - 60);
    fg.setWidth(W - 270);
    ApplicaRegolaAltezza(false);
    if (giaDisposto) neighbours_.PlaceColumnPictures();
    if (altezzaSuperficiePrecedente_ != 0 && fg.Height() != static_cast<float>(altezzaSuperficiePrecedente_))
        SpostaControlliContenuti();
    altezzaSuperficiePrecedente_ = ToInt32(fg.Height());
    neighbours_.StretchLines(fg.Height());
    DisponiIntornoGriglia();
    neighbours_.PlaceCount(fg.Top() + fg.Height() + 60);
    neighbours_.RedrawTotals();
    neighbours_.RaiseResize();
}

void StructureLayout::SpostaControlliContenuti() {
    if (contained_ == nullptr) return;
    const float shift = fg_.Height() - static_cast<float>(altezzaSuperficiePrecedente_);
    for (ContainedControl* control : contained_->Items())
        if (control != nullptr && !control->IsVerticalScrollBar()) control->setTop(control->Top() + shift);
}

}  // namespace TabulonLib12
