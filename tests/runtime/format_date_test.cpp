// The date pattern language and the named date formats.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/runtime/error.h"
#include "platform/runtime/format.h"

namespace TabulonLib12 {
namespace {

DateTime Date(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
    const auto date = MakeDate({year, month, day, hour, minute, second});
    EXPECT_TRUE(date.has_value());
    return date.value_or(DateTime{});
}

struct DateCase {
    DateTime value;
    const char* pattern;
    const char* expected;
};

void ExpectDates(const SystemSettings& settings, const std::vector<DateCase>& cases) {
    for (const DateCase& c : cases) {
        EXPECT_EQ(FormatDate(c.value, c.pattern, settings), c.expected) << '"' << c.pattern << '"';
    }
}

TEST(DatePattern, DayMonthYearFields) {
    const DateTime march5 = Date(2024, 3, 5, 14, 30, 59);
    const DateTime december31 = Date(2024, 12, 31, 9, 5, 3);
    ExpectDates(SystemSettings::Italian(), {
                                               {march5, "dd/mm/yyyy", "05/03/2024"},
                                               {march5, "d/m/yy", "5/3/24"},
                                               {march5, "yyyy-mm-dd", "2024-03-05"},
                                               {december31, "d/m/yyyy", "31/12/2024"},
                                               {march5, "DD/MM/YYYY", "05/03/2024"},  // either case
                                               {march5, "y", "65"},                  // day of the year
                                               {december31, "y", "366"},
                                               {Date(2005, 1, 2), "yy", "05"},
                                               {Date(100, 1, 1), "yyyy", "0100"},
                                               {Date(100, 1, 1), "yy", "00"},
                                               {march5, "dddd", "0505"},  // longer runs split from the left
                                               {march5, "yyy", "2465"},
                                           });
}

TEST(DatePattern, TimeFields) {
    const DateTime afternoon = Date(2024, 3, 5, 14, 30, 59);
    const DateTime morning = Date(2024, 3, 5, 9, 5, 3);
    ExpectDates(SystemSettings::Italian(), {
                                               {afternoon, "hh:nn", "14:30"},  // seconds are not rounded up
                                               {afternoon, "hh:nn:ss", "14:30:59"},
                                               {morning, "h:n:s", "9:5:3"},
                                               {morning, "hh:nn:ss", "09:05:03"},
                                               {Date(2024, 3, 5), "hh:nn", "00:00"},
                                               {afternoon, "HH:NN", "14:30"},
                                           });
}

TEST(DatePattern, MIsMinutesAfterAnHourOrBeforeSeconds) {
    const DateTime value = Date(2024, 3, 5, 14, 30, 59);
    ExpectDates(SystemSettings::Italian(), {
                                               {value, "hh:mm", "14:30"},
                                               {value, "h:m", "14:30"},
                                               {value, "mm:ss", "30:59"},
                                               {value, "hh \"h\" mm", "14 h 30"},  // literals between
                                               {value, "dd/mm/yyyy hh:mm", "05/03/2024 14:30"},
                                               {value, "mm/dd hh:mm:ss", "03/05 14:30:59"},
                                               {value, "m", "3"},
                                               {value, "hh:nn mm", "14:30 03"},  // after a minute: a month
                                           });
}

TEST(DatePattern, HalfDayClock) {
    ExpectDates(SystemSettings::Italian(), {
                                               {Date(2024, 3, 5, 14, 30), "hh:nn AM/PM", "02:30 PM"},
                                               {Date(2024, 3, 5, 9, 30), "h:nn am/pm", "9:30 am"},
                                               {Date(2024, 3, 5, 0, 15), "h a/p", "12 a"},
                                               {Date(2024, 3, 5, 12, 15), "h A/P", "12 P"},
                                               {Date(2024, 3, 5, 23, 0), "h Am/pM", "11 pM"},  // case as written
                                               {Date(2024, 3, 5, 23, 0), "hh a", "23 a"},      // a alone: literal
                                               {Date(2024, 3, 5, 23, 0), "AM/PM", "PM"},  // a date pattern too
                                           });
}

TEST(DatePattern, SeparatorsAreTheSystemOnes) {
    SystemSettings settings = SystemSettings::Italian();
    settings.dateSeparator = "-";
    settings.timeSeparator = ".";
    const DateTime value = Date(2024, 3, 5, 14, 30);
    EXPECT_EQ(FormatDate(value, "dd/mm/yyyy hh:nn", settings), "05-03-2024 14.30");
    EXPECT_EQ(FormatDate(value, "dd.mm.yyyy", settings), "05.03.2024");  // "." is a literal
    EXPECT_EQ(FormatDate(value, "dd\\/mm\"/\"yyyy", settings), "05/03/2024");
    EXPECT_EQ(FormatText("05-03-2024 14.30", "dd/mm/yyyy hh:nn", settings), "05-03-2024 14.30");
}

TEST(DatePattern, LiteralText) {
    const DateTime value = Date(2024, 3, 5, 14, 30);
    ExpectDates(SystemSettings::Italian(), {
                                               {value, "\"Day\" d", "Day 5"},
                                               {value, "\\d d", "d 5"},
                                               {value, "d \\h\\h", "5 hh"},
                                               {value, "d \"unclosed", "5 unclosed"},
                                               {value, "d \u00e8 \\\u20ac", "5 \u00e8 \u20ac"},
                                               {value, "d w q c", "5 w q c"},  // letters without a field
                                               {value, "yyyy\\", "2024\\"},
                                           });
}

TEST(DatePattern, NumberPatternShowsTheDaySerial) {
    const DateTime value = Date(2024, 3, 5, 12);
    EXPECT_EQ(FormatDate(value, "0.00", SystemSettings::Italian()), "45356,50");
    EXPECT_EQ(FormatDate(value, "#,##0", SystemSettings::UsEnglish()), "45,356");  // 45356.5 is a tie
}

TEST(DatePattern, EmptyPatternAndGeneralDateGiveTheGeneralText) {
    const DateTime value = Date(2024, 3, 5, 14, 30);
    EXPECT_EQ(FormatDate(value, "", SystemSettings::Italian()), "05/03/2024 14:30:00");
    EXPECT_EQ(FormatDate(value, "General Date", SystemSettings::UsEnglish()), "03/05/2024 14:30:00");
    EXPECT_EQ(FormatDate(Date(2024, 3, 5), "general date", SystemSettings::Italian()), "05/03/2024");
}

TEST(DatePattern, ShortDateAndShortTimeFollowTheSettings) {
    const DateTime value = Date(2024, 3, 5, 14, 30);
    EXPECT_EQ(FormatDate(value, "Short Date", SystemSettings::Italian()), "05/03/2024");
    EXPECT_EQ(FormatDate(value, "Short Date", SystemSettings::UsEnglish()), "03/05/2024");
    EXPECT_EQ(FormatDate(value, "Short Date", SystemSettings::C()), "03/05/24");
    SystemSettings iso = SystemSettings::Italian();
    iso.dateOrder = DateOrder::YearMonthDay;
    iso.dateSeparator = "-";
    EXPECT_EQ(FormatDate(value, "Short Date", iso), "2024-03-05");
    EXPECT_EQ(FormatDate(value, "Short Time", iso), "14:30");
}

TEST(DatePattern, DatesBeforeTheFirstSerialDay) {
    // Before 30/12/1899 the serial counts days back while the time runs forward.
    EXPECT_EQ(FormatDate(DateTime{-1.25}, "dd/mm/yyyy hh:nn", SystemSettings::Italian()), "29/12/1899 06:00");
    EXPECT_EQ(FormatText("1/1/100", "yyyy-mm-dd", SystemSettings::Italian()), "0100-01-01");
}

TEST(DatePattern, DateOutsideTheYearsThrowsOverflow) {
    try {
        FormatDate(DateTime{1e9}, "dd/mm/yyyy", SystemSettings::Italian());
        FAIL() << "no error";
    } catch (const Error& e) {
        EXPECT_EQ(e.kind(), ErrorKind::Overflow);
    }
    EXPECT_EQ(FormatDate(DateTime{1e9}, "0", SystemSettings::Italian()), "1000000000");
}

}  // namespace
}  // namespace TabulonLib12
