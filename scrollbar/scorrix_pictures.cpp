#include "scrollbar/scorrix_pictures.h"

#include <cmath>
#include <cstdlib>
#include <memory>

namespace TabulonLib12 {

namespace {

constexpr uint32_t Argb(int r, int g, int b) {
    return 0xFF000000u | (static_cast<uint32_t>(r) << 16) | (static_cast<uint32_t>(g) << 8) | static_cast<uint32_t>(b);
}

// The colour a fraction `t` (0 to 1) of the way from `a` to `b`, opaque.
uint32_t Mix(uint32_t a, uint32_t b, double t) {
    auto channel = [&](int shift) {
        const double ca = (a >> shift) & 0xFF, cb = (b >> shift) & 0xFF;
        return static_cast<uint32_t>(std::lround(ca + (cb - ca) * t)) << shift;
    };
    return 0xFF000000u | channel(16) | channel(8) | channel(0);
}

constexpr uint32_t kButtonTop = Argb(246, 249, 253);
constexpr uint32_t kButtonBottom = Argb(200, 216, 236);
constexpr uint32_t kButtonEdge = Argb(127, 153, 187);
constexpr uint32_t kButtonLight = Argb(255, 255, 255);
constexpr uint32_t kArrow = Argb(43, 74, 115);
constexpr uint32_t kThumbEdge = Argb(104, 135, 176);
constexpr uint32_t kThumbSide = Argb(140, 170, 214);
constexpr uint32_t kThumbMiddle = Argb(206, 222, 244);
constexpr uint32_t kGrip = Argb(82, 110, 152);

// A button with the arrow pointing up (`up`) or down.
Image DrawButton(bool up) {
    const int n = kLatoFreccia;
    Image img(n, n);
    for (int y = 0; y < n; ++y) {
        const uint32_t row = Mix(kButtonTop, kButtonBottom, static_cast<double>(y) / (n - 1));
        for (int x = 0; x < n; ++x) img.at(x, y) = row;
    }
    // Bevel: a light line inside the top and left edges, then the outline.
    for (int i = 1; i < n - 1; ++i) {
        img.at(i, 1) = kButtonLight;
        img.at(1, i) = kButtonLight;
    }
    for (int i = 0; i < n; ++i) {
        img.at(i, 0) = img.at(i, n - 1) = kButtonEdge;
        img.at(0, i) = img.at(n - 1, i) = kButtonEdge;
    }
    // A triangle five rows high, its base nine pixels wide, centred.
    const int centre = n / 2, rows = 5, first = (n - rows) / 2;
    for (int r = 0; r < rows; ++r) {
        const int y = up ? first + r : first + rows - 1 - r;
        for (int x = centre - r; x <= centre + r; ++x) img.at(x, y) = kArrow;
    }
    return img;
}

Image DrawThumb() {
    const int w = kLarghezzaCursore, h = kAltezzaCursore;
    Image img(w, h);
    // Across: dark at the sides, light in the middle, as a rounded bar lit from the front.
    for (int x = 0; x < w; ++x) {
        const double fromMiddle = std::abs(x - (w - 1) / 2.0) / ((w - 1) / 2.0);
        const uint32_t c = Mix(kThumbMiddle, kThumbSide, fromMiddle * fromMiddle);
        for (int y = 0; y < h; ++y) img.at(x, y) = c;
    }
    for (int x = 0; x < w; ++x) img.at(x, 0) = img.at(x, h - 1) = kThumbEdge;
    for (int y = 0; y < h; ++y) img.at(0, y) = img.at(w - 1, y) = kThumbEdge;
    // Grip: three short lines across the middle.
    for (int k = -1; k <= 1; ++k)
        for (int x = 4; x < w - 4; ++x) img.at(x, h / 2 + 2 * k) = kGrip;
    return img;
}

}  // namespace

Picture FrecciaSu() {
    static const Picture picture = std::make_shared<const Image>(DrawButton(true));
    return picture;
}

Picture FrecciaGiu() {
    static const Picture picture = std::make_shared<const Image>(DrawButton(false));
    return picture;
}

Picture Cursore() {
    static const Picture picture = std::make_shared<const Image>(DrawThumb());
    return picture;
}

}  // namespace TabulonLib12
