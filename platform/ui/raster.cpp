// The rasteriser: paths to integer edges, sample rows to coverage spans, coverage to source-over
// blending. See raster.h for the coordinate, coverage and blending rules.
#include "platform/ui/raster.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace TabulonLib12 {

namespace {

constexpr int kSubsamples = 16;                          // sample rows and columns per pixel
constexpr int64_t kFixed = 256;                          // fixed-point units per device pixel
constexpr int64_t kSampleStep = kFixed / kSubsamples;    // 16 units between samples
constexpr int64_t kSampleOffset = kSampleStep / 2;       // a sample sits in the middle of its cell
constexpr double kLimit = 1.0e6;                         // device pixels either way
constexpr double kCurveTolerance = 1.0 / 512;            // largest gap between a curve and its chords

int Channel(uint32_t argb, int shift) { return static_cast<int>((argb >> shift) & 0xFF); }

int64_t CeilDiv(int64_t a, int64_t b) {  // b > 0
    return a >= 0 ? (a + b - 1) / b : -((-a) / b);
}

// A device coordinate in fixed point: clamped, NaN taken as 0.
int64_t ToFixed(double device) {
    if (!(device == device)) return 0;
    const double clamped = std::clamp(device, -kLimit, kLimit);
    return static_cast<int64_t>(std::llround(clamped * static_cast<double>(kFixed)));
}

// Chords for a full turn of a circle of `radius` so that no chord strays more than the tolerance.
int SegmentsForRadius(double radius) {
    if (!(radius > kCurveTolerance)) return 8;
    const double step = std::acos(1.0 - kCurveTolerance / radius);
    const double n = std::ceil(2.0 * std::numbers::pi / step);
    return static_cast<int>(std::clamp(n, 8.0, 1024.0));
}

bool Finite(const RectF& r) {
    return std::isfinite(r.x) && std::isfinite(r.y) && std::isfinite(r.width) && std::isfinite(r.height);
}

struct Edge {
    int64_t x0, y0, x1, y1;  // y0 < y1
    int winding;             // +1 downwards in the contour's order, -1 upwards
};

struct Crossing {
    int64_t sample;  // first sample column at or right of the crossing
    int winding;
};

}  // namespace

uint32_t SourceOver(uint32_t dst, uint32_t src) {
    const int sa = Channel(src, 24);
    if (sa == 0) return dst;
    if (sa == 255) return src;
    const int da = Channel(dst, 24);
    const int64_t total = static_cast<int64_t>(sa) * 255 + static_cast<int64_t>(da) * (255 - sa);  // in 255ths squared
    uint32_t out = static_cast<uint32_t>((total + 127) / 255) << 24;
    for (int shift : {16, 8, 0}) {
        const int64_t mixed = static_cast<int64_t>(Channel(src, shift)) * sa * 255 +
                              static_cast<int64_t>(Channel(dst, shift)) * da * (255 - sa);
        const int64_t c = (mixed + total / 2) / total;
        out |= static_cast<uint32_t>(std::min<int64_t>(c, 255)) << shift;
    }
    return out;
}

// --- Paint -------------------------------------------------------------------------------------

Paint Paint::Solid(uint32_t argb) {
    Paint p;
    p.solid_ = argb;
    return p;
}

Paint Paint::Linear(PointF from, PointF to, std::vector<ColourStop> stops) {
    Paint p;
    p.gradient_ = true;
    p.from_ = from;
    p.to_ = to;
    for (ColourStop& s : stops) s.at = std::isfinite(s.at) ? std::clamp(s.at, 0.0, 1.0) : 0.0;
    std::stable_sort(stops.begin(), stops.end(), [](const ColourStop& a, const ColourStop& b) { return a.at < b.at; });
    p.stops_ = std::move(stops);
    return p;
}

Paint Paint::Vertical(double top, double bottom, std::vector<ColourStop> stops) {
    return Linear({0, top}, {0, bottom}, std::move(stops));
}

Paint Paint::Horizontal(double left, double right, std::vector<ColourStop> stops) {
    return Linear({left, 0}, {right, 0}, std::move(stops));
}

