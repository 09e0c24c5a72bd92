#include "platform/runtime/settings.h"

#include <iconv.h>
#include <langinfo.h>

#include <cctype>
#include <climits>
#include <clocale>
#include <cstring>
#include <optional>
#include <string_view>
#include <vector>

namespace TabulonLib12 {

SystemSettings SystemSettings::C() {
    // What a process that never called setlocale() reads: the POSIX locale has no grouping, no
    // currency symbol and a short date "%m/%d/%y". Its currency digits are unspecified; two are
    // taken, as for most currencies.
    SystemSettings s;
    s.decimalSeparator = ".";
    s.thousandsSeparator = "";
    s.dateSeparator = "/";
    s.timeSeparator = ":";
    s.dateOrder = DateOrder::MonthDayYear;
    s.shortDateLongYear = false;
    s.currencySymbol = "";
    s.currencySymbolFirst = true;
    s.currencySymbolSpaced = false;
    s.currencyDigits = 2;
    s.currencyLeadingZero = true;
    s.currencyNegativeParentheses = false;
    s.currencyDecimalSeparator = ".";
    s.currencyThousandsSeparator = "";
    return s;
}

SystemSettings SystemSettings::UsEnglish() {
    // "1,234.56", "12/31/2024", "$1,234.56", a negative amount "-$1,234.56".
    SystemSettings s;
    s.decimalSeparator = ".";
    s.thousandsSeparator = ",";
    s.dateSeparator = "/";
    s.timeSeparator = ":";
    s.dateOrder = DateOrder::MonthDayYear;
    s.shortDateLongYear = true;
    s.currencySymbol = "$";
    s.currencySymbolFirst = true;
    s.currencySymbolSpaced = false;
    s.currencyDigits = 2;
    s.currencyLeadingZero = true;
    s.currencyNegativeParentheses = false;
    s.currencyDecimalSeparator = ".";
    s.currencyThousandsSeparator = ",";
    return s;
}

SystemSettings SystemSettings::Italian() {
    // "1.234,56", "31/12/2024", "1.234,56 €". A negative amount keeps the symbol after the
    // amount and takes a leading minus, "-1.234,56 €": no parentheses.
    SystemSettings s;
    s.decimalSeparator = ",";
    s.thousandsSeparator = ".";
    s.dateSeparator = "/";
    s.timeSeparator = ":";
    s.dateOrder = DateOrder::DayMonthYear;
    s.shortDateLongYear = true;
    s.currencySymbol = "\u20ac";
    s.currencySymbolFirst = false;
    s.currencySymbolSpaced = true;
    s.currencyDigits = 2;
    s.currencyLeadingZero = true;
    s.currencyNegativeParentheses = false;
    s.currencyDecimalSeparator = ",";
    s.currencyThousandsSeparator = ".";
    return s;
}

namespace {

// One piece of a strftime pattern: a conversion letter, or literal text (letter 0).
struct PatternPiece {
    char conversion = 0;
    std::string literal;
};

// Splits a pattern into conversions and literal text. Flags, widths and the E and O modifiers
// are dropped; %D, %F, %T, %R and %r are expanded to what they stand for.
std::vector<PatternPiece> SplitPattern(std::string_view pattern, int depth = 0) {
    std::vector<PatternPiece> pieces;
    auto addLiteral = [&pieces](char c) {
        if (pieces.empty() || pieces.back().conversion != 0) {
            pieces.push_back({});
        }
        pieces.back().literal.push_back(c);
    };
    size_t i = 0;
    while (i < pattern.size()) {
        const char c = pattern[i++];
        if (c != '%') {
            addLiteral(c);
            continue;
        }
        while (i < pattern.size() && std::strchr("-_0^#", pattern[i]) != nullptr) {
            ++i;
        }
        while (i < pattern.size() && pattern[i] >= '0' && pattern[i] <= '9') {
            ++i;
        }
        if (i < pattern.size() && (pattern[i] == 'E' || pattern[i] == 'O')) {
            ++i;
        }
        if (i >= pattern.size()) {
            break;
        }
        const char conversion = pattern[i++];
        const char* expansion = nullptr;
        switch (conversion) {
        case '%': addLiteral('%'); continue;
        case 'n': addLiteral('\n'); continue;
        case 't': addLiteral('\t'); continue;
        case 'D': expansion = "%m/%d/%y"; break;
        case 'F': expansion = "%Y-%m-%d"; break;
        case 'T': expansion = "%H:%M:%S"; break;
        case 'R': expansion = "%H:%M"; break;
        case 'r': expansion = "%I:%M:%S %p"; break;
        default: break;
        }
        if (expansion != nullptr) {
            if (depth == 0) {
                for (PatternPiece& piece : SplitPattern(expansion, depth + 1)) {
                    if (piece.conversion == 0) {
                        for (char l : piece.literal) {
                            addLiteral(l);
                        }
                    } else {
                        pieces.push_back(std::move(piece));
                    }
                }
            }
            continue;
        }
        pieces.push_back({conversion, {}});
    }
    return pieces;
}

enum class Field { None, Day, Month, Year, Hour, Minute };

Field FieldOf(char conversion) {
    switch (conversion) {
    case 'd': case 'e': return Field::Day;
    case 'm': case 'b': case 'B': case 'h': return Field::Month;
    case 'Y': case 'y': case 'C': case 'G': case 'g': return Field::Year;
    case 'H': case 'I': case 'k': case 'l': return Field::Hour;
    case 'M': return Field::Minute;
    default: return Field::None;
    }
}

std::string_view TrimBlanks(std::string_view text) {
    while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) {
        text.remove_prefix(1);
    }
    while (!text.empty() && (text.back() == ' ' || text.back() == '\t')) {
        text.remove_suffix(1);
    }
    return text;
}

// The literal text that follows the field at `fieldIndex` (and any further conversion of the
// same field, as in "%C%y"), blanks trimmed: the separator the pattern puts after that field.
std::string SeparatorAfter(const std::vector<PatternPiece>& pieces, size_t fieldIndex) {
    const Field field = FieldOf(pieces[fieldIndex].conversion);
    size_t i = fieldIndex + 1;
    while (i < pieces.size() && pieces[i].conversion != 0 && FieldOf(pieces[i].conversion) == field) {
        ++i;
    }
    std::string literal;
    for (; i < pieces.size() && pieces[i].conversion == 0; ++i) {
        literal += pieces[i].literal;
    }
    return std::string(TrimBlanks(literal));
}

// A separator the control can print and read: one ASCII punctuation mark.
std::string UsableSeparator(const std::string& text, const char* fallback) {
    const auto c = text.empty() ? 0u : static_cast<unsigned char>(text[0]);
    const bool punctuation = (c >= 0x21 && c <= 0x2F) || (c >= 0x3A && c <= 0x40) || (c >= 0x5B && c <= 0x60) ||
                             (c >= 0x7B && c <= 0x7E);
    if (text.size() == 1 && punctuation) {
        return text;
    }
    return fallback;
}

bool IsUtf8CodeSet(std::string_view codeset) {
    std::string folded;
    for (char c : codeset) {
        if (c != '-' && c != '_') {
            folded.push_back(static_cast<char>(std::tolower(static_cast<unsigned char>(c))));
        }
    }
    return folded == "utf8";
}

// Text of the locale in UTF-8. `fallback` when the locale's code set cannot be converted.
std::string LocaleText(const char* text, const std::string& fallback) {
    if (text == nullptr) {
        return fallback;
    }
    const std::string_view raw(text);
    bool ascii = true;
    for (char c : raw) {
        ascii = ascii && static_cast<unsigned char>(c) < 0x80;
    }
    const char* codeset = nl_langinfo(CODESET);
    if (ascii || codeset == nullptr || IsUtf8CodeSet(codeset)) {
        return std::string(raw);
    }
    iconv_t converter = iconv_open("UTF-8", codeset);
    if (converter == reinterpret_cast<iconv_t>(-1)) {
        return fallback;
    }
    std::string input(raw);
    std::string output(input.size() * 4 + 4, '\0');
    char* in = input.data();
    size_t inLeft = input.size();
    char* out = output.data();
    size_t outLeft = output.size();
    const size_t done = iconv(converter, &in, &inLeft, &out, &outLeft);
    iconv_close(converter);
    if (done == static_cast<size_t>(-1) || inLeft != 0) {
        return fallback;
    }
    output.resize(output.size() - outLeft);
    return output;
}

// A POSIX grouping string says no grouping when it is empty or starts with 0 or CHAR_MAX.
bool Groups(const char* grouping) {
    return grouping != nullptr && grouping[0] > 0 && grouping[0] != CHAR_MAX;
}

}  // namespace

