// Hit testing, mouse capture and clicks, keys and focus.
#include "ui_fixture.h"

namespace TabulonLib12::testing {
namespace {

using Input = UiTest;

TEST_F(Input, NothingUnderThePointerAnswersTheSurface) {
    Label& l = surface.CreateLabel("L");
    l.Move(100, 100, 200, 200);
    EXPECT_EQ(surface.ElementAt(50, 50), &surface);
    EXPECT_EQ(surface.ElementAt(150, 150), &l);
}

TEST_F(Input, RightAndBottomEdgesLieOutside) {
    Label& l = surface.CreateLabel("L");
    l.Move(100, 100, 200, 200);
    EXPECT_EQ(surface.ElementAt(100, 100), &l);
    EXPECT_EQ(surface.ElementAt(299.5f, 299.5f), &l);
    EXPECT_EQ(surface.ElementAt(300, 150), &surface);
    EXPECT_EQ(surface.ElementAt(150, 300), &surface);
}

TEST_F(Input, WindowedElementsTakeTheMouseBeforeGraphicalOnes) {
    // TextKey lies under FG1; the label was created later but stays beneath both.
    TextBox& textKey = surface.CreateTextBox("TextKey");
    textKey.Move(1500, 585, 2235, 315);
    CellGrid& grid = surface.CreateCellGrid("FG1");
    grid.Move(30, 345, 15000, 7140);
    Label& label = surface.CreateLabel("LabelMisTxt");
    label.Move(210, 675, 480, 195);
    EXPECT_EQ(surface.ElementAt(300, 700), &grid);
    EXPECT_EQ(surface.ElementAt(1600, 600), &grid);
    grid.setVisible(false);
    EXPECT_EQ(surface.ElementAt(1600, 600), &textKey);
    EXPECT_EQ(surface.ElementAt(300, 700), &label);
}

TEST_F(Input, FrontMostOfALayerWins) {
    Label& a = surface.CreateLabel("A");
    a.Move(0, 0, 100, 100);
    Label& b = surface.CreateLabel("B");
    b.Move(50, 50, 100, 100);
    EXPECT_EQ(surface.ElementAt(75, 75), &b);
    a.ZOrder(0);
    EXPECT_EQ(surface.ElementAt(75, 75), &a);
}

TEST_F(Input, ShapesNeverTakeTheMouse) {
    Label& l = surface.CreateLabel("L");
    l.Move(0, 0, 500, 500);
    Shape& s = surface.CreateShape("Shape1");
    s.Move(0, 0, 1000, 1000);
    EXPECT_EQ(surface.ElementAt(100, 100), &l);
    EXPECT_EQ(surface.ElementAt(700, 700), &surface);
}

TEST_F(Input, HiddenAndDisabledElementsAreSkipped) {
    Label& back = surface.CreateLabel("Back");
    back.Move(0, 0, 500, 500);
    Frame& front = surface.CreateFrame("Front");
    front.Move(0, 0, 500, 500);
    EXPECT_EQ(surface.ElementAt(10, 10), &front);
    front.setEnabled(false);
    EXPECT_EQ(surface.ElementAt(10, 10), &back);
    front.setEnabled(true);
    front.setVisible(false);
    EXPECT_EQ(surface.ElementAt(10, 10), &back);
}

TEST_F(Input, TheDeepestElementInsideContainersIsFound) {
    Frame& frame = surface.CreateFrame("Shape2");
    frame.Move(1000, 1000, 3000, 1000);
    ImageElement& image = surface.CreateImage("Image1", &frame);
    image.Move(100, 100, 200, 200);
    EXPECT_EQ(surface.ElementAt(1150, 1150), &image);  // container coordinates add up
    EXPECT_EQ(surface.ElementAt(1050, 1050), &frame);
    EXPECT_EQ(surface.ElementAt(150, 150), &surface);
}

TEST_F(Input, ChildrenOutsideTheirContainerAreNotHit) {
    Frame& frame = surface.CreateFrame("F");
    frame.Move(0, 0, 100, 100);
    Label& l = surface.CreateLabel("L", &frame);
    l.Move(50, 50, 500, 500);
    EXPECT_EQ(surface.ElementAt(60, 60), &l);
    EXPECT_EQ(surface.ElementAt(200, 200), &surface);
}

TEST_F(Input, ChildrenOfADisabledContainerTakeNoMouse) {
    Frame& frame = surface.CreateFrame("F");
    frame.Move(0, 0, 100, 100);
    Label& l = surface.CreateLabel("L", &frame);
    l.Move(0, 0, 100, 100);
    frame.setEnabled(false);
    EXPECT_EQ(surface.ElementAt(10, 10), &surface);
}

TEST_F(Input, MouseEventsCarryElementCoordinates) {
    Frame& frame = surface.CreateFrame("F");
    frame.Move(1000, 2000, 3000, 3000);
    Label& l = surface.CreateLabel("L", &frame);
    l.Move(100, 200, 500, 500);
    Watch(l);
    surface.MouseMove(0, 0, 1150, 2250);
    surface.MouseDown(MouseButton::Left, 0, 1150.5f, 2250);
    EXPECT_EQ(log, (Log{"L move 0 50,50", "L down 1 50.5,50"}));
}

TEST_F(Input, APressCapturesTheMouseUntilTheLastButtonIsReleased) {
    Label& l = surface.CreateLabel("L");
    l.Move(0, 0, 100, 100);
    Label& other = surface.CreateLabel("Other");
    other.Move(500, 500, 100, 100);
    Watch(l);
    Watch(other);
    surface.MouseDown(MouseButton::Left, 0, 10, 10);
    EXPECT_EQ(surface.Captured(), &l);
    surface.MouseDown(MouseButton::Right, 0, 550, 550);  // goes to the captured element
    surface.MouseMove(MouseButton::Left | MouseButton::Right, 0, 550, 550);
    surface.MouseUp(MouseButton::Right, 0, 550, 550);
    EXPECT_EQ(surface.Captured(), &l);
    surface.MouseUp(MouseButton::Left, 0, 550, 550);
    EXPECT_EQ(surface.Captured(), nullptr);
    EXPECT_EQ(log, (Log{"L down 1 10,10", "L down 2 550,550", "L move 3 550,550", "L up 2 550,550",
                        "L up 1 550,550"}));
}

TEST_F(Input, LeftReleaseOverThePressedElementRaisesClickAfterMouseUp) {
    Label& l = surface.CreateLabel("L");
    l.Move(0, 0, 100, 100);
    Watch(l);
    surface.MouseDown(MouseButton::Left, 0, 10, 10);
    surface.MouseUp(MouseButton::Left, 0, 90, 90);
    EXPECT_EQ(log, (Log{"L down 1 10,10", "L up 1 90,90", "L click"}));
}

TEST_F(Input, ReleaseAwayFromThePressedElementRaisesNoClick) {
    Label& l = surface.CreateLabel("L");
    l.Move(0, 0, 100, 100);
    Watch(l);
    surface.MouseDown(MouseButton::Left, 0, 10, 10);
    surface.MouseUp(MouseButton::Left, 0, 200, 10);
    EXPECT_EQ(log, (Log{"L down 1 10,10", "L up 1 200,10"}));
}

TEST_F(Input, RightButtonRaisesNoClick) {
    Label& l = surface.CreateLabel("L");
    l.Move(0, 0, 100, 100);
    Watch(l);
    surface.MouseDown(MouseButton::Right, 0, 10, 10);
    surface.MouseUp(MouseButton::Right, 0, 10, 10);
    EXPECT_EQ(log, (Log{"L down 2 10,10", "L up 2 10,10"}));
}

TEST_F(Input, ReleaseWithoutAPressGoesToTheElementUnderThePointerWithoutClick) {
    Label& l = surface.CreateLabel("L");
    l.Move(0, 0, 100, 100);
    Watch(l);
    surface.MouseUp(MouseButton::Left, 0, 10, 10);
    EXPECT_EQ(log, (Log{"L up 1 10,10"}));
}

TEST_F(Input, DoubleClickRaisesDblClickAndNoSecondClick) {
    Label& l = surface.CreateLabel("L");
    l.Move(0, 0, 100, 100);
    Watch(l);
    surface.MouseDown(MouseButton::Left, 0, 10, 10);
    surface.MouseUp(MouseButton::Left, 0, 10, 10);
    surface.DoubleClick(MouseButton::Left, 0, 10, 10);
    surface.MouseUp(MouseButton::Left, 0, 10, 10);
    EXPECT_EQ(log, (Log{"L down 1 10,10", "L up 1 10,10", "L click", "L dblclick", "L up 1 10,10"}));
}

TEST_F(Input, DoubleClickWithTheRightButtonIsAPlainPress) {
    Label& l = surface.CreateLabel("L");
    l.Move(0, 0, 100, 100);
    Watch(l);
    surface.DoubleClick(MouseButton::Right, 0, 10, 10);
    EXPECT_EQ(log, (Log{"L down 2 10,10"}));
    EXPECT_EQ(surface.Captured(), &l);
}

TEST_F(Input, MoveWithoutCaptureGoesToTheElementUnderThePointer) {
    Label& a = surface.CreateLabel("A");
    a.Move(0, 0, 100, 100);
    Label& b = surface.CreateLabel("B");
    b.Move(200, 0, 100, 100);
    Watch(a);
    Watch(b);
    surface.MouseMove(0, 0, 50, 50);
    EXPECT_EQ(surface.Hovered(), &a);
    surface.MouseMove(0, 0, 250, 50);
    EXPECT_EQ(surface.Hovered(), &b);
    surface.MouseMove(0, 0, 150, 50);
    EXPECT_EQ(surface.Hovered(), &surface);
    EXPECT_EQ(log, (Log{"A move 0 50,50", "B move 0 50,50"}));
}

TEST_F(Input, HoverFollowsThePointerDuringCapture) {
    Label& a = surface.CreateLabel("A");
    a.Move(0, 0, 100, 100);
    Label& b = surface.CreateLabel("B");
    b.Move(200, 0, 100, 100);
    Watch(a);
    surface.MouseDown(MouseButton::Left, 0, 50, 50);
    surface.MouseMove(MouseButton::Left, 0, 250, 50);
    EXPECT_EQ(surface.Hovered(), &b);
    EXPECT_EQ(log.back(), "A move 1 250,50");  // the captured element gets the move
}

TEST_F(Input, PressOnAFocusableElementFocusesItBeforeMouseDown) {
    TextBox& t = surface.CreateTextBox("T");
    t.Move(0, 0, 100, 100);
    Watch(t);
    surface.MouseDown(MouseButton::Left, 0, 10, 10);
    EXPECT_EQ(surface.Focused(), &t);
    EXPECT_EQ(log, (Log{"T gotfocus", "T down 1 10,10"}));
}

TEST_F(Input, PressOnALabelLeavesTheFocusWhereItIs) {
    TextBox& t = surface.CreateTextBox("T");
    t.Move(500, 500, 100, 100);
    t.SetFocus();
    Label& l = surface.CreateLabel("L");
    l.Move(0, 0, 100, 100);
    surface.MouseDown(MouseButton::Left, 0, 10, 10);
    EXPECT_EQ(surface.Focused(), &t);
}

TEST_F(Input, KeysGoToTheFocusedElement) {
    TextBox& t = surface.CreateTextBox("TextKey");
    Watch(t);
    Watch(surface);
    t.SetFocus();
    log.clear();
    surface.KeyDown(40, 0);
    surface.KeyPress(97);
    surface.KeyUp(40, 0);
    EXPECT_EQ(log, (Log{"TextKey keydown 40", "TextKey keypress 97", "TextKey keyup 40"}));
}

TEST_F(Input, KeysGoToTheSurfaceWhenNothingHasTheFocus) {
    Watch(surface);
    surface.KeyDown(38, ShiftState::Shift);
    surface.KeyPress(13);
    EXPECT_EQ(log, (Log{"UserControl keydown 38", "UserControl keypress 13"}));
}

TEST_F(Input, KeyHandlersMayChangeTheirArguments) {
    TextBox& t = surface.CreateTextBox("T");
    t.SetFocus();
    t.onKeyPress = [](Element&, int16_t& key) { key = 65; };
    surface.KeyPress(97);
    EXPECT_EQ(t.Text(), "A");
}

TEST_F(Input, FocusMovesWithLostFocusBeforeGotFocus) {
    TextBox& a = surface.CreateTextBox("A");
    CheckBox& b = surface.CreateCheckBox("B");
    Watch(a);
    Watch(b);
    a.SetFocus();
    b.SetFocus();
    EXPECT_TRUE(b.HasFocus());
    EXPECT_FALSE(a.HasFocus());
    EXPECT_EQ(log, (Log{"A gotfocus", "A lostfocus", "B gotfocus"}));
}

TEST_F(Input, SetFocusOnTheFocusedElementRaisesNothing) {
    TextBox& a = surface.CreateTextBox("A");
    Watch(a);
    a.SetFocus();
    a.SetFocus();
    EXPECT_EQ(log, (Log{"A gotfocus"}));
}

TEST_F(Input, OnlyFocusableKindsTakeTheFocus) {
    EXPECT_UI_ERROR(surface.CreateLabel("L").SetFocus(), ErrorKind::InvalidValue, 380);
    EXPECT_UI_ERROR(surface.CreateFrame("F").SetFocus(), ErrorKind::InvalidValue, 380);
    EXPECT_UI_ERROR(surface.SetFocus(), ErrorKind::InvalidValue, 380);
    EXPECT_EQ(surface.Focused(), nullptr);
    surface.CreatePictureBox("P").SetFocus();
    surface.CreateCellGrid("G").SetFocus();
    EXPECT_EQ(surface.Focused()->Name(), "G");
}

TEST_F(Input, HiddenOrDisabledElementsRefuseTheFocus) {
    TextBox& hidden = surface.CreateTextBox("Hidden");
    hidden.setVisible(false);
    EXPECT_UI_ERROR(hidden.SetFocus(), ErrorKind::InvalidValue, 380);
    Frame& frame = surface.CreateFrame("F");
    frame.setEnabled(false);
    TextBox& inside = surface.CreateTextBox("Inside", &frame);
    EXPECT_UI_ERROR(inside.SetFocus(), ErrorKind::InvalidValue, 380);
    EXPECT_EQ(surface.Focused(), nullptr);
}

TEST_F(Input, GotFocusHandlerMayPassTheFocusOn) {
    TextBox& textKey = surface.CreateTextBox("TextKey");
    CellGrid& grid = surface.CreateCellGrid("FG1");
    grid.Move(0, 0, 1000, 1000);
    grid.onGotFocus = [&](Element&) { textKey.SetFocus(); };
    Watch(textKey);
    surface.MouseDown(MouseButton::Left, 0, 10, 10);
    EXPECT_EQ(surface.Focused(), &textKey);
    EXPECT_EQ(log, (Log{"TextKey gotfocus"}));
}

TEST_F(Input, HidingTheFocusedElementTakesTheFocusAway) {
    Frame& frame = surface.CreateFrame("F");
    TextBox& t = surface.CreateTextBox("T", &frame);
    Watch(t);
    t.SetFocus();
    frame.setVisible(false);
    EXPECT_EQ(surface.Focused(), nullptr);
    EXPECT_EQ(log, (Log{"T gotfocus", "T lostfocus"}));
}

TEST_F(Input, DisablingTheFocusedElementTakesTheFocusAway) {
    TextBox& t = surface.CreateTextBox("T");
    t.SetFocus();
    t.setEnabled(false);
    EXPECT_EQ(surface.Focused(), nullptr);
}

TEST_F(Input, SetFocusNullTakesTheFocusAway) {
    TextBox& t = surface.CreateTextBox("T");
    Watch(t);
    t.SetFocus();
    surface.setFocus(nullptr);
    EXPECT_EQ(surface.Focused(), nullptr);
    EXPECT_EQ(log, (Log{"T gotfocus", "T lostfocus"}));
}

TEST_F(Input, DestroyingTheFocusedElementClearsTheFocusWithoutEvents) {
    Frame& frame = surface.CreateFrame("F");
    TextBox& t = surface.CreateTextBox("T", &frame);
    t.SetFocus();
    surface.Destroy(frame);
    EXPECT_EQ(surface.Focused(), nullptr);
    surface.KeyDown(40, 0);  // reaches the surface, not the removed box
}

TEST_F(Input, DestroyingTheCapturedElementReleasesTheCapture) {
    Label& l = surface.CreateLabel("L");
    l.Move(0, 0, 100, 100);
    surface.MouseDown(MouseButton::Left, 0, 10, 10);
    surface.MouseMove(MouseButton::Left, 0, 20, 20);
    EXPECT_EQ(surface.Hovered(), &l);
    surface.Destroy(l);
    EXPECT_EQ(surface.Captured(), nullptr);
    EXPECT_EQ(surface.Hovered(), nullptr);
    Watch(surface);
    surface.MouseUp(MouseButton::Left, 0, 10, 10);
    EXPECT_EQ(log, (Log{"UserControl up 1 10,10"}));
}

TEST_F(Input, HidingTheCapturedElementReleasesTheCapture) {
    Label& l = surface.CreateLabel("L");
    l.Move(0, 0, 100, 100);
    surface.MouseDown(MouseButton::Left, 0, 10, 10);
    l.setVisible(false);
    EXPECT_EQ(surface.Captured(), nullptr);
}

TEST_F(Input, AClickHandlerMayRemoveItsOwnElement) {
    Label& l = surface.CreateLabel("L");
    l.Move(0, 0, 100, 100);
    int clicks = 0;
    l.onClick = [&](Element& e) {
        ++clicks;
        e.Owner().Destroy(e);
        e.onClick = nullptr;  // the element lives on until the handler returns
    };
    surface.MouseDown(MouseButton::Left, 0, 10, 10);
    surface.MouseUp(MouseButton::Left, 0, 10, 10);
    EXPECT_EQ(clicks, 1);
    EXPECT_TRUE(surface.Children().empty());
    EXPECT_EQ(surface.ElementAt(10, 10), &surface);
}

TEST_F(Input, AMouseDownHandlerThatRemovesTheElementEndsItsInput) {
    Label& l = surface.CreateLabel("L");
    l.Move(0, 0, 100, 100);
    l.onMouseDown = [](Element& e, int16_t&, int16_t&, float&, float&) { e.Owner().Destroy(e); };
    Watch(surface);
    surface.MouseDown(MouseButton::Left, 0, 10, 10);
    surface.MouseUp(MouseButton::Left, 0, 10, 10);
    EXPECT_EQ(log, (Log{"UserControl up 1 10,10"}));
}

TEST_F(Input, WheelIsHandedToTheSurfaceHandler) {
    int32_t seenDelta = 0;
    float seenX = 0;
    surface.onWheel = [&](Surface&, int32_t& delta, int16_t&, float& x, float&) {
        seenDelta = delta;
        seenX = x;
    };
    surface.Wheel(-120, 0, 300, 400);
    EXPECT_EQ(seenDelta, -120);
    EXPECT_EQ(seenX, 300.0f);
}

TEST_F(Input, FocusChangesRequestAPaint) {
    TextBox& t = surface.CreateTextBox("T");
    paints = 0;
    t.SetFocus();
    EXPECT_EQ(paints, 1);
}

}  // namespace
}  // namespace TabulonLib12::testing