uint32_t Paint::ColourAt(PointF p) const {
    if (!gradient_) return solid_;
    if (stops_.empty()) return 0;
    const double dx = to_.x - from_.x, dy = to_.y - from_.y;
    const double length2 = dx * dx + dy * dy;
    double t = 0;
    if (length2 > 0 && std::isfinite(length2)) t = ((p.x - from_.x) * dx + (p.y - from_.y) * dy) / length2;
    if (!std::isfinite(t)) t = 0;
    if (t <= stops_.front().at) return stops_.front().argb;
    if (t >= stops_.back().at) return stops_.back().argb;
    size_t i = 0;
    while (i + 1 < stops_.size() && !(t < stops_[i + 1].at)) ++i;
    const ColourStop& a = stops_[i];
    const ColourStop& b = stops_[i + 1];  // a.at <= t < b.at
    const double f = (t - a.at) / (b.at - a.at);
    const double aa = Channel(a.argb, 24) / 255.0, ba = Channel(b.argb, 24) / 255.0;
    const double alpha = aa + (ba - aa) * f;
    if (alpha <= 0) return 0;
    uint32_t out = static_cast<uint32_t>(std::clamp<long>(std::lround(alpha * 255.0), 0, 255)) << 24;
    for (int shift : {16, 8, 0}) {
        const double pa = Channel(a.argb, shift) * aa, pb = Channel(b.argb, shift) * ba;  // premultiplied
        const double c = (pa + (pb - pa) * f) / alpha;
        out |= static_cast<uint32_t>(std::clamp<long>(std::lround(c), 0, 255)) << shift;
    }
    return out;
}

// --- Path --------------------------------------------------------------------------------------

Path& Path::AddPolygon(std::span<const PointF> points) {
    if (points.size() >= 3) contours_.emplace_back(points.begin(), points.end());
    return *this;
}

Path& Path::AddRect(const RectF& r) {
    return AddPolygon({{r.x, r.y}, {r.Right(), r.y}, {r.Right(), r.Bottom()}, {r.x, r.Bottom()}});
}

Path& Path::AddRoundedRect(const RectF& r, double radius) {
    if (!Finite(r) || r.width <= 0 || r.height <= 0) return *this;
    const double rad = std::isfinite(radius) ? std::clamp(radius, 0.0, std::min(r.width, r.height) / 2) : 0.0;
    if (rad <= 0) return AddRect(r);
    const int quarter = std::max(2, SegmentsForRadius(rad) / 4);
    // Corner centres clockwise from the top left (y down), each arc a quarter turn.
    const PointF centres[4] = {{r.x + rad, r.y + rad},
                               {r.Right() - rad, r.y + rad},
                               {r.Right() - rad, r.Bottom() - rad},
                               {r.x + rad, r.Bottom() - rad}};
    std::vector<PointF> points;
    points.reserve(static_cast<size_t>(4 * (quarter + 1)));
    for (int corner = 0; corner < 4; ++corner) {
        const double start = std::numbers::pi * (1.0 + 0.5 * corner);  // 180, 270, 0, 90 degrees
        for (int i = 0; i <= quarter; ++i) {
            const double a = start + 0.5 * std::numbers::pi * i / quarter;
            points.push_back({centres[corner].x + rad * std::cos(a), centres[corner].y + rad * std::sin(a)});
        }
    }
    return AddPolygon(points);
}

Path& Path::AddEllipse(const RectF& r) {
    if (!Finite(r) || r.width <= 0 || r.height <= 0) return *this;
    const double rx = r.width / 2, ry = r.height / 2;
    const int n = SegmentsForRadius(std::max(rx, ry));
    std::vector<PointF> points;
    points.reserve(static_cast<size_t>(n));
    for (int i = 0; i < n; ++i) {
        const double a = 2.0 * std::numbers::pi * i / n;
        points.push_back({r.x + rx + rx * std::cos(a), r.y + ry + ry * std::sin(a)});
    }
    return AddPolygon(points);
}

