// Dragging the thumb: it follows the pointer between its stops and sets Value by the step.
#include "scorrix_fixture.h"

namespace TabulonLib12::testing {
namespace {

using Drag = ScorrixTest;

TEST_F(Drag, LeftPressOnTheThumbKeepsWhereItWasGripped) {
    Press(kMidX, 270 + 100.5f);
    EXPECT_EQ(S().YPresa, 100);  // rounded half to even
    Release(kMidX, 270 + 100.5f);
    Press(kMidX, 270 + 101.5f);
    EXPECT_EQ(S().YPresa, 102);
    EXPECT_FALSE(S().TimerUP->Enabled());
    EXPECT_FALSE(S().TimerDWN->Enabled());
    EXPECT_TRUE(log.empty());
}

TEST_F(Drag, PressWithAnotherButtonKeepsTheOldGrip) {
    Press(kMidX, 370);
    Release(kMidX, 370);
    Press(kMidX, 420, MouseButton::Right);
    EXPECT_EQ(S().YPresa, 100);
}

TEST_F(Drag, ThumbFollowsThePointerAndValueGoesByTheStep) {
    Press(kMidX, 370);  // gripped 100 below its top
    MoveTo(kMidX, 775);
    // Top 270 + 505 - 100 = 675; (675 - 270) / 20 = 20.25: Value 20.
    EXPECT_EQ(Thumb().Top(), 675);
    EXPECT_EQ(bar.Value(), 20);
    EXPECT_EQ(log, (Log{"GoDown", "Change"}));
    EXPECT_EQ(S().ValorePrecedente, 0);
}

TEST_F(Drag, DraggedValueRoundsHalfToEven) {
    Press(kMidX, 370);
    MoveTo(kMidX, 780);  // top 680: 20.5 gives 20
    EXPECT_EQ(bar.Value(), 20);
    MoveTo(kMidX, 800);  // top 700: 21.5 gives 22
    EXPECT_EQ(Thumb().Top(), 700);
    EXPECT_EQ(bar.Value(), 22);
}

TEST_F(Drag, DragUpwardRaisesGoUp) {
    Start(50);  // thumb at 1270
    Press(kMidX, 1300);
    MoveTo(kMidX, 1000);
    EXPECT_EQ(Thumb().Top(), 970);
    EXPECT_EQ(bar.Value(), 35);
    EXPECT_EQ(log, (Log{"GoUp", "Change"}));
}

TEST_F(Drag, DragAboveTheStartStopsThereWithMin) {
    Start(30);  // thumb at 870
    Press(kMidX, 900);
    MoveTo(kMidX, 100);  // over the up button: the thumb holds the mouse
    EXPECT_EQ(Thumb().Top(), 270);
    EXPECT_EQ(bar.Value(), 0);
    EXPECT_EQ(log, (Log{"GoUp", "Change"}));
}

TEST_F(Drag, DragBelowTheEndStopsFifteenTwipsLowerThanAPlacementWould) {
    Press(kMidX, 370);
    MoveTo(kMidX, 2700);
    // Drag stop 2740 - 255 - 15 - 200 = 2270; placement stop 2740 - 255 - 30 - 200 = 2255.
    EXPECT_EQ(Thumb().Top(), 2270);
    EXPECT_EQ(bar.Value(), 100);
    Release(kMidX, 2700);
    Write(100);
    EXPECT_EQ(Thumb().Top(), 2255);
}

TEST_F(Drag, DragToTheStopsThemselvesStaysInside) {
    Press(kMidX, 370);
    MoveTo(kMidX, 370 + 2000);  // top exactly 2270
    EXPECT_EQ(Thumb().Top(), 2270);
    EXPECT_EQ(bar.Value(), 100);
    MoveTo(kMidX, 370);  // top exactly 270
    EXPECT_EQ(Thumb().Top(), 270);
    EXPECT_EQ(bar.Value(), 0);
}

TEST_F(Drag, DragWithoutAChangeOfValueRaisesChangeOnly) {
    Start(20);  // thumb at 670
    Press(kMidX, 700);
    MoveTo(kMidX, 705);
    EXPECT_EQ(Thumb().Top(), 675);
    EXPECT_EQ(bar.Value(), 20);
    EXPECT_EQ(log, (Log{"Change"}));
}

TEST_F(Drag, DragWritesNoNotice) {
    Press(kMidX, 370);
    MoveTo(kMidX, 1000);
    MoveTo(kMidX, 1500);
    EXPECT_EQ(Count("PropertyChanged Value"), 0u);
}

TEST_F(Drag, NextValueWriteSnapsTheDraggedThumbToTheStepGrid) {
    Start(20);
    Press(kMidX, 700);
    MoveTo(kMidX, 705);
    Release(kMidX, 705);
    EXPECT_EQ(Thumb().Top(), 675);
    Write(20);
    EXPECT_EQ(Thumb().Top(), 670);
}

TEST_F(Drag, MoveWithoutTheLeftButtonOnlyRemembersTheValue) {
    Write(30);
    Start(10);  // previous value 30, thumb at 470
    MoveTo(kMidX, 480, 0);
    EXPECT_EQ(S().ValorePrecedente, 10);
    EXPECT_EQ(Thumb().Top(), 470);
    EXPECT_TRUE(log.empty());
}

TEST_F(Drag, MoveWithTwoButtonsHeldDoesNotDrag) {
    Press(kMidX, 370);
    MoveTo(kMidX, 900, MouseButton::Left | MouseButton::Right);
    EXPECT_EQ(Thumb().Top(), 270);
    EXPECT_TRUE(log.empty());
}

TEST_F(Drag, MoveWithTheRightButtonDoesNotDrag) {
    Press(kMidX, 370, MouseButton::Right);
    MoveTo(kMidX, 900, MouseButton::Right);
    EXPECT_EQ(Thumb().Top(), 270);
    EXPECT_EQ(bar.Value(), 0);
}

TEST_F(Drag, DraggedValueCountsFromMin) {
    bar.setMax(150);
    bar.setMin(50);
    Start(50);
    Press(kMidX, 370);
    MoveTo(kMidX, 775);
    EXPECT_EQ(bar.Value(), 70);
}

TEST_F(Drag, DraggedValueBeyondMaxIsClamped) {
    bar.setMax(160);  // 12.5 rounded to 12 twips a value
    Press(kMidX, 370);
    MoveTo(kMidX, 2300);  // top 2200: 1930 / 12 = 160.8, 161
    EXPECT_EQ(Thumb().Top(), 2200);
    EXPECT_EQ(bar.Value(), 160);
}

TEST_F(Drag, DragDeliveredToADisabledBarStillWorks) {
    bar.setEnabled(false);
    log.clear();
    Press(kMidX, 370);  // the surface delivers nothing to a disabled bar
    EXPECT_EQ(S().YPresa, 0);
    S().ImageScr->HandleMouseDown(MouseButton::Left, 0, kMidX, 100);
    S().ImageScr->HandleMouseMove(MouseButton::Left, 0, kMidX, 505);
    EXPECT_EQ(bar.Value(), 20);
    EXPECT_EQ(log, (Log{"GoDown", "Change"}));
}

TEST_F(Drag, ThumbOfAShortBarCannotBeGripped) {
    bar.Move(kLeft, kTop, kW, 700);  // thumb of height 0
    Press(kMidX, 270);
    EXPECT_EQ(S().YPresa, 0);
    EXPECT_EQ(S().YTraccia, 270);  // the track got the press
}

}  // namespace
}  // namespace TabulonLib12::testing
