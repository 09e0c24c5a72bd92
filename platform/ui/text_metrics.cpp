#include "platform/ui/text_metrics.h"

#include <cmath>
#include <limits>

namespace TabulonLib12 {

namespace {

// ceil(size * 4 / 3 * factor) pixels, where factor = numerator / 20, computed as one division
// so that sizes that give a whole number of pixels are not pushed up by rounding noise.
// Sizes that are not positive (or not numbers) measure 0; huge ones stop at a bound.
int64_t PixelsOf(float size, int numerator) {
    if (!(size > 0.0f)) return 0;
    const double pixels = std::ceil(static_cast<double>(size) * 4.0 * numerator / 60.0);
    constexpr double kMaxPixels = 1.0e7;
    return pixels > kMaxPixels ? static_cast<int64_t>(kMaxPixels) : static_cast<int64_t>(pixels);
}

int64_t Utf8Characters(std::string_view text) {
    int64_t count = 0;
    for (unsigned char ch : text)
        if ((ch & 0xC0) != 0x80) ++count;  // every byte but a continuation byte starts a character
    return count;
}

int32_t ClampTwips(int64_t twips) {
    constexpr int64_t kMax = std::numeric_limits<int32_t>::max();
    return static_cast<int32_t>(twips > kMax ? kMax : twips);
}

}  // namespace

int32_t HeadlessTextMetrics::TextWidth(const Font& font, std::string_view text) const {
    int64_t perChar = PixelsOf(font.size, 11);  // 0.55 = 11 / 20
    if (font.bold) ++perChar;
    const int64_t characters = Utf8Characters(text);
    // Both factors are bounded (1e7 pixels, string length), so the product fits in 64 bits.
    return ClampTwips(characters * perChar * TwipsPerPixel);
}

int32_t HeadlessTextMetrics::TextHeight(const Font& font) const {
    return ClampTwips(PixelsOf(font.size, 23) * TwipsPerPixel);  // 1.15 = 23 / 20
}

}  // namespace TabulonLib12
