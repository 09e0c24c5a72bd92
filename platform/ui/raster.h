#pragma once
// A small rasteriser over Image, without any toolkit, for the pictures the control draws itself
// (band textures, sort arrows, the chooser button, the hand pointer), so that a headless test
// sees exactly the pixels that the Qt painter shows.
//
// Coordinates. A canvas of W by H pixels spans [0, W) x [0, H) in floating-point pixel units:
// pixel (x, y) is the unit square [x, x+1) x [y, y+1), its centre at (x + 0.5, y + 0.5). So a
// rectangle from 2 to 5 covers pixels 2, 3 and 4 fully, and a one-pixel line along y = 0.5 fills
// row 0 exactly. A canvas made with a scale s multiplies every coordinate, radius and width that
// it is given by s before it draws: a drawing routine written for a 13 by 21 picture draws the
// same picture on a 26 by 42 canvas of scale 2, with its detail at the finer pixel size.
//
// Coverage. A shape covers a pixel by the share of a 16 by 16 grid of sample points inside the
// pixel that lie inside the shape; that share (0 to 256 of 256) scales the paint's alpha, which
// gives anti-aliased edges. Geometry is snapped to 1/256 of a device pixel and every inside test
// is done in integers, so the same calls give the same pixels on every run.
//
// A path is the union of its contours: each contour is a closed polygon, and a sample is inside
// the path when it is inside any of them (contours are brought to one orientation and filled by
// the non-zero rule). Paths have no holes; a ring is a stroke.
//
// Blending. Pixels are 0xAARRGGBB, not premultiplied, as Image keeps them. Painting is
// source-over: the paint's colour, its alpha scaled by the coverage, is laid over what the pixel
// holds, with 8-bit rounding. On a transparent pixel a paint of full coverage leaves its own
// colour exactly.
#include <cstdint>
#include <functional>
#include <span>
#include <vector>

#include "platform/ui/graphics.h"

namespace TabulonLib12 {

struct PointF {
    double x = 0;
    double y = 0;
};

struct RectF {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;
    double Right() const { return x + width; }
    double Bottom() const { return y + height; }
};

// 0xAARRGGBB from its parts.
inline constexpr uint32_t Argb(int a, int r, int g, int b) {
    return (static_cast<uint32_t>(a & 0xFF) << 24) | (static_cast<uint32_t>(r & 0xFF) << 16) |
           (static_cast<uint32_t>(g & 0xFF) << 8) | static_cast<uint32_t>(b & 0xFF);
}
inline constexpr uint32_t OpaqueRgb(int r, int g, int b) { return Argb(255, r, g, b); }

// `src` laid over `dst` (source-over, non-premultiplied 0xAARRGGBB, rounded to 8 bits).
uint32_t SourceOver(uint32_t dst, uint32_t src);

// A colour at a position along a gradient, 0 at its start and 1 at its end.
struct ColourStop {
    double at = 0;
    uint32_t argb = 0;
};

// What a shape is filled with: one colour, or a linear gradient whose colour changes along the
// line from `from` to `to` (canvas coordinates before scaling) and is constant across it. Stops
// are taken in the order of `at` (clamped to [0, 1]); before the first and after the last the
// end colours hold. Between two stops the colour is interpolated in premultiplied form, so a
// transparent stop fades the colour out rather than towards black. A gradient without stops
// paints nothing.
class Paint {
public:
    static Paint Solid(uint32_t argb);
    static Paint Linear(PointF from, PointF to, std::vector<ColourStop> stops);
    // From `top` (position 0) down to `bottom` (position 1).
    static Paint Vertical(double top, double bottom, std::vector<ColourStop> stops);
    // From `left` (position 0) across to `right` (position 1).
    static Paint Horizontal(double left, double right, std::vector<ColourStop> stops);

    // The colour at a point (canvas coordinates before scaling).
    uint32_t ColourAt(PointF p) const;

private:
    uint32_t solid_ = 0;
    bool gradient_ = false;
    PointF from_, to_;
    std::vector<ColourStop> stops_;
};

// Line ends of a stroke. Joins between the segments of a polyline are always round.
enum class Cap { Butt, Round, Square };

class Path {
public:
    // A closed polygon through the points (fewer than three points add nothing).
    Path& AddPolygon(std::span<const PointF> points);
    Path& AddPolygon(std::initializer_list<PointF> points) {
        return AddPolygon(std::span<const PointF>(points.begin(), points.size()));
    }
    Path& AddRect(const RectF& r);
    // A rectangle with corners rounded by `radius` (clamped to half the shorter side).
    Path& AddRoundedRect(const RectF& r, double radius);
    // The ellipse inscribed in the rectangle.
    Path& AddEllipse(const RectF& r);
    // The area that a pen of `width` covers along the polyline: a band of that width centred on
    // each segment, round joins, the given caps (a closed polyline has no ends).
    Path& AddStroke(std::span<const PointF> points, double width, Cap cap = Cap::Round, bool closed = false);
    Path& AddStroke(std::initializer_list<PointF> points, double width, Cap cap = Cap::Round, bool closed = false) {
        return AddStroke(std::span<const PointF>(points.begin(), points.size()), width, cap, closed);
    }
    Path& Add(const Path& other);

    const std::vector<std::vector<PointF>>& Contours() const { return contours_; }

private:
    std::vector<std::vector<PointF>> contours_;
};

class Canvas {
public:
    // A canvas of width x height device pixels (a negative size is taken as 0), all transparent
    // (0x00000000), drawing with coordinates multiplied by `scale` (a positive finite number;
    // anything else is taken as 1). Device coordinates beyond a million pixels either way are
    // clamped there, so absurd geometry draws nothing odd and never overflows.
    Canvas(int width, int height, double scale = 1.0);

    int Width() const { return image_.width; }
    int Height() const { return image_.height; }
    double Scale() const { return scale_; }

    void Fill(const Path& path, const Paint& paint);
    void FillRect(const RectF& r, const Paint& paint);
    void FillPolygon(std::span<const PointF> points, const Paint& paint);
    void FillPolygon(std::initializer_list<PointF> points, const Paint& paint) {
        FillPolygon(std::span<const PointF>(points.begin(), points.size()), paint);
    }
    void FillRoundedRect(const RectF& r, double radius, const Paint& paint);
    void FillEllipse(const RectF& r, const Paint& paint);
    void StrokeLine(PointF a, PointF b, double width, const Paint& paint, Cap cap = Cap::Butt);
    void StrokePolyline(std::span<const PointF> points, double width, const Paint& paint, Cap cap = Cap::Round,
                        bool closed = false);
    void StrokePolyline(std::initializer_list<PointF> points, double width, const Paint& paint,
                        Cap cap = Cap::Round, bool closed = false) {
        StrokePolyline(std::span<const PointF>(points.begin(), points.size()), width, paint, cap, closed);
    }

    const Image& Pixels() const { return image_; }
    Image TakePixels() { return std::move(image_); }

private:
    Image image_;
    double scale_ = 1.0;
    std::vector<int> coverage_;  // one row of sample counts, reused
};

// A picture of width x height pixels drawn by `draw`, with its finer rendering: `draw` runs once
// on a canvas of that size at scale 1, and once on a canvas of twice the size at scale 2, which
// becomes the picture's doubleScale. Sizes below 1 give an empty picture. The picture comes back
// still writable, so that the caller can set its hot spot before sharing it.
std::shared_ptr<Image> DrawPicture(int width, int height, const std::function<void(Canvas&)>& draw);

}  // namespace TabulonLib12
