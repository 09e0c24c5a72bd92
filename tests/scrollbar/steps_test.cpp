// One-value steps: SendDown and SendUp, as clicks on the buttons.
#include <limits>

#include "scorrix_fixture.h"

namespace TabulonLib12::testing {
namespace {

using Steps = ScorrixTest;

TEST_F(Steps, SendDownStepsOneWithGoDownThenChange) {
    Start(10);
    bar.SendDown();
    EXPECT_EQ(bar.Value(), 11);
    EXPECT_EQ(log, (Log{"GoDown", "Change"}));
    EXPECT_EQ(S().ValorePrecedente, 10);
    EXPECT_EQ(Thumb().Top(), 270 + 11 * 20);
}

TEST_F(Steps, SendUpStepsOneWithGoUpThenChange) {
    Start(10);
    bar.SendUp();
    EXPECT_EQ(bar.Value(), 9);
    EXPECT_EQ(log, (Log{"GoUp", "Change"}));
    EXPECT_EQ(Thumb().Top(), 270 + 9 * 20);
}

TEST_F(Steps, SendDownAtMaxRaisesNothing) {
    Start(100);
    const float top = Thumb().Top();
    bar.SendDown();
    EXPECT_EQ(bar.Value(), 100);
    EXPECT_TRUE(log.empty());
    EXPECT_EQ(Thumb().Top(), top);
}

TEST_F(Steps, SendUpAtMinRaisesNothing) {
    bar.SendUp();
    EXPECT_EQ(bar.Value(), 0);
    EXPECT_TRUE(log.empty());
}

TEST_F(Steps, StepsWriteNeitherTheStoreNotices) {
    Start(50);
    bar.SendDown();
    bar.SendUp();
    EXPECT_EQ(Count("PropertyChanged Value"), 0u);
}

TEST_F(Steps, StepsLeaveTheThumbHeight) {
    MemoryPropertyBag bag;
    bag.Set("Max", int32_t{5});
    bar.ReadProperties(bag);  // Max 5 would give a thumb of 440
    bar.SendDown();
    EXPECT_EQ(bar.Value(), 1);
    EXPECT_EQ(Thumb().Height(), 200);
    // The placement uses the height that stands: travel 2740 - 510 - 440 - 30 = 1760, 352 a value.
    EXPECT_EQ(Thumb().Top(), 270 + 352);
}

TEST_F(Steps, StepDownFromAnUnclampedValueAboveMaxDoesNothing) {
    // A value read from the store is not clamped; a step down from above Max has nothing to do.
    MemoryPropertyBag bag;
    bag.Set("Value", int32_t{150});
    bar.ReadProperties(bag);
    bar.SendDown();
    EXPECT_EQ(bar.Value(), 150);
    EXPECT_TRUE(log.empty());
    // A step up from there goes by one.
    bar.SendUp();
    EXPECT_EQ(bar.Value(), 149);
    EXPECT_EQ(log, (Log{"GoUp", "Change"}));
}

TEST_F(Steps, StepsMoveWhileTheBarIsDisabled) {
    bar.setEnabled(false);
    log.clear();
    bar.SendDown();
    bar.SendDown();
    bar.SendUp();
    EXPECT_EQ(bar.Value(), 1);
    EXPECT_EQ(log, (Log{"GoDown", "Change", "GoDown", "Change", "GoUp", "Change"}));
}

TEST_F(Steps, ChangeHandlerMayStepAgain) {
    int calls = 0;
    bar.onChange = [&] {
        if (++calls == 1) bar.SendDown();
    };
    bar.SendDown();
    EXPECT_EQ(bar.Value(), 2);
    EXPECT_EQ(calls, 2);
}

TEST_F(Steps, StepPastTheTopOf32BitsFailsWithOverflow) {
    bar.setMax(std::numeric_limits<int32_t>::max());
    Start(std::numeric_limits<int32_t>::max());
    EXPECT_SCORRIX_ERROR(bar.SendDown(), ErrorKind::Overflow);
    EXPECT_EQ(bar.Value(), std::numeric_limits<int32_t>::max());
    EXPECT_TRUE(log.empty());
}

TEST_F(Steps, StepPastTheBottomOf32BitsFailsWithOverflow) {
    MemoryPropertyBag bag;
    bag.Set("Min", std::numeric_limits<int32_t>::min());
    bag.Set("Max", std::numeric_limits<int32_t>::min() + 100);
    bag.Set("Value", std::numeric_limits<int32_t>::min());
    bar.ReadProperties(bag);
    EXPECT_SCORRIX_ERROR(bar.SendUp(), ErrorKind::Overflow);
    EXPECT_TRUE(log.empty());
}

}  // namespace
}  // namespace TabulonLib12::testing
