// Mouse, wheel and keys on the real widget reach the elements in twips and classic codes.
#include <gtest/gtest.h>

#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>
#include <vector>

#include "gui_test_support.h"

namespace TabulonLib12::GuiTest {
namespace {

struct MouseCall {
    int16_t button, shift;
    float x, y;
};

// A 3 x 2 grid at pixel (10, 10) with columns of 100 pixels and rows of 20, its events recorded.
class Input : public WidgetTest {
protected:
    void SetUp() override {
        WidgetTest::SetUp();
        grid = &surface().CreateCellGrid("FG1");
        grid->Move(Px(10), Px(10), Px(250), Px(100));
        grid->setFixedRows(0);
        grid->setFixedCols(0);
        grid->setRows(3);
        grid->setCols(2);
        grid->setColWidth(-1, Px(100));
        grid->setRowHeight(-1, Px(20));
        grid->onClick = [this](Element&) { clicks.push_back({grid->Row(), grid->Col()}); };
        grid->onDblClick = [this](Element&) { ++doubleClicks; };
        grid->onMouseDown = [this](Element&, int16_t& b, int16_t& s, float& x, float& y) { downs.push_back({b, s, x, y}); };
        grid->onMouseUp = [this](Element&, int16_t& b, int16_t& s, float& x, float& y) { ups.push_back({b, s, x, y}); };
        grid->onMouseMove = [this](Element&, int16_t& b, int16_t& s, float& x, float& y) { moves.push_back({b, s, x, y}); };
        ShowAndWait();
    }
    void SendMouse(QEvent::Type type, QPoint pos, Qt::MouseButton button, Qt::MouseButtons buttons, quint64 time) {
        QMouseEvent e(type, QPointF(pos), QPointF(widget.mapToGlobal(pos)), button, buttons, Qt::NoModifier);
        e.setTimestamp(time);
        QApplication::sendEvent(&widget, &e);
    }

