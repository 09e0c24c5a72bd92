#pragma once
// Conversions between text and numbers under the system's settings.
#include <optional>
#include <string>
#include <string_view>

#include "settings.h"

namespace TabulonLib12 {

// The numeric test: optional blanks, an optional sign (also a trailing one, or parentheses),
// an optional currency symbol, digits with the system's thousands separators, the system's
// decimal separator, an optional exponent, and blanks. Hexadecimal "&H..." and octal "&O..."
// also count. The empty text and blank text are not numeric.
// Details: blanks are spaces, tabs, CR and LF; one sign at most, before or after the digits,
// and none with parentheses; grouping separators only between two digits of the whole part,
// in any place ("1,2,3" is 123); the exponent mark is E or D; a number beyond the range of a
// double is not numeric, one below it is 0. "&H" and "&O" literals take the narrowest signed
// width that holds them, as the classic literals do: &HFF is 255, &HFFFF is -1, &H10000 is
// 65536, &HFFFFFFFF is -1; more than 32 bits is not numeric.
bool IsNumeric(std::string_view text, const SystemSettings& settings);

// The value of a text that passes the numeric test; nothing otherwise. Never negative zero.
std::optional<double> ParseNumber(std::string_view text, const SystemSettings& settings);

// Val: the number at the start of the text, read with '.' as the decimal point whatever the
// settings, blanks, tabs and line feeds skipped anywhere; "&H" and "&O" prefixes read hex and
// octal. Stops at the first character that cannot continue the number; no number gives 0.
// An exponent counts only with digits ("1.5ex" is 1.5). Hex and octal take the narrowest
// signed width as in IsNumeric. A number beyond the range of a double, or a hex or octal
// literal beyond 32 bits, throws Error::Overflow().
double Val(std::string_view text);

// The general text of a number: up to 15 significant digits, no grouping, the system's decimal
// separator, no trailing zeros, exponent form "1E+16" / "1E-05" outside the plain range
// (plain from 1E-04 up to 15 whole digits). Negative zero is "0"; NaN is "NaN" and the
// infinities "Infinity" and "-Infinity", words that no reader takes for a number.
std::string NumberToText(double value, const SystemSettings& settings);
// The same text appended to `out`, without a string of its own.
void AppendNumberText(double value, const SystemSettings& settings, std::string& out);

// The general text of the number that a decimal text in the C form denotes ("-123.45",
// "1.5e-07", as database servers write numbers), made from the text's own digits: the text
// NumberToText gives for the double nearest to it. Appends it and answers true; answers false,
// appending nothing, for another form, for digits that do not settle the rounding (more than
// seventeen significant ones, or a sixteenth and seventeenth near the halfway point), and
// near the ends of the range of a double.
bool AppendDecimalAsNumberText(std::string_view decimal, const SystemSettings& settings, std::string& out);

}  // namespace TabulonLib12
