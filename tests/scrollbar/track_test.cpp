// A press on the track repeats toward the press with the timer of that side.
#include "scorrix_fixture.h"

namespace TabulonLib12::testing {
namespace {

using Track = ScorrixTest;

TEST_F(Track, PressBelowTheThumbStartsTheDownRepeat) {
    Start(0);  // thumb from 270 to 470
    S().TimerUP->setEnabled(true);
    Press(kMidX, 1500);
    EXPECT_EQ(S().YTraccia, 1500);
    EXPECT_TRUE(S().TimerDWN->Enabled());
    EXPECT_FALSE(S().TimerUP->Enabled());
    EXPECT_TRUE(log.empty());
}

TEST_F(Track, PressAboveTheThumbStartsTheUpRepeat) {
    Start(50);  // thumb at 1270
    S().TimerDWN->setEnabled(true);
    Press(kMidX, 600);
    EXPECT_EQ(S().YTraccia, 600);
    EXPECT_TRUE(S().TimerUP->Enabled());
    EXPECT_FALSE(S().TimerDWN->Enabled());
}

TEST_F(Track, PressLevelWithTheThumbsTopStopsBothTimers) {
    Start(0);
    S().TimerUP->setEnabled(true);
    S().TimerDWN->setEnabled(true);
    Press(5, 270);  // in the margin left of the thumb
    EXPECT_EQ(S().YTraccia, 270);
    EXPECT_FALSE(S().TimerUP->Enabled());
    EXPECT_FALSE(S().TimerDWN->Enabled());
    EXPECT_EQ(timers.ActiveCount(), 0);
}

TEST_F(Track, PressInTheMarginBesideTheThumbIsATrackPress) {
    Start(0);
    Press(5, 300);  // level with the thumb, below its top
    EXPECT_TRUE(S().TimerDWN->Enabled());
    EXPECT_EQ(S().YPresa, 0);
}

TEST_F(Track, PressOfAnyButtonCounts) {
    Press(kMidX, 1500, MouseButton::Right);
    EXPECT_TRUE(S().TimerDWN->Enabled());
    Release(kMidX, 1500, MouseButton::Right);
    EXPECT_FALSE(S().TimerDWN->Enabled());
    Press(kMidX, 1500, MouseButton::Middle);
    EXPECT_TRUE(S().TimerDWN->Enabled());
}

TEST_F(Track, PressYIsRoundedHalfToEven) {
    Press(kMidX, 1500.5f);
    EXPECT_EQ(S().YTraccia, 1500);
    Release(kMidX, 1500.5f);
    Press(kMidX, 1501.5f);
    EXPECT_EQ(S().YTraccia, 1502);
}

TEST_F(Track, HeldPressAcceleratesLikeAHeldButton) {
    Start(0);
    Press(kMidX, 2000);
    timers.Advance(500);
    EXPECT_EQ(bar.Value(), 0);
    EXPECT_EQ(log, (Log{"Change", "Change", "Change", "Change", "Change"}));
    timers.Advance(1000);  // ticks 6 to 15: 9 x 1 + 2
    EXPECT_EQ(bar.Value(), 11);
}

TEST_F(Track, PressBelowTheThumbHasNoStopAndRepeatsToTheEnd) {
    Start(0);
    Press(kMidX, 2300);  // the thumb's lowest top is 2255: it never gets a thumb height below
    timers.Advance(10000);
    EXPECT_EQ(bar.Value(), 100);
    EXPECT_TRUE(S().TimerDWN->Enabled());  // the repeat goes on until the release
    EXPECT_EQ(S().YTraccia, 2300);
    Release(kMidX, 2300);
    EXPECT_FALSE(S().TimerDWN->Enabled());
}

TEST_F(Track, DownwardRepeatThatPassesThePressStopsOneToTwoHeightsBelowIt) {
    Start(0);
    Press(kMidX, 600);
    // Once the thumb is below the press the rule of a press above the thumb holds: before
    // tick 24 the thumb stands at 270 + 27 x 20 = 810, 210 below the press and 10 less than
    // two heights, so tick 24 ends the repeat after its step of 2, at 29.
    timers.Advance(2300);
    EXPECT_EQ(bar.Value(), 27);
    EXPECT_TRUE(S().TimerDWN->Enabled());
    Tick();
    EXPECT_EQ(bar.Value(), 29);
    EXPECT_FALSE(S().TimerDWN->Enabled());
    EXPECT_EQ(S().YTraccia, 0);
}

TEST_F(Track, PressAboveTheThumbStopsWhenTheThumbIsOneToTwoHeightsBelowIt) {
    Start(80);  // thumb at 1870
    Press(kMidX, 1000);
    // Ticks 1-5 step 0, 6-14 step 1 (to 71), then 2 each: 69, 67, ..., 55 after tick 22 with the
    // thumb at 1370. Tick 23 finds 1370 - 1000 = 370 > 200 and 1370 - 200 - 1000 = 170 < 200:
    // the repeat ends, and the step of that tick still goes, to 53.
    for (int tick = 1; tick <= 22; ++tick) {
        Tick();
        ASSERT_TRUE(S().TimerUP->Enabled()) << "tick " << tick;
    }
    EXPECT_EQ(bar.Value(), 55);
    EXPECT_EQ(Thumb().Top(), 1370);
    log.clear();
    Tick();
    EXPECT_FALSE(S().TimerUP->Enabled());
    EXPECT_FALSE(S().TimerDWN->Enabled());
    EXPECT_EQ(S().YTraccia, 0);
    EXPECT_EQ(bar.Value(), 53);
    EXPECT_EQ(log, (Log{"GoUp", "Change"}));
    log.clear();
    timers.Advance(2000);
    EXPECT_TRUE(log.empty());
    // The counters stay until a button's release.
    EXPECT_EQ(S().TickPremuto, 23);
}

TEST_F(Track, StopRuleAlsoEndsARepeatOnAValueWrite) {
    Start(80);
    Press(kMidX, 1000);
    // The host moves the bar while the press is held: the thumb's top 1870 gives no stop, and the
    // write of 55 leaves it at 1370; the next placement stops the repeat.
    Write(55);
    EXPECT_TRUE(S().TimerUP->Enabled());
    Write(55);
    EXPECT_FALSE(S().TimerUP->Enabled());
    EXPECT_EQ(S().YTraccia, 0);
}

TEST_F(Track, ButtonRepeatIsNeverStoppedByTheTrackRule) {
    Start(80);
    Press(kMidX, kUpY);
    timers.Advance(3000);
    EXPECT_TRUE(S().TimerUP->Enabled());
    EXPECT_EQ(S().YTraccia, 0);
}

TEST_F(Track, ReleaseStopsBothTimersAndForgetsThePressButKeepsTheSpeed) {
    Start(0);
    Press(kMidX, 1500);
    timers.Advance(1000);  // ticks 6-10 step 1
    EXPECT_EQ(bar.Value(), 5);
    Release(kMidX, 1500);
    EXPECT_FALSE(S().TimerUP->Enabled());
    EXPECT_FALSE(S().TimerDWN->Enabled());
    EXPECT_EQ(S().YTraccia, 0);
    EXPECT_EQ(S().TickPremuto, 10);
    EXPECT_EQ(S().PassoVelocita, 1);
    // A new press goes on at the speed reached: its first tick is tick 11, step 1.
    Press(kMidX, 1500);
    Tick();
    EXPECT_EQ(S().TickPremuto, 11);
    EXPECT_EQ(bar.Value(), 6);
    Release(kMidX, 1500);
}

TEST_F(Track, ButtonReleaseResetsTheSpeedThatTheTrackKept) {
    Press(kMidX, 1500);
    timers.Advance(1000);
    Release(kMidX, 1500);
    EXPECT_EQ(S().TickPremuto, 10);
    Click(kMidX, kDownY);
    EXPECT_EQ(S().TickPremuto, 0);
    EXPECT_EQ(S().PassoVelocita, 0);
}

TEST_F(Track, PressOnTheTrackTakesTheFocusForTheBar) {
    Press(kMidX, 1500);
    EXPECT_EQ(surface.Focused(), &bar.Corpo());
}

}  // namespace
}  // namespace TabulonLib12::testing
