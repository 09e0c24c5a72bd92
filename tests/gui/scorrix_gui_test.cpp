// The scroll bar on the real widget: Qt's mouse events and Qt's timers drive it.
#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QMouseEvent>
#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "gui_test_support.h"
#include "scrollbar/scorrix.h"
#include "scrollbar/scorrix_pictures.h"
#include "tests/support/probe.h"
#include "tests/support/test_doubles.h"

namespace TabulonLib12::GuiTest {
namespace {

// Runs the event loop until `done` holds or `ms` pass.
bool RunUntil(const std::function<bool()>& done, int ms) {
    QElapsedTimer clock;
    clock.start();
    while (!done() && clock.elapsed() < ms) QTest::qWait(5);
    return done();
}

// The bar at pixel (100, 10), 17 by 182 pixels: 255 by 2730 twips. With the bounds 0 and 100
// its thumb is 200 twips high and moves 20 twips a value; at 0 it covers pixels 28 to 41.
class ScorrixWidget : public WidgetTest {
protected:
    static constexpr int kX = 100, kY = 10, kHeightPx = 182;

    void SetUp() override {
        WidgetTest::SetUp();
        bar = std::make_unique<Scorrix>(surface(), nullptr, "VS1");
        bar->Move(Px(kX), Px(kY), Px(17), Px(kHeightPx));
        bar->onChange = [this] { events.push_back("Change"); };
        bar->onGoDown = [this] { events.push_back("GoDown"); };
        bar->onGoUp = [this] { events.push_back("GoUp"); };
        ShowAndWait();
    }
    void TearDown() override { bar.reset(); }

    Scorrix::Impl& S() { return ScorrixProbe::Of(*bar); }
    size_t Count(const std::string& event) const { return std::count(events.begin(), events.end(), event); }

    // A mouse event with the buttons held as given, sent straight to the widget.
    void Send(QEvent::Type type, QPoint pos, Qt::MouseButton button, Qt::MouseButtons buttons) {
        QMouseEvent e(type, QPointF(pos), QPointF(widget.mapToGlobal(pos)), button, buttons, Qt::NoModifier);
        time += 1000;  // far apart: no double clicks
        e.setTimestamp(time);
        QApplication::sendEvent(&widget, &e);
    }

    QPoint DownButton() const { return {kX + 8, kY + kHeightPx - 8}; }
    QPoint Track(int bodyY) const { return {kX + 8, kY + bodyY}; }

