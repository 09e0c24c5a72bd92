#include "presentation/mouse_layer.h"

namespace TabulonLib12 {

MouseLayer::MouseLayer(PictureBox& pictureTTT, Label& labelTTT, Label& labelMisTxt)
    : pictureTTT_(pictureTTT), labelTTT_(labelTTT), labelMisTxt_(labelMisTxt) {}

void MouseLayer::HideTip() { pictureTTT_.setVisible(false); }

}  // namespace TabulonLib12
