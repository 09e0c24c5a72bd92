#pragma once
// The pictures the control draws itself, with the toolkit-free rasteriser of platform/ui: the
// band textures behind the column headings, the sort arrows, the column-chooser button and the
// hand pointer of hyperlink cells. Each picture comes with its finer rendering at twice the size
// (Image::doubleScale) for high-density screens.
//
// The pictures are drawn once, on first use, and shared: every call for the same value returns
// the same Picture, which nobody changes. The Custom values start as their model's picture
// itself (the band's Custom is Scheda's texture, the arrows' Custom is White's); a host that
// wants its own puts another picture in the picture library, never into these.
#include <span>

#include "grid/enumerations.h"
#include "platform/ui/graphics.h"

namespace TabulonLib12 {

inline constexpr int kBandTextureWidth = 93;
inline constexpr int kBandTextureHeight = 21;
inline constexpr int kArrowWidth = 13;
inline constexpr int kArrowHeight = 21;
inline constexpr int kChooserButtonSize = 16;
inline constexpr int kHandPointerSize = 32;

// The band texture of a heading style: 93 by 21 opaque pixels, a soft vertical gradient with a
// light top edge and a subtle bottom shade (Scheda: a flat light tab face with a thin border).
// The caption is drawn over it by a label. A value with no texture (anything but Ice..White,
// Scheda and Custom, e.g. 50) gives a null Picture: the caller reports it.
Picture BandTexture(StileTestaType style);

// The sort arrows of an arrow colour: 13 by 21 pixels, a small anti-aliased triangle in the
// middle, pointing up or down, filled with the colour and edged with a contrasting one-pixel
// outline so that it shows on light and dark bands; transparent elsewhere. A value that is not
// one of ColorArrowType's gives a null Picture.
Picture ArrowUp(ColorArrowType colour);
Picture ArrowDown(ColorArrowType colour);

// The column-chooser button: 16 by 16, a small table of columns with a check mark over its
// corner, on transparent.
Picture ChooserButton();

// The hand pointer of hyperlink cells, for an element's MouseIcon: 32 by 32, a white hand with
// a black outline, the index finger pointing up, transparent around it. Its hot spot
// (Image::hotSpot) is the tip of the finger.
Picture HandPointer();

// The values that have a picture, in the enumerations' order: the heading styles (Custom last)
// and the arrow colours (Custom last).
std::span<const StileTestaType> BandTextureStyles();
std::span<const ColorArrowType> ArrowColours();

}  // namespace TabulonLib12
