// The single and the multiple selection, ColoraRiga and ListaIndiciSel.
#include <gtest/gtest.h>

#include "grid_fixture.h"

namespace TabulonLib12::testing {
namespace {

class SelectionTest : public GridTest {
protected:
    void SetUp() override {
        LoadNumbered(100);
        control->setBackColorSelected(0x00C0FF);
    }
    Colour BackAt(int r, int c) { return FG1().View(r, c).back; }
    std::string_view Marker(int i) { return S().MatriceRighe.Cell(i, control->Cols()); }
};

TEST_F(SelectionTest, SelezionaRigaHighlightsTheWholeRowAndKeepsTheKey) {
    control->setTopRow(10);
    control->SelezionaRiga(3);
    EXPECT_EQ(FG1().Row(), 3);
    EXPECT_EQ(FG1().Col(), 0);
    EXPECT_EQ(FG1().RowSel(), 3);
    EXPECT_EQ(FG1().ColSel(), 2);
    EXPECT_TRUE(FG1().SelectionShown());
    EXPECT_TRUE(FG1().View(3, 1).selected);
    EXPECT_FALSE(FG1().View(4, 1).selected);
    EXPECT_EQ(control->IndiceSelezionato(), 14);
    EXPECT_EQ(S().selection.IndiceRigaAttiva(), 13);
    EXPECT_EQ(S().selection.RigaCorrente(), 3);
    // The surface took the focus and passed it on to the key box at once.
    EXPECT_TRUE(S().elements.TextKey->HasFocus());
}

TEST_F(SelectionTest, SelezionaRigaOnePastTheSurfaceChangesNothing) {
    control->SelezionaRiga(2);
    control->SelezionaRiga(10);
    EXPECT_EQ(S().selection.RigaCorrente(), 2);
    EXPECT_EQ(control->IndiceSelezionato(), 3);
}

TEST_F(SelectionTest, TheKeyIsTheNumberInColumnZeroRoundedHalfToEven) {
    const std::string path = MakeDatabase(
        "CREATE TABLE k(id VARCHAR(10), name VARCHAR(10));"
        "INSERT INTO k VALUES('2.5', 'a'), ('3.5', 'b'), ('abc', 'c');",
        "keys.db");
    control->setDataBaseName(path);
    control->setQueryString("SELECT id, name, name AS amount FROM k");
    control->Carica();
    control->SelezionaRiga(0);
    EXPECT_EQ(control->IndiceSelezionato(), 2);
    control->SelezionaRiga(1);
    EXPECT_EQ(control->IndiceSelezionato(), 4);
    control->SelezionaRiga(2);
    EXPECT_EQ(control->IndiceSelezionato(), 0);
}

TEST_F(SelectionTest, SelRowZeroDoesNothingAndOneSelectsGridRowZero) {
    control->setSelRow(0);
    EXPECT_EQ(control->IndiceSelezionato(), -1);
    control->setSelRow(1);
    EXPECT_EQ(S().selection.RigaCorrente(), 0);
    EXPECT_EQ(control->IndiceSelezionato(), 1);
}

TEST_F(SelectionTest, SelezionaRigaMSWithoutMultiSelDoesNothing) {
    control->SelezionaRigaMS(2);
    EXPECT_TRUE(Marker(2).empty());
    EXPECT_EQ(control->ListaIndiciSel(), "-1");
    control->SelezionaRiga(4);
    EXPECT_EQ(control->ListaIndiciSel(), "5");
}

TEST_F(SelectionTest, RowsWithoutANumberInColumnZeroCannotBePicked) {
    const std::string path = MakeDatabase(
        "CREATE TABLE k(id VARCHAR(10), name VARCHAR(10), amount DOUBLE);"
        "INSERT INTO k VALUES('', 'a', 1), ('abc', 'b', 2), ('0', 'c', 3), ('7', 'd', 4);",
        "keys.db");
    control->setDataBaseName(path);
    control->setQueryString("SELECT * FROM k");
    control->Carica();
    control->setMultiSel(true);
    for (int r = 0; r < 3; ++r) {
        control->SelezionaRigaMS(r);
        control->SelezionaRigaMS(r, true);
        EXPECT_TRUE(Marker(r).empty()) << r;
    }
    control->SelezionaRigaMS(3);
    EXPECT_EQ(Marker(3), "1");
    EXPECT_EQ(control->ListaIndiciSel(), "7");
}

TEST_F(SelectionTest, ToggleTwiceLeavesZeroAndTheDefaultPaint) {
    control->setMultiSel(true);
    control->SelezionaRigaMS(2);
    EXPECT_EQ(Marker(2), "1");
    EXPECT_EQ(BackAt(2, 0), 0x00C0FFu);
    EXPECT_EQ(BackAt(2, 2), 0x00C0FFu);
    EXPECT_EQ(control->ListaIndiciSel(), "3");
    control->SelezionaRigaMS(2);
    EXPECT_EQ(Marker(2), "0");
    EXPECT_EQ(BackAt(2, 0), 0xFFFFFFu);
    EXPECT_EQ(control->ListaIndiciSel(), "");
}

TEST_F(SelectionTest, NonDeselezionareTwiceLeavesTheRowPicked) {
    control->setMultiSel(true);
    control->SelezionaRigaMS(4, true);
    control->SelezionaRigaMS(4, true);
    EXPECT_EQ(Marker(4), "1");
    EXPECT_EQ(BackAt(4, 1), 0x00C0FFu);
}

TEST_F(SelectionTest, ARowOffTheStoreFailsAtTheCaller) {
    control->setMultiSel(true);
    EXPECT_THROW(control->SelezionaRigaMS(-1), Error);
}

TEST_F(SelectionTest, ListaIndiciSelGivesTheKeysInStoreOrder) {
    control->setMultiSel(true);
    control->setTopRow(40);
    control->SelezionaRigaMS(2);  // record 43
    control->setTopRow(10);
    control->SelezionaRigaMS(6);  // record 17
    control->setTopRow(0);
    control->SelezionaRigaMS(2);  // record 3
    EXPECT_EQ(control->ListaIndiciSel(), "3,17,43");
}

TEST_F(SelectionTest, SelezionaIndiceWithoutMultiSelStillSetsTheMarker) {
    S().LimiteRighe = 200;
    control->SelezionaIndice(50);
    EXPECT_EQ(Marker(50), "1");
    EXPECT_EQ(control->ListaIndiciSel(), "-1");
    control->setMultiSel(true);  // does not clear: only False clears
    EXPECT_EQ(Marker(50), "1");
    control->setTopRow(45);
    EXPECT_EQ(BackAt(5, 0), 0x00C0FFu);  // painted when a scroll recolours the selection
    EXPECT_EQ(control->ListaIndiciSel(), "51");
}

TEST_F(SelectionTest, SelezionaIndiceOnAPickedVisibleRecordTogglesThenMarks) {
    S().LimiteRighe = 200;
    control->setMultiSel(true);
    control->SelezionaRigaMS(3);
    control->SelezionaIndice(3);
    EXPECT_EQ(Marker(3), "1");
    EXPECT_EQ(BackAt(3, 0), 0xFFFFFFu);  // painted as released by the toggle
}

TEST_F(SelectionTest, SelezionaIndiceAboveTheRowLimitFollowsTheToggleAlone) {
    control->setMultiSel(true);
    ASSERT_EQ(S().LimiteRighe, 0);
    control->SelezionaIndice(3);
    EXPECT_EQ(Marker(3), "1");
    control->SelezionaIndice(3);
    EXPECT_EQ(Marker(3), "0");
    control->SelezionaIndice(60);  // off the surface and above the limit: nothing
    EXPECT_TRUE(Marker(60).empty());
}

TEST_F(SelectionTest, DeselezionaRigaReleasesOnlyAPickedRecord) {
    control->setMultiSel(true);
    control->SelezionaRigaMS(1);
    control->DeselezionaRiga(1);
    EXPECT_TRUE(Marker(1).empty());
    EXPECT_EQ(BackAt(1, 0), 0xFFFFFFu);
    control->SelezionaRigaMS(2);
    control->SelezionaRigaMS(2);
    ASSERT_EQ(Marker(2), "0");
    control->DeselezionaRiga(2);
    EXPECT_EQ(Marker(2), "0");
    control->DeselezionaRiga(0);
    EXPECT_TRUE(Marker(0).empty());
}

TEST_F(SelectionTest, DeselezionaRigaOfTheLastStoreRowDoesNothing) {
    S().MatriceRighe.SetCell(100, 3, "1");
    control->DeselezionaRiga(100);
    EXPECT_EQ(Marker(100), "1");
    control->DeselezionaRiga(500);
}

TEST_F(SelectionTest, DeselezionaRigaOffTheSurfaceChangesTheMarkerOnly) {
    S().MatriceRighe.SetCell(70, 3, "1");
    control->DeselezionaRiga(70);
    EXPECT_TRUE(Marker(70).empty());
}

TEST_F(SelectionTest, ColoraRigaOutsideTheSurfaceDoesNothing) {
    control->ColoraRiga(-1, false, 0x123456);
    control->ColoraRiga(10, false, 0x123456);
    for (int r = 0; r < 10; ++r) EXPECT_EQ(BackAt(r, 0), 0xFFFFFFu);
}

TEST_F(SelectionTest, ColoraRigaRestoresRedrawAndRowButNotCol) {
    FG1().setRow(6);
    FG1().setCol(1);
    FG1().setRedraw(false);
    control->ColoraRiga(2, false, 0x123456);
    EXPECT_FALSE(FG1().Redraw());
    EXPECT_EQ(FG1().Row(), 6);
    EXPECT_EQ(FG1().Col(), 2);
    FG1().setRedraw(true);
    EXPECT_EQ(BackAt(2, 0), 0x123456u);
    EXPECT_EQ(BackAt(2, 2), 0x123456u);
}

TEST_F(SelectionTest, ColoraRigaWithDefUsesTheRowColourOrTheColumnColour) {
    const std::string path = MakeDatabase(
        "CREATE TABLE c(id INTEGER, name VARCHAR(10), colour VARCHAR(12));"
        "INSERT INTO c VALUES(1, 'a', '0,255,0'), (2, 'b', '');",
        "colours.db");
    control->setBackColorCol(1, 0xABCDEF);
    control->setColonnaColore(2);
    control->setDataBaseName(path);
    control->setCampoQuery(2, "colour");
    control->setQueryString("SELECT id, name, colour FROM c");
    control->Carica();
    control->ColoraRiga(0, false, 0x111111);
    control->ColoraRiga(0, true);
    EXPECT_EQ(BackAt(0, 1), Rgb(0, 255, 0));
    control->ColoraRiga(1, false, 0x111111);
    control->ColoraRiga(1, true);
    EXPECT_EQ(BackAt(1, 1), 0xABCDEFu);
}

TEST_F(SelectionTest, MultiSelOffWipesTheMarkersAndRepaintsEveryRow) {
    control->setMultiSel(true);
    control->SelezionaRigaMS(1);
    control->SelezionaRigaMS(5);
    control->setMultiSel(false);
    EXPECT_TRUE(Marker(1).empty());
    EXPECT_TRUE(Marker(5).empty());
    EXPECT_EQ(BackAt(1, 0), 0xFFFFFFu);
    EXPECT_EQ(BackAt(5, 2), 0xFFFFFFu);
}

TEST_F(SelectionTest, TheMarkerSurvivesAScrollOffAndBackAndVanishesWithALoad) {
    control->setMultiSel(true);
    control->SelezionaRigaMS(4);
    control->setTopRow(50);
    EXPECT_EQ(BackAt(4, 0), 0xFFFFFFu);
    control->setTopRow(0);
    EXPECT_EQ(BackAt(4, 0), 0x00C0FFu);
    control->Carica();
    EXPECT_TRUE(Marker(4).empty());
    EXPECT_EQ(BackAt(4, 0), 0xFFFFFFu);
    EXPECT_EQ(control->ListaIndiciSel(), "");
}

TEST_F(SelectionTest, TheSelectionDoesNotSurviveALoad) {
    control->SelezionaRiga(3);
    control->Carica();
    EXPECT_EQ(control->IndiceSelezionato(), -1);
    EXPECT_EQ(S().selection.IndiceRigaAttiva(), -1);
}

}  // namespace
}  // namespace TabulonLib12::testing
