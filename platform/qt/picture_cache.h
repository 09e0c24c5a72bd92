#pragma once
// Pictures converted to QImage once and kept while the picture lives: a list repaints the same
// few pictures (heading tiles, cell icons) on every scroll.
//
// On a device of 1.5 or more device pixels per logical pixel, a picture with a finer rendering
// (Image::doubleScale) is shown by that rendering: the cache hands it out with a device pixel
// ratio of 2, so that it covers the same logical size as the plain picture would.
#include <QImage>
#include <QPainter>
#include <QRect>
#include <memory>
#include <unordered_map>

#include "platform/ui/graphics.h"

namespace TabulonLib12 {

// Device pixels per logical pixel from which the finer rendering of a picture is used.
inline constexpr qreal kDoubleScaleFromRatio = 1.5;

class PictureCache {
public:
    // The picture as a premultiplied QImage for a device of `devicePixelRatio`: its finer
    // rendering (with a device pixel ratio of 2) when the ratio is 1.5 or more and the picture
    // has one, the plain pixels (ratio 1) otherwise. A null image for an empty or malformed
    // picture.
    const QImage& Get(const Picture& picture, qreal devicePixelRatio = 1.0);
    // Forgets the pictures that nobody holds any more.
    void Prune();
    size_t Size() const { return entries_.size(); }

private:
    const QImage& Convert(const std::shared_ptr<const Image>& picture, qreal ratio);

    struct Entry {
        std::weak_ptr<const Image> source;  // tells a live picture from a new one at the same address
        QImage image;
    };
    std::unordered_map<const Image*, Entry> entries_;
    QImage null_;
};

// The logical size of a cached picture: its pixels over its device pixel ratio.
QSize PictureSize(const QImage& image);

// The device pixels per logical pixel of what the painter paints on.
qreal PainterPixelRatio(const QPainter& p);

// Draws a cached picture at its logical size with its top-left corner at `at`, clipped to
// `within` (logical pixels). A finer rendering is scaled smoothly where the device's ratio is
// not its own.
void DrawPicture(QPainter& p, const QImage& image, const QPoint& at, const QRect& within);

}  // namespace TabulonLib12
