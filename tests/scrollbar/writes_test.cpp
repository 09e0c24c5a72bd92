// Writes of Value, Max, Min and Enabled: clamping, the order of the events, the notices.
#include <limits>

#include "scorrix_fixture.h"

namespace TabulonLib12::testing {
namespace {

using Writes = ScorrixTest;
constexpr int32_t kI32Max = std::numeric_limits<int32_t>::max();
constexpr int32_t kI32Min = std::numeric_limits<int32_t>::min();

TEST_F(Writes, ValueAboveMaxStoresMaxAndTheCallersVariableReadsIt) {
    int32_t v = 150;
    bar.setValue(v);
    EXPECT_EQ(bar.Value(), 100);
    EXPECT_EQ(v, 100);
}

TEST_F(Writes, ValueBelowMinStoresMinAndTheCallersVariableReadsIt) {
    bar.setMin(-5);
    int32_t v = -20;
    bar.setValue(v);
    EXPECT_EQ(bar.Value(), -5);
    EXPECT_EQ(v, -5);
}

TEST_F(Writes, ValueInRangeIsLeftInTheCallersVariable) {
    int32_t v = 42;
    bar.setValue(v);
    EXPECT_EQ(v, 42);
    EXPECT_EQ(bar.Value(), 42);
}

TEST_F(Writes, CallersVariableHoldsTheClampedValueWhileTheEventsRun) {
    int32_t v = 500;
    int32_t seen = 0;
    bar.onChange = [&] { seen = v; };
    bar.setValue(v);
    EXPECT_EQ(seen, 100);
}

TEST_F(Writes, RisingValueRaisesChangeThenGoDownThenPropertyChanged) {
    Write(10);
    EXPECT_EQ(log, (Log{"Change", "GoDown", "PropertyChanged Value"}));
    EXPECT_EQ(S().ValorePrecedente, 0);
}

TEST_F(Writes, FallingValueRaisesChangeThenGoUpThenPropertyChanged) {
    Start(10);
    Write(4);
    EXPECT_EQ(log, (Log{"Change", "GoUp", "PropertyChanged Value"}));
    EXPECT_EQ(S().ValorePrecedente, 10);
}

TEST_F(Writes, WritingItsOwnValueRaisesChangeAndNeitherDirection) {
    Start(10);
    Write(10);
    EXPECT_EQ(log, (Log{"Change", "PropertyChanged Value"}));
}

TEST_F(Writes, ClampedWriteAtTheBoundRaisesChangeOnly) {
    Start(100);
    Write(150);
    EXPECT_EQ(log, (Log{"Change", "PropertyChanged Value"}));
}

TEST_F(Writes, ValueWriteSetsTheThumbHeightFromTheBounds) {
    // A stored Max read from the store changes no height; the next Value write does.
    MemoryPropertyBag bag;
    bag.Set("Max", int32_t{5});
    bar.ReadProperties(bag);
    EXPECT_EQ(Thumb().Height(), 200);
    Write(1);
    EXPECT_EQ(Thumb().Height(), 440);
}

TEST_F(Writes, HandlersSeeTheNewValueAndTheThumbAlreadyPlaced) {
    float top = 0;
    int32_t value = 0;
    bar.onGoDown = [&] {
        top = Thumb().Top();
        value = bar.Value();
    };
    Write(10);
    EXPECT_EQ(value, 10);
    EXPECT_EQ(top, 470);
}

TEST_F(Writes, ChangeHandlerMayWriteValueAgain) {
    int nested = 0;
    bar.onChange = [&] {
        log.push_back("Change " + std::to_string(bar.Value()));
        if (nested++ == 0) {
            int32_t again = 60;
            bar.setValue(again);
        }
    };
    Write(10);
    EXPECT_EQ(bar.Value(), 60);
    EXPECT_EQ(Thumb().Top(), 270 + 60 * 20);
    // The inner write runs whole inside the outer Change; the outer write then finds the
    // previous value that the inner one left (10) and raises GoDown again.
    EXPECT_EQ(log, (Log{"Change 10", "Change 60", "GoDown", "PropertyChanged Value", "GoDown",
                        "PropertyChanged Value"}));
}

TEST_F(Writes, MaxBelowValueMovesValueWithGoUpBeforeChangeAndStoresMaxLast) {
    Start(20);
    std::vector<int32_t> maxSeen, valueSeen;
    bar.onGoUp = [&] {
        log.push_back("GoUp");
        maxSeen.push_back(bar.Max());
        valueSeen.push_back(bar.Value());
    };
    bar.onChange = [&] {
        log.push_back("Change");
        maxSeen.push_back(bar.Max());
    };
    bar.setMax(5);
    EXPECT_EQ(bar.Value(), 5);
    EXPECT_EQ(bar.Max(), 5);
    EXPECT_EQ(log, (Log{"GoUp", "Change", "PropertyChanged Max"}));
    EXPECT_EQ(maxSeen, (std::vector<int32_t>{100, 100}));
    EXPECT_EQ(valueSeen, (std::vector<int32_t>{5}));
    // The thumb was placed with the old bound (20 twips a value); the height follows the new one.
    EXPECT_EQ(Thumb().Top(), 270 + 5 * 20);
    EXPECT_EQ(Thumb().Height(), 440);
}

TEST_F(Writes, MaxAboveValueRaisesOnlyPropertyChanged) {
    Start(20);
    bar.setMax(300);
    EXPECT_EQ(log, (Log{"PropertyChanged Max"}));
    EXPECT_EQ(bar.Max(), 300);
    EXPECT_EQ(bar.Value(), 20);
}

TEST_F(Writes, MaxBelowMinTakesMin) {
    bar.setMin(10);
    log.clear();
    bar.setMax(3);
    EXPECT_EQ(bar.Max(), 10);
    EXPECT_EQ(bar.Value(), 10);
    EXPECT_EQ(log, (Log{"PropertyChanged Max"}));
}

TEST_F(Writes, MaxEqualToValueLeavesValueAlone) {
    Start(20);
    bar.setMax(20);
    EXPECT_EQ(log, (Log{"PropertyChanged Max"}));
}

TEST_F(Writes, MaxWriteSetsTheThumbHeightFromTheNewBound) {
    Start(50);
    bar.setMax(10);
    EXPECT_EQ(Thumb().Height(), 220);
    EXPECT_EQ(Thumb().Top(), 270 + 10 * 20);  // placed once, by the old bound, when Value fell
    log.clear();
    bar.setMax(4);
    EXPECT_EQ(Thumb().Height(), 550);
}

TEST_F(Writes, MinAboveValueMovesValueWithGoDownThenChangeAndStoresMinLast) {
    Start(5);
    int32_t minSeen = -1;
    bar.onChange = [&] {
        log.push_back("Change");
        minSeen = bar.Min();
    };
    bar.setMin(30);
    EXPECT_EQ(bar.Value(), 30);
    EXPECT_EQ(bar.Min(), 30);
    EXPECT_EQ(log, (Log{"GoDown", "Change", "PropertyChanged Min"}));
    EXPECT_EQ(minSeen, 0);
    // Placed by the old bound: 30 values of 20 twips from 0.
    EXPECT_EQ(Thumb().Top(), 270 + 30 * 20);
}

TEST_F(Writes, MinBelowValueRaisesOnlyPropertyChanged) {
    Start(20);
    bar.setMin(-10);
    EXPECT_EQ(log, (Log{"PropertyChanged Min"}));
    EXPECT_EQ(bar.Min(), -10);
    EXPECT_EQ(Thumb().Height(), 200);
}

TEST_F(Writes, MinIsNotTestedAgainstMax) {
    bar.setMin(150);
    EXPECT_EQ(bar.Min(), 150);
    EXPECT_EQ(bar.Max(), 100);
    EXPECT_EQ(bar.Value(), 150);
}

TEST_F(Writes, EnabledWriteStoresSetsTheBodyAndNotifies) {
    bar.setEnabled(false);
    EXPECT_FALSE(bar.Enabled());
    EXPECT_FALSE(bar.Corpo().Enabled());
    bar.setEnabled(true);
    EXPECT_TRUE(bar.Corpo().Enabled());
    EXPECT_EQ(log, (Log{"PropertyChanged Enabled", "PropertyChanged Enabled"}));
}

TEST_F(Writes, EnabledWriteOfTheSameValueStillNotifies) {
    bar.setEnabled(true);
    EXPECT_EQ(log, (Log{"PropertyChanged Enabled"}));
}

TEST_F(Writes, WritesWithoutHandlersRunQuietly) {
    bar.onChange = nullptr;
    bar.onGoDown = nullptr;
    bar.onGoUp = nullptr;
    bar.propertyChanged = nullptr;
    Write(3);
    bar.setMax(2);
    bar.setMin(1);
    bar.setEnabled(false);
    EXPECT_EQ(bar.Value(), 2);
}

TEST_F(Writes, HandlerMayReplaceItselfWhileItRuns) {
    bar.onChange = [&] {
        log.push_back("first");
        bar.onChange = [&] { log.push_back("second"); };
    };
    Write(1);
    Write(2);
    EXPECT_EQ(Count("first"), 1u);
    EXPECT_EQ(Count("second"), 1u);
}

TEST_F(Writes, PlacementBeyond32BitsFailsWithOverflow) {
    bar.setMax(kI32Max);
    bar.setMin(kI32Min);
    log.clear();
    int32_t v = 0;
    // Value - Min does not fit 32 bits: the write stops there, before Change and the notice.
    EXPECT_SCORRIX_ERROR(bar.setValue(v), ErrorKind::Overflow);
    EXPECT_TRUE(log.empty());
}

TEST_F(Writes, PlacementProductBeyond32BitsFailsWithOverflow) {
    bar.Move(kLeft, kTop, kW, 2.1e9f);
    bar.setMax(800000000);  // travel 2099999260 over 8e8 values: 2.62, 3 twips a value
    int32_t v = 700000000;
    bar.setValue(v);  // 2.1e9 twips from the start: fits
    EXPECT_EQ(bar.Value(), 700000000);
    v = 800000000;  // 2.4e9 does not
    EXPECT_SCORRIX_ERROR(bar.setValue(v), ErrorKind::Overflow);
}

}  // namespace
}  // namespace TabulonLib12::testing
