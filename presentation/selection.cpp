#include "presentation/selection.h"

#include "grid/markers.h"
#include "grid/row_window.h"
#include "grid/values.h"
#include "platform/runtime/rounding.h"
#include "platform/runtime/steps.h"

namespace TabulonLib12 {

Selection::Selection(CellGrid& fg, const Scorrix& bar, RowStore& store, RowColours& painter)
    : fg_(fg), bar_(bar), store_(store), painter_(painter) {}

void Selection::ForgetForLoad() {
    indiceSelezionato_ = -1;
    indiceRigaAttiva_ = -1;
    ancoraMultipla_ = -1;
}

void Selection::SelezionaRiga(int32_t riga) {
    if (riga > fg_.Rows() - 1) return;
    rigaCorrente_ = riga;
    CellGrid& fg = fg_;
    Steps steps;  // every failure from here on is swallowed
    steps([&] { fg.setCol(0); });
    steps([&] { fg.setRow(riga); });
    steps([&] { fg.setColSel(fg.Cols() - 1); });
    steps([&] { fg.setRowSel(riga); });
    steps([&] { indiceSelezionato_ = ToInt32(RoundHalfEven(ValoreNumerico(std::string_view(fg.TextMatrix(riga, 0))))); });
    steps([&] { indiceRigaAttiva_ = IndiceDaRiga(bar_.Value(), riga); });
    steps([&] { fg.SetFocus(); });
}

void Selection::SelezionaRigaMS(int32_t riga, bool nonDeselezionare) {
    if (!multiSel_) return;
    if (ValoreNumerico(std::string_view(fg_.TextMatrix(riga, 0))) == 0) return;
    const int32_t i = IndiceDaRiga(bar_.Value(), riga);
    // The marker is addressed by the surface's column count, equal to Cols while the structure
    // is current.
    const int32_t markerColumn = fg_.Cols();
    std::string_view m = store_.Cell(i, markerColumn) == kPicked ? "0" : kPicked;
    if (nonDeselezionare) m = kPicked;
    store_.SetCell(i, markerColumn, m);
    if (m == kPicked) painter_.ColoraRiga(riga, false, painter_.BackColorSelected());
    else painter_.ColoraRiga(riga, true, 0);
}

void Selection::SelezionaIndice(int32_t index, int16_t cols, int32_t rowLimit) {
    Steps steps;  // every failure is swallowed
    steps([&] { SelezionaRigaMS(RigaDaIndice(bar_.Value(), fg_.Rows(), index), false); });
    if (index < rowLimit) steps([&] { store_.SetCell(index, cols, kPicked); });
}

void Selection::DeselezionaRiga(int32_t index, int16_t cols) {
    if (store_.RowBound() <= index) return;
    if (store_.Cell(index, cols) == kPicked) {
        store_.SetCell(index, cols, "");
        painter_.ColoraRiga(RigaDaIndice(bar_.Value(), fg_.Rows(), index), true, 0);
    }
}

std::string Selection::ListaIndiciSel(int16_t cols) const {
    if (!multiSel_) return DecimalText(indiceSelezionato_);
    return PickedKeys(store_, cols);
}

void Selection::setMultiSel(bool v, int16_t cols) {
    if (!v) ClearMarkers(store_, cols);
    painter_.ColoraSfondoRighe();
    multiSel_ = v;
    ancoraMultipla_ = -1;
}

void Selection::RiselezionaRiga() {
    if (indiceRigaAttiva_ < 0) return;
    const int32_t g = RigaDaIndice(bar_.Value(), fg_.Rows(), indiceRigaAttiva_);
    if (g == -1) return;
    SelezionaRiga(g);
}

void Selection::RicoloraSelezione(int16_t cols) {
    fg_.setRedraw(false);
    for (int32_t g = 0; g < fg_.Rows(); ++g) {
        const int32_t i = IndiceDaRiga(bar_.Value(), g);
        if (store_.Cell(i, cols) == kPicked) painter_.ColoraRiga(g, false, painter_.BackColorSelected());
        else painter_.ColoraRiga(g, true, 0);
    }
    fg_.setRedraw(true);
}

}  // namespace TabulonLib12
