#pragma once
// Dates as day serials: whole days since 30 December 1899, the fraction the time of day. This
// is the date arithmetic that conditions compare and formats print.
#include <optional>
#include <string>
#include <string_view>

#include "settings.h"

namespace TabulonLib12 {

struct DateParts {
    int year = 1899, month = 12, day = 30;
    int hour = 0, minute = 0, second = 0;
};

struct DateTime {
    double serial = 0.0;
    auto operator<=>(const DateTime&) const = default;
};

// Valid calendar dates from year 100 to 9999 only; 31/02 and the like give nothing. Before
// serial 0 the whole part counts days back while the time still runs forward from the start
// of that day, as the classic automation date does: 29/12/1899 06:00 is -1.25.
std::optional<DateTime> MakeDate(const DateParts& parts);
// The parts of a serial, the time rounded to the nearest second (a time that rounds to 24:00
// is the next day). A serial outside years 100 to 9999, or NaN, throws Error::Overflow().
DateParts SplitDate(DateTime value);

// Reads a date in the system's order with its separator (also '-', '.' and '/'), or ISO form
// "yyyy-mm-dd" and "yyyy-mm-dd hh:nn[:ss]" (also with a 'T'), or a time alone "hh:nn[:ss]".
// Two-digit years: 00 to 29 mean 2000 to 2029, 30 to 99 mean 1930 to 1999.
// Details: day and month take one or two digits, the year one, two or four (three are taken
// as written); both separators of a date are the same; a date in the system's order may be
// followed by blanks and a time; a first field of four digits always reads year-month-day,
// and only that form joins the time with 'T'; a time separator is ':' or the system's one;
// a fraction of the seconds is read and dropped. Blanks and tabs around the text are allowed.
// Anything else, including an impossible date or time, gives nothing.
std::optional<DateTime> ParseDate(std::string_view text, const SystemSettings& settings);

// Reads exactly `count` decimal digits of `text` from `at` into `value`; false when the text
// is shorter or holds another character there. The engines read their ISO date texts with it.
bool ReadFixedDigits(std::string_view text, size_t at, size_t count, int& value);

// The general text of a date: the short date with a four-digit year in the system's order and
// separator; the time "hh:nn:ss" is added when it is not midnight; a date of 30/12/1899 with a
// time shows the time alone. Day, month, hours, minutes and seconds take two digits, hours
// from 00 to 23, so that ParseDate reads the text back. Throws as SplitDate does.
std::string DateToText(DateTime value, const SystemSettings& settings);
// The same text for the parts of a date that MakeDate accepts, appended to `text`: a reader
// of dates in parts needs no serial to print them.
void AppendDatePartsText(const DateParts& parts, const SystemSettings& settings, std::string& text);

}  // namespace TabulonLib12
