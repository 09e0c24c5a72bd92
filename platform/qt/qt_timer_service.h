#pragma once
// The element model's timers on Qt's event loop: one repeating QTimer per started timer.
#include <QObject>
#include <QTimer>
#include <map>

#include "platform/ui/timer_service.h"

namespace TabulonLib12 {

class QtTimerService final : public TimerService {
public:
    QtTimerService();
    ~QtTimerService() override;
    QtTimerService(const QtTimerService&) = delete;
    QtTimerService& operator=(const QtTimerService&) = delete;

    int Start(int32_t intervalMs, std::function<void()> tick) override;
    void Stop(int id) override;  // an unknown id is ignored
    int ActiveCount() const { return static_cast<int>(timers_.size()); }

private:
    // Parent of every QTimer, so that a timer stopped from its own tick (deleted later) is still
    // freed when the service goes before the event loop runs again.
    QObject owner_;
    std::map<int, QTimer*> timers_;
    int nextId_ = 1;
};

}  // namespace TabulonLib12
