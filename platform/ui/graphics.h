#pragma once
// Toolkit-free graphic values: fonts, pictures, pointer codes, and the colours of
// platform/runtime/colour.h as they show.
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/runtime/colour.h"

namespace TabulonLib12 {

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
