#include "platform/runtime/format.h"

#include <cmath>
#include <optional>

#include "platform/runtime/conversions.h"
#include "platform/runtime/error.h"
#include "platform/runtime/format_pattern.h"

namespace TabulonLib12 {

using FormatDetail::NamedFormat;
using FormatDetail::PatternKind;

namespace {

// The short date of the system as a pattern: its order, two-digit fields, its year width.
std::string ShortDatePattern(const SystemSettings& settings) {
    const char* year = settings.shortDateLongYear ? "yyyy" : "yy";
    switch (settings.dateOrder) {
    case DateOrder::DayMonthYear:
        return std::string("dd/mm/") + year;
    case DateOrder::YearMonthDay:
        return std::string(year) + "/mm/dd";
    case DateOrder::MonthDayYear:
        break;
    }
    return std::string("mm/dd/") + year;
}

// The pattern a named format stands for; nothing for the names with their own routine.
std::optional<std::string> PatternOf(NamedFormat name, const SystemSettings& settings) {
    switch (name) {
    case NamedFormat::Fixed: return "0.00";
    case NamedFormat::Standard: return "#,##0.00";
    case NamedFormat::Percent: return "0.00%";
    case NamedFormat::Scientific: return "0.00E+00";
    case NamedFormat::ShortDate: return ShortDatePattern(settings);
    case NamedFormat::ShortTime: return "hh:nn";
    case NamedFormat::GeneralNumber:
    case NamedFormat::Currency:
    case NamedFormat::GeneralDate:
        break;
    }
    return std::nullopt;
}

PatternKind KindOfAny(std::string_view pattern) {
    if (const auto name = FormatDetail::NamedFormatOf(pattern)) {
        return FormatDetail::KindOf(*name);
    }
    return FormatDetail::KindOf(pattern);
}

// A number pattern (plain or named) applied to a finite number.
std::string NumberByPattern(double value, std::string_view pattern, const SystemSettings& settings) {
    if (const auto name = FormatDetail::NamedFormatOf(pattern)) {
        if (*name == NamedFormat::GeneralNumber) {
            return NumberToText(value, settings);
        }
        if (*name == NamedFormat::Currency) {
            return FormatDetail::FormatCurrency(value, settings);
        }
        return FormatDetail::FormatNumberPattern(value, *PatternOf(*name, settings), settings);
    }
    return FormatDetail::FormatNumberPattern(value, pattern, settings);
}

// A date pattern (plain or named) applied to a date.
std::string DateByPattern(DateTime value, std::string_view pattern, const SystemSettings& settings) {
    if (const auto name = FormatDetail::NamedFormatOf(pattern)) {
        if (*name == NamedFormat::GeneralDate) {
            return DateToText(value, settings);
        }
        return FormatDetail::FormatDatePattern(value, *PatternOf(*name, settings), settings);
    }
    return FormatDetail::FormatDatePattern(value, pattern, settings);
}

}  // namespace

std::string FormatNumber(double value, std::string_view pattern, const SystemSettings& settings) {
    if (pattern.empty() || !std::isfinite(value)) {
        return NumberToText(value, settings);
    }
    if (KindOfAny(pattern) == PatternKind::Date) {
        return DateByPattern(DateTime{value}, pattern, settings);
    }
    return NumberByPattern(value, pattern, settings);
}

std::string FormatDate(DateTime value, std::string_view pattern, const SystemSettings& settings) {
    if (pattern.empty()) {
        return DateToText(value, settings);
    }
    if (KindOfAny(pattern) == PatternKind::Date) {
        return DateByPattern(value, pattern, settings);
    }
    if (!std::isfinite(value.serial)) {
        return NumberToText(value.serial, settings);
    }
    return NumberByPattern(value.serial, pattern, settings);
}

std::string FormatText(std::string_view text, std::string_view pattern, const SystemSettings& settings) {
    if (pattern.empty()) {
        return std::string(text);
    }
    if (KindOfAny(pattern) == PatternKind::Date) {
        if (const auto date = ParseDate(text, settings)) {
            return DateByPattern(*date, pattern, settings);
        }
        if (const auto serial = ParseNumber(text, settings)) {
            try {
                return DateByPattern(DateTime{*serial}, pattern, settings);
            } catch (const Error& e) {
                if (e.kind() != ErrorKind::Overflow) {
                    throw;
                }
                // A number beyond the dates is no date: the text stays as it is.
            }
        }
        return std::string(text);
    }
    const auto number = ParseNumber(text, settings);
    if (!number || ParseDate(text, settings)) {
        return std::string(text);
    }
    return NumberByPattern(*number, pattern, settings);
}

std::string FormatByKey(std::string_view value, std::string_view key, const SystemSettings& settings) {
    if (value.empty()) {
        return "";
    }
    if (key == "Nessuno") {
        return std::string(value);
    }
    if (key == "Numerico") {
        return NumberToText(ParseNumber(value, settings).value_or(0.0), settings);
    }
    std::string_view pattern;
    if (key == "Data") {
        pattern = "dd/mm/yyyy";
    } else if (key == "Ora") {
        pattern = "hh:nn";
    } else if (key == "Valuta") {
        pattern = "Currency";
    } else if (key == "Single") {
        pattern = "Standard";
    } else if (key == "Data Breve") {
        pattern = "dd/mm/yy";
    } else if (key == "Numeri_4_Dec") {
        pattern = "#,####0.0000";
    } else {
        return "";  // no format set: the cell stays blank
    }
    return FormatText(value, pattern, settings);
}

}  // namespace TabulonLib12
