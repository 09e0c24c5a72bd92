// The property store: defaults, the keys and their order, reading without clamping.
#include <limits>

#include "scorrix_fixture.h"

namespace TabulonLib12::testing {
namespace {

using Properties = ScorrixTest;

// A store that remembers the order in which keys are read and written.
class RecordingBag final : public PropertyBag {
public:
    PropertyValue ReadProperty(const std::string& key, const PropertyValue& defaultValue) const override {
        reads.push_back(key);
        return inner.ReadProperty(key, defaultValue);
    }
    void WriteProperty(const std::string& key, const PropertyValue& value, const PropertyValue& defaultValue) override {
        writes.push_back(key);
        defaults.push_back(defaultValue);
        inner.WriteProperty(key, value, defaultValue);
    }
    MemoryPropertyBag inner;
    mutable std::vector<std::string> reads;
    std::vector<std::string> writes;
    std::vector<PropertyValue> defaults;
};

TEST_F(Properties, WriteGoesThroughEnabledMaxMinValueWithTheirDefaults) {
    RecordingBag bag;
    bar.WriteProperties(bag);
    EXPECT_EQ(bag.writes, (std::vector<std::string>{"Enabled", "Max", "Min", "Value"}));
    EXPECT_EQ(bag.defaults, (std::vector<PropertyValue>{PropertyValue(true), PropertyValue(int32_t{100}),
                                                        PropertyValue(int32_t{0}), PropertyValue(int32_t{0})}));
}

TEST_F(Properties, NewBarWritesNothingButDefaults) {
    MemoryPropertyBag bag;
    bar.WriteProperties(bag);
    EXPECT_TRUE(bag.Values().empty());
}

TEST_F(Properties, WriteSavesChangedValuesWithTheirKinds) {
    bar.setEnabled(false);
    bar.setMax(250);
    bar.setMin(5);
    Write(17);
    MemoryPropertyBag bag;
    bar.WriteProperties(bag);
    EXPECT_EQ(bag.ReadProperty("Enabled", true), PropertyValue(false));
    EXPECT_EQ(bag.ReadProperty("Max", 0), PropertyValue(int32_t{250}));
    EXPECT_EQ(bag.ReadProperty("Min", 0), PropertyValue(int32_t{5}));
    EXPECT_EQ(bag.ReadProperty("Value", 0), PropertyValue(int32_t{17}));
}

TEST_F(Properties, WritingTheStoreRaisesNoEvent) {
    MemoryPropertyBag bag;
    Start(3);
    bar.WriteProperties(bag);
    EXPECT_TRUE(log.empty());
}

TEST_F(Properties, ReadGoesThroughEnabledMaxMinValue) {
    RecordingBag bag;
    bar.ReadProperties(bag);
    EXPECT_EQ(bag.reads, (std::vector<std::string>{"Enabled", "Max", "Min", "Value"}));
}

TEST_F(Properties, RoundTripRestoresTheFields) {
    bar.setEnabled(false);
    bar.setMax(250);
    bar.setMin(-5);
    Write(17);
    MemoryPropertyBag bag;
    bar.WriteProperties(bag);

    Scorrix other(surface, nullptr, "VS2");
    other.ReadProperties(bag);
    EXPECT_FALSE(other.Enabled());
    EXPECT_FALSE(other.Corpo().Enabled());
    EXPECT_EQ(other.Max(), 250);
    EXPECT_EQ(other.Min(), -5);
    EXPECT_EQ(other.Value(), 17);
}

TEST_F(Properties, ReadAssignsWithoutClampingPlacingOrNotices) {
    Start(40);
    const float top = Thumb().Top(), height = Thumb().Height();
    MemoryPropertyBag bag;
    bag.Set("Max", int32_t{10});
    bag.Set("Min", int32_t{20});
    bag.Set("Value", int32_t{50});
    bar.ReadProperties(bag);
    EXPECT_EQ(bar.Max(), 10);
    EXPECT_EQ(bar.Min(), 20);
    EXPECT_EQ(bar.Value(), 50);
    EXPECT_EQ(Thumb().Top(), top);
    EXPECT_EQ(Thumb().Height(), height);
    EXPECT_TRUE(log.empty());
}

TEST_F(Properties, NextResizeAfterAReadSizesTheThumb) {
    MemoryPropertyBag bag;
    bag.Set("Max", int32_t{5});
    bag.Set("Value", int32_t{3});
    bar.ReadProperties(bag);
    EXPECT_EQ(Thumb().Height(), 200);
    bar.Move(kLeft, kTop, kW, 2745);  // (2745 - 540) / 5 = 441
    EXPECT_EQ(Thumb().Height(), 441);
    EXPECT_EQ(Thumb().Top(), 270);  // at the start until the next placement
    EXPECT_TRUE(log.empty());
}

TEST_F(Properties, ReadingEnabledFalseDisablesTheBodyWithoutANotice) {
    MemoryPropertyBag bag;
    bag.Set("Enabled", false);
    bar.ReadProperties(bag);
    EXPECT_FALSE(bar.Enabled());
    EXPECT_FALSE(bar.Corpo().Enabled());
    EXPECT_TRUE(log.empty());
}

TEST_F(Properties, EnabledStoredAsMinusOneOrZeroReadsAsATruthValue) {
    MemoryPropertyBag bag;
    bag.Set("Enabled", int32_t{0});
    bar.ReadProperties(bag);
    EXPECT_FALSE(bar.Enabled());
    bag.Set("Enabled", int32_t{-1});
    bar.ReadProperties(bag);
    EXPECT_TRUE(bar.Enabled());
    EXPECT_TRUE(bar.Corpo().Enabled());
}

TEST_F(Properties, MissingKeysReadAsTheDefaults) {
    bar.setEnabled(false);
    bar.setMax(7);
    Write(3);
    MemoryPropertyBag empty;
    bar.ReadProperties(empty);
    EXPECT_TRUE(bar.Enabled());
    EXPECT_EQ(bar.Max(), 100);
    EXPECT_EQ(bar.Min(), 0);
    EXPECT_EQ(bar.Value(), 0);
}

TEST_F(Properties, ExtremeValuesSurviveTheStore) {
    MemoryPropertyBag bag;
    bag.Set("Max", std::numeric_limits<int32_t>::min());
    bag.Set("Min", std::numeric_limits<int32_t>::max());
    bag.Set("Value", std::numeric_limits<int32_t>::max());
    bar.ReadProperties(bag);
    MemoryPropertyBag saved;
    bar.WriteProperties(saved);
    EXPECT_EQ(saved.ReadInt32("Max", 100), std::numeric_limits<int32_t>::min());
    EXPECT_EQ(saved.ReadInt32("Min", 0), std::numeric_limits<int32_t>::max());
    EXPECT_EQ(saved.ReadInt32("Value", 0), std::numeric_limits<int32_t>::max());
}

TEST_F(Properties, ValueOfAWrongKindFailsWithTypeMismatch) {
    MemoryPropertyBag bag;
    bag.Set("Max", std::string("lots"));
    EXPECT_SCORRIX_ERROR(bar.ReadProperties(bag), ErrorKind::TypeMismatch);
}

TEST_F(Properties, NumberTooLargeFor32BitsFailsWithOverflow) {
    MemoryPropertyBag bag;
    bag.Set("Value", 1e12);
    EXPECT_SCORRIX_ERROR(bar.ReadProperties(bag), ErrorKind::Overflow);
}

TEST_F(Properties, InitPropertiesRestoresTheDefaultsQuietly) {
    bar.setEnabled(false);
    bar.setMax(7);
    bar.setMin(2);
    Write(5);
    log.clear();
    bar.InitProperties();
    EXPECT_TRUE(bar.Enabled());
    EXPECT_TRUE(bar.Corpo().Enabled());
    EXPECT_EQ(bar.Max(), 100);
    EXPECT_EQ(bar.Min(), 0);
    EXPECT_EQ(bar.Value(), 0);
    EXPECT_TRUE(log.empty());
}

}  // namespace
}  // namespace TabulonLib12::testing