Path& Path::AddStroke(std::span<const PointF> points, double width, Cap cap, bool closed) {
    if (points.empty() || !(width > 0) || !std::isfinite(width)) return *this;
    const double half = width / 2;
    auto dot = [&](PointF c) { AddEllipse({c.x - half, c.y - half, width, width}); };
    const size_t n = points.size();
    const size_t segments = closed && n > 2 ? n : n - 1;
    if (segments == 0) {
        if (cap == Cap::Round) dot(points[0]);
        else if (cap == Cap::Square) AddRect({points[0].x - half, points[0].y - half, width, width});
        return *this;
    }
    for (size_t i = 0; i < segments; ++i) {
        PointF a = points[i], b = points[(i + 1) % n];
        const double dx = b.x - a.x, dy = b.y - a.y;
        const double length = std::hypot(dx, dy);
        if (!(length > 0) || !std::isfinite(length)) continue;
        const double ux = dx / length, uy = dy / length;
        const bool first = !closed && i == 0, last = !closed && i + 1 == segments;
        if (cap == Cap::Square) {
            if (first) a = {a.x - ux * half, a.y - uy * half};
            if (last) b = {b.x + ux * half, b.y + uy * half};
        }
        const double nx = -uy * half, ny = ux * half;
        AddPolygon({{a.x + nx, a.y + ny}, {b.x + nx, b.y + ny}, {b.x - nx, b.y - ny}, {a.x - nx, a.y - ny}});
    }
    // Round joins at the inner points (all of them on a closed line), round caps at the ends.
    for (size_t i = 0; i < n; ++i) {
        const bool end = !closed && (i == 0 || i + 1 == n);
        if (!end || cap == Cap::Round) dot(points[i]);
    }
    return *this;
}

Path& Path::Add(const Path& other) {
    contours_.insert(contours_.end(), other.contours_.begin(), other.contours_.end());
    return *this;
}

// --- Canvas ------------------------------------------------------------------------------------

Canvas::Canvas(int width, int height, double scale)
    : image_(std::max(0, width), std::max(0, height)),
      scale_(std::isfinite(scale) && scale > 0 ? scale : 1.0),
      coverage_(static_cast<size_t>(std::max(0, width)), 0) {}

