#pragma once
// The settings a fuzz input runs under, chosen by one byte: the three fixed ones and an odd one
// with a multibyte thousands separator, year first, "-" between the parts of a date and "h"
// between those of a time, a spaced currency symbol before the amount, three currency digits, no
// leading zero and parentheses for negative amounts. (Not "." for times: ParseDate takes "." as a
// date separator in every order, so a time alone such as 03.03.23 reads as a date there, and the
// general text of a time on day zero would not read back.)
#include <cstdint>

#include "platform/runtime/settings.h"

namespace TabulonLib12::Fuzz {

inline SystemSettings OddSettings() {
    SystemSettings s;
    s.decimalSeparator = ",";
    s.thousandsSeparator = "\u2019";
    s.dateSeparator = "-";
    s.timeSeparator = "h";
    s.dateOrder = DateOrder::YearMonthDay;
    s.shortDateLongYear = false;
    s.currencySymbol = "CHF";
    s.currencySymbolFirst = true;
    s.currencySymbolSpaced = true;
    s.currencyDigits = 3;
    s.currencyLeadingZero = false;
    s.currencyNegativeParentheses = true;
    s.currencyDecimalSeparator = ".";
    s.currencyThousandsSeparator = "'";
    return s;
}

inline const SystemSettings& SettingsFor(uint8_t selector) {
    static const SystemSettings all[] = {SystemSettings::Italian(), SystemSettings::UsEnglish(), SystemSettings::C(),
                                         OddSettings()};
    return all[selector % 4];
}

}  // namespace TabulonLib12::Fuzz
