#include "platform/ui/graphics.h"

#include <array>

namespace TabulonLib12 {

namespace {

// The light desktop palette that system colours show as, by index.
constexpr std::array<Colour, 25> kSystemPalette = {
    Rgb(200, 200, 200),  // 0 scroll bar
    Rgb(0, 0, 0),        // 1 desktop
    Rgb(153, 180, 209),  // 2 active caption
    Rgb(191, 205, 219),  // 3 inactive caption
    Rgb(240, 240, 240),  // 4 menu bar
    Rgb(255, 255, 255),  // 5 window background
    Rgb(100, 100, 100),  // 6 window frame
    Rgb(0, 0, 0),        // 7 menu text
    Rgb(0, 0, 0),        // 8 window text
    Rgb(0, 0, 0),        // 9 caption text
    Rgb(180, 180, 180),  // 10 active border
    Rgb(244, 247, 252),  // 11 inactive border
    Rgb(171, 171, 171),  // 12 application workspace
    Rgb(0, 120, 215),    // 13 highlight
    Rgb(255, 255, 255),  // 14 highlight text
    Rgb(240, 240, 240),  // 15 button face
    Rgb(160, 160, 160),  // 16 button shadow
    Rgb(109, 109, 109),  // 17 grey text
    Rgb(0, 0, 0),        // 18 button text
    Rgb(0, 0, 0),        // 19 inactive caption text
    Rgb(255, 255, 255),  // 20 button highlight
    Rgb(105, 105, 105),  // 21 dark shadow
    Rgb(227, 227, 227),  // 22 light
    Rgb(0, 0, 0),        // 23 info text
    Rgb(255, 255, 225),  // 24 info background
};

}  // namespace

Colour ResolveColour(Colour c) {
    if (!IsSystemColour(c)) return c & 0x00FFFFFFu;
    const uint32_t index = c & 0xFFu;
    // An index outside the palette has no colour of its own: it shows as the window text.
    if (index >= kSystemPalette.size()) return kSystemPalette[8];
    return kSystemPalette[index];
}

}  // namespace TabulonLib12
