#pragma once
// The event layer over the cell surface: it follows the mouse, shows the control's own tooltip
// (the picture box PictureTTT with the label LabelTTT, shown at the pointer at once, with no
// delay) and measures cut cell text with LabelMisTxt. It owns those elements.
#include "platform/ui/surface.h"

namespace TabulonLib12 {

class MouseLayer {
public:
    MouseLayer(PictureBox& pictureTTT, Label& labelTTT, Label& labelMisTxt);

    // Every scroll ends any tooltip.
    void HideTip();

private:
    PictureBox& pictureTTT_;
    Label& labelTTT_;
    Label& labelMisTxt_;
};

}  // namespace TabulonLib12
