// The column editor page on a real control: the load of the working table, the navigator, the
// insertion and removal of columns, the apply and its order of setters, the free width, the
// swatch and the colour dialog, and the rules of the Changed flag.
#include <gtest/gtest.h>

#include <algorithm>

#include "pages/campi.h"
#include "pages/page_cells.h"
#include "platform/host/sequential_file.h"
#include "platform/runtime/error.h"
#include "tests/pages/pages_fixture.h"

namespace TabulonLib12::testing {
namespace {

using Cells = std::vector<std::string>;

// --- The starting state and the load ---

TEST_F(CampiTest, ANewPageFillsTheCombosAndShowsIndex0AndAFreeWidthOfZero) {
    EXPECT_EQ(form.Text1.text, "0");
    EXPECT_EQ(form.Label11.caption, "(0)");
    EXPECT_EQ(form.Combo1.items, (Cells{"Nessuno", "Data", "Ora", "Valuta", "Single", "Data Breve", "Numeri_4_Dec", "Numerico"}));
    EXPECT_EQ(form.Combo3.items, (Cells{"=", "<", ">", "<=", ">=", "<>"}));
    EXPECT_EQ(form.Combo4.items, (Cells{"Sinistra", "Destra", "Centro"}));
    EXPECT_FALSE(page->PaginaCaricata());
    EXPECT_EQ(page->FG().Rows(), 0);
}

TEST_F(CampiTest, TheLoadFillsEveryCellFromTheGettersInTheirTexts) {
    control->setCols(2);
    control->setIntestazione(1, "Nome");
    control->setColsWidth(1, 2500);
    control->setOrdinamento(1, "nome ASC");
    control->setFormato(1, "Valuta");
    control->setCampoQuery(1, "nome");
    control->setCondizione(1, "10");
    control->setImmagineA(1, 3);
    control->setImmagineB(1, -2);
    control->setOperatoreCondizionale(1, ">=");
    control->setColAlignment(1, 2);
    control->setToolTT(1, "tip");
    control->setKeyID(1, "K1");
    control->setIsIperText(1, 1);
    control->setIperTextIndex(1, 4);
    control->setToolTTvero(1, "yes");
    control->setToolTTfalso(1, "no");
    control->setBackColorCol(1, 0x00FF00);
    control->setMostraBarraVert(1, true);
    control->setColonnaOpzionale(1, 1);
    control->setColonnaForeColor(1, 5);
    control->setMostraTotCol(1, 1);
    control->setColonnaImmagine(1, 6);
    control->setTestoScelta(1, "Scelta");

    page->SelectionChanged();

    EXPECT_TRUE(page->PaginaCaricata());
    EXPECT_EQ(page->ControlloSelezionato(), control.get());
    ASSERT_EQ(page->FG().Rows(), 2);
    EXPECT_EQ(Row(1), (Cells{"Nome", "2500", "nome ASC", "Valuta", "nome", "10", "3", "-2", ">=", "Centro", "tip", "K1",
                             "1", "4", "yes", "no", "65280", "True", "1", "5", "1", "6", "Scelta"}));
    EXPECT_EQ(form.HScroll1.max, 1);
}

TEST_F(CampiTest, TheLoadShowsRow0InTheFieldsAndTheSwatchWithoutItsNumber) {
    control->setIntestazione(0, "Codice");
    control->setColsWidth(0, 1500);
    control->setFormato(0, "Data");
    control->setColAlignment(0, 1);
    control->setIsIperText(0, 1);
    control->setColonnaOpzionale(0, 1);
    control->setMostraTotCol(0, 1);
    control->setMostraBarraVert(0, true);
    control->setBackColorCol(0, 0x0000FF);
    control->setColonnaForeColor(0, 2);

    page->SelectionChanged();

    EXPECT_EQ(form.Text2.text, "Codice");
    EXPECT_EQ(form.Text4.text, "1500");
    EXPECT_EQ(form.Combo1.text, "Data");
    EXPECT_EQ(form.Combo4.text, "Destra");
    EXPECT_EQ(form.CheckIT.value, 1);
    EXPECT_EQ(form.CheckScelta.value, 1);
    EXPECT_EQ(form.CheckMostraTotCol.value, 1);
    EXPECT_EQ(form.Check1.value, 1);
    EXPECT_EQ(form.LabelColor.back, 0x0000FFu);
    EXPECT_EQ(form.LabelColor.text, "");  // the load paints the swatch but leaves its text
    EXPECT_EQ(form.Text11.text, "2");
    EXPECT_EQ(form.Text1.text, "0");
    EXPECT_EQ(form.Label11.caption, "(7500)");  // 9000 less the width 1500
}

TEST_F(CampiTest, ASecondSelectionChangeDoesNotFillThePageAgain) {
    control->setIntestazione(0, "first");
    page->SelectionChanged();
    form.Text2.text = "typed";
    control->setIntestazione(0, "changed meanwhile");
    page->SelectionChanged();
    EXPECT_EQ(form.Text2.text, "typed");
    EXPECT_EQ(page->FG().TextMatrix(0, 0), "first");
}

TEST_F(CampiTest, SeveralSelectedControlsEditTheFirst) {
    Tabulon12 other(host, metrics, timers);
    other.setCols(4);
    control->setCols(2);
    site.selected = {control.get(), &other};
    page->SelectionChanged();
    EXPECT_EQ(page->ControlloSelezionato(), control.get());
    EXPECT_EQ(page->FG().Rows(), 2);
}

TEST_F(CampiTest, ALoadWithNoSelectedControlFailsToTheHost) {
    site.selected.clear();
    EXPECT_THROW(page->SelectionChanged(), Error);
    EXPECT_TRUE(page->PaginaCaricata());
}

TEST_F(CampiTest, TheLoadShowsTheStoredWidthOfAColumnTheSurfaceHides) {
    DefineColumns(2);
    const std::string path = MakeDatabase("CREATE TABLE t(f0 INTEGER, f1 TEXT); INSERT INTO t VALUES(1, 'a');");
    const std::string choice = dir.File("scelta.txt");
    WriteLines(choice, {"1"});  // the user's choice hides column 1
    control->setFileScelta(choice);
    control->setDataBaseName(path);
    control->setQueryString("SELECT f0, f1 FROM t");
    control->Carica();
    ASSERT_EQ(control->ColsWidth(1), 0);

    page->SelectionChanged();
    EXPECT_EQ(page->FG().TextMatrix(1, PageCellOf("ColsWidth")), "1100");
}

TEST_F(CampiTest, AnEmptyFormatOnTheControlShowsNessunoAndApplyWritesItBack) {
    control->setFormato(0, "");
    page->SelectionChanged();
    EXPECT_EQ(page->FG().TextMatrix(0, PageCellOf("Formato")), "Nessuno");
    EXPECT_EQ(form.Combo1.text, "Nessuno");
    page->ApplyChanges();
    EXPECT_EQ(control->Formato(0), "Nessuno");
}

// --- The navigator ---

TEST_F(CampiTest, TheNavigatorSavesTheFieldsIntoTheRowLeftAndShowsTheNext) {
    DefineColumns(3);
    page->SelectionChanged();
    form.Text2.text = "Edited";
    form.Text4.text = "1234";
    form.Combo1.text = "Valuta";
    form.CheckIT.value = 1;
    form.Check1.value = 1;
    form.CheckScelta.value = 1;
    form.CheckMostraTotCol.value = 1;
    form.LabelColor.back = 0x123456;
    form.Text7.text = "12abc";
    form.Text11.text = "abc";
    form.Text12.text = "3";

    Navigate(1);

    EXPECT_EQ(navigations, 1);
    const Cells row0 = Row(0);
    EXPECT_EQ(row0[0], "Edited");
    EXPECT_EQ(row0[1], "1234");
    EXPECT_EQ(row0[3], "Valuta");
    EXPECT_EQ(row0[12], "1");
    EXPECT_EQ(row0[13], "12");  // Text7: its leading number
    EXPECT_EQ(row0[16], std::to_string(0x123456));
    EXPECT_EQ(row0[17], "True");
    EXPECT_EQ(row0[18], "1");
    EXPECT_EQ(row0[19], "0");  // Text11: the number of "abc"
    EXPECT_EQ(row0[20], "1");
    EXPECT_EQ(row0[21], "3");
    // Row 1 is on show, with the swatch's number this time.
    EXPECT_EQ(form.Text1.text, "1");
    EXPECT_EQ(form.Text2.text, "H1");
    EXPECT_EQ(form.Text4.text, "1100");
    EXPECT_EQ(form.CheckIT.value, 0);
    EXPECT_EQ(form.Check1.value, 0);
    EXPECT_EQ(form.LabelColor.back, 0xFFFFFFu);
    EXPECT_EQ(form.LabelColor.text, "16777215");
    // The width saved joins the free width: 9000 - (1234 + 1100 + 1200).
    EXPECT_EQ(form.Label11.caption, "(5466)");
}

TEST_F(CampiTest, AKeyIdLeftEmptyByTheNavigatorTakesTheColumnsIndex) {
    DefineColumns(3);
    page->SelectionChanged();
    Navigate(2);
    form.Text6.text = "";
    Navigate(1);
    EXPECT_EQ(page->FG().TextMatrix(2, PageCellOf("KeyID")), "2");
    page->ApplyChanges();
    EXPECT_EQ(control->KeyID(2), "2");
}

TEST_F(CampiTest, AKeyIdLeftEmptyAndAppliedWithoutLeavingStaysEmpty) {
    DefineColumns(3);
    page->SelectionChanged();
    Navigate(2);
    form.Text6.text = "";
    page->ApplyChanges();
    EXPECT_EQ(control->KeyID(2), "");
    EXPECT_EQ(form.Text6.text, "");
}

TEST_F(CampiTest, AnEmptyRowShownByTheNavigatorLeavesTheFieldsThatCannotTakeAnEmptyCell) {
    // Two insertions at one place: the first new row moves down still empty, and the navigator
    // then shows it. Texts take the empty cells; the check boxes and the swatch cannot, and keep
    // what they had, while the rest of the row still shows.
    DefineColumns(2);
    page->SelectionChanged();
    Navigate(1);
    page->InsBtn_Click();
    page->InsBtn_Click();
    ASSERT_EQ(Row(2), Cells(kPageCellCount, ""));
    form.Text2.text = "second";
    form.Text8.text = "order";
    form.CheckIT.value = 1;
    form.Check1.value = 1;
    form.LabelColor.back = 0x0000FF;

    Navigate(2);

    EXPECT_EQ(Row(1)[0], "second");
    EXPECT_EQ(form.Text1.text, "2");
    EXPECT_EQ(form.Text2.text, "");
    EXPECT_EQ(form.Text8.text, "");
    EXPECT_EQ(form.Combo1.text, "");
    EXPECT_EQ(form.CheckIT.value, 1);
    EXPECT_EQ(form.Check1.value, 1);
    EXPECT_EQ(form.LabelColor.back, 0x0000FFu);
    EXPECT_EQ(form.LabelColor.text, "255");
}

TEST_F(CampiTest, F2MovesToTheNextColumnAndPutsTheFocusOnTheHeading) {
    DefineColumns(3);
    page->SelectionChanged();
    page->KeyDown(kKeyF2, 0);
    EXPECT_EQ(form.HScroll1.value, 1);
    EXPECT_EQ(form.Text1.text, "1");
    EXPECT_EQ(form.Text2.text, "H1");
    EXPECT_EQ(form.Text2.focused, 1);
}

TEST_F(CampiTest, F2OnTheLastColumnDoesNothing) {
    DefineColumns(2);
    page->SelectionChanged();
    Navigate(1);
    const int before = navigations;
    page->KeyDown(kKeyF2, 0);
    EXPECT_EQ(navigations, before);
    EXPECT_EQ(form.HScroll1.value, 1);
    EXPECT_EQ(form.Text2.focused, 0);
}

TEST_F(CampiTest, OtherKeysThanF2DoNothing) {
    DefineColumns(2);
    page->SelectionChanged();
    page->KeyDown(112, 0);  // F1
    EXPECT_EQ(form.HScroll1.value, 0);
    EXPECT_EQ(navigations, 0);
}

// --- The free width ---

TEST_F(CampiTest, TheFreeWidthCountsTheWidthsOfTheTableOnlyAndNoNumberAsZero) {
    DefineColumns(3);  // 1000, 1100, 1200
    page->SelectionChanged();
    EXPECT_EQ(form.Label11.caption, "(5700)");
    form.Text4.text = "4000";
    page->Change(CampoPagina::Text4);
    EXPECT_EQ(form.Label11.caption, "(5700)");  // the width being typed joins when the column is left
    Navigate(1);
    EXPECT_EQ(form.Label11.caption, "(2700)");
    form.Text4.text = "abc";
    Navigate(2);
    EXPECT_EQ(form.Label11.caption, "(3800)");  // "abc" counts 0
}

TEST_F(CampiTest, TheFreeWidthFollowsTheControlsWidth) {
    page->SelectionChanged();
    control->Superficie().Resize(4000, kControlHeight);
    page->CalcolaSpazioLibero();
    EXPECT_EQ(form.Label11.caption, "(" + std::to_string(4000 - control->ColsWidthMemorizzata(0)) + ")");
}

// --- Inserting a column ---

TEST_F(CampiTest, InsertingRaisesTheControlsColsAtOnceAndResetsTheFields) {
    DefineColumns(2);
    page->SelectionChanged();
    form.Text2.text = "x";
    form.CheckIT.value = 1;
    form.Check1.value = 1;
    form.LabelColor.back = 0;
    page->InsBtn_Click();

    EXPECT_EQ(control->Cols(), 3);
    EXPECT_NE(std::find(notices.begin(), notices.end(), "Cols"), notices.end());
    EXPECT_EQ(page->FG().Rows(), 3);
    EXPECT_EQ(Row(0), Cells(kPageCellCount, ""));  // the new row, empty until the next save
    EXPECT_EQ(Row(1)[0], "H0");                   // the row that was on show moved down
    EXPECT_EQ(form.Text4.text, "1000");
    EXPECT_EQ(form.Combo1.text, "Nessuno");
    EXPECT_EQ(form.Combo3.text, "=");
    EXPECT_EQ(form.Combo4.text, "Sinistra");
    for (const PlainText* t : {&form.Text2, &form.Text8, &form.Text3, &form.Text5, &form.Text9, &form.Text10,
                               &form.TextTTT, &form.Text6, &form.Text7, &form.TextTTTvero, &form.TextTTTfalso,
                               &form.TextScelta})
        EXPECT_EQ(t->text, "");
    EXPECT_EQ(form.Text11.text, "0");
    EXPECT_EQ(form.Text12.text, "0");
    EXPECT_EQ(form.CheckIT.value, 0);
    EXPECT_EQ(form.CheckScelta.value, 0);
    EXPECT_EQ(form.Check1.value, 0);
    EXPECT_EQ(form.CheckMostraTotCol.value, 0);
    EXPECT_EQ(form.LabelColor.back, 0xFFFFFFu);
    EXPECT_EQ(form.HScroll1.max, 2);
    EXPECT_EQ(form.HScroll1.value, 0);
    EXPECT_EQ(navigations, 0);  // the value did not move
    EXPECT_EQ(form.Text2.focused, 1);
    EXPECT_TRUE(site.Changed());
}

TEST_F(CampiTest, AnInsertedColumnLeftWithTheNavigatorGetsItsFieldValuesInTheRow) {
    DefineColumns(2);
    page->SelectionChanged();
    Navigate(1);
    page->InsBtn_Click();  // at index 1
    form.Text2.text = "New";
    form.Text3.text = "newfield";
    Navigate(0);
    EXPECT_EQ(Row(1), (Cells{"New", "1000", "", "Nessuno", "newfield", "", "", "", "=", "Sinistra", "", "1", "0", "0", "",
                             "", "16777215", "False", "0", "0", "0", "0", ""}));
    EXPECT_EQ(Row(2)[0], "H1");
}

TEST_F(CampiTest, AnInsertedColumnAppliedAtOnceGetsItsFieldValues) {
    DefineColumns(2);
    page->SelectionChanged();
    page->InsBtn_Click();  // at index 0
    form.Text2.text = "First";
    page->ApplyChanges();
    EXPECT_EQ(control->Cols(), 3);
    EXPECT_EQ(control->Intestazione(0), "First");
    EXPECT_EQ(control->ColsWidthMemorizzata(0), 1000);
    EXPECT_EQ(control->Formato(0), "Nessuno");
    EXPECT_EQ(control->OperatoreCondizionale(0), "=");
    EXPECT_EQ(control->KeyID(0), "");  // applied without being left: no default key
    EXPECT_EQ(control->BackColorCol(0), 0xFFFFFFu);
    EXPECT_EQ(control->Intestazione(1), "H0");
    EXPECT_EQ(control->Intestazione(2), "H1");
}

TEST_F(CampiTest, ColsRaisedByAnInsertionStayRaisedWhenThePageIsClosedWithoutApplying) {
    page->SelectionChanged();
    page->InsBtn_Click();
    page.reset();  // the page goes without an apply
    EXPECT_EQ(control->Cols(), 2);
    page = std::make_unique<Campi>(site, form.Fields());
}

// --- Removing a column ---

TEST_F(CampiTest, DelBtnWithOneRowDoesNothing) {
    page->SelectionChanged();
    ASSERT_EQ(page->FG().Rows(), 1);
    page->DelBtn_Click();
    EXPECT_EQ(page->FG().Rows(), 1);
    EXPECT_FALSE(site.Changed());
    EXPECT_EQ(form.HScroll1.max, 0);
}

TEST_F(CampiTest, RemovingColumn0ShowsTheNewRow0WithoutRunningTheNavigator) {
    DefineColumns(3);
    page->SelectionChanged();
    form.Text2.text = "edited, never saved";
    page->DelBtn_Click();
    EXPECT_EQ(navigations, 0);
    EXPECT_EQ(form.Text1.text, "0");
    EXPECT_EQ(page->FG().Rows(), 2);
    EXPECT_EQ(Row(0)[0], "H1");
    EXPECT_EQ(form.Text2.text, "H1");
    EXPECT_EQ(form.HScroll1.value, 0);
    EXPECT_EQ(form.HScroll1.max, 1);
    EXPECT_TRUE(site.Changed());
    EXPECT_EQ(control->Cols(), 3);  // until the apply
}

TEST_F(CampiTest, RemovingColumn3Of5RunsTheNavigatorOnceWhichShowsRow2WithoutSaving) {
    DefineColumns(5);
    page->SelectionChanged();
    Navigate(3);
    ASSERT_EQ(navigations, 1);
    form.Text2.text = "edited in column 3";
    form.Text6.text = "";
    page->DelBtn_Click();
    EXPECT_EQ(navigations, 2);
    EXPECT_EQ(form.Text1.text, "2");
    EXPECT_EQ(form.Text2.text, "H2");
    EXPECT_EQ(form.LabelColor.text, "16777215");
    EXPECT_EQ(form.HScroll1.value, 2);
    EXPECT_EQ(form.HScroll1.max, 3);
    ASSERT_EQ(page->FG().Rows(), 4);
    EXPECT_EQ(Row(2)[0], "H2");  // nothing was saved into the row that now stands at 3
    EXPECT_EQ(Row(3)[0], "H4");
    EXPECT_EQ(Row(3)[PageCellOf("KeyID")], "K4");
}

TEST_F(CampiTest, AppliedAfterARemovalTheControlHasOneColumnLess) {
    DefineColumns(3);
    page->SelectionChanged();
    Navigate(1);
    page->DelBtn_Click();
    page->ApplyChanges();
    EXPECT_EQ(control->Cols(), 2);
    EXPECT_EQ(control->Intestazione(0), "H0");
    EXPECT_EQ(control->Intestazione(1), "H2");
}

TEST_F(CampiTest, AFailedRemovalReachesTheHostAndLeavesTheNavigatorSaving) {
    DefineColumns(2);
    page->SelectionChanged();
    EXPECT_THROW(page->RimuoviColonna(5), Error);
    EXPECT_FALSE(page->EliminazioneInCorso());
    form.Text2.text = "saved";
    Navigate(1);
    EXPECT_EQ(Row(0)[0], "saved");
}

TEST_F(CampiTest, AfterARemovalAnInsertionLetsTheNavigatorReachPastTheTable) {
    // The control's Cols stays up after a removal, so the next insertion sets the navigator's
    // end one beyond the table: that column shows nothing and takes nothing.
    DefineColumns(3);
    page->SelectionChanged();
    page->DelBtn_Click();  // FG 2 rows, Cols still 3
    page->InsBtn_Click();  // Cols 4, FG 3 rows, navigator up to 3
    EXPECT_EQ(form.HScroll1.max, 3);
    form.Text2.text = "kept";
    Navigate(3);
    EXPECT_EQ(form.Text1.text, "3");
    EXPECT_EQ(form.Text2.text, "kept");  // row 3 does not exist: the fields keep what they had
    Navigate(2);                         // saving into row 3 fails silently
    EXPECT_EQ(page->FG().Rows(), 3);
    page->ApplyChanges();
    EXPECT_EQ(control->Cols(), 3);
}

// --- Apply ---

TEST_F(CampiTest, ApplyWritesEveryCellOfEveryRowThroughTheSetters) {
    DefineColumns(2);
    page->SelectionChanged();
    Navigate(1);
    form.Text2.text = "Importo";
    form.Text4.text = "2345.5";
    form.Text8.text = "importo DESC";
    form.Combo1.text = "Valuta";
    form.Text3.text = "importo";
    form.Text5.text = "100";
    form.Text9.text = "2";
    form.Text10.text = "3";
    form.Combo3.text = ">";
    form.Combo4.text = "Destra";
    form.TextTTT.text = "tip";
    form.Text6.text = "id";
    form.CheckIT.value = 1;
    form.Text7.text = "4";
    form.TextTTTvero.text = "sopra";
    form.TextTTTfalso.text = "sotto";
    form.LabelColor.back = 0x00FFFF;
    form.Check1.value = 1;
    form.CheckScelta.value = 1;
    form.Text11.text = "5";
    form.CheckMostraTotCol.value = 1;
    form.Text12.text = "6";
    form.TextScelta.text = "Importo totale";

    page->ApplyChanges();

    EXPECT_EQ(control->Intestazione(1), "Importo");
    EXPECT_EQ(control->ColsWidthMemorizzata(1), 2346);  // 2345.5 rounds half to even
    EXPECT_EQ(control->Ordinamento(1), "importo DESC");
    EXPECT_EQ(control->Formato(1), "Valuta");
    EXPECT_EQ(control->CampoQuery(1), "importo");
    EXPECT_EQ(control->Condizione(1), "100");
    EXPECT_EQ(control->ImmagineA(1), 2);
    EXPECT_EQ(control->ImmagineB(1), 3);
    EXPECT_EQ(control->OperatoreCondizionale(1), ">");
    EXPECT_EQ(control->ColAlignment(1), 1);
    EXPECT_EQ(control->ToolTT(1), "tip");
    EXPECT_EQ(control->KeyID(1), "id");
    EXPECT_EQ(control->IsIperText(1), 1);
    EXPECT_EQ(control->IperTextIndex(1), 4);
    EXPECT_EQ(control->ToolTTvero(1), "sopra");
    EXPECT_EQ(control->ToolTTfalso(1), "sotto");
    EXPECT_EQ(control->BackColorCol(1), 0x00FFFFu);
    EXPECT_TRUE(control->MostraBarraVert(1));
    EXPECT_EQ(control->ColonnaOpzionale(1), 1);
    EXPECT_EQ(control->ColonnaForeColor(1), 5);
    EXPECT_EQ(control->MostraTotCol(1), 1);
    EXPECT_EQ(control->ColonnaImmagine(1), 6);
    EXPECT_EQ(control->TestoScelta(1), "Importo totale");
    // Column 0, left by the navigator, as it was (its key now its own).
    EXPECT_EQ(control->Intestazione(0), "H0");
    EXPECT_EQ(control->KeyID(0), "K0");
    EXPECT_FALSE(site.Changed());
}

TEST_F(CampiTest, ApplyCallsTheSettersInCellOrderAfterCols) {
    DefineColumns(2);
    page->SelectionChanged();
    notices.clear();
    page->ApplyChanges();

    std::vector<std::string> expected = {"Cols"};
    for (int row = 0; row < 2; ++row)
        for (const PageCellBinding& b : PageCellBindings()) expected.emplace_back(b.property);
    EXPECT_EQ(notices, expected);
    EXPECT_EQ(expected[1], "Intestazione");
    EXPECT_EQ(expected[23], "TestoScelta");
}

TEST_F(CampiTest, ApplyWithAWidthThatIsNoNumberGivesWidthZeroAndShowsZero) {
    DefineColumns(2);
    page->SelectionChanged();
    form.Text4.text = "abc";
    page->ApplyChanges();
    EXPECT_EQ(form.Text4.text, "0");
    EXPECT_EQ(page->FG().TextMatrix(0, PageCellOf("ColsWidth")), "0");
    EXPECT_EQ(control->ColsWidthMemorizzata(0), 0);
}

TEST_F(CampiTest, AWidthThatIsNoNumberLeftWithTheNavigatorStaysInTheTableAndAppliesAsZero) {
    DefineColumns(2);
    page->SelectionChanged();
    form.Text4.text = "abc";
    Navigate(1);
    EXPECT_EQ(page->FG().TextMatrix(0, PageCellOf("ColsWidth")), "abc");
    page->ApplyChanges();
    EXPECT_EQ(page->FG().TextMatrix(0, PageCellOf("ColsWidth")), "abc");
    EXPECT_EQ(control->ColsWidthMemorizzata(0), 0);
    EXPECT_EQ(form.Text4.text, "1100");  // the field on show was a number
}

TEST_F(CampiTest, ApplyTakesAnEmptyTruePictureAsZero) {
    DefineColumns(1);
    control->setImmagineA(0, 4);
    page->SelectionChanged();
    form.Text9.text = "";
    page->ApplyChanges();
    EXPECT_EQ(page->FG().TextMatrix(0, PageCellOf("ImmagineA")), "0");
    EXPECT_EQ(control->ImmagineA(0), 0);
}

TEST_F(CampiTest, ApplyStopsAtATruePictureThatIsNoNumberWithTheCellsBeforeItWritten) {
    DefineColumns(1);
    page->SelectionChanged();
    form.Text2.text = "written";
    form.Text9.text = "seven";
    form.Text10.text = "9";
    notices.clear();
    try {
        page->ApplyChanges();
        FAIL() << "the apply went through";
    } catch (const Error& e) {
        EXPECT_EQ(e.kind(), ErrorKind::TypeMismatch);
    }
    EXPECT_EQ(control->Intestazione(0), "written");
    EXPECT_EQ(control->ImmagineB(0), 0);  // after the failure: not reached
    EXPECT_EQ(notices.back(), "Condizione");
}

TEST_F(CampiTest, ApplyOfAWidthBeyond16BitsOverflowsToTheHost) {
    page->SelectionChanged();
    form.Text4.text = "40000";
    try {
        page->ApplyChanges();
        FAIL() << "the apply went through";
    } catch (const Error& e) {
        EXPECT_EQ(e.kind(), ErrorKind::Overflow);
    }
}

TEST_F(CampiTest, ApplyWithoutALoadFailsWithNoControl) {
    try {
        page->ApplyChanges();
        FAIL() << "the apply went through";
    } catch (const Error& e) {
        EXPECT_EQ(e.kind(), ErrorKind::MissingObject);
    }
}

TEST_F(CampiTest, ApplyRebuildsTheStructureWithTheNewWidths) {
    DefineColumns(2);
    page->SelectionChanged();
    form.Text4.text = "3000";
    page->ApplyChanges();
    EXPECT_EQ(control->ColsWidthMemorizzata(0), 3000);
    EXPECT_EQ(control->ColsWidth(0), 3000);  // shown on the surface
}

// --- The swatch and the colour dialog ---

TEST_F(CampiTest, TheColourDialogOpensOnTheSwatchAndPaintsTheChoice) {
    page->SelectionChanged();
    form.LabelColor.back = 0x112233;
    form.CD1.answer = 0x00AA00;
    page->LabelColor_DblClick();
    EXPECT_EQ(form.CD1.shown, 1);
    EXPECT_EQ(form.CD1.openedWith, 0x112233u);
    EXPECT_EQ(form.LabelColor.back, 0x00AA00u);
    EXPECT_EQ(form.LabelColor.text, std::to_string(0x00AA00));
    EXPECT_FALSE(site.Changed());
}

TEST_F(CampiTest, ACancelledColourDialogKeepsTheColourAndShowsItsNumber) {
    page->SelectionChanged();
    form.LabelColor.back = 0x112233;
    form.CD1.answer.reset();
    page->LabelColor_DblClick();
    EXPECT_EQ(form.LabelColor.back, 0x112233u);
    EXPECT_EQ(form.LabelColor.text, std::to_string(0x112233));
    EXPECT_FALSE(site.Changed());
}

TEST_F(CampiTest, TypingADecimalColourRepaintsTheSwatch) {
    page->SelectionChanged();
    form.LabelColor.text = "255";
    page->LabelColor_KeyUp('5', 0);
    EXPECT_EQ(form.LabelColor.back, 255u);
    form.LabelColor.text = "&H10000";
    page->LabelColor_KeyUp('0', 0);
    EXPECT_EQ(form.LabelColor.back, 0x10000u);
}

TEST_F(CampiTest, TypingATextThatIsNoNumberLeavesTheSwatchAlone) {
    page->SelectionChanged();
    form.LabelColor.back = 0x123456;
    for (const char* text : {"12abc", "abc", "0abc", "", "99999999999"}) {
        form.LabelColor.text = text;
        page->LabelColor_KeyUp('C', 0);
        EXPECT_EQ(form.LabelColor.back, 0x123456u) << text;
    }
    EXPECT_FALSE(site.Changed());
}

TEST_F(CampiTest, ASystemColourNumberTypedInEitherFormIsTheSameColour) {
    page->SelectionChanged();
    form.LabelColor.text = "-2147483643";
    page->LabelColor_KeyUp('3', 0);
    EXPECT_EQ(form.LabelColor.back, 0x80000005u);
    form.LabelColor.back = 0;
    form.LabelColor.text = "2147483653";
    page->LabelColor_KeyUp('3', 0);
    EXPECT_EQ(form.LabelColor.back, 0x80000005u);
}

// --- Changed ---

TEST_F(CampiTest, EditsOfTheTextsAndPicksFromTheListsRaiseChanged) {
    page->SelectionChanged();
    for (CampoPagina field : {CampoPagina::Text2, CampoPagina::Text3, CampoPagina::Text5, CampoPagina::Text6,
                              CampoPagina::Text8, CampoPagina::Text9, CampoPagina::Text10, CampoPagina::TextTTT,
                              CampoPagina::TextTTTvero, CampoPagina::TextTTTfalso, CampoPagina::Text11,
                              CampoPagina::Text12, CampoPagina::TextScelta, CampoPagina::Combo1, CampoPagina::Combo3,
                              CampoPagina::Combo4, CampoPagina::Text4}) {
        site.setChanged(false);
        page->Change(field);
        EXPECT_TRUE(site.Changed()) << static_cast<int>(field);
    }
}

TEST_F(CampiTest, TheCheckBoxesTheIndexOfTheLinkAndTheSwatchRaiseNoChanged) {
    page->SelectionChanged();
    for (CampoPagina field : {CampoPagina::CheckIT, CampoPagina::Check1, CampoPagina::CheckScelta,
                              CampoPagina::CheckMostraTotCol, CampoPagina::Text7, CampoPagina::LabelColor}) {
        page->Change(field);
        EXPECT_FALSE(site.Changed()) << static_cast<int>(field);
    }
}

TEST_F(CampiTest, AnEditOfTheWidthRecountsTheFreeWidthBeforeRaisingChanged) {
    DefineColumns(2);
    page->SelectionChanged();
    control->Superficie().Resize(5000, kControlHeight);
    std::string captionWhenRaised;
    site.onChanged = [&](bool) { captionWhenRaised = form.Label11.caption; };
    page->Change(CampoPagina::Text4);
    EXPECT_EQ(captionWhenRaised, "(2900)");
}

TEST_F(CampiTest, NavigatingAndLoadingRaiseNoChanged) {
    DefineColumns(3);
    page->SelectionChanged();
    Navigate(2);
    page->KeyDown(kKeyF2, 0);
    Navigate(0);
    EXPECT_FALSE(site.Changed());
}

}  // namespace
}  // namespace TabulonLib12::testing
