#pragma once
// The surface painter: a QWidget that shows one element tree (a Surface). It paints the elements
// in z-order, feeds the surface the mouse, wheel and keys in twips and classic codes, shows the
// elements' tooltips and pointers, and keeps the surface's size equal to its own.
//
// It knows surfaces only, never a control: a host that wants the control on a form uses
// Tabulon12Widget (widgets/), which owns a control with its Qt services and shows the control's
// surface through one of these.
#include <QWidget>
#include <memory>

#include "platform/qt/element_painter.h"
#include "platform/qt/qt_pointer.h"
#include "platform/ui/surface.h"

namespace TabulonLib12 {

class QtTextMetrics;
class QtTimerService;

class SurfaceWidget : public QWidget {
    Q_OBJECT

public:
    // A widget with a surface of its own, measured with real fonts and timed by Qt.
    explicit SurfaceWidget(QWidget* parent = nullptr);
    // A widget showing a surface that somebody else owns; the surface must outlive the widget.
    explicit SurfaceWidget(Surface& surface, QWidget* parent = nullptr);
    ~SurfaceWidget() override;

    Surface& GetSurface() const { return *surface_; }
    // Paint events handled so far: changes made within one turn of the event loop paint once.
    int PaintCount() const { return paintCount_; }
    QSize sizeHint() const override;

protected:
    bool event(QEvent* e) override;
    void paintEvent(QPaintEvent* e) override;
    void resizeEvent(QResizeEvent* e) override;
    void moveEvent(QMoveEvent* e) override;
    void showEvent(QShowEvent* e) override;
    void mousePressEvent(QMouseEvent* e) override;
    void mouseMoveEvent(QMouseEvent* e) override;
    void mouseReleaseEvent(QMouseEvent* e) override;
    void mouseDoubleClickEvent(QMouseEvent* e) override;
    void wheelEvent(QWheelEvent* e) override;
    void keyPressEvent(QKeyEvent* e) override;
    void keyReleaseEvent(QKeyEvent* e) override;

private:
    void Attach();
    void RequestUpdate();
    // Sets the cursor of the element that the pointer at `pos` (widget pixels) is over.
    void UpdatePointer(const QPointF& pos);
    bool ShowToolTip(const QPoint& pos, const QPoint& globalPos);
    bool IsSecondPressOfDoubleClick(const QMouseEvent& e) const;

    // Declared in this order so that an owned surface goes before its timers and metrics.
    std::unique_ptr<QtTextMetrics> ownMetrics_;
    std::unique_ptr<QtTimerService> ownTimers_;
    std::unique_ptr<Surface> ownSurface_;
    Surface* surface_;

    ElementPainter painter_;
    OverrideCursor screenCursor_;
    bool updatePending_ = false;
    int paintCount_ = 0;
    QPointF lastPointer_{-1, -1};
    // The last press, to recognise the second press of a double click.
    quint64 lastPressTime_ = 0;
    QPointF lastPressPos_;
    Qt::MouseButton lastPressButton_ = Qt::NoButton;
    bool lastPressWasDouble_ = false;
    bool swallowDoubleClick_ = false;
};

}  // namespace TabulonLib12
