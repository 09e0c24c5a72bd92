#include "platform/qt/surface_widget.h"

#include <cmath>

#include <QGuiApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleHints>
#include <QToolTip>
#include <QWheelEvent>

#include "platform/qt/guarded.h"
#include "platform/qt/qt_graphics.h"
#include "platform/qt/qt_input.h"
#include "platform/qt/qt_text_metrics.h"
#include "platform/qt/qt_timer_service.h"

namespace TabulonLib12 {

namespace {

float ToTwips(qreal pixels) { return static_cast<float>(pixels * TwipsPerPixel); }

}  // namespace

SurfaceWidget::SurfaceWidget(QWidget* parent)
    : QWidget(parent),
      ownMetrics_(std::make_unique<QtTextMetrics>()),
      ownTimers_(std::make_unique<QtTimerService>()),
      ownSurface_(std::make_unique<Surface>(*ownMetrics_, *ownTimers_)),
      surface_(ownSurface_.get()) {
    Attach();
}

SurfaceWidget::SurfaceWidget(Surface& surface, QWidget* parent) : QWidget(parent), surface_(&surface) {
    Attach();
    const int w = TwipsToPixels(surface.Width()), h = TwipsToPixels(surface.Height());
    if (w > 0 && h > 0) resize(w, h);
}

SurfaceWidget::~SurfaceWidget() {
    // The surface may outlive the widget: it must not call back into it.
    surface_->onInvalidate = nullptr;
    surface_->onScreenPointer = nullptr;
}

void SurfaceWidget::Attach() {
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);  // every pixel is painted by the surface
    surface_->onInvalidate = [this] { RequestUpdate(); };
    surface_->onScreenPointer = [this](int16_t pointer) { screenCursor_.Set(pointer); };
}

QSize SurfaceWidget::sizeHint() const {
    const int w = TwipsToPixels(surface_->Width()), h = TwipsToPixels(surface_->Height());
    return (w > 0 && h > 0) ? QSize(w, h) : QSize(400, 300);
}

void SurfaceWidget::RequestUpdate() {
    // Qt merges updates too, but a list scroll writes hundreds of cells: one request per turn.
    if (updatePending_) return;
    updatePending_ = true;
    update();
}

void SurfaceWidget::paintEvent(QPaintEvent*) {
    updatePending_ = false;
    ++paintCount_;
    QPainter p(this);
    painter_.PaintSurface(p, *surface_, rect());
}

void SurfaceWidget::showEvent(QShowEvent* e) {
    updatePending_ = false;  // an update asked for while hidden was dropped; showing paints all
    QWidget::showEvent(e);
}

void SurfaceWidget::resizeEvent(QResizeEvent* e) {
    QWidget::resizeEvent(e);
    Guarded([&] { surface_->Resize(static_cast<float>(width() * TwipsPerPixel), static_cast<float>(height() * TwipsPerPixel)); });
}

void SurfaceWidget::moveEvent(QMoveEvent* e) {
    QWidget::moveEvent(e);
    surface_->setExtenderPosition(static_cast<float>(x() * TwipsPerPixel), static_cast<float>(y() * TwipsPerPixel));
}

bool SurfaceWidget::IsSecondPressOfDoubleClick(const QMouseEvent& e) const {
    // Qt reports a double click after the second press has been delivered, while the surface
    // takes that press itself as the double click: the press is recognised here by Qt's own rule.
    if (lastPressWasDouble_ || e.button() != lastPressButton_) return false;
    const QStyleHints* hints = QGuiApplication::styleHints();
    const qint64 elapsed = static_cast<qint64>(e.timestamp()) - static_cast<qint64>(lastPressTime_);
    const QPointF moved = e.position() - lastPressPos_;
    return elapsed >= 0 && elapsed < hints->mouseDoubleClickInterval() &&
           std::abs(moved.x()) <= hints->mouseDoubleClickDistance() &&
           std::abs(moved.y()) <= hints->mouseDoubleClickDistance();
}

void SurfaceWidget::mousePressEvent(QMouseEvent* e) {
    const QPointF pos = e->position();
    const bool second = IsSecondPressOfDoubleClick(*e);
    lastPressTime_ = e->timestamp();
    lastPressPos_ = pos;
    lastPressButton_ = e->button();
    lastPressWasDouble_ = second;
    swallowDoubleClick_ = second;
    const int16_t button = ButtonCode(e->button()), shift = ShiftCode(e->modifiers());
    Guarded([&] {
        if (second) surface_->DoubleClick(button, shift, ToTwips(pos.x()), ToTwips(pos.y()));
        else surface_->MouseDown(button, shift, ToTwips(pos.x()), ToTwips(pos.y()));
    });
    UpdatePointer(pos);
    e->accept();
}

