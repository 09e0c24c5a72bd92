#pragma once
// The events the control raises to its host, in their numbered order. Every argument goes by
// reference, so a handler can change it. The bodies are empty: a host overrides what it needs.
#include <cstdint>
#include <string>

namespace TabulonLib12 {

class Tabulon12Events {
public:
    virtual ~Tabulon12Events() = default;
    virtual void KeyDown(int16_t& /*KeyCode*/, int16_t& /*Shift*/) {}                          // 1
    virtual void KeyPress(int16_t& /*KeyAscii*/) {}                                            // 2
    virtual void KeyUp(int16_t& /*KeyCode*/, int16_t& /*Shift*/) {}                            // 3
    virtual void MouseMove(int16_t& /*Button*/, int16_t& /*Shift*/, float& /*x*/, float& /*y*/) {}  // 4
    virtual void GoDown() {}                                                                   // 5
    virtual void GoUp() {}                                                                     // 6
    virtual void Caricato() {}                                                                 // 7
    virtual void Click() {}                                                                    // 8
    virtual void DblClick() {}                                                                 // 9
    virtual void MouseDown(int16_t& /*Button*/, int16_t& /*Shift*/, float& /*x*/, float& /*y*/) {}  // 10
    virtual void MouseUp(int16_t& /*Button*/, int16_t& /*Shift*/, float& /*x*/, float& /*y*/) {}    // 11
    virtual void EnterCell() {}                                                                // 12
    virtual void LeaveCell() {}                                                                // 13
    virtual void CellClick(int32_t& /*RigaClick*/, int16_t& /*ColonnaClick*/) {}               // 14
    virtual void CellDblClick(int32_t& /*RigaClick*/, int16_t& /*ColonnaClick*/) {}            // 15
    virtual void CellRightClick(int32_t& /*RigaClick*/, int16_t& /*ColonnaClick*/) {}          // 16
    virtual void CellMouseMove(int32_t& /*RigaClick*/, int16_t& /*ColonnaClick*/) {}           // 17
    virtual void IperTextClick(int32_t& /*RigaClick*/, int16_t& /*ColonnaClick*/, int32_t& /*IdAssociato*/,
                               std::string& /*TestoIperTxt*/) {}                               // 18
    virtual void Resize() {}                                                                   // 19
};

// The host's handler as the control's parts raise events through it: nothing happens while the
// host has registered none.
class HostEvents {
public:
    Tabulon12Events* Handler() const { return handler_; }
    void setHandler(Tabulon12Events* handler) { handler_ = handler; }
    // Calls `raise` with the handler, when there is one.
    template <class F>
    void Raise(F&& raise) const {
        if (handler_) raise(*handler_);
    }

private:
    Tabulon12Events* handler_ = nullptr;
};

}  // namespace TabulonLib12
