// The number engine: number patterns and the system's currency (the language is in format.h).
#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <string>
#include <system_error>

#include "platform/runtime/conversions.h"
#include "platform/runtime/format_pattern.h"

namespace TabulonLib12::FormatDetail {

namespace {

// The digits of a magnitude as a decimal text: 0.d1d2...dn times 10^point, no leading and no
// trailing zeros, empty for zero. All arithmetic of the engine (percent, thousands divider,
// rounding, exponent form) moves the point or cuts the digits, so it is exact.
struct Digits {
    std::string digits;
    int64_t point = 0;

    bool IsZero() const { return digits.empty(); }
    int64_t Count() const { return static_cast<int64_t>(digits.size()); }
    // The digit at `index` from the first one; '0' before and after them.
    char At(int64_t index) const {
        return index >= 0 && index < Count() ? digits[static_cast<size_t>(index)] : '0';
    }
};

// The shortest decimal text that reads back as the same double.
Digits DigitsOf(double magnitude) {
    Digits result;
    if (magnitude == 0.0) {
        return result;
    }
    std::array<char, 64> buffer{};
    const auto [end, ec] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), magnitude,
                                         std::chars_format::scientific);
    if (ec != std::errc()) {
        return result;  // cannot happen for a finite double in a 64-byte buffer
    }
    const char* p = buffer.data();
    for (; p != end && *p != 'e'; ++p) {
        if (*p >= '0' && *p <= '9') {
            result.digits.push_back(*p);
        }
    }
    int exponent = 0;
    if (p != end) {
        ++p;
        std::from_chars(*p == '+' ? p + 1 : p, end, exponent);
    }
    result.point = exponent + 1;
    while (!result.digits.empty() && result.digits.back() == '0') {
        result.digits.pop_back();
    }
    return result;
}

// Rounds to `decimals` places after the point, half to even on the decimal digits: the rule of
// RoundHalfEven, without the way back through a double.
void RoundTo(Digits& number, int64_t decimals) {
    const int64_t keep = number.point + decimals;
    if (number.IsZero() || keep >= number.Count()) {
        return;
    }
    if (keep < 0) {
        number = Digits{};
        return;
    }
    const size_t cut = static_cast<size_t>(keep);
    const char first = number.digits[cut];
    bool up = first > '5';
    if (first == '5') {
        const bool beyondHalf = number.digits.find_first_not_of('0', cut + 1) != std::string::npos;
        const bool lastOdd = cut > 0 && (number.digits[cut - 1] - '0') % 2 == 1;
        up = beyondHalf || lastOdd;
    }
    number.digits.resize(cut);
    if (up) {
        auto it = number.digits.rbegin();
        for (; it != number.digits.rend() && *it == '9'; ++it) {
            *it = '0';
        }
        if (it == number.digits.rend()) {
            number.digits.insert(number.digits.begin(), '1');  // 0.999 becomes 0.1 times ten
            ++number.point;
        } else {
            ++*it;
        }
    }
    while (!number.digits.empty() && number.digits.back() == '0') {
        number.digits.pop_back();
    }
    if (number.IsZero()) {
        number = Digits{};
    }
}

struct Separators {
    std::string_view decimal;
    std::string_view thousands;
};

// Comma is a comma of the integer part while a section is read; none is left once it is read.
enum class Piece : uint8_t { Literal, IntegerDigit, FractionDigit, Point, Percent, Exponent, Comma };

struct Token {
    Piece kind = Piece::Literal;
    char placeholder = 0;  // '0' or '#' for digits; 'E' or 'e' for the exponent
    size_t offset = 0;     // literal text in NumberSection::literals
    size_t length = 0;
};

// One section of a number pattern, read once into tokens and counts.
struct NumberSection {
    std::vector<Token> tokens;
    std::string literals;
    int64_t integerPlaceholders = 0;
    int64_t integerZeros = 0;
    int64_t fractionPlaceholders = 0;
    int64_t lastFractionZero = -1;  // index of the last 0 among the decimal placeholders
    int64_t percents = 0;
    int64_t thousandsDividers = 0;
    bool grouping = false;
    bool exponentPlus = false;
    int64_t exponentDigits = 0;  // at least one when the section has an exponent

    void AddLiteral(std::string_view text) {
        if (text.empty()) {
            return;
        }
        if (!tokens.empty() && tokens.back().kind == Piece::Literal &&
            tokens.back().offset + tokens.back().length == literals.size()) {
            tokens.back().length += text.size();
        } else {
            tokens.push_back({Piece::Literal, 0, literals.size(), text.size()});
        }
        literals.append(text);
    }

    void Add(Piece kind, char placeholder = 0) { tokens.push_back({kind, placeholder, 0, 0}); }

    std::string_view LiteralOf(const Token& token) const {
        return std::string_view(literals).substr(token.offset, token.length);
    }
};

bool IsPlaceholder(char c) { return c == '0' || c == '#'; }

