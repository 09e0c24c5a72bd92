#pragma once
// How the design pages turn the texts of their fields and of the working table into the
// control's values and back. The reads of a text as a number follow the classic conversions:
// the numeric test under the system's settings (platform/runtime/conversions.h), then rounding
// half to even into the target type; a text that is no number fails with Error::TypeMismatch()
// and a number that does not fit with Error::Overflow(). Numbers are written back in their
// general text under the same settings.
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/runtime/colour.h"

namespace TabulonLib12 {

// The control's ValoreNumerico of a text (grid/values.h): its number, 0 for the empty text and
// for anything that is no number.
double ValoreNumericoTesto(std::string_view text);

// A 16-bit whole number of a text.
int16_t IntegerFromText(std::string_view text);
// A byte (0 to 255) of a text, and of a number.
uint8_t ByteFromText(std::string_view text);
uint8_t ByteFromNumber(double value);
// A colour of a text: a whole number from -2147483648 to 4294967295, a negative one taken as
// its 32 bits (so -2147483643 and 2147483653 are both the system colour 0x80000005).
Colour ColourFromText(std::string_view text);
// A truth value of a text: "True" or "False" (any case), or a number, true when not 0.
bool BooleanFromText(std::string_view text);

// The texts the pages write: "True"/"False", a number's general text, a colour's decimal.
std::string BooleanText(bool value);
std::string NumberText(double value);
std::string ColourText(Colour value);

// The words of the alignment list for the alignment numbers and back: "0" is "Sinistra", "1"
// "Destra", "2" "Centro", any other text "Sinistra"; "Sinistra" is 0, "Destra" 1, "Centro" 2,
// any other text 0.
std::string NumeroInAllineamento(std::string_view text);
int16_t AllineamentoInNumero(std::string_view text);

}  // namespace TabulonLib12
