#include "platform/qt/qt_text_metrics.h"

#include <cmath>

#include "platform/qt/qt_graphics.h"

namespace TabulonLib12 {

namespace {
constexpr size_t kCachedFonts = 16;
}

const QtTextMetrics::Entry& QtTextMetrics::MetricsOf(const Font& font) const {
    for (const auto& entry : cache_) {
        if (entry.font == font) return entry;
    }
    if (cache_.size() >= kCachedFonts) cache_.erase(cache_.begin());
    const QFont q = ToQFont(font);
    cache_.push_back(Entry{font, QFontMetrics(q), QFontMetricsF(q)});
    return cache_.back();
}

int32_t QtTextMetrics::TextWidth(const Font& font, std::string_view text) const {
    const qreal advance = MetricsOf(font).exact.horizontalAdvance(ToQString(text));
    return static_cast<int32_t>(std::ceil(advance)) * TwipsPerPixel;
}

int32_t QtTextMetrics::TextHeight(const Font& font) const {
    return MetricsOf(font).metrics.height() * TwipsPerPixel;
}

}  // namespace TabulonLib12
