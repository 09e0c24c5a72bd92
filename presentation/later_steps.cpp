// Routines of the presentation that the load and the structure call, and whose work belongs to
// parts of the control not built yet: the heading band keeps its designed look, the column
// pictures and the totals are left as they are.
#include "grid/control_state.h"

namespace TabulonLib12 {

void Tabulon12::Impl::RicostruisciControlliColonna() {}
void Tabulon12::Impl::DisponiSfondiTesta() {}
void Tabulon12::Impl::DisponiTestate() {}
void Tabulon12::Impl::DisponiImmaginiColonna() {}
void Tabulon12::Impl::RidisegnaTotali() {}

}  // namespace TabulonLib12
