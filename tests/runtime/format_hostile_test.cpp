// Cell text and patterns are arbitrary bytes: Unicode, invalid UTF-8, a megabyte long. The
// format engine passes them through or formats them whole, never cuts a character, and takes
// time linear in the size.
#include <gtest/gtest.h>

#include <chrono>
#include <random>
#include <string>
#include <string_view>

#include "platform/runtime/error.h"
#include "platform/runtime/format.h"

namespace TabulonLib12 {
namespace {

constexpr size_t kMegabyte = 1 << 20;

const char* const kKeys[] = {"Nessuno", "Data", "Ora", "Valuta", "Single", "Data Breve", "Numeri_4_Dec"};

std::string Repeat(std::string_view piece, size_t totalSize) {
    std::string text;
    text.reserve(totalSize + piece.size());
    while (text.size() < totalSize) {
        text += piece;
    }
    return text;
}

// Runs `work` and checks that it took seconds at most, even under the sanitizers on a busy
// machine: what this guards against is work that grows with the square of a megabyte input,
// which takes hours, not a slow second.
template <typename F>
void ExpectQuick(F work, const std::string& what) {
    const auto start = std::chrono::steady_clock::now();
    work();
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20)) << what;
}

// Well-formed UTF-8: every lead byte followed by its continuation bytes, no overlong forms,
// no surrogates, nothing beyond U+10FFFF.
bool IsValidUtf8(std::string_view text) {
    size_t i = 0;
    while (i < text.size()) {
        const auto byte = [&](size_t k) { return static_cast<unsigned char>(text[k]); };
        const unsigned char lead = byte(i);
        size_t length = 0;
        unsigned char low = 0x80;
        unsigned char high = 0xBF;
        if (lead < 0x80) {
            ++i;
            continue;
        } else if (lead >= 0xC2 && lead <= 0xDF) {
            length = 2;
        } else if (lead >= 0xE0 && lead <= 0xEF) {
            length = 3;
            low = lead == 0xE0 ? 0xA0 : 0x80;
            high = lead == 0xED ? 0x9F : 0xBF;
        } else if (lead >= 0xF0 && lead <= 0xF4) {
            length = 4;
            low = lead == 0xF0 ? 0x90 : 0x80;
            high = lead == 0xF4 ? 0x8F : 0xBF;
        } else {
            return false;
        }
        if (text.size() - i < length || byte(i + 1) < low || byte(i + 1) > high) {
            return false;
        }
        for (size_t k = 2; k < length; ++k) {
            if (byte(i + k) < 0x80 || byte(i + k) > 0xBF) {
                return false;
            }
        }
        i += length;
    }
    return true;
}

TEST(FormatHostileInput, UnicodeTextPassesUnchanged) {
    const SystemSettings italian = SystemSettings::Italian();
    for (const char* text : {"\u00e8 perch\u00e9", "\u65e5\u672c\u8a9e", "\xf0\x9f\x98\x80 1", "\u20ac",
                             "caff\u00e8 12,5"}) {
        for (const char* key : kKeys) {
            EXPECT_EQ(FormatByKey(text, key, italian), text) << key;
        }
        EXPECT_EQ(FormatByKey(text, "Numerico", italian), "0");
    }
}

TEST(FormatHostileInput, InvalidUtf8PassesUnchanged) {
    const SystemSettings italian = SystemSettings::Italian();
    for (const std::string& text : {std::string("\xff\xfe abc"), std::string("\xe2\x82"), std::string("12\xc3"),
                                   std::string("\xed\xa0\x80"), std::string("a\0b", 3), std::string(1, '\0')}) {
        for (const char* key : kKeys) {
            EXPECT_EQ(FormatByKey(text, key, italian), text) << key;
        }
        EXPECT_EQ(FormatText(text, "\\\xe2\x82", italian), text);
    }
}

TEST(FormatHostileInput, BrokenCharactersInPatternsAreKeptAsBytes) {
    const SystemSettings us = SystemSettings::UsEnglish();
    EXPECT_EQ(FormatNumber(5, "0\xff", us), "5\xff");
    EXPECT_EQ(FormatNumber(5, "0\\\xe2\x82", us), "5\xe2\x82");  // an escape of a broken sequence: one byte
    EXPECT_EQ(FormatNumber(5, "0\\\xe2\x82\xac", us), "5\xe2\x82\xac");
    EXPECT_EQ(FormatNumber(5, std::string("0\0x", 3), us), std::string("5\0x", 3));
    EXPECT_EQ(FormatText("2024-03-05", "d\xc3", us), "5\xc3");
}

TEST(FormatHostileInput, MegabyteOfTextIsQuickAndUntouched) {
    const SystemSettings italian = SystemSettings::Italian();
    const std::vector<std::string> texts = {Repeat("\u00e8", kMegabyte), Repeat("1", kMegabyte),
                                            Repeat("9.", kMegabyte), Repeat("1/", kMegabyte),
                                            std::string(kMegabyte, ' '), Repeat("\xff", kMegabyte)};
    for (const std::string& text : texts) {
        for (const char* key : kKeys) {
            ExpectQuick([&] { EXPECT_EQ(FormatByKey(text, key, italian), text) << key; }, key);
        }
        ExpectQuick([&] { EXPECT_EQ(FormatByKey(text, "Numerico", italian), "0"); }, "Numerico");
    }
}

