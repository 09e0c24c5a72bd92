#include "platform/qt/qt_timer_service.h"

#include "platform/qt/guarded.h"

#include <algorithm>

namespace TabulonLib12 {

QtTimerService::QtTimerService() = default;

QtTimerService::~QtTimerService() {
    for (auto& [id, timer] : timers_) timer->stop();
    // owner_ deletes the timers.
}

int QtTimerService::Start(int32_t intervalMs, std::function<void()> tick) {
    auto* timer = new QTimer(&owner_);
    timer->setInterval(std::max<int32_t>(intervalMs, 0));
    timer->setSingleShot(false);
    QObject::connect(timer, &QTimer::timeout, timer, [tick = std::move(tick)] {
        if (tick) Guarded(tick);
    });
    const int id = nextId_++;
    timers_[id] = timer;
    timer->start();
    return id;
}

void QtTimerService::Stop(int id) {
    auto it = timers_.find(id);
    if (it == timers_.end()) return;
    QTimer* timer = it->second;
    timers_.erase(it);
    timer->stop();
    // The tick that stops its own timer is still running inside the timer's signal.
    timer->disconnect();
    timer->deleteLater();
}

}  // namespace TabulonLib12
