#pragma once
// Conversion of numbers to whole numbers and to a fixed count of decimals. Every whole number
// taken anywhere in the control rounds to the nearest, ties to the even one.
#include <cstdint>

namespace TabulonLib12 {

// Nearest whole number, ties to even. NaN and infinities are returned as they are.
double RoundHalfEven(double value);

// Rounded to `decimals` places (0 to 15), ties to even on the decimal value as written: 2.675
// with 2 decimals gives 2.68 because the tie is decided on the shortest decimal text of the
// value, not on its binary approximation. NaN and infinities are returned as they are; another
// count of decimals throws Error 5 (kind InvalidValue), "Invalid procedure call or argument".
double RoundHalfEven(double value, int decimals);

// 16 and 32-bit whole numbers, ties to even; out of range (or NaN) throws Error::Overflow().
int16_t ToInt16(double value);
int32_t ToInt32(double value);

// The nearest Single (float), ties to even. A value so far beyond the largest Single that its
// nearest is an infinity (half a step past it or more) throws Error::Overflow(); one closer rounds
// to the largest Single. NaN and infinities are returned as they are.
float ToSingle(double value);

// The double of the shortest decimal digits that read back as the same Single: 0.1f gives the
// double 0.1, not 0.100000001490116. Shown or saved this way, a Single keeps the digits it was
// written with. NaN and infinities are returned as they are.
double SingleAsDouble(float value);

}  // namespace TabulonLib12
