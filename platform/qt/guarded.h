#pragma once
// Runs a piece of the control's logic inside a Qt event. Qt lets no exception pass through its
// event loop, so an error that the logic hands on (for example an overflow at the 32-bit
// limits of the scroll bar) is shown to the user in a critical message box, as a run-time
// error of the host would be, and the event ends there.
#include <functional>

namespace TabulonLib12 {

void Guarded(const std::function<void()>& action);

}  // namespace TabulonLib12
