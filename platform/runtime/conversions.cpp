#include "platform/runtime/conversions.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <system_error>

#include "platform/runtime/error.h"

namespace TabulonLib12 {

namespace {

constexpr uint64_t kMaxWord = 0xFFFF;
constexpr uint64_t kMaxLong = 0xFFFFFFFF;

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

int HexDigit(char c) {
    if (IsDigit(c)) {
        return c - '0';
    }
    if (c >= 'a' && c <= 'f') {
        return c - 'a' + 10;
    }
    if (c >= 'A' && c <= 'F') {
        return c - 'A' + 10;
    }
    return -1;
}

bool IsExponentMark(char c) { return c == 'e' || c == 'E' || c == 'd' || c == 'D'; }

// A hexadecimal or octal literal takes the narrowest signed width that holds its bits, as the
// classic literals do: &HFF is 255, &HFFFF is -1 (16 bits), &HFFFFFFFF is -1 (32 bits). The
// caller has made sure the value fits 32 bits.
double WrapRadixValue(uint64_t value) {
    if (value <= kMaxWord) {
        return static_cast<int16_t>(static_cast<uint16_t>(value));
    }
    return static_cast<int32_t>(static_cast<uint32_t>(value));
}

// Accumulates one more digit of a radix literal; false once the value no longer fits 32 bits.
bool AddRadixDigit(uint64_t& value, int radix, int digit) {
    value = value * static_cast<uint64_t>(radix) + static_cast<uint64_t>(digit);
    return value <= kMaxLong;
}

// The digits of a decimal number gathered by a reader, in the form from_chars reads:
// "123.45" plus a power of ten. The power is kept far from the limits of its type.
struct DecimalDigits {
    bool negative = false;
    std::string mantissa;  // digits, at most one '.'
    int64_t exponent = 0;
    bool exponentNegative = false;

    void AddExponentDigit(char c) {
        constexpr int64_t kCap = 1'000'000'000;  // far beyond any double; keeps the sum safe
        exponent = std::min<int64_t>(exponent * 10 + (c - '0'), kCap);
    }
};

enum class Conversion { Ok, Overflow };

// The double of gathered digits. A value beyond the range of a double is an overflow; one too
// small for it is zero.
Conversion ToDouble(const DecimalDigits& digits, double& result) {
    std::string text = digits.mantissa;
    if (text.empty() || text == ".") {
        result = 0.0;
        return Conversion::Ok;
    }
    if (text.front() == '.') {
        text.insert(text.begin(), '0');
    }
    if (text.back() == '.') {
        text.push_back('0');
    }
    text += 'e';
    if (digits.exponentNegative) {
        text += '-';
    }
    text += std::to_string(digits.exponent);
    double value = 0.0;
    const auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), value);
    (void)end;
    if (ec == std::errc::result_out_of_range) {
        // Decide between too large and too small from the place of the first significant digit.
        int64_t integerDigits = 0;
        int64_t leadingFractionZeros = 0;
        bool inFraction = false;
        bool significant = false;
        for (char c : digits.mantissa) {
            if (c == '.') {
                inFraction = true;
            } else if (c != '0' || significant) {
                significant = true;
                if (!inFraction) {
                    ++integerDigits;
                } else {
                    break;
                }
            } else if (inFraction) {
                ++leadingFractionZeros;
            }
        }
        const int64_t exponent = digits.exponentNegative ? -digits.exponent : digits.exponent;
        const int64_t magnitude = (integerDigits > 0 ? integerDigits : -leadingFractionZeros) + exponent;
        if (magnitude > 0) {
            return Conversion::Overflow;
        }
        value = 0.0;
    } else if (ec != std::errc()) {
        value = 0.0;
    }
    result = digits.negative ? -value : value;
    if (result == 0.0) {
        result = 0.0;  // no negative zero out of a text
    }
    return Conversion::Ok;
}

bool IsNumericBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

