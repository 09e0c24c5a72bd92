#pragma once
// A bar on a headless surface with the manual clock, its events logged in the order they came.
// The bar stands at (1000, 500) on the surface, 255 wide and 2740 high: with the bounds 0 and
// 100 its thumb is 200 high, travels 2000 twips and moves 20 twips per value.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/runtime/error.h"
#include "platform/ui/surface.h"
#include "scrollbar/scorrix.h"
#include "tests/support/probe.h"
#include "tests/support/test_doubles.h"

namespace TabulonLib12::testing {

class ScorrixTest : public ::testing::Test {
protected:
    static constexpr float kLeft = 1000, kTop = 500, kW = 255, kH = 2740;

    ScorrixTest() {
        surface.Resize(15600, 9600);
        bar.Move(kLeft, kTop, kW, kH);
        Watch();
    }

    void Watch() {
        bar.onChange = [this] { log.push_back("Change"); };
        bar.onGoDown = [this] { log.push_back("GoDown"); };
        bar.onGoUp = [this] { log.push_back("GoUp"); };
        bar.propertyChanged = [this](const std::string& name) { log.push_back("PropertyChanged " + name); };
    }

    Scorrix::Impl& S() { return ScorrixProbe::Of(bar); }
    ImageElement& Thumb() { return *S().ImageScr; }

    // Writes Value through a variable, as the control does, and answers what it carried back.
    int32_t Write(int32_t v) {
        bar.setValue(v);
        return v;
    }
    // Value written and the log cleared, to watch what comes next.
    void Start(int32_t v) {
        Write(v);
        log.clear();
    }

    // Mouse on the surface at a point of the bar's body (body twips).
    void Press(float x, float y, int16_t button = MouseButton::Left) {
        surface.MouseDown(button, 0, kLeft + x, kTop + y);
    }
    void MoveTo(float x, float y, int16_t buttons = MouseButton::Left) {
        surface.MouseMove(buttons, 0, kLeft + x, kTop + y);
    }
    void Release(float x, float y, int16_t button = MouseButton::Left) {
        surface.MouseUp(button, 0, kLeft + x, kTop + y);
    }
    void Click(float x, float y) {
        Press(x, y);
        Release(x, y);
    }

    // Points on the bar: the middle of each button.
    static constexpr float kMidX = kW / 2;
    static constexpr float kUpY = kW / 2;
    static constexpr float kDownY = kH - kW / 2;

    // Advances the clock by one repeat interval.
    void Tick() { timers.Advance(100); }

    size_t Count(const std::string& event) const {
        size_t n = 0;
        for (const auto& e : log)
            if (e == event) ++n;
        return n;
    }

    using Log = std::vector<std::string>;

    HeadlessTextMetrics metrics;
    ManualTimerService timers;
    Surface surface{metrics, timers};
    Scorrix bar{surface, nullptr, "VS1"};
    Log log;
};

}  // namespace TabulonLib12::testing

// Runs `statement` and checks that it throws Error of the given kind.
#define EXPECT_SCORRIX_ERROR(statement, errorKind)                            \
    do {                                                                       \
        try {                                                                  \
            statement;                                                         \
            ADD_FAILURE() << "no Error from " #statement;                      \
        } catch (const ::TabulonLib12::Error& scorrixError) {                  \
            EXPECT_EQ(scorrixError.kind(), (errorKind)) << #statement;         \
        }                                                                      \
    } while (0)
