#pragma once
// Text metrics measured on real fonts with QFontMetrics, in twips (15 to the pixel).
#include <QFontMetrics>
#include <vector>

#include "platform/ui/text_metrics.h"

namespace TabulonLib12 {

class QtTextMetrics final : public TextMetrics {
public:
    // Width of the text's advance (horizontalAdvance) in twips.
    int32_t TextWidth(const Font& font, std::string_view text) const override;
    // Line height (QFontMetrics::height) in twips.
    int32_t TextHeight(const Font& font) const override;

private:
    const QFontMetrics& MetricsOf(const Font& font) const;
    // The few fonts of a control are measured over and over: keep their metrics.
    struct Entry {
        Font font;
        QFontMetrics metrics;
    };
    mutable std::vector<Entry> cache_;
};

}  // namespace TabulonLib12
