#pragma once
// The keyboard and the wheel. Keys arrive at the hidden text box TextKey, which takes the focus
// from the cell surface at every chance, so that the surface's own key handling never moves its
// selection: the down and up arrows move the single selection a row at a time, scrolling the
// list one record at the surface's edges, and every key reaches the host after the move. The
// component owns TextKey and WheelStatus.
#include <cstdint>

#include "grid/events.h"
#include "platform/ui/cell_grid.h"
#include "scrollbar/scorrix.h"

namespace TabulonLib12 {

inline constexpr int16_t kKeyUp = 38;
inline constexpr int16_t kKeyDown = 40;

class KeysAndWheel {
public:
    // What the keys ask of the selection.
    class Neighbours {
    public:
        virtual ~Neighbours() = default;
        virtual void SelezionaRiga(int32_t riga) = 0;
    };

    KeysAndWheel(TextBox& textKey, const CellGrid& fg, Scorrix& bar, HostEvents& events, Neighbours& neighbours);

    // The key box takes the focus: keys come here, never to the surface's own selection.
    void Focus();

    bool WheelStatus() const { return wheelStatus_; }
    void setWheelStatus(bool v) { wheelStatus_ = v; }

private:
    void KeyDown(int16_t keyCode, int16_t shift);

    TextBox& textKey_;
    const CellGrid& fg_;
    Scorrix& bar_;
    HostEvents& events_;
    Neighbours& neighbours_;
    bool wheelStatus_ = false;
};

}  // namespace TabulonLib12
