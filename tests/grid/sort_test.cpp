// Sorting by a click on a heading: the three-state walk, the arrow and its look, the hover of
// sortable headings, and the rows in the database's order after each click.
#include <gtest/gtest.h>

#include "grid_fixture.h"

namespace TabulonLib12::testing {
namespace {

class SortTest : public GridTest {
protected:
    // Columns id, name, amount of t (records in the table's own order 3, 1, 2, 5, 4), sortable
    // by their fields; heading 1 carries no Ordinamento unless a test gives it one.
    void LoadSortable() {
        MakeDatabase(
            "CREATE TABLE t(id INTEGER, name VARCHAR(20), amount DOUBLE);"
            "INSERT INTO t VALUES (3, 'Carla', 30.5), (1, 'Anna', 10), (2, 'Bruno', NULL), (5, 'Elio', -4),"
            " (4, 'Dario', 7.25);");
        control->setAdattamentoColonneDisattivato(true);
        DefineColumns();
        control->setOrdinamento(0, "id");
        control->setOrdinamento(2, "amount");
        control->setDataBaseName(dir.File("test.db"));
        control->setQueryString("SELECT id, name, amount FROM t");
        control->Carica();
    }
    ImageElement& Tile(int16_t i) { return FindElement<ImageElement>(S().surface, "Image1", i); }
    ImageElement& Arrow() { return *S().elements.ImageOrd; }
    std::vector<std::string> Ids() {
        std::vector<std::string> ids;
        for (int32_t r = 0; r < control->RighePiene(); ++r) ids.push_back(control->TextMatrix(r, 0));
        return ids;
    }
    const auto& Library() { return S().pictures; }
    // The mouse over caption k of the band.
    void HoverCaption(int16_t k) {
        const Label& caption = Menu(k);
        S().surface.MouseMove(0, 0, caption.SurfaceLeft() + 5, caption.SurfaceTop() + 5);
    }
    void ClickCaption(int16_t k) {
        const Label& caption = Menu(k);
        const float x = caption.SurfaceLeft() + caption.Width() / 2, y = caption.SurfaceTop() + 5;
        S().surface.MouseDown(MouseButton::Left, 0, x, y);
        S().surface.MouseUp(MouseButton::Left, 0, x, y);
    }
};

TEST_F(SortTest, AClickSortsAscendingThenDescendingThenNotAtAll) {
    LoadSortable();
    EXPECT_EQ(Ids(), (std::vector<std::string>{"3", "1", "2", "5", "4"}));
    control->OrdinaColonna(0);
    EXPECT_EQ(Ids(), (std::vector<std::string>{"1", "2", "3", "4", "5"}));
    EXPECT_EQ(control->QueryEffettiva(), "SELECT id, name, amount FROM t ORDER BY id");
    EXPECT_EQ(control->IndiceordinamentoAttivo(), 0);
    EXPECT_EQ(Arrow().ToolTipText(), "Ordinamento Crescente");
    EXPECT_EQ(Arrow().GetPicture(), Library().ArrowUp(3));
    EXPECT_EQ(Arrow().Tag(), "id");
    EXPECT_TRUE(Arrow().Visible());
    control->OrdinaColonna(0);
    EXPECT_EQ(Ids(), (std::vector<std::string>{"5", "4", "3", "2", "1"}));
    EXPECT_EQ(control->QueryEffettiva(), "SELECT id, name, amount FROM t ORDER BY id DESC");
    EXPECT_EQ(Arrow().ToolTipText(), "Ordinamento Decrescente");
    EXPECT_EQ(Arrow().GetPicture(), Library().ArrowDown(3));
    control->OrdinaColonna(0);
    EXPECT_EQ(Ids(), (std::vector<std::string>{"3", "1", "2", "5", "4"}));
    EXPECT_EQ(control->QueryEffettiva(), "SELECT id, name, amount FROM t");
    EXPECT_EQ(control->IndiceordinamentoAttivo(), -1);
    EXPECT_FALSE(Arrow().Visible());
    EXPECT_EQ(Arrow().Tag(), "");
    EXPECT_EQ(Arrow().ToolTipText(), "Ordinamento Crescente");
    EXPECT_EQ(S().band.CampoOrdinamentoAttivo(), "");
    EXPECT_EQ(events.Count("Caricato"), 4);
}

TEST_F(SortTest, TheDatabaseOrdersNumbersAndNullsItsOwnWay) {
    LoadSortable();
    control->OrdinaColonna(2);
    // SQLite puts NULL first when ascending and last when descending.
    EXPECT_EQ(Ids(), (std::vector<std::string>{"2", "5", "4", "1", "3"}));
    control->OrdinaColonna(2);
    EXPECT_EQ(Ids(), (std::vector<std::string>{"3", "1", "4", "5", "2"}));
}

TEST_F(SortTest, AHeadingWithoutOrdinamentoDoesNothingAtAllNotEvenAReload) {
    LoadSortable();
    const int loads = events.Count("Caricato");
    control->OrdinaColonna(1);
    EXPECT_EQ(events.Count("Caricato"), loads);
    EXPECT_EQ(control->IndiceordinamentoAttivo(), -1);
    EXPECT_FALSE(Arrow().Visible());
    EXPECT_EQ(S().band.UltimaTestaCliccata(), -1);
    EXPECT_TRUE(Tile(1).Visible());
}

TEST_F(SortTest, AnIndexOutsideTheColumnsFailsBeforeAnythingChanges) {
    LoadSortable();
    EXPECT_THROW(control->OrdinaColonna(3), Error);
    EXPECT_THROW(control->OrdinaColonna(-1), Error);
    EXPECT_EQ(S().band.UltimaTestaCliccata(), -1);
}

TEST_F(SortTest, FromADescendingSortAClickElsewhereFirstRemovesTheSort) {
    LoadSortable();
    control->setForeColorOrd(0x0000FF);
    control->OrdinaColonna(0);
    control->OrdinaColonna(0);  // descending on column 0
    control->OrdinaColonna(2);  // removes the sort instead of sorting column 2
    EXPECT_EQ(control->IndiceordinamentoAttivo(), -1);
    EXPECT_EQ(S().band.CampoOrdinamentoAttivo(), "");
    EXPECT_EQ(Ids(), (std::vector<std::string>{"3", "1", "2", "5", "4"}));
    EXPECT_FALSE(Arrow().Visible());
    EXPECT_EQ(Menu(2).ForeColor(), control->ForeColorHead());  // the clicked column is restored
    EXPECT_EQ(Menu(0).ForeColor(), 0x0000FFu);                 // the sorted one keeps its colour
    EXPECT_EQ(Tile(0).Height(), 320);                          // and its lower tile
    control->OrdinaColonna(2);  // the next click sorts column 2
    EXPECT_EQ(control->IndiceordinamentoAttivo(), 2);
    EXPECT_EQ(S().band.CampoOrdinamentoAttivo(), "amount");
}

TEST_F(SortTest, FromAnAscendingSortAClickElsewhereSortsThatColumnAscending) {
    LoadSortable();
    control->OrdinaColonna(2);
    control->OrdinaColonna(0);
    EXPECT_EQ(control->IndiceordinamentoAttivo(), 0);
    EXPECT_EQ(Arrow().ToolTipText(), "Ordinamento Crescente");
    EXPECT_EQ(Ids(), (std::vector<std::string>{"1", "2", "3", "4", "5"}));
}

TEST_F(SortTest, TwoColumnsWithTheSameOrdinamentoToggleTheDirectionBetweenThem) {
    LoadSortable();
    control->setOrdinamento(1, "id");
    control->OrdinaColonna(0);
    control->OrdinaColonna(1);  // Tag equal: the direction toggles instead of starting ascending
    EXPECT_EQ(control->IndiceordinamentoAttivo(), 1);
    EXPECT_EQ(Arrow().ToolTipText(), "Ordinamento Decrescente");
    EXPECT_EQ(Ids(), (std::vector<std::string>{"5", "4", "3", "2", "1"}));
}

TEST_F(SortTest, TheArrowStandsAtTheRightEndOfTheHeadingInItsColourAndTheTileIsLower) {
    LoadSortable();
    control->setForeColorOrd(0x00AA00);
    control->OrdinaColonna(2);
    EXPECT_EQ(Arrow().Left(), Tile(2).Left() + Tile(2).Width() - Arrow().Width());
    EXPECT_EQ(Arrow().Top(), Tile(0).Top());
    EXPECT_EQ(Tile(2).Height(), 320);
    for (int16_t i : {0, 1, 3}) EXPECT_EQ(Tile(i).Height(), 330) << i;
    EXPECT_EQ(Menu(2).ForeColor(), 0x00AA00u);
    EXPECT_EQ(Menu(0).ForeColor(), control->ForeColorHead());
    EXPECT_EQ(S().elements.LblMisuraTitolo->Caption(), Menu(2).Caption());
    // The arrow is the front of the band.
    EXPECT_EQ(S().elements.Shape2->Children().back(), &Arrow());
}

TEST_F(SortTest, TheArrowTakesTheArrowStyleOfItsClick) {
    LoadSortable();
    control->setStileArrow(ColorArrowType::Green);
    control->OrdinaColonna(0);
    EXPECT_EQ(Arrow().GetPicture(), Library().ArrowUp(4));
    control->OrdinaColonna(0);
    EXPECT_EQ(Arrow().GetPicture(), Library().ArrowDown(4));
}

TEST_F(SortTest, AChangeOfStileArrowDuringASortKeepsTheOldArrowWhichNoLongerChanges) {
    LoadSortable();
    control->OrdinaColonna(0);  // blue up
    const Picture blueUp = Arrow().GetPicture();
    control->setStileArrow(ColorArrowType::Black);
    control->OrdinaColonna(0);
    EXPECT_EQ(Arrow().GetPicture(), blueUp);
    EXPECT_EQ(Arrow().ToolTipText(), "Ordinamento Crescente");
    control->OrdinaColonna(0);
    EXPECT_EQ(Arrow().GetPicture(), blueUp);
    EXPECT_EQ(Ids(), (std::vector<std::string>{"1", "2", "3", "4", "5"}));  // ascending all along
    control->OrdinaColonna(2);  // a click elsewhere takes the new style
    EXPECT_EQ(Arrow().GetPicture(), Library().ArrowUp(1));
}

TEST_F(SortTest, AnArrowStyleWithoutAPictureLeavesTheArrowAsItWas) {
    LoadSortable();
    control->setStileArrow(static_cast<ColorArrowType>(5));
    control->OrdinaColonna(0);
    EXPECT_EQ(Arrow().GetPicture(), nullptr);  // no picture yet, and none to take
    EXPECT_TRUE(Arrow().Visible());
    EXPECT_EQ(control->IndiceordinamentoAttivo(), 0);
    EXPECT_EQ(Ids(), (std::vector<std::string>{"1", "2", "3", "4", "5"}));
}

TEST_F(SortTest, AResizeDuringASortKeepsTheArrowAtTheHeadingsEndAndResetsTheCaptionColour) {
    LoadSortable();
    control->setForeColorOrd(0x0000FF);
    control->setAdattamentoColonneDisattivato(false);
    control->OrdinaColonna(2);
    control->Superficie().Resize(12000, kTenRowHeight);
    control->Superficie().Resize(7000, kTenRowHeight);
    EXPECT_EQ(Arrow().Left(), Tile(2).Left() + Tile(2).Width() - Arrow().Width());
    EXPECT_TRUE(Arrow().Visible());
    EXPECT_EQ(Menu(2).ForeColor(), control->ForeColorHead());
    EXPECT_EQ(control->IndiceordinamentoAttivo(), 2);
}

TEST_F(SortTest, WithOneColumnARebuildDoesNotMoveTheArrow) {
    MakeNumbered(4);
    control->setAdattamentoColonneDisattivato(true);
    control->setCols(1);
    control->setCampoQuery(0, "id");
    control->setFormato(0, "Nessuno");
    control->setOrdinamento(0, "id");
    control->setDataBaseName(dir.File("test.db"));
    control->setQueryString("SELECT id FROM t");
    control->Carica();
    control->OrdinaColonna(0);
    const float left = Arrow().Left();
    control->setColsWidth(0, 3000);  // rebuilds
    EXPECT_EQ(Arrow().Left(), left);
    EXPECT_NE(Tile(0).Left() + Tile(0).Width() - Arrow().Width(), left);
}

TEST_F(SortTest, IndiceordinamentoAttivoHasItsNewValueDuringTheReload) {
    LoadSortable();
    int16_t seen = -9;
    events.onCaricato = [&] { seen = control->IndiceordinamentoAttivo(); };
    control->OrdinaColonna(2);
    EXPECT_EQ(seen, 2);
}

TEST_F(SortTest, TheSortLivesAcrossLoadsAndAReloadKeepsTheScrollPosition) {
    LoadNumbered(40);
    control->setQueryString("SELECT id, name, amount FROM t");
    control->Carica();
    control->setOrdinamento(0, "id");
    control->OrdinaColonna(0);
    control->OrdinaColonna(0);  // descending
    control->setTopRow(12);
    control->OrdinaColonna(0);  // none: reloaded without going back to the top
    EXPECT_EQ(control->TopRow(), 12);
    control->OrdinaColonna(0);
    control->Carica();
    EXPECT_EQ(control->QueryEffettiva(), "SELECT id, name, amount FROM t ORDER BY id");
    EXPECT_EQ(control->TextMatrix(0, 0), "1");
}

TEST_F(SortTest, AClickOnACaptionIsTheClickOfItsHeading) {
    LoadSortable();
    ClickCaption(2);
    EXPECT_EQ(control->IndiceordinamentoAttivo(), 2);
    EXPECT_EQ(Ids().front(), "2");
}

TEST_F(SortTest, TheHoverLookFollowsTheMouseOverSortableHeadings) {
    LoadSortable();
    control->setStileTestaOver(StileTestaType::Sky);
    HoverCaption(2);
    ImageElement& hover = *S().elements.ImageZ;
    EXPECT_TRUE(hover.Visible());
    EXPECT_FALSE(Tile(2).Visible());
    EXPECT_EQ(hover.Left(), Tile(2).Left());
    EXPECT_EQ(hover.Width(), Tile(2).Width());
    EXPECT_EQ(S().band.TestaSorvolata(), 2);
    HoverCaption(0);  // the hover moves: the tile of 2 shows again
    EXPECT_TRUE(Tile(2).Visible());
    EXPECT_FALSE(Tile(0).Visible());
    EXPECT_EQ(hover.Left(), Tile(0).Left());
    HoverCaption(1);  // a heading that cannot sort has no hover, and the last hover stays
    EXPECT_EQ(S().band.TestaSorvolata(), 0);
    EXPECT_FALSE(Tile(0).Visible());
}

TEST_F(SortTest, TheGridTakesTheHoverAway) {
    LoadSortable();
    HoverCaption(2);
    S().surface.MouseMove(0, 0, FG1().Left() + 100, FG1().Top() + 100);
    EXPECT_FALSE(S().elements.ImageZ->Visible());
    EXPECT_TRUE(Tile(2).Visible());
    EXPECT_EQ(S().band.TestaSorvolata(), -1);
}

TEST_F(SortTest, WhileAnArrowShowsNoHeadingTakesTheHoverLook) {
    LoadSortable();
    control->OrdinaColonna(0);
    S().elements.ImageZ->setVisible(false);
    HoverCaption(2);
    EXPECT_FALSE(S().elements.ImageZ->Visible());
    EXPECT_TRUE(Tile(2).Visible());
    EXPECT_EQ(S().band.TestaSorvolata(), 2);
    EXPECT_TRUE(Tile(0).Visible());  // every other tile is shown
}

TEST_F(SortTest, InTheSchedaStyleTheTabTakesTheHoverAndStaysWhenTheMouseLeaves) {
    LoadSortable();
    control->setStileTestaOver(StileTestaType::Scheda);
    HoverCaption(2);
    Label& tab = *S().elements.LabelTopSk;
    EXPECT_TRUE(tab.Visible());
    EXPECT_FALSE(S().elements.ImageZ->Visible());
    EXPECT_EQ(tab.Left(), Tile(2).Left());
    EXPECT_EQ(tab.Top(), 0);
    EXPECT_EQ(tab.Height(), S().elements.Shape2->Height());
    S().surface.MouseMove(0, 0, FG1().Left() + 100, FG1().Top() + 100);
    EXPECT_TRUE(tab.Visible());
    control->setStileTestaOver(StileTestaType::Sky);
    HoverCaption(0);
    EXPECT_FALSE(tab.Visible());
}

TEST_F(SortTest, AHiddenColumnsTileIsShownByAClickAndAHoverAtItsLastPlace) {
    LoadSortable();
    control->setColsWidth(1, 0);
    EXPECT_FALSE(Tile(1).Visible());
    const float left = Tile(1).Left(), width = Tile(1).Width();
    control->OrdinaColonna(2);
    EXPECT_TRUE(Tile(1).Visible());
    EXPECT_EQ(Tile(1).Left(), left);
    EXPECT_EQ(Tile(1).Width(), width);
    control->CaricaStruttura();
    EXPECT_FALSE(Tile(1).Visible());
    control->OrdinaColonna(2);  // descending
    S().elements.ImageOrd->setVisible(false);
    HoverCaption(0);
    EXPECT_TRUE(Tile(1).Visible());
}

TEST_F(SortTest, ARebuildKeepsTheArrowWithTheHeadingLastClicked) {
    LoadSortable();
    control->OrdinaColonna(2);
    control->setColsWidth(0, 2500);
    EXPECT_EQ(Arrow().Left(), Tile(2).Left() + Tile(2).Width() - Arrow().Width());
    EXPECT_EQ(S().elements.ImageZ->Left(), Tile(2).Left());
}

}  // namespace
}  // namespace TabulonLib12::testing