void SurfaceWidget::mouseMoveEvent(QMouseEvent* e) {
    const QPointF pos = e->position();
    Guarded([&] { surface_->MouseMove(ButtonsCode(e->buttons()), ShiftCode(e->modifiers()), ToTwips(pos.x()), ToTwips(pos.y())); });
    UpdatePointer(pos);
    e->accept();
}

void SurfaceWidget::mouseReleaseEvent(QMouseEvent* e) {
    const QPointF pos = e->position();
    Guarded([&] { surface_->MouseUp(ButtonCode(e->button()), ShiftCode(e->modifiers()), ToTwips(pos.x()), ToTwips(pos.y())); });
    UpdatePointer(pos);
    e->accept();
}

void SurfaceWidget::mouseDoubleClickEvent(QMouseEvent* e) {
    const QPointF pos = e->position();
    if (swallowDoubleClick_) {  // its press was delivered as the double click already
        swallowDoubleClick_ = false;
        e->accept();
        return;
    }
    lastPressWasDouble_ = true;
    Guarded([&] { surface_->DoubleClick(ButtonCode(e->button()), ShiftCode(e->modifiers()), ToTwips(pos.x()), ToTwips(pos.y())); });
    UpdatePointer(pos);
    e->accept();
}

void SurfaceWidget::wheelEvent(QWheelEvent* e) {
    const int delta = e->angleDelta().y();
    if (delta == 0) {
        e->ignore();
        return;
    }
    const QPointF pos = e->position();
    Guarded([&] { surface_->Wheel(delta, ShiftCode(e->modifiers()), ToTwips(pos.x()), ToTwips(pos.y())); });
    e->accept();
}

void SurfaceWidget::keyPressEvent(QKeyEvent* e) {
    const int16_t shift = ShiftCode(e->modifiers());
    const int16_t code = VirtualKeyCode(e->key(), e->modifiers());
    if (code != 0) Guarded([&] { surface_->KeyDown(code, shift); });
    const int16_t ascii = KeyAsciiCode(e->key(), e->text());
    if (ascii != 0) Guarded([&] { surface_->KeyPress(ascii); });
    if (code == 0 && ascii == 0) {
        e->ignore();
        return;
    }
    e->accept();
}

void SurfaceWidget::keyReleaseEvent(QKeyEvent* e) {
    const int16_t code = VirtualKeyCode(e->key(), e->modifiers());
    if (e->isAutoRepeat() || code == 0) {
        e->ignore();
        return;
    }
    Guarded([&] { surface_->KeyUp(code, ShiftCode(e->modifiers())); });
    e->accept();
}

bool SurfaceWidget::event(QEvent* e) {
    switch (e->type()) {
        case QEvent::ToolTip: {
            auto* help = static_cast<QHelpEvent*>(e);
            if (!ShowToolTip(help->pos(), help->globalPos())) e->ignore();
            return true;
        }
        case QEvent::KeyPress: {
            // Tab reaches the control as a key, then moves the focus on as everywhere in the form.
            auto* key = static_cast<QKeyEvent*>(e);
            const bool back = key->key() == Qt::Key_Backtab ||
                              (key->key() == Qt::Key_Tab && (key->modifiers() & Qt::ShiftModifier));
            if (key->key() != Qt::Key_Tab && key->key() != Qt::Key_Backtab) break;
            if (key->modifiers() & (Qt::ControlModifier | Qt::AltModifier)) break;
            Guarded([&] { surface_->KeyDown(9, ShiftCode(key->modifiers())); });
            focusNextPrevChild(!back);
            return true;
        }
        default: break;
    }
    return QWidget::event(e);
}

bool SurfaceWidget::ShowToolTip(const QPoint& pos, const QPoint& globalPos) {
    Element* element = surface_->ElementAt(ToTwips(pos.x()), ToTwips(pos.y()));
    if (!element || element->ToolTipText().empty()) {
        QToolTip::hideText();
        return false;
    }
    QToolTip::showText(globalPos, ToQString(element->ToolTipText()), this, PixelRect(*element));
    return true;
}

void SurfaceWidget::UpdatePointer(const QPointF& pos) {
    lastPointer_ = pos;
    // While the mouse is captured the pressed element keeps the pointer, as the moves go to it.
    Element* element = surface_->Captured();
    if (!element) element = surface_->ElementAt(ToTwips(pos.x()), ToTwips(pos.y()));
    if (!element) {
        unsetCursor();
        return;
    }
    const int16_t pointer = element->MousePointer();
    if (pointer == Pointer::Default && element->Kind() != ElementKind::TextBox) {
        unsetCursor();
        return;
    }
    setCursor(CursorForPointer(pointer, element->MouseIcon(), element->Kind()));
}

}  // namespace TabulonLib12
