#include "platform/qt/guarded.h"

#include "platform/host/host_services.h"
#include "platform/qt/qt_message_box.h"
#include "platform/runtime/error.h"

namespace TabulonLib12 {

void Guarded(const std::function<void()>& action) {
    try {
        action();
    } catch (const Error& e) {
        QtMessageBox(nullptr).MsgBox(e.description(), MsgBoxStyle::Critical, "");
    }
}

}  // namespace TabulonLib12
