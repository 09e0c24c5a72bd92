// The structure build, the fitting rule and the resize layout, with numbers of our own beside
// the rules' own examples. The headless metrics give a row 240 twips high.
#include <gtest/gtest.h>

#include "grid_fixture.h"

namespace TabulonLib12::testing {
namespace {

constexpr float kRow = 240;

class StructureTest : public GridTest {
protected:
    // A new control, created and not yet laid out, whose columns were designed for `reference`.
    void FreshAt(float reference) {
        control = std::make_unique<Tabulon12>(host, metrics, timers);
        control->setEvents(&events);
        S().structure.setLarghezzaRiferimento(static_cast<int32_t>(reference));
        events.names.clear();
    }
    // The number of rows the height rule gives for a free height of `rows` row heights.
    int16_t RowsFor(float rows, int32_t bottom = 0) {
        control->setBottomHeight(bottom);
        control->Superficie().Resize(6000, 345 + rows * kRow + static_cast<float>(bottom));
        control->CaricaStruttura();
        return control->MinRows();
    }
};

// A contained control of the host, as the tests keep one.
struct HostChild final : ContainedControl {
    HostChild(float top, bool verticalBar) : top(top), verticalBar(verticalBar) {}
    float Top() const override { return top; }
    void setTop(float t) override { top = t; }
    bool IsVerticalScrollBar() const override { return verticalBar; }
    float top;
    bool verticalBar;
};

struct HostChildren final : ContainedControls {
    std::vector<ContainedControl*> Items() override { return {&label, &bar}; }
    HostChild label{0, false};
    HostChild bar{0, true};
};

TEST_F(StructureTest, TheHeightRuleLeavesRoomForTheTotalsUnderTheGrid) {
    // 10.6 row heights: 9.6 rounds to 10, and the correction takes one more.
    EXPECT_EQ(RowsFor(10.6f), 9);
    // 7.4 row heights: 6.4 rounds to 6, then 5; 12 row heights: 11, then 10.
    EXPECT_EQ(RowsFor(7.4f), 5);
    EXPECT_EQ(RowsFor(12.0f), 10);
    // Ties go to the even number: 4.5 gives 3.5, which rounds to 4, then 3.
    EXPECT_EQ(RowsFor(4.5f), 3);
    EXPECT_EQ(FG1().Height(), 3 * kRow - 15);
}

TEST_F(StructureTest, TheGridEndsOneRowShortOfWhatRoundingGaveWithinTheFreeStrip) {
    for (float rows : {5.0f, 6.3f, 8.75f, 15.5f, 21.1f}) {
        const int16_t n = RowsFor(rows);
        const float free = 345 + rows * kRow - (FG1().Top() + FG1().Height());
        EXPECT_EQ(FG1().Height(), n * kRow - 15) << rows;
        EXPECT_GE(free, 1.5f * kRow + 15) << rows;
        EXPECT_LE(free, 2.5f * kRow + 15) << rows;
        EXPECT_EQ(FG1().Rows(), n) << rows;
    }
}

TEST_F(StructureTest, BottomHeightIsKeptFreeUnderTheStrip) {
    EXPECT_EQ(RowsFor(12.0f, 480), 10);  // the same free height above the bottom strip
    EXPECT_EQ(control->BottomHeight(), 480);
}

TEST_F(StructureTest, TheGridIsTheControlsWidthLessTheBarsRoom) {
    control->Superficie().Resize(2500, 6000);
    control->CaricaStruttura();
    EXPECT_EQ(FG1().Width(), 2230);
    control->Superficie().Resize(1000, 6000);
    control->CaricaStruttura();
    EXPECT_EQ(FG1().Width(), 730);
}

TEST_F(StructureTest, TheBarTheOutlineAndTheChooserButtonStandAroundTheGrid) {
    control->Superficie().Resize(7000, 5000);
    control->CaricaStruttura();
    const float w = FG1().Width(), h = FG1().Height();
    EXPECT_EQ(S().VS1.Left(), w);  // the grid's width, not its right edge
    EXPECT_EQ(S().VS1.Top(), 345 - 15);
    EXPECT_EQ(S().VS1.Width(), 255);
    EXPECT_EQ(S().VS1.Height(), h + 15);
    EXPECT_EQ(S().elements.Shape1->Left(), 20);
    EXPECT_EQ(S().elements.Shape1->Top(), 0);
    EXPECT_EQ(S().elements.Shape1->Width(), w + 255 - 15);
    EXPECT_EQ(S().elements.Shape1->Height(), 345 + h + 15);
    EXPECT_EQ(S().elements.ImageTools->Left(), w - 15);
    const auto& order = S().surface.Children();
    EXPECT_EQ(order.back(), S().elements.ImageTools);  // brought to the front
}

TEST_F(StructureTest, SoloRefreshChangesNothingInTheBuild) {
    DefineColumns();
    control->Superficie().Resize(6500, 4100);
    control->CaricaStruttura(true);
    const float h = FG1().Height(), barTop = S().VS1.Top();
    const int32_t widths[] = {FG1().ColWidth(0), FG1().ColWidth(1), FG1().ColWidth(2)};
    for (bool solo : {false, true}) {
        control->CaricaStruttura(solo);
        EXPECT_EQ(FG1().Height(), h);
        EXPECT_EQ(S().VS1.Top(), barTop);
        for (int c = 0; c < 3; ++c) EXPECT_EQ(FG1().ColWidth(c), widths[c]);
    }
    control->CaricaStruttura();
    EXPECT_EQ(FG1().Height(), h);
}

TEST_F(StructureTest, TheAlignmentCodesReachTheGridInItsOwnCodes) {
    DefineColumns();
    control->setColAlignment(0, 1);
    control->setColAlignment(1, 2);
    control->setColAlignment(2, 0);
    control->CaricaStruttura();
    EXPECT_EQ(FG1().ColAlignment(0), CellAlign::RightCentre);
    EXPECT_EQ(FG1().ColAlignment(1), CellAlign::CentreCentre);
    EXPECT_EQ(FG1().ColAlignment(2), CellAlign::LeftCentre);
    control->setColAlignment(1, 5);  // any other value leaves the grid's alignment as it is
    control->CaricaStruttura();
    EXPECT_EQ(FG1().ColAlignment(1), CellAlign::CentreCentre);
    EXPECT_EQ(control->ColAlignment(1), 5);
}

TEST_F(StructureTest, AColumnTheUserHidWidthZeroWhileItsDesignedWidthIsKept) {
    const std::string choice = dir.File("scelta.txt");
    std::ofstream(choice) << "1\r\n";
    LoadNumbered(3);
    control->setColsWidth(1, 1300);
    control->setFileScelta(choice);
    control->Carica();
    control->CaricaStruttura();
    EXPECT_EQ(FG1().ColWidth(1), 0);
    EXPECT_EQ(control->ColsWidth(1), 0);  // the read answers 0 for a hidden column
    EXPECT_EQ(S().columns.ColsWidth[1], 1300);
}

TEST_F(StructureTest, TheFittingRuleScalesByTheRatioCutToTwoDecimals) {
    FreshAt(8000);
    control->Superficie().Resize(8000, 5000);
    control->setCols(3);
    control->setColsWidth(0, 1000);
    control->setColsWidth(1, 1002);
    control->setColsWidth(2, 1006);
    control->Superficie().Resize(6000, 5000);  // 0.75
    EXPECT_FLOAT_EQ(S().structure.FattoreAdattamento(), 0.75f);
    EXPECT_EQ(FG1().ColWidth(0), 750);
    EXPECT_EQ(FG1().ColWidth(1), 752);  // 751.5: ties to the even 752
    EXPECT_EQ(FG1().ColWidth(2), 754);  // 754.5: ties to the even 754
    EXPECT_EQ(control->DeltaWidth(), 2000);
    control->Superficie().Resize(9333, 5000);  // 1.166625 is cut to 1.16
    EXPECT_FLOAT_EQ(S().structure.FattoreAdattamento(), 1.16f);
    EXPECT_EQ(FG1().ColWidth(0), 1160);
    EXPECT_EQ(control->DeltaWidth(), 8000 - 9333);
}

TEST_F(StructureTest, TheFactorIsCutNotRounded) {
    FreshAt(1000);
    control->Superficie().Resize(999, 5000);
    EXPECT_FLOAT_EQ(S().structure.FattoreAdattamento(), 0.99f);
    FreshAt(2000);
    control->Superficie().Resize(2010, 5000);
    EXPECT_FLOAT_EQ(S().structure.FattoreAdattamento(), 1.0f);
}

TEST_F(StructureTest, ColsWidthEffScalesTheStoredWidthAndOverflowsPast32767) {
    FreshAt(4000);
    control->Superficie().Resize(6000, 5000);
    control->setCols(2);
    control->setColsWidth(1, 2000);
    EXPECT_EQ(control->ColsWidthEff(1), 3000);
    control->setColsWidth(1, 30000);
    EXPECT_THROW((void)control->ColsWidthEff(1), Error);  // 45000 twips
    EXPECT_EQ(control->ColsWidthEff(7), 0);             // a missing column reads 0
}

TEST_F(StructureTest, ColsWidthReadsZeroForAColumnTheSurfaceShowsAtZeroWidth) {
    DefineColumns();
    control->setColsWidth(2, 0);
    EXPECT_EQ(control->ColsWidth(2), 0);
    EXPECT_EQ(control->ColsWidthEff(2), 0);
    control->setColsWidth(2, 1500);
    EXPECT_EQ(control->ColsWidth(2), 1500);
}

TEST_F(StructureTest, AHeightChangeAloneScalesNothingButStretchesTheBarAndTheLines) {
    FreshAt(9000);
    control->Superficie().Resize(9000, 5000);
    control->Superficie().Resize(7000, 5000);
    const int32_t width = FG1().ColWidth(0);
    const int32_t delta = control->DeltaWidth();
    control->Superficie().Resize(7000, 7000);
    EXPECT_EQ(FG1().ColWidth(0), width);
    EXPECT_EQ(control->DeltaWidth(), delta);
    EXPECT_EQ(S().VS1.Height(), FG1().Height() + 15);
    EXPECT_EQ(FrameLine(0).Height(), FG1().Height());
}

TEST_F(StructureTest, TheLayoutRaisesResizeLastAfterTheTotalsAndTheCount) {
    LoadNumbered(3);
    control->setMostraTotCol(2, 1);
    float countTop = 0, totalTop = 0;
    struct Watcher : EventRecorder {
        std::function<void()> onResize;
        void Resize() override { onResize(); }
    } watcher;
    watcher.onResize = [&] {
        countTop = S().elements.LabelCount->Top();
        totalTop = FindElement<Label>(S().surface, "LabelTOT", 2).Top();
    };
    control->setEvents(&watcher);
    control->Superficie().Resize(9000, 6000);
    const float expected = FG1().Top() + FG1().Height() + 60;
    EXPECT_EQ(countTop, expected);
    EXPECT_EQ(totalTop, expected);
}

TEST_F(StructureTest, TheHostsControlsInsideFollowTheGridsBottomEdge) {
    HostChildren children;
    host.containedControls = &children;
    control = std::make_unique<Tabulon12>(host, metrics, timers);
    control->Superficie().Resize(6000, 5000);  // the first layout moves nothing
    const float gridBottom = FG1().Top() + FG1().Height();
    children.label.top = gridBottom + 300;
    children.bar.top = 500;
    control->Superficie().Resize(6000, 7400);  // ten rows more
    EXPECT_EQ(FG1().Top() + FG1().Height() - gridBottom, 10 * kRow);
    EXPECT_EQ(children.label.top, gridBottom + 300 + 10 * kRow);
    EXPECT_EQ(children.bar.top, 500);  // a vertical scroll bar stays
    control->Superficie().Resize(6000, 6440);  // four rows fewer
    EXPECT_EQ(children.label.top, gridBottom + 300 + 6 * kRow);
    control->Superficie().Resize(7000, 6440);  // the width alone moves nothing
    EXPECT_EQ(children.label.top, gridBottom + 300 + 6 * kRow);
}

TEST_F(StructureTest, AFontWriteLaysNothingOutUntilTheNextBuild) {
    control->Superficie().Resize(6000, 5000);
    control->CaricaStruttura();
    const int16_t rows = control->MinRows();
    control->setFont(Font{"Arial", 16.0f});
    EXPECT_EQ(control->MinRows(), rows);
    EXPECT_EQ(control->GetFont().size, 16.0f);
    control->CaricaStruttura();
    EXPECT_LT(control->MinRows(), rows);
}

TEST_F(StructureTest, ArrotondaTwipsRoundsToWholePixelsTiesToEven) {
    EXPECT_EQ(ArrotondaTwips(100), 105);   // 6.67 pixels
    EXPECT_EQ(ArrotondaTwips(22.5f), 30);  // 1.5 pixels: to 2
    EXPECT_EQ(ArrotondaTwips(37.5f), 30);  // 2.5 pixels: to 2
    EXPECT_EQ(ArrotondaTwips(-22.5f), -30);
    EXPECT_THROW((void)ArrotondaTwips(15.0f * 40000), Error);  // beyond 16 bits
}

}  // namespace
}  // namespace TabulonLib12::testing
