// The drawn pictures: sizes at both renderings, one per value, distinct looks that match their
// names, Custom starting as its model, arrows that point the right way, transparency around the
// shapes, anti-aliased edges, the hand's hot spot, and the same pixels on every run.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>

#include "presentation/drawn_pictures.h"

namespace TabulonLib12 {
namespace {

int A(uint32_t p) { return static_cast<int>(p >> 24); }
int R(uint32_t p) { return static_cast<int>((p >> 16) & 0xFF); }
int G(uint32_t p) { return static_cast<int>((p >> 8) & 0xFF); }
int B(uint32_t p) { return static_cast<int>(p & 0xFF); }
double Luma(uint32_t p) { return 0.299 * R(p) + 0.587 * G(p) + 0.114 * B(p); }

struct Rgb3 {
    double r = 0, g = 0, b = 0;
    double Luma() const { return 0.299 * r + 0.587 * g + 0.114 * b; }
};

// The mean colour of the pixels at least `minAlpha` opaque.
Rgb3 MeanColour(const Image& image, int minAlpha = 255) {
    Rgb3 sum;
    int n = 0;
    for (uint32_t p : image.argb) {
        if (A(p) < minAlpha) continue;
        sum.r += R(p), sum.g += G(p), sum.b += B(p);
        ++n;
    }
    if (n > 0) sum.r /= n, sum.g /= n, sum.b /= n;
    return sum;
}

Rgb3 RowColour(const Image& image, int y) {
    Rgb3 sum;
    for (int x = 0; x < image.width; ++x) {
        const uint32_t p = image.at(x, y);
        sum.r += R(p), sum.g += G(p), sum.b += B(p);
    }
    sum.r /= image.width, sum.g /= image.width, sum.b /= image.width;
    return sum;
}

double Distance(const Rgb3& a, const Rgb3& b) { return std::sqrt((a.r - b.r) * (a.r - b.r) + (a.g - b.g) * (a.g - b.g) + (a.b - b.b) * (a.b - b.b)); }

// The mean over the pixels of the colour distance between two pictures of the same size.
double MeanPixelDistance(const Image& a, const Image& b) {
    double sum = 0;
    for (size_t i = 0; i < a.argb.size(); ++i) {
        const uint32_t p = a.argb[i], q = b.argb[i];
        sum += std::sqrt(double((R(p) - R(q)) * (R(p) - R(q)) + (G(p) - G(q)) * (G(p) - G(q)) + (B(p) - B(q)) * (B(p) - B(q))));
    }
    return sum / static_cast<double>(a.argb.size());
}

int CountPartial(const Image& image) {
    return static_cast<int>(std::count_if(image.argb.begin(), image.argb.end(), [](uint32_t p) { return A(p) > 0 && A(p) < 255; }));
}

int CountOpaque(const Image& image) {
    return static_cast<int>(std::count_if(image.argb.begin(), image.argb.end(), [](uint32_t p) { return A(p) == 255; }));
}

std::string Name(StileTestaType s) { return "style " + std::to_string(static_cast<int>(s)); }
std::string Name(ColorArrowType c) { return "arrow colour " + std::to_string(static_cast<int>(c)); }

void ExpectSizes(const Picture& picture, int width, int height, const std::string& what) {
    ASSERT_TRUE(picture) << what;
    EXPECT_EQ(picture->width, width) << what;
    EXPECT_EQ(picture->height, height) << what;
    EXPECT_EQ(picture->argb.size(), static_cast<size_t>(width * height)) << what;
    ASSERT_TRUE(picture->HasDoubleScale()) << what;
    EXPECT_EQ(picture->doubleScale->width, 2 * width) << what;
    EXPECT_EQ(picture->doubleScale->height, 2 * height) << what;
}

// --- Band textures -----------------------------------------------------------------------------

TEST(BandTextures, OnePerStyleOf93By21WithARenderingOf186By42) {
    ASSERT_EQ(BandTextureStyles().size(), 10u);
    for (StileTestaType s : BandTextureStyles()) ExpectSizes(BandTexture(s), 93, 21, Name(s));
}

TEST(BandTextures, AreOpaqueAtBothSizes) {
    for (StileTestaType s : BandTextureStyles()) {
        const Picture t = BandTexture(s);
        EXPECT_EQ(CountOpaque(*t), 93 * 21) << Name(s);
        EXPECT_EQ(CountOpaque(*t->doubleScale), 186 * 42) << Name(s);
    }
}

TEST(BandTextures, ValuesWithoutATextureHaveNone) {
    for (int v : {-1, 8, 50, 98, 101, 32767}) EXPECT_EQ(BandTexture(static_cast<StileTestaType>(v)), nullptr) << v;
}

TEST(BandTextures, CustomStartsAsSchedasTexture) {
    const Picture custom = BandTexture(StileTestaType::Custom);
    const Picture scheda = BandTexture(StileTestaType::Scheda);
    EXPECT_EQ(custom, scheda);
    EXPECT_EQ(custom->argb, scheda->argb);
    EXPECT_EQ(custom->doubleScale->argb, scheda->doubleScale->argb);
}

TEST(BandTextures, EveryStyleIsClearlyDistinctFromEveryOther) {
    const auto styles = BandTextureStyles();
    for (size_t i = 0; i < styles.size(); ++i)
        for (size_t j = i + 1; j < styles.size(); ++j) {
            if (styles[j] == StileTestaType::Custom) continue;  // Custom is Scheda's, above
            const Image& a = *BandTexture(styles[i]);
            const Image& b = *BandTexture(styles[j]);
            EXPECT_GT(MeanPixelDistance(a, b), 30.0) << Name(styles[i]) << " and " << Name(styles[j]);
            EXPECT_GT(Distance(MeanColour(a), MeanColour(b)), 30.0) << Name(styles[i]) << " and " << Name(styles[j]);
        }
}

TEST(BandTextures, GradientStylesAreTheSameAllAlongARow) {
    // So that a heading of any width may stretch or repeat the texture.
    for (StileTestaType s : BandTextureStyles()) {
        if (s == StileTestaType::Scheda || s == StileTestaType::Custom) continue;
        for (const Image* image : {BandTexture(s).get(), BandTexture(s)->doubleScale.get()})
            for (int y = 0; y < image->height; ++y)
                for (int x = 1; x < image->width; ++x) ASSERT_EQ(image->at(x, y), image->at(0, y)) << Name(s) << " row " << y;
    }
}

TEST(BandTextures, GradientStylesHaveALightTopEdgeASoftBodyAndAShadedBottom) {
    for (StileTestaType s : BandTextureStyles()) {
        if (s == StileTestaType::Scheda || s == StileTestaType::Custom) continue;
        const Image& t = *BandTexture(s);
        const double top = RowColour(t, 0).Luma(), upper = RowColour(t, 3).Luma(), lower = RowColour(t, 16).Luma();
        const double bottom = RowColour(t, 20).Luma();
        EXPECT_GE(top, upper) << Name(s);        // the light top edge
        EXPECT_GE(upper, lower - 6) << Name(s);  // lighter above than below, a soft gradient
        EXPECT_LT(bottom, lower - 20) << Name(s);  // the bottom shade
        // Soft: no step between neighbouring rows of the body larger than a sixth of the range.
        for (int y = 2; y < 18; ++y)
            EXPECT_LT(std::abs(RowColour(t, y).Luma() - RowColour(t, y + 1).Luma()), 42.0) << Name(s) << " row " << y;
    }
}

TEST(BandTextures, SchedaIsAFlatLightTabFaceWithAThinBorderLine) {
    const Image& t = *BandTexture(StileTestaType::Scheda);
    const Rgb3 face = MeanColour(t);
    EXPECT_GT(face.Luma(), 210);
    // The face itself is flat: little change from its top to its bottom.
    EXPECT_LT(std::abs(Luma(t.at(46, 3)) - Luma(t.at(46, 18))), 12.0);
    // A border line one pixel wide on the left, right and bottom, clearly darker than the face.
    for (int y = 5; y < 19; ++y) {
        EXPECT_LT(Luma(t.at(0, y)), Luma(t.at(46, y)) - 60) << y;
        EXPECT_LT(Luma(t.at(92, y)), Luma(t.at(46, y)) - 60) << y;
        EXPECT_GT(Luma(t.at(1, y)), Luma(t.at(46, y)) - 10) << y;  // one pixel: the next is face
    }
    for (int x = 5; x < 88; ++x) EXPECT_LT(Luma(t.at(x, 20)), Luma(t.at(x, 10)) - 60) << x;
    EXPECT_LT(Luma(t.at(46, 0)), Luma(t.at(46, 10)) - 60);  // and along the top
}

TEST(BandTextures, LooksFollowTheirNames) {
    const Rgb3 ice = MeanColour(*BandTexture(StileTestaType::Ice));
    EXPECT_GT(ice.Luma(), 200);                      // pale
    EXPECT_GT(ice.b, ice.r + 10);                    // cool
    const Rgb3 black = MeanColour(*BandTexture(StileTestaType::Black));
    EXPECT_LT(black.Luma(), 80);
    EXPECT_LT(std::max({black.r, black.g, black.b}) - std::min({black.r, black.g, black.b}), 12);  // grey
    const Rgb3 sea = MeanColour(*BandTexture(StileTestaType::Sea));
    EXPECT_LT(sea.Luma(), 130);                      // deep
    EXPECT_GT(sea.b, sea.r + 60);                    // blue ...
    EXPECT_GT(sea.g, sea.r + 50);                    // ... with green in it: teal
    const Rgb3 orange = MeanColour(*BandTexture(StileTestaType::Orange));
    EXPECT_GT(orange.r, orange.g + 30);
    EXPECT_GT(orange.g, orange.b + 40);
    const Rgb3 violet = MeanColour(*BandTexture(StileTestaType::Violet));
    EXPECT_GT(violet.b, violet.g + 25);
    EXPECT_GT(violet.r, violet.g + 10);
    const Rgb3 sky = MeanColour(*BandTexture(StileTestaType::Sky));
    EXPECT_GT(sky.Luma(), 160);                      // light ...
    EXPECT_GT(sky.b, sky.r + 50);                    // ... sky blue
    const Rgb3 green = MeanColour(*BandTexture(StileTestaType::Green));
    EXPECT_GT(green.g, green.r + 30);
    EXPECT_GT(green.g, green.b + 40);
    const Rgb3 white = MeanColour(*BandTexture(StileTestaType::White));
    EXPECT_GT(std::min({white.r, white.g, white.b}), 230);
}

// --- Sort arrows -------------------------------------------------------------------------------

// The rows of opaque pixels (alpha above half) and the widest of them.
struct Mass {
    int first = -1, last = -1, widestRow = -1, widest = 0;
};
Mass OpaqueRows(const Image& image) {
    Mass m;
    for (int y = 0; y < image.height; ++y) {
        int count = 0;
        for (int x = 0; x < image.width; ++x) count += A(image.at(x, y)) > 128;
        if (count == 0) continue;
        if (m.first < 0) m.first = y;
        m.last = y;
        if (count > m.widest) m.widest = count, m.widestRow = y;
    }
    return m;
}

TEST(SortArrows, UpAndDownForEveryColourOf13By21WithARenderingOf26By42) {
    ASSERT_EQ(ArrowColours().size(), 6u);
    for (ColorArrowType c : ArrowColours()) {
        ExpectSizes(ArrowUp(c), 13, 21, Name(c) + " up");
        ExpectSizes(ArrowDown(c), 13, 21, Name(c) + " down");
    }
}

TEST(SortArrows, ValuesOutsideTheColoursHaveNone) {
    for (int v : {-1, 5, 99, 101}) {
        EXPECT_EQ(ArrowUp(static_cast<ColorArrowType>(v)), nullptr) << v;
        EXPECT_EQ(ArrowDown(static_cast<ColorArrowType>(v)), nullptr) << v;
    }
}

TEST(SortArrows, CustomStartsAsWhites) {
    EXPECT_EQ(ArrowUp(ColorArrowType::Custom), ArrowUp(ColorArrowType::White));
    EXPECT_EQ(ArrowDown(ColorArrowType::Custom), ArrowDown(ColorArrowType::White));
    EXPECT_EQ(ArrowUp(ColorArrowType::Custom)->argb, ArrowUp(ColorArrowType::White)->argb);
}

TEST(SortArrows, UpHasItsWidestRowAtTheBottomAndDownAtTheTop) {
    for (ColorArrowType c : ArrowColours())
        for (bool fine : {false, true}) {
            const Image& up = fine ? *ArrowUp(c)->doubleScale : *ArrowUp(c);
            const Image& down = fine ? *ArrowDown(c)->doubleScale : *ArrowDown(c);
            const Mass u = OpaqueRows(up), d = OpaqueRows(down);
            EXPECT_GE(u.widestRow, u.last - (fine ? 2 : 1)) << Name(c);
            EXPECT_LE(d.widestRow, d.first + (fine ? 2 : 1)) << Name(c);
            EXPECT_GE(u.widest, up.width / 2) << Name(c);
            // The tip is narrow.
            int tip = 0;
            for (int x = 0; x < up.width; ++x) tip += A(up.at(x, u.first)) > 128;
            EXPECT_LE(tip, up.width / 4) << Name(c);
        }
}

TEST(SortArrows, DownIsUpTurnedOver) {
    for (ColorArrowType c : ArrowColours())
        for (bool fine : {false, true}) {
            const Image& up = fine ? *ArrowUp(c)->doubleScale : *ArrowUp(c);
            const Image& down = fine ? *ArrowDown(c)->doubleScale : *ArrowDown(c);
            for (int y = 0; y < up.height; ++y)
                for (int x = 0; x < up.width; ++x) ASSERT_EQ(down.at(x, up.height - 1 - y), up.at(x, y)) << Name(c);
        }
}

TEST(SortArrows, AreCentredAndTransparentAroundTheTriangle) {
    for (ColorArrowType c : ArrowColours())
        for (const Picture& arrow : {ArrowUp(c), ArrowDown(c)}) {
            const Image& a = *arrow;
            const Mass m = OpaqueRows(a);
            EXPECT_NEAR((m.first + m.last) / 2.0, 10.0, 0.5) << Name(c);
            for (int y = 0; y < 21; ++y) {
                for (int x : {0, 12}) EXPECT_EQ(A(a.at(x, y)), 0) << Name(c) << " " << x << "," << y;
                if (y < 6 || y > 14) {
                    for (int x = 0; x < 13; ++x) EXPECT_EQ(a.at(x, y), 0u) << Name(c) << " " << x << "," << y;
                }
            }
            int left = 0, right = 0;  // as much on either side of the middle column
            for (int y = 0; y < 21; ++y)
                for (int x = 0; x < 6; ++x) left += A(a.at(x, y)), right += A(a.at(12 - x, y));
            EXPECT_EQ(left, right) << Name(c);
        }
}

TEST(SortArrows, EdgesAreAntiAliased) {
    for (ColorArrowType c : ArrowColours()) {
        EXPECT_GT(CountPartial(*ArrowUp(c)), 4) << Name(c);
        EXPECT_GT(CountPartial(*ArrowUp(c)->doubleScale), 8) << Name(c);
    }
}

// The fill is what lies in the middle of the triangle; the outline what lies just below its base
// (up arrow).
TEST(SortArrows, FillIsTheNamedColourAndTheOutlineContrastsWithIt) {
    auto fill = [](ColorArrowType c) { return ArrowUp(c)->at(6, 11); };
    auto outline = [](ColorArrowType c) { return ArrowUp(c)->at(6, OpaqueRows(*ArrowUp(c)).last); };
    for (ColorArrowType c : ArrowColours()) {
        EXPECT_EQ(A(fill(c)), 255) << Name(c);
        EXPECT_EQ(A(outline(c)), 255) << Name(c);
        EXPECT_GT(std::abs(Luma(fill(c)) - Luma(outline(c))), 90) << Name(c);
    }
    EXPECT_GT(Luma(fill(ColorArrowType::White)), 245);
    EXPECT_LT(Luma(fill(ColorArrowType::Black)), 40);
    const uint32_t grey = fill(ColorArrowType::Grey);
    EXPECT_GT(Luma(grey), 100);
    EXPECT_LT(Luma(grey), 200);
    EXPECT_EQ(R(grey), B(grey));
    const uint32_t blue = fill(ColorArrowType::Blue);
    EXPECT_GT(B(blue), R(blue) + 100);
    EXPECT_GT(B(blue), G(blue) + 60);
    const uint32_t green = fill(ColorArrowType::Green);
    EXPECT_GT(G(green), R(green) + 60);
    EXPECT_GT(G(green), B(green) + 60);
}

TEST(SortArrows, ColoursAreClearlyDistinct) {
    const auto colours = ArrowColours();
    auto fill = [](ColorArrowType c) {
        const uint32_t p = ArrowUp(c)->at(6, 11);
        return Rgb3{double(R(p)), double(G(p)), double(B(p))};
    };
    for (size_t i = 0; i < colours.size(); ++i)
        for (size_t j = i + 1; j < colours.size(); ++j) {
            if (colours[j] == ColorArrowType::Custom) continue;
            EXPECT_GT(Distance(fill(colours[i]), fill(colours[j])), 80.0) << Name(colours[i]) << " and " << Name(colours[j]);
            EXPECT_GT(MeanPixelDistance(*ArrowUp(colours[i]), *ArrowUp(colours[j])), 5.0)
                << Name(colours[i]) << " and " << Name(colours[j]);
        }
}

// --- Chooser button and hand -------------------------------------------------------------------

TEST(ChooserButton, Is16By16OnTransparentWithAntiAliasedEdges) {
    const Picture b = ChooserButton();
    ExpectSizes(b, 16, 16, "chooser");
    EXPECT_EQ(b->at(0, 0), 0u);
    EXPECT_EQ(b->at(15, 0), 0u);
    EXPECT_EQ(b->at(0, 15), 0u);
    EXPECT_GT(CountOpaque(*b), 16 * 16 / 2);
    EXPECT_GT(CountPartial(*b), 3);
    EXPECT_GT(CountPartial(*b->doubleScale), 6);
    // A check mark in green over the lower right corner.
    int green = 0;
    for (int y = 8; y < 16; ++y)
        for (int x = 8; x < 16; ++x) {
            const uint32_t p = b->at(x, y);
            green += A(p) == 255 && G(p) > R(p) + 60 && G(p) > B(p) + 40;
        }
    EXPECT_GT(green, 6);
}

TEST(HandPointer, Is32By32WhiteWithABlackOutlineOnTransparent) {
    const Picture hand = HandPointer();
    ExpectSizes(hand, 32, 32, "hand");
    int white = 0, black = 0, clear = 0;
    for (uint32_t p : hand->argb) {
        if (A(p) == 0) ++clear;
        else if (A(p) == 255 && Luma(p) > 250) ++white;
        else if (A(p) == 255 && Luma(p) < 5) ++black;
    }
    EXPECT_GT(white, 180);
    EXPECT_GT(black, 60);
    EXPECT_GT(clear, 400);
    for (int x : {0, 31})
        for (int y : {0, 31}) EXPECT_EQ(hand->at(x, y), 0u);
    EXPECT_GT(CountPartial(*hand), 10);
}

TEST(HandPointer, HotSpotIsOnTheTipOfTheRaisedFinger) {
    const Picture hand = HandPointer();
    ASSERT_TRUE(hand->hotSpot.has_value());
    const HotSpot hot = *hand->hotSpot;
    EXPECT_GT(A(hand->at(hot.x, hot.y)), 200);
    const Mass m = OpaqueRows(*hand);
    EXPECT_EQ(m.first, hot.y);  // nothing of the hand is higher than the tip
    for (int y = 0; y < hot.y; ++y) EXPECT_LT(A(hand->at(hot.x, y)), 60);
    // Below the tip the finger runs straight down, white inside its outline.
    for (int y = hot.y + 3; y < hot.y + 12; ++y) EXPECT_GT(Luma(hand->at(hot.x, y)), 250) << y;
    // The finer rendering has its tip at the same place, twice as far.
    const Image& fine = *hand->doubleScale;
    EXPECT_GT(A(fine.at(2 * hot.x, 2 * hot.y + 1)), 200);
    EXPECT_EQ(OpaqueRows(fine).first, 2 * hot.y);
}

// --- All of them -------------------------------------------------------------------------------

TEST(DrawnPictures, EveryCallGivesTheSameSharedPicture) {
    EXPECT_EQ(BandTexture(StileTestaType::Sea), BandTexture(StileTestaType::Sea));
    EXPECT_EQ(ArrowDown(ColorArrowType::Blue), ArrowDown(ColorArrowType::Blue));
    EXPECT_EQ(ChooserButton(), ChooserButton());
    EXPECT_EQ(HandPointer(), HandPointer());
}

// FNV-1a over every pixel of every picture at both sizes. The pictures are drawn with integer
// coverage over geometry snapped to 1/256 of a pixel, so every run and every build of the same
// code gives these same pixels; a deliberate change of a picture changes this number with it.
TEST(DrawnPictures, AreTheSamePixelsOnEveryRun) {
    uint64_t hash = 1469598103934665603ull;
    auto add = [&](const Picture& p) {
        for (const Image* image : {p.get(), p->doubleScale.get()})
            for (uint32_t v : image->argb)
                for (int shift = 0; shift < 32; shift += 8) hash = (hash ^ ((v >> shift) & 0xFF)) * 1099511628211ull;
    };
    for (StileTestaType s : BandTextureStyles()) add(BandTexture(s));
    for (ColorArrowType c : ArrowColours()) add(ArrowUp(c)), add(ArrowDown(c));
    add(ChooserButton());
    add(HandPointer());
    EXPECT_EQ(hash, 14464601572515688187ull);
}

}  // namespace
}  // namespace TabulonLib12
