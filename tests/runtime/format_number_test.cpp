// The number pattern language: placeholders, separators, literals, sections, percent, exponent
// form, the named number formats and currency, rounding and very large values.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "platform/runtime/error.h"
#include "platform/runtime/format.h"
#include "platform/runtime/rounding.h"

namespace TabulonLib12 {
namespace {

struct NumberCase {
    double value;
    const char* pattern;
    const char* expected;
};

void ExpectNumbers(const SystemSettings& settings, const std::vector<NumberCase>& cases) {
    for (const NumberCase& c : cases) {
        EXPECT_EQ(FormatNumber(c.value, c.pattern, settings), c.expected)
            << c.value << " with \"" << c.pattern << '"';
    }
}

TEST(NumberPattern, DigitPlaceholders) {
    ExpectNumbers(SystemSettings::UsEnglish(), {
                                                   {5, "0", "5"},
                                                   {42, "00000", "00042"},
                                                   {1234, "0", "1234"},  // more digits than places
                                                   {1234, "#", "1234"},
                                                   {0, "#", ""},
                                                   {0, "0", "0"},
                                                   {5, "0##", "005"},  // a shown 0 keeps the places after it
                                                   {5, "##0", "5"},
                                                   {0.5, "#.##", ".5"},
                                                   {0.5, "0.##", "0.5"},
                                                   {1, "0.##", "1"},  // no separator without a decimal
                                                   {1.5, "0.##", "1.5"},
                                                   {1.256, "0.##", "1.26"},
                                                   {1.5, "0.00", "1.50"},
                                                   {1.5, "0.0#", "1.5"},
                                                   {1.5, ".00", "1.50"},  // the integer part still shows
                                                   {0.5, ".00", ".50"},
                                                   {7, "0.", "7"},
                                                   {0.001, "0.000", "0.001"},
                                                   {0.001, "0.00", "0.00"},
                                               });
}

TEST(NumberPattern, DecimalSeparatorIsTheSystemOne) {
    ExpectNumbers(SystemSettings::Italian(), {
                                                 {1.5, "0.00", "1,50"},
                                                 {1.25, "0.0.0", "1,2.5"},  // only the first "." is the separator
                                                 {0.5, "#.##", ",5"},
                                             });
}

TEST(NumberPattern, GroupingByThreeWithTheSystemSeparator) {
    ExpectNumbers(SystemSettings::UsEnglish(), {
                                                   {1234567, "#,##0", "1,234,567"},
                                                   {1234567, "#,#", "1,234,567"},
                                                   {123, "#,##0", "123"},
                                                   {1234.5, "#,##0.00", "1,234.50"},
                                                   {1234567.891, "#,####0.0000", "1,234,567.8910"},
                                                   {5, "0,000", "0,005"},
                                                   {-1234567, "#,##0", "-1,234,567"},
                                               });
    ExpectNumbers(SystemSettings::Italian(), {
                                                 {1234567.891, "#,####0.0000", "1.234.567,8910"},
                                                 {1234.5, "#,##0.00", "1.234,50"},
                                             });
    ExpectNumbers(SystemSettings::C(), {
                                           {1234567.891, "#,####0.0000", "1234567.8910"},  // no separator
                                       });
}

TEST(NumberPattern, CommasAfterTheLastPlaceholderDivideByAThousand) {
    ExpectNumbers(SystemSettings::UsEnglish(), {
                                                   {1234567, "#,##0,", "1,235"},
                                                   {1234567890, "0,,", "1235"},
                                                   {1234567890, "#,##0,,.0", "1,234.6"},
                                                   {1500000, "0,,.0", "1.5"},
                                                   {5, ",0", ",5"},       // before any placeholder: literal
                                                   {5, "0.0,", "5.0,"},   // among the decimals: literal
                                                   {5, "0 ,", "5 ,"},     // not right after a placeholder
                                               });
}

TEST(NumberPattern, LiteralText) {
    ExpectNumbers(SystemSettings::UsEnglish(), {
                                                   {5, "\\$0.00", "$5.00"},
                                                   {5, "$0.00", "$5.00"},
                                                   {5, "\"Tot: \"0", "Tot: 5"},
                                                   {5, "0 kg", "5 kg"},
                                                   {5, "+0", "+5"},
                                                   {-5, "(0)", "-(5)"},
                                                   {5551234567, "(000) 000-0000", "(555) 123-4567"},
                                                   {5, "\\0\\#0", "0#5"},
                                                   {5, "\"0.#,%\"0", "0.#,%5"},
                                                   {5, "0\"abc", "5abc"},   // an unclosed quote runs to the end
                                                   {5, "0\\", "5\\"},       // a final backslash shows itself
                                                   {5, "\\Y\\e\\s", "Yes"}, // no placeholder: the text alone
                                                   {5, "0 \u20ac", "5 \u20ac"},
                                                   {5, "0\\\u20ac", "5\u20ac"},  // one escape, the whole character
                                                   {5, "0 days", "5 days"},
                                               });
}

TEST(NumberPattern, PercentMultipliesByAHundredOnTheDecimalText) {
    ExpectNumbers(SystemSettings::UsEnglish(), {
                                                   {0.256, "0%", "26%"},
                                                   {0.5, "0.00%", "50.00%"},
                                                   {0.12345, "0.00%", "12.34%"},  // a tie, to the even digit
                                                   {0.07, "0%", "7%"},
                                                   {0.0001, "0%%", "1%%"},
                                                   {0.5, "%0", "%50"},
                                                   {-0.5, "0%", "-50%"},
                                               });
}

TEST(NumberPattern, ExponentForm) {
    ExpectNumbers(SystemSettings::UsEnglish(), {
                                                   {1234.5, "0.00E+00", "1.23E+03"},
                                                   {0.00012, "0.00E+00", "1.20E-04"},
                                                   {1234.5, "0.00E-00", "1.23E03"},
                                                   {0.00012, "0.00E-00", "1.20E-04"},
                                                   {0, "0.00e+0", "0.00e+0"},
                                                   {9.999, "0.00E+00", "1.00E+01"},  // the carry moves the exponent
                                                   {1234.5, "00.0E+0", "12.3E+2"},
                                                   {1234.5, "#0.0E+0", "1.2E+3"},
                                                   {-1234.5, "0.00E+00", "-1.23E+03"},
                                                   {1e300, "0.00E+00", "1.00E+300"},
                                                   {1e-300, "0.00E+00", "1.00E-300"},
                                                   {5, "0E+", "5E+"},   // no exponent digits: literal text
                                                   {5, "0E5", "5E5"},
                                                   {1234.5, "0.0E+00 \"m\"", "1.2E+03 m"},
                                               });
}

TEST(NumberPattern, OneSectionPutsTheMinusInFront) {
    ExpectNumbers(SystemSettings::UsEnglish(), {
                                                   {-5, "0.00", "-5.00"},
                                                   {-5, "$0", "-$5"},
                                                   {-1234.5, "#,##0.00", "-1,234.50"},
                                               });
}

TEST(NumberPattern, SectionsForNegativeAndZero) {
    ExpectNumbers(SystemSettings::UsEnglish(), {
                                                   {5, "0.00;(0.00)", "5.00"},
                                                   {-5, "0.00;(0.00)", "(5.00)"},
                                                   {0, "0.00;(0.00)", "0.00"},
                                                   {0, "0;-0;\\Z\\e\\r\\o", "Zero"},
                                                   {0.4, "0;-0;\\Z\\e\\r\\o", "Zero"},  // shows as zero
                                                   {-0.4, "0;-0;\\Z\\e\\r\\o", "Zero"},
                                                   {-5, "0;", "-5"},  // empty negative section: the first one
                                                   {-5, "0;;\\Z", "-5"},
                                                   {0, "0;;\\Z", "Z"},
                                                   {0, "0.0;(0);", "0.0"},  // empty zero section: the first one
                                                   {5, ";(0)", "5"},        // empty first section: general text
                                                   {-5, ";(0)", "(5)"},
                                                   {-2.5, ";", "-2.5"},
                                                   {5, "0;(0);z;\\n\\u\\l\\l", "5"},  // a fourth section is not used
                                                   {5, "\"a;b\"0;(0)", "a;b5"},        // ";" in quotes is text
                                                   {-5, "0\\;0;(0)", "(5)"},
                                               });
}

TEST(NumberPattern, NegativeZeroAfterRoundingShowsNoMinus) {
    ExpectNumbers(SystemSettings::UsEnglish(), {
                                                   {-0.001, "0.00", "0.00"},
                                                   {-0.001, "0.00;(0.00)", "0.00"},
                                                   {-0.4, "0", "0"},
                                                   {-0.5, "0", "0"},
                                                   {-0.0, "0.0", "0.0"},
                                                   {-0.004, "0%", "0%"},
                                                   {-1e-300, "#,##0.00", "0.00"},
                                               });
}

TEST(NumberPattern, RoundingIsHalfToEvenOnTheDecimalText) {
    ExpectNumbers(SystemSettings::UsEnglish(), {
                                                   {0.125, "0.00", "0.12"},
                                                   {0.135, "0.00", "0.14"},
                                                   {2.5, "0", "2"},
                                                   {3.5, "0", "4"},
                                                   {0.5, "0", "0"},
                                                   {1.5, "0", "2"},
                                                   {-2.5, "0", "-2"},
                                                   {-3.5, "0", "-4"},
                                                   {2.675, "0.00", "2.68"},  // decided on "2.675", not on binary
                                                   {1.005, "0.00", "1.00"},
                                                   {0.05, "0.0", "0.0"},
                                                   {0.15, "0.0", "0.2"},
                                                   {0.25, "0.0", "0.2"},
                                                   {0.2501, "0.0", "0.3"},  // beyond the half: up
                                                   {9.995, "0.00", "10.00"},
                                                   {999.5, "#,##0", "1,000"},
                                                   {999999.5, "#,##0", "1,000,000"},
                                                   {0.0005, "0.000", "0.000"},
                                                   {0.0015, "0.000", "0.002"},
                                               });
}

TEST(NumberPattern, RoundingAgreesWithRoundHalfEven) {
    // Formatting a value and formatting it rounded beforehand by RoundHalfEven give one text.
    std::mt19937_64 random(12345);
    std::uniform_int_distribution<int64_t> mantissa(-2'000'000'000, 2'000'000'000);
    std::uniform_int_distribution<int> scale(0, 9);
    std::uniform_int_distribution<int> decimals(0, 8);
    const SystemSettings us = SystemSettings::UsEnglish();
    for (int i = 0; i < 20000; ++i) {
        const int s = scale(random);
        // Values with a 5 in the place after the last kept one are frequent: ties are tested.
        const double value = static_cast<double>(mantissa(random) * 10 + (i % 2 == 0 ? 5 : 3)) / std::pow(10.0, s);
        const int d = decimals(random);
        const std::string pattern = d == 0 ? "0" : "0." + std::string(static_cast<size_t>(d), '0');
        ASSERT_EQ(FormatNumber(value, pattern, us), FormatNumber(RoundHalfEven(value, d), pattern, us))
            << value << " with " << d << " decimals";
    }
}

TEST(NumberPattern, MoreThanFifteenDecimalsShowTheDecimalText) {
    const SystemSettings us = SystemSettings::UsEnglish();
    EXPECT_EQ(FormatNumber(0.1, "0.00000000000000000000", us), "0.10000000000000000000");
    EXPECT_EQ(FormatNumber(0.1 + 0.2, "0.00000000000000000000", us), "0.30000000000000004000");
    EXPECT_EQ(FormatNumber(1.234567890123e-10, "0.0000000000000000000", us), "0.0000000001234567890");
    EXPECT_EQ(FormatNumber(1.234567890123e-10, "0.####################", us), "0.00000000012345678901");
    EXPECT_EQ(FormatNumber(1.234567890123e-10, "0.#########################", us),
              "0.0000000001234567890123");
    EXPECT_EQ(FormatNumber(0.0000000000000000125, "0.000000000000000000", us), "0.000000000000000012");
}

TEST(NumberPattern, VeryLargeValuesShowAllTheirDigits) {
    const SystemSettings us = SystemSettings::UsEnglish();
    EXPECT_EQ(FormatNumber(1e300, "0", us), "1" + std::string(300, '0'));
    EXPECT_EQ(FormatNumber(-1e300, "0.00", us), "-1" + std::string(300, '0') + ".00");
    const std::string grouped = FormatNumber(1e300, "#,##0", us);
    EXPECT_EQ(grouped.size(), 301u + 100u);
    EXPECT_EQ(grouped.substr(0, 8), "1,000,00");
    const double largest = std::numeric_limits<double>::max();
    EXPECT_EQ(FormatNumber(largest, "0", us), "17976931348623157" + std::string(292, '0'));
    EXPECT_EQ(FormatNumber(largest, "0.00E+00", us), "1.80E+308");
    EXPECT_EQ(FormatNumber(largest, "Currency", us).size(), 1u + 309u + 102u + 3u);
    EXPECT_EQ(FormatNumber(1e300, "0%", us), "1" + std::string(302, '0') + "%");
    EXPECT_EQ(FormatNumber(std::numeric_limits<double>::denorm_min(), "0.00", us), "0.00");
    // The shortest text of the smallest double is 5e-324.
    EXPECT_EQ(FormatNumber(std::numeric_limits<double>::denorm_min(), "0.0E+000", us), "5.0E-324");
}

TEST(NumberPattern, NotANumberAndInfinitiesShowTheirGeneralText) {
    const SystemSettings us = SystemSettings::UsEnglish();
    for (const char* pattern : {"0.00", "Currency", "dd/mm/yyyy", ""}) {
        EXPECT_EQ(FormatNumber(std::nan(""), pattern, us), "NaN") << pattern;
        EXPECT_EQ(FormatNumber(std::numeric_limits<double>::infinity(), pattern, us), "Infinity") << pattern;
        EXPECT_EQ(FormatNumber(-std::numeric_limits<double>::infinity(), pattern, us), "-Infinity") << pattern;
    }
}

TEST(NumberPattern, EmptyPatternGivesTheGeneralText) {
    EXPECT_EQ(FormatNumber(1234.5, "", SystemSettings::Italian()), "1234,5");
    EXPECT_EQ(FormatNumber(1e20, "", SystemSettings::UsEnglish()), "1E+20");
}

TEST(NumberPattern, DatePatternTakesTheNumberAsADaySerial) {
    const SystemSettings italian = SystemSettings::Italian();
    EXPECT_EQ(FormatNumber(45356.75, "dd/mm/yyyy hh:nn", italian), "05/03/2024 18:00");
    EXPECT_THROW(FormatNumber(1e10, "dd/mm/yyyy", italian), Error);
    try {
        FormatNumber(-1e10, "hh:nn", italian);
        FAIL() << "no error";
    } catch (const Error& e) {
        EXPECT_EQ(e.kind(), ErrorKind::Overflow);
    }
}

TEST(NamedNumberFormat, StandardFixedPercentScientificGeneral) {
    ExpectNumbers(SystemSettings::UsEnglish(), {
                                                   {1234.5, "Standard", "1,234.50"},
                                                   {1234.5, "standard", "1,234.50"},
                                                   {-0.125, "Standard", "-0.12"},
                                                   {1234.5, "Fixed", "1234.50"},
                                                   {0.5, "Percent", "50.00%"},
                                                   {1234.5, "Scientific", "1.23E+03"},
                                                   {1234.5, "General Number", "1234.5"},
                                                   {1e16, "general number", "1E+16"},
                                               });
    ExpectNumbers(SystemSettings::Italian(), {
                                                 {1234.5, "Standard", "1.234,50"},
                                                 {1234.5, "Fixed", "1234,50"},
                                                 {1234.5, "General Number", "1234,5"},
                                             });
}

TEST(Currency, SymbolPlaceSpacingAndSeparatorsFollowTheSettings) {
    ExpectNumbers(SystemSettings::UsEnglish(), {
                                                   {1234.5, "Currency", "$1,234.50"},
                                                   {-1234.5, "Currency", "-$1,234.50"},
                                                   {0, "Currency", "$0.00"},
                                                   {0.5, "currency", "$0.50"},
                                                   {1234567.125, "Currency", "$1,234,567.12"},
                                               });
    ExpectNumbers(SystemSettings::Italian(), {
                                                 {1234.5, "Currency", "1.234,50 \u20ac"},
                                                 {-1234.5, "Currency", "-1.234,50 \u20ac"},
                                             });
    ExpectNumbers(SystemSettings::C(), {
                                           {1234.5, "Currency", "1234.50"},
                                           {-1234.5, "Currency", "-1234.50"},
                                       });

    SystemSettings spaced = SystemSettings::UsEnglish();
    spaced.currencySymbolSpaced = true;
    EXPECT_EQ(FormatNumber(1234.5, "Currency", spaced), "$ 1,234.50");
    SystemSettings after = SystemSettings::UsEnglish();
    after.currencySymbolFirst = false;
    after.currencySymbol = "USD";
    EXPECT_EQ(FormatNumber(-1234.5, "Currency", after), "-1,234.50USD");

    // The currency has its own separators, apart from those of plain numbers.
    SystemSettings mixed = SystemSettings::UsEnglish();
    mixed.currencyDecimalSeparator = ",";
    mixed.currencyThousandsSeparator = "'";
    EXPECT_EQ(FormatNumber(1234.5, "Currency", mixed), "$1'234,50");
    EXPECT_EQ(FormatNumber(1234.5, "#,##0.00", mixed), "1,234.50");
}

TEST(Currency, DigitsAndLeadingZeroFollowTheSettings) {
    SystemSettings us = SystemSettings::UsEnglish();
    us.currencyDigits = 0;
    EXPECT_EQ(FormatNumber(1234.5, "Currency", us), "$1,234");  // a tie, to the even digit
    EXPECT_EQ(FormatNumber(1235.5, "Currency", us), "$1,236");
    us.currencyDigits = 3;
    EXPECT_EQ(FormatNumber(1234.5, "Currency", us), "$1,234.500");
    us.currencyDigits = 2;
    us.currencyLeadingZero = false;
    EXPECT_EQ(FormatNumber(0.5, "Currency", us), "$.50");
    EXPECT_EQ(FormatNumber(-0.5, "Currency", us), "-$.50");
    EXPECT_EQ(FormatNumber(1.5, "Currency", us), "$1.50");
    us.currencyDigits = -4;  // an impossible setting reads as no digits
    EXPECT_EQ(FormatNumber(2.5, "Currency", us), "$2");
    us.currencyDigits = 1000;  // and a huge one as fifteen
    EXPECT_EQ(FormatNumber(2.5, "Currency", us), "$2.500000000000000");
}

TEST(Currency, NegativeFormWithParentheses) {
    SystemSettings italian = SystemSettings::Italian();
    italian.currencyNegativeParentheses = true;
    EXPECT_EQ(FormatNumber(-1234.5, "Currency", italian), "(1.234,50 \u20ac)");
    EXPECT_EQ(FormatNumber(1234.5, "Currency", italian), "1.234,50 \u20ac");
    EXPECT_EQ(FormatNumber(-0.004, "Currency", italian), "0,00 \u20ac");
    SystemSettings us = SystemSettings::UsEnglish();
    us.currencyNegativeParentheses = true;
    EXPECT_EQ(FormatNumber(-1234.5, "Currency", us), "($1,234.50)");
    SystemSettings c = SystemSettings::C();
    c.currencyNegativeParentheses = true;
    EXPECT_EQ(FormatNumber(-1234.5, "Currency", c), "(1234.50)");
}

}  // namespace
}  // namespace TabulonLib12
