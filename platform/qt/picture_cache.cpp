#include "platform/qt/picture_cache.h"

#include <cmath>

#include "platform/qt/qt_graphics.h"

namespace TabulonLib12 {

const QImage& PictureCache::Get(const Picture& picture, qreal devicePixelRatio) {
    if (!picture) return null_;
    if (devicePixelRatio >= kDoubleScaleFromRatio && picture->HasDoubleScale())
        return Convert(picture->doubleScale, 2.0);
    return Convert(picture, 1.0);
}

const QImage& PictureCache::Convert(const std::shared_ptr<const Image>& picture, qreal ratio) {
    auto it = entries_.find(picture.get());
    if (it != entries_.end() && it->second.source.lock() == picture) return it->second.image;
    QImage image = ToQImage(*picture);
    if (!image.isNull()) {
        image = image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
        image.setDevicePixelRatio(ratio);
    }
    Entry& entry = entries_[picture.get()];
    entry.source = picture;
    entry.image = std::move(image);
    return entry.image;
}

void PictureCache::Prune() {
    for (auto it = entries_.begin(); it != entries_.end();) {
        if (it->second.source.expired()) it = entries_.erase(it);
        else ++it;
    }
}

QSize PictureSize(const QImage& image) {
    const qreal ratio = image.devicePixelRatio();
    if (ratio == 1.0) return image.size();
    return QSize(static_cast<int>(std::lround(image.width() / ratio)), static_cast<int>(std::lround(image.height() / ratio)));
}

qreal PainterPixelRatio(const QPainter& p) { return p.device() ? p.device()->devicePixelRatioF() : 1.0; }

void DrawPicture(QPainter& p, const QImage& image, const QPoint& at, const QRect& within) {
    if (image.isNull()) return;
    const QRect target = QRect(at, PictureSize(image)).intersected(within);
    if (target.isEmpty()) return;
    const qreal ratio = image.devicePixelRatio();
    if (ratio == 1.0) {
        p.drawImage(target, image, target.translated(-at));
        return;
    }
    const QRectF source(QPointF(target.topLeft() - at) * ratio, QSizeF(target.size()) * ratio);
    const bool smooth = p.testRenderHint(QPainter::SmoothPixmapTransform);
    if (!smooth && PainterPixelRatio(p) != ratio) p.setRenderHint(QPainter::SmoothPixmapTransform);
    p.drawImage(QRectF(target), image, source);
    if (!smooth) p.setRenderHint(QPainter::SmoothPixmapTransform, false);
}

}  // namespace TabulonLib12
