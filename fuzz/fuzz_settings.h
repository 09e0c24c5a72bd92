#pragma once
// The settings a fuzz input runs under, chosen by one byte: the three fixed ones and an odd one
// with a multibyte thousands separator, year first, "." between the parts of a time, a spaced
// currency symbol before the amount, three currency digits, no leading zero and parentheses for
// negative amounts. (Its date separator differs from the time one: where they are the same, a
// time alone such as 01.02.03 also reads as a date, an ambiguity of such settings.)
#include <cstdint>

#include "platform/runtime/settings.h"

namespace TabulonLib12::Fuzz {

inline SystemSettings OddSettings() {
    SystemSettings s;
    s.decimalSeparator = ",";
    s.thousandsSeparator = "\u2019";
    s.dateSeparator = "-";
    s.timeSeparator = ".";
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
