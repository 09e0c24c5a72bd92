// The drawn pictures: one table of colours per kind of picture, one drawing routine per kind.
// Every routine draws in the picture's own pixel coordinates; DrawPicture runs it at the plain
// size and at twice the size.
#include "presentation/drawn_pictures.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "platform/ui/raster.h"

namespace TabulonLib12 {

namespace {

// --- Band textures -----------------------------------------------------------------------------

// A heading style's look: the body's vertical gradient from top (0) to bottom (1), the light
// first row, the shaded last row. A tab (Scheda) is a flat face with a border line instead.
struct BandLook {
    StileTestaType style;
    std::array<ColourStop, 4> body;
    uint32_t topEdge;
    uint32_t bottomShade;
    bool tab = false;
    uint32_t border = 0;  // the tab's border line
};

constexpr uint32_t kTabSurround = OpaqueRgb(226, 226, 222);  // behind the tab's rounded corners

// The stops at 0.45 and 0.6 make the soft break between the lighter upper part and the body.
const std::array<BandLook, 9> kBandLooks = {{
    {StileTestaType::Ice,
     {{{0, OpaqueRgb(242, 248, 255)}, {0.45, OpaqueRgb(220, 234, 249)}, {0.6, OpaqueRgb(205, 224, 245)},
       {1, OpaqueRgb(186, 210, 238)}}},
     OpaqueRgb(255, 255, 255), OpaqueRgb(140, 168, 202)},
    {StileTestaType::Black,
     {{{0, OpaqueRgb(98, 100, 104)}, {0.45, OpaqueRgb(60, 62, 66)}, {0.6, OpaqueRgb(32, 33, 36)},
       {1, OpaqueRgb(44, 46, 50)}}},
     OpaqueRgb(140, 142, 146), OpaqueRgb(6, 6, 6)},
    {StileTestaType::Sea,
     {{{0, OpaqueRgb(62, 150, 175)}, {0.45, OpaqueRgb(34, 122, 150)}, {0.6, OpaqueRgb(22, 104, 132)},
       {1, OpaqueRgb(14, 86, 113)}}},
     OpaqueRgb(136, 200, 218), OpaqueRgb(6, 50, 70)},
    {StileTestaType::Orange,
     {{{0, OpaqueRgb(255, 231, 198)}, {0.45, OpaqueRgb(255, 198, 130)}, {0.6, OpaqueRgb(253, 180, 98)},
       {1, OpaqueRgb(245, 160, 72)}}},
     OpaqueRgb(255, 247, 234), OpaqueRgb(196, 116, 40)},
    {StileTestaType::Violet,
     {{{0, OpaqueRgb(240, 231, 251)}, {0.45, OpaqueRgb(212, 193, 241)}, {0.6, OpaqueRgb(196, 173, 233)},
       {1, OpaqueRgb(178, 153, 223)}}},
     OpaqueRgb(251, 247, 255), OpaqueRgb(132, 104, 186)},
    {StileTestaType::Sky,
     {{{0, OpaqueRgb(218, 239, 253)}, {0.45, OpaqueRgb(168, 215, 246)}, {0.6, OpaqueRgb(150, 205, 242)},
       {1, OpaqueRgb(126, 188, 235)}}},
     OpaqueRgb(243, 250, 255), OpaqueRgb(84, 152, 204)},
    {StileTestaType::Green,
     {{{0, OpaqueRgb(227, 246, 217)}, {0.45, OpaqueRgb(184, 227, 162)}, {0.6, OpaqueRgb(164, 216, 140)},
       {1, OpaqueRgb(142, 203, 115)}}},
     OpaqueRgb(246, 252, 241), OpaqueRgb(92, 156, 70)},
    {StileTestaType::White,
     {{{0, OpaqueRgb(255, 255, 255)}, {0.45, OpaqueRgb(251, 251, 251)}, {0.6, OpaqueRgb(244, 244, 244)},
       {1, OpaqueRgb(233, 233, 233)}}},
     OpaqueRgb(255, 255, 255), OpaqueRgb(190, 190, 190)},
    {StileTestaType::Scheda,
     {{{0, OpaqueRgb(250, 243, 218)}, {0.45, OpaqueRgb(248, 240, 212)}, {0.6, OpaqueRgb(247, 238, 208)},
       {1, OpaqueRgb(244, 233, 198)}}},
     OpaqueRgb(255, 252, 240), OpaqueRgb(0, 0, 0), true, OpaqueRgb(186, 172, 140)},
}};

std::vector<ColourStop> Stops(const std::array<ColourStop, 4>& stops) { return {stops.begin(), stops.end()}; }

// Fades a colour to a share of its alpha (of 255).
uint32_t WithAlpha(uint32_t argb, int alpha) { return (argb & 0x00FFFFFFu) | (static_cast<uint32_t>(alpha) << 24); }

void DrawBand(Canvas& c, const BandLook& look) {
    constexpr double w = kBandTextureWidth, h = kBandTextureHeight;
    if (!look.tab) {
        c.FillRect({0, 0, w, h}, Paint::Vertical(0, h, Stops(look.body)));
        c.FillRect({0, 0, w, 1}, Paint::Solid(look.topEdge));
        c.FillRect({0, h - 2, w, 1}, Paint::Solid(WithAlpha(look.bottomShade, 60)));
        c.FillRect({0, h - 1, w, 1}, Paint::Solid(look.bottomShade));
        return;
    }
    // A notebook tab: a flat face with rounded top corners, a thin border line around it and a
    // light line just inside its top.
    constexpr double radius = 3.5;
    c.FillRect({0, 0, w, h}, Paint::Solid(kTabSurround));
    c.FillRoundedRect({0, 0, w, h + radius}, radius, Paint::Solid(look.border));
    c.FillRoundedRect({1, 1, w - 2, h - 2 + radius}, radius - 1, Paint::Vertical(1, h - 1, Stops(look.body)));
    c.FillRect({3, 1, w - 6, 1}, Paint::Solid(WithAlpha(look.topEdge, 200)));
    c.FillRect({0, h - 1, w, 1}, Paint::Solid(look.border));
}

// --- Sort arrows -------------------------------------------------------------------------------

struct ArrowLook {
    ColorArrowType colour;
    uint32_t fill;
    uint32_t outline;  // contrasting with the fill
};

const std::array<ArrowLook, 5> kArrowLooks = {{
    {ColorArrowType::White, OpaqueRgb(255, 255, 255), OpaqueRgb(72, 72, 72)},
    {ColorArrowType::Black, OpaqueRgb(24, 24, 24), OpaqueRgb(236, 236, 236)},
    {ColorArrowType::Grey, OpaqueRgb(158, 158, 158), OpaqueRgb(52, 52, 52)},
    {ColorArrowType::Blue, OpaqueRgb(36, 104, 214), OpaqueRgb(238, 244, 255)},
    {ColorArrowType::Green, OpaqueRgb(38, 150, 62), OpaqueRgb(236, 252, 238)},
}};

void DrawArrow(Canvas& c, const ArrowLook& look, bool up) {
    // The filled triangle, 9 wide and 5 high with its base on a pixel row, pointing up; the
    // outline is the band one pixel wide around it, rounded at the corners. Together they span
    // rows 7 to 13, the middle of the picture's 21; down is the same turned over.
    std::vector<PointF> triangle = {{6.5, 8}, {11, 13}, {2, 13}};
    if (!up)
        for (PointF& p : triangle) p.y = kArrowHeight - p.y;
    Path outline;
    outline.AddPolygon(triangle).AddStroke(triangle, 2.0, Cap::Round, true);
    c.Fill(outline, Paint::Solid(look.outline));
    c.FillPolygon(triangle, Paint::Solid(look.fill));
}

// --- Chooser button ----------------------------------------------------------------------------

void DrawChooser(Canvas& c) {
    const uint32_t frame = OpaqueRgb(74, 92, 118);
    const uint32_t rule = OpaqueRgb(150, 166, 188);
    // A small table on whole pixels: a frame, a heading row in blue, three columns, row lines.
    c.FillRoundedRect({1, 2, 13, 12}, 1.5, Paint::Solid(frame));
    c.FillRect({2, 3, 11, 10}, Paint::Solid(OpaqueRgb(255, 255, 255)));
    c.FillRect({2, 3, 11, 3}, Paint::Vertical(3, 6, {{0, OpaqueRgb(176, 204, 242)}, {1, OpaqueRgb(96, 140, 210)}}));
    c.FillRect({5, 3, 1, 10}, Paint::Solid(rule));
    c.FillRect({9, 3, 1, 10}, Paint::Solid(rule));
    for (double y : {8.0, 10.0}) c.FillRect({2, y, 11, 1}, Paint::Solid(WithAlpha(rule, 110)));
    // The check mark over the lower right corner, on a white edge that parts it from the table.
    const std::initializer_list<PointF> tick = {{8.6, 11}, {10.6, 13.1}, {14.6, 7.9}};
    c.StrokePolyline(tick, 4.0, Paint::Solid(OpaqueRgb(255, 255, 255)), Cap::Round);
    c.StrokePolyline(tick, 2.0, Paint::Solid(OpaqueRgb(34, 146, 58)), Cap::Round);
}

// --- Hand pointer ------------------------------------------------------------------------------

inline constexpr HotSpot kHandHotSpot{12, 1};

// The hand's parts as shapes grown by `grow` pixels: the outline is the union of the parts, the
// white inside the union of the parts shrunk by the outline's width, so that the lines between
// the curled fingers stay where the shrunk parts do not meet.
Path HandParts(double grow) {
    Path hand;
    auto box = [&](double x, double y, double w, double h, double r) {
        hand.AddRoundedRect({x - grow, y - grow, w + 2 * grow, h + 2 * grow}, std::max(0.0, r + grow));
    };
    // Neighbouring fingers overlap by one pixel, so that one black pixel column parts them.
    box(9, 1, 6, 18, 3);        // index finger, pointing up
    box(14, 10, 5, 10, 2.5);    // middle finger, curled
    box(18, 11, 5, 10, 2.5);    // ring finger
    box(22, 13, 5, 9, 2.5);     // little finger
    box(9, 16, 18, 11, 4);      // palm
    box(11, 25, 14, 6, 1);      // wrist
    hand.AddStroke({{4.5, 16}, {10.5, 22.5}}, 5 + 2 * grow, Cap::Round);  // thumb, bent outwards
    return hand;
}

void DrawHand(Canvas& c) {
    c.Fill(HandParts(0), Paint::Solid(OpaqueRgb(0, 0, 0)));
    c.Fill(HandParts(-1), Paint::Solid(OpaqueRgb(255, 255, 255)));
    c.FillRect({12, 27, 12, 1}, Paint::Solid(OpaqueRgb(0, 0, 0)));  // the cuff's seam
}

// --- The shared pictures -----------------------------------------------------------------------

constexpr std::array<StileTestaType, 10> kBandStyles = {
    StileTestaType::Ice,   StileTestaType::Black, StileTestaType::Sea,   StileTestaType::Orange,
    StileTestaType::Violet, StileTestaType::Sky,  StileTestaType::Green, StileTestaType::White,
    StileTestaType::Scheda, StileTestaType::Custom,
};
constexpr std::array<ColorArrowType, 6> kArrowColours = {
    ColorArrowType::White, ColorArrowType::Black, ColorArrowType::Grey,
    ColorArrowType::Blue,  ColorArrowType::Green, ColorArrowType::Custom,
};

struct Drawn {
    std::array<Picture, kBandLooks.size()> bands;
    std::array<Picture, kArrowLooks.size()> up, down;
    Picture chooser, hand;