std::string_view Trim(std::string_view text) {
    while (!text.empty() && IsNumericBlank(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && IsNumericBlank(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

bool StartsWith(std::string_view text, size_t pos, const std::string& piece) {
    return !piece.empty() && text.substr(pos).substr(0, piece.size()) == piece;
}

// "&H1F" or "&O17", the whole text.
std::optional<double> ParseRadixLiteral(std::string_view text) {
    if (text.size() < 3 || text[0] != '&') {
        return std::nullopt;
    }
    const char kind = text[1];
    int radix = 0;
    if (kind == 'H' || kind == 'h') {
        radix = 16;
    } else if (kind == 'O' || kind == 'o') {
        radix = 8;
    } else {
        return std::nullopt;
    }
    uint64_t value = 0;
    for (char c : text.substr(2)) {
        const int digit = HexDigit(c);
        if (digit < 0 || digit >= radix || !AddRadixDigit(value, radix, digit)) {
            return std::nullopt;
        }
    }
    return WrapRadixValue(value);
}

std::optional<double> ParseDecimal(std::string_view text, const SystemSettings& settings) {
    bool parentheses = false;
    if (text.size() >= 2 && text.front() == '(' && text.back() == ')') {
        parentheses = true;
        text = Trim(text.substr(1, text.size() - 2));
    }
    size_t pos = 0;
    const auto skipBlanks = [&] {
        while (pos < text.size() && IsNumericBlank(text[pos])) {
            ++pos;
        }
    };
    DecimalDigits digits;
    bool signSeen = parentheses;
    bool currencySeen = false;
    const auto readSign = [&] {
        if (!signSeen && pos < text.size() && (text[pos] == '+' || text[pos] == '-')) {
            digits.negative = text[pos] == '-';
            signSeen = true;
            ++pos;
            skipBlanks();
        }
    };
    const auto readCurrency = [&] {
        if (!currencySeen && StartsWith(text, pos, settings.currencySymbol)) {
            currencySeen = true;
            pos += settings.currencySymbol.size();
            skipBlanks();
        }
    };

    // Before the digits: a sign and a currency symbol, in either order.
    readSign();
    readCurrency();
    readSign();

    // The digits, with grouping separators between digits anywhere in the whole part.
    bool anyDigit = false;
    bool decimalSeen = false;
    while (pos < text.size()) {
        const char c = text[pos];
        if (IsDigit(c)) {
            digits.mantissa.push_back(c);
            anyDigit = true;
            ++pos;
        } else if (!decimalSeen && StartsWith(text, pos, settings.decimalSeparator)) {
            digits.mantissa.push_back('.');
            decimalSeen = true;
            pos += settings.decimalSeparator.size();
        } else if (!decimalSeen && pos > 0 && IsDigit(text[pos - 1]) &&
                   StartsWith(text, pos, settings.thousandsSeparator) &&
                   pos + settings.thousandsSeparator.size() < text.size() &&
                   IsDigit(text[pos + settings.thousandsSeparator.size()])) {
            pos += settings.thousandsSeparator.size();
        } else {
            break;
        }
    }
    if (!anyDigit) {
        return std::nullopt;
    }
    if (pos < text.size() && IsExponentMark(text[pos])) {
        ++pos;
        if (pos < text.size() && (text[pos] == '+' || text[pos] == '-')) {
            digits.exponentNegative = text[pos] == '-';
            ++pos;
        }
        if (pos >= text.size() || !IsDigit(text[pos])) {
            return std::nullopt;
        }
        while (pos < text.size() && IsDigit(text[pos])) {
            digits.AddExponentDigit(text[pos]);
            ++pos;
        }
    }

    // After the digits: a currency symbol and a sign, in this order, if not given before.
    skipBlanks();
    readCurrency();
    readSign();
    if (pos != text.size()) {
        return std::nullopt;
    }
    if (parentheses) {
        digits.negative = true;
    }
    double value = 0.0;
    if (ToDouble(digits, value) == Conversion::Overflow) {
        return std::nullopt;
    }
    return value;
}

// Reads Val's text: blanks, tabs and line feeds do not count anywhere.
class ValReader {
public:
    explicit ValReader(std::string_view text) : text_(text) {}

    // The next character that counts, or nothing at the end.
    std::optional<char> Peek() {
        while (pos_ < text_.size() && (text_[pos_] == ' ' || text_[pos_] == '\t' || text_[pos_] == '\n')) {
            ++pos_;
        }
        if (pos_ == text_.size()) {
            return std::nullopt;
        }
        return text_[pos_];
    }

    void Next() { ++pos_; }

private:
    std::string_view text_;
    size_t pos_ = 0;
};

double ValRadix(ValReader& reader) {
    const auto kind = reader.Peek();
    int radix = 0;
    if (kind == 'H' || kind == 'h') {
        radix = 16;
    } else if (kind == 'O' || kind == 'o') {
        radix = 8;
    } else {
        return 0.0;
    }
    reader.Next();
    uint64_t value = 0;
    for (auto c = reader.Peek(); c; c = reader.Peek()) {
        const int digit = HexDigit(*c);
        if (digit < 0 || digit >= radix) {
            break;
        }
        if (!AddRadixDigit(value, radix, digit)) {
            throw Error::Overflow();
        }
        reader.Next();
    }
    return WrapRadixValue(value);
}

}  // namespace

std::optional<double> ParseNumber(std::string_view text, const SystemSettings& settings) {
    text = Trim(text);
    if (text.empty()) {
        return std::nullopt;
    }
    if (text.front() == '&') {
        return ParseRadixLiteral(text);
    }
    return ParseDecimal(text, settings);
}

bool IsNumeric(std::string_view text, const SystemSettings& settings) {
    return ParseNumber(text, settings).has_value();
}

double Val(std::string_view text) {
    ValReader reader(text);
    auto c = reader.Peek();
    if (c == '&') {
        reader.Next();
        return ValRadix(reader);
    }
    DecimalDigits digits;
    if (c == '+' || c == '-') {
        digits.negative = c == '-';
        reader.Next();
        c = reader.Peek();
    }
    bool anyDigit = false;
    bool decimalSeen = false;
    for (; c; c = reader.Peek()) {
        if (IsDigit(*c)) {
            anyDigit = true;
        } else if (*c == '.' && !decimalSeen) {
            decimalSeen = true;
        } else {
            break;
        }
        digits.mantissa.push_back(*c);
        reader.Next();
    }
    if (!anyDigit) {
        return 0.0;
    }
    // An exponent counts only with at least one digit: "1.5e" and "1.5ex" read 1.5.
    if (c && IsExponentMark(*c)) {
        ValReader afterMark = reader;
        afterMark.Next();
        auto e = afterMark.Peek();
        bool negative = false;
        if (e == '+' || e == '-') {
            negative = e == '-';
            afterMark.Next();
            e = afterMark.Peek();
        }
        if (e && IsDigit(*e)) {
            digits.exponentNegative = negative;
            for (; e && IsDigit(*e); e = afterMark.Peek()) {
                digits.AddExponentDigit(*e);
                afterMark.Next();
            }
        }
    }
    double value = 0.0;
    if (ToDouble(digits, value) == Conversion::Overflow) {
        throw Error::Overflow();
    }
    return value;
}

namespace {

// The significant digits of a number, at most seventeen, kept without a heap allocation: the
// general text of a number is made for every number cell of a load.
struct DigitRun {
    std::array<char, 24> d{};
    size_t n = 0;
    std::string_view view() const { return {d.data(), n}; }
};

// Splits "d.ddde+XX" into its digits and exponent.
void SplitScientific(const char* begin, const char* end, DigitRun& digits, int& exponent) {
    digits.n = 0;
    const char* p = begin;
    for (; p != end && *p != 'e'; ++p) {
        if (*p >= '0' && *p <= '9' && digits.n < digits.d.size()) digits.d[digits.n++] = *p;
    }
    exponent = 0;
    if (p == end) return;
    ++p;
    if (p != end && *p == '+') ++p;
    std::from_chars(p, end, exponent);
}

// Sixteen or seventeen digits within half a unit in the last place of a double, rounded to
// fifteen when their tail (in units of the seventeenth digit) is far enough from the halfway
// point for the double to round the same way; false, leaving them, otherwise.
bool RoundSeventeenToFifteen(DigitRun& digits, int& exponent) {
    const int tail = (digits.d[15] - '0') * 10 + (digits.n > 16 ? digits.d[16] - '0' : 0);
    if (tail >= 38 && tail <= 62) return false;
    digits.n = 15;
    if (tail > 62) {
        int i = 14;
        while (i >= 0 && digits.d[static_cast<size_t>(i)] == '9') digits.d[static_cast<size_t>(i--)] = '0';
        if (i < 0) {
            digits.d[0] = '1';  // 999...9 carried: 1000...0 with the next power of ten
            ++exponent;
        } else {
            ++digits.d[static_cast<size_t>(i)];
        }
    }
    return true;
}

// The significant digits of a positive finite value rounded to fifteen, and the power of ten of
// the first. The shortest text that reads back as the value is cheap to make. With fifteen
// digits or fewer it is that rounding (the value lies within half a unit of its last place).
// With sixteen or seventeen it lies within half a unit in the last place of the double, which
// is less than 11.1 units of the seventeenth digit, of the value: so when its digits after the
// fifteenth are below 38 or above 62 (in seventeenth-digit units) the rounding of the value goes
// the same way as theirs. Near the halfway point, and for subnormal values (whose shortest text
// carries fewer digits than they have), the value is rounded by the library.
void FifteenDigits(double magnitude, DigitRun& digits, int& exponent) {
    std::array<char, 64> buffer{};
    auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), magnitude, std::chars_format::scientific);
    SplitScientific(buffer.data(), written.ptr, digits, exponent);
    const bool normal = magnitude >= std::numeric_limits<double>::min();
    if (digits.n <= 15 && normal) return;
    if (normal && RoundSeventeenToFifteen(digits, exponent)) return;
    written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), magnitude, std::chars_format::scientific, 14);
    SplitScientific(buffer.data(), written.ptr, digits, exponent);
}

