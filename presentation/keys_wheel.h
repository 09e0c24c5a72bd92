#pragma once
// The keyboard and the wheel: keys arrive at the hidden text box TextKey, which takes the focus
// from the cell surface, and the wheel of the host's window moves the scroll bar. The component
// owns TextKey and WheelStatus.
#include "platform/ui/surface.h"

namespace TabulonLib12 {

class KeysAndWheel {
public:
    explicit KeysAndWheel(TextBox& textKey);

    bool WheelStatus() const { return wheelStatus_; }
    void setWheelStatus(bool v) { wheelStatus_ = v; }

private:
    TextBox& textKey_;
    bool wheelStatus_ = false;
};

}  // namespace TabulonLib12
