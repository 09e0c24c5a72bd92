#pragma once
// Colour values as the control keeps them: 32 bits in the byte order 0x00BBGGRR. A value with
// the high bit set names a system colour by its index in the low byte.
#include <cstdint>

namespace TabulonLib12 {

// 0x8000000F is the button face, 0x80000005 the window background, and so on.
using Colour = uint32_t;

inline constexpr Colour Rgb(int r, int g, int b) {
    return static_cast<Colour>((r & 0xFF) | ((g & 0xFF) << 8) | ((b & 0xFF) << 16));
}
inline constexpr bool IsSystemColour(Colour c) { return (c & 0x80000000u) != 0; }

namespace SystemColour {
inline constexpr Colour ScrollBar = 0x80000000u;
inline constexpr Colour Desktop = 0x80000001u;
inline constexpr Colour WindowBackground = 0x80000005u;
inline constexpr Colour WindowFrame = 0x80000006u;
inline constexpr Colour MenuText = 0x80000007u;
inline constexpr Colour WindowText = 0x80000008u;
inline constexpr Colour Highlight = 0x8000000Du;
inline constexpr Colour HighlightText = 0x8000000Eu;
inline constexpr Colour ButtonFace = 0x8000000Fu;
inline constexpr Colour ButtonShadow = 0x80000010u;
inline constexpr Colour GrayText = 0x80000011u;
inline constexpr Colour ButtonText = 0x80000012u;
inline constexpr Colour InfoText = 0x80000017u;
inline constexpr Colour InfoBackground = 0x80000018u;
}  // namespace SystemColour

}  // namespace TabulonLib12
