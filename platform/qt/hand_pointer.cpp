#include "platform/qt/hand_pointer.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

namespace TabulonLib12 {

namespace {

QPainterPath RoundedBox(qreal x, qreal y, qreal w, qreal h, qreal radius) {
    QPainterPath path;
    path.addRoundedRect(QRectF(x, y, w, h), radius, radius);
    return path;
}

// The outline of a right hand seen from its back, the index finger pointing up.
QPainterPath HandOutline() {
    QPainterPath hand = RoundedBox(9.5, 1.5, 6, 17, 3);                // index finger
    hand = hand.united(RoundedBox(15, 9.5, 5, 10, 2.5));               // middle finger, curled
    hand = hand.united(RoundedBox(19.5, 10.5, 5, 10, 2.5));            // ring finger
    hand = hand.united(RoundedBox(24, 12, 4.5, 9, 2.2));               // little finger
    hand = hand.united(RoundedBox(9.5, 15, 19, 12, 4));                // palm
    hand = hand.united(RoundedBox(11.5, 24, 15, 6.5, 1.5));            // wrist
    QPainterPath thumb;                                                // thumb, bent outwards
    thumb.moveTo(10.5, 18.5);
    thumb.lineTo(5.5, 14.0);
    thumb.cubicTo(3.0, 12.0, 0.8, 14.8, 2.6, 17.0);
    thumb.lineTo(9.5, 26.5);
    thumb.closeSubpath();
    return hand.united(thumb).simplified();
}

}  // namespace

QImage HandPointerImage() {
    QImage image(32, 32, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QPen(QColor(0, 0, 0), 1.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.setBrush(QColor(255, 255, 255));
    p.drawPath(HandOutline());
    // The creases between the curled fingers, and the nail line of the index finger.
    p.setPen(QPen(QColor(0, 0, 0), 1.0, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(QPointF(15.5, 11.5), QPointF(15.5, 16.0));
    p.drawLine(QPointF(20.0, 12.5), QPointF(20.0, 17.0));
    p.drawLine(QPointF(24.5, 14.0), QPointF(24.5, 18.0));
    p.end();
    return image;
}

QPoint HandPointerHotSpot() { return QPoint(12, 1); }

QCursor HandPointerCursor() {
    const QPoint hot = HandPointerHotSpot();
    return QCursor(QPixmap::fromImage(HandPointerImage()), hot.x(), hot.y());
}

}  // namespace TabulonLib12