// The general text of a number from its significant digits (no trailing zeros, at most
// fifteen) and the power of ten of the first.
void AppendGeneralText(bool negative, std::string_view digits, int exponent, const SystemSettings& settings,
                       std::string& out) {
    if (negative) out += '-';
    const int count = static_cast<int>(digits.size());
    if (exponent < -4 || exponent > 14) {
        // Exponent form: "1.5E+16", "1E-05"; at least two exponent digits.
        out += digits[0];
        if (count > 1) {
            out += settings.decimalSeparator;
            out.append(digits.substr(1));
        }
        const int magnitude = exponent < 0 ? -exponent : exponent;
        out += exponent < 0 ? "E-" : "E+";
        if (magnitude < 10) out += '0';
        char buffer[8];
        out.append(buffer, std::to_chars(buffer, buffer + sizeof buffer, magnitude).ptr);
    } else if (exponent >= 0) {
        const int whole = exponent + 1;
        if (count <= whole) {
            out += digits;
            out.append(static_cast<size_t>(whole - count), '0');
        } else {
            out.append(digits.substr(0, static_cast<size_t>(whole)));
            out += settings.decimalSeparator;
            out.append(digits.substr(static_cast<size_t>(whole)));
        }
    } else {
        out += '0';
        out += settings.decimalSeparator;
        out.append(static_cast<size_t>(-exponent - 1), '0');
        out += digits;
    }
}

