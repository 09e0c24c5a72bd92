#include "presentation/keys_wheel.h"

namespace TabulonLib12 {

KeysAndWheel::KeysAndWheel(TextBox& textKey) : textKey_(textKey) {}

}  // namespace TabulonLib12