// Reads a section. Commas of the integer part are kept as a mark in a first pass and settled
// when all integer placeholders are known: grouping, thousands divider or literal.
NumberSection ReadSection(std::string_view text) {
    NumberSection first;
    enum class Part { Integer, Fraction, AfterExponent } part = Part::Integer;
    size_t pos = 0;
    std::string literal;
    while (pos < text.size()) {
        literal.clear();
        if (ReadQuotedOrEscaped(text, pos, literal)) {
            first.AddLiteral(literal);
            continue;
        }
        const char c = text[pos];
        if (IsPlaceholder(c) && part != Part::AfterExponent) {
            if (part == Part::Integer) {
                first.Add(Piece::IntegerDigit, c);
                ++first.integerPlaceholders;
                first.integerZeros += c == '0' ? 1 : 0;
            } else {
                first.Add(Piece::FractionDigit, c);
                if (c == '0') {
                    first.lastFractionZero = first.fractionPlaceholders;
                }
                ++first.fractionPlaceholders;
            }
            ++pos;
        } else if (c == '.' && part == Part::Integer) {
            first.Add(Piece::Point);
            part = Part::Fraction;
            ++pos;
        } else if (c == ',' && part == Part::Integer) {
            first.Add(Piece::Comma);
            ++pos;
        } else if (c == '%') {
            first.Add(Piece::Percent);
            ++first.percents;
            ++pos;
        } else if ((c == 'E' || c == 'e') && part != Part::AfterExponent && pos + 2 < text.size() &&
                   (text[pos + 1] == '+' || text[pos + 1] == '-') && IsPlaceholder(text[pos + 2])) {
            first.Add(Piece::Exponent, c);
            first.exponentPlus = text[pos + 1] == '+';
            pos += 2;
            int64_t zeros = 0;
            for (; pos < text.size() && IsPlaceholder(text[pos]); ++pos) {
                zeros += text[pos] == '0' ? 1 : 0;
            }
            first.exponentDigits = std::max<int64_t>(zeros, 1);
            part = Part::AfterExponent;
        } else {
            first.AddLiteral(text.substr(pos, 1));  // bytes of a character stay together in order
            ++pos;
        }
    }

    // Second pass: settle the commas, copy the rest.
    NumberSection section;
    section.integerPlaceholders = first.integerPlaceholders;
    section.integerZeros = first.integerZeros;
    section.fractionPlaceholders = first.fractionPlaceholders;
    section.lastFractionZero = first.lastFractionZero;
    section.percents = first.percents;
    section.exponentPlus = first.exponentPlus;
    section.exponentDigits = first.exponentDigits;
    int64_t placeholdersSeen = 0;
    bool afterPlaceholder = false;  // only placeholders and dividers since the last placeholder
    for (const Token& token : first.tokens) {
        if (token.kind == Piece::Comma) {
            if (placeholdersSeen > 0 && placeholdersSeen < section.integerPlaceholders) {
                section.grouping = true;
            } else if (placeholdersSeen > 0 && afterPlaceholder) {
                ++section.thousandsDividers;
            } else {
                section.AddLiteral(",");
                afterPlaceholder = false;
            }
            continue;
        }
        if (token.kind == Piece::Literal) {
            section.AddLiteral(first.LiteralOf(token));
            afterPlaceholder = false;
            continue;
        }
        if (token.kind == Piece::IntegerDigit) {
            ++placeholdersSeen;
            afterPlaceholder = true;
        } else {
            afterPlaceholder = false;
        }
        section.Add(token.kind, token.placeholder);
    }
    return section;
}

struct Rendered {
    std::string text;
    bool zero = false;  // every digit shown is 0
};

