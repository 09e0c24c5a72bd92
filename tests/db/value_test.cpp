#include <gtest/gtest.h>

#include <limits>

#include "platform/db/value.h"

namespace TabulonLib12 {
namespace {

TEST(Value, NullGivesEmptyText) {
    EXPECT_EQ(Value().ToText(SystemSettings::Italian()), "");
    EXPECT_EQ(Value(Null{}).ToText(SystemSettings::UsEnglish()), "");
    EXPECT_TRUE(Value().IsNull());
}

TEST(Value, TruthValuesGiveTrueAndFalse) {
    EXPECT_EQ(Value(true).ToText(SystemSettings::Italian()), "True");
    EXPECT_EQ(Value(false).ToText(SystemSettings::Italian()), "False");
}

TEST(Value, WholeNumbersKeepEveryDigit) {
    EXPECT_EQ(Value(-42).ToText(SystemSettings::Italian()), "-42");
    EXPECT_EQ(Value(int64_t{1234567}).ToText(SystemSettings::UsEnglish()), "1234567");
    EXPECT_EQ(Value(std::numeric_limits<int64_t>::min()).ToText(SystemSettings::C()), "-9223372036854775808");
    EXPECT_EQ(Value(int64_t{9007199254740993}).ToText(SystemSettings::C()), "9007199254740993");
}

TEST(Value, RealsUseTheSystemDecimalSeparatorWithoutGrouping) {
    EXPECT_EQ(Value(1234.5).ToText(SystemSettings::Italian()), "1234,5");
    EXPECT_EQ(Value(1234.5).ToText(SystemSettings::UsEnglish()), "1234.5");
    EXPECT_EQ(Value(-0.25).ToText(SystemSettings::Italian()), "-0,25");
    EXPECT_EQ(Value(3.0).ToText(SystemSettings::UsEnglish()), "3");
}

TEST(Value, TextStaysAsItIs) {
    EXPECT_EQ(Value("Città di Castello").ToText(SystemSettings::Italian()), "Città di Castello");
    EXPECT_EQ(Value(std::string("1.5")).ToText(SystemSettings::Italian()), "1.5");
}

TEST(Value, DatesFollowTheSystemShortDate) {
    DateTime date = *MakeDate({2024, 3, 5});
    EXPECT_EQ(Value(date).ToText(SystemSettings::Italian()), "05/03/2024");
    EXPECT_EQ(Value(date).ToText(SystemSettings::UsEnglish()), "03/05/2024");
    DateTime withTime = *MakeDate({2024, 3, 5, 14, 7, 9});
    EXPECT_EQ(Value(withTime).ToText(SystemSettings::Italian()), "05/03/2024 14:07:09");
}

TEST(Value, BinaryDataGivesItsBytesAsText) {
    EXPECT_EQ(Value(Blob{'a', 'b', 'c'}).ToText(SystemSettings::Italian()), "abc");
    EXPECT_EQ(Value(Blob{}).ToText(SystemSettings::Italian()), "");
}

TEST(Value, EqualityComparesKindAndContent) {
    EXPECT_EQ(Value(1), Value(int64_t{1}));
    EXPECT_NE(Value(1), Value(1.0));
    EXPECT_NE(Value("1"), Value(1));
    EXPECT_EQ(Value(), Value(Null{}));
}

}  // namespace
}  // namespace TabulonLib12
