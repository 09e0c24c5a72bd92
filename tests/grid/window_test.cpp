// The row window: the two row coordinates, the public row members and the reaction to a scroll.
#include <gtest/gtest.h>

#include "grid_fixture.h"

namespace TabulonLib12::testing {
namespace {

using WindowTest = GridTest;

TEST_F(WindowTest, WithAHundredRecordsAndTenRowsTheBarRunsToNinety) {
    LoadNumbered(100);
    EXPECT_EQ(S().VS1.Max(), 90);
    control->setTopRow(90);
    EXPECT_EQ(RigaDaIndice(S().VS1.Value(), S().FG1.Rows(), 95), 5);
    EXPECT_EQ(RigaDaIndice(S().VS1.Value(), S().FG1.Rows(), 89), -1);
    EXPECT_EQ(RigaDaIndice(S().VS1.Value(), S().FG1.Rows(), 100), -1);
    EXPECT_EQ(IndiceDaRiga(S().VS1.Value(), 3), 93);
    EXPECT_EQ(IndiceDaRiga(S().VS1.Value(), -4), 86);  // no range test
}

TEST_F(WindowTest, TopRowIsClampedToTheScrollRange) {
    LoadNumbered(100);
    control->setTopRow(-5);
    EXPECT_EQ(S().VS1.Value(), 0);
    EXPECT_EQ(control->TopRow(), 0);
    control->setTopRow(500);
    EXPECT_EQ(S().VS1.Value(), 90);
    control->setTopRow(42);
    EXPECT_EQ(control->TopRow(), 42);
}

TEST_F(WindowTest, AScrollRepaintsTheSurfaceFromTheStore) {
    LoadNumbered(100);
    control->setTopRow(37);
    EXPECT_EQ(FG1().TextMatrix(0, 0), "38");
    EXPECT_EQ(FG1().TextMatrix(9, 1), "Name 47");
    control->setTopRow(90);
    EXPECT_EQ(FG1().TextMatrix(9, 0), "100");
}

TEST_F(WindowTest, TopRowWrittenWithItsOwnValueRepaintsTheWholeSurface) {
    LoadNumbered(100);
    control->setTopRow(10);
    FG1().setTextMatrix(4, 1, "scribbled");
    control->setTopRow(10);
    EXPECT_EQ(FG1().TextMatrix(4, 1), "Name 15");
}

TEST_F(WindowTest, AnEmptyListPaintsNothingOnAScrollButHidesTheTooltip) {
    LoadNumbered(0);
    FG1().setTextMatrix(2, 1, "left alone");
    S().elements.PictureTTT->setVisible(true);
    control->setTopRow(0);
    EXPECT_EQ(FG1().TextMatrix(2, 1), "left alone");
    EXPECT_FALSE(S().elements.PictureTTT->Visible());
}

TEST_F(WindowTest, TheScrollBarsGoDownAndGoUpReachTheHost) {
    LoadNumbered(20);
    S().VS1.onGoDown();
    S().VS1.onGoUp();
    EXPECT_EQ(events.Count("GoDown"), 1);
    EXPECT_EQ(events.Count("GoUp"), 1);
}

TEST_F(WindowTest, UltimaRigaVisibileIsOneBeyondTheLastStoreIndexOnTheSurface) {
    LoadNumbered(100);
    EXPECT_EQ(control->PrimaRigaVisibile(), 0);
    EXPECT_EQ(control->UltimaRigaVisibile(), 10);
    EXPECT_TRUE(control->RowIsVisible(10));
    EXPECT_FALSE(control->IndiceIsVisible(10));
    EXPECT_TRUE(control->IndiceIsVisible(9));
    EXPECT_FALSE(control->RowIsVisible(11));
    control->setTopRow(20);
    EXPECT_EQ(control->PrimaRigaVisibile(), 20);
    EXPECT_FALSE(control->RowIsVisible(19));
    EXPECT_FALSE(control->IndiceIsVisible(19));
}

TEST_F(WindowTest, RowReadsAsAStoreIndexWhileItsWriteIsAGridRow) {
    LoadNumbered(100);
    control->setTopRow(20);
    control->setRow(3);
    EXPECT_EQ(control->Row(), 23);
    EXPECT_EQ(S().selection.RigaCorrente(), 3);
    EXPECT_EQ(FG1().Row(), FG1().Row());  // nothing moved on the surface
    control->setRow(-2);
    EXPECT_EQ(S().selection.RigaCorrente(), -2);
}

TEST_F(WindowTest, RowOverflowsPast32767WhileTopRowKeepsWorking) {
    LoadNumbered(40000);
    control->setTopRow(35000);
    EXPECT_EQ(control->TopRow(), 35000);
    control->setRow(0);
    try {
        (void)control->Row();
        FAIL() << "no overflow";
    } catch (const Error& e) {
        EXPECT_EQ(e.kind(), ErrorKind::Overflow);
        EXPECT_EQ(e.number(), 6);
    }
    EXPECT_THROW((void)control->PrimaRigaVisibile(), Error);
    EXPECT_THROW((void)control->UltimaRigaVisibile(), Error);
    EXPECT_EQ(FG1().TextMatrix(0, 0), "35001");
    control->setTopRow(32757);
    EXPECT_EQ(control->UltimaRigaVisibile(), 32767);
    EXPECT_TRUE(control->RowIsVisible(32760));
    control->setTopRow(32758);
    EXPECT_THROW((void)control->UltimaRigaVisibile(), Error);
    EXPECT_THROW((void)control->RowIsVisible(32760), Error);
}

TEST_F(WindowTest, ColIsAFieldOfItsOwn) {
    control->setCol(7);
    EXPECT_EQ(control->Col(), 7);
    EXPECT_EQ(FG1().Col(), FG1().Col());
}

TEST_F(WindowTest, TextMatrixReadsTheStoreAndFailsOutsideIt) {
    LoadNumbered(30);
    EXPECT_EQ(control->TextMatrix(25, 1), "Name 26");
    EXPECT_EQ(control->TextMatrix(30, 0), "");  // the spare row
    EXPECT_THROW((void)control->TextMatrix(31, 0), Error);
    EXPECT_THROW((void)control->TextMatrix(0, 4), Error);
    EXPECT_THROW((void)control->TextMatrix(-1, 0), Error);
    EXPECT_EQ(control->TextMatrix(0, 3), "");  // the marker column
}

TEST_F(WindowTest, TextMatrixWriteAtOrBeyondTheRowLimitLeavesTheStore) {
    LoadNumbered(30);
    ASSERT_EQ(S().LimiteRighe, 0);  // never read from a property store
    control->setTextMatrix(2, 1, "changed");
    EXPECT_EQ(control->TextMatrix(2, 1), "Name 3");
    S().LimiteRighe = 10;
    control->setTextMatrix(10, 1, "changed");
    EXPECT_EQ(control->TextMatrix(10, 1), "Name 11");
    control->setTextMatrix(2, 3, "changed");  // beyond the defined columns
    EXPECT_EQ(control->TextMatrix(2, 3), "");
}

TEST_F(WindowTest, TextMatrixWriteShowsOnTheSurfaceAsPlainText) {
    LoadNumbered(30);
    S().LimiteRighe = 30;
    control->setFormato(1, "");
    control->setTopRow(0);
    EXPECT_EQ(FG1().TextMatrix(2, 1), "");  // no format: the column shows nothing
    control->setTextMatrix(2, 1, "plain");
    EXPECT_EQ(control->TextMatrix(2, 1), "plain");
    EXPECT_EQ(FG1().TextMatrix(2, 1), "plain");
}

TEST_F(WindowTest, TextMatrixWriteOffTheSurfaceShowsWhenTheRowScrollsIn) {
    LoadNumbered(30);
    S().LimiteRighe = 30;
    control->setTextMatrix(25, 1, "later");
    for (int r = 0; r < 10; ++r) EXPECT_NE(FG1().TextMatrix(r, 1), "later");
    control->setTopRow(20);
    EXPECT_EQ(FG1().TextMatrix(5, 1), "later");
}

TEST_F(WindowTest, TextMatrixWriteWithANegativeRowFails) {
    LoadNumbered(5);
    S().LimiteRighe = 10;
    EXPECT_THROW(control->setTextMatrix(-1, 0, "x"), Error);
}

TEST_F(WindowTest, TMatrixReadsTheCurrentRowAtItsGridRow) {
    LoadNumbered(30);
    control->setTopRow(10);
    control->setRow(2);
    EXPECT_EQ(control->TMatrix(1), "Name 13");
    EXPECT_EQ(control->TMatrix(3), "");
    EXPECT_EQ(control->TMatrix(99), "");
    EXPECT_THROW((void)control->TMatrix(-1), Error);
}

TEST_F(WindowTest, RowHeightAnswersOnlyBelowTheRowLimit) {
    EXPECT_EQ(control->RowHeight(0), 0);
    S().LimiteRighe = 10;
    EXPECT_EQ(control->RowHeight(0), FG1().RowHeight(0));
    EXPECT_EQ(control->RowHeight(0), 240);
    EXPECT_EQ(control->RowHeight(10), 0);
}

TEST_F(WindowTest, ColPosAndRowPosAddTheSurfacePosition) {
    control->setCols(3);
    FG1().setColWidth(0, 1000);
    FG1().setColWidth(1, 1500);
    EXPECT_EQ(control->ColPos(0), 30);
    EXPECT_EQ(control->ColPos(2), 30 + 2500);
    EXPECT_EQ(control->RowPos(0), 345);
    EXPECT_EQ(control->RowPos(3), 345 + 3 * 240);
    EXPECT_EQ(control->RowPos(99), 0);  // failures give 0
    EXPECT_THROW((void)control->ColPos(99), Error);
}

TEST_F(WindowTest, PosizioneColonnaCountsTheSurfaceLeftTwice) {
    control->setCols(3);
    FG1().setColWidth(0, 1000);
    EXPECT_EQ(control->PosizioneColonna(1), 30 + 30 + 1000);
    EXPECT_EQ(control->PosizioneColonna(3), 0);
}

TEST_F(WindowTest, PositionsRoundHalfToEvenInSinglePrecision) {
    control->setCols(2);
    FG1().setLeft(30.5f);
    FG1().setColWidth(0, 1000);
    EXPECT_EQ(control->ColPos(0), 30);    // 30.5 -> 30
    FG1().setLeft(31.5f);
    EXPECT_EQ(control->ColPos(0), 32);    // 31.5 -> 32
    EXPECT_EQ(control->PosizioneColonna(1), 32 + 1032);  // 31.5 + 1032 = 1063.5 -> 1064
}

TEST_F(WindowTest, ASelectionFollowsItsRecordOffTheSurfaceAndBack) {
    LoadNumbered(100);
    control->SelezionaRiga(5);
    EXPECT_EQ(S().selection.IndiceRigaAttiva(), 5);
    EXPECT_EQ(control->IndiceSelezionato(), 6);
    control->setTopRow(3);
    EXPECT_EQ(FG1().Row(), 2);
    EXPECT_EQ(FG1().RowSel(), 2);
    control->setTopRow(50);
    // Off the surface nothing is selected again: the key stays, no row shows it.
    EXPECT_FALSE(FG1().SelectionShown());
    EXPECT_EQ(control->IndiceSelezionato(), 6);
    EXPECT_EQ(S().selection.IndiceRigaAttiva(), 5);
    control->setTopRow(1);
    EXPECT_EQ(FG1().Row(), 4);
    EXPECT_EQ(FG1().ColSel(), 2);
    EXPECT_TRUE(FG1().SelectionShown());
}

TEST_F(WindowTest, AScrollAsksForTheSamePaintsAtAnyListLength) {
    // Every scroll writes MinRows by Cols cells under Redraw False: the surface asks for a
    // paint once for the cells, whatever the length of the list.
    auto paintsOfAScroll = [&](int records, const std::string& name) {
        MakeNumbered(records, name);
        control->setDataBaseName(dir.File(name));
        control->Carica();
        int paints = 0;
        control->Superficie().onInvalidate = [&] { ++paints; };
        control->setTopRow(records / 2);
        control->Superficie().onInvalidate = nullptr;
        return paints;
    };
    DefineColumns();
    control->setQueryString("SELECT id, name, amount FROM t ORDER BY id");
    const int shortList = paintsOfAScroll(20, "short.db");
    const int longList = paintsOfAScroll(5000, "long.db");
    // The cells once, the bar's thumb at most once when it moves.
    EXPECT_GE(shortList, 1);
    EXPECT_LE(shortList, 2);
    EXPECT_GE(longList, 1);
    EXPECT_LE(longList, 2);
}

}  // namespace
}  // namespace TabulonLib12::testing
