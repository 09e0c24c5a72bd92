// The selection members: the single selection of a grid row and the picks of MultiSel, held by
// the selection component.
#include "control/tabulon12_impl.h"

namespace TabulonLib12 {

void Tabulon12::SelezionaRiga(int32_t IndiceRiga, bool /*DaScroll*/, bool /*NonDeselezionare*/) {
    impl_->selection.SelezionaRiga(IndiceRiga);
}

void Tabulon12::SelezionaRigaMS(int32_t Riga, bool NonDeselezionare) {
    impl_->selection.SelezionaRigaMS(Riga, NonDeselezionare);
}

void Tabulon12::SelezionaIndice(int32_t Index) { impl_->selection.SelezionaIndice(Index, impl_->Cols, impl_->LimiteRighe); }

void Tabulon12::DeselezionaRiga(int32_t IndiceRiga) { impl_->selection.DeselezionaRiga(IndiceRiga, impl_->Cols); }

void Tabulon12::ColoraRiga(int32_t Riga, bool Def, Colour Colore) { impl_->painter.ColoraRiga(Riga, Def, Colore); }

std::string Tabulon12::ListaIndiciSel() const { return impl_->selection.ListaIndiciSel(impl_->Cols); }

void Tabulon12::Impl::GridTookTheHover() { band.GridTookTheHover(); }
void Tabulon12::Impl::SelezionaRiga(int32_t riga) { selection.SelezionaRiga(riga); }
void Tabulon12::Impl::SelezionaRigaMS(int32_t riga, bool nonDeselezionare) {
    selection.SelezionaRigaMS(riga, nonDeselezionare);
}
bool Tabulon12::Impl::MultiSel() const { return selection.MultiSel(); }
bool Tabulon12::Impl::SelezioneMultiplaImmediata() const { return selection.SelezioneMultiplaImmediata(); }
void Tabulon12::Impl::SetCurrentRow(int32_t riga, int32_t indiceRigaAttiva, int32_t indiceSelezionato) {
    selection.SetCurrentRow(riga, indiceRigaAttiva, indiceSelezionato);
}
int32_t Tabulon12::Impl::IndiceSelezionato() const { return selection.IndiceSelezionato(); }
int32_t Tabulon12::Impl::IndiceRigaAttiva() const { return selection.IndiceRigaAttiva(); }
void Tabulon12::Impl::FocusKeys() { keys.Focus(); }

int16_t Tabulon12::ColonnaSelezionata() const { return impl_->mouse.ColonnaSelezionata(); }
int16_t Tabulon12::RigaSorvolata() const { return impl_->mouse.RigaSorvolata(); }
int16_t Tabulon12::RigaCliccata() const { return impl_->mouse.RigaCliccata(); }
bool Tabulon12::CellaConImmagine(int16_t RigaRif, int16_t ColonnaRif) const {
    return impl_->mouse.CellaConImmagine(RigaRif, ColonnaRif);
}

void Tabulon12::setSelRow(int16_t New_SelRow) {
    if (New_SelRow == 0) return;
    impl_->selection.SelezionaRiga(New_SelRow - 1);
}

}  // namespace TabulonLib12
