// Tooltips and pointer shapes of the elements under the mouse, and the screen's pointer.
#include <gtest/gtest.h>

#include <QHelpEvent>
#include <QMouseEvent>
#include <QToolTip>

#include "gui_test_support.h"
#include "platform/qt/hand_pointer.h"
#include "platform/qt/qt_pointer.h"

namespace TabulonLib12::GuiTest {
namespace {

class Pointers : public WidgetTest {
protected:
    void SetUp() override {
        WidgetTest::SetUp();
        box = &surface().CreatePictureBox("ImageTools");
        box->Move(Px(50), Px(50), Px(20), Px(20));
        label = &surface().CreateLabel("LabelMenu");
        label->Move(Px(100), Px(50), Px(60), Px(20));
        ShowAndWait();
    }
    void TearDown() override {
        QToolTip::hideText();
        while (QApplication::overrideCursor()) QApplication::restoreOverrideCursor();
    }
    void MoveTo(QPoint pos) {
        QMouseEvent e(QEvent::MouseMove, QPointF(pos), QPointF(widget.mapToGlobal(pos)), Qt::NoButton, Qt::NoButton,
                      Qt::NoModifier);
        QApplication::sendEvent(&widget, &e);
    }
    void AskToolTip(QPoint pos) {
        QHelpEvent e(QEvent::ToolTip, pos, widget.mapToGlobal(pos));
        QApplication::sendEvent(&widget, &e);
    }

    PictureBox* box = nullptr;
    Label* label = nullptr;
};

TEST_F(Pointers, ToolTipEventOverAnElementWithToolTipTextShowsIt) {
    box->setToolTipText("Scelta colonne da visualizzare");
    AskToolTip(QPoint(60, 60));
    EXPECT_TRUE(QToolTip::isVisible());
    EXPECT_EQ(QToolTip::text(), QString("Scelta colonne da visualizzare"));
}

TEST_F(Pointers, ToolTipOfALabelIsShownToo) {
    label->setToolTipText("Ordina per colonna");
    AskToolTip(QPoint(120, 60));
    EXPECT_TRUE(QToolTip::isVisible());
    EXPECT_EQ(QToolTip::text(), QString("Ordina per colonna"));
}

TEST_F(Pointers, NoToolTipOverAnElementWithoutToolTipText) {
    box->setToolTipText("Visibile");
    AskToolTip(QPoint(60, 60));
    ASSERT_TRUE(QToolTip::isVisible());
    AskToolTip(QPoint(120, 60));  // the label has no text
    EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }, 3000));  // tips fade out
}

TEST_F(Pointers, CustomPointerWithoutIconIsOurDrawnHand) {
    box->setMousePointer(Pointer::Custom);
    MoveTo(QPoint(60, 60));
    const QCursor cursor = widget.cursor();
    EXPECT_EQ(cursor.shape(), Qt::BitmapCursor);
    EXPECT_EQ(cursor.pixmap().size(), QSize(32, 32));
    EXPECT_EQ(cursor.hotSpot(), HandPointerHotSpot());
}

TEST_F(Pointers, CustomPointerShowsTheElementsMouseIcon) {
    box->setMouseIcon(std::make_shared<Image>(16, 16, 0xFF00FF00u));
    box->setMousePointer(Pointer::Custom);
    MoveTo(QPoint(60, 60));
    EXPECT_EQ(widget.cursor().shape(), Qt::BitmapCursor);
    EXPECT_EQ(widget.cursor().pixmap().size(), QSize(16, 16));
    EXPECT_EQ(widget.cursor().pixmap().toImage().pixelColor(3, 3), QColor(0, 255, 0));
}

TEST_F(Pointers, HourglassPointerIsTheWaitCursorAndDefaultIsTheArrow) {
    box->setMousePointer(Pointer::Hourglass);
    MoveTo(QPoint(60, 60));
    EXPECT_EQ(widget.cursor().shape(), Qt::WaitCursor);
    MoveTo(QPoint(200, 150));  // over the surface, pointer 0
    EXPECT_EQ(widget.cursor().shape(), Qt::ArrowCursor);
}

TEST_F(Pointers, TextBoxShowsTheTextCursorByDefault) {
    TextBox& text = surface().CreateTextBox("T");
    text.Move(Px(10), Px(150), Px(100), Px(20));
    MoveTo(QPoint(50, 160));
    EXPECT_EQ(widget.cursor().shape(), Qt::IBeamCursor);
}

TEST_F(Pointers, PointerSetByAMouseMoveHandlerShowsAtOnce) {
    label->onMouseMove = [](Element& e, int16_t&, int16_t&, float&, float&) { e.setMousePointer(Pointer::Custom); };
    MoveTo(QPoint(120, 60));
    EXPECT_EQ(widget.cursor().shape(), Qt::BitmapCursor);
}

TEST_F(Pointers, SurfaceScreenPointerSetsAndRestoresTheOverrideCursor) {
    ASSERT_EQ(QApplication::overrideCursor(), nullptr);
    surface().setScreenPointer(Pointer::Hourglass);
    ASSERT_NE(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    surface().setScreenPointer(Pointer::Hourglass);  // again: still one override
    surface().setScreenPointer(0);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(Pointers, HostScreenPointerSetsAndRestoresTheOverrideCursor) {
    QtScreenPointer screen;
    EXPECT_EQ(screen.MousePointer(), 0);
    screen.setMousePointer(11);
    EXPECT_EQ(screen.MousePointer(), 11);
    ASSERT_NE(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    screen.setMousePointer(0);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    {
        QtScreenPointer left;
        left.setMousePointer(11);
    }
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);  // going away restores the pointer
}

TEST(HandPointer, IsADrawnHandWithItsHotSpotOnTheFingerTip) {
    const QImage hand = HandPointerImage();
    ASSERT_EQ(hand.size(), QSize(32, 32));
    int opaque = 0, clear = 0;
    for (int y = 0; y < 32; ++y)
        for (int x = 0; x < 32; ++x) (qAlpha(hand.pixel(x, y)) > 200 ? opaque : clear)++;
    EXPECT_GT(opaque, 200);
    EXPECT_GT(clear, 200);
    const QPoint tip = HandPointerHotSpot();
    EXPECT_GT(qAlpha(hand.pixel(tip.x(), tip.y() + 1)), 200);  // the finger starts at the hot spot
    for (int y = 0; y < tip.y(); ++y) EXPECT_LT(qAlpha(hand.pixel(tip.x(), y)), 60);  // nothing above it
}

}  // namespace
}  // namespace TabulonLib12::GuiTest