bool SystemSettings::ApplyDatePattern(const std::string& pattern) {
    const std::vector<PatternPiece> pieces = SplitPattern(pattern);
    std::vector<Field> order;
    std::optional<size_t> firstFieldIndex;
    bool longYear = false;
    for (size_t i = 0; i < pieces.size(); ++i) {
        const Field field = FieldOf(pieces[i].conversion);
        if (field != Field::Day && field != Field::Month && field != Field::Year) {
            continue;
        }
        if (field == Field::Year) {
            // %Y and %G print the whole year; %C%y prints it in two parts.
            const char c = pieces[i].conversion;
            longYear = longYear || c == 'Y' || c == 'G' || c == 'C';
        }
        bool seen = false;
        for (Field f : order) {
            seen = seen || f == field;
        }
        if (!seen) {
            order.push_back(field);
            if (!firstFieldIndex) {
                firstFieldIndex = i;
            }
        }
    }
    if (order.size() != 3) {
        return false;
    }
    if (order[0] == Field::Year) {
        dateOrder = DateOrder::YearMonthDay;
    } else if (order[0] == Field::Day) {
        dateOrder = DateOrder::DayMonthYear;
    } else {
        dateOrder = DateOrder::MonthDayYear;
    }
    dateSeparator = UsableSeparator(SeparatorAfter(pieces, *firstFieldIndex), "/");
    shortDateLongYear = longYear;
    return true;
}

