// The format keys of a column and the classic Format on the text of a cell.
#include "platform/runtime/format.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/runtime/conversions.h"

namespace TabulonLib12 {
namespace {

const char* const kKeys[] = {"",     "Nessuno",    "Data",         "Ora",      "Valuta", "Single",
                             "Data Breve", "Numeri_4_Dec", "Numerico", "Altro",  "data"};

struct KeyCase {
    const char* value;
    const char* key;
    const char* expected;
};

void ExpectKeys(const SystemSettings& settings, const std::vector<KeyCase>& cases) {
    for (const KeyCase& c : cases) {
        EXPECT_EQ(FormatByKey(c.value, c.key, settings), c.expected)
            << "value \"" << c.value << "\", key \"" << c.key << '"';
    }
}

TEST(FormatByKey, EmptyValueIsEmptyUnderEveryKeyAndSettings) {
    for (const SystemSettings& settings :
         {SystemSettings::Italian(), SystemSettings::UsEnglish(), SystemSettings::C()}) {
        for (const char* key : kKeys) {
            EXPECT_EQ(FormatByKey("", key, settings), "") << key;
        }
    }
}

TEST(FormatByKey, UnknownOrEmptyKeyLeavesTheCellBlank) {
    for (const SystemSettings& settings :
         {SystemSettings::Italian(), SystemSettings::UsEnglish(), SystemSettings::C()}) {
        for (const char* key : {"", "Altro", "data", "nessuno", "Data ", "Valuta\n", "Numerico2"}) {
            EXPECT_EQ(FormatByKey("12", key, settings), "") << '"' << key << '"';
            EXPECT_EQ(FormatByKey("abc", key, settings), "") << '"' << key << '"';
        }
    }
}

TEST(FormatByKey, TextThatIsNeitherNumberNorDatePassesExceptUnderNumerico) {
    for (const SystemSettings& settings :
         {SystemSettings::Italian(), SystemSettings::UsEnglish(), SystemSettings::C()}) {
        for (const char* key : {"Nessuno", "Data", "Ora", "Valuta", "Single", "Data Breve", "Numeri_4_Dec"}) {
            EXPECT_EQ(FormatByKey("abc", key, settings), "abc") << key;
        }
        EXPECT_EQ(FormatByKey("abc", "Numerico", settings), "0");
    }
}

TEST(FormatByKey, ItalianSettings) {
    const SystemSettings italian = SystemSettings::Italian();
    ExpectKeys(italian, {
                            {"1234,5", "Nessuno", "1234,5"},
                            {"1234,5", "Data", "18/05/1903"},  // a number is a day serial
                            {"1234,5", "Ora", "12:00"},
                            {"1234,5", "Valuta", "1.234,50 \u20ac"},
                            {"1234,5", "Single", "1.234,50"},
                            {"1234,5", "Data Breve", "18/05/03"},
                            {"1234,5", "Numeri_4_Dec", "1.234,5000"},
                            {"1234,5", "Numerico", "1234,5"},
                            {"-1.234,567", "Valuta", "-1.234,57 \u20ac"},
                            {"-1.234,567", "Single", "-1.234,57"},
                            {"-1.234,567", "Numeri_4_Dec", "-1.234,5670"},
                            {"-1.234,567", "Numerico", "-1234,567"},
                            {"1234567,891", "Numeri_4_Dec", "1.234.567,8910"},
                            {"05/03/2024", "Data", "05/03/2024"},
                            {"05/03/2024", "Data Breve", "05/03/24"},
                            {"05/03/2024", "Ora", "00:00"},
                            {"05/03/2024", "Valuta", "05/03/2024"},
                            {"05/03/2024", "Single", "05/03/2024"},
                            {"05/03/2024", "Numerico", "0"},
                            {"2024-03-05", "Data", "05/03/2024"},
                            {"2024-03-05", "Data Breve", "05/03/24"},
                            {"2024-03-05", "Valuta", "2024-03-05"},
                            {"2024-03-05", "Data", "05/03/2024"},
                       {"2024-03-05", "Ora", "00:00"},
                       {"2024-03-05 14:30:00", "Data", "05/03/2024"},
                            {"2024-03-05 14:30:00", "Ora", "14:30"},
                            {"2024-03-05", "Data", "05/03/2024"},
                      {"2024-03-05", "Numeri_4_Dec", "2024-03-05"},
                      {"2024-03-05 14:30:00", "Data Breve", "05/03/24"},
                            {"2024-03-05 14:30:00", "Nessuno", "2024-03-05 14:30:00"},
                            {"2024-03-05 14:30:00", "Numeri_4_Dec", "2024-03-05 14:30:00"},
                            {"1.5.2024", "Data", "01/05/2024"},
                            {"1.5.2024", "Valuta", "1.5.2024"},  // a date, not a number with odd grouping
                            {"31/02/2024", "Data", "31/02/2024"},
                            {"31/02/2024", "Data Breve", "31/02/2024"},
                            {"14:30:59", "Ora", "14:30"},
                            {"0", "Valuta", "0,00 \u20ac"},
                            {"0", "Numerico", "0"},
                        });
}

TEST(FormatByKey, UsEnglishSettings) {
    const SystemSettings us = SystemSettings::UsEnglish();
    ExpectKeys(us, {
                       {"1,234.5", "Nessuno", "1,234.5"},
                       {"1,234.5", "Data", "18/05/1903"},
                       {"1,234.5", "Ora", "12:00"},
                       {"1,234.5", "Valuta", "$1,234.50"},
                       {"1,234.5", "Single", "1,234.50"},
                       {"1,234.5", "Data Breve", "18/05/03"},
                       {"1,234.5", "Numeri_4_Dec", "1,234.5000"},
                       {"1,234.5", "Numerico", "1234.5"},
                       {"-1234.567", "Valuta", "-$1,234.57"},
                       {"(1234.567)", "Single", "-1,234.57"},
                       {"1234567.891", "Numeri_4_Dec", "1,234,567.8910"},
                       {"03/05/2024", "Data", "05/03/2024"},  // month first in this order
                       {"03/05/2024", "Data Breve", "05/03/24"},
                       {"03/05/2024", "Valuta", "03/05/2024"},
                       {"2024-03-05 14:30:00", "Data", "05/03/2024"},
                       {"2024-03-05 14:30:00", "Ora", "14:30"},
                       {"02/31/2024", "Data", "02/31/2024"},
                       {"14:30:59", "Ora", "14:30"},
                       {"$5", "Valuta", "$5.00"},
                       {"0.125", "Single", "0.12"},
                       {"0.135", "Single", "0.14"},
                   });
}

TEST(FormatByKey, PosixSettings) {
    const SystemSettings c = SystemSettings::C();
    ExpectKeys(c, {
                      {"1234.5", "Nessuno", "1234.5"},
                      {"1234.5", "Data", "18/05/1903"},
                      {"1234.5", "Ora", "12:00"},
                      {"1234.5", "Valuta", "1234.50"},  // no symbol, no grouping
                      {"-1234.5", "Valuta", "-1234.50"},
                      {"1234.5", "Single", "1234.50"},
                      {"1234.5", "Data Breve", "18/05/03"},
                      {"1234567.891", "Numeri_4_Dec", "1234567.8910"},
                      {"1234.5", "Numerico", "1234.5"},
                      {"1,234.5", "Numerico", "0"},  // no grouping in this locale: not numeric
                      {"03/05/24", "Data", "05/03/2024"},
                      {"2024-03-05 14:30:00", "Data Breve", "05/03/24"},
                      {"2024-03-05 14:30:00", "Ora", "14:30"},
                      {"02/31/2024", "Data", "02/31/2024"},
                  });
}

TEST(FormatByKey, NumericoGivesTheGeneralTextOfTheNumber) {
    const SystemSettings italian = SystemSettings::Italian();
    EXPECT_EQ(FormatByKey("  7 ", "Numerico", italian), "7");
    EXPECT_EQ(FormatByKey("1e20", "Numerico", italian), "1E+20");
    EXPECT_EQ(FormatByKey("&HFF", "Numerico", italian), "255");
    EXPECT_EQ(FormatByKey("-0", "Numerico", italian), "0");
    EXPECT_EQ(FormatByKey("1e999", "Numerico", italian), "0");  // beyond a double: not numeric
    EXPECT_EQ(FormatByKey("05/03/2024", "Numerico", italian), "0");
}

TEST(FormatByKey, CurrencyNegativeFormFollowsTheSettings) {
    SystemSettings italian = SystemSettings::Italian();
    SystemSettings us = SystemSettings::UsEnglish();
    EXPECT_EQ(FormatByKey("-1234,5", "Valuta", italian), "-1.234,50 \u20ac");
    EXPECT_EQ(FormatByKey("-1234.5", "Valuta", us), "-$1,234.50");
    italian.currencyNegativeParentheses = true;
    us.currencyNegativeParentheses = true;
    EXPECT_EQ(FormatByKey("-1234,5", "Valuta", italian), "(1.234,50 \u20ac)");
    EXPECT_EQ(FormatByKey("-1234.5", "Valuta", us), "($1,234.50)");
    EXPECT_EQ(FormatByKey("1234.5", "Valuta", us), "$1,234.50");
    EXPECT_EQ(FormatByKey("-0.001", "Valuta", us), "$0.00");  // zero as shown takes no sign
}

TEST(FormatByKey, NumberKeysReadTheirOwnTextBack) {
    // What a number key shows is a number to the same settings, and shows the same again.
    SystemSettings parentheses = SystemSettings::UsEnglish();
    parentheses.currencyNegativeParentheses = true;
    for (const SystemSettings& settings :
         {SystemSettings::Italian(), SystemSettings::UsEnglish(), SystemSettings::C(), parentheses}) {
        for (double value : {0.0, 0.5, -0.5, 1234.5, -1234.5, 1234567.891, -0.125, 1e15}) {
            const std::string text = NumberToText(value, settings);
            for (const char* key : {"Valuta", "Single", "Numeri_4_Dec", "Numerico"}) {
                const std::string shown = FormatByKey(text, key, settings);
                EXPECT_EQ(FormatByKey(shown, key, settings), shown) << key << " of " << text;
            }
        }
    }
}

TEST(FormatText, EmptyPatternGivesTheTextUnchanged) {
    const SystemSettings us = SystemSettings::UsEnglish();
    EXPECT_EQ(FormatText("1234.5", "", us), "1234.5");
    EXPECT_EQ(FormatText("2024-03-05", "", us), "2024-03-05");
    EXPECT_EQ(FormatText("", "", us), "");
}

TEST(FormatText, TextThatIsNeitherPassesUnchanged) {
    const SystemSettings us = SystemSettings::UsEnglish();
    for (const char* pattern : {"0.00", "#,##0", "dd/mm/yyyy", "hh:nn", "Currency", "Standard", "\\Y\\e\\s",
                                "General Date", "0%;(0%)"}) {
        EXPECT_EQ(FormatText("abc", pattern, us), "abc") << pattern;
        EXPECT_EQ(FormatText("", pattern, us), "") << pattern;
        EXPECT_EQ(FormatText("12 abc", pattern, us), "12 abc") << pattern;
        EXPECT_EQ(FormatText(" ", pattern, us), " ") << pattern;
    }
}

TEST(FormatText, NumberPatternLeavesADateAsItIs) {
    const SystemSettings us = SystemSettings::UsEnglish();
    EXPECT_EQ(FormatText("2024-03-05", "0.00", us), "2024-03-05");
    EXPECT_EQ(FormatText("14:30", "0.00", us), "14:30");
    // Where "." groups thousands, "1.5.2024" passes the numeric test, but it reads as a date first.
    const SystemSettings italian = SystemSettings::Italian();
    EXPECT_EQ(FormatText("1.5.2024", "#,##0.00", italian), "1.5.2024");
    EXPECT_EQ(FormatText("1.234.567", "#,##0.00", italian), "1.234.567,00");
    EXPECT_EQ(FormatText("1,5", "0.00", italian), "1,50");
}

TEST(FormatText, NumberPatternReadsTheNumericForms) {
    const SystemSettings us = SystemSettings::UsEnglish();
    EXPECT_EQ(FormatText("$1,234.50", "0.0", us), "1234.5");
    EXPECT_EQ(FormatText("(5)", "0", us), "-5");
    EXPECT_EQ(FormatText("5-", "0;(0)", us), "(5)");
    EXPECT_EQ(FormatText("&HFF", "0", us), "255");
    EXPECT_EQ(FormatText(" 1.5e3 ", "#,##0", us), "1,500");
    EXPECT_EQ(FormatText("5", "0 days", us), "5 days");  // digit placeholders make it a number pattern
}

TEST(FormatText, DatePatternReadsDatesInTheSystemOrder) {
    EXPECT_EQ(FormatText("05/03/2024", "yyyy-mm-dd", SystemSettings::Italian()), "2024-03-05");
    EXPECT_EQ(FormatText("03/05/2024", "yyyy-mm-dd", SystemSettings::UsEnglish()), "2024-03-05");
    EXPECT_EQ(FormatText("03/05/24", "yyyy-mm-dd", SystemSettings::C()), "2024-03-05");
    EXPECT_EQ(FormatText("2024-03-05", "d/m/yy", SystemSettings::C()), "5/3/24");
    EXPECT_EQ(FormatText("5.3.2024 8:05", "dd/mm/yyyy hh:nn", SystemSettings::Italian()), "05/03/2024 08:05");
}

TEST(FormatText, DatePatternTakesANumberAsADaySerial) {
    const SystemSettings italian = SystemSettings::Italian();
    EXPECT_EQ(FormatText("45000", "dd/mm/yyyy", italian), "15/03/2023");
    EXPECT_EQ(FormatText("45356,75", "dd/mm/yyyy hh:nn", italian), "05/03/2024 18:00");
    EXPECT_EQ(FormatText("0,5", "hh:nn", italian), "12:00");
    EXPECT_EQ(FormatText("-1", "dd/mm/yyyy", italian), "29/12/1899");
    EXPECT_EQ(FormatText("1e10", "dd/mm/yyyy", italian), "1e10");  // beyond year 9999: no date
    EXPECT_EQ(FormatText("-1e10", "hh:nn", italian), "-1e10");
}

TEST(FormatText, InvalidDatesPassAsText) {
    const SystemSettings italian = SystemSettings::Italian();
    for (const char* text : {"31/02/2024", "29/02/2023", "00/01/2024", "05/13/2024", "2024-02-30", "25:00",
                             "12:60", "2024-03-05 24:00"}) {
        EXPECT_EQ(FormatText(text, "dd/mm/yyyy", italian), text);
        EXPECT_EQ(FormatText(text, "hh:nn", italian), text);
    }
    EXPECT_EQ(FormatText("29/02/2024", "dd/mm/yyyy", italian), "29/02/2024");
}

TEST(FormatText, TwoDigitYearsFallIn1930To2029) {
    const SystemSettings italian = SystemSettings::Italian();
    EXPECT_EQ(FormatText("05/03/29", "dd/mm/yyyy", italian), "05/03/2029");
    EXPECT_EQ(FormatText("05/03/30", "dd/mm/yyyy", italian), "05/03/1930");
    EXPECT_EQ(FormatText("05/03/00", "dd/mm/yyyy", italian), "05/03/2000");
    EXPECT_EQ(FormatText("2005-03-05", "dd/mm/yy", italian), "05/03/05");
    EXPECT_EQ(FormatText("1999-12-31", "dd/mm/yy", italian), "31/12/99");
    EXPECT_EQ(FormatByKey("05/03/99", "Data", italian), "05/03/1999");
}

TEST(FormatText, NamedFormatsIgnoreCase) {
    const SystemSettings us = SystemSettings::UsEnglish();
    for (const char* name : {"standard", "Standard", "STANDARD"}) {
        EXPECT_EQ(FormatText("1234.5", name, us), "1,234.50") << name;
    }
    for (const char* name : {"currency", "Currency"}) {
        EXPECT_EQ(FormatText("1234.5", name, us), "$1,234.50") << name;
    }
    EXPECT_EQ(FormatText("1234.5", "fixed", us), "1234.50");
    EXPECT_EQ(FormatText("1234.5", "general number", us), "1234.5");
    EXPECT_EQ(FormatText("1,234.50", "General Number", us), "1234.5");
    EXPECT_EQ(FormatText("0.5", "Percent", us), "50.00%");
    EXPECT_EQ(FormatText("1234.5", "Scientific", us), "1.23E+03");
    EXPECT_EQ(FormatText("2024-03-05 14:30", "General Date", us), "03/05/2024 14:30:00");
    EXPECT_EQ(FormatText("2024-03-05 14:30", "short date", us), "03/05/2024");
    EXPECT_EQ(FormatText("2024-03-05 14:30", "Short Time", us), "14:30");
    EXPECT_EQ(FormatText("2024-03-05", "Short Date", SystemSettings::C()), "03/05/24");
    EXPECT_EQ(FormatText("2024-03-05", "Short Date", SystemSettings::Italian()), "05/03/2024");
}

}  // namespace
}  // namespace TabulonLib12