    CellGrid* grid = nullptr;
    std::vector<std::pair<int32_t, int32_t>> clicks;
    std::vector<MouseCall> downs, ups, moves;
    int doubleClicks = 0;
};

TEST_F(Input, ClickOnACellMakesItCurrentAndRaisesClick) {
    QTest::mouseClick(&widget, Qt::LeftButton, Qt::NoModifier, QPoint(130, 35));
    ASSERT_EQ(clicks.size(), 1u);
    EXPECT_EQ(clicks[0], std::make_pair(1, 1));
    EXPECT_EQ(grid->Row(), 1);
    EXPECT_EQ(grid->Col(), 1);
    EXPECT_EQ(grid->MouseRow(), 1);
    EXPECT_EQ(grid->MouseCol(), 1);
}

TEST_F(Input, MouseDownCarriesButtonShiftAndTwipsInTheElementsCoordinates) {
    QTest::mouseClick(&widget, Qt::LeftButton, Qt::ShiftModifier | Qt::ControlModifier, QPoint(130, 35));
    ASSERT_EQ(downs.size(), 1u);
    EXPECT_EQ(downs[0].button, 1);
    EXPECT_EQ(downs[0].shift, 3);
    EXPECT_FLOAT_EQ(downs[0].x, (130 - 10) * 15.0f);
    EXPECT_FLOAT_EQ(downs[0].y, (35 - 10) * 15.0f);
    ASSERT_EQ(ups.size(), 1u);
    EXPECT_EQ(ups[0].button, 1);
    EXPECT_FLOAT_EQ(ups[0].x, 1800.0f);
}

TEST_F(Input, RightAndMiddleButtonsGiveTheirCodesAndNoClick) {
    QTest::mouseClick(&widget, Qt::RightButton, Qt::AltModifier, QPoint(50, 20));
    QTest::mouseClick(&widget, Qt::MiddleButton, Qt::NoModifier, QPoint(50, 20));
    ASSERT_EQ(downs.size(), 2u);
    EXPECT_EQ(downs[0].button, 2);
    EXPECT_EQ(downs[0].shift, 4);
    EXPECT_EQ(downs[1].button, 4);
    EXPECT_TRUE(clicks.empty());
}

TEST_F(Input, QtDoubleClickRaisesDblClick) {
    QTest::mouseClick(&widget, Qt::LeftButton, Qt::NoModifier, QPoint(50, 20));
    QTest::mouseDClick(&widget, Qt::LeftButton, Qt::NoModifier, QPoint(50, 20));
    QTest::mouseRelease(&widget, Qt::LeftButton, Qt::NoModifier, QPoint(50, 20));
    EXPECT_EQ(doubleClicks, 1);
    EXPECT_EQ(clicks.size(), 1u);  // the release after a double click is no click
}

TEST_F(Input, SecondPressOfADoubleClickIsTheDoubleClickNotAPress) {
    const QPoint at(50, 20);
    SendMouse(QEvent::MouseButtonPress, at, Qt::LeftButton, Qt::LeftButton, 100000);
    SendMouse(QEvent::MouseButtonRelease, at, Qt::LeftButton, Qt::NoButton, 100050);
    SendMouse(QEvent::MouseButtonPress, at, Qt::LeftButton, Qt::LeftButton, 100120);
    SendMouse(QEvent::MouseButtonDblClick, at, Qt::LeftButton, Qt::LeftButton, 100120);
    SendMouse(QEvent::MouseButtonRelease, at, Qt::LeftButton, Qt::NoButton, 100170);
    EXPECT_EQ(downs.size(), 1u);
    EXPECT_EQ(ups.size(), 2u);
    EXPECT_EQ(clicks.size(), 1u);
    EXPECT_EQ(doubleClicks, 1);
}

TEST_F(Input, SlowSecondPressIsAPlainPress) {
    const QPoint at(50, 20);
    SendMouse(QEvent::MouseButtonPress, at, Qt::LeftButton, Qt::LeftButton, 200000);
    SendMouse(QEvent::MouseButtonRelease, at, Qt::LeftButton, Qt::NoButton, 200050);
    SendMouse(QEvent::MouseButtonPress, at, Qt::LeftButton, Qt::LeftButton, 205000);
    SendMouse(QEvent::MouseButtonRelease, at, Qt::LeftButton, Qt::NoButton, 205050);
    EXPECT_EQ(downs.size(), 2u);
    EXPECT_EQ(clicks.size(), 2u);
    EXPECT_EQ(doubleClicks, 0);
}

TEST_F(Input, MovesWithoutButtonsAreDelivered) {
    EXPECT_TRUE(widget.hasMouseTracking());
    SendMouse(QEvent::MouseMove, QPoint(60, 30), Qt::NoButton, Qt::NoButton, 300000);
    ASSERT_EQ(moves.size(), 1u);
    EXPECT_EQ(moves[0].button, 0);
    EXPECT_FLOAT_EQ(moves[0].x, 750.0f);
    EXPECT_FLOAT_EQ(moves[0].y, 300.0f);
}

TEST_F(Input, DraggingGoesToThePressedElementWithTheButtonsHeld) {
    SendMouse(QEvent::MouseButtonPress, QPoint(50, 20), Qt::LeftButton, Qt::LeftButton, 400000);
    SendMouse(QEvent::MouseMove, QPoint(290, 190), Qt::NoButton, Qt::LeftButton, 400100);
    ASSERT_EQ(moves.size(), 1u);
    EXPECT_EQ(moves[0].button, 1);
    EXPECT_FLOAT_EQ(moves[0].x, 280 * 15.0f);
    SendMouse(QEvent::MouseButtonRelease, QPoint(290, 190), Qt::LeftButton, Qt::NoButton, 400200);
    EXPECT_TRUE(clicks.empty());  // released away from the grid
}

TEST_F(Input, KeysReachTheFocusedElement) {
    std::vector<std::pair<int16_t, int16_t>> keyDowns, keyUps;
    std::vector<int16_t> presses;
    grid->onKeyDown = [&](Element&, int16_t& k, int16_t& s) { keyDowns.emplace_back(k, s); };
    grid->onKeyUp = [&](Element&, int16_t& k, int16_t& s) { keyUps.emplace_back(k, s); };
    grid->onKeyPress = [&](Element&, int16_t& a) { presses.push_back(a); };
    grid->SetFocus();
    QTest::keyClick(&widget, Qt::Key_Down);
    ASSERT_EQ(keyDowns.size(), 1u);
    EXPECT_EQ(keyDowns[0], (std::pair<int16_t, int16_t>(40, 0)));
    EXPECT_EQ(keyUps.size(), 1u);
    EXPECT_TRUE(presses.empty());
    QTest::keyClick(&widget, Qt::Key_A);
    EXPECT_EQ(keyDowns.back().first, 65);
    ASSERT_EQ(presses.size(), 1u);
    EXPECT_EQ(presses[0], 'a');
    QTest::keyClick(&widget, Qt::Key_Return);
    QTest::keyClick(&widget, Qt::Key_Escape);
    QTest::keyClick(&widget, Qt::Key_Backspace);
    EXPECT_EQ(presses, (std::vector<int16_t>{'a', 13, 27, 8}));
    QTest::keyClick(&widget, Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(keyDowns.back(), (std::pair<int16_t, int16_t>(35, 2)));
}

TEST_F(Input, ArrowKeysMoveTheGridsCurrentCell) {
    grid->SetFocus();
    grid->setRow(0);
    QTest::keyClick(&widget, Qt::Key_Down);
    EXPECT_EQ(grid->Row(), 1);
}

TEST_F(Input, TypedTextReachesAFocusedTextBox) {
    TextBox& box = surface().CreateTextBox("TextKey");
    box.Move(Px(10), Px(150), Px(100), Px(20));
    box.SetFocus();
    QTest::keyClicks(&widget, "ab 1");
    EXPECT_EQ(box.Text(), "ab 1");
}

TEST_F(Input, TabIsDeliveredAsKeyCodeNine) {
    std::vector<int16_t> keyDowns;
    grid->onKeyDown = [&](Element&, int16_t& k, int16_t&) { keyDowns.push_back(k); };
    grid->SetFocus();
    QTest::keyClick(&widget, Qt::Key_Tab);
    EXPECT_EQ(keyDowns, std::vector<int16_t>{9});
}

TEST_F(Input, WheelReachesTheSurfaceWithItsDelta) {
    std::vector<int32_t> deltas;
    std::vector<std::pair<float, float>> where;
    surface().onWheel = [&](Surface&, int32_t& d, int16_t&, float& x, float& y) {
        deltas.push_back(d);
        where.emplace_back(x, y);
    };
    auto wheel = [&](int delta) {
        const QPointF pos(40, 50);
        QWheelEvent e(pos, widget.mapToGlobal(pos), QPoint(), QPoint(0, delta), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
        QApplication::sendEvent(&widget, &e);
    };
    wheel(120);
    wheel(-120);
    EXPECT_EQ(deltas, (std::vector<int32_t>{120, -120}));
    EXPECT_FLOAT_EQ(where[0].first, 600.0f);
    EXPECT_FLOAT_EQ(where[0].second, 750.0f);
}

TEST_F(Input, ResizingTheWidgetResizesTheSurfaceInTwips) {
    int resizes = 0;
    surface().onResize = [&](Surface&) { ++resizes; };
    widget.resize(400, 320);
    EXPECT_FLOAT_EQ(surface().Width(), 6000.0f);
    EXPECT_FLOAT_EQ(surface().Height(), 4800.0f);
    EXPECT_GE(resizes, 1);
}

}  // namespace
}  // namespace TabulonLib12::GuiTest
