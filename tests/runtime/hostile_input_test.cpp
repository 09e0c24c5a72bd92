// Text from databases and users is arbitrary bytes: huge, not UTF-8, with NUL bytes inside.
// Every reader must give a clean answer quickly, never crash, hang or read out of bounds.
#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <cstddef>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "platform/runtime/conversions.h"
#include "platform/runtime/datetime.h"
#include "platform/runtime/error.h"

namespace TabulonLib12 {
namespace {

constexpr size_t kMegabyte = 1 << 20;

const SystemSettings& Italian() {
    static const SystemSettings settings = SystemSettings::Italian();
    return settings;
}

const SystemSettings& UsEnglish() {
    static const SystemSettings settings = SystemSettings::UsEnglish();
    return settings;
}

std::string Repeat(std::string_view piece, size_t totalSize) {
    std::string text;
    text.reserve(totalSize + piece.size());
    while (text.size() < totalSize) {
        text += piece;
    }
    return text;
}

// Runs `read` and checks that it took well under a second, even under the sanitizers.
template <typename F>
void ExpectQuick(F read, const std::string& what) {
    const auto start = std::chrono::steady_clock::now();
    read();
    const auto elapsed = std::chrono::steady_clock::now() - start;
    EXPECT_LT(elapsed, std::chrono::seconds(2)) << what;
}

double ValOrOverflow(std::string_view text) {
    try {
        return Val(text);
    } catch (const Error& e) {
        EXPECT_EQ(e.kind(), ErrorKind::Overflow);
        return std::nan("");
    }
}

TEST(HostileInput, MegabyteOfBlanksIsNeitherNumberNorDate) {
    const std::string blanks(kMegabyte, ' ');
    ExpectQuick([&] { EXPECT_FALSE(IsNumeric(blanks, UsEnglish())); }, "IsNumeric");
    ExpectQuick([&] { EXPECT_FALSE(ParseDate(blanks, Italian()).has_value()); }, "ParseDate");
    ExpectQuick([&] { EXPECT_EQ(Val(blanks), 0.0); }, "Val");
    ExpectQuick([&] { EXPECT_EQ(Val(blanks + "5"), 5.0); }, "Val with a digit at the end");
}

TEST(HostileInput, MegabyteOfDigitsIsATooLargeNumberAndNoDate) {
    const std::string nines(kMegabyte, '9');
    ExpectQuick([&] { EXPECT_FALSE(IsNumeric(nines, UsEnglish())); }, "IsNumeric of nines");
    ExpectQuick([&] { EXPECT_THROW(Val(nines), Error); }, "Val of nines");
    ExpectQuick([&] { EXPECT_FALSE(ParseDate(nines, Italian()).has_value()); }, "ParseDate of nines");

    const std::string zeros = std::string(kMegabyte, '0') + "7";
    ExpectQuick([&] { EXPECT_EQ(ParseNumber(zeros, UsEnglish()), 7.0); }, "ParseNumber of zeros");
    ExpectQuick([&] { EXPECT_EQ(Val(zeros), 7.0); }, "Val of zeros");

    const std::string fraction = "0." + std::string(kMegabyte, '0') + "1";
    ExpectQuick([&] { EXPECT_EQ(ParseNumber(fraction, UsEnglish()), 0.0); }, "a tiny fraction");
    ExpectQuick([&] { EXPECT_EQ(Val(fraction), 0.0); }, "Val of a tiny fraction");
}

TEST(HostileInput, MegabyteOfSeparatorsAndPatternsGivesNothing) {
    const std::vector<std::string> texts = {
        Repeat("/", kMegabyte),          Repeat("1/", kMegabyte),        Repeat("12:", kMegabyte),
        Repeat("1,", kMegabyte),         Repeat("1.", kMegabyte),        Repeat("-", kMegabyte),
        Repeat("(", kMegabyte),          Repeat("&H", kMegabyte),        Repeat("e", kMegabyte),
        Repeat("\xE2\x82\xAC", kMegabyte), "15/01/2024" + std::string(kMegabyte, ' ') + "x",
        "2024-01-15T10:30:45." + std::string(kMegabyte, '1') + "x",
    };
    for (const std::string& text : texts) {
        const std::string what = text.substr(0, 12) + "... (" + std::to_string(text.size()) + " bytes)";
        ExpectQuick([&] { EXPECT_FALSE(IsNumeric(text, Italian())) << what; }, what);
        ExpectQuick([&] { EXPECT_FALSE(IsNumeric(text, UsEnglish())) << what; }, what);
        ExpectQuick([&] { EXPECT_FALSE(ParseDate(text, Italian()).has_value()) << what; }, what);
        ExpectQuick([&] { ValOrOverflow(text); }, what);
    }
}

TEST(HostileInput, MegabyteOfGroupedDigitsOverflowsAsANumber) {
    const std::string grouped = "1" + Repeat(",000", kMegabyte);
    ExpectQuick([&] { EXPECT_FALSE(ParseNumber(grouped, UsEnglish()).has_value()); }, "grouped digits");
    ExpectQuick([&] { EXPECT_EQ(Val(grouped), 1.0); }, "Val stops at the comma");
}

TEST(HostileInput, LongFractionOfSecondsIsStillADate) {
    const std::string text = "2024-01-15T10:30:45." + std::string(kMegabyte, '5');
    ExpectQuick([&] {
        const auto date = ParseDate(text, Italian());
        ASSERT_TRUE(date.has_value());
        EXPECT_EQ(DateToText(*date, Italian()), "15/01/2024 10:30:45");
    }, "fractional seconds");
}

TEST(HostileInput, InvalidUtf8IsNoNumberAndNoDate) {
    const std::vector<std::string> texts = {
        "\xFF",           "\xFF\xFE",    "\xC3",           "1\x80",        "\x80" "1",     "\xE2\x82",
        "5 \xE2\x82",     "\xE2\x82 5",  "\xC0\xAF",       "15/01\xC0\xAF" "2024",         "\xED\xA0\x80",
        "\xF4\x90\x80\x80", "1\xFF" "2",  "&H\xFF",         "12:\xFF" "0",
    };
    for (const std::string& text : texts) {
        EXPECT_FALSE(IsNumeric(text, Italian())) << text;
        EXPECT_FALSE(IsNumeric(text, UsEnglish())) << text;
        EXPECT_FALSE(ParseDate(text, Italian()).has_value()) << text;
        EXPECT_FALSE(ParseDate(text, UsEnglish()).has_value()) << text;
    }
    EXPECT_EQ(Val("1\x80" "2"), 1.0);
    EXPECT_EQ(Val("\xFF" "12"), 0.0);
}

TEST(HostileInput, NulBytesEndNothingEarlyAndCountAsCharacters) {
    using namespace std::string_view_literals;
    EXPECT_FALSE(IsNumeric("1\0"sv, UsEnglish()));
    EXPECT_FALSE(IsNumeric("1\0" "2"sv, UsEnglish()));
    EXPECT_FALSE(IsNumeric("\0"sv, UsEnglish()));
    EXPECT_FALSE(IsNumeric("\0" "1"sv, UsEnglish()));
    EXPECT_FALSE(ParseDate("15/01/2024\0"sv, Italian()).has_value());
    EXPECT_FALSE(ParseDate("15/01\0/2024"sv, Italian()).has_value());
    EXPECT_FALSE(ParseDate("10:30\0"sv, Italian()).has_value());
    EXPECT_EQ(Val("12\0" "3"sv), 12.0);
    EXPECT_EQ(Val("\0" "12"sv), 0.0);
    // A view that stops before a NUL reads only its own characters.
    const char buffer[] = "15/01/2024 and more";
    EXPECT_TRUE(ParseDate(std::string_view(buffer, 10), Italian()).has_value());
    EXPECT_TRUE(IsNumeric(std::string_view(buffer, 2), Italian()));
    EXPECT_EQ(Val(std::string_view(buffer, 1)), 1.0);
}

TEST(HostileInput, SettingsWithEmptyOrOddSeparatorsStillParseSafely) {
    SystemSettings odd = SystemSettings::UsEnglish();
    odd.decimalSeparator = "";
    odd.thousandsSeparator = "";
    odd.currencySymbol = "";
    odd.dateSeparator = "";
    odd.timeSeparator = "";
    EXPECT_EQ(ParseNumber("12", odd), 12.0);
    EXPECT_FALSE(ParseNumber("1.5", odd).has_value());
    EXPECT_TRUE(ParseDate("1/15/2024 10:30", odd).has_value());
    EXPECT_EQ(NumberToText(1.0, odd), "1");

    SystemSettings same = SystemSettings::UsEnglish();
    same.thousandsSeparator = ".";  // the same mark as the decimal point: it is a decimal point
    EXPECT_EQ(ParseNumber("1.5", same), 1.5);
    EXPECT_FALSE(ParseNumber("1.2.3", same).has_value());

    SystemSettings words = SystemSettings::Italian();
    words.decimalSeparator = "<dec>";
    words.thousandsSeparator = "<k>";
    words.currencySymbol = "EUR";
    EXPECT_EQ(ParseNumber("1<k>234<dec>5 EUR", words), 1234.5);
    EXPECT_FALSE(ParseNumber("1<k>234<dec", words).has_value());
    EXPECT_EQ(NumberToText(0.5, words), "0<dec>5");
}

// Texts well formed and not, made by random edits of good ones: whatever the readers give must
// be consistent with itself and survive a trip through the writers.
TEST(HostileInput, RandomlyEditedTextsGiveConsistentAnswers) {
    const std::string alphabet = std::string("0123456789 \t.,-+()&HhOoEeDd$/:T") + "\xE2\x82\xAC\xFF" + '\0';
    const std::vector<std::string> seeds = {
        "15/01/2024", "1/2/30", "2024-01-15T10:30:45.5", "2024-01-15 10:30", "10:30", "23:59:59",
        "1.234,5", "-1,234.5", "(3)", "&HFF", "&O17", "1e3", "3-", "\xE2\x82\xAC 5", "$5", "-.5", "12",
    };
    std::mt19937 random(20240115u);
    std::uniform_int_distribution<size_t> editCount(0, 3);
    std::uniform_int_distribution<int> editKind(0, 2);
    std::uniform_int_distribution<size_t> pick(0, alphabet.size() - 1);
    const SystemSettings* settingsList[] = {&Italian(), &UsEnglish()};
    int numbers = 0;
    int dates = 0;
    for (int i = 0; i < 20000; ++i) {
        std::string text = seeds[static_cast<size_t>(i) % seeds.size()];
        for (size_t n = editCount(random); n > 0; --n) {
            const size_t at = std::uniform_int_distribution<size_t>(0, text.size())(random);
            const int kind = editKind(random);
            if (kind == 0) {
                text.insert(text.begin() + static_cast<std::ptrdiff_t>(at), alphabet[pick(random)]);
            } else if (at < text.size()) {
                if (kind == 1) {
                    text.erase(at, 1);
                } else {
                    text[at] = alphabet[pick(random)];
                }
            }
        }
        for (const SystemSettings* settings : settingsList) {
            const auto number = ParseNumber(text, *settings);
            ASSERT_EQ(IsNumeric(text, *settings), number.has_value()) << text;
            if (number) {
                ++numbers;
                ASSERT_TRUE(std::isfinite(*number)) << text;
                const auto again = ParseNumber(NumberToText(*number, *settings), *settings);
                ASSERT_TRUE(again.has_value()) << text;
            }
            if (const auto date = ParseDate(text, *settings)) {
                ++dates;
                const auto again = ParseDate(DateToText(*date, *settings), *settings);
                ASSERT_TRUE(again.has_value()) << text;
                ASSERT_EQ(again->serial, date->serial) << text;
            }
        }
        const double val = ValOrOverflow(text);
        ASSERT_FALSE(std::isinf(val)) << text;
    }
    // Both readers' accepting paths are reached, not only their refusals.
    EXPECT_GT(numbers, 1000);
    EXPECT_GT(dates, 1000);
}

}  // namespace
}  // namespace TabulonLib12
