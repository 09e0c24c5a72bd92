// Column scaling and the resize layout.
#include <gtest/gtest.h>

#include "grid_fixture.h"

namespace TabulonLib12::testing {
namespace {

class LayoutTest : public GridTest {
protected:
    // A control created at 9000 twips wide, before any layout has run.
    void FreshAt(float width) {
        control = std::make_unique<Tabulon12>(host, metrics, timers);
        control->setEvents(&events);
        S().structure.setLarghezzaRiferimento(static_cast<int32_t>(width));
        events.names.clear();
    }
};

TEST_F(LayoutTest, HalfTheReferenceWidthHalvesTheColumnsWithTiesToEven) {
    FreshAt(9000);
    control->Superficie().Resize(9000, 6000);
    control->setCols(2);
    control->setColsWidth(0, 1000);
    control->setColsWidth(1, 1001);
    EXPECT_EQ(S().FG1.ColWidth(0), 1000);
    control->Superficie().Resize(4500, 6000);
    EXPECT_FLOAT_EQ(S().structure.FattoreAdattamento(), 0.5f);
    EXPECT_EQ(S().FG1.ColWidth(0), 500);
    EXPECT_EQ(S().FG1.ColWidth(1), 500);  // 500.5 ties to the even 500
    EXPECT_EQ(control->DeltaWidth(), 4500);
}

TEST_F(LayoutTest, TheFactorIsCutToTwoDecimals) {
    FreshAt(9000);
    control->Superficie().Resize(9000, 6000);
    control->Superficie().Resize(10000, 6000);
    EXPECT_FLOAT_EQ(S().structure.FattoreAdattamento(), 1.11f);
    EXPECT_EQ(S().FG1.ColWidth(0), 1110);
}

TEST_F(LayoutTest, WithScalingOffTheFactorIsOneAndDeltaWidthZero) {
    FreshAt(9000);
    control->setAdattamentoColonneDisattivato(true);
    control->Superficie().Resize(9000, 6000);
    control->Superficie().Resize(5000, 6000);
    EXPECT_FLOAT_EQ(S().structure.FattoreAdattamento(), 1.0f);
    EXPECT_EQ(control->DeltaWidth(), 0);
    EXPECT_EQ(S().FG1.ColWidth(0), 1000);
}

TEST_F(LayoutTest, AReferenceOfZeroGivesFactorOne) {
    FreshAt(0);
    EXPECT_FLOAT_EQ(S().structure.FattoreAdattamento(), 1.0f);
}

TEST_F(LayoutTest, TheFirstResizeRaisesResizeAndScalesNothing) {
    FreshAt(9000);
    control->Superficie().Resize(4000, 6000);
    EXPECT_EQ(events.Count("Resize"), 1);
    EXPECT_EQ(S().FG1.ColWidth(0), 960);  // still the surface's own default: nothing scaled
}

TEST_F(LayoutTest, AHeightChangeAloneKeepsTheWidthsAndMovesTheBar) {
    FreshAt(9000);
    control->Superficie().Resize(9000, 6000);
    control->Superficie().Resize(6000, 6000);
    const int32_t width = S().FG1.ColWidth(0);
    const int32_t delta = control->DeltaWidth();
    control->Superficie().Resize(6000, 4000);
    EXPECT_EQ(S().FG1.ColWidth(0), width);
    EXPECT_EQ(control->DeltaWidth(), delta);
    EXPECT_EQ(S().VS1.Height(), S().FG1.Height() + 15);
    EXPECT_EQ(S().elements.LabelCount->Top(), S().FG1.Top() + S().FG1.Height() + 60);
}

TEST_F(LayoutTest, TheLayoutAppliesTheHeightRule) {
    FreshAt(9000);
    control->Superficie().Resize(6000, kTenRowHeight);
    EXPECT_EQ(control->MinRows(), 10);
    EXPECT_EQ(S().FG1.Height(), 10 * 240 - 15);
    EXPECT_EQ(S().FG1.Width(), 6000 - 270);
    EXPECT_EQ(S().elements.Shape2->Width(), 6000 - 60);
    EXPECT_EQ(S().VS1.Left(), 6000 - 270);
    EXPECT_EQ(S().VS1.Top(), 345 - 15);
    EXPECT_EQ(S().elements.Shape1->Left(), 20);
    EXPECT_EQ(S().elements.Shape1->Width(), 6000 - 270 + 255 - 15);
    EXPECT_EQ(S().elements.ImageTools->Left(), 6000 - 270 - 15);
}

TEST_F(LayoutTest, BottomHeightReLaysTheControlAtOnceAndRaisesResize) {
    FreshAt(9000);
    control->Superficie().Resize(6000, 6000);
    const int16_t rowsBefore = control->MinRows();
    events.names.clear();
    control->setBottomHeight(600);
    EXPECT_EQ(events.Count("Resize"), 1);
    EXPECT_LT(control->MinRows(), rowsBefore);
    EXPECT_LE(6000 - 345 - S().FG1.Height(), 600 + 2.5 * 240 + 15);
}

TEST_F(LayoutTest, VoceInListaComparesWholePiecesWithoutCase) {
    EXPECT_FALSE(ListHolds("12,3", "2"));
    EXPECT_TRUE(ListHolds("12,3", "3"));
    EXPECT_TRUE(ListHolds("x,AB", "ab"));
    EXPECT_FALSE(ListHolds("1", ""));
    EXPECT_FALSE(ListHolds("", "1"));
}

TEST_F(LayoutTest, TheStructureBuildLeavesRoomUnderTheGrid) {
    // A free height of 10.6 rows gives 10 rows from the rounding and 9 after the correction.
    control->Superficie().Resize(6000, 345 + 10.6f * 240);
    control->CaricaStruttura();
    EXPECT_EQ(control->MinRows(), 9);
    // Exactly 3.5 rows: 2.5 rounds to the even 2, then 1.
    control->Superficie().Resize(6000, 345 + 3.5f * 240);
    control->CaricaStruttura();
    EXPECT_EQ(control->MinRows(), 1);
}

TEST_F(LayoutTest, TheStructureBuildGivesTheGridItsWidthWhateverTheColumnsNeed) {
    control->Superficie().Resize(1000, 6000);
    control->CaricaStruttura(true);
    EXPECT_EQ(S().FG1.Width(), 730);
    const float height = S().FG1.Height();
    control->CaricaStruttura(false);
    EXPECT_EQ(S().FG1.Height(), height);
}

}  // namespace
}  // namespace TabulonLib12::testing
