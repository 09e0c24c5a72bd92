#pragma once
// Timers of the element model run on a timer service: Qt's event loop in production, a manual
// clock in tests that fires ticks in order as time is advanced.
#include <cstdint>
#include <functional>
#include <map>

namespace TabulonLib12 {

class TimerService {
public:
    virtual ~TimerService() = default;
    // Starts a repeating timer; the tick runs every `intervalMs` (at least 1) until Stop.
    // Answers its id, never 0.
    virtual int Start(int32_t intervalMs, std::function<void()> tick) = 0;
    virtual void Stop(int id) = 0;
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
