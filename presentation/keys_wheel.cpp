#include "presentation/keys_wheel.h"

#include "platform/runtime/error.h"

namespace TabulonLib12 {

namespace {

// The scroll bar's value moved by one, as 32-bit arithmetic does: beyond its range it overflows.
int32_t Stepped(int32_t value, int32_t step) {
    const int64_t v = static_cast<int64_t>(value) + step;
    if (v > INT32_MAX || v < INT32_MIN) throw Error::Overflow();
    return static_cast<int32_t>(v);
}

}  // namespace

KeysAndWheel::KeysAndWheel(TextBox& textKey, const CellGrid& fg, Scorrix& bar, HostEvents& events,
                           Neighbours& neighbours, const Clock* clock)
    : textKey_(textKey),
      fg_(fg),
      bar_(bar),
      events_(events),
      neighbours_(neighbours),
      target_(std::make_shared<WheelTarget>(WheelTarget{bar, clock ? *clock : steadyClock_})) {
    textKey.onKeyDown = [this](Element&, int16_t& key, int16_t& shift) { KeyDown(key, shift); };
    textKey.onKeyPress = [this](Element&, int16_t& ascii) {
        events_.Raise([&](Tabulon12Events& e) { e.KeyPress(ascii); });
    };
    textKey.onKeyUp = [this](Element&, int16_t& key, int16_t& shift) {
        events_.Raise([&](Tabulon12Events& e) { e.KeyUp(key, shift); });
    };
}

KeysAndWheel::~KeysAndWheel() {
    target_.reset();
    ReleaseHooks();
}

void KeysAndWheel::Focus() { textKey_.SetFocus(); }

void KeysAndWheel::KeyDown(int16_t keyCode, int16_t shift) {
    if (keyCode == kKeyDown) {
        const int32_t lastRow = fg_.Rows() - 1;
        if (fg_.Row() == lastRow) {
            // On the last row the records pass under the selection: the scroll's re-selection
            // takes the old record up a row, and the last row is selected again, as the up arrow
            // selects row 0 again. The bar clamps at its end.
            int32_t value = Stepped(bar_.Value(), 1);
            bar_.setValue(value);
            neighbours_.SelezionaRiga(lastRow);
        } else {
            neighbours_.SelezionaRiga(fg_.Row() + 1);
        }
    } else if (keyCode == kKeyUp) {
        if (fg_.Row() == 0) {
            int32_t value = Stepped(bar_.Value(), -1);
            bar_.setValue(value);
            neighbours_.SelezionaRiga(0);
        } else {
            neighbours_.SelezionaRiga(fg_.Row() - 1);
        }
    }
    // The host sees the key after the move; what it does to the arguments changes nothing here.
    int16_t key = keyCode, state = shift;
    events_.Raise([&](Tabulon12Events& e) { e.KeyDown(key, state); });
}

}  // namespace TabulonLib12