void Canvas::Fill(const Path& path, const Paint& paint) {
    const int width = image_.width, height = image_.height;
    if (width == 0 || height == 0) return;

    // Edges in fixed point, every contour turned to the same orientation so that the non-zero
    // rule gives the union of the contours.
    std::vector<Edge> edges;
    int64_t top = INT64_MAX, bottom = INT64_MIN;
    std::vector<std::pair<int64_t, int64_t>> fixed;
    for (const std::vector<PointF>& contour : path.Contours()) {
        fixed.clear();
        for (const PointF& p : contour) fixed.emplace_back(ToFixed(p.x * scale_), ToFixed(p.y * scale_));
        double area = 0;
        for (size_t i = 0; i < fixed.size(); ++i) {
            const auto& [x0, y0] = fixed[i];
            const auto& [x1, y1] = fixed[(i + 1) % fixed.size()];
            area += static_cast<double>(x0) * static_cast<double>(y1) - static_cast<double>(x1) * static_cast<double>(y0);
        }
        if (area == 0) continue;
        const int orientation = area > 0 ? 1 : -1;
        for (size_t i = 0; i < fixed.size(); ++i) {
            const auto& [x0, y0] = fixed[i];
            const auto& [x1, y1] = fixed[(i + 1) % fixed.size()];
            if (y0 == y1) continue;
            const int down = y1 > y0 ? 1 : -1;
            if (y0 < y1) edges.push_back({x0, y0, x1, y1, down * orientation});
            else edges.push_back({x1, y1, x0, y0, down * orientation});
            top = std::min(top, std::min(y0, y1));
            bottom = std::max(bottom, std::max(y0, y1));
        }
    }
    if (edges.empty()) return;

    const int firstRow = static_cast<int>(std::clamp<int64_t>(top / kFixed - 1, 0, height));
    const int endRow = static_cast<int>(std::clamp<int64_t>(bottom / kFixed + 1, 0, height));
    const int64_t sampleColumns = static_cast<int64_t>(width) * kSubsamples;
    std::vector<Crossing> crossings;
    for (int row = firstRow; row < endRow; ++row) {
        std::fill(coverage_.begin(), coverage_.end(), 0);
        int minPixel = width, maxPixel = -1;
        for (int sub = 0; sub < kSubsamples; ++sub) {
            const int64_t sy = static_cast<int64_t>(row) * kFixed + sub * kSampleStep + kSampleOffset;
            crossings.clear();
            for (const Edge& e : edges) {
                if (sy < e.y0 || sy >= e.y1) continue;
                // The first sample column j whose x (16 j + 8) is at or right of the crossing
                // x0 + (sy - y0) (x1 - x0) / (y1 - y0), in exact integer arithmetic.
                const int64_t d = e.y1 - e.y0;
                const int64_t n = (sy - e.y0) * (e.x1 - e.x0);
                crossings.push_back({CeilDiv(n + (e.x0 - kSampleOffset) * d, kSampleStep * d), e.winding});
            }
            std::sort(crossings.begin(), crossings.end(),
                      [](const Crossing& a, const Crossing& b) { return a.sample < b.sample; });
            int winding = 0;
            for (size_t i = 0; i + 1 < crossings.size(); ++i) {
                winding += crossings[i].winding;
                if (winding == 0) continue;
                const int64_t from = std::clamp<int64_t>(crossings[i].sample, 0, sampleColumns);
                const int64_t to = std::clamp<int64_t>(crossings[i + 1].sample, 0, sampleColumns);
                if (from >= to) continue;
                const int firstPixel = static_cast<int>(from / kSubsamples);
                const int lastPixel = static_cast<int>((to - 1) / kSubsamples);
                for (int px = firstPixel; px <= lastPixel; ++px) {
                    const int64_t a = std::max<int64_t>(from, static_cast<int64_t>(px) * kSubsamples);
                    const int64_t b = std::min<int64_t>(to, static_cast<int64_t>(px + 1) * kSubsamples);
                    coverage_[static_cast<size_t>(px)] += static_cast<int>(b - a);
                }
                minPixel = std::min(minPixel, firstPixel);
                maxPixel = std::max(maxPixel, lastPixel);
            }
        }
        for (int x = minPixel; x <= maxPixel; ++x) {
            const int covered = coverage_[static_cast<size_t>(x)];  // of 256
            if (covered == 0) continue;
            uint32_t colour = paint.ColourAt({(x + 0.5) / scale_, (row + 0.5) / scale_});
            const int alpha = (Channel(colour, 24) * covered + 128) >> 8;
            colour = (colour & 0x00FFFFFFu) | (static_cast<uint32_t>(alpha) << 24);
            uint32_t& pixel = image_.at(x, row);
            pixel = SourceOver(pixel, colour);
        }
    }
}

void Canvas::FillRect(const RectF& r, const Paint& paint) { Fill(Path().AddRect(r), paint); }

void Canvas::FillPolygon(std::span<const PointF> points, const Paint& paint) {
    Fill(Path().AddPolygon(points), paint);
}

void Canvas::FillRoundedRect(const RectF& r, double radius, const Paint& paint) {
    Fill(Path().AddRoundedRect(r, radius), paint);
}

void Canvas::FillEllipse(const RectF& r, const Paint& paint) { Fill(Path().AddEllipse(r), paint); }

void Canvas::StrokeLine(PointF a, PointF b, double width, const Paint& paint, Cap cap) {
    Fill(Path().AddStroke({a, b}, width, cap), paint);
}

void Canvas::StrokePolyline(std::span<const PointF> points, double width, const Paint& paint, Cap cap, bool closed) {
    Fill(Path().AddStroke(points, width, cap, closed), paint);
}

std::shared_ptr<Image> DrawPicture(int width, int height, const std::function<void(Canvas&)>& draw) {
    if (width < 1 || height < 1) return std::make_shared<Image>();
    Canvas plain(width, height, 1.0);
    Canvas fine(2 * width, 2 * height, 2.0);
    if (draw) {
        draw(plain);
        draw(fine);
    }
    auto picture = std::make_shared<Image>(plain.TakePixels());
    picture->doubleScale = std::make_shared<const Image>(fine.TakePixels());
    return picture;
}

}  // namespace TabulonLib12
