#pragma once
// The window of a Qt host form for the wheel: every wheel event that reaches the top-level
// window or any widget inside it is seen by the listeners first, once, with its signed delta
// (the vertical angle in eighths of a degree: 120 a notch, positive away from the user) and the
// state of its buttons and shift keys, and goes on to its widget untouched. The listeners are
// called on the thread of the window; a window that is gone calls nobody.
#include <QObject>
#include <QPoint>
#include <QPointF>
#include <QPointer>
#include <QWidget>
#include <vector>

#include "platform/host/host_services.h"

namespace TabulonLib12 {

class QtHostWindow final : public QObject, public HostWindow {
    Q_OBJECT

public:
    // The top-level window that holds `widget`, as it is when a wheel event comes: a widget
    // placed on another window later brings the hook along.
    explicit QtHostWindow(QWidget* widget);
    ~QtHostWindow() override;

    int AddWheelListener(WheelListener listener) override;
    void RemoveWheelListener(int id) override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QPointer<QWidget> widget_;
    std::vector<std::pair<int, WheelListener>> listeners_;
    int nextId_ = 1;
    bool filtering_ = false;
    // A wheel event that its widget ignores goes on to the widget's parent as a copy with the
    // same time, place and delta: such a copy is the same notch, seen once.
    QPointer<QWidget> lastTarget_;
    quint64 lastTimestamp_ = 0;
    QPointF lastGlobal_;
    QPoint lastDelta_;
};

}  // namespace TabulonLib12