    Drawn() {
        for (size_t i = 0; i < kBandLooks.size(); ++i)
            bands[i] = DrawPicture(kBandTextureWidth, kBandTextureHeight,
                                   [&](Canvas& c) { DrawBand(c, kBandLooks[i]); });
        for (size_t i = 0; i < kArrowLooks.size(); ++i) {
            up[i] = DrawPicture(kArrowWidth, kArrowHeight, [&](Canvas& c) { DrawArrow(c, kArrowLooks[i], true); });
            down[i] = DrawPicture(kArrowWidth, kArrowHeight, [&](Canvas& c) { DrawArrow(c, kArrowLooks[i], false); });
        }
        chooser = DrawPicture(kChooserButtonSize, kChooserButtonSize, DrawChooser);
        auto pointer = DrawPicture(kHandPointerSize, kHandPointerSize, DrawHand);
        pointer->hotSpot = kHandHotSpot;
        hand = pointer;
    }
};

const Drawn& Pictures() {
    static const Drawn drawn;
    return drawn;
}

Picture ArrowOf(ColorArrowType colour, bool up) {
    if (colour == ColorArrowType::Custom) colour = ColorArrowType::White;
    for (size_t i = 0; i < kArrowLooks.size(); ++i)
        if (kArrowLooks[i].colour == colour) return up ? Pictures().up[i] : Pictures().down[i];
    return nullptr;
}

}  // namespace

Picture BandTexture(StileTestaType style) {
    if (style == StileTestaType::Custom) style = StileTestaType::Scheda;
    for (size_t i = 0; i < kBandLooks.size(); ++i)
        if (kBandLooks[i].style == style) return Pictures().bands[i];
    return nullptr;
}

Picture ArrowUp(ColorArrowType colour) { return ArrowOf(colour, true); }
Picture ArrowDown(ColorArrowType colour) { return ArrowOf(colour, false); }
Picture ChooserButton() { return Pictures().chooser; }
Picture HandPointer() { return Pictures().hand; }

std::span<const StileTestaType> BandTextureStyles() { return kBandStyles; }
std::span<const ColorArrowType> ArrowColours() { return kArrowColours; }

}  // namespace TabulonLib12
