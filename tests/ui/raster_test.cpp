// The toolkit-free rasteriser: pixel convention, coverage, gradients, blending, strokes, scale.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "platform/ui/raster.h"

namespace TabulonLib12 {
namespace {

constexpr uint32_t kRed = OpaqueRgb(255, 0, 0);
constexpr uint32_t kBlue = OpaqueRgb(0, 0, 255);
constexpr uint32_t kWhite = OpaqueRgb(255, 255, 255);

int Alpha(uint32_t argb) { return static_cast<int>(argb >> 24); }
int Red(uint32_t argb) { return static_cast<int>((argb >> 16) & 0xFF); }
int Green(uint32_t argb) { return static_cast<int>((argb >> 8) & 0xFF); }
int Blue(uint32_t argb) { return static_cast<int>(argb & 0xFF); }

// Sum of the alpha of all pixels in 255ths: the painted area in pixels.
double PaintedArea(const Image& image) {
    double sum = 0;
    for (uint32_t p : image.argb) sum += Alpha(p);
    return sum / 255.0;
}

int CountPartial(const Image& image) {
    int n = 0;
    for (uint32_t p : image.argb) n += Alpha(p) > 0 && Alpha(p) < 255;
    return n;
}

TEST(Raster, NewCanvasIsTransparent) {
    Canvas c(7, 5);
    EXPECT_EQ(c.Width(), 7);
    EXPECT_EQ(c.Height(), 5);
    ASSERT_EQ(c.Pixels().argb.size(), 35u);
    for (uint32_t p : c.Pixels().argb) EXPECT_EQ(p, 0u);
}

TEST(Raster, RectangleOnWholePixelsFillsExactlyThosePixels) {
    Canvas c(10, 10);
    c.FillRect({2, 3, 4, 5}, Paint::Solid(kRed));
    for (int y = 0; y < 10; ++y)
        for (int x = 0; x < 10; ++x) {
            const bool inside = x >= 2 && x < 6 && y >= 3 && y < 8;
            EXPECT_EQ(c.Pixels().at(x, y), inside ? kRed : 0u) << x << "," << y;
        }
}

TEST(Raster, RectangleEdgeThroughAPixelCentreCoversHalfOfIt) {
    Canvas c(4, 1);
    c.FillRect({0, 0, 1.5, 1}, Paint::Solid(kRed));
    EXPECT_EQ(c.Pixels().at(0, 0), kRed);
    EXPECT_EQ(Alpha(c.Pixels().at(1, 0)), 128);
    EXPECT_EQ(Red(c.Pixels().at(1, 0)), 255);  // not premultiplied: the colour stays red
    EXPECT_EQ(c.Pixels().at(2, 0), 0u);
}

TEST(Raster, OnePixelLineAlongAPixelRowsMiddleFillsThatRowExactly) {
    Canvas c(8, 3);
    c.StrokeLine({0, 1.5}, {8, 1.5}, 1.0, Paint::Solid(kBlue));
    for (int x = 0; x < 8; ++x) {
        EXPECT_EQ(c.Pixels().at(x, 0), 0u);
        EXPECT_EQ(c.Pixels().at(x, 1), kBlue);
        EXPECT_EQ(c.Pixels().at(x, 2), 0u);
    }
}

TEST(Raster, SourceOverOfOpaqueOrTransparentSource) {
    EXPECT_EQ(SourceOver(kBlue, kRed), kRed);
    EXPECT_EQ(SourceOver(kBlue, 0x00FF0000u), kBlue);
    EXPECT_EQ(SourceOver(0, 0x80FF0000u), 0x80FF0000u);  // over nothing the colour is kept exactly
}

TEST(Raster, SourceOverMixesByAlpha) {
    // Half-opaque red over opaque blue: opaque, half red, half blue.
    EXPECT_EQ(SourceOver(kBlue, Argb(128, 255, 0, 0)), Argb(255, 128, 0, 127));
    // Half over half: alpha 1 - (1 - a)(1 - a), the source's colour weighs more.
    const uint32_t mixed = SourceOver(Argb(128, 0, 0, 255), Argb(128, 255, 0, 0));
    EXPECT_EQ(Alpha(mixed), 192);
    EXPECT_GT(Red(mixed), Blue(mixed));
}

TEST(Raster, VerticalGradientRunsFromTopColourToBottomColour) {
    Canvas c(3, 11);
    c.FillRect({0, 0, 3, 11}, Paint::Vertical(0, 11, {{0, OpaqueRgb(0, 0, 0)}, {1, OpaqueRgb(220, 220, 220)}}));
    int previous = -1;
    for (int y = 0; y < 11; ++y) {
        const uint32_t p = c.Pixels().at(1, y);
        EXPECT_EQ(Alpha(p), 255);
        EXPECT_GT(Red(p), previous);
        previous = Red(p);
        EXPECT_EQ(c.Pixels().at(0, y), p);  // constant across
        EXPECT_EQ(c.Pixels().at(2, y), p);
    }
    EXPECT_EQ(Red(c.Pixels().at(1, 5)), 110);  // the middle row's centre sits half way
    EXPECT_LT(Red(c.Pixels().at(1, 0)), 15);
    EXPECT_GT(Red(c.Pixels().at(1, 10)), 205);
}

TEST(Raster, HorizontalGradientWithThreeStops) {
    Canvas c(21, 1);
    c.FillRect({0, 0, 21, 1}, Paint::Horizontal(0.5, 20.5, {{0, kRed}, {0.5, OpaqueRgb(0, 255, 0)}, {1, kBlue}}));
    EXPECT_EQ(c.Pixels().at(0, 0), kRed);
    EXPECT_EQ(c.Pixels().at(10, 0), OpaqueRgb(0, 255, 0));
    EXPECT_EQ(c.Pixels().at(20, 0), kBlue);
    const uint32_t quarter = c.Pixels().at(5, 0);
    EXPECT_EQ(Red(quarter), 128);
    EXPECT_EQ(Green(quarter), 128);
    EXPECT_EQ(Blue(quarter), 0);
}

TEST(Raster, GradientStopsAreTakenInOrderOfPosition) {
    const Paint shuffled = Paint::Vertical(0, 10, {{1, kBlue}, {0, kRed}});
    EXPECT_EQ(shuffled.ColourAt({0, -5}), kRed);
    EXPECT_EQ(shuffled.ColourAt({0, 50}), kBlue);
    EXPECT_EQ(Paint::Vertical(0, 10, {}).ColourAt({0, 5}), 0u);
}

TEST(Raster, TransparentStopFadesTheColourOutRatherThanDarkeningIt) {
    const Paint fade = Paint::Horizontal(0, 10, {{0, kRed}, {1, 0x000000FFu}});
    const uint32_t middle = fade.ColourAt({5, 0});
    EXPECT_EQ(Alpha(middle), 128);
    EXPECT_EQ(Red(middle), 255);
    EXPECT_EQ(Blue(middle), 0);
}

TEST(Raster, TriangleIsAntiAliasedOpaqueInsideAndClearOutside) {
    Canvas c(20, 20);
    c.FillPolygon({{2, 2}, {18, 4}, {6, 17}}, Paint::Solid(kWhite));
    EXPECT_EQ(c.Pixels().at(8, 7), kWhite);
    EXPECT_EQ(c.Pixels().at(0, 0), 0u);
    EXPECT_EQ(c.Pixels().at(18, 18), 0u);
    EXPECT_GT(CountPartial(c.Pixels()), 20);
    // Area by the shoelace formula: |(16)(15) - (4)(2)| / 2 = 116.
    EXPECT_NEAR(PaintedArea(c.Pixels()), 116.0, 0.6);
}

TEST(Raster, EllipseCoversItsArea) {
    Canvas c(30, 30);
    c.FillEllipse({5, 5, 20, 20}, Paint::Solid(kRed));
    EXPECT_NEAR(PaintedArea(c.Pixels()), 3.14159265 * 100, 1.0);
    EXPECT_EQ(c.Pixels().at(15, 15), kRed);
    EXPECT_EQ(c.Pixels().at(5, 5), 0u);  // outside the circle, inside its box
    EXPECT_GT(CountPartial(c.Pixels()), 40);
}

TEST(Raster, RoundedRectangleRoundsOnlyItsCorners) {
    Canvas c(20, 12);
    c.FillRoundedRect({0, 0, 20, 12}, 4, Paint::Solid(kBlue));
    EXPECT_EQ(c.Pixels().at(0, 0), 0u);
    EXPECT_EQ(c.Pixels().at(19, 11), 0u);
    EXPECT_EQ(c.Pixels().at(10, 0), kBlue);  // straight top edge
    EXPECT_EQ(c.Pixels().at(0, 6), kBlue);   // straight left edge
    EXPECT_NEAR(PaintedArea(c.Pixels()), 240 - 4 * (16 - 3.14159265 * 4), 0.5);
}

TEST(Raster, ContoursOfEitherOrientationUnite) {
    Path path;
    path.AddPolygon({{0, 0}, {6, 0}, {6, 6}, {0, 6}});    // clockwise on screen
    path.AddPolygon({{3, 3}, {3, 9}, {9, 9}, {9, 3}});    // the other way round
    Canvas c(10, 10);
    c.Fill(path, Paint::Solid(kRed));
    EXPECT_EQ(c.Pixels().at(4, 4), kRed);  // the overlap is filled, not cancelled
    EXPECT_NEAR(PaintedArea(c.Pixels()), 36 + 36 - 9, 0.01);
}

TEST(Raster, PolylineStrokeHasRoundJoinsAndChosenCaps) {
    Canvas butt(20, 20), round(20, 20), square(20, 20);
    const PointF corner[] = {{4, 4}, {16, 4}, {16, 16}};
    butt.StrokePolyline(corner, 2, Paint::Solid(kRed), Cap::Butt);
    round.StrokePolyline(corner, 2, Paint::Solid(kRed), Cap::Round);
    square.StrokePolyline(corner, 2, Paint::Solid(kRed), Cap::Square);
    EXPECT_EQ(butt.Pixels().at(10, 3), kRed);
    EXPECT_EQ(butt.Pixels().at(10, 4), kRed);
    EXPECT_EQ(butt.Pixels().at(10, 5), 0u);
    EXPECT_EQ(butt.Pixels().at(3, 4), 0u);    // butt: nothing beyond the end
    EXPECT_EQ(square.Pixels().at(3, 4), kRed);  // square: half the width beyond it
    EXPECT_GT(Alpha(round.Pixels().at(3, 4)), 0);
    EXPECT_LT(Alpha(round.Pixels().at(3, 4)), 255);  // round: a half disc beyond it
    EXPECT_EQ(Alpha(butt.Pixels().at(16, 4)), 255);  // the join is filled
    // Butt: two 12 x 2 bands plus the round join's quarter beyond them.
    EXPECT_NEAR(PaintedArea(butt.Pixels()), 24 + 24 - 1 + 3.14159265 / 4, 0.3);
}

TEST(Raster, ScaleMultipliesCoordinatesAndWidths) {
    Canvas c(20, 20, 2.0);
    EXPECT_EQ(c.Scale(), 2.0);
    c.FillRect({1, 2, 3, 4}, Paint::Solid(kRed));
    c.StrokeLine({0, 9.5}, {10, 9.5}, 1, Paint::Solid(kBlue));
    EXPECT_NEAR(PaintedArea(c.Pixels()), 4 * 3 * 4 + 2 * 20, 0.01);
    EXPECT_EQ(c.Pixels().at(2, 4), kRed);
    EXPECT_EQ(c.Pixels().at(7, 11), kRed);
    EXPECT_EQ(c.Pixels().at(8, 11), 0u);
    EXPECT_EQ(c.Pixels().at(0, 18), kBlue);
    EXPECT_EQ(c.Pixels().at(0, 19), kBlue);
    // A gradient is laid out in the same coordinates as the shapes.
    Canvas g(2, 20, 2.0);
    g.FillRect({0, 0, 1, 10}, Paint::Vertical(0, 10, {{0, kRed}, {1, kBlue}}));
    EXPECT_EQ(Red(g.Pixels().at(0, 10)), 121);  // centre of row 10 is 5.25 of 10 down
}

TEST(Raster, ShapesOutsideTheCanvasAreClippedAndAbsurdGeometryIsHarmless) {
    Canvas c(10, 10);
    c.FillRect({-5, -5, 8, 8}, Paint::Solid(kRed));
    EXPECT_NEAR(PaintedArea(c.Pixels()), 9, 0.01);
    const double huge = 1e300, nan = std::numeric_limits<double>::quiet_NaN();
    c.FillPolygon({{-huge, -huge}, {huge, -huge}, {huge, huge}}, Paint::Solid(kBlue));
    c.FillPolygon({{nan, 0}, {5, nan}, {nan, nan}}, Paint::Solid(kBlue));
    c.FillEllipse({nan, 0, 5, 5}, Paint::Solid(kBlue));
    c.StrokeLine({0, 0}, {huge, nan}, nan, Paint::Solid(kBlue));
    EXPECT_EQ(c.Pixels().at(9, 0), kBlue);  // the huge triangle covers the upper right half
    EXPECT_EQ(c.Pixels().at(0, 9), 0u);
    Canvas empty(-3, 4);
    empty.FillRect({0, 0, 1, 1}, Paint::Solid(kRed));
    EXPECT_EQ(empty.Width(), 0);
    EXPECT_TRUE(empty.Pixels().argb.empty());
}

// A busy drawing with every kind of shape, to compare runs.
void Busy(Canvas& c) {
    c.FillRect({2.5, 1.25, 35, 27}, Paint::Vertical(0, 30, {{0, kWhite}, {0.4, OpaqueRgb(90, 140, 200)}, {1, kBlue}}));
    c.FillEllipse({3.3, 4.1, 17.7, 11.2}, Paint::Solid(Argb(170, 255, 200, 0)));
    c.FillRoundedRect({12.25, 9.8, 20.1, 13.3}, 3.7, Paint::Horizontal(12, 32, {{0, kRed}, {1, 0x4000FF00u}}));
    c.StrokePolyline({{1.2, 28.7}, {9.9, 15.3}, {22.1, 26.6}, {38.4, 2.2}}, 1.35, Paint::Solid(Argb(200, 0, 0, 0)));
    c.FillPolygon({{30, 5}, {39, 28}, {21, 28}}, Paint::Solid(Argb(90, 255, 255, 255)));
}

TEST(Raster, SameCallsGiveTheSamePixelsEveryTime) {
    Canvas a(40, 30), b(40, 30);
    Busy(a);
    Busy(b);
    EXPECT_EQ(a.Pixels().argb, b.Pixels().argb);
    EXPECT_GT(CountPartial(a.Pixels()), 0);
}

TEST(Raster, DrawPictureMakesThePlainAndTheDoubleScaleRendering) {
    const auto picture = DrawPicture(40, 30, Busy);
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->width, 40);
    EXPECT_EQ(picture->height, 30);
    ASSERT_TRUE(picture->HasDoubleScale());
    EXPECT_EQ(picture->doubleScale->width, 80);
    EXPECT_EQ(picture->doubleScale->height, 60);
    // The finer rendering is the same drawing: each plain pixel is close to the mean of its four.
    // Compared in premultiplied form, as the eye sees them over black.
    const Image& fine = *picture->doubleScale;
    double worst = 0, total = 0;
    for (int y = 0; y < 30; ++y)
        for (int x = 0; x < 40; ++x) {
            const uint32_t p = picture->at(x, y);
            for (int channel : {0, 1, 2, 3}) {
                auto value = [&](uint32_t q) {
                    const int v[] = {Alpha(q), Red(q), Green(q), Blue(q)};
                    return channel == 0 ? v[0] : v[channel] * v[0] / 255.0;
                };
                double mean = 0;
                for (int k = 0; k < 4; ++k) mean += value(fine.at(2 * x + k % 2, 2 * y + k / 2));
                const double difference = std::abs(mean / 4 - value(p));
                worst = std::max(worst, difference);
                total += difference;
            }
        }
    // Edges where shapes overlap blend a little differently at the two sizes; on the whole the
    // two renderings agree closely.
    EXPECT_LT(total / (40 * 30 * 4), 2.0);
    EXPECT_LT(worst, 48.0);
    EXPECT_EQ(DrawPicture(0, 5, Busy)->argb.size(), 0u);
}

TEST(Raster, DoubleScaleCountsOnlyAtTwiceTheSize) {
    Image plain(3, 2);
    EXPECT_FALSE(plain.HasDoubleScale());
    plain.doubleScale = std::make_shared<Image>(6, 4);
    EXPECT_TRUE(plain.HasDoubleScale());
    plain.doubleScale = std::make_shared<Image>(6, 5);
    EXPECT_FALSE(plain.HasDoubleScale());
    auto broken = std::make_shared<Image>(6, 4);
    broken->argb.pop_back();
    plain.doubleScale = broken;
    EXPECT_FALSE(plain.HasDoubleScale());
}

}  // namespace
}  // namespace TabulonLib12
