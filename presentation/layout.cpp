// The resize layout: when the control changes size the columns scale to the new width (only
// when the width changed, and never on the first layout) and the grid, the scroll bar, the
// outline, the chooser button and the row count follow. Unlike the structure build it stops at
// the first failure and hands it on.
#include "grid/control_state.h"
#include "platform/runtime/rounding.h"

namespace TabulonLib12 {

void Tabulon12::Impl::LayoutRidimensionamento() {
    const float W = surface.Width();
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
    ApplicaRegolaAltezza(false);
    if (giaDisposto) DisponiImmaginiColonna();
    if (AltezzaSuperficiePrecedente != 0 && fg.Height() != static_cast<float>(AltezzaSuperficiePrecedente))
        SpostaControlliContenuti();
    AltezzaSuperficiePrecedente = ToInt32(fg.Height());
    for (int32_t i = 0; i < fg.Cols(); ++i)
        if (FrameLine->Exists(static_cast<int16_t>(i))) (*FrameLine)(static_cast<int16_t>(i)).setHeight(fg.Height());
    DisponiIntornoGriglia();
    LabelCount->setTop(fg.Top() + fg.Height() + 60);
    RidisegnaTotali();
    if (events) events->Resize();
}

// The host places no controls of its own inside this control's surface, so there is nothing
// to move along with the grid's bottom edge.
void Tabulon12::Impl::SpostaControlliContenuti() {}

}  // namespace TabulonLib12
