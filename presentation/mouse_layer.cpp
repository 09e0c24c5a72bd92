#include "presentation/mouse_layer.h"

namespace TabulonLib12 {

MouseLayer::MouseLayer(const ControlElements& e)
    : pictureTTT_(*e.PictureTTT), labelTTT_(*e.LabelTTT), labelMisTxt_(*e.LabelMisTxt) {}

void MouseLayer::HideTip() { pictureTTT_.setVisible(false); }

}  // namespace TabulonLib12