    std::unique_ptr<Scorrix> bar;
    std::vector<std::string> events;
    quint64 time = 100000;
};

TEST_F(ScorrixWidget, HoldingTheDownButtonRepeatsOnQtsTimerAndAccelerates) {
    QTest::mousePress(&widget, Qt::LeftButton, Qt::NoModifier, DownButton());
    EXPECT_TRUE(S().TimerDWN->Running());
    QElapsedTimer held;
    held.start();
    // About 700 ms of 100 ms ticks: five of step 0, then two of step 1.
    ASSERT_TRUE(RunUntil([&] { return S().TickPremuto >= 7; }, 5000));
    EXPECT_GE(held.elapsed(), 600);
    EXPECT_EQ(S().TickPremuto, 7);
    EXPECT_EQ(bar->Value(), 2);
    EXPECT_EQ(Count("Change"), 7u);
    EXPECT_EQ(Count("GoDown"), 2u);
    events.clear();
    QTest::mouseRelease(&widget, Qt::LeftButton, Qt::NoModifier, DownButton());
    // The release stops the repeat and forgets the speed; its click adds the one step.
    EXPECT_FALSE(S().TimerDWN->Running());
    EXPECT_EQ(S().TickPremuto, 0);
    EXPECT_EQ(bar->Value(), 3);
    EXPECT_EQ(events, (std::vector<std::string>{"GoDown", "Change"}));
    QTest::qWait(300);
    EXPECT_EQ(bar->Value(), 3);
}

TEST_F(ScorrixWidget, QuickClickOnTheUpButtonStepsOnce) {
    int32_t v = 10;
    bar->setValue(v);
    events.clear();
    QTest::mouseClick(&widget, Qt::LeftButton, Qt::NoModifier, QPoint(kX + 8, kY + 8));
    QTest::qWait(250);
    EXPECT_EQ(bar->Value(), 9);
    EXPECT_EQ(events, (std::vector<std::string>{"GoUp", "Change"}));
}

TEST_F(ScorrixWidget, QuickClickOnTheTrackMovesNothing) {
    QTest::mouseClick(&widget, Qt::LeftButton, Qt::NoModifier, Track(100));
    QTest::qWait(300);
    EXPECT_EQ(bar->Value(), 0);
    EXPECT_TRUE(events.empty());
    EXPECT_FALSE(S().TimerDWN->Running());
    EXPECT_EQ(S().YTraccia, 0);
}

TEST_F(ScorrixWidget, HeldPressOnTheTrackBelowTheThumbRepeatsDownUntilTheRelease) {
    QTest::mousePress(&widget, Qt::LeftButton, Qt::NoModifier, Track(150));
    EXPECT_EQ(S().YTraccia, 150 * 15);
    EXPECT_TRUE(S().TimerDWN->Running());
    ASSERT_TRUE(RunUntil([&] { return S().TickPremuto >= 6; }, 5000));
    EXPECT_EQ(bar->Value(), 1);
    EXPECT_EQ(Count("Change"), 6u);
    EXPECT_EQ(Count("GoDown"), 1u);
    QTest::mouseRelease(&widget, Qt::LeftButton, Qt::NoModifier, Track(150));
    EXPECT_FALSE(S().TimerDWN->Running());
    EXPECT_EQ(S().YTraccia, 0);
    EXPECT_EQ(S().TickPremuto, 6);  // the track keeps the speed
    QTest::qWait(300);
    EXPECT_EQ(bar->Value(), 1);
}

TEST_F(ScorrixWidget, DraggingTheThumbWithTheLeftButtonHeldSetsValue) {
    // Gripped 375 twips into the body, 105 below the thumb's top at 270.
    Send(QEvent::MouseButtonPress, QPoint(kX + 8, kY + 25), Qt::LeftButton, Qt::LeftButton);
    EXPECT_EQ(S().YPresa, 105);
    Send(QEvent::MouseMove, QPoint(kX + 8, kY + 65), Qt::NoButton, Qt::LeftButton);
    // Pointer at 975 twips: top 975 - 105 = 870, (870 - 270) / 20 = 30.
    EXPECT_EQ(S().ImageScr->Top(), 870);
    EXPECT_EQ(bar->Value(), 30);
    EXPECT_EQ(events, (std::vector<std::string>{"GoDown", "Change"}));
    // Past the end, over the down button: the thumb stops at 2730 - 255 - 15 - 200.
    Send(QEvent::MouseMove, QPoint(kX + 8, kY + kHeightPx + 20), Qt::NoButton, Qt::LeftButton);
    EXPECT_EQ(S().ImageScr->Top(), 2260);
    EXPECT_EQ(bar->Value(), 100);
    // Back above the start, outside the bar: the thumb holds the mouse until the release.
    Send(QEvent::MouseMove, QPoint(kX + 40, 0), Qt::NoButton, Qt::LeftButton);
    EXPECT_EQ(S().ImageScr->Top(), 270);
    EXPECT_EQ(bar->Value(), 0);
    Send(QEvent::MouseButtonRelease, QPoint(kX + 40, 0), Qt::LeftButton, Qt::NoButton);
    EXPECT_EQ(events, (std::vector<std::string>{"GoDown", "Change", "GoDown", "Change", "GoUp", "Change"}));
    // Moving without a button drags nothing.
    Send(QEvent::MouseMove, QPoint(kX + 8, kY + 25), Qt::NoButton, Qt::NoButton);
    Send(QEvent::MouseMove, QPoint(kX + 8, kY + 90), Qt::NoButton, Qt::NoButton);
    EXPECT_EQ(bar->Value(), 0);
}

TEST_F(ScorrixWidget, DraggingWithQTestMovesKeepsTheButtonHeld) {
    QTest::mousePress(&widget, Qt::LeftButton, Qt::NoModifier, QPoint(kX + 8, kY + 25));
    QTest::mouseMove(&widget, QPoint(kX + 8, kY + 45));
    // Pointer at 675 twips: top 675 - 105 = 570, (570 - 270) / 20 = 15.
    EXPECT_EQ(bar->Value(), 15);
    QTest::mouseRelease(&widget, Qt::LeftButton, Qt::NoModifier, QPoint(kX + 8, kY + 45));
    EXPECT_EQ(bar->Value(), 15);
}

TEST_F(ScorrixWidget, PaintsTheArrowsTheTrackAndTheThumbWhereItStands) {
    const QColor arrow(43, 74, 115);
    const QColor track = ColourOf(ColoreTraccia);
    auto near = [](const QColor& a, const QColor& b) {
        return std::abs(a.red() - b.red()) + std::abs(a.green() - b.green()) + std::abs(a.blue() - b.blue()) < 40;
    };
    QImage shot = Grab(widget);
    // The middle rows of the arrows, the thumb at 0 (left of its light middle), the free track.
    EXPECT_TRUE(near(PixelAt(shot, kX + 8, kY + 8), arrow));
    EXPECT_TRUE(near(PixelAt(shot, kX + 8, kY + kHeightPx - 9), arrow));
    EXPECT_FALSE(near(PixelAt(shot, kX + 4, kY + 30), track));
    EXPECT_TRUE(near(PixelAt(shot, kX + 4, kY + 100), track));
    int32_t v = 100;
    bar->setValue(v);
    QTest::qWait(50);
    shot = Grab(widget);
    EXPECT_TRUE(near(PixelAt(shot, kX + 4, kY + 30), track));
    // Top 2730 - 255 - 30 - 200 = 2245 twips: pixels 150 to 163.
    EXPECT_FALSE(near(PixelAt(shot, kX + 4, kY + 156), track));
}

}  // namespace
}  // namespace TabulonLib12::GuiTest
