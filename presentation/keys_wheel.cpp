#include "presentation/keys_wheel.h"

namespace TabulonLib12 {

KeysAndWheel::KeysAndWheel(const ControlElements& e) : textKey_(*e.TextKey) {}

}  // namespace TabulonLib12
