#include "platform/runtime/rounding.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>
#include <system_error>

#include "platform/runtime/error.h"

namespace TabulonLib12 {

namespace {

// The shortest decimal text that reads back as the same double, split into its significant
// digits and the power of ten of the first one: 2.675 gives "2675" and 0.
struct ShortestDecimal {
    std::string digits;
    int exponent = 0;
};

ShortestDecimal ShortestOf(double magnitude) {
    std::array<char, 64> buffer{};
    auto [end, ec] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), magnitude,
                                   std::chars_format::scientific);
    ShortestDecimal result;
    if (ec != std::errc()) {
        return result;  // cannot happen for a finite double in a 64-byte buffer
    }
    const char* p = buffer.data();
    while (p != end && *p != 'e') {
        if (*p >= '0' && *p <= '9') {
            result.digits.push_back(*p);
        }
        ++p;
    }
    if (p != end) {
        ++p;  // 'e'
        int exponent = 0;
        std::from_chars(*p == '+' ? p + 1 : p, end, exponent);
        result.exponent = exponent;
    }
    return result;
}

// Adds one to a string of decimal digits; "999" becomes "1000".
void Increment(std::string& digits) {
    for (auto it = digits.rbegin(); it != digits.rend(); ++it) {
        if (*it != '9') {
            ++*it;
            return;
        }
        *it = '0';
    }
    digits.insert(digits.begin(), '1');
}

double ParseScientific(const std::string& digits, int exponent) {
    const std::string text = digits + "e" + std::to_string(exponent);
    double value = 0.0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

}  // namespace

double RoundHalfEven(double value) {
    if (!std::isfinite(value)) {
        return value;
    }
    double whole = std::floor(value);
    // Exact whenever it can be a tie; a tiny negative value may round up to 1, which still rounds away.
    const double fraction = value - whole;
    if (fraction > 0.5 || (fraction == 0.5 && std::fmod(whole, 2.0) != 0.0)) {
        whole += 1.0;
    }
    // Keep the sign of a negative value that rounds to zero, as the hardware rounding does.
    return whole == 0.0 ? std::copysign(0.0, value) : whole;
}

double RoundHalfEven(double value, int decimals) {
    if (decimals < 0 || decimals > 15) {
        throw Error(ErrorKind::InvalidValue, 5, "Invalid procedure call or argument");
    }
    if (!std::isfinite(value) || value == 0.0) {
        return value;
    }
    // Fast path, taken by the sums of a load: away from a tie the nearest whole number of the
    // scaled value is the one the decimal text gives, and dividing it by the power of ten is
    // the double nearest to the rounded decimal. Near a tie, and for large values, the digits
    // decide below.
    static constexpr double kPowers[] = {1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7,
                                         1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    const double scaled = value * kPowers[decimals];
    if (std::fabs(scaled) < 1e9) {
        const double whole = std::nearbyint(scaled);
        if (std::fabs(std::fabs(scaled - whole) - 0.5) > 1e-6) {
            return whole == 0.0 ? std::copysign(0.0, value) : whole / kPowers[decimals];
        }
    }
    const ShortestDecimal text = ShortestOf(std::fabs(value));
    const int count = static_cast<int>(text.digits.size());
    // Digit i stands for 10^(exponent - i); the last one kept stands for 10^-decimals.
    const int keep = text.exponent + decimals + 1;
    if (keep >= count) {
        return value;  // no more decimals than asked for
    }
    if (keep < 0) {
        return std::copysign(0.0, value);  // below half of the last place kept
    }
    std::string kept = text.digits.substr(0, static_cast<size_t>(keep));
    const char first = text.digits[static_cast<size_t>(keep)];
    bool up = first > '5';
    if (first == '5') {
        const bool beyondHalf = text.digits.find_first_not_of('0', static_cast<size_t>(keep) + 1) != std::string::npos;
        const bool lastOdd = !kept.empty() && ((kept.back() - '0') % 2) == 1;
        up = beyondHalf || lastOdd;
    }
    if (up) {
        Increment(kept);
    }
    if (kept.empty()) {
        return std::copysign(0.0, value);
    }
    const double magnitude = ParseScientific(kept, -decimals);
    return std::copysign(magnitude, value);
}

namespace {

template <typename Int>
Int ToWhole(double value) {
    if (std::isnan(value)) {
        throw Error::Overflow();
    }
    const double rounded = RoundHalfEven(value);
    if (rounded < static_cast<double>(std::numeric_limits<Int>::min()) ||
        rounded > static_cast<double>(std::numeric_limits<Int>::max())) {
        throw Error::Overflow();
    }
    return static_cast<Int>(rounded);
}

}  // namespace

int16_t ToInt16(double value) { return ToWhole<int16_t>(value); }

int32_t ToInt32(double value) { return ToWhole<int32_t>(value); }

float ToSingle(double value) {
    if (std::isnan(value) || std::isinf(value)) {
        return static_cast<float>(value);
    }
    // 2^128 - 2^103: half a step beyond the largest Single, where rounding reaches infinity.
    constexpr double kInfinityFrom = 340282356779733661637539395458142568448.0;
    if (std::fabs(value) >= kInfinityFrom) {
        throw Error::Overflow();
    }
    const double largest = std::numeric_limits<float>::max();
    if (std::fabs(value) > largest) {
        return static_cast<float>(std::copysign(largest, value));
    }
    return static_cast<float>(value);
}

double SingleAsDouble(float value) {
    if (std::isnan(value) || std::isinf(value)) {
        return value;
    }
    std::array<char, 64> buffer{};
    const auto [end, ec] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
    double out = value;
    if (ec == std::errc()) {
        std::from_chars(buffer.data(), end, out);
    }
    return out;
}

}  // namespace TabulonLib12