TEST(FormatHostileInput, MegabyteNumberIsNotNumericAndStaysText) {
    // A million digits are beyond the range of a double: not numeric, so the text stays.
    const SystemSettings us = SystemSettings::UsEnglish();
    const std::string digits(kMegabyte, '7');
    ExpectQuick([&] { EXPECT_EQ(FormatText(digits, "#,##0.00", us), digits); }, "digits");
    const std::string tiny = "0." + std::string(kMegabyte, '0') + "1";
    ExpectQuick([&] { EXPECT_EQ(FormatText(tiny, "0.00", us), "0.00"); }, "tiny");
}

TEST(FormatHostileInput, MegabytePatternsAreQuickAndLinear) {
    const SystemSettings us = SystemSettings::UsEnglish();
    ExpectQuick(
        [&] {
            const std::string out = FormatText("5", std::string(kMegabyte, '0'), us);
            EXPECT_EQ(out.size(), kMegabyte);
            EXPECT_EQ(out.back(), '5');
        },
        "zeros");
    ExpectQuick(
        [&] {
            const std::string out = FormatText("1234", Repeat("#,", kMegabyte) + "0", us);
            EXPECT_EQ(out, "1,234");
        },
        "grouping");
    ExpectQuick(
        [&] {
            const std::string out = FormatText("1", "0." + std::string(kMegabyte, '#'), us);
            EXPECT_EQ(out, "1");
        },
        "decimals");
    ExpectQuick(
        [&] {
            // Each % multiplies by 100: two more digits each.
            const std::string out = FormatText("1", "0" + std::string(kMegabyte / 4, '%'), us);
            EXPECT_EQ(out.size(), 1 + kMegabyte / 2 + kMegabyte / 4);
        },
        "percent");
    ExpectQuick(
        [&] {
            const std::string out = FormatText("1234", "0" + std::string(kMegabyte, ',') + ".0", us);
            EXPECT_EQ(out, "0.0");  // a thousand to the power of a million: zero
        },
        "dividers");
    ExpectQuick([&] { EXPECT_EQ(FormatText("5", std::string(kMegabyte, ';'), us), "5"); }, "sections");
    ExpectQuick([&] { EXPECT_EQ(FormatText("5", Repeat("0;", kMegabyte), us), "5"); }, "many sections");
    ExpectQuick(
        [&] {
            // Each escape is four bytes and gives its three-byte character.
            EXPECT_EQ(FormatText("5", Repeat("\\\u20ac", kMegabyte), us), Repeat("\u20ac", kMegabyte / 4 * 3));
        },
        "escapes");
    ExpectQuick(
        [&] {
            const std::string out = FormatText("5", "\"" + std::string(kMegabyte, 'x'), us);
            EXPECT_EQ(out, std::string(kMegabyte, 'x'));
        },
        "unclosed quote");
    ExpectQuick(
        [&] {
            const std::string out = FormatText("12345", "0.0E+" + std::string(kMegabyte, '0'), us);
            EXPECT_EQ(out.size(), 5 + kMegabyte);
        },
        "exponent digits");
}

TEST(FormatHostileInput, MegabyteDatePatternsAreQuick) {
    const SystemSettings italian = SystemSettings::Italian();
    ExpectQuick(
        [&] { EXPECT_EQ(FormatText("2024-03-05", std::string(kMegabyte, 'd'), italian), Repeat("05", kMegabyte)); },
        "days");
    ExpectQuick(
        [&] {
            const std::string out = FormatText("2024-03-05 14:30", Repeat("m ", kMegabyte), italian);
            EXPECT_EQ(out, Repeat("3 ", kMegabyte));
        },
        "months");
    ExpectQuick(
        [&] {
            const std::string pattern = "h" + std::string(kMegabyte, 'x') + "m" + std::string(kMegabyte, 'x') + "s";
            const std::string out = FormatText("2024-03-05 14:30:59", pattern, italian);
            EXPECT_EQ(out.size(), 2 + kMegabyte + 2 + kMegabyte + 2);
        },
        "long literals");
    ExpectQuick(
        [&] {
            const std::string out = FormatText("2024-03-05", Repeat("a/p", kMegabyte), italian);
            EXPECT_EQ(out, std::string(kMegabyte / 3 + 1, 'a'));  // midnight is in the morning
        },
        "half days");
}

TEST(FormatHostileInput, ValidUtf8InGivesValidUtf8Out) {
    // Random patterns of the special characters, letters and multibyte characters.
    const std::string_view pieces[] = {"0",  "#",  ".",  ",",  "%",  ";",      "E+",     "e-",     "d",
                                       "m",  "y",  "h",  "n",  "s",  "/",      ":",      "\\",     "\"",
                                       "a/p", "AM/PM", " ", "x", "\u00e8", "\u20ac", "\xf0\x9f\x98\x80", "\\\u00e8"};
    const char* const values[] = {"1234,5", "-0,005", "05/03/2024 14:30", "0", "1e300", "\u20ac 5", "abc"};
    std::mt19937 random(2024);
    std::uniform_int_distribution<size_t> piece(0, std::size(pieces) - 1);
    std::uniform_int_distribution<size_t> length(0, 12);
    std::uniform_int_distribution<size_t> value(0, std::size(values) - 1);
    const SystemSettings italian = SystemSettings::Italian();
    for (int i = 0; i < 20000; ++i) {
        std::string pattern;
        for (size_t k = length(random); k > 0; --k) {
            pattern += pieces[piece(random)];
        }
        const char* text = values[value(random)];
        const std::string out = FormatText(text, pattern, italian);
        ASSERT_TRUE(IsValidUtf8(out)) << "pattern \"" << pattern << "\" on \"" << text << "\" gave \"" << out << '"';
    }
}

}  // namespace
}  // namespace TabulonLib12
