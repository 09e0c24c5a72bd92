#include "tests/support/test_doubles.h"

#include <limits>
#include <utility>

#include "platform/runtime/error.h"

namespace TabulonLib12 {

int16_t RecordingMessageBox::MsgBox(const std::string& prompt, int16_t style, const std::string& title) {
    shown.push_back({prompt, style, title});
    return answer;
}

void RecordingScreenPointer::setMousePointer(int16_t pointer) {
    pointer_ = pointer;
    history.push_back(pointer);
}

int ManualTimerService::Start(int32_t intervalMs, std::function<void()> tick) {
    if (intervalMs < 1) throw Error::InvalidValue();
    if (nextId_ == std::numeric_limits<int>::max()) throw Error::Overflow();
    const int id = nextId_++;
    timers_[id] = Entry{intervalMs, now_ + intervalMs, std::move(tick)};
    return id;
}

void ManualTimerService::Stop(int id) { timers_.erase(id); }

void ManualTimerService::Advance(int64_t ms) {
    if (ms < 0) throw Error::InvalidValue();
    // The clock stops short of the largest value so that a due time plus an interval never
    // overflows.
    constexpr int64_t kLatest = std::numeric_limits<int64_t>::max() - std::numeric_limits<int32_t>::max();
    const int64_t end = ms > kLatest - now_ ? kLatest : now_ + ms;
    for (;;) {
        // The earliest due tick, ties by id (the map is ordered by id, so the first one wins).
        auto next = timers_.end();
        for (auto it = timers_.begin(); it != timers_.end(); ++it)
            if (it->second.due <= end && (next == timers_.end() || it->second.due < next->second.due)) next = it;
        if (next == timers_.end()) break;
        now_ = next->second.due;
        next->second.due += next->second.interval;
        // The tick may stop its own timer, which destroys the stored function: run a copy.
        std::function<void()> tick = next->second.tick;
        if (tick) tick();
    }
    now_ = end;
}

}  // namespace TabulonLib12
