#include "status_pictures.h"

#include <QImage>
#include <QPainter>
#include <QPainterPath>

#include "platform/qt/qt_graphics.h"

namespace TabulonLib12::Demo {

namespace {

QImage Canvas() {
    QImage image(16, 16, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    return image;
}

}  // namespace

Picture PaidPicture() {
    QImage image = Canvas();
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    p.setBrush(QColor(46, 160, 67));
    p.setPen(Qt::NoPen);
    p.drawEllipse(QRectF(1, 1, 14, 14));
    QPainterPath tick;
    tick.moveTo(4.5, 8.5);
    tick.lineTo(7, 11);
    tick.lineTo(11.5, 5);
    p.setPen(QPen(Qt::white, 2.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.setBrush(Qt::NoBrush);
    p.drawPath(tick);
    p.end();
    return FromQImage(image);
}

Picture OpenPicture() {
    QImage image = Canvas();
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    p.setBrush(QColor(207, 34, 46));
    p.setPen(Qt::NoPen);
    p.drawEllipse(QRectF(1, 1, 14, 14));
    p.setPen(QPen(Qt::white, 2.0, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(QPointF(5.5, 5.5), QPointF(10.5, 10.5));
    p.drawLine(QPointF(10.5, 5.5), QPointF(5.5, 10.5));
    p.end();
    return FromQImage(image);
}

}  // namespace TabulonLib12::Demo
