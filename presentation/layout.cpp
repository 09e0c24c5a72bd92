// The resize layout: when the control changes size the columns scale to the new width (only
// when the width changed, and never on the first layout) and the grid, the scroll bar, the
// outline, the chooser button and the row count follow. Unlike the structure build it stops at
// the first failure and hands it on.
#include "grid/control_state.h"
#include "platform/runtime/rounding.h"

namespace TabulonLib12 {

void Tabulon12::Impl::LayoutRidimensionamento() {
    const float W = surface.Width();
    const float H = surface.Height();
    CellGrid& fg = *FG1;
    ImageZ->setVisible(false);
    const bool giaDisposto = LarghezzaPrecedente != 0 || AltezzaSuperficiePrecedente != 0;
    if (LarghezzaPrecedente != 0 && W != static_cast<float>(LarghezzaPrecedente)) {
        RidimensionaColonne();
        DeltaWidth = ToInt32(static_cast<double>(LarghezzaRiferimento) - W);
    }
    LarghezzaPrecedente = ToInt32(W);
    Shape2->setWidth(W - 60);
    fg.setWidth(W - 270);
    fg.setHeight(H - fg.Top() - static_cast<float>(BottomHeight));
    fg.setRows(ToInt32(RoundHalfEven(static_cast<double>(fg.Height()) / fg.RowHeight(0) - 1)));
    fg.setHeight(static_cast<float>(fg.Rows()) * fg.RowHeight(0) - 15);
    if (H - fg.Top() - fg.Height() > static_cast<float>(BottomHeight)) {
        fg.setRows(fg.Rows() - 1);
        fg.setHeight(static_cast<float>(fg.Rows()) * fg.RowHeight(0) - 15);
    }
    MinRows = static_cast<int16_t>(std::min<int32_t>(fg.Rows(), INT16_MAX));
    if (giaDisposto) DisponiImmaginiColonna();
    if (AltezzaSuperficiePrecedente != 0 && fg.Height() != static_cast<float>(AltezzaSuperficiePrecedente))
        SpostaControlliContenuti();
    AltezzaSuperficiePrecedente = ToInt32(fg.Height());
    for (int32_t i = 0; i < fg.Cols(); ++i)
        if (FrameLine->Exists(static_cast<int16_t>(i))) (*FrameLine)(static_cast<int16_t>(i)).setHeight(fg.Height());
    VS1->Move(fg.Width(), fg.Top() - 15, 255, fg.Height() + 15);
    Shape1->Move(fg.Left() - 10, 0, fg.Width() + VS1->Width() - 15, fg.Top() + fg.Height() + 15);
    ImageTools->setLeft(VS1->Left() - 15);
    ImageTools->ZOrder(0);
    LabelCount->setTop(fg.Top() + fg.Height() + 60);
    RidisegnaTotali();
    if (events) events->Resize();
}

// The host places no controls of its own inside this control's surface, so there is nothing
// to move along with the grid's bottom edge.
void Tabulon12::Impl::SpostaControlliContenuti() {}

}  // namespace TabulonLib12
