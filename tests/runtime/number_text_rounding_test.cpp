// The general text of a number is the value rounded once to fifteen significant digits,
// whichever way the digits are found.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <random>
#include <string>

#include "platform/runtime/conversions.h"
#include "platform/runtime/rounding.h"
#include "platform/runtime/settings.h"

namespace TabulonLib12 {
namespace {

double FifteenDigits(double x) {
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%.14e", x);
    return std::strtod(buffer, nullptr);
}

TEST(NumberToText, ReadsBackAsTheValueRoundedToFifteenDigits) {
    const SystemSettings c = SystemSettings::C();
    std::mt19937_64 random(20261120);
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    std::uniform_int_distribution<int> scale(-12, 20);
    for (int i = 0; i < 200000; ++i) {
        double x = unit(random) * std::pow(10.0, scale(random));
        if (i % 3 == 0) x = std::round(x * 100) / 100;  // amounts with cents
        if (i % 5 == 0) x = -x;
        const std::string text = NumberToText(x, c);
        const auto back = ParseNumber(text, c);
        ASSERT_TRUE(back.has_value()) << text;
        ASSERT_EQ(*back, FifteenDigits(x)) << text << " for " << x;
    }
}

TEST(NumberToText, ValuesCloseToTheHalfwayOfTheFifteenthDigitRoundExactly) {
    // Seventeen-digit texts whose digits after the fifteenth lie around 50, and runs of nines
    // that carry into a new leading digit.
    const SystemSettings c = SystemSettings::C();
    std::mt19937_64 random(99);
    std::uniform_int_distribution<int> digit(0, 9);
    std::uniform_int_distribution<int> tail(30, 70);
    std::uniform_int_distribution<int> exponent(-20, 20);
    for (int i = 0; i < 200000; ++i) {
        std::string text;
        text += static_cast<char>('1' + digit(random) % 9);
        text += '.';
        for (int d = 1; d < 15; ++d) text += static_cast<char>(i % 11 == 0 ? '9' : '0' + digit(random));
        const int t = tail(random);
        text += static_cast<char>('0' + t / 10);
        text += static_cast<char>('0' + t % 10);
        text += "e" + std::to_string(exponent(random));
        const double x = std::strtod(text.c_str(), nullptr);
        const auto back = ParseNumber(NumberToText(x, c), c);
        ASSERT_TRUE(back.has_value());
        ASSERT_EQ(*back, FifteenDigits(x)) << text;
    }
    EXPECT_EQ(NumberToText(9.9999999999999995, c), "10");
    EXPECT_EQ(NumberToText(0.99999999999999989, c), "1");
}

TEST(NumberToText, ShortValuesKeepTheirShortText) {
    const SystemSettings c = SystemSettings::C();
    EXPECT_EQ(NumberToText(11.08, c), "11.08");
    EXPECT_EQ(NumberToText(0.1 + 0.2, c), "0.3");
    EXPECT_EQ(NumberToText(1.0 / 3.0, c), "0.333333333333333");
    EXPECT_EQ(NumberToText(2.0 / 3.0, c), "0.666666666666667");
    EXPECT_EQ(NumberToText(123456789012345.0, c), "123456789012345");
    EXPECT_EQ(NumberToText(1234567890123456.0, c), "1.23456789012346E+15");
}

}  // namespace
}  // namespace TabulonLib12

namespace TabulonLib12 {
namespace {

// The rounding decided on the shortest decimal text, digit by digit, as a reference.
double RoundByDigits(double value, int decimals) {
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%.17g", value);
    // Rebuild the shortest text that reads back as the value.
    for (int precision = 1; precision <= 17; ++precision) {
        std::snprintf(buffer, sizeof buffer, "%.*g", precision, value);
        if (std::strtod(buffer, nullptr) == value) break;
    }
    // Round the decimal text half to even at the wanted place with long double steps on the
    // text's digits: scale by an exact power of ten in text form.
    std::string text(buffer);
    const bool negative = text[0] == '-';
    if (negative) text.erase(0, 1);
    size_t e = text.find_first_of("eE");
    int exponent = 0;
    if (e != std::string::npos) {
        exponent = std::atoi(text.c_str() + e + 1);
        text.erase(e);
    }
    size_t dot = text.find('.');
    std::string digits = text;
    int pointAt = static_cast<int>(text.size());
    if (dot != std::string::npos) {
        digits.erase(dot, 1);
        pointAt = static_cast<int>(dot);
    }
    pointAt += exponent;
    // digits[i] stands for 10^(pointAt - 1 - i); keep those down to 10^-decimals.
    const int keep = pointAt + decimals;
    if (keep >= static_cast<int>(digits.size())) return value;
    if (keep < 0) return std::copysign(0.0, value);
    std::string kept = digits.substr(0, static_cast<size_t>(keep));
    const char next = digits[static_cast<size_t>(keep)];
    bool up = next > '5';
    if (next == '5') {
        const bool beyond = digits.find_first_not_of('0', static_cast<size_t>(keep) + 1) != std::string::npos;
        up = beyond || (!kept.empty() && (kept.back() - '0') % 2 == 1);
    }
    if (up) {
        int i = static_cast<int>(kept.size()) - 1;
        while (i >= 0 && kept[static_cast<size_t>(i)] == '9') kept[static_cast<size_t>(i--)] = '0';
        if (i < 0) kept.insert(kept.begin(), '1');
        else ++kept[static_cast<size_t>(i)];
    }
    if (kept.empty()) return std::copysign(0.0, value);
    const double magnitude = std::strtod((kept + "e-" + std::to_string(decimals)).c_str(), nullptr);
    return negative ? -magnitude : magnitude;
}

TEST(RoundHalfEvenDecimals, AgreesWithTheRoundingOfTheDecimalDigits) {
    std::mt19937_64 random(7);
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    std::uniform_int_distribution<int> scale(-6, 12);
    std::uniform_int_distribution<int> places(0, 6);
    for (int i = 0; i < 200000; ++i) {
        double x = unit(random) * std::pow(10.0, scale(random));
        const int d = places(random);
        if (i % 4 == 0) x = (std::round(x * 1000) + 0.5) / 1000;  // many exact ties
        if (i % 7 == 0) x = -x;
        ASSERT_EQ(RoundHalfEven(x, d), RoundByDigits(x, d)) << x << " to " << d;
    }
}

}  // namespace
}  // namespace TabulonLib12
