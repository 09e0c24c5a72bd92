#pragma once
// What the fuzz targets share: the settings an input runs under, and the long-input mode.
//
// The settings a fuzz input runs under, chosen by one byte: the three fixed ones and an odd one
// with a multibyte thousands separator, year first, "-" between the parts of a date and "h"
// between those of a time, a spaced currency symbol before the amount, three currency digits, no
// leading zero and parentheses for negative amounts. (Not "." for times: ParseDate takes "." as a
// date separator in every order, so a time alone such as 03.03.23 reads as a date there, and the
// general text of a time on day zero would not read back.)
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

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

// With TABULON_FUZZ_LARGE set in the environment (scripts/fuzz.sh sets it for its long runs),
// a text is repeated up to a megabyte, so that every run of the target works on megabyte inputs
// whatever lengths the fuzzer itself tries. Otherwise the text is used as it is.
inline bool LargeMode() {
    static const bool large = std::getenv("TABULON_FUZZ_LARGE") != nullptr;
    return large;
}

inline std::string_view Grown(std::string_view text, std::string& storage) {
    constexpr size_t kMegabyte = 1 << 20;
    if (!LargeMode() || text.empty() || text.size() >= kMegabyte) {
        return text;
    }
    storage.clear();
    storage.reserve(kMegabyte + text.size());
    while (storage.size() < kMegabyte) {
        storage.append(text);
    }
    return storage;
}

}  // namespace TabulonLib12::Fuzz
