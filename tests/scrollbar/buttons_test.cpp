// Clicks and presses on the arrow buttons through the surface.
#include "scorrix_fixture.h"

namespace TabulonLib12::testing {
namespace {

using Buttons = ScorrixTest;

TEST_F(Buttons, ClickOnTheDownButtonStepsDown) {
    Click(kMidX, kDownY);
    EXPECT_EQ(bar.Value(), 1);
    EXPECT_EQ(log, (Log{"GoDown", "Change"}));
    EXPECT_FALSE(S().TimerDWN->Enabled());
}

TEST_F(Buttons, ClickOnTheUpButtonStepsUp) {
    Start(10);
    Click(kMidX, kUpY);
    EXPECT_EQ(bar.Value(), 9);
    EXPECT_EQ(log, (Log{"GoUp", "Change"}));
    EXPECT_FALSE(S().TimerUP->Enabled());
}

TEST_F(Buttons, ClickOnTheDownButtonAtMaxRaisesNothing) {
    Start(100);
    Click(kMidX, kDownY);
    EXPECT_EQ(bar.Value(), 100);
    EXPECT_TRUE(log.empty());
}

TEST_F(Buttons, ClickOnTheUpButtonAtMinRaisesNothing) {
    Click(kMidX, kUpY);
    EXPECT_TRUE(log.empty());
}

TEST_F(Buttons, ButtonsReachTheirEdges) {
    Click(0, kH - kW);  // top-left pixel of the down button
    Click(kW - 1, kH - 1);
    EXPECT_EQ(bar.Value(), 2);
    Click(0, 0);
    Click(kW - 1, kW - 1);
    EXPECT_EQ(bar.Value(), 0);
}

TEST_F(Buttons, PressOnTheUpButtonStartsTheUpTimer) {
    Press(kMidX, kUpY);
    EXPECT_TRUE(S().TimerUP->Enabled());
    EXPECT_FALSE(S().TimerDWN->Enabled());
    Release(kMidX, kUpY);
    EXPECT_FALSE(S().TimerUP->Enabled());
}

TEST_F(Buttons, RightPressStartsTheRepeatButItsReleaseGivesNoStep) {
    Press(kMidX, kDownY, MouseButton::Right);
    EXPECT_TRUE(S().TimerDWN->Enabled());
    Release(kMidX, kDownY, MouseButton::Right);
    EXPECT_FALSE(S().TimerDWN->Enabled());
    EXPECT_EQ(bar.Value(), 0);
    EXPECT_TRUE(log.empty());
}

TEST_F(Buttons, ReleaseAwayFromTheButtonStopsTheRepeatWithoutAStep) {
    Press(kMidX, kDownY);
    MoveTo(kMidX, 1500);
    Release(kMidX, 1500);
    EXPECT_FALSE(S().TimerDWN->Enabled());
    EXPECT_EQ(bar.Value(), 0);
    EXPECT_TRUE(log.empty());
    EXPECT_EQ(S().YTraccia, 0);  // the track saw nothing of it
}

TEST_F(Buttons, DoubleClickStepsOnlyForItsFirstClick) {
    Click(kMidX, kDownY);
    surface.DoubleClick(MouseButton::Left, 0, kLeft + kMidX, kTop + kDownY);
    Release(kMidX, kDownY);
    EXPECT_EQ(bar.Value(), 1);
}

TEST_F(Buttons, DisabledBarTakesNoMouseFromTheSurface) {
    bar.setEnabled(false);
    log.clear();
    Click(kMidX, kDownY);
    Press(kMidX, 1500);
    EXPECT_FALSE(S().TimerDWN->Enabled());
    EXPECT_EQ(S().YTraccia, 0);
    EXPECT_EQ(bar.Value(), 0);
    EXPECT_TRUE(log.empty());
}

TEST_F(Buttons, ClickDeliveredToADisabledBarStillSteps) {
    bar.setEnabled(false);
    log.clear();
    S().ImageDWN->HandleClick();
    EXPECT_EQ(bar.Value(), 1);
    S().ImageUP->HandleClick();
    EXPECT_EQ(bar.Value(), 0);
    EXPECT_EQ(log, (Log{"GoDown", "Change", "GoUp", "Change"}));
}

}  // namespace
}  // namespace TabulonLib12::testing
