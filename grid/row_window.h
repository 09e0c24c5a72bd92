#pragma once
// The arithmetic of the virtual row window. The surface shows `rows` grid rows; `offset` (the
// scroll bar's value) is the store index shown in grid row 0, so grid row g shows store index
// offset + g. Nothing else holds the scroll position.
#include <cstdint>

#include "platform/runtime/error.h"

namespace TabulonLib12 {

// The store index of grid row `riga`; no range test. Beyond 32 bits it overflows.
inline int32_t IndiceDaRiga(int32_t offset, int32_t riga) {
    const int64_t index = static_cast<int64_t>(offset) + riga;
    if (index > INT32_MAX || index < INT32_MIN) throw Error::Overflow();
    return static_cast<int32_t>(index);
}

// The grid row that shows store index `indice`, or -1 when it is off the surface.
inline int32_t RigaDaIndice(int32_t offset, int32_t rows, int32_t indice) {
    const int64_t r = static_cast<int64_t>(indice) - offset;
    if (r < 0 || r > static_cast<int64_t>(rows) - 1) return -1;
    return static_cast<int32_t>(r);
}

}  // namespace TabulonLib12