void DropTrailingZeros(DigitRun& run) {
    while (run.n > 1 && run.d[run.n - 1] == '0') --run.n;
}

}  // namespace

void AppendNumberText(double value, const SystemSettings& settings, std::string& out) {
    if (std::isnan(value)) {
        out += "NaN";
    } else if (std::isinf(value)) {
        out += value < 0 ? "-Infinity" : "Infinity";
    } else if (value == 0.0) {
        out += '0';
    } else {
        // Fifteen significant digits of the value, rounded once (half to even on the exact value).
        DigitRun run;
        int exponent = 0;
        FifteenDigits(std::fabs(value), run, exponent);
        DropTrailingZeros(run);
        AppendGeneralText(value < 0, run.view(), exponent, settings, out);
    }
}

std::string NumberToText(double value, const SystemSettings& settings) {
    std::string text;
    AppendNumberText(value, settings, text);
    return text;
}

bool AppendDecimalAsNumberText(std::string_view decimal, const SystemSettings& settings, std::string& out) {
    // Sign, digits with at most one point, and an optional exponent.
    size_t i = 0;
    const bool negative = i < decimal.size() && decimal[i] == '-';
    if (negative || (i < decimal.size() && decimal[i] == '+')) ++i;
    DigitRun run;
    int64_t exponent = -1;  // the power of ten of the first significant digit
    bool point = false;
    bool anyDigit = false;
    for (; i < decimal.size(); ++i) {
        const char c = decimal[i];
        if (c == '.' && !point) {
            point = true;
        } else if (IsDigit(c)) {
            anyDigit = true;
            if (run.n == 0 && c == '0') {
                if (point) --exponent;  // a leading zero after the point moves the first digit down
                continue;
            }
            if (run.n == 17) {
                // Digits beyond the seventeenth decide nothing only when they are zeros.
                if (c != '0') return false;
            } else {
                run.d[run.n++] = c;
            }
            if (!point) ++exponent;
        } else {
            break;
        }
    }
    if (!anyDigit) return false;
    if (i < decimal.size()) {
        if (decimal[i] != 'e' && decimal[i] != 'E') return false;
        ++i;
        if (i < decimal.size() && decimal[i] == '+') ++i;
        int power = 0;
        const auto [end, ec] = std::from_chars(decimal.data() + i, decimal.data() + decimal.size(), power);
        if (ec != std::errc() || end != decimal.data() + decimal.size() || end == decimal.data() + i) return false;
        exponent += power;
    }
    DropTrailingZeros(run);
    if (run.n == 0 || (run.n == 1 && run.d[0] == '0')) {
        out += '0';  // also negative zero
        return true;
    }
    // Away from the ends of the range the nearest double is normal and finite.
    if (exponent < -307 || exponent > 307) return false;
    int power = static_cast<int>(exponent);
    if (run.n > 15) {
        // The text lies within half a unit in the last place of the double it denotes, so the
        // rule of the shortest text applies to it: away from the halfway point its digits round
        // as the double's do.
        if (!RoundSeventeenToFifteen(run, power)) return false;
        DropTrailingZeros(run);
    }
    AppendGeneralText(negative, run.view(), power, settings, out);
    return true;
}

}  // namespace TabulonLib12
