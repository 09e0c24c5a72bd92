#pragma once
// Text metrics measured on real fonts with QFontMetrics, in twips (15 to the pixel).
#include <QFontMetrics>
#include <vector>

#include "platform/ui/text_metrics.h"

namespace TabulonLib12 {

class QtTextMetrics final : public TextMetrics {
public:
    // Width of the text's advance in twips, rounded up to whole pixels so that an element
    // sized to a caption holds all of it.
    int32_t TextWidth(const Font& font, std::string_view text) const override;
    // Line height (QFontMetrics::height) in twips.
    int32_t TextHeight(const Font& font) const override;

private:
    struct Entry {
        Font font;
        QFontMetrics metrics;
        QFontMetricsF exact;
    };
    const Entry& MetricsOf(const Font& font) const;
    // The few fonts of a control are measured over and over: keep their metrics.
    mutable std::vector<Entry> cache_;
};

}  // namespace TabulonLib12
