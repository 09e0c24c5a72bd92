#pragma once
// The system's number, date and currency settings. Taken from the process locale by default
// (localeconv and nl_langinfo), replaceable by the host and by tests. Everything that turns
// values into text or reads text back (database values, formats, conditions) goes through the
// settings in force, so what a load writes the formats can read again.
#include <string>

namespace TabulonLib12 {

enum class DateOrder { DayMonthYear, MonthDayYear, YearMonthDay };

struct SystemSettings {
    std::string decimalSeparator = ".";
    std::string thousandsSeparator = ",";  // may be empty: no grouping
    std::string dateSeparator = "/";
    std::string timeSeparator = ":";
    DateOrder dateOrder = DateOrder::MonthDayYear;
    bool shortDateLongYear = true;  // short dates show four-digit years

    // Currency: symbol and its place, digits after the decimal point, negative form.
    std::string currencySymbol = "$";
    bool currencySymbolFirst = true;
    bool currencySymbolSpaced = false;  // a blank between amount and symbol
    int currencyDigits = 2;
    bool currencyLeadingZero = true;     // 0.50 rather than .50
    bool currencyNegativeParentheses = false;
    std::string currencyDecimalSeparator = ".";
    std::string currencyThousandsSeparator = ",";

    // Fixed settings used by tests and as documented references.
    static SystemSettings C();          // POSIX: '.' decimal, no grouping, m/d order, no currency symbol;
                                        // exactly what FromProcessLocale reads in the "C" locale, whose
                                        // short date "%m/%d/%y" has a two-digit year
    static SystemSettings UsEnglish();  // '.' decimal, ',' grouping, m/d/yyyy, $ before
    static SystemSettings Italian();    // ',' decimal, '.' grouping, dd/mm/yyyy, euro after

    // The settings of the process locale (LC_NUMERIC, LC_MONETARY, LC_TIME as set by the host).
    // Text of a locale whose code set is not UTF-8 is converted to UTF-8.
    static SystemSettings FromProcessLocale();

    // Date order, date separator and year width read from a date pattern in the form of
    // nl_langinfo(D_FMT), such as "%d/%m/%Y" or "%Y-%m-%d". Returns false and changes nothing
    // when the pattern does not name a day, a month and a year. A separator other than one
    // ASCII punctuation mark (a blank, or the words some languages put between the fields)
    // becomes "/".
    bool ApplyDatePattern(const std::string& pattern);
    // Time separator read from a time pattern in the form of nl_langinfo(T_FMT) ("%H:%M:%S",
    // "%H.%M.%S"), with the same rule for odd separators, which become ":". Returns false and
    // changes nothing when the pattern has no hour followed by a minute.
    bool ApplyTimePattern(const std::string& pattern);
};

// The settings in force. Until a host or test replaces them they come from the process locale,
// read once on first use.
const SystemSettings& CurrentSettings();
void SetCurrentSettings(const SystemSettings& settings);

// Replaces the settings for the lifetime of the object and restores the previous ones.
class ScopedSettings {
public:
    explicit ScopedSettings(const SystemSettings& settings);
    ~ScopedSettings();
    ScopedSettings(const ScopedSettings&) = delete;
    ScopedSettings& operator=(const ScopedSettings&) = delete;

private:
    SystemSettings previous_;
};

}  // namespace TabulonLib12