bool SystemSettings::ApplyTimePattern(const std::string& pattern) {
    const std::vector<PatternPiece> pieces = SplitPattern(pattern);
    std::optional<size_t> hourIndex;
    bool minute = false;
    for (size_t i = 0; i < pieces.size(); ++i) {
        const Field field = FieldOf(pieces[i].conversion);
        if (field == Field::Hour && !hourIndex) {
            hourIndex = i;
        } else if (field == Field::Minute && hourIndex) {
            minute = true;
        }
    }
    if (!hourIndex || !minute) {
        return false;
    }
    timeSeparator = UsableSeparator(SeparatorAfter(pieces, *hourIndex), ":");
    return true;
}

SystemSettings SystemSettings::FromProcessLocale() {
    SystemSettings s = C();
    if (const lconv* conv = std::localeconv(); conv != nullptr) {
        s.decimalSeparator = LocaleText(conv->decimal_point, ".");
        if (s.decimalSeparator.empty()) {
            s.decimalSeparator = ".";
        }
        s.thousandsSeparator = Groups(conv->grouping) ? LocaleText(conv->thousands_sep, "") : "";
        if (s.thousandsSeparator == s.decimalSeparator) {
            s.thousandsSeparator.clear();  // a locale that says so cannot be read back
        }

        s.currencySymbol = LocaleText(conv->currency_symbol, "");
        if (conv->p_cs_precedes != CHAR_MAX) {
            s.currencySymbolFirst = conv->p_cs_precedes == 1;
        }
        s.currencySymbolSpaced = conv->p_sep_by_space == 1;
        if (conv->frac_digits != CHAR_MAX && conv->frac_digits >= 0) {
            s.currencyDigits = conv->frac_digits;
        }
        s.currencyNegativeParentheses = conv->n_sign_posn == 0;
        s.currencyDecimalSeparator = LocaleText(conv->mon_decimal_point, "");
        if (s.currencyDecimalSeparator.empty()) {
            s.currencyDecimalSeparator = s.decimalSeparator;
        }
        s.currencyThousandsSeparator =
            Groups(conv->mon_grouping) ? LocaleText(conv->mon_thousands_sep, "") : "";
    }
    if (const char* dateFormat = nl_langinfo(D_FMT); dateFormat != nullptr) {
        s.ApplyDatePattern(dateFormat);
    }
    if (const char* timeFormat = nl_langinfo(T_FMT); timeFormat != nullptr) {
        s.ApplyTimePattern(timeFormat);
    }
    return s;
}

namespace {

// The control runs on the host's one user-interface thread, so one plain value will do.
std::optional<SystemSettings>& CurrentStorage() {
    static std::optional<SystemSettings> current;
    return current;
}

}  // namespace

const SystemSettings& CurrentSettings() {
    std::optional<SystemSettings>& current = CurrentStorage();
    if (!current) {
        current = SystemSettings::FromProcessLocale();
    }
    return *current;
}

void SetCurrentSettings(const SystemSettings& settings) { CurrentStorage() = settings; }

ScopedSettings::ScopedSettings(const SystemSettings& settings) : previous_(CurrentSettings()) {
    SetCurrentSettings(settings);
}

ScopedSettings::~ScopedSettings() { SetCurrentSettings(previous_); }

}  // namespace TabulonLib12
