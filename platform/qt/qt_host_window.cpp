#include "platform/qt/qt_host_window.h"

#include <QApplication>
#include <QWheelEvent>

namespace TabulonLib12 {

namespace {

// The state of the buttons (1 left, 2 right, 4 middle) and of the shift keys (8 shift, 16 ctrl)
// as a wheel message carries them.
int32_t KeysOf(const QWheelEvent& e) {
    int32_t keys = 0;
    if (e.buttons() & Qt::LeftButton) keys |= 1;
    if (e.buttons() & Qt::RightButton) keys |= 2;
    if (e.buttons() & Qt::MiddleButton) keys |= 4;
    if (e.modifiers() & Qt::ShiftModifier) keys |= 8;
    if (e.modifiers() & Qt::ControlModifier) keys |= 16;
    return keys;
}

}  // namespace

QtHostWindow::QtHostWindow(QWidget* widget) : widget_(widget) {}

QtHostWindow::~QtHostWindow() {
    if (filtering_ && qApp) qApp->removeEventFilter(this);
}

int QtHostWindow::AddWheelListener(WheelListener listener) {
    listeners_.emplace_back(nextId_, std::move(listener));
    // The application's filter sees a wheel event before any widget of the window does.
    if (!filtering_ && qApp) {
        qApp->installEventFilter(this);
        filtering_ = true;
    }
    return nextId_++;
}

void QtHostWindow::RemoveWheelListener(int id) {
    std::erase_if(listeners_, [id](const auto& entry) { return entry.first == id; });
    if (listeners_.empty() && filtering_ && qApp) {
        qApp->removeEventFilter(this);
        filtering_ = false;
    }
}

bool QtHostWindow::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::Wheel || !widget_) return false;
    QWidget* window = widget_->window();
    const auto* wheel = static_cast<const QWheelEvent*>(event);
    auto* target = qobject_cast<QWidget*>(watched);
    if (target == nullptr || (target != window && !window->isAncestorOf(target))) return false;
    const bool passedOn = lastTarget_ && target == lastTarget_->parentWidget() &&
                          wheel->timestamp() == lastTimestamp_ && wheel->globalPosition() == lastGlobal_ &&
                          wheel->angleDelta() == lastDelta_;
    lastTarget_ = target;
    lastTimestamp_ = wheel->timestamp();
    lastGlobal_ = wheel->globalPosition();
    lastDelta_ = wheel->angleDelta();
    if (passedOn) return false;
    const int32_t delta = wheel->angleDelta().y();
    const int32_t keys = KeysOf(*wheel);
    // A listener may remove listeners: the event goes to those installed when it came.
    const auto listeners = listeners_;
    for (const auto& [id, listener] : listeners)
        if (listener) listener(keys, delta);
    return false;  // seen, never eaten
}

}  // namespace TabulonLib12
