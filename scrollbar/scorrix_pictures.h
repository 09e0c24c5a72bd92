#pragma once
// The bar's pictures and colours, drawn by our own code: arrow buttons with a soft vertical
// gradient, a bevel and a solid triangle; a thumb shaded like a rounded bar with three grip lines.
// The elements stretch them to the layout's size (buttons W by W, thumb W - 30 wide).
#include "platform/ui/graphics.h"

namespace TabulonLib12 {

inline constexpr int kLatoFreccia = 17;     // pixels: a button of the usual width, 255 twips
inline constexpr int kLarghezzaCursore = 15;  // pixels: the thumb of that bar, 225 twips wide
inline constexpr int kAltezzaCursore = 32;    // pixels; stretched to the thumb's height

inline constexpr Colour ColoreTraccia = Rgb(236, 241, 247);      // the track
inline constexpr Colour ColoreBordoTraccia = Rgb(196, 207, 222);  // its outline

// Each is made once and shared by every bar.
Picture FrecciaSu();   // up button, kLatoFreccia square
Picture FrecciaGiu();  // down button, the up button with the arrow turned over
Picture Cursore();     // thumb, kLarghezzaCursore by kAltezzaCursore

}  // namespace TabulonLib12
