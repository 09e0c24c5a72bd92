// The totals under the grid and the row count: the sums' labels, their placement by alignment,
// the members that read the sums and the count's caption.
#include <gtest/gtest.h>

#include "grid/conditions.h"
#include "grid_fixture.h"
#include "platform/runtime/settings.h"

namespace TabulonLib12::testing {
namespace {

class TotalsTest : public GridTest {
protected:
    TotalsTest() : italian_(SystemSettings::Italian()) {}
    Label& Total(int16_t i) { return FindElement<Label>(S().surface, "LabelTOT", i); }
    bool HasTotal(int16_t i) { return FindElementIn(S().surface, "LabelTOT", i) != nullptr; }
    Label& Count() { return *S().elements.LabelCount; }

    // Columns id, name, amount of t with amount as money, id and amount totalled.
    void LoadWithTotals(int records) {
        LoadNumbered(records);
        control->setFormato(2, "Valuta");
        control->setMostraTotCol(0, 1);
        control->setMostraTotCol(2, 1);
        control->Carica();
    }

    ScopedSettings italian_;
};

TEST_F(TotalsTest, ATotalShowsTheColumnsFormattedSumOnTheCountsLine) {
    LoadWithTotals(4);  // amounts 1.5 + 3 + 4.5 + 6
    EXPECT_TRUE(Total(2).Visible());
    EXPECT_EQ(Total(2).Caption(), FormattaValore("Valuta", "15"));
    EXPECT_FLOAT_EQ(control->TotaleColonna(2), 15.0f);
    EXPECT_EQ(Total(2).Top(), Count().Top());
    EXPECT_EQ(Total(0).Top(), Count().Top());
}

TEST_F(TotalsTest, TheCountLineStandsSixtyTwipsUnderTheGrid) {
    control->Superficie().Resize(8000, 5000);
    EXPECT_EQ(Count().Top(), FG1().Top() + FG1().Height() + 60);
    LoadWithTotals(3);
    EXPECT_EQ(Total(2).Top(), FG1().Top() + FG1().Height() + 60);
}

TEST_F(TotalsTest, AColumnFormattedNessunoIsNeverSummedAndShowsZero) {
    LoadWithTotals(4);
    EXPECT_FLOAT_EQ(control->TotaleColonna(0), 0.0f);
    EXPECT_EQ(Total(0).Caption(), "0");
}

TEST_F(TotalsTest, AColumnFormattedDataShowsTheDateOfZero) {
    LoadNumbered(2);
    control->setFormato(1, "Data");
    control->setMostraTotCol(1, 1);
    control->Carica();
    EXPECT_EQ(Total(1).Caption(), "30/12/1899");
}

TEST_F(TotalsTest, ATotalOfAColumnOfWidthZeroIsNotShown) {
    LoadWithTotals(4);
    control->setColsWidth(2, 0);
    control->RidimensionaColonne();
    control->setMostraTotCol(2, 1);
    EXPECT_FALSE(Total(2).Visible());
}

TEST_F(TotalsTest, OnlyTheValueOneShowsATotalWhileStringaTotColListsEveryNonZero) {
    LoadNumbered(3);
    control->setMostraTotCol(1, 2);
    control->setMostraTotCol(2, 1);
    EXPECT_FALSE(Total(1).Visible());
    EXPECT_TRUE(Total(2).Visible());
    EXPECT_EQ(control->StringaTotCol(), "1,2");
    control->setMostraTotCol(0, 255);
    EXPECT_EQ(control->StringaTotCol(), "0,1,2");
}

TEST_F(TotalsTest, StringaTotColWithoutTotalsIsEmpty) {
    LoadNumbered(3);
    EXPECT_EQ(control->StringaTotCol(), "");
}

TEST_F(TotalsTest, TheWriteOfMostraTotColRedrawsAtOnceAndNotifies) {
    LoadNumbered(3);
    changed.clear();
    control->setMostraTotCol(2, 1);
    EXPECT_TRUE(Total(2).Visible());
    EXPECT_EQ(changed, std::vector<std::string>{"MostraTotCol"});
    control->setMostraTotCol(2, 0);
    EXPECT_FALSE(Total(2).Visible());
}

TEST_F(TotalsTest, ALeftTotalRunsFourHundredTwipsPastItsColumn) {
    LoadWithTotals(4);
    control->setColAlignment(2, 0);
    control->setMostraTotCol(2, 1);
    EXPECT_EQ(Total(2).Left(), FG1().ColPos(2));
    EXPECT_EQ(Total(2).Width(), FG1().ColWidth(2) + 400);
    EXPECT_EQ(Total(2).Alignment(), Alignment::Left);
}

TEST_F(TotalsTest, ARightTotalStartsFourHundredTwipsBeforeItsColumn) {
    LoadWithTotals(4);
    control->setColAlignment(2, 1);
    control->setMostraTotCol(2, 1);
    EXPECT_EQ(Total(2).Left(), FG1().ColPos(2) - 400);
    EXPECT_EQ(Total(2).Width(), FG1().ColWidth(2) + 400);
    EXPECT_EQ(Total(2).Alignment(), Alignment::Right);
    // Restated with widths of our own, unscaled: column 1 of 1700 twips after a column 0 of 900.
    control->setAdattamentoColonneDisattivato(true);
    control->setColsWidth(0, 900);
    control->setColsWidth(1, 1700);
    control->setColAlignment(1, 1);
    control->setMostraTotCol(1, 1);
    EXPECT_EQ(FG1().ColPos(1), 900);
    EXPECT_EQ(Total(1).Left(), 500);
    EXPECT_EQ(Total(1).Width(), 2100);
}

TEST_F(TotalsTest, ACentredTotalCoversItsColumnAlone) {
    LoadWithTotals(4);
    control->setColAlignment(2, 2);
    control->setMostraTotCol(2, 1);
    EXPECT_EQ(Total(2).Left(), FG1().ColPos(2));
    EXPECT_EQ(Total(2).Width(), FG1().ColWidth(2));
    EXPECT_EQ(Total(2).Alignment(), Alignment::Centre);
}

TEST_F(TotalsTest, AnAlignmentOutsideTheThreeIsPlacedAsCentredWithTheDesignedTextAlignment) {
    LoadWithTotals(4);
    control->setColAlignment(2, 1);
    control->setMostraTotCol(2, 1);
    control->setColAlignment(2, 7);
    control->setMostraTotCol(2, 1);
    EXPECT_EQ(Total(2).Left(), FG1().ColPos(2));
    EXPECT_EQ(Total(2).Width(), FG1().ColWidth(2));
    // The label refuses 7 and keeps what it was loaded with, a copy of item 0's left alignment.
    EXPECT_EQ(Total(2).Alignment(), Alignment::Left);
}

TEST_F(TotalsTest, OneTotalLabelPerColumnOfTheSurfaceAndNoMore) {
    LoadWithTotals(4);
    EXPECT_TRUE(HasTotal(2));
    EXPECT_FALSE(HasTotal(3));
    control->setCols(2);
    control->setMostraTotCol(0, 1);
    EXPECT_TRUE(HasTotal(1));
    EXPECT_FALSE(HasTotal(2));
    EXPECT_EQ(Total(0).Left(), FG1().ColPos(0));  // item 0 goes to 0 on each turn and to its column last
}

TEST_F(TotalsTest, TotaleColonnaOutsideTheColumnsFailsAndDoesNotAnswerZero) {
    LoadWithTotals(4);
    EXPECT_THROW((void)control->TotaleColonna(control->Cols()), Error);
    EXPECT_THROW((void)control->TotaleColonna(-1), Error);
    try {
        (void)control->TotaleColonna(3);
    } catch (const Error& e) {
        EXPECT_EQ(e.number(), 9);
    }
}

TEST_F(TotalsTest, TotaleColonnaFailsForEveryColumnBeforeTheFirstLoad) {
    DefineColumns();
    EXPECT_THROW((void)control->TotaleColonna(0), Error);
    // A load without a database leaves no sums either.
    control->setQueryString("SELECT 1");
    control->Carica();
    EXPECT_THROW((void)control->TotaleColonna(0), Error);
}

TEST_F(TotalsTest, EachValueIsRoundedBeforeItIsAdded) {
    MakeDatabase("CREATE TABLE v(x DOUBLE); INSERT INTO v VALUES (0.125), (0.125), (0.00004), (0.00004);");
    control->setCols(2);
    control->setCampoQuery(0, "x");
    control->setFormato(0, "Numerico");
    control->setCampoQuery(1, "x");
    control->setFormato(1, "Numeri_4_Dec");
    control->setDataBaseName(dir.File("test.db"));
    control->setQueryString("SELECT x FROM v");
    control->Carica();
    EXPECT_FLOAT_EQ(control->TotaleColonna(0), 0.24f);      // 0.12 twice, 0 twice: halves to even
    EXPECT_FLOAT_EQ(control->TotaleColonna(1), 0.25f);      // 0.125 twice, 0.0000 twice
}

TEST_F(TotalsTest, WithoutTestoCountTheCountIsHidden) {
    LoadNumbered(5);
    EXPECT_FALSE(Count().Visible());
    EXPECT_EQ(Count().Caption(), " 5");
}

TEST_F(TotalsTest, TheTestoCountWriteShowsTheTextABlankAndTheRecords) {
    LoadNumbered(12);
    changed.clear();
    control->setTestoCount("Righe");
    EXPECT_EQ(Count().Caption(), "Righe 12");
    EXPECT_TRUE(Count().Visible());
    EXPECT_EQ(changed, std::vector<std::string>{"TestoCount"});
    control->setTestoCount("");
    EXPECT_FALSE(Count().Visible());
    EXPECT_EQ(control->TestoCount(), "");
}

TEST_F(TotalsTest, TheDesignedCountCaptionStandsUntilTheFirstLoadOrWrite) {
    EXPECT_EQ(Count().Caption(), "Righe visualizzate:");
    LoadNumbered(7);
    EXPECT_EQ(Count().Caption(), " 7");
}

}  // namespace
}  // namespace TabulonLib12::testing
