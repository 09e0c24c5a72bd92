// The layout on the body's size and the thumb's size and place.
#include <limits>

#include "scorrix_fixture.h"

namespace TabulonLib12::testing {
namespace {

using Layout = ScorrixTest;

void ExpectRect(const Element& e, float left, float top, float width, float height) {
    EXPECT_EQ(e.Left(), left) << e.Name();
    EXPECT_EQ(e.Top(), top) << e.Name();
    EXPECT_EQ(e.Width(), width) << e.Name();
    EXPECT_EQ(e.Height(), height) << e.Name();
}

TEST_F(Layout, MovePlacesSquareButtonsAtBothEndsTheBackgroundAndTheThumb) {
    ExpectRect(*S().ImageUP, 0, 0, 255, 255);
    ExpectRect(*S().ImageDWN, 0, 2740 - 255, 255, 255);
    ExpectRect(*S().Shape1, 0, 0, 255, 2740);
    // (2740 - 255 - 255 - 30) / 100 = 22, below the minimum of 200.
    ExpectRect(Thumb(), 15, 255 + 15, 255 - 30, 200);
}

TEST_F(Layout, DesignedGeometryOfTheControlsBar) {
    bar.Move(15105, 375, 255, 8925);
    ExpectRect(bar.Corpo(), 15105, 375, 255, 8925);
    ExpectRect(*S().ImageDWN, 0, 8670, 255, 255);
    ExpectRect(Thumb(), 15, 270, 225, 200);
    int32_t v = 100;
    bar.setValue(v);
    // Travel 8925 - 510 - 200 - 30 = 8185, 82 twips a value; the bottom stop holds the thumb at
    // 8925 - 255 - 30 - 200 = 8440.
    EXPECT_EQ(Thumb().Top(), 8440);
    v = 50;
    bar.setValue(v);
    EXPECT_EQ(Thumb().Top(), 270 + 50 * 82);
}

TEST_F(Layout, ResizeSendsTheThumbBackToTheStartUntilTheNextPlacement) {
    Write(30);
    EXPECT_EQ(Thumb().Top(), 270 + 30 * 20);
    bar.Move(kLeft, kTop, kW, 3000);
    EXPECT_EQ(Thumb().Top(), 270);
    EXPECT_EQ(bar.Value(), 30);
    Write(30);
    // Travel 3000 - 510 - 200 - 30 = 2260: 22.6, 23 twips a value.
    EXPECT_EQ(Thumb().Top(), 270 + 30 * 23);
}

TEST_F(Layout, MoveWithoutAChangeOfSizeKeepsTheLayout) {
    Write(30);
    bar.Move(kLeft + 500, kTop + 15, kW, kH);
    EXPECT_EQ(bar.Left(), kLeft + 500);
    EXPECT_EQ(Thumb().Top(), 270 + 30 * 20);
}

TEST_F(Layout, ResizeAloneRaisesNoEvent) {
    bar.Move(kLeft, kTop, 300, 4000);
    bar.Resize();
    EXPECT_TRUE(log.empty());
}

TEST_F(Layout, WiderBarHasWiderButtonsAndThumb) {
    bar.Move(kLeft, kTop, 400, kH);
    ExpectRect(*S().ImageUP, 0, 0, 400, 400);
    ExpectRect(*S().ImageDWN, 0, kH - 400, 400, 400);
    ExpectRect(Thumb(), 15, 415, 370, 200);
}

TEST_F(Layout, ValueWritePlacesTheThumbOnTheStepGrid) {
    Write(1);
    EXPECT_EQ(Thumb().Top(), 290);
    Write(37);
    EXPECT_EQ(Thumb().Top(), 270 + 37 * 20);
}

TEST_F(Layout, ThumbAtMaxIsHeldByTheBottomStop) {
    Write(100);
    // 270 + 100 * 20 = 2270 passes the stop 2740 - 255 - 30 - 200 = 2255.
    EXPECT_EQ(Thumb().Top(), 2255);
    Write(99);
    EXPECT_EQ(Thumb().Top(), 2250);
}

TEST_F(Layout, PlacementCountsFromMin) {
    bar.setMax(150);
    bar.setMin(50);
    // Range 100 again: 20 twips a value, counted from 50.
    Write(60);
    EXPECT_EQ(Thumb().Top(), 270 + 10 * 20);
}

TEST_F(Layout, ShortRangeMakesALongThumb) {
    bar.setMax(5);
    // (2740 - 510 - 30) / 5 = 440.
    EXPECT_EQ(Thumb().Height(), 440);
    Write(1);
    // Travel 2740 - 510 - 440 - 30 = 1760, 352 a value.
    EXPECT_EQ(Thumb().Top(), 270 + 352);
    Write(5);
    EXPECT_EQ(Thumb().Top(), 2740 - 255 - 30 - 440);
}

TEST_F(Layout, ThumbHeightRoundsHalfToEven) {
    bar.Move(kLeft, kTop, kW, 2205 + 540);  // 2205 / 10 = 220.5
    bar.setMax(10);
    EXPECT_EQ(Thumb().Height(), 220);
    bar.Move(kLeft, kTop, kW, 2215 + 540);  // 221.5
    EXPECT_EQ(Thumb().Height(), 222);
}

TEST_F(Layout, ThumbIsNeverShorterThan200) {
    bar.setMax(12);  // 2200 / 12 = 183
    EXPECT_EQ(Thumb().Height(), 200);
    bar.setMax(11);  // 2200 / 11 = 200
    EXPECT_EQ(Thumb().Height(), 200);
    bar.setMax(10);  // 220
    EXPECT_EQ(Thumb().Height(), 220);
}

TEST_F(Layout, EqualBoundsMakeTheThumbFillTheTravel) {
    bar.setMax(0);
    EXPECT_EQ(Thumb().Height(), 2740 - 2 * 255 - 30);
    EXPECT_EQ(Thumb().Top(), 270);
    Write(0);
    // The bottom stop, 2740 - 255 - 30 - 2200 = 255, is 15 twips above the start of the travel.
    EXPECT_EQ(Thumb().Top(), 255);
    log.clear();
    bar.SendDown();
    bar.SendUp();
    EXPECT_TRUE(log.empty());
    EXPECT_EQ(bar.Value(), 0);
}

TEST_F(Layout, TooShortBarShowsAThumbOfHeight0) {
    bar.Move(kLeft, kTop, kW, 700);  // 700 - 510 - 30 = 160, below the thumb's 200
    EXPECT_EQ(Thumb().Height(), 0);
    Write(50);
    EXPECT_EQ(Thumb().Height(), 0);
    // The travel is 700 - 510 - 0 - 30 = 160, 1.6 rounded to 2 twips a value: 270 + 100, above
    // the stop 700 - 255 - 30 - 0 = 415.
    EXPECT_EQ(Thumb().Top(), 370);
}

TEST_F(Layout, ThumbFitsExactlyWhenTheRoomEqualsItsHeight) {
    bar.Move(kLeft, kTop, kW, 740);  // room 200
    EXPECT_EQ(Thumb().Height(), 200);
    bar.Move(kLeft, kTop, kW, 739);
    EXPECT_EQ(Thumb().Height(), 0);
}

TEST_F(Layout, EqualBoundsOnABarWithoutRoomGiveAThumbOfHeight0) {
    bar.setMax(0);
    bar.Move(kLeft, kTop, kW, 500);  // 500 - 510 - 30 is negative
    EXPECT_EQ(Thumb().Height(), 0);
    Write(0);
    EXPECT_EQ(Thumb().Height(), 0);
}

TEST_F(Layout, BarNarrowerThanItsMarginsHasAThumbOfWidth0) {
    bar.Move(kLeft, kTop, 20, kH);
    EXPECT_EQ(Thumb().Width(), 0);
    EXPECT_EQ(S().ImageUP->Width(), 20);
}

TEST_F(Layout, LongRangeMovesTheThumbOneTwipPerValueUntilTheBottomStop) {
    bar.setMax(100000);
    EXPECT_EQ(Thumb().Height(), 200);
    Write(1000);
    EXPECT_EQ(Thumb().Top(), 270 + 1000);
    Write(1985);
    EXPECT_EQ(Thumb().Top(), 2255);
    Write(50000);
    EXPECT_EQ(Thumb().Top(), 2255);
}

TEST_F(Layout, StepOfPlacementRoundsHalfToEven) {
    // Travel 2000 over 160 values: 12.5, rounded to 12.
    bar.setMax(160);
    Write(10);
    EXPECT_EQ(Thumb().Top(), 270 + 10 * 12);
    // Travel 2840 - 510 - 200 - 30 = 2100 over 200 values: 10.5, rounded to 10.
    bar.Move(kLeft, kTop, kW, 2840);
    bar.setMax(200);
    Write(3);
    EXPECT_EQ(Thumb().Top(), 270 + 3 * 10);
}

TEST_F(Layout, MinAboveMaxPlacesTheThumbOneTwipPerValue) {
    bar.setMin(150);  // not tested against Max 100: the range is negative
    EXPECT_EQ(bar.Value(), 150);
    EXPECT_EQ(Thumb().Height(), 200);
    Write(120);  // clamped to Max 100, then to Min 150
    EXPECT_EQ(bar.Value(), 150);
    EXPECT_EQ(Thumb().Top(), 270);
}

TEST_F(Layout, RangeBeyond32BitsGivesTheMinimumThumb) {
    bar.setMax(std::numeric_limits<int32_t>::max());
    bar.setMin(std::numeric_limits<int32_t>::min());
    // Max - Min does not fit: the height's arithmetic is dropped and the minimum holds.
    EXPECT_EQ(Thumb().Height(), 200);
    EXPECT_EQ(bar.Min(), std::numeric_limits<int32_t>::min());
}

}  // namespace
}  // namespace TabulonLib12::testing
