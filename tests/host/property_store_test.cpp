// The property store's contract: kinds kept as written, equality with a default across numeric
// widths, typed reads that convert or fail with the classic errors, keys without regard to case,
// and the order of first writes.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>

#include "platform/host/property_bag.h"
#include "platform/runtime/error.h"
#include "platform/runtime/settings.h"

namespace TabulonLib12 {
namespace {

void ExpectError(ErrorKind kind, int32_t number, const std::function<void()>& read) {
    try {
        read();
        ADD_FAILURE() << "no error; expected error " << number;
    } catch (const Error& e) {
        EXPECT_EQ(e.kind(), kind) << e.what();
        EXPECT_EQ(e.number(), number) << e.what();
    }
}

void ExpectOverflow(const std::function<void()>& read) { ExpectError(ErrorKind::Overflow, 6, read); }
void ExpectMismatch(const std::function<void()>& read) { ExpectError(ErrorKind::TypeMismatch, 13, read); }

std::vector<std::string> Keys(const MemoryPropertyBag& bag) {
    std::vector<std::string> keys;
    for (const auto& entry : bag.Values()) keys.push_back(entry.key);
    return keys;
}

TEST(PropertyStore, EveryKindIsHeldAndReadBackWithItsKind) {
    MemoryPropertyBag bag;
    const std::vector<PropertyValue> values = {uint8_t{200},  int16_t{-300},       int32_t{0x00FF8040}, true,
                                               float{0.25f},  double{1.0 / 3.0},   std::string("testo"),
                                               Font{"Liberation Sans", 11.5f, true, false, true}};
    for (size_t i = 0; i < values.size(); ++i) bag.Set("k" + std::to_string(i), values[i]);
    for (size_t i = 0; i < values.size(); ++i) {
        const PropertyValue held = bag.ReadProperty("k" + std::to_string(i), std::string("absent"));
        EXPECT_EQ(KindOf(held), static_cast<PropertyKind>(i));
        EXPECT_TRUE(SameStoredValue(held, values[i])) << i;
    }
}

TEST(PropertyStore, KindNamesAreSpelledOnceAndReadBackExactly) {
    const std::vector<std::string> names = {"Byte", "Integer", "Long", "Boolean", "Single", "Double", "Text", "Font"};
    for (size_t i = 0; i < names.size(); ++i) {
        const auto kind = static_cast<PropertyKind>(i);
        EXPECT_EQ(PropertyKindName(kind), names[i]);
        EXPECT_EQ(PropertyKindFromName(names[i]), kind);
    }
    EXPECT_EQ(PropertyKindFromName("integer"), std::nullopt);
    EXPECT_EQ(PropertyKindFromName("Currency"), std::nullopt);
    EXPECT_EQ(PropertyKindFromName(""), std::nullopt);
}

TEST(PropertyStore, NumbersEqualTheirDefaultAcrossWidths) {
    MemoryPropertyBag bag;
    bag.WriteProperty("ByteZero", uint8_t{0}, int16_t{0});
    bag.WriteProperty("LongSeven", int32_t{7}, uint8_t{7});
    bag.WriteProperty("DoubleTwo", double{2.0}, int16_t{2});
    bag.WriteProperty("SingleHalf", float{0.5f}, double{0.5});
    bag.WriteProperty("TrueAsMinusOne", true, int16_t{-1});
    bag.WriteProperty("ZeroAsFalse", int32_t{0}, false);
    EXPECT_TRUE(bag.Values().empty());
}

TEST(PropertyStore, DifferentNumbersAreWrittenWithTheValuesKind) {
    MemoryPropertyBag bag;
    bag.WriteProperty("Cols", int16_t{4}, uint8_t{1});
    bag.WriteProperty("Ratio", float{0.1f}, double{0.1});  // 0.1f is not the double 0.1
    bag.WriteProperty("Flag", true, int16_t{1});           // True is -1, not 1
    ASSERT_EQ(bag.Values().size(), 3u);
    EXPECT_EQ(bag.ReadProperty("Cols", 0), PropertyValue(int16_t{4}));
    EXPECT_EQ(bag.ReadProperty("Ratio", 0), PropertyValue(float{0.1f}));
    EXPECT_EQ(bag.ReadProperty("Flag", 0), PropertyValue(true));
}

TEST(PropertyStore, NaNIsNeverEqualToADefault) {
    MemoryPropertyBag bag;
    const double nan = std::numeric_limits<double>::quiet_NaN();
    bag.WriteProperty("Ratio", nan, nan);
    EXPECT_TRUE(bag.Has("Ratio"));
    EXPECT_FALSE(PropertyValuesEqual(nan, nan));
}

TEST(PropertyStore, TextsEqualTheirDefaultOnlyByteForByte) {
    MemoryPropertyBag bag;
    bag.WriteProperty("Same", std::string("Nome"), std::string("Nome"));
    bag.WriteProperty("Case", std::string("NOME"), std::string("Nome"));
    bag.WriteProperty("Digits", std::string("0"), int16_t{0});
    bag.WriteProperty("Number", int16_t{0}, std::string("0"));
    EXPECT_EQ(Keys(bag), (std::vector<std::string>{"Case", "Digits", "Number"}));
}

TEST(PropertyStore, FontsEqualTheirDefaultByAllMembers) {
    MemoryPropertyBag bag;
    const Font base{"Arial", 8.25f, false, false, false};
    bag.WriteProperty("Same", base, base);
    Font underlined = base;
    underlined.underline = true;
    bag.WriteProperty("Underlined", underlined, base);
    Font larger = base;
    larger.size = 9.0f;
    bag.WriteProperty("Larger", larger, base);
    bag.WriteProperty("NotAFont", std::string("Arial"), base);
    EXPECT_EQ(Keys(bag), (std::vector<std::string>{"Underlined", "Larger", "NotAFont"}));
}

TEST(PropertyStore, TheReaderDefaultAnswersForAKeyLeftOutByTheWriter) {
    MemoryPropertyBag bag;
    bag.WriteProperty("BackColor", static_cast<int32_t>(0x80000005u), static_cast<int32_t>(0x80000005u));
    EXPECT_FALSE(bag.Has("BackColor"));
    EXPECT_EQ(bag.ReadInt32("BackColor", 0x00FFFFFF), 0x00FFFFFF);
    EXPECT_EQ(bag.ReadProperty("BackColor", int16_t{3}), PropertyValue(int16_t{3}));
}

TEST(PropertyStore, WholeReadsRoundHalfToEven) {
    MemoryPropertyBag bag;
    bag.Set("a", double{2.5});
    bag.Set("b", float{3.5f});
    bag.Set("c", double{-0.5});
    EXPECT_EQ(bag.ReadInt16("a", 0), 2);
    EXPECT_EQ(bag.ReadInt32("b", 0), 4);
    EXPECT_EQ(bag.ReadByte("a", 0), 2);
    EXPECT_EQ(bag.ReadByte("c", 9), 0);
}

TEST(PropertyStore, ValuesThatDoNotFitTheReadTypeOverflow) {
    MemoryPropertyBag bag;
    bag.Set("big", int32_t{70000});
    bag.Set("minus", int16_t{-1});
    bag.Set("b256", int16_t{256});
    bag.Set("true", true);
    bag.Set("huge", double{1e12});
    bag.Set("beyondSingle", double{1e39});
    bag.Set("nan", std::numeric_limits<double>::quiet_NaN());
    ExpectOverflow([&] { (void)bag.ReadInt16("big", 0); });
    ExpectOverflow([&] { (void)bag.ReadByte("minus", 0); });
    ExpectOverflow([&] { (void)bag.ReadByte("b256", 0); });
    ExpectOverflow([&] { (void)bag.ReadByte("true", 0); });  // True is -1
    ExpectOverflow([&] { (void)bag.ReadInt32("huge", 0); });
    ExpectOverflow([&] { (void)bag.ReadSingle("beyondSingle", 0); });
    ExpectOverflow([&] { (void)bag.ReadInt16("nan", 0); });
    ExpectOverflow([&] { (void)bag.ReadByte("nan", 0); });
    EXPECT_EQ(bag.ReadInt32("big", 0), 70000);
    EXPECT_EQ(bag.ReadInt16("minus", 0), -1);
    EXPECT_EQ(bag.ReadDouble("huge", 0), 1e12);
}

TEST(PropertyStore, TheLargestSingleReadsBackFromADoubleJustAboveIt) {
    MemoryPropertyBag bag;
    const float largest = std::numeric_limits<float>::max();
    bag.Set("exact", double{largest});
    bag.Set("digits", double{3.4028235e38});  // the shortest digits of the largest Single
    bag.Set("negative", double{-3.4028235e38});
    EXPECT_EQ(bag.ReadSingle("exact", 0), largest);
    EXPECT_EQ(bag.ReadSingle("digits", 0), largest);
    EXPECT_EQ(bag.ReadSingle("negative", 0), -largest);
}

TEST(PropertyStore, TextThatIsNoNumberIsATypeMismatch) {
    MemoryPropertyBag bag;
    bag.Set("x", std::string("abc"));
    bag.Set("f", Font{});
    ExpectMismatch([&] { (void)bag.ReadInt16("x", 0); });
    ExpectMismatch([&] { (void)bag.ReadInt32("x", 0); });
    ExpectMismatch([&] { (void)bag.ReadByte("x", 0); });
    ExpectMismatch([&] { (void)bag.ReadSingle("x", 0); });
    ExpectMismatch([&] { (void)bag.ReadDouble("x", 0); });
    ExpectMismatch([&] { (void)bag.ReadBool("x", false); });
    ExpectMismatch([&] { (void)bag.ReadInt16("f", 0); });
    ExpectMismatch([&] { (void)bag.ReadText("f", ""); });
    ExpectMismatch([&] { (void)bag.ReadFont("x", Font{}); });
}

TEST(PropertyStore, NumbersBooleansAndTextsConvertEachWay) {
    ScopedSettings c(SystemSettings::C());
    MemoryPropertyBag bag;
    bag.Set("text", std::string("250"));
    bag.Set("decimal", std::string("1.5"));
    bag.Set("yes", std::string("true"));
    bag.Set("no", std::string("FALSE"));
    bag.Set("single", float{0.1f});
    bag.Set("double", double{0.1});
    bag.Set("byte", uint8_t{7});
    bag.Set("flag", false);
    EXPECT_EQ(bag.ReadByte("text", 0), 250);
    EXPECT_EQ(bag.ReadDouble("decimal", 0), 1.5);
    EXPECT_EQ(bag.ReadSingle("decimal", 0), 1.5f);
    EXPECT_TRUE(bag.ReadBool("yes", false));
    EXPECT_FALSE(bag.ReadBool("no", true));
    EXPECT_EQ(bag.ReadText("single", ""), "0.1");
    EXPECT_EQ(bag.ReadText("double", ""), "0.1");
    EXPECT_EQ(bag.ReadText("byte", ""), "7");
    EXPECT_EQ(bag.ReadText("flag", ""), "False");
    EXPECT_EQ(bag.ReadInt16("flag", 5), 0);
    EXPECT_EQ(bag.ReadSingle("double", 0), 0.1f);
}

TEST(PropertyStore, TextReadsOfNumbersFollowTheSystemSettings) {
    ScopedSettings italian(SystemSettings::Italian());
    MemoryPropertyBag bag;
    bag.Set("half", float{1.5f});
    bag.Set("text", std::string("2,25"));
    EXPECT_EQ(bag.ReadText("half", ""), "1,5");
    EXPECT_EQ(bag.ReadDouble("text", 0), 2.25);
}

TEST(PropertyStore, KeysAreFoundWithoutRegardToCase) {
    MemoryPropertyBag bag;
    bag.Set("Cols", int16_t{3});
    EXPECT_TRUE(bag.Has("COLS"));
    EXPECT_TRUE(bag.Has("cols"));
    EXPECT_EQ(bag.ReadInt16("cOLS", 0), 3);
    EXPECT_FALSE(bag.Has("Col"));
}

TEST(PropertyStore, AKeyKeepsTheSpellingOfItsFirstWrite) {
    MemoryPropertyBag bag;
    bag.WriteProperty("BackColor", int32_t{0xFF}, int32_t{0});
    bag.WriteProperty("BACKCOLOR", int32_t{0xFF00}, int32_t{0});
    ASSERT_EQ(bag.Values().size(), 1u);
    EXPECT_EQ(bag.Values()[0].key, "BackColor");
    EXPECT_EQ(bag.Values()[0].value, PropertyValue(int32_t{0xFF00}));
}

TEST(PropertyStore, ADefaultWrittenUnderAnotherSpellingRemovesTheKey) {
    MemoryPropertyBag bag;
    bag.WriteProperty("Caption", std::string("Clienti"), std::string(""));
    bag.WriteProperty("caption", std::string(""), std::string(""));
    EXPECT_FALSE(bag.Has("Caption"));
    EXPECT_TRUE(bag.Values().empty());
}

TEST(PropertyStore, KeysStayInTheOrderOfTheirFirstWrite) {
    MemoryPropertyBag bag;
    for (const char* key : {"Zeta", "Alpha", "Mid", "beta"}) bag.WriteProperty(key, int16_t{1}, int16_t{0});
    bag.WriteProperty("ALPHA", int16_t{2}, int16_t{0});  // rewritten: keeps its place
    EXPECT_EQ(Keys(bag), (std::vector<std::string>{"Zeta", "Alpha", "Mid", "beta"}));
    bag.WriteProperty("Zeta", int16_t{0}, int16_t{0});  // left out: loses its place
    bag.WriteProperty("Zeta", int16_t{5}, int16_t{0});  // written again: at the end
    EXPECT_EQ(Keys(bag), (std::vector<std::string>{"Alpha", "Mid", "beta", "Zeta"}));
    EXPECT_EQ(bag.ReadInt16("mid", 0), 1);
    EXPECT_EQ(bag.ReadInt16("alpha", 0), 2);
    EXPECT_EQ(bag.ReadInt16("zeta", 0), 5);
}

TEST(PropertyStore, RemoveAndClearKeepTheIndexTrue) {
    MemoryPropertyBag bag;
    for (const char* key : {"a", "b", "c", "d"}) bag.Set(key, std::string(key));
    EXPECT_TRUE(bag.Remove("B"));
    EXPECT_FALSE(bag.Remove("b"));
    EXPECT_EQ(bag.ReadText("c", ""), "c");
    EXPECT_EQ(bag.ReadText("d", ""), "d");
    EXPECT_EQ(Keys(bag), (std::vector<std::string>{"a", "c", "d"}));
    bag.Clear();
    EXPECT_FALSE(bag.Has("a"));
    EXPECT_TRUE(bag.Values().empty());
    bag.Set("a", int16_t{1});
    EXPECT_EQ(Keys(bag), (std::vector<std::string>{"a"}));
}

TEST(PropertyStore, StoresCompareKeysKindsValuesAndOrder) {
    MemoryPropertyBag a;
    MemoryPropertyBag b;
    a.Set("Cols", int16_t{2});
    a.Set("Ratio", std::numeric_limits<double>::quiet_NaN());
    b.Set("Cols", int16_t{2});
    b.Set("Ratio", std::numeric_limits<double>::quiet_NaN());
    EXPECT_TRUE(a == b);

    MemoryPropertyBag otherKind;
    otherKind.Set("Cols", int32_t{2});
    otherKind.Set("Ratio", std::numeric_limits<double>::quiet_NaN());
    EXPECT_FALSE(a == otherKind);

    MemoryPropertyBag otherOrder;
    otherOrder.Set("Ratio", std::numeric_limits<double>::quiet_NaN());
    otherOrder.Set("Cols", int16_t{2});
    EXPECT_FALSE(a == otherOrder);

    MemoryPropertyBag otherSpelling;
    otherSpelling.Set("COLS", int16_t{2});
    otherSpelling.Set("Ratio", std::numeric_limits<double>::quiet_NaN());
    EXPECT_FALSE(a == otherSpelling);

    MemoryPropertyBag shorter;
    shorter.Set("Cols", int16_t{2});
    EXPECT_FALSE(a == shorter);
}

}  // namespace
}  // namespace TabulonLib12
