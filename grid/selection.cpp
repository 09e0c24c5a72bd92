// The two selections: the single one is the current row of the surface, with the key of its
// record in IndiceSelezionato; the multiple one is a marker per record in the store's column
// Cols, shown by painting the row.
#include <charconv>

#include "grid/control_state.h"
#include "platform/runtime/conversions.h"
#include "platform/runtime/rounding.h"
#include "platform/runtime/settings.h"

namespace TabulonLib12 {

std::string_view Tabulon12::Impl::Marker(int64_t indice) const { return MatriceRighe.Cell(indice, Cols); }

void Tabulon12::Impl::SelezionaRiga(int32_t riga) {
    if (riga > FG1->Rows() - 1) return;
    RigaCorrente = riga;
    CellGrid& fg = *FG1;
    Step(err, [&] { fg.setCol(0); });
    Step(err, [&] { fg.setRow(riga); });
    Step(err, [&] { fg.setColSel(fg.Cols() - 1); });
    Step(err, [&] { fg.setRowSel(riga); });
    Step(err, [&] { IndiceSelezionato = ToInt32(RoundHalfEven(ValoreNumerico(std::string_view(fg.TextMatrix(riga, 0))))); });
    IndiceRigaAttiva = IndiceDaRiga(riga);
    Step(err, [&] { fg.SetFocus(); });
    err.Clear();
}

void Tabulon12::Impl::SelezionaRigaMS(int32_t riga, bool nonDeselezionare) {
    if (!MultiSel) return;
    if (ValoreNumerico(std::string_view(FG1->TextMatrix(riga, 0))) == 0) return;
    const int32_t i = IndiceDaRiga(riga);
    // The marker is addressed by the surface's column count, equal to Cols while the
    // structure is current.
    const int32_t markerColumn = FG1->Cols();
    std::string m = MatriceRighe.Cell(i, markerColumn) == "1" ? "0" : "1";
    if (nonDeselezionare) m = "1";
    MatriceRighe.SetCell(i, markerColumn, m);
    if (m == "1") ColoraRiga(riga, false, BackColorSelected);
    else ColoraRiga(riga, true, 0);
}

void Tabulon12::Impl::ColoraRiga(int32_t riga, bool def, Colour colore) {
    CellGrid& fg = *FG1;
    if (riga < 0 || riga > fg.Rows() - 1) return;
    const int32_t oldRow = fg.Row();
    const bool oldRedraw = fg.Redraw();
    fg.setRedraw(false);
    fg.setRow(riga);
    for (int32_t c = 0; c < fg.Cols(); ++c) {
        fg.setCol(c);
        if (!def) {
            fg.setCellBackColor(colore);
        } else if (ColonnaColore >= 0 && !MatriceRighe.Cell(IndiceDaRiga(riga), ColonnaColore).empty()) {
            fg.setCellBackColor(ColoreDaTesto(MatriceRighe.Cell(IndiceDaRiga(riga), ColonnaColore)));
        } else {
            if (!col.Has(c)) throw Error::OutOfBounds();
            fg.setCellBackColor(col.BackColorCol[static_cast<size_t>(c)]);
        }
    }
    fg.setRedraw(oldRedraw);
    fg.setRow(oldRow);
}

void Tabulon12::SelezionaRiga(int32_t IndiceRiga, bool /*DaScroll*/, bool /*NonDeselezionare*/) {
    impl_->SelezionaRiga(IndiceRiga);
}

void Tabulon12::SelezionaRigaMS(int32_t Riga, bool NonDeselezionare) { impl_->SelezionaRigaMS(Riga, NonDeselezionare); }

void Tabulon12::SelezionaIndice(int32_t Index) {
    auto& s = *impl_;
    Step(s.err, [&] { s.SelezionaRigaMS(s.RigaDaIndice(Index), false); });
    if (Index < s.LimiteRighe) Step(s.err, [&] { s.MatriceRighe.SetCell(Index, s.Cols, "1"); });
    s.err.Clear();
}

void Tabulon12::DeselezionaRiga(int32_t IndiceRiga) {
    auto& s = *impl_;
    if (s.MatriceRighe.RowBound() <= IndiceRiga) return;
    if (s.Marker(IndiceRiga) == "1") {
        s.MatriceRighe.SetCell(IndiceRiga, s.Cols, "");
        s.ColoraRiga(s.RigaDaIndice(IndiceRiga), true, 0);
    }
}

void Tabulon12::ColoraRiga(int32_t Riga, bool Def, Colour Colore) { impl_->ColoraRiga(Riga, Def, Colore); }

std::string Tabulon12::ListaIndiciSel() const {
    const auto& s = *impl_;
    if (!s.MultiSel) return std::to_string(s.IndiceSelezionato);
    std::string result;
    const auto& settings = CurrentSettings();
    const int32_t marker = s.Cols;
    if (marker > s.MatriceRighe.ColBound()) return result;
    for (int32_t i = 0; i <= s.MatriceRighe.RowBound(); ++i) {
        if (s.MatriceRighe.Cell(i, marker) != "1") continue;
        const double v = Impl::ValoreNumerico(s.MatriceRighe.Cell(i, 0));
        if (!result.empty()) result += ',';
        result += NumberToText(v, settings);
    }
    return result;
}

void Tabulon12::setSelRow(int16_t New_SelRow) {
    if (New_SelRow == 0) return;
    impl_->SelezionaRiga(New_SelRow - 1);
}

}  // namespace TabulonLib12
