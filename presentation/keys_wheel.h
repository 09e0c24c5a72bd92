#pragma once
// The keyboard and the wheel. Keys arrive at the hidden text box TextKey, which takes the focus
// from the cell surface at every chance, so that the surface's own key handling never moves its
// selection: the down and up arrows move the single selection a row at a time, scrolling the
// list one record at the surface's edges, and every key reaches the host after the move.
//
// The wheel hooks the window of the host's form (keys_wheel_hook.cpp): each notch moves the
// scroll bar by a step that depends on the time since the last notch, on the list's clock:
//     milliseconds since the last notch   up to 150   151-300   301-500   over 500
//     step up (list moves up)              none         5         3         1
//     step down                            none         3         3         1
// The component owns TextKey, WheelStatus and the hooks it installed.
#include <cstdint>

#include <memory>

#include "grid/events.h"
#include "platform/host/host_services.h"
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

    // `clock` times the wheel's notches (the process's monotonic clock when null).
    KeysAndWheel(TextBox& textKey, const CellGrid& fg, Scorrix& bar, HostEvents& events, Neighbours& neighbours,
                 const Clock* clock);
    // A list that goes leaves no hook of its own behind.
    ~KeysAndWheel();
    KeysAndWheel(const KeysAndWheel&) = delete;
    KeysAndWheel& operator=(const KeysAndWheel&) = delete;

    // The key box takes the focus: keys come here, never to the surface's own selection.
    void Focus();

    bool WheelStatus() const { return wheelStatus_; }
    void setWheelStatus(bool v) { wheelStatus_ = v; }

    // The wheel of `window` moves this list's bar from now on (also when another list had it);
    // a null window hooks nothing. Failures are swallowed.
    void AgganciaRotella(const std::shared_ptr<HostWindow>& window);
    // Takes the hook away from the window hooked last, whichever list hooked it.
    void SganciaRotella();
    // One notch: the step routine of the thread's hook, on the bar that holds the wheel.
    static void GestisciRotella(int32_t keys, int32_t delta);
    // The tick of the last notch the hook saw (0 before the first).
    static uint32_t LastWheelTick();

    // What the wheel moves: this list's scroll bar, with its clock.
    struct WheelTarget {
        Scorrix& bar;
        const Clock& clock;
    };

private:
    void KeyDown(int16_t keyCode, int16_t shift);
    // Removes this list from every window it hooked; a window no list holds any more loses its
    // listener.
    void ReleaseHooks();

    TextBox& textKey_;
    const CellGrid& fg_;
    Scorrix& bar_;
    HostEvents& events_;
    Neighbours& neighbours_;
    SteadyClock steadyClock_;
    std::shared_ptr<WheelTarget> target_;
    bool wheelStatus_ = false;
};

}  // namespace TabulonLib12
