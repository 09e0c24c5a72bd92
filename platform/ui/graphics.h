#pragma once
// Toolkit-free graphic values: colours, fonts, pictures, pointer codes.
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace TabulonLib12 {

// Colours are 0x00BBGGRR; a value with the high bit set names a system colour by its index in
// the low byte (0x8000000F the button face, 0x80000005 the window background, ...).
using Colour = uint32_t;

inline constexpr Colour Rgb(int r, int g, int b) {
    return static_cast<Colour>((r & 0xFF) | ((g & 0xFF) << 8) | ((b & 0xFF) << 16));
}
inline constexpr bool IsSystemColour(Colour c) { return (c & 0x80000000u) != 0; }

namespace SystemColour {
inline constexpr Colour ScrollBar = 0x80000000u;
inline constexpr Colour Desktop = 0x80000001u;
inline constexpr Colour WindowBackground = 0x80000005u;
inline constexpr Colour WindowFrame = 0x80000006u;
inline constexpr Colour MenuText = 0x80000007u;
inline constexpr Colour WindowText = 0x80000008u;
inline constexpr Colour Highlight = 0x8000000Du;
inline constexpr Colour HighlightText = 0x8000000Eu;
inline constexpr Colour ButtonFace = 0x8000000Fu;
inline constexpr Colour ButtonShadow = 0x80000010u;
inline constexpr Colour GrayText = 0x80000011u;
inline constexpr Colour ButtonText = 0x80000012u;
inline constexpr Colour InfoText = 0x80000017u;
inline constexpr Colour InfoBackground = 0x80000018u;
}  // namespace SystemColour

// The plain 0x00BBGGRR colour that a system colour shows as (a fixed light desktop palette);
// a plain colour is returned as it is, without its unused high byte.
Colour ResolveColour(Colour c);

struct Font {
    std::string name = "Arial";
    float size = 8.25f;  // points
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool operator==(const Font&) const = default;
};

// A picture: pixels in 0xAARRGGBB, row by row. Elements share pictures; nobody changes one
// after it is made.
struct Image {
    int width = 0;   // pixels
    int height = 0;  // pixels
    std::vector<uint32_t> argb;

    Image() = default;
    Image(int w, int h, uint32_t fill = 0) : width(w), height(h), argb(static_cast<size_t>(w) * h, fill) {}
    uint32_t& at(int x, int y) { return argb[static_cast<size_t>(y) * width + x]; }
    uint32_t at(int x, int y) const { return argb[static_cast<size_t>(y) * width + x]; }
};
using Picture = std::shared_ptr<const Image>;

// Pointer codes of MousePointer.
namespace Pointer {
inline constexpr int16_t Default = 0;
inline constexpr int16_t Arrow = 1;
inline constexpr int16_t Cross = 2;
inline constexpr int16_t IBeam = 3;
inline constexpr int16_t Hourglass = 11;
inline constexpr int16_t Custom = 99;  // the element's MouseIcon; the hand of a hyperlink
}  // namespace Pointer

// Twips per pixel at the reference resolution.
inline constexpr int TwipsPerPixel = 15;

}  // namespace TabulonLib12
