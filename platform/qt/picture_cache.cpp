#include "platform/qt/picture_cache.h"

#include "platform/qt/qt_graphics.h"

namespace TabulonLib12 {

const QImage& PictureCache::Get(const Picture& picture) {
    if (!picture) return null_;
    auto it = entries_.find(picture.get());
    if (it != entries_.end() && it->second.source.lock() == picture) return it->second.image;
    QImage image = ToQImage(*picture);
    if (!image.isNull()) image = image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
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

}  // namespace TabulonLib12
