#include <gtest/gtest.h>

#include "platform/host/property_bag.h"
#include "platform/runtime/error.h"

namespace TabulonLib12 {
namespace {

TEST(PropertyBag, AnAbsentKeyReadsAsTheGivenDefault) {
    MemoryPropertyBag bag;
    EXPECT_EQ(bag.ReadInt32("Cols", 1), 1);
    EXPECT_EQ(bag.ReadText("QueryString", "x"), "x");
    EXPECT_TRUE(bag.ReadBool("MultiSel", true));
}

TEST(PropertyBag, AValueEqualToTheWriteDefaultIsLeftOut) {
    MemoryPropertyBag bag;
    bag.WriteProperty("Cols", int32_t{1}, int32_t{1});
    EXPECT_FALSE(bag.Has("Cols"));
    bag.WriteProperty("Cols", int32_t{4}, int32_t{1});
    EXPECT_TRUE(bag.Has("Cols"));
    EXPECT_EQ(bag.ReadInt32("Cols", 1), 4);
    bag.WriteProperty("Cols", int32_t{1}, int32_t{1});
    EXPECT_FALSE(bag.Has("Cols"));
}

TEST(PropertyBag, DifferentDefaultsForWriteAndReadChangeTheValue) {
    MemoryPropertyBag bag;
    bag.WriteProperty("ForeColorOrd", int32_t{0xFF8080}, int32_t{0xFF8080});
    EXPECT_EQ(bag.ReadInt32("ForeColorOrd", 0xFF), 0xFF);
}

TEST(PropertyBag, TypedReadsConvertWhereTheyCan) {
    MemoryPropertyBag bag;
    bag.Set("n", std::string("12"));
    bag.Set("b", int32_t{-1});
    bag.Set("t", true);
    bag.Set("f", Font{"Arial", 9.0f});
    EXPECT_EQ(bag.ReadInt32("n", 0), 12);
    EXPECT_TRUE(bag.ReadBool("b", false));
    EXPECT_EQ(bag.ReadInt32("t", 0), -1);
    EXPECT_EQ(bag.ReadText("b", ""), "-1");
    EXPECT_EQ(bag.ReadFont("f", Font{}).size, 9.0f);
    EXPECT_THROW((void)bag.ReadFont("n", Font{}), Error);
    bag.Set("x", std::string("abc"));
    EXPECT_THROW((void)bag.ReadInt32("x", 0), Error);
}

}  // namespace
}  // namespace TabulonLib12
