#pragma once
// The format engine: turns numbers, dates and the text of cells into display text by a pattern,
// with the system's separators and currency settings.
//
// Which patterns are which. A named format (below) is what its name says. Otherwise a pattern
// with a digit placeholder 0 or # (outside quotes and escapes) is a number pattern; one without
// but with a date letter d m y h n s (either case) or AM/PM or A/P is a date pattern; anything
// else is a number pattern of literal text only. So "0 days" is a number and the word "days".
//
// Number patterns:
//   0  a digit, or 0 where the number has none       #  a digit, or nothing
//   .  the first one is the decimal separator of the system; further ones are a literal "."
//   ,  between two integer placeholders: grouping by three with the system's thousands separator;
//      right after the last integer placeholder (before the "." or the end of the integer
//      placeholders): divides by 1000 per comma; anywhere else a literal ","
//   %  multiplies by 100 (per %) and shows "%"
//   E+ E- e+ e-  followed by placeholders: exponent form; "E+" always shows the exponent's sign,
//      "E-" only a minus. The mantissa has as many integer digits as there are 0 placeholders
//      before the decimal point (at least one); the exponent at least as many digits as its 0s
//   "text"  \c  literal text; an unclosed quote runs to the end; a backslash escapes one whole
//      character (all bytes of a UTF-8 sequence); any other character stands for itself
//   ;  separates sections: positive;negative;zero (a fourth and later ones are not used).
//      With one section a negative number takes a leading minus; with a negative section the
//      number is shown without its sign. An empty negative section means the first one with a
//      minus; an empty zero section means the first one; an empty first section means the
//      general text of the number.
// Digits beyond the integer placeholders all show at the first one ("0" of 1234 is "1234").
// Without integer placeholders, an integer part other than 0 shows before the decimal point
// (".00" of 1.5 is "1.50"). A decimal separator shows only when a decimal digit follows it, so
// "0.##" of 1 is "1". A number that shows as zero (all digits 0 after rounding) is zero: it takes
// the zero section if there is one and never shows a minus ("0.00" of -0.001 is "0.00").
//
// Rounding. The digits of a number are those of its shortest decimal text (the fewest digits
// that read back as the same double: 0.1 is "0.1", 1e300 is a 1 and 300 zeros), rounded to the
// shown decimals half to even on that decimal text: 0.125 with two decimals is 0.12, 0.135 is
// 0.14, 2.5 with "0" is 2. This is the rule of RoundHalfEven (rounding.h) applied to the digits
// themselves, so that it also holds for more than 15 decimals and for the 16th and 17th digit.
// The classic runtime rounds some displays half away from zero; this system rounds half to even
// everywhere a number is rounded, for one rule throughout. Percent and the thousands divider
// move the decimal point of that text, so they add no binary error.
//
// Size. Patterns show every digit they ask for: a number pattern shows a large value in full
// (1e300 with "#,##0" is 301 digits in 101 groups), never in exponent form unless the pattern
// asks for it. The text is at most the length of the pattern plus a few hundred digits, per %
// two more; no value or pattern makes the work more than linear in that.
//
// Named number formats (the name alone, any case):
//   "General Number"  the general text of the number (NumberToText)
//   "Currency"        the system's currency: symbol, its place and blank, digits (0 to 15),
//                     leading zero, grouping and separators, negative with a leading minus or
//                     in parentheses
//   "Fixed" "0.00"    "Standard" "#,##0.00"    "Percent" "0.00%"    "Scientific" "0.00E+00"
//
// Date patterns (letters in either case):
//   d dd     day, without or with a leading zero
//   m mm     month; minutes when right after an hour (h or hh, only literals between) or right
//            before seconds
//   n nn     minutes              h hh   hour 0-23, or 1-12 with a half-day mark
//   s ss     seconds              yy yyyy   year in two or four digits     y   day of the year
//   AM/PM am/pm A/P a/p   the half of the day, in the case written
//   /  the system's date separator        :  the system's time separator
//   "text" \c  literal text; anything else stands for itself
//   Longer runs split from the left: dddd is dd dd, yyy is yy y. There are no month or day names.
// Named date formats: "General Date" (DateToText), "Short Date" (the system's order and year
// width), "Short Time" ("hh:nn").
#include <string>
#include <string_view>

#include "datetime.h"
#include "settings.h"

namespace TabulonLib12 {

// A number by a pattern. With a date pattern the number is a day serial, and one outside years
// 100 to 9999 throws Error::Overflow(). NaN and the infinities show their general text whatever
// the pattern. The empty pattern gives the general text (NumberToText).
std::string FormatNumber(double value, std::string_view pattern, const SystemSettings& settings);

// A date by a pattern. With a number pattern the date shows as its day serial. The empty pattern
// gives the general text (DateToText). With a date pattern, a date outside years 100 to 9999
// throws Error::Overflow(), as DateToText does.
std::string FormatDate(DateTime value, std::string_view pattern, const SystemSettings& settings);

// The classic Format applied to the text of a cell; never throws.
// - A date pattern formats a text that ParseDate reads; a text that is not a date but passes the
//   numeric test is taken as a day serial (the classic reading of a number as a date: "45000"
//   is 15/03/2023), if that serial is in years 100 to 9999.
// - A number pattern formats a text that passes the numeric test, unless ParseDate also reads it:
//   where the thousands separator is ".", "1.5.2024" is a date and no number, and it passes.
// - The empty pattern, and any text that is neither, give the text unchanged.
std::string FormatText(std::string_view text, std::string_view pattern, const SystemSettings& settings);

// The display text of a cell by the column's format key, compared exactly:
//   ""  (the value)     -> ""  under every key
//   "Nessuno"           -> the value unchanged
//   "Data"              -> "dd/mm/yyyy"     "Data Breve"   -> "dd/mm/yy"      "Ora" -> "hh:nn"
//   "Valuta"            -> "Currency"       "Single"       -> "Standard"
//   "Numeri_4_Dec"      -> "#,####0.0000"   (grouping by three, four decimals)
//   "Numerico"          -> the general text (NumberToText) of ParseNumber of the value, or "0"
//                          for a value that is not numeric
//   any other key, "" included -> "": the cell stays blank until its format is set
// The patterns apply through FormatText, so text that is not a number or date passes unchanged.
std::string FormatByKey(std::string_view value, std::string_view key, const SystemSettings& settings);

}  // namespace TabulonLib12
