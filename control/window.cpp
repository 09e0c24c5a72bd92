// The virtual row window: VS1.Value is the store index shown in grid row 0, and every scroll
// ends in a write of VS1.Value whose Change repaints the surface from the store.
#include "control/tabulon12_impl.h"
#include "grid/row_window.h"
#include "platform/runtime/rounding.h"

namespace TabulonLib12 {

namespace {
int16_t Narrow(int64_t v) {
    if (v > INT16_MAX || v < INT16_MIN) throw Error::Overflow();
    return static_cast<int16_t>(v);
}
}  // namespace

void Tabulon12::Impl::SetScrollValue(int32_t value) { VS1.setValue(value); }

void Tabulon12::Impl::RiempiFinestraRighe(bool senzaColore) {
    painter.RiempiFinestraRighe(senzaColore, !QueryCaricamento.empty(), structure.MinRows(), Cols);
}

void Tabulon12::Impl::ColoraSfondoRighe() { painter.ColoraSfondoRighe(); }
void Tabulon12::Impl::ColoraRiga(int32_t riga, bool def, Colour colore) { painter.ColoraRiga(riga, def, colore); }
Colour Tabulon12::Impl::BackColorSelected() const { return painter.BackColorSelected(); }

void Tabulon12::Impl::ReazioneCambioVS1() {
    if (!CaricamentoInCorso && RighePiene >= 1) {
        RiempiFinestraRighe(false);
        if (selection.MultiSel()) selection.RicoloraSelezione(Cols);
        else selection.RiselezionaRiga();
    }
    mouse.HideTip();
}

std::string Tabulon12::TextMatrix(int32_t Row, int16_t Col) const {
    return std::string(impl_->MatriceRighe.Cell(Row, Col));
}

void Tabulon12::setTextMatrix(int32_t Row, int16_t Col, const std::string& New_TextMatrix) {
    auto& s = *impl_;
    if (Col > s.Cols - 1 || Row > s.LimiteRighe - 1) return;
    s.MatriceRighe.SetCell(Row, Col, New_TextMatrix);
    const int32_t g = RigaDaIndice(s.VS1.Value(), s.FG1.Rows(), Row);
    if (g > -1) s.FG1.setTextMatrix(g, Col, New_TextMatrix);
}

std::string Tabulon12::TMatrix(int16_t ColRif) const {
    auto& s = *impl_;
    if (ColRif >= s.Cols) return "";
    return std::string(s.MatriceRighe.Cell(IndiceDaRiga(s.VS1.Value(), s.selection.RigaCorrente()), ColRif));
}

int32_t Tabulon12::TopRow() const { return impl_->VS1.Value(); }

void Tabulon12::setTopRow(int32_t New_TopRow) {
    auto& s = *impl_;
    if (New_TopRow < 0) s.SetScrollValue(0);
    else if (New_TopRow > s.VS1.Max()) s.SetScrollValue(s.VS1.Max());
    else s.SetScrollValue(New_TopRow);
}

int16_t Tabulon12::Row() const {
    return Narrow(static_cast<int64_t>(impl_->VS1.Value()) + impl_->selection.RigaCorrente());
}
void Tabulon12::setRow(int16_t New_Row) { impl_->selection.setRigaCorrente(New_Row); }
int16_t Tabulon12::Col() const { return impl_->Col; }
void Tabulon12::setCol(int16_t New_Col) { impl_->Col = New_Col; }

int32_t Tabulon12::RowHeight(int16_t Index) const {
    return Index < impl_->LimiteRighe ? impl_->FG1.RowHeight(Index) : 0;
}

int16_t Tabulon12::PrimaRigaVisibile() const { return Narrow(impl_->VS1.Value()); }

int16_t Tabulon12::UltimaRigaVisibile() const {
    return Narrow(static_cast<int64_t>(impl_->FG1.Rows()) + impl_->VS1.Value());
}

bool Tabulon12::RowIsVisible(int32_t Index) const {
    return PrimaRigaVisibile() <= Index && Index <= UltimaRigaVisibile();
}

bool Tabulon12::IndiceIsVisible(int32_t Indice) const {
    return RigaDaIndice(impl_->VS1.Value(), impl_->FG1.Rows(), Indice) != -1;
}

int16_t Tabulon12::ColPos(int16_t Index) const {
    const float sum = impl_->FG1.Left() + static_cast<float>(impl_->FG1.ColPos(Index));
    return ToInt16(sum);
}

int16_t Tabulon12::RowPos(int16_t Index) const {
    try {
        const float sum = impl_->FG1.Top() + static_cast<float>(impl_->FG1.RowPos(Index));
        return ToInt16(sum);
    } catch (const Error&) {
        return 0;  // every failure of this read is swallowed
    }
}

int32_t Tabulon12::PosizioneColonna(int16_t Index) const {
    if (Index >= impl_->Cols) return 0;
    // The grid's left edge is counted twice: once here and once inside ColPos.
    const float sum = impl_->FG1.Left() + static_cast<float>(ColPos(Index));
    return ToInt32(sum);
}

}  // namespace TabulonLib12
