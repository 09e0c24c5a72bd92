#pragma once
// The enumerations of the control's public interface.
#include <cstdint>

namespace TabulonLib12 {

// Heading band style (StileTesta, StileTestaOver).
enum class StileTestaType : int32_t {
    Ice = 0, Black = 1, Sea = 2, Orange = 3, Violet = 4, Sky = 5, Green = 6, White = 7,
    Scheda = 99, Custom = 100,
};

// Sort arrow style (StileArrow).
enum class ColorArrowType : int32_t {
    White = 0, Black = 1, Grey = 2, Blue = 3, Green = 4, Custom = 100,
};

}  // namespace TabulonLib12
