#include "platform/runtime/conversions.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <optional>
#include <string>

#include "platform/runtime/error.h"

namespace TabulonLib12 {
namespace {

struct NumberCase {
    const char* text;
    std::optional<double> expected;
};

void ExpectNumbers(const SystemSettings& settings, const NumberCase* begin, const NumberCase* end) {
    for (const NumberCase* c = begin; c != end; ++c) {
        const auto parsed = ParseNumber(c->text, settings);
        EXPECT_EQ(IsNumeric(c->text, settings), c->expected.has_value()) << '"' << c->text << '"';
        if (!c->expected) {
            EXPECT_FALSE(parsed.has_value()) << '"' << c->text << "\" gave " << parsed.value_or(0.0);
            continue;
        }
        ASSERT_TRUE(parsed.has_value()) << '"' << c->text << '"';
        EXPECT_EQ(*parsed, *c->expected) << '"' << c->text << '"';
    }
}

TEST(ParseNumber, UsEnglishReadsSignsCurrencyGroupingAndExponents) {
    const NumberCase cases[] = {
        {"1", 1.0},
        {"0", 0.0},
        {"-1", -1.0},
        {"+3", 3.0},
        {"3-", -3.0},
        {"3 -", -3.0},
        {"3+", 3.0},
        {"(3)", -3.0},
        {"( 3 )", -3.0},
        {"1,234.5", 1234.5},
        {"1,234,567.25", 1234567.25},
        {"1,2,3", 123.0},  // grouping separators may stand anywhere in the whole part
        {"12,34", 1234.0},
        {"1e3", 1000.0},
        {"1E3", 1000.0},
        {"-1.5E-2", -0.015},
        {"2.5e+2", 250.0},
        {"1D2", 100.0},
        {".5", 0.5},
        {"5.", 5.0},
        {"  12  ", 12.0},
        {"\t12\r\n", 12.0},
        {"$1,234.50", 1234.5},
        {"-$5", -5.0},
        {"$-5", -5.0},
        {"$ 5", 5.0},
        {"($5)", -5.0},
        {"5$", 5.0},
        {"5 $ -", -5.0},
        {"0001", 1.0},
        {"1e-400", 0.0},  // below the smallest double: zero
        {"", std::nullopt},
        {" ", std::nullopt},
        {"abc", std::nullopt},
        {"12abc", std::nullopt},
        {"--1", std::nullopt},
        {"+-1", std::nullopt},
        {"-1-", std::nullopt},
        {"(-3)", std::nullopt},
        {"(3)-", std::nullopt},
        {"(3", std::nullopt},
        {"3)", std::nullopt},
        {"()", std::nullopt},
        {"1..2", std::nullopt},
        {"1.2.3", std::nullopt},
        {"1,", std::nullopt},
        {",1", std::nullopt},
        {"1,,2", std::nullopt},
        {"1.5,3", std::nullopt},
        {"1 2", std::nullopt},
        {"e3", std::nullopt},
        {"1e", std::nullopt},
        {"1e+", std::nullopt},
        {"1e3.5", std::nullopt},
        {".", std::nullopt},
        {"-", std::nullopt},
        {"$", std::nullopt},
        {"$$1", std::nullopt},
        {"$1$", std::nullopt},
        {"1e400", std::nullopt},  // beyond the largest double: no number
        {"0x10", std::nullopt},
        {"1,5 \xE2\x82\xAC", std::nullopt},
    };
    ExpectNumbers(SystemSettings::UsEnglish(), std::begin(cases), std::end(cases));
}

TEST(ParseNumber, ItalianReadsCommaDecimalsAndDotGrouping) {
    const NumberCase cases[] = {
        {"1.234,5", 1234.5},
        {"1,5", 1.5},
        {"1.5", 15.0},  // a dot only groups
        {"1.234.567,89", 1234567.89},
        {"-1.234,56 \xE2\x82\xAC", -1234.56},
        {"1.234,56 \xE2\x82\xAC", 1234.56},
        {"\xE2\x82\xAC 3", 3.0},
        {"-\xE2\x82\xAC 1.234,56", -1234.56},
        {"(1,5 \xE2\x82\xAC)", -1.5},
        {",5", 0.5},
        {"1,5e2", 150.0},
        {"1,234.5", std::nullopt},
        {"1..2", std::nullopt},
        {"1,,5", std::nullopt},
        {"1,5,5", std::nullopt},
        {"1.", std::nullopt},
        {"$5", std::nullopt},
        {"\xE2\x82\xAC", std::nullopt},
        {"\xE2\x82 5", std::nullopt},  // a cut euro sign
    };
    ExpectNumbers(SystemSettings::Italian(), std::begin(cases), std::end(cases));
}

TEST(ParseNumber, WithoutThousandsSeparatorNoGroupingIsRead) {
    const NumberCase cases[] = {
        {"1234.5", 1234.5}, {"1,234", std::nullopt}, {"1 234", std::nullopt}, {"-0.25", -0.25},
    };
    ExpectNumbers(SystemSettings::C(), std::begin(cases), std::end(cases));
}

TEST(ParseNumber, HexadecimalAndOctalTakeTheNarrowestSignedWidth) {
    const NumberCase cases[] = {
        {"&HFF", 255.0},
        {"&hff", 255.0},
        {"&H7FFF", 32767.0},
        {"&H8000", -32768.0},
        {"&HFFFF", -1.0},
        {"&H10000", 65536.0},
        {"&H7FFFFFFF", 2147483647.0},
        {"&H80000000", -2147483648.0},
        {"&HFFFFFFFF", -1.0},
        {"&H000000000000FF", 255.0},
        {"  &H1F  ", 31.0},
        {"&O17", 15.0},
        {"&o17", 15.0},
        {"&O177777", -1.0},
        {"&O200000", 65536.0},
        {"&O37777777777", -1.0},
        {"&H100000000", std::nullopt},
        {"&O40000000000", std::nullopt},
        {"&H", std::nullopt},
        {"&O", std::nullopt},
        {"&HG", std::nullopt},
        {"&O8", std::nullopt},
        {"& HFF", std::nullopt},
        {"&H FF", std::nullopt},
        {"-&HFF", std::nullopt},
        {"&HFF-", std::nullopt},
        {"&X12", std::nullopt},
        {"&", std::nullopt},
    };
    ExpectNumbers(SystemSettings::UsEnglish(), std::begin(cases), std::end(cases));
}

TEST(ParseNumber, NegativeZeroTextGivesPlainZero) {
    const auto value = ParseNumber("-0", SystemSettings::C());
    ASSERT_TRUE(value.has_value());
    EXPECT_EQ(*value, 0.0);
    EXPECT_FALSE(std::signbit(*value));
}

TEST(ParseNumber, ManyDigitsAreReadCorrectlyRounded) {
    EXPECT_EQ(*ParseNumber("0.1000000000000000055511151231257827", SystemSettings::C()), 0.1);
    EXPECT_EQ(*ParseNumber("123456789012345678901234567890", SystemSettings::C()), 1.2345678901234568e29);
    std::string largest = "179,769,313,486,231,570";  // the largest double, grouped, 309 digits
    for (int i = 0; i < 97; ++i) {
        largest += ",000";
    }
    EXPECT_EQ(*ParseNumber(largest, SystemSettings::UsEnglish()), std::numeric_limits<double>::max());
    EXPECT_FALSE(ParseNumber(largest + "0", SystemSettings::UsEnglish()).has_value());
    EXPECT_EQ(*ParseNumber("0.0000001e7", SystemSettings::C()), 1.0);
    EXPECT_EQ(*ParseNumber("1e-99999999999999999999", SystemSettings::C()), 0.0);
    EXPECT_FALSE(ParseNumber("1e99999999999999999999", SystemSettings::C()).has_value());
}

struct ValCase {
    const char* text;
    double expected;
};

TEST(Val, ReadsTheLeadingNumberWithAPointWhateverTheSettings) {
    const ValCase cases[] = {
        {"  12 34abc", 1234.0},
        {"1.5e2x", 150.0},
        {"&HFF", 255.0},
        {"abc", 0.0},
        {"-.5", -0.5},
        {"", 0.0},
        {"1,5", 1.0},
        {"1.2.3", 1.2},
        {"\t\n42", 42.0},
        {"- 5", -5.0},
        {"+7", 7.0},
        {"1e", 1.0},
        {"1e+", 1.0},
        {"1.5ex", 1.5},
        {"2E-1", 0.2},
        {"1d2", 100.0},
        {"1 e 2", 100.0},
        {"&O17", 15.0},
        {"&o 1 7", 15.0},
        {"&H", 0.0},
        {"&HFFFF", -1.0},
        {"&H8000", -32768.0},
        {"&H10000", 65536.0},
        {"&h1F zz", 31.0},
        {"&HFFFFFFFF", -1.0},
        {"&O8", 0.0},
        {"&X12", 0.0},
        {"12\r34", 12.0},  // a carriage return is no blank for Val
        {".", 0.0},
        {"--5", 0.0},
        {"-", 0.0},
        {"0x10", 0.0},
        {"$5", 0.0},
        {"1e-400", 0.0},
        {"00012.50", 12.5},
        {"  -  3  .  2  5  ", -3.25},
        {"7-", 7.0},
    };
    for (const ValCase& c : cases) {
        EXPECT_EQ(Val(c.text), c.expected) << '"' << c.text << '"';
    }
    {
        ScopedSettings italian(SystemSettings::Italian());
        EXPECT_EQ(Val("1,5"), 1.0);
        EXPECT_EQ(Val("1.5"), 1.5);
    }
}

TEST(Val, NeverGivesNegativeZero) {
    EXPECT_FALSE(std::signbit(Val("-0")));
    EXPECT_FALSE(std::signbit(Val("-")));
    EXPECT_FALSE(std::signbit(Val("-1e-400")));
}

TEST(Val, NumbersBeyondTheRangeOverflow) {
    for (const char* text : {"1e400", "-1e309", "&H100000000", "&HFFFFFFFFF", "&O40000000000"}) {
        try {
            Val(text);
            ADD_FAILURE() << "no overflow for \"" << text << '"';
        } catch (const Error& e) {
            EXPECT_EQ(e.kind(), ErrorKind::Overflow) << text;
            EXPECT_EQ(e.number(), 6) << text;
        }
    }
}

struct TextCase {
    double value;
    const char* expected;
};

TEST(NumberToText, WritesUpToFifteenSignificantDigitsWithoutTrailingZeros) {
    const TextCase cases[] = {
        {0.0, "0"},
        {-0.0, "0"},
        {1.0, "1"},
        {-1.5, "-1.5"},
        {0.1, "0.1"},
        {100.0, "100"},
        {1234567.125, "1234567.125"},
        {0.1 + 0.2, "0.3"},
        {1.0 / 3.0, "0.333333333333333"},
        {2.0 / 3.0, "0.666666666666667"},
        {999999999999999.0, "999999999999999"},
        {1e15, "1E+15"},
        {1e16, "1E+16"},
        {123456789012345678.0, "1.23456789012346E+17"},
        {999999999999999.9, "1E+15"},  // rounding to 15 digits reaches the next power of ten
        {0.0001, "0.0001"},
        {0.00012345, "0.00012345"},
        {0.00001, "1E-05"},
        {-0.000015, "-1.5E-05"},
        {2.5e-10, "2.5E-10"},
        {1.5e300, "1.5E+300"},
        {-1e-7, "-1E-07"},
        {5e-324, "4.94065645841247E-324"},
        {std::numeric_limits<double>::max(), "1.79769313486232E+308"},
        {123.456, "123.456"},
        {-98765.4321, "-98765.4321"},
    };
    for (const TextCase& c : cases) {
        EXPECT_EQ(NumberToText(c.value, SystemSettings::C()), c.expected) << c.value;
        EXPECT_EQ(NumberToText(c.value, SystemSettings::UsEnglish()), c.expected) << c.value;
    }
}

TEST(NumberToText, UsesTheSystemDecimalSeparatorAndNoGrouping) {
    const TextCase cases[] = {
        {0.1, "0,1"},          {1234.5, "1234,5"},     {-1234567.25, "-1234567,25"},
        {1.5e20, "1,5E+20"},   {1e20, "1E+20"},        {0.00001, "1E-05"},
        {12.0, "12"},          {1.0 / 3.0, "0,333333333333333"},
    };
    for (const TextCase& c : cases) {
        EXPECT_EQ(NumberToText(c.value, SystemSettings::Italian()), c.expected) << c.value;
    }
}

TEST(NumberToText, NotANumberAndInfinitiesHaveWordsThatAreNotNumeric) {
    const double inf = std::numeric_limits<double>::infinity();
    EXPECT_EQ(NumberToText(std::numeric_limits<double>::quiet_NaN(), SystemSettings::C()), "NaN");
    EXPECT_EQ(NumberToText(inf, SystemSettings::C()), "Infinity");
    EXPECT_EQ(NumberToText(-inf, SystemSettings::Italian()), "-Infinity");
    for (const char* word : {"NaN", "Infinity", "-Infinity"}) {
        EXPECT_FALSE(IsNumeric(word, SystemSettings::C())) << word;
        EXPECT_EQ(Val(word), 0.0) << word;
    }
}

TEST(NumberToText, TextReadsBackUnderTheSameSettings) {
    const SystemSettings all[] = {SystemSettings::C(), SystemSettings::UsEnglish(), SystemSettings::Italian()};
    const double values[] = {0.0,    1.0,     -1.0,   0.1,      1234.5,  -1234567.25, 1e16,  1e-5,  0.0001,
                             3.25e-7, 1.5e300, 9.99e14, 12345678.9, -0.5,  42.0,        1e15,  123456789012345.0};
    for (const SystemSettings& settings : all) {
        for (double value : values) {
            const std::string text = NumberToText(value, settings);
            const auto back = ParseNumber(text, settings);
            ASSERT_TRUE(back.has_value()) << text;
            EXPECT_EQ(*back, value) << text;
        }
    }
}

}  // namespace
}  // namespace TabulonLib12
