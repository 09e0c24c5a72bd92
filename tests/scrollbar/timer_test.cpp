// The repeat timers: a held button or a held track press steps every 100 ms, faster the longer
// it is held.
#include "scorrix_fixture.h"

namespace TabulonLib12::testing {
namespace {

using Timers = ScorrixTest;

// Step of each tick while a button is held: a tenth of the ticks, rounded half to even.
// Ticks 1-5 step 0, 6-14 step 1, 15-25 step 2, 26-34 step 3, 35-45 step 4.
int ExpectedStep(int tick) {
    if (tick <= 5) return 0;
    if (tick <= 14) return 1;
    if (tick <= 25) return 2;
    if (tick <= 34) return 3;
    return 4;
}

TEST_F(Timers, PressOnTheDownButtonStartsTheDownTimer) {
    Press(kMidX, kDownY);
    EXPECT_TRUE(S().TimerDWN->Enabled());
    EXPECT_TRUE(S().TimerDWN->Running());
    EXPECT_FALSE(S().TimerUP->Enabled());
    EXPECT_TRUE(log.empty());
}

TEST_F(Timers, HeldDownButtonAcceleratesTickByTick) {
    bar.setMax(1000);
    Start(0);
    Press(kMidX, kDownY);
    int32_t expected = 0;
    for (int tick = 1; tick <= 45; ++tick) {
        log.clear();
        Tick();
        expected += ExpectedStep(tick);
        ASSERT_EQ(S().TickPremuto, tick);
        ASSERT_EQ(S().PassoVelocita, ExpectedStep(tick)) << "tick " << tick;
        ASSERT_EQ(bar.Value(), expected) << "tick " << tick;
        if (ExpectedStep(tick) == 0)
            EXPECT_EQ(log, (Log{"Change"})) << "tick " << tick;
        else
            EXPECT_EQ(log, (Log{"GoDown", "Change"})) << "tick " << tick;
    }
    // 5 x 0 + 9 x 1 + 11 x 2 + 9 x 3 + 11 x 4.
    EXPECT_EQ(bar.Value(), 102);
}

TEST_F(Timers, FirstFiveTicksRaiseChangeWithoutMoving) {
    Start(10);
    Press(kMidX, kDownY);
    timers.Advance(500);
    EXPECT_EQ(bar.Value(), 10);
    EXPECT_EQ(log, (Log{"Change", "Change", "Change", "Change", "Change"}));
    EXPECT_EQ(S().TickPremuto, 5);
    EXPECT_EQ(S().PassoVelocita, 0);
    Tick();
    EXPECT_EQ(bar.Value(), 11);
}

TEST_F(Timers, NoTickBeforeTheFirstInterval) {
    Press(kMidX, kDownY);
    timers.Advance(99);
    EXPECT_TRUE(log.empty());
    EXPECT_EQ(S().TickPremuto, 0);
    timers.Advance(1);
    EXPECT_EQ(S().TickPremuto, 1);
}

TEST_F(Timers, ShortPressGivesOneStepFromTheClickAfterTheZeroStepChanges) {
    Start(0);
    Press(kMidX, kDownY);
    timers.Advance(450);  // four ticks of step 0
    Release(kMidX, kDownY);
    EXPECT_EQ(bar.Value(), 1);
    EXPECT_EQ(log, (Log{"Change", "Change", "Change", "Change", "GoDown", "Change"}));
}

TEST_F(Timers, ReleaseOfTheButtonStopsItsTimerAndForgetsTheSpeed) {
    Press(kMidX, kDownY);
    timers.Advance(1200);
    EXPECT_EQ(S().TickPremuto, 12);
    EXPECT_EQ(S().PassoVelocita, 1);
    Release(kMidX, kDownY);
    EXPECT_FALSE(S().TimerDWN->Enabled());
    EXPECT_EQ(timers.ActiveCount(), 0);
    EXPECT_EQ(S().TickPremuto, 0);
    EXPECT_EQ(S().PassoVelocita, 0);
    const int32_t value = bar.Value();
    timers.Advance(1000);
    EXPECT_EQ(bar.Value(), value);
}

TEST_F(Timers, HeldUpButtonAcceleratesUpward) {
    bar.setMax(1000);
    Start(500);
    Press(kMidX, kUpY);
    EXPECT_TRUE(S().TimerUP->Enabled());
    int32_t expected = 500;
    for (int tick = 1; tick <= 30; ++tick) {
        log.clear();
        Tick();
        expected -= ExpectedStep(tick);
        ASSERT_EQ(bar.Value(), expected) << "tick " << tick;
        if (ExpectedStep(tick) == 0)
            EXPECT_EQ(log, (Log{"Change"}));
        else
            EXPECT_EQ(log, (Log{"GoUp", "Change"}));
    }
    Release(kMidX, kUpY);
    EXPECT_FALSE(S().TimerUP->Enabled());
    EXPECT_EQ(S().TickPremuto, 0);
}

TEST_F(Timers, HeldButtonStopsAtMaxAndThenRaisesNothing) {
    Start(93);
    Press(kMidX, kDownY);
    timers.Advance(1400);  // ticks 6 to 14 step 1: 93 + 7 reaches 100 at tick 12
    EXPECT_EQ(bar.Value(), 100);
    log.clear();
    timers.Advance(1000);
    EXPECT_TRUE(log.empty());
    EXPECT_TRUE(S().TimerDWN->Enabled());  // still held
}

TEST_F(Timers, FastStepIsCutAtMax) {
    bar.setMax(1000);
    Start(0);
    Press(kMidX, kDownY);
    timers.Advance(2500);  // through tick 25: 0 + 9 + 11 x 2 = 31
    EXPECT_EQ(bar.Value(), 31);
    bar.setMax(32);
    log.clear();
    Tick();  // tick 26 steps 3 from 31: cut to 32
    EXPECT_EQ(bar.Value(), 32);
    EXPECT_EQ(log, (Log{"GoDown", "Change"}));
}

TEST_F(Timers, FastStepIsCutAtMin) {
    bar.setMax(1000);
    Start(40);
    Press(kMidX, kUpY);
    timers.Advance(2500);  // 40 - 31 = 9
    EXPECT_EQ(bar.Value(), 9);
    bar.setMin(8);
    log.clear();
    Tick();
    EXPECT_EQ(bar.Value(), 8);
    EXPECT_EQ(log, (Log{"GoUp", "Change"}));
}

TEST_F(Timers, TicksOfADisabledBarDoNothing) {
    Start(10);
    S().TimerDWN->setEnabled(true);  // a repeat under way when the control disables the bar
    bar.setEnabled(false);
    log.clear();
    timers.Advance(2000);
    EXPECT_EQ(bar.Value(), 10);
    EXPECT_EQ(S().TickPremuto, 0);
    EXPECT_TRUE(log.empty());
    bar.setEnabled(true);
    log.clear();
    Tick();
    EXPECT_EQ(S().TickPremuto, 1);
    EXPECT_EQ(log, (Log{"Change"}));
}

TEST_F(Timers, DisablingTheBarWhileHeldTakesTheMouseAwayButNotTheTimer) {
    Start(10);
    Press(kMidX, kDownY);
    bar.setEnabled(false);
    EXPECT_EQ(surface.Captured(), nullptr);
    Release(kMidX, kDownY);  // goes to nothing of the bar
    EXPECT_TRUE(S().TimerDWN->Enabled());
    log.clear();
    timers.Advance(1000);
    EXPECT_TRUE(log.empty());
    EXPECT_EQ(bar.Value(), 10);
}

}  // namespace
}  // namespace TabulonLib12::testing
