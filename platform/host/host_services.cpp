// The host services that need code: image lists, form lookup and the clock.
#include "platform/host/host_services.h"

#include <chrono>

#include "platform/runtime/error.h"
#include "platform/runtime/text.h"

namespace TabulonLib12 {

Picture HostControl::ListImage(int32_t) const {
    throw Error(ErrorKind::MissingObject, 438, "Object doesn't support this property or method");
}

Picture ImageList::ListImage(int32_t index) const {
    if (index < 1 || index > Count()) throw Error(ErrorKind::OutOfBounds, 35600, "Index out of bounds");
    return images_[static_cast<size_t>(index - 1)];
}

// Control names are identifiers: case is folded on ASCII letters only, so that the comparison
// does not depend on the process locale.
std::shared_ptr<HostControl> HostForm::Find(const std::string& name) const {
    for (const auto& control : controls_) {
        if (control && EqualsInsensitive(control->Name(), name)) return control;
    }
    return nullptr;
}

uint32_t SteadyClock::TickCount() const {
    using namespace std::chrono;
    const auto ms = duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
    // The tick count wraps at 2^32 (see Clock); the unsigned conversion is modular.
    return static_cast<uint32_t>(static_cast<uint64_t>(ms));
}

int HeadlessWindow::AddWheelListener(WheelListener listener) {
    listeners_.emplace_back(nextId_, std::move(listener));
    return nextId_++;
}

void HeadlessWindow::RemoveWheelListener(int id) {
    std::erase_if(listeners_, [id](const auto& entry) { return entry.first == id; });
}

void HeadlessWindow::SendWheel(int32_t keys, int32_t delta) {
    // A listener may add or remove listeners: the message goes to those installed when it came.
    const auto listeners = listeners_;
    for (const auto& [id, listener] : listeners)
        if (listener) listener(keys, delta);
    ++handled_;
}

}  // namespace TabulonLib12
