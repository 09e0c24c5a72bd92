#pragma once
// How wide and high a text is in a font, in twips. The Qt realisation measures real fonts; the
// headless one is a fixed rule so that tests can assert positions to the twip.
#include <cstdint>
#include <string_view>

#include "graphics.h"

namespace TabulonLib12 {

class TextMetrics {
public:
    virtual ~TextMetrics() = default;
    virtual int32_t TextWidth(const Font& font, std::string_view text) const = 0;  // twips
    virtual int32_t TextHeight(const Font& font) const = 0;                         // twips, one line
};

// The headless rule, in whole pixels of 15 twips:
//   line height = ceil(size * 4 / 3 * 1.15) pixels (Arial 8.25: 13 px, 195 twips);
//   a character's width = ceil(size * 4 / 3 * 0.55) pixels, bold adds one pixel
//   (Arial 8.25: 7 px, 105 twips), counted per UTF-8 character.
class HeadlessTextMetrics final : public TextMetrics {
public:
    int32_t TextWidth(const Font& font, std::string_view text) const override;
    int32_t TextHeight(const Font& font) const override;
};

}  // namespace TabulonLib12
