// The wheel hook. One hook per thread, as the host's windows keep one: the window hooked last
// and the scroll bar it moves are the module's, so a second list that hooks takes the wheel
// over, and any list that unhooks takes the hook away from the window the module holds. A
// window's listener reaches nothing but the module, and the module holds the window and the bar
// weakly: a window or a list that is gone is never called again, and a list that goes takes
// away every listener it alone installed.
#include <algorithm>
#include <set>
#include <vector>

#include "platform/runtime/steps.h"
#include "presentation/keys_wheel.h"

namespace TabulonLib12 {

namespace {

struct HookedWindow {
    std::weak_ptr<HostWindow> window;
    int listener = 0;
    std::set<const KeysAndWheel*> owners;  // the lists that hooked it
};

struct WheelModule {
    std::weak_ptr<HostWindow> window;                 // the window hooked last
    std::weak_ptr<KeysAndWheel::WheelTarget> target;  // the bar the wheel moves
    uint32_t lastTick = 0;                            // the tick of the last wheel message
    std::vector<HookedWindow> hooked;
};

WheelModule& Module() {
    thread_local WheelModule module;
    return module;
}

bool Same(const std::weak_ptr<HostWindow>& a, const std::shared_ptr<HostWindow>& b) {
    return !a.owner_before(b) && !b.owner_before(a);
}

constexpr uint32_t kTooFast = 150;  // notches closer than this move nothing

}  // namespace

void KeysAndWheel::GestisciRotella(int32_t /*keys*/, int32_t delta) {
    WheelModule& module = Module();
    const std::shared_ptr<WheelTarget> target = module.target.lock();
    if (!target) return;  // the list that took the wheel is gone
    Steps steps;          // every failure is swallowed
    const uint32_t now = target->clock.TickCount();
    // The tick wraps after 49.7 days; the difference taken modulo 2^32 stays right across it.
    const uint32_t elapsed = now - module.lastTick;
    module.lastTick = target->clock.TickCount();
    // A fast spin is thinned out: each notch renews the tick, so a steady fast spin moves nothing.
    if (elapsed <= kTooFast) return;
    Scorrix& bar = target->bar;
    int64_t v = bar.Value();
    if (delta > 0) {
        v -= elapsed <= 300 ? 5 : elapsed <= 500 ? 3 : 1;
        if (v < bar.Min()) v = bar.Min();
    } else {
        // Downward there is no fast step of five.
        v += elapsed <= 500 ? 3 : 1;
        if (v > bar.Max()) v = bar.Max();
    }
    steps([&] {
        int32_t value = static_cast<int32_t>(v);
        bar.setValue(value);
    });
}

void KeysAndWheel::AgganciaRotella(const std::shared_ptr<HostWindow>& window) {
    WheelModule& module = Module();
    module.window = window;
    module.target = target_;
    if (!window) return;  // a form without a window: nothing to hook
    auto entry = std::find_if(module.hooked.begin(), module.hooked.end(),
                              [&](const HookedWindow& h) { return Same(h.window, window); });
    if (entry == module.hooked.end()) {
        Steps steps;
        int id = 0;
        steps([&] { id = window->AddWheelListener([](int32_t keys, int32_t delta) { GestisciRotella(keys, delta); }); });
        if (id == 0) return;
        module.hooked.push_back({window, id, {}});
        entry = module.hooked.end() - 1;
    }
    entry->owners.insert(this);
}

void KeysAndWheel::SganciaRotella() {
    WheelModule& module = Module();
    const std::shared_ptr<HostWindow> window = module.window.lock();
    if (!window) return;
    auto entry = std::find_if(module.hooked.begin(), module.hooked.end(),
                              [&](const HookedWindow& h) { return Same(h.window, window); });
    if (entry == module.hooked.end()) return;
    Steps steps;
    steps([&] { window->RemoveWheelListener(entry->listener); });
    module.hooked.erase(entry);
}

void KeysAndWheel::ReleaseHooks() {
    WheelModule& module = Module();
    for (auto it = module.hooked.begin(); it != module.hooked.end();) {
        it->owners.erase(this);
        const std::shared_ptr<HostWindow> window = it->window.lock();
        if (window && !it->owners.empty()) {
            ++it;
            continue;
        }
        if (window) {
            Steps steps;
            steps([&] { window->RemoveWheelListener(it->listener); });
        }
        it = module.hooked.erase(it);
    }
}

uint32_t KeysAndWheel::LastWheelTick() { return Module().lastTick; }

}  // namespace TabulonLib12
