#include "apps/shared/sample_pictures.h"

#include <QImage>
#include <QPainter>
#include <QPainterPath>

#include "platform/qt/qt_graphics.h"

namespace TabulonLib12::Apps {

namespace {

// A 16 x 16 picture of a filled disc, with its mark drawn in white by `mark`.
template <class Mark>
Picture Disc(const QColor& colour, Mark mark) {
    QImage image(16, 16, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    p.setBrush(colour);
    p.setPen(Qt::NoPen);
    p.drawEllipse(QRectF(1, 1, 14, 14));
    p.setBrush(Qt::NoBrush);
    mark(p);
    p.end();
    return FromQImage(image);
}

}  // namespace

Picture PaidPicture() {
    return Disc(QColor(46, 160, 67), [](QPainter& p) {
        QPainterPath tick;
        tick.moveTo(4.5, 8.5);
        tick.lineTo(7, 11);
        tick.lineTo(11.5, 5);
        p.setPen(QPen(Qt::white, 2.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        p.drawPath(tick);
    });
}

Picture OpenPicture() {
    return Disc(QColor(207, 34, 46), [](QPainter& p) {
        p.setPen(QPen(Qt::white, 2.0, Qt::SolidLine, Qt::RoundCap));
        p.drawLine(QPointF(5.5, 5.5), QPointF(10.5, 10.5));
        p.drawLine(QPointF(10.5, 5.5), QPointF(5.5, 10.5));
    });
}

std::shared_ptr<ImageList> SampleImageList() {
    return std::make_shared<ImageList>("ImmaginiStato", std::vector<Picture>{PaidPicture(), OpenPicture()});
}

}  // namespace TabulonLib12::Apps
