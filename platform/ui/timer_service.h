#pragma once
// Timers of the element model run on a timer service: Qt's event loop in production, a manual
// clock in the tests (tests/support) that fires ticks in order as time is advanced.
#include <cstdint>
#include <functional>

namespace TabulonLib12 {

class TimerService {
public:
    virtual ~TimerService() = default;
    // Starts a repeating timer; the tick runs every `intervalMs` (at least 1) until Stop.
    // Answers its id, never 0.
    virtual int Start(int32_t intervalMs, std::function<void()> tick) = 0;
    virtual void Stop(int id) = 0;
};

}  // namespace TabulonLib12
