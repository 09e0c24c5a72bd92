#pragma once
// The tests' stand-ins for what a host gives the control: a message box that records what it
// was asked to show and answers as told, a screen pointer that records its history, a clock and
// a timer service that move only when the test moves them.
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "platform/host/host_services.h"
#include "platform/ui/timer_service.h"

namespace TabulonLib12 {

class RecordingMessageBox final : public MessageBoxService {
public:
    struct Shown {
        std::string prompt;
        int16_t style;
        std::string title;
    };
    int16_t MsgBox(const std::string& prompt, int16_t style, const std::string& title) override;
    std::vector<Shown> shown;
    int16_t answer = MsgBoxOk;
};

class RecordingScreenPointer final : public ScreenPointer {
public:
    int16_t MousePointer() const override { return pointer_; }
    void setMousePointer(int16_t pointer) override;
    std::vector<int16_t> history;  // every value written, in order

private:
    int16_t pointer_ = 0;
};

class ManualClock final : public Clock {
public:
    uint32_t TickCount() const override { return now; }
    uint32_t now = 0;
};

class ManualTimerService final : public TimerService {
public:
    int Start(int32_t intervalMs, std::function<void()> tick) override;
    void Stop(int id) override;

    // Moves the clock on by `ms` (not negative), firing every tick that falls due, earliest
    // first and ties by id. A tick may stop or start timers; a timer started during Advance
    // first fires one interval after the time of the tick that started it.
    void Advance(int64_t ms);
    int64_t Now() const { return now_; }
    int ActiveCount() const { return static_cast<int>(timers_.size()); }

private:
    struct Entry {
        int32_t interval;
        int64_t due;
        std::function<void()> tick;
    };
    std::map<int, Entry> timers_;
    int nextId_ = 1;
    int64_t now_ = 0;
};

}  // namespace TabulonLib12