// A magnitude by one section.
Rendered Render(const NumberSection& section, Digits number, const Separators& separators) {
    number.point += 2 * section.percents - 3 * section.thousandsDividers;
    const int64_t decimals = section.fractionPlaceholders;
    int64_t exponent = 0;
    if (section.exponentDigits > 0) {
        // The mantissa has one integer digit per 0 placeholder, at least one.
        const int64_t width = std::max<int64_t>(section.integerZeros, 1);
        if (!number.IsZero()) {
            exponent = number.point - width;
            number.point = width;
            RoundTo(number, decimals);
            if (number.point > width) {  // 9.99 became 10.0
                number.point = width;
                ++exponent;
            }
        }
    } else {
        RoundTo(number, decimals);
    }

    // The integer part as digits, without leading zeros; empty for 0.
    std::string integer;
    if (number.point > 0) {
        const size_t whole = static_cast<size_t>(number.point);
        integer = number.digits.substr(0, std::min(whole, number.digits.size()));
        integer.append(whole - integer.size(), '0');
    }
    const int64_t length = static_cast<int64_t>(integer.size());
    // The last decimal place shown: the last 0 placeholder or the last digit other than 0.
    int64_t lastDecimal = section.lastFractionZero;
    if (!number.IsZero() && number.Count() - number.point > 0) {
        lastDecimal = std::max(lastDecimal, number.Count() - number.point - 1);
    }

    Rendered result;
    result.zero = number.IsZero();
    std::string& out = result.text;
    bool digitShown = false;
    const auto showIntegerDigit = [&](char digit, int64_t place) {
        out.push_back(digit);
        digitShown = true;
        if (section.grouping && place > 0 && place % 3 == 0) {
            out.append(separators.thousands);
        }
    };
    int64_t integerIndex = 0;
    int64_t decimalIndex = 0;
    for (const Token& token : section.tokens) {
        switch (token.kind) {
        case Piece::Literal:
            out.append(section.LiteralOf(token));
            break;
        case Piece::IntegerDigit: {
            const int64_t place = section.integerPlaceholders - 1 - integerIndex;  // from the right
            if (integerIndex == 0) {
                // Digits beyond the placeholders all show at the first one.
                for (int64_t p = length - 1; p > place; --p) {
                    showIntegerDigit(integer[static_cast<size_t>(length - 1 - p)], p);
                }
            }
            if (place < length) {
                showIntegerDigit(integer[static_cast<size_t>(length - 1 - place)], place);
            } else if (token.placeholder == '0' || digitShown) {
                showIntegerDigit('0', place);  // a digit shown further left needs this place filled
            }
            ++integerIndex;
            break;
        }
        case Piece::Point:
            if (section.integerPlaceholders == 0) {
                out.append(integer);
            }
            if (lastDecimal >= 0) {
                out.append(separators.decimal);
            }
            break;
        case Piece::FractionDigit:
            if (decimalIndex <= lastDecimal) {
                out.push_back(number.At(number.point + decimalIndex));
            }
            ++decimalIndex;
            break;
        case Piece::Percent:
            out.push_back('%');
            break;
        case Piece::Comma:
            break;  // settled when the section was read
        case Piece::Exponent: {
            out.push_back(token.placeholder);
            if (exponent < 0) {
                out.push_back('-');
            } else if (section.exponentPlus) {
                out.push_back('+');
            }
            const std::string magnitude = std::to_string(exponent < 0 ? -exponent : exponent);
            const int64_t padding = section.exponentDigits - static_cast<int64_t>(magnitude.size());
            out.append(static_cast<size_t>(std::max<int64_t>(padding, 0)), '0');
            out.append(magnitude);
            break;
        }
        }
    }
    return result;
}

// A magnitude by a section as written; an empty section shows the general text.
Rendered RenderSection(std::string_view text, double magnitude, const Separators& separators,
                       const SystemSettings& settings) {
    if (text.empty()) {
        return {NumberToText(magnitude, settings), magnitude == 0.0};
    }
    return Render(ReadSection(text), DigitsOf(magnitude), separators);
}

}  // namespace

std::string FormatNumberPattern(double value, std::string_view pattern, const SystemSettings& settings) {
    const std::vector<std::string_view> sections = SplitSections(pattern);
    const Separators separators{settings.decimalSeparator, settings.thousandsSeparator};
    const bool negative = value < 0;
    const double magnitude = std::fabs(value);
    const bool ownNegativeSection = negative && sections.size() >= 2 && !sections[1].empty();
    const Rendered shown =
        RenderSection(ownNegativeSection ? sections[1] : sections[0], magnitude, separators, settings);
    if (shown.zero) {
        // Zero as shown is zero: its own section if any, otherwise the first one, never a minus.
        if (sections.size() >= 3 && !sections[2].empty()) {
            return RenderSection(sections[2], 0.0, separators, settings).text;
        }
        if (ownNegativeSection) {
            return RenderSection(sections[0], 0.0, separators, settings).text;
        }
        return shown.text;
    }
    return negative && !ownNegativeSection ? "-" + shown.text : shown.text;
}

std::string FormatCurrency(double value, const SystemSettings& settings) {
    // One section: [symbol] integer (0, or # without leading zero) [. digits] [symbol], grouped.
    NumberSection section;
    const std::string& symbol = settings.currencySymbol;
    const std::string blank = settings.currencySymbolSpaced && !symbol.empty() ? " " : "";
    if (settings.currencySymbolFirst) {
        section.AddLiteral(symbol + blank);
    }
    const char leading = settings.currencyLeadingZero ? '0' : '#';
    section.Add(Piece::IntegerDigit, leading);
    section.integerPlaceholders = 1;
    section.integerZeros = leading == '0' ? 1 : 0;
    section.grouping = !settings.currencyThousandsSeparator.empty();
    const int digits = std::clamp(settings.currencyDigits, 0, 15);
    if (digits > 0) {
        section.Add(Piece::Point);
        for (int i = 0; i < digits; ++i) {
            section.Add(Piece::FractionDigit, '0');
        }
        section.fractionPlaceholders = digits;
        section.lastFractionZero = digits - 1;
    }
    if (!settings.currencySymbolFirst) {
        section.AddLiteral(blank + symbol);
    }
    const Separators separators{settings.currencyDecimalSeparator, settings.currencyThousandsSeparator};
    const Rendered shown = Render(section, DigitsOf(std::fabs(value)), separators);
    if (value >= 0 || shown.zero) {
        return shown.text;
    }
    return settings.currencyNegativeParentheses ? "(" + shown.text + ")" : "-" + shown.text;
}

}  // namespace TabulonLib12::FormatDetail
