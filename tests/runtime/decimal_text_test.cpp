// The general text of a number written by a database server is made from the server's own
// digits, and is always the text the number itself would give.
#include <gtest/gtest.h>

#include <charconv>
#include <cmath>
#include <cstring>
#include <random>
#include <string>

#include "platform/runtime/conversions.h"
#include "platform/runtime/settings.h"

namespace TabulonLib12 {
namespace {

// What the general text of the nearest double is.
std::string ViaDouble(const std::string& decimal, const SystemSettings& settings) {
    double value = 0.0;
    std::from_chars(decimal.data(), decimal.data() + decimal.size(), value);
    return NumberToText(value, settings);
}

std::string FromDigits(const std::string& decimal, const SystemSettings& settings) {
    std::string out = "[";
    if (!AppendDecimalAsNumberText(decimal, settings, out)) return "refused";
    return out.substr(1);
}

std::string Shortest(double value) {
    char buffer[64];
    return std::string(buffer, std::to_chars(buffer, buffer + sizeof buffer, value).ptr);
}

TEST(DecimalAsNumberText, PlainAmountsKeepTheirDigits) {
    const SystemSettings c = SystemSettings::C();
    EXPECT_EQ(FromDigits("123.45", c), "123.45");
    EXPECT_EQ(FromDigits("-0.5", c), "-0.5");
    EXPECT_EQ(FromDigits("1000", c), "1000");
    EXPECT_EQ(FromDigits("12.50", c), "12.5");
    EXPECT_EQ(FromDigits("0007.000", c), "7");
    EXPECT_EQ(FromDigits(".25", c), "0.25");
    EXPECT_EQ(FromDigits("5.", c), "5");
}

TEST(DecimalAsNumberText, TheSettingsDecimalSeparatorIsUsed) {
    EXPECT_EQ(FromDigits("1234.5", SystemSettings::Italian()), "1234,5");
    EXPECT_EQ(FromDigits("1.5e-07", SystemSettings::Italian()), "1,5E-07");
}

TEST(DecimalAsNumberText, ZeroOfEitherSignIsZero) {
    const SystemSettings c = SystemSettings::C();
    EXPECT_EQ(FromDigits("0", c), "0");
    EXPECT_EQ(FromDigits("-0", c), "0");
    EXPECT_EQ(FromDigits("0.000e+12", c), "0");
}

TEST(DecimalAsNumberText, ExponentFormOutsideThePlainRange) {
    const SystemSettings c = SystemSettings::C();
    EXPECT_EQ(FromDigits("1e+16", c), "1E+16");
    EXPECT_EQ(FromDigits("1.5e-05", c), "1.5E-05");
    EXPECT_EQ(FromDigits("0.0001", c), "0.0001");
    EXPECT_EQ(FromDigits("123456789012345", c), "123456789012345");
    EXPECT_EQ(FromDigits("1234567890123471", c), "1.23456789012347E+15");
    EXPECT_EQ(FromDigits("2.5e+300", c), "2.5E+300");
}

TEST(DecimalAsNumberText, SixteenAndSeventeenDigitsRoundToFifteen) {
    const SystemSettings c = SystemSettings::C();
    EXPECT_EQ(FromDigits("142.42857142857132", c), "142.428571428571");
    EXPECT_EQ(FromDigits("142.42857142857172", c), "142.428571428572");
    EXPECT_EQ(FromDigits("0.30000000000000004", c), "0.3");
    EXPECT_EQ(FromDigits("9.9999999999999999", c), "10");
    EXPECT_EQ(FromDigits("-99999.999999999999", c), "-100000");
}

TEST(DecimalAsNumberText, DigitsThatDoNotSettleTheRoundingAreRefused) {
    const SystemSettings c = SystemSettings::C();
    EXPECT_EQ(FromDigits("1.0000000000000050", c), "refused");  // the halfway point
    EXPECT_EQ(FromDigits("142.42857142857142", c), "refused");  // within a double's reach of it
    EXPECT_EQ(FromDigits("1.00000000000000400", c), "refused");
    EXPECT_EQ(FromDigits("1.000000000000001234", c), "refused");  // an eighteenth digit
    EXPECT_EQ(FromDigits("12345678901234567000", c), "1.23456789012346E+19");  // zeros after it count nothing
}

TEST(DecimalAsNumberText, OtherFormsAndTheEndsOfTheRangeAreRefused) {
    const SystemSettings c = SystemSettings::C();
    for (const char* text : {"", "-", ".", "NaN", "Infinity", "-Infinity", "1,5", "1.2.3", "1e", "1e+", "1x",
                             " 1", "1 ", "$1", "1e999999999999", "1.7976931348623157e+308", "2.2e-308",
                             "4.9e-324"}) {
        EXPECT_EQ(FromDigits(text, c), "refused") << text;
    }
}

TEST(DecimalAsNumberText, NothingIsAppendedWhenRefused) {
    std::string out = "kept";
    EXPECT_FALSE(AppendDecimalAsNumberText("NaN", SystemSettings::C(), out));
    EXPECT_EQ(out, "kept");
}

TEST(DecimalAsNumberText, AgreesWithTheTextOfTheNearestDoubleForShortestTexts) {
    // The form a server writes doubles in: the shortest text that reads back as the value.
    const SystemSettings settings[] = {SystemSettings::C(), SystemSettings::Italian()};
    std::mt19937_64 random(20261121);
    std::uniform_int_distribution<uint64_t> bits;
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    std::uniform_int_distribution<int> scale(-30, 30);
    int agreed = 0;
    for (int i = 0; i < 300000; ++i) {
        double x = 0.0;
        if (i % 4 == 0) {
            const uint64_t b = bits(random);
            std::memcpy(&x, &b, sizeof x);  // any double at all
            if (!std::isfinite(x)) continue;
        } else {
            x = unit(random) * std::pow(10.0, scale(random));
            if (i % 4 == 1) x = std::round(x * 100) / 100;
            if (i % 3 == 0) x = -x;
        }
        const std::string decimal = Shortest(x);
        const SystemSettings& s = settings[i % 2];
        const std::string fast = FromDigits(decimal, s);
        if (fast == "refused") continue;
        ASSERT_EQ(fast, ViaDouble(decimal, s)) << decimal;
        ++agreed;
    }
    EXPECT_GT(agreed, 200000);  // refusals are the exception
}

TEST(DecimalAsNumberText, AgreesForSeventeenDigitTextsAroundTheHalfway) {
    // Texts written with seventeen significant digits, as older servers do, and hand-made
    // tails close to the halfway point of the fifteenth digit.
    const SystemSettings c = SystemSettings::C();
    std::mt19937_64 random(7);
    std::uniform_int_distribution<int> digit(0, 9);
    std::uniform_int_distribution<int> tail(0, 99);
    std::uniform_int_distribution<int> exponent(-40, 40);
    for (int i = 0; i < 200000; ++i) {
        std::string text = i % 2 == 0 ? "-" : "";
        text += static_cast<char>('1' + digit(random) % 9);
        text += '.';
        for (int d = 1; d < 15; ++d) text += static_cast<char>(i % 13 == 0 ? '9' : '0' + digit(random));
        const int t = tail(random);
        text += static_cast<char>('0' + t / 10);
        text += static_cast<char>('0' + t % 10);
        text += "e" + std::to_string(exponent(random));
        const std::string fast = FromDigits(text, c);
        if (fast == "refused") {
            ASSERT_TRUE(t >= 38 && t <= 62) << text;
            continue;
        }
        ASSERT_EQ(fast, ViaDouble(text, c)) << text;
    }
}

}  // namespace
}  // namespace TabulonLib12
