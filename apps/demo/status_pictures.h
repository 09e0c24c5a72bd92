#pragma once
// The demo's own pictures for the payment column, drawn here: a green tick for a paid order and
// a red cross for an open one, 16 by 16 pixels.
#include "platform/ui/graphics.h"

namespace TabulonLib12::Demo {

Picture PaidPicture();
Picture OpenPicture();

}  // namespace TabulonLib12::Demo
