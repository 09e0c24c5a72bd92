#pragma once
// Toolkit-free graphic values: fonts, pictures, pointer codes, and the colours of
// platform/runtime/colour.h as they show.
#include <cstdint>
#include <memory>
#include <optional>
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

// Where a pointer picture points: the pixel of the picture, counted from its top-left corner,
// that lies under the mouse position.
struct HotSpot {
    int x = 0;
    int y = 0;
    bool operator==(const HotSpot&) const = default;
};

// A picture: pixels in 0xAARRGGBB (not premultiplied), row by row. Elements share pictures;
// nobody changes one after it is made.
//
// `doubleScale` is an optional finer rendering of the same picture at exactly twice the width
// and height. It never changes the picture's size as the elements see it (an image sizes itself
// to `width` by `height`); a painter on a device with 1.5 or more device pixels per logical
// pixel shows the finer rendering in the picture's place, stretched to the same logical size,
// and the plain pixels otherwise. A finer rendering whose size is not twice the plain one is
// ignored. Null: the plain pixels everywhere.
//
// `hotSpot` is for a picture used as a pointer (an element's MouseIcon): the point of the
// pointer, in the plain picture's pixels. Without one the pointer points at the centre.
struct Image {
    int width = 0;   // pixels
    int height = 0;  // pixels
    std::vector<uint32_t> argb;
    std::shared_ptr<const Image> doubleScale;
    std::optional<HotSpot> hotSpot;

    Image() = default;
    Image(int w, int h, uint32_t fill = 0) : width(w), height(h), argb(static_cast<size_t>(w) * h, fill) {}
    uint32_t& at(int x, int y) { return argb[static_cast<size_t>(y) * width + x]; }
    uint32_t at(int x, int y) const { return argb[static_cast<size_t>(y) * width + x]; }
    // Whether `doubleScale` is set and is twice this picture's size with a matching pixel buffer.
    bool HasDoubleScale() const {
        return doubleScale && width > 0 && height > 0 && doubleScale->width == 2 * width &&
               doubleScale->height == 2 * height &&
               doubleScale->argb.size() == static_cast<size_t>(doubleScale->width) * doubleScale->height;
    }
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
