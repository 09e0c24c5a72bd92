#include "platform/qt/qt_text_metrics.h"

#include "platform/qt/qt_graphics.h"

namespace TabulonLib12 {

namespace {
constexpr size_t kCachedFonts = 16;
}

const QFontMetrics& QtTextMetrics::MetricsOf(const Font& font) const {
    for (const auto& entry : cache_) {
        if (entry.font == font) return entry.metrics;
    }
    if (cache_.size() >= kCachedFonts) cache_.erase(cache_.begin());
    cache_.push_back(Entry{font, QFontMetrics(ToQFont(font))});
    return cache_.back().metrics;
}

int32_t QtTextMetrics::TextWidth(const Font& font, std::string_view text) const {
    return MetricsOf(font).horizontalAdvance(ToQString(text)) * TwipsPerPixel;
}

int32_t QtTextMetrics::TextHeight(const Font& font) const {
    return MetricsOf(font).height() * TwipsPerPixel;
}

}  // namespace TabulonLib12
