#include "platform/runtime/settings.h"

#include <gtest/gtest.h>

#include <clocale>
#include <locale.h>
#include <stdexcept>
#include <string>

namespace TabulonLib12 {
namespace {

void ExpectSameSettings(const SystemSettings& a, const SystemSettings& b) {
    EXPECT_EQ(a.decimalSeparator, b.decimalSeparator);
    EXPECT_EQ(a.thousandsSeparator, b.thousandsSeparator);
    EXPECT_EQ(a.dateSeparator, b.dateSeparator);
    EXPECT_EQ(a.timeSeparator, b.timeSeparator);
    EXPECT_EQ(a.dateOrder, b.dateOrder);
    EXPECT_EQ(a.shortDateLongYear, b.shortDateLongYear);
    EXPECT_EQ(a.currencySymbol, b.currencySymbol);
    EXPECT_EQ(a.currencySymbolFirst, b.currencySymbolFirst);
    EXPECT_EQ(a.currencySymbolSpaced, b.currencySymbolSpaced);
    EXPECT_EQ(a.currencyDigits, b.currencyDigits);
    EXPECT_EQ(a.currencyLeadingZero, b.currencyLeadingZero);
    EXPECT_EQ(a.currencyNegativeParentheses, b.currencyNegativeParentheses);
    EXPECT_EQ(a.currencyDecimalSeparator, b.currencyDecimalSeparator);
    EXPECT_EQ(a.currencyThousandsSeparator, b.currencyThousandsSeparator);
}

// Sets the process locale for one test and puts the previous one back.
class ProcessLocale {
public:
    explicit ProcessLocale(const char* name) {
        const char* current = std::setlocale(LC_ALL, nullptr);
        previous_ = current != nullptr ? current : "C";
        if (std::setlocale(LC_ALL, name) == nullptr) {
            throw std::runtime_error(std::string("setlocale refused ") + name);
        }
    }
    ~ProcessLocale() { std::setlocale(LC_ALL, previous_.c_str()); }
    ProcessLocale(const ProcessLocale&) = delete;
    ProcessLocale& operator=(const ProcessLocale&) = delete;

private:
    std::string previous_;
};

bool LocaleInstalled(const char* name) {
    locale_t probe = newlocale(LC_ALL_MASK, name, static_cast<locale_t>(nullptr));
    if (probe == static_cast<locale_t>(nullptr)) {
        return false;
    }
    freelocale(probe);
    return true;
}

TEST(SystemSettings, CSettingsAreThoseOfThePosixLocale) {
    const SystemSettings s = SystemSettings::C();
    EXPECT_EQ(s.decimalSeparator, ".");
    EXPECT_EQ(s.thousandsSeparator, "");
    EXPECT_EQ(s.dateSeparator, "/");
    EXPECT_EQ(s.timeSeparator, ":");
    EXPECT_EQ(s.dateOrder, DateOrder::MonthDayYear);
    EXPECT_FALSE(s.shortDateLongYear);
    EXPECT_EQ(s.currencySymbol, "");
    EXPECT_EQ(s.currencyDigits, 2);
    EXPECT_FALSE(s.currencyNegativeParentheses);
    EXPECT_EQ(s.currencyDecimalSeparator, ".");
    EXPECT_EQ(s.currencyThousandsSeparator, "");
}

TEST(SystemSettings, UsEnglishGroupsWithCommasAndPutsTheDollarFirst) {
    const SystemSettings s = SystemSettings::UsEnglish();
    EXPECT_EQ(s.decimalSeparator, ".");
    EXPECT_EQ(s.thousandsSeparator, ",");
    EXPECT_EQ(s.dateSeparator, "/");
    EXPECT_EQ(s.timeSeparator, ":");
    EXPECT_EQ(s.dateOrder, DateOrder::MonthDayYear);
    EXPECT_TRUE(s.shortDateLongYear);
    EXPECT_EQ(s.currencySymbol, "$");
    EXPECT_TRUE(s.currencySymbolFirst);
    EXPECT_FALSE(s.currencySymbolSpaced);
    EXPECT_EQ(s.currencyDigits, 2);
    EXPECT_TRUE(s.currencyLeadingZero);
    EXPECT_EQ(s.currencyDecimalSeparator, ".");
    EXPECT_EQ(s.currencyThousandsSeparator, ",");
}

TEST(SystemSettings, ItalianUsesCommaDecimalsDayFirstAndEuroAfter) {
    const SystemSettings s = SystemSettings::Italian();
    EXPECT_EQ(s.decimalSeparator, ",");
    EXPECT_EQ(s.thousandsSeparator, ".");
    EXPECT_EQ(s.dateSeparator, "/");
    EXPECT_EQ(s.timeSeparator, ":");
    EXPECT_EQ(s.dateOrder, DateOrder::DayMonthYear);
    EXPECT_TRUE(s.shortDateLongYear);
    EXPECT_EQ(s.currencySymbol, "\xE2\x82\xAC");  // the euro sign in UTF-8
    EXPECT_FALSE(s.currencySymbolFirst);
    EXPECT_TRUE(s.currencySymbolSpaced);
    EXPECT_EQ(s.currencyDigits, 2);
    EXPECT_TRUE(s.currencyLeadingZero);
    EXPECT_FALSE(s.currencyNegativeParentheses);
    EXPECT_EQ(s.currencyDecimalSeparator, ",");
    EXPECT_EQ(s.currencyThousandsSeparator, ".");
}

struct DatePatternCase {
    const char* pattern;
    DateOrder order;
    const char* separator;
    bool longYear;
};

TEST(SystemSettings, DatePatternGivesOrderSeparatorAndYearWidth) {
    const DatePatternCase cases[] = {
        {"%d/%m/%Y", DateOrder::DayMonthYear, "/", true},
        {"%m/%d/%y", DateOrder::MonthDayYear, "/", false},
        {"%Y-%m-%d", DateOrder::YearMonthDay, "-", true},
        {"%d.%m.%Y", DateOrder::DayMonthYear, ".", true},
        {"%d-%m-%y", DateOrder::DayMonthYear, "-", false},
        {"%D", DateOrder::MonthDayYear, "/", false},
        {"%F", DateOrder::YearMonthDay, "-", true},
        {"%e/%m/%Y", DateOrder::DayMonthYear, "/", true},
        {"%-d.%-m.%Y", DateOrder::DayMonthYear, ".", true},
        {"%Y. %m. %d.", DateOrder::YearMonthDay, ".", true},
        {"%C%y-%m-%d", DateOrder::YearMonthDay, "-", true},
        {"%Ey/%m/%d", DateOrder::YearMonthDay, "/", false},
        {"%d %b %Y", DateOrder::DayMonthYear, "/", true},              // a blank is no separator
        {"%Y\xE5\xB9\xB4%m\xE6\x9C\x88%d\xE6\x97\xA5", DateOrder::YearMonthDay, "/", true},  // words
    };
    for (const DatePatternCase& c : cases) {
        SystemSettings s = SystemSettings::Italian();
        s.dateSeparator = "?";
        EXPECT_TRUE(s.ApplyDatePattern(c.pattern)) << c.pattern;
        EXPECT_EQ(s.dateOrder, c.order) << c.pattern;
        EXPECT_EQ(s.dateSeparator, c.separator) << c.pattern;
        EXPECT_EQ(s.shortDateLongYear, c.longYear) << c.pattern;
    }
}

TEST(SystemSettings, DatePatternWithoutDayMonthAndYearChangesNothing) {
    for (const char* pattern : {"", "%H:%M", "%d/%m", "%Y", "no fields", "%", "%%d/%%m/%%Y", "%E"}) {
        SystemSettings s = SystemSettings::Italian();
        EXPECT_FALSE(s.ApplyDatePattern(pattern)) << pattern;
        EXPECT_EQ(s.dateOrder, DateOrder::DayMonthYear) << pattern;
        EXPECT_EQ(s.dateSeparator, "/") << pattern;
        EXPECT_TRUE(s.shortDateLongYear) << pattern;
    }
}

TEST(SystemSettings, TimePatternGivesTheTimeSeparator) {
    const std::pair<const char*, const char*> cases[] = {
        {"%H:%M:%S", ":"},    {"%H.%M.%S", "."}, {"%T", ":"},  {"%r", ":"},  {"%I:%M:%S %p", ":"},
        {"%k.%M", "."},       {"%OH:%OM:%OS", ":"},
        {"%H\xE6\x99\x82%M\xE5\x88\x86%S\xE7\xA7\x92", ":"},  // hour and minute words
    };
    for (const auto& [pattern, separator] : cases) {
        SystemSettings s;
        s.timeSeparator = "?";
        EXPECT_TRUE(s.ApplyTimePattern(pattern)) << pattern;
        EXPECT_EQ(s.timeSeparator, separator) << pattern;
    }
    SystemSettings s;
    EXPECT_FALSE(s.ApplyTimePattern("%d/%m/%Y"));
    EXPECT_FALSE(s.ApplyTimePattern("%M:%H"));
    EXPECT_EQ(s.timeSeparator, ":");
}

TEST(SystemSettings, ProcessLocaleCGivesTheCSettings) {
    ProcessLocale locale("C");
    ExpectSameSettings(SystemSettings::FromProcessLocale(), SystemSettings::C());
    // The UTF-8 variant of the POSIX locale, where the system has it, reads the same.
    if (LocaleInstalled("C.UTF-8")) {
        ProcessLocale utf8("C.UTF-8");
        ExpectSameSettings(SystemSettings::FromProcessLocale(), SystemSettings::C());
    }
}

void ExpectItalianLocale() {
    ProcessLocale locale("it_IT.UTF-8");
    const SystemSettings s = SystemSettings::FromProcessLocale();
    EXPECT_EQ(s.decimalSeparator, ",");
    EXPECT_EQ(s.thousandsSeparator, ".");
    EXPECT_EQ(s.dateOrder, DateOrder::DayMonthYear);
    EXPECT_EQ(s.dateSeparator, "/");
    EXPECT_EQ(s.timeSeparator, ":");
    EXPECT_TRUE(s.shortDateLongYear);
    EXPECT_EQ(s.currencySymbol, "\xE2\x82\xAC");
    EXPECT_EQ(s.currencyDigits, 2);
    EXPECT_EQ(s.currencyDecimalSeparator, ",");
}

void ExpectUsEnglishLocale() {
    ProcessLocale locale("en_US.UTF-8");
    const SystemSettings s = SystemSettings::FromProcessLocale();
    EXPECT_EQ(s.decimalSeparator, ".");
    EXPECT_EQ(s.thousandsSeparator, ",");
    EXPECT_EQ(s.dateOrder, DateOrder::MonthDayYear);
    EXPECT_EQ(s.dateSeparator, "/");
    EXPECT_EQ(s.timeSeparator, ":");
    EXPECT_EQ(s.currencySymbol, "$");
    EXPECT_TRUE(s.currencySymbolFirst);
    EXPECT_EQ(s.currencyDigits, 2);
    EXPECT_EQ(s.currencyDecimalSeparator, ".");
    EXPECT_EQ(s.currencyThousandsSeparator, ",");
}

TEST(SystemSettings, ProcessLocalesOfItalyAndTheUsGiveTheirSeparatorsAndDateOrder) {
    const bool italian = LocaleInstalled("it_IT.UTF-8");
    const bool us = LocaleInstalled("en_US.UTF-8");
    if (!italian && !us) {
        GTEST_SKIP() << "neither it_IT.UTF-8 nor en_US.UTF-8 is installed on this machine";
    }
    if (italian) {
        ExpectItalianLocale();
    } else {
        RecordProperty("missing_locale", "it_IT.UTF-8");
    }
    if (us) {
        ExpectUsEnglishLocale();
    } else {
        RecordProperty("missing_locale", "en_US.UTF-8");
    }
}

TEST(CurrentSettings, SetCurrentSettingsReplacesTheSettingsInForce) {
    ScopedSettings guard(CurrentSettings());  // puts the value of before back at the end
    SetCurrentSettings(SystemSettings::Italian());
    EXPECT_EQ(CurrentSettings().decimalSeparator, ",");
    EXPECT_EQ(CurrentSettings().dateOrder, DateOrder::DayMonthYear);
    SetCurrentSettings(SystemSettings::UsEnglish());
    EXPECT_EQ(CurrentSettings().decimalSeparator, ".");
    EXPECT_EQ(CurrentSettings().dateOrder, DateOrder::MonthDayYear);
}

TEST(ScopedSettings, RestoresThePreviousSettingsAtTheEndOfItsScope) {
    ScopedSettings outer(SystemSettings::UsEnglish());
    {
        ScopedSettings inner(SystemSettings::Italian());
        EXPECT_EQ(CurrentSettings().thousandsSeparator, ".");
        {
            ScopedSettings innermost(SystemSettings::C());
            EXPECT_EQ(CurrentSettings().thousandsSeparator, "");
        }
        EXPECT_EQ(CurrentSettings().thousandsSeparator, ".");
    }
    EXPECT_EQ(CurrentSettings().thousandsSeparator, ",");
    ExpectSameSettings(CurrentSettings(), SystemSettings::UsEnglish());
}

TEST(ScopedSettings, RestoresThePreviousSettingsWhenAnExceptionLeavesTheScope) {
    ScopedSettings outer(SystemSettings::UsEnglish());
    try {
        ScopedSettings inner(SystemSettings::Italian());
        EXPECT_EQ(CurrentSettings().decimalSeparator, ",");
        throw std::runtime_error("leaving");
    } catch (const std::runtime_error&) {
    }
    ExpectSameSettings(CurrentSettings(), SystemSettings::UsEnglish());
}

}  // namespace
}  // namespace TabulonLib12
