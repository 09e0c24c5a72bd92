#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/runtime/error.h"
#include "platform/ui/timer_service.h"
#include "tests/support/test_doubles.h"

namespace TabulonLib12 {
namespace {

TEST(ManualTimerService, TimerFiresOncePerInterval) {
    ManualTimerService clock;
    int ticks = 0;
    clock.Start(100, [&] { ++ticks; });
    clock.Advance(99);
    EXPECT_EQ(ticks, 0);
    clock.Advance(1);
    EXPECT_EQ(ticks, 1);
    clock.Advance(250);
    EXPECT_EQ(ticks, 3);
    EXPECT_EQ(clock.Now(), 350);
}

TEST(ManualTimerService, DueTicksFireEarliestFirstAndTiesById) {
    ManualTimerService clock;
    std::vector<std::string> order;
    const int a = clock.Start(30, [&] { order.push_back("a@" + std::to_string(clock.Now())); });
    const int b = clock.Start(20, [&] { order.push_back("b@" + std::to_string(clock.Now())); });
    EXPECT_LT(a, b);
    clock.Advance(60);
    EXPECT_EQ(order, (std::vector<std::string>{"b@20", "a@30", "b@40", "a@60", "b@60"}));
}

TEST(ManualTimerService, StoppedTimerFiresNoMore) {
    ManualTimerService clock;
    int ticks = 0;
    const int id = clock.Start(10, [&] { ++ticks; });
    clock.Advance(25);
    clock.Stop(id);
    clock.Advance(100);
    EXPECT_EQ(ticks, 2);
    EXPECT_EQ(clock.ActiveCount(), 0);
}

TEST(ManualTimerService, TickMayStopItsOwnTimer) {
    ManualTimerService clock;
    int ticks = 0;
    int id = 0;
    id = clock.Start(10, [&] {
        ++ticks;
        clock.Stop(id);
    });
    clock.Advance(100);
    EXPECT_EQ(ticks, 1);
}

TEST(ManualTimerService, TimerStartedByATickFirstFiresOneIntervalLater) {
    ManualTimerService clock;
    std::vector<int64_t> late;
    bool started = false;
    clock.Start(100, [&] {
        if (started) return;
        started = true;
        clock.Start(30, [&] { late.push_back(clock.Now()); });
    });
    clock.Advance(200);
    EXPECT_EQ(late, (std::vector<int64_t>{130, 160, 190}));
}

TEST(ManualTimerService, StoppingAnUnknownIdIsHarmless) {
    ManualTimerService clock;
    clock.Stop(42);
    EXPECT_EQ(clock.ActiveCount(), 0);
}

TEST(ManualTimerService, IntervalBelowOneIsRefused) {
    ManualTimerService clock;
    EXPECT_THROW(clock.Start(0, [] {}), Error);
    EXPECT_THROW(clock.Start(-5, [] {}), Error);
    EXPECT_EQ(clock.ActiveCount(), 0);
}

TEST(ManualTimerService, ClockDoesNotRunBackwards) {
    ManualTimerService clock;
    clock.Advance(10);
    EXPECT_THROW(clock.Advance(-1), Error);
    EXPECT_EQ(clock.Now(), 10);
}

TEST(ManualTimerService, IdsAreNeverZero) {
    ManualTimerService clock;
    EXPECT_NE(clock.Start(5, [] {}), 0);
    EXPECT_EQ(clock.ActiveCount(), 1);
}

}  // namespace
}  // namespace TabulonLib12
