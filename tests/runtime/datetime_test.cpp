#include "platform/runtime/datetime.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <optional>
#include <string>

#include "platform/runtime/error.h"

namespace TabulonLib12 {
namespace {

DateParts Parts(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
    DateParts p;
    p.year = year;
    p.month = month;
    p.day = day;
    p.hour = hour;
    p.minute = minute;
    p.second = second;
    return p;
}

std::string Describe(const DateParts& p) {
    return std::to_string(p.year) + "-" + std::to_string(p.month) + "-" + std::to_string(p.day) + " " +
           std::to_string(p.hour) + ":" + std::to_string(p.minute) + ":" + std::to_string(p.second);
}

void ExpectParts(const DateParts& actual, const DateParts& expected, const std::string& context) {
    EXPECT_EQ(actual.year, expected.year) << context;
    EXPECT_EQ(actual.month, expected.month) << context;
    EXPECT_EQ(actual.day, expected.day) << context;
    EXPECT_EQ(actual.hour, expected.hour) << context;
    EXPECT_EQ(actual.minute, expected.minute) << context;
    EXPECT_EQ(actual.second, expected.second) << context;
}

SystemSettings YearFirstDashes() {
    SystemSettings s = SystemSettings::C();
    s.dateOrder = DateOrder::YearMonthDay;
    s.dateSeparator = "-";
    s.shortDateLongYear = true;
    return s;
}

SystemSettings DotsEverywhere() {
    SystemSettings s = SystemSettings::Italian();
    s.dateSeparator = ".";
    s.timeSeparator = ".";
    return s;
}

struct SerialCase {
    DateParts parts;
    double serial;
};

const SerialCase kSerials[] = {
    {Parts(1899, 12, 30), 0.0},
    {Parts(1899, 12, 31), 1.0},
    {Parts(1900, 1, 1), 2.0},
    {Parts(1900, 3, 1), 61.0},  // 1900 is no leap year
    {Parts(2000, 1, 1), 36526.0},
    {Parts(2000, 2, 29), 36585.0},
    {Parts(2024, 1, 15), 45306.0},
    {Parts(1899, 12, 29), -1.0},
    {Parts(1800, 1, 1), -36522.0},
    {Parts(100, 1, 1), -657434.0},
    {Parts(9999, 12, 31), 2958465.0},
    {Parts(2024, 1, 15, 6, 0, 0), 45306.25},
    {Parts(2024, 1, 15, 18, 0, 0), 45306.75},
    {Parts(1899, 12, 30, 18, 0, 0), 0.75},
    // Before serial 0 the time runs forward from the start of the day.
    {Parts(1899, 12, 29, 6, 0, 0), -1.25},
    {Parts(1899, 12, 29, 18, 0, 0), -1.75},
    {Parts(1800, 1, 1, 12, 0, 0), -36522.5},
};

TEST(MakeDate, GivesDaysSinceThe30thOfDecember1899) {
    for (const SerialCase& c : kSerials) {
        const auto made = MakeDate(c.parts);
        ASSERT_TRUE(made.has_value()) << Describe(c.parts);
        EXPECT_EQ(made->serial, c.serial) << Describe(c.parts);
    }
}

TEST(MakeDate, CountsSecondsAsFractionsOfTheDay) {
    const auto date = MakeDate(Parts(2024, 1, 15, 10, 30, 15));
    ASSERT_TRUE(date.has_value());
    EXPECT_DOUBLE_EQ(date->serial, 45306.0 + (10 * 3600 + 30 * 60 + 15) / 86400.0);
}

TEST(MakeDate, RefusesDatesThatAreNotInTheCalendarOrOutOfRange) {
    const DateParts invalid[] = {
        Parts(2023, 2, 29), Parts(1900, 2, 29), Parts(2100, 2, 29), Parts(2024, 2, 30), Parts(2024, 4, 31),
        Parts(2024, 13, 1), Parts(2024, 0, 1),  Parts(2024, 1, 0),  Parts(2024, 1, 32), Parts(99, 12, 31),
        Parts(10000, 1, 1), Parts(-5, 1, 1),    Parts(2024, -1, 1), Parts(2024, 1, 1, 24, 0, 0),
        Parts(2024, 1, 1, -1, 0, 0), Parts(2024, 1, 1, 0, 60, 0), Parts(2024, 1, 1, 0, 0, 60),
        Parts(2024, 1, 1, 0, 0, -1), Parts(std::numeric_limits<int>::max(), 1, 1),
        Parts(2024, std::numeric_limits<int>::min(), 1),
    };
    for (const DateParts& p : invalid) {
        EXPECT_FALSE(MakeDate(p).has_value()) << Describe(p);
    }
    EXPECT_TRUE(MakeDate(Parts(2000, 2, 29)).has_value());
    EXPECT_TRUE(MakeDate(Parts(2024, 2, 29)).has_value());
}

TEST(SplitDate, GivesBackThePartsOfEverySerial) {
    for (const SerialCase& c : kSerials) {
        ExpectParts(SplitDate(DateTime{c.serial}), c.parts, std::to_string(c.serial));
    }
}

TEST(SplitDate, NegativeFractionOfDayZeroIsTimeOnDayZero) {
    // -0.25 has a whole part of 0: it is 30/12/1899 at 06:00, as 0.25 is.
    ExpectParts(SplitDate(DateTime{-0.25}), Parts(1899, 12, 30, 6, 0, 0), "-0.25");
}

TEST(SplitDate, RoundsTheTimeToTheNearestSecondAndCarriesIntoTheNextDay) {
    ExpectParts(SplitDate(DateTime{45306.0 + 10.4 / 86400.0}), Parts(2024, 1, 15, 0, 0, 10), "10.4 s");
    ExpectParts(SplitDate(DateTime{45306.0 + 10.6 / 86400.0}), Parts(2024, 1, 15, 0, 0, 11), "10.6 s");
    ExpectParts(SplitDate(DateTime{45306.9999999}), Parts(2024, 1, 16), "just before midnight");
    // Before serial 0 a time that rounds up to midnight also moves one day forward.
    ExpectParts(SplitDate(DateTime{-1.9999999}), Parts(1899, 12, 30), "-1.9999999");
}

TEST(SplitDate, SerialsOutsideYears100To9999Overflow) {
    const double limit = std::numeric_limits<double>::max();
    for (double serial : {-657435.0, -657435.5, 2958466.0, 2958465.9999999, 1e10, -1e10, limit, -limit,
                          std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()}) {
        try {
            SplitDate(DateTime{serial});
            ADD_FAILURE() << "no overflow for " << serial;
        } catch (const Error& e) {
            EXPECT_EQ(e.kind(), ErrorKind::Overflow) << serial;
        }
    }
    EXPECT_NO_THROW(SplitDate(DateTime{-657434.5}));
    EXPECT_NO_THROW(SplitDate(DateTime{2958465.5}));
}

TEST(SplitDate, MakeDateOfItsPartsGivesTheSameSerial) {
    // Days across the whole range, each with a time of whole seconds, on both sides of day zero.
    for (long long day = -657434; day <= 2958465; day += 9973) {
        const long long seconds = (day * 7919 % 86400 + 86400) % 86400;
        const double time = static_cast<double>(seconds) / 86400.0;
        const double serial = static_cast<double>(day) + (day < 0 ? -time : time);
        const DateParts parts = SplitDate(DateTime{serial});
        EXPECT_EQ(parts.hour * 3600 + parts.minute * 60 + parts.second, seconds) << serial;
        const auto again = MakeDate(parts);
        ASSERT_TRUE(again.has_value()) << serial;
        EXPECT_EQ(again->serial, serial) << Describe(parts);
    }
}

struct ParseCase {
    const char* text;
    std::optional<DateParts> expected;
};

void ExpectParses(const SystemSettings& settings, const ParseCase* begin, const ParseCase* end) {
    for (const ParseCase* c = begin; c != end; ++c) {
        const auto parsed = ParseDate(c->text, settings);
        if (!c->expected) {
            EXPECT_FALSE(parsed.has_value()) << '"' << c->text << "\" gave " << (parsed ? parsed->serial : 0.0);
            continue;
        }
        ASSERT_TRUE(parsed.has_value()) << '"' << c->text << '"';
        EXPECT_EQ(parsed->serial, MakeDate(*c->expected)->serial) << '"' << c->text << '"';
    }
}

TEST(ParseDate, ItalianReadsDayMonthYearWithAnyOfTheSeparators) {
    const ParseCase cases[] = {
        {"15/01/2024", Parts(2024, 1, 15)},
        {"15-01-2024", Parts(2024, 1, 15)},
        {"15.01.2024", Parts(2024, 1, 15)},
        {"5/1/2024", Parts(2024, 1, 5)},
        {"31/12/1899", Parts(1899, 12, 31)},
        {"  15/01/2024  ", Parts(2024, 1, 15)},
        {"\t15/01/2024\t", Parts(2024, 1, 15)},
        {"15/01/2024 10:30", Parts(2024, 1, 15, 10, 30, 0)},
        {"15/01/2024   10:30:15", Parts(2024, 1, 15, 10, 30, 15)},
        {"01/01/0100", Parts(100, 1, 1)},
        {"1/1/100", Parts(100, 1, 1)},
        {"31/12/9999", Parts(9999, 12, 31)},
        {"15/01-2024", std::nullopt},
        {"15/01/2024T10:30", std::nullopt},
        {"15/01/2024x", std::nullopt},
        {"15/01/2024 10", std::nullopt},
        {"15/01/2024 10:30:", std::nullopt},
        {"15 / 01 / 2024", std::nullopt},
        {"123/01/2024", std::nullopt},
        {"15/001/2024", std::nullopt},
        {"15/01/20245", std::nullopt},
        {"15/01", std::nullopt},
        {"15", std::nullopt},
        {"01/01/0099", std::nullopt},
        {"1/1/10000", std::nullopt},
    };
    ExpectParses(SystemSettings::Italian(), std::begin(cases), std::end(cases));
}

TEST(ParseDate, RejectsDatesThatAreNotInTheCalendar) {
    const ParseCase cases[] = {
        {"31/02/2024", std::nullopt}, {"30/02/2024", std::nullopt}, {"29/02/2023", std::nullopt},
        {"29/02/1900", std::nullopt}, {"29/02/2100", std::nullopt}, {"29/02/2000", Parts(2000, 2, 29)},
        {"29/02/2024", Parts(2024, 2, 29)}, {"31/04/2024", std::nullopt}, {"01/13/2024", std::nullopt},
        {"00/01/2024", std::nullopt}, {"01/00/2024", std::nullopt}, {"32/01/2024", std::nullopt},
        {"15/01/2024 24:00", std::nullopt}, {"15/01/2024 23:60", std::nullopt},
        {"15/01/2024 23:59:60", std::nullopt}, {"15/01/2024 23:59:59", Parts(2024, 1, 15, 23, 59, 59)},
    };
    ExpectParses(SystemSettings::Italian(), std::begin(cases), std::end(cases));
}

TEST(ParseDate, TwoDigitYearsPivotBetween2029And1930) {
    const ParseCase cases[] = {
        {"15/01/24", Parts(2024, 1, 15)}, {"15/01/00", Parts(2000, 1, 15)}, {"15/01/0", Parts(2000, 1, 15)},
        {"15/01/29", Parts(2029, 1, 15)}, {"15/01/30", Parts(1930, 1, 15)}, {"15/01/99", Parts(1999, 1, 15)},
        {"15/01/5", Parts(2005, 1, 15)},  {"29/02/00", Parts(2000, 2, 29)}, {"29/02/30", std::nullopt},
    };
    ExpectParses(SystemSettings::Italian(), std::begin(cases), std::end(cases));
}

TEST(ParseDate, UsEnglishReadsMonthDayYear) {
    const ParseCase cases[] = {
        {"01/15/2024", Parts(2024, 1, 15)}, {"1/15/24", Parts(2024, 1, 15)},
        {"2/29/2024", Parts(2024, 2, 29)},  {"12-31-1999", Parts(1999, 12, 31)},
        {"15/01/2024", std::nullopt},       {"02/30/2024", std::nullopt},
        {"1/15/2024 08:05:09", Parts(2024, 1, 15, 8, 5, 9)},
    };
    ExpectParses(SystemSettings::UsEnglish(), std::begin(cases), std::end(cases));
}

TEST(ParseDate, YearMonthDaySystemsReadTheYearFirst) {
    const ParseCase cases[] = {
        {"2024-01-15", Parts(2024, 1, 15)}, {"24-01-15", Parts(2024, 1, 15)}, {"99/12/31", Parts(1999, 12, 31)},
        {"100-01-01", Parts(100, 1, 1)},    {"2024-15-01", std::nullopt},     {"15-01-2024", std::nullopt},
    };
    ExpectParses(YearFirstDashes(), std::begin(cases), std::end(cases));
}

TEST(ParseDate, IsoFormIsReadUnderEverySetting) {
    const ParseCase cases[] = {
        {"2024-01-15", Parts(2024, 1, 15)},
        {"2024-1-5", Parts(2024, 1, 5)},
        {"2024/01/15", Parts(2024, 1, 15)},
        {"2024-01-15 10:30", Parts(2024, 1, 15, 10, 30, 0)},
        {"2024-01-15 10:30:45", Parts(2024, 1, 15, 10, 30, 45)},
        {"2024-01-15T10:30", Parts(2024, 1, 15, 10, 30, 0)},
        {"2024-01-15T10:30:45", Parts(2024, 1, 15, 10, 30, 45)},
        {"2024-01-15T10:30:45.123", Parts(2024, 1, 15, 10, 30, 45)},
        {"2024-01-15 23:59:59.999", Parts(2024, 1, 15, 23, 59, 59)},  // the fraction is dropped
        {"0100-01-01", Parts(100, 1, 1)},
        {"0099-12-31", std::nullopt},
        {"2024-01-15T", std::nullopt},
        {"2024-01-15 T10:30", std::nullopt},
        {"2024-01-15T10:30:45.", std::nullopt},
        {"2024-01-15T10:30.5", std::nullopt},
        {"2024-02-30", std::nullopt},
        {"2024-01-15 24:00", std::nullopt},
        {"2024-01-15Z", std::nullopt},
        {"2024-01-15T10:30:45Z", std::nullopt},
        {"20240115", std::nullopt},
        {"2024-01-15-", std::nullopt},
    };
    ExpectParses(SystemSettings::Italian(), std::begin(cases), std::end(cases));
    ExpectParses(SystemSettings::UsEnglish(), std::begin(cases), std::end(cases));
    ExpectParses(YearFirstDashes(), std::begin(cases), std::end(cases));
}

TEST(ParseDate, TimeAloneFallsOnDayZero) {
    const ParseCase cases[] = {
        {"10:30", Parts(1899, 12, 30, 10, 30, 0)},  {"10:30:15", Parts(1899, 12, 30, 10, 30, 15)},
        {"0:00", Parts(1899, 12, 30)},              {"23:59:59", Parts(1899, 12, 30, 23, 59, 59)},
        {" 7:05 ", Parts(1899, 12, 30, 7, 5, 0)},   {"24:00", std::nullopt},
        {"10:60", std::nullopt},                    {"10:30:60", std::nullopt},
        {"10:", std::nullopt},                      {":30", std::nullopt},
        {"10:30 AM", std::nullopt},                 {"100:30", std::nullopt},
        {"10:30:15:01", std::nullopt},
    };
    ExpectParses(SystemSettings::Italian(), std::begin(cases), std::end(cases));
    EXPECT_EQ(ParseDate("12:00", SystemSettings::C())->serial, 0.5);
}

TEST(ParseDate, SystemTimeSeparatorIsReadAsWellAsTheColon) {
    const ParseCase cases[] = {
        {"15.01.2024 10.30", Parts(2024, 1, 15, 10, 30, 0)},
        {"15.01.2024 10:30", Parts(2024, 1, 15, 10, 30, 0)},
        {"10.30", Parts(1899, 12, 30, 10, 30, 0)},
        {"10.30.15", Parts(1899, 12, 30, 10, 30, 15)},  // no date has month 30: a time
        {"10.30:15", std::nullopt},
    };
    ExpectParses(DotsEverywhere(), std::begin(cases), std::end(cases));
}

TEST(ParseDate, AnythingElseGivesNothing) {
    for (const char* text : {"", " ", "\t\t", "abc", "1e3", "15/01/2024abc", "x15/01/2024", "+15/01/2024",
                             "-15/01/2024", "15//01/2024", "15/01//2024", "/15/01/2024", "15/01/2024/",
                             "1.5", "1,5", "12", "2024", "15\xE2\x80\x8B/01/2024", "\xEF\xBC\x91/1/2024"}) {
        EXPECT_FALSE(ParseDate(text, SystemSettings::Italian()).has_value()) << '"' << text << '"';
        EXPECT_FALSE(ParseDate(text, SystemSettings::UsEnglish()).has_value()) << '"' << text << '"';
    }
}

struct TextCase {
    double serial;
    const char* italian;
    const char* us;
    const char* yearFirst;
};

TEST(DateToText, WritesTheShortDateWithAFourDigitYearInTheSystemOrder) {
    const TextCase cases[] = {
        {45306.0, "15/01/2024", "01/15/2024", "2024-01-15"},
        {45306.4375, "15/01/2024 10:30:00", "01/15/2024 10:30:00", "2024-01-15 10:30:00"},
        {45306.0 + 45296.0 / 86400.0, "15/01/2024 12:34:56", "01/15/2024 12:34:56", "2024-01-15 12:34:56"},
        {0.0, "30/12/1899", "12/30/1899", "1899-12-30"},
        {0.4375, "10:30:00", "10:30:00", "10:30:00"},
        {1.0, "31/12/1899", "12/31/1899", "1899-12-31"},
        {-1.25, "29/12/1899 06:00:00", "12/29/1899 06:00:00", "1899-12-29 06:00:00"},
        {-657434.0, "01/01/0100", "01/01/0100", "0100-01-01"},
        {2958465.0, "31/12/9999", "12/31/9999", "9999-12-31"},
        {10973.0, "15/01/1930", "01/15/1930", "1930-01-15"},
    };
    for (const TextCase& c : cases) {
        EXPECT_EQ(DateToText(DateTime{c.serial}, SystemSettings::Italian()), c.italian) << c.serial;
        EXPECT_EQ(DateToText(DateTime{c.serial}, SystemSettings::UsEnglish()), c.us) << c.serial;
        EXPECT_EQ(DateToText(DateTime{c.serial}, YearFirstDashes()), c.yearFirst) << c.serial;
    }
}

TEST(DateToText, UsesTheSystemDateAndTimeSeparators) {
    EXPECT_EQ(DateToText(DateTime{45306.4375}, DotsEverywhere()), "15.01.2024 10.30.00");
    EXPECT_EQ(DateToText(DateTime{0.75}, DotsEverywhere()), "18.00.00");
}

TEST(DateToText, SerialOutOfRangeOverflows) {
    EXPECT_THROW(DateToText(DateTime{std::numeric_limits<double>::quiet_NaN()}, SystemSettings::C()), Error);
    EXPECT_THROW(DateToText(DateTime{3e6}, SystemSettings::C()), Error);
}

TEST(AppendDatePartsText, GivesTheTextOfTheDateThosePartsMake) {
    const SystemSettings all[] = {SystemSettings::C(), SystemSettings::Italian(), YearFirstDashes(), DotsEverywhere()};
    int checked = 0;
    for (const SystemSettings& settings : all) {
        for (int year : {100, 1899, 1900, 2024, 9999}) {
            for (int month = 1; month <= 12; ++month) {
                for (int day = 1; day <= 31; day += 3) {
                    for (int second : {0, 1, 3599, 45000, 86399}) {
                        const DateParts parts{year, month, day, second / 3600, second / 60 % 60, second % 60};
                        const auto date = MakeDate(parts);
                        if (!date) continue;
                        std::string text = "<";
                        AppendDatePartsText(parts, settings, text);
                        ASSERT_EQ(text, "<" + DateToText(*date, settings)) << year << '-' << month << '-' << day;
                        ++checked;
                    }
                }
            }
        }
    }
    EXPECT_GT(checked, 4000);
    std::string dayZero;
    AppendDatePartsText(DateParts{1899, 12, 30, 18, 0, 0}, SystemSettings::C(), dayZero);
    EXPECT_EQ(dayZero, "18:00:00");
}

TEST(DateToText, TextReadsBackToTheSameSerial) {
    const SystemSettings all[] = {SystemSettings::C(), SystemSettings::UsEnglish(), SystemSettings::Italian(),
                                  YearFirstDashes(), DotsEverywhere()};
    for (const SystemSettings& settings : all) {
        for (double serial = -657434.0; serial < 2958466.0; serial += 12345.678) {
            const DateParts parts = SplitDate(DateTime{serial});
            const double exact = MakeDate(parts)->serial;
            const std::string text = DateToText(DateTime{exact}, settings);
            const auto back = ParseDate(text, settings);
            ASSERT_TRUE(back.has_value()) << text;
            EXPECT_EQ(back->serial, exact) << text;
        }
    }
}

}  // namespace
}  // namespace TabulonLib12
