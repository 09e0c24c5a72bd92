// The host services that need code: image lists, form lookup, the recorders and the clock.
#include "platform/host/host_services.h"

#include <chrono>

#include "platform/runtime/error.h"

namespace TabulonLib12 {

namespace {

// Control names are identifiers: case is folded on ASCII letters only, so that the comparison
// does not depend on the process locale.
bool SameNameIgnoringCase(const std::string& a, const std::string& b) {
    if (a.size() != b.size()) return false;
    for (size_t i = 0; i < a.size(); ++i) {
        auto fold = [](char c) { return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c; };
        if (fold(a[i]) != fold(b[i])) return false;
    }
    return true;
}

}  // namespace

Picture HostControl::ListImage(int32_t) const {
    throw Error(ErrorKind::MissingObject, 438, "Object doesn't support this property or method");
}

Picture ImageList::ListImage(int32_t index) const {
    if (index < 1 || index > Count()) throw Error(ErrorKind::OutOfBounds, 35600, "Index out of bounds");
    return images_[static_cast<size_t>(index - 1)];
}

std::shared_ptr<HostControl> HostForm::Find(const std::string& name) const {
    for (const auto& control : controls_) {
        if (control && SameNameIgnoringCase(control->Name(), name)) return control;
    }
    return nullptr;
}

int16_t RecordingMessageBox::MsgBox(const std::string& prompt, int16_t style, const std::string& title) {
    shown.push_back({prompt, style, title});
    return answer;
}

void RecordingScreenPointer::setMousePointer(int16_t pointer) {
    pointer_ = pointer;
    history.push_back(pointer);
}

uint32_t SteadyClock::TickCount() const {
    using namespace std::chrono;
    const auto ms = duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
    // The tick count wraps at 2^32 (see Clock); the unsigned conversion is modular.
    return static_cast<uint32_t>(static_cast<uint64_t>(ms));
}

}  // namespace TabulonLib12
