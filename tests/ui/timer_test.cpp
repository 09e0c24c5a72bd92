// Timers of the element model on the manual clock.
#include "ui_fixture.h"

namespace TabulonLib12::testing {
namespace {

using TimerTest = UiTest;

TEST_F(TimerTest, ATimerIsEnabledButIdleUntilItHasAnInterval) {
    Timer& t = surface.CreateTimer("TimerUP");
    EXPECT_TRUE(t.Enabled());
    EXPECT_EQ(t.Interval(), 0);
    EXPECT_FALSE(t.Running());
    EXPECT_EQ(timers.ActiveCount(), 0);
}

TEST_F(TimerTest, EnabledWithAnIntervalItTicksEveryInterval) {
    Timer& t = surface.CreateTimer("TimerUP");
    int ticks = 0;
    t.onTimer = [&](Timer&) { ++ticks; };
    t.setInterval(100);
    EXPECT_TRUE(t.Running());
    for (int ms = 0; ms < 350; ++ms) timers.Advance(1);
    EXPECT_EQ(ticks, 3);
}

TEST_F(TimerTest, DisablingStopsIt) {
    Timer& t = surface.CreateTimer("TimerDWN");
    int ticks = 0;
    t.onTimer = [&](Timer&) { ++ticks; };
    t.setInterval(100);
    timers.Advance(150);
    t.setEnabled(false);
    timers.Advance(1000);
    EXPECT_EQ(ticks, 1);
    EXPECT_FALSE(t.Running());
    EXPECT_EQ(timers.ActiveCount(), 0);
}

TEST_F(TimerTest, EnablingStartsTheCountdownAfresh) {
    Timer& t = surface.CreateTimer("TimerUP");
    t.setEnabled(false);  // designed disabled, as the scroll bar's are
    t.setInterval(100);
    EXPECT_FALSE(t.Running());
    int ticks = 0;
    t.onTimer = [&](Timer&) { ++ticks; };
    timers.Advance(50);
    t.setEnabled(true);
    timers.Advance(99);
    EXPECT_EQ(ticks, 0);
    timers.Advance(1);
    EXPECT_EQ(ticks, 1);
}

TEST_F(TimerTest, AnIntervalWriteRestartsTheCountdown) {
    Timer& t = surface.CreateTimer("T");
    std::vector<int64_t> at;
    t.onTimer = [&](Timer&) { at.push_back(timers.Now()); };
    t.setInterval(100);
    timers.Advance(60);
    t.setInterval(50);
    timers.Advance(120);
    EXPECT_EQ(at, (std::vector<int64_t>{110, 160}));
}

TEST_F(TimerTest, IntervalZeroStopsIt) {
    Timer& t = surface.CreateTimer("T");
    t.setInterval(10);
    t.setInterval(0);
    EXPECT_FALSE(t.Running());
}

TEST_F(TimerTest, IntervalOutOfRangeIsRefused) {
    Timer& t = surface.CreateTimer("T");
    t.setInterval(100);
    EXPECT_UI_ERROR(t.setInterval(65536), ErrorKind::InvalidValue, 380);
    EXPECT_UI_ERROR(t.setInterval(-1), ErrorKind::InvalidValue, 380);
    EXPECT_EQ(t.Interval(), 100);
    t.setInterval(65535);
    EXPECT_EQ(t.Interval(), 65535);
}

TEST_F(TimerTest, ATickHandlerMayDisableItsOwnTimer) {
    Timer& t = surface.CreateTimer("T");
    int ticks = 0;
    t.onTimer = [&](Timer& self) {
        ++ticks;
        self.setEnabled(false);
    };
    t.setInterval(100);
    for (int i = 0; i < 10; ++i) timers.Advance(100);
    EXPECT_EQ(ticks, 1);
}

TEST_F(TimerTest, ATickHandlerMayStartAnotherTimer) {
    Timer& first = surface.CreateTimer("First");
    Timer& second = surface.CreateTimer("Second");
    second.setEnabled(false);
    second.setInterval(30);
    std::vector<std::string> seen;
    first.onTimer = [&](Timer& self) {
        seen.push_back("first@" + std::to_string(timers.Now()));
        self.setEnabled(false);
        second.setEnabled(true);
    };
    second.onTimer = [&](Timer&) { seen.push_back("second@" + std::to_string(timers.Now())); };
    first.setInterval(100);
    timers.Advance(200);
    EXPECT_EQ(seen, (std::vector<std::string>{"first@100", "second@130", "second@160", "second@190"}));
}

TEST_F(TimerTest, DestroyingATimerStopsIt) {
    Timer& t = surface.CreateTimer("T");
    int ticks = 0;
    t.onTimer = [&](Timer&) { ++ticks; };
    t.setInterval(10);
    surface.Destroy(t);
    timers.Advance(100);
    EXPECT_EQ(ticks, 0);
    EXPECT_EQ(timers.ActiveCount(), 0);
}

TEST_F(TimerTest, ATickHandlerMayDestroyItsOwnTimer) {
    Timer& t = surface.CreateTimer("T");
    int ticks = 0;
    t.onTimer = [&](Timer& self) {
        ++ticks;
        self.Owner().Destroy(self);
    };
    t.setInterval(10);
    timers.Advance(100);
    EXPECT_EQ(ticks, 1);
    EXPECT_EQ(timers.ActiveCount(), 0);
}

TEST_F(TimerTest, DestroyingTheContainerStopsItsTimers) {
    Frame& frame = surface.CreateFrame("F");
    Timer& t = surface.CreateTimer("T", &frame);
    t.setInterval(10);
    surface.Destroy(frame);
    EXPECT_EQ(timers.ActiveCount(), 0);
}

TEST_F(TimerTest, AHiddenOrDisabledContainerDoesNotStopIt) {
    Frame& frame = surface.CreateFrame("F");
    Timer& t = surface.CreateTimer("T", &frame);
    int ticks = 0;
    t.onTimer = [&](Timer&) { ++ticks; };
    t.setInterval(10);
    frame.setVisible(false);
    frame.setEnabled(false);
    timers.Advance(30);
    EXPECT_EQ(ticks, 3);
}

TEST_F(TimerTest, TimersAreNeverDrawnAndTakeNoMouse) {
    Timer& t = surface.CreateTimer("T");
    t.Move(0, 0, 1000, 1000);
    paints = 0;
    t.setLeft(5);
    EXPECT_EQ(paints, 0);
    EXPECT_EQ(surface.ElementAt(10, 10), &surface);
}

TEST(TimerLifetime, DestroyingTheSurfaceStopsItsTimers) {
    HeadlessTextMetrics metrics;
    ManualTimerService timers;
    {
        Surface surface(metrics, timers);
        surface.CreateTimer("T").setInterval(100);
        EXPECT_EQ(timers.ActiveCount(), 1);
    }
    EXPECT_EQ(timers.ActiveCount(), 0);
    timers.Advance(1000);
}

}  // namespace
}  // namespace TabulonLib12::testing
