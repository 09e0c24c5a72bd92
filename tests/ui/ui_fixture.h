#pragma once
// A surface with the headless metrics and the manual clock, counting paint requests.
#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "platform/runtime/error.h"
#include "platform/ui/cell_grid.h"
#include "platform/ui/control_array.h"
#include "platform/ui/surface.h"
#include "tests/support/test_doubles.h"

namespace TabulonLib12::testing {

class UiTest : public ::testing::Test {
protected:
    UiTest() {
        surface.Resize(15600, 9600);
        surface.onInvalidate = [this] { ++paints; };
    }

    static Picture MakePicture(int w, int h) { return std::make_shared<const Image>(w, h, 0xFF000000u); }

    static std::string Num(float v) {
        std::ostringstream out;
        out << v;
        return out.str();
    }

    // Logs every event of `e` as "Name event [button x,y]" (or "Name event key").
    void Watch(Element& e) {
        auto mouse = [this](const char* what) {
            return [this, what](Element& el, int16_t& button, int16_t&, float& x, float& y) {
                log.push_back(el.Name() + " " + what + " " + std::to_string(button) + " " + Num(x) + "," + Num(y));
            };
        };
        e.onMouseDown = mouse("down");
        e.onMouseMove = mouse("move");
        e.onMouseUp = mouse("up");
        e.onClick = [this](Element& el) { log.push_back(el.Name() + " click"); };
        e.onDblClick = [this](Element& el) { log.push_back(el.Name() + " dblclick"); };
        e.onGotFocus = [this](Element& el) { log.push_back(el.Name() + " gotfocus"); };
        e.onLostFocus = [this](Element& el) { log.push_back(el.Name() + " lostfocus"); };
        e.onKeyDown = [this](Element& el, int16_t& key, int16_t&) {
            log.push_back(el.Name() + " keydown " + std::to_string(key));
        };
        e.onKeyUp = [this](Element& el, int16_t& key, int16_t&) {
            log.push_back(el.Name() + " keyup " + std::to_string(key));
        };
        e.onKeyPress = [this](Element& el, int16_t& key) {
            log.push_back(el.Name() + " keypress " + std::to_string(key));
        };
    }

    using Log = std::vector<std::string>;

    HeadlessTextMetrics metrics;
    ManualTimerService timers;
    Surface surface{metrics, timers};
    int paints = 0;
    std::vector<std::string> log;  // events in the order they came
};

}  // namespace TabulonLib12::testing

// Runs `statement` and checks that it throws Error with the given kind and number.
#define EXPECT_UI_ERROR(statement, errorKind, errorNumber)                                       \
    do {                                                                                         \
        try {                                                                                    \
            statement;                                                                           \
            ADD_FAILURE() << "no Error from " #statement;                                        \
        } catch (const ::TabulonLib12::Error& uiError) {                                         \
            EXPECT_EQ(uiError.kind(), (errorKind)) << #statement;                                \
            EXPECT_EQ(uiError.number(), (errorNumber)) << #statement;                            \
        }                                                                                        \
    } while (0)
