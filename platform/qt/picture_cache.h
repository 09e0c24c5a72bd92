#pragma once
// Pictures converted to QImage once and kept while the picture lives: a list repaints the same
// few pictures (heading tiles, cell icons) on every scroll.
#include <QImage>
#include <memory>
#include <unordered_map>

#include "platform/ui/graphics.h"

namespace TabulonLib12 {

class PictureCache {
public:
    // The picture as a premultiplied QImage; a null image for an empty or malformed picture.
    const QImage& Get(const Picture& picture);
    // Forgets the pictures that nobody holds any more.
    void Prune();
    size_t Size() const { return entries_.size(); }

private:
    struct Entry {
        std::weak_ptr<const Image> source;  // tells a live picture from a new one at the same address
        QImage image;
    };
    std::unordered_map<const Image*, Entry> entries_;
    QImage null_;
};

}  // namespace TabulonLib12
