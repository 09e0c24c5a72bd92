// The control's state: defaults of a fresh instance, the column accessors and the Cols write.
#include <gtest/gtest.h>

#include <cmath>

#include "grid_fixture.h"

namespace TabulonLib12::testing {
namespace {

using ColumnsTest = GridTest;

TEST_F(ColumnsTest, FreshInstanceHasOneColumnWithItsDefaults) {
    EXPECT_EQ(control->Cols(), 1);
    EXPECT_EQ(control->Intestazione(0), "");
    EXPECT_EQ(control->Formato(0), "Nessuno");
    EXPECT_EQ(control->ColAlignment(0), 0);
    EXPECT_EQ(control->ColsWidth(0), 1000);
    EXPECT_EQ(control->BackColorCol(0), 0xFFFFFFu);
    EXPECT_EQ(control->CampoQuery(0), "");
    EXPECT_EQ(control->ImmagineA(0), 0);
    EXPECT_EQ(control->IsIperText(0), 0);
    EXPECT_FALSE(control->MostraBarraVert(0));
    EXPECT_EQ(S().columns.TipoCampo[0], 10);
    EXPECT_EQ(S().columns.TipoCampoRilevato[0], "");
}

TEST_F(ColumnsTest, FreshInstanceHasTheScalarDefaults) {
    EXPECT_EQ(control->ActiveCol(), 1);
    EXPECT_EQ(control->ColonnaColore(), -1);
    EXPECT_EQ(control->QueryString(), "");
    EXPECT_EQ(control->BottomHeight(), 0);
    EXPECT_FALSE(control->MultiSel());
    EXPECT_FALSE(control->ConsentiSceltaColonne());
    EXPECT_FALSE(S().elements.ImageTools->Visible());
    EXPECT_EQ(control->StileTesta(), StileTestaType::Ice);
    EXPECT_EQ(control->StileTestaOver(), StileTestaType::Sky);
    EXPECT_EQ(control->StileArrow(), ColorArrowType::Blue);
    EXPECT_EQ(control->BackColor2(), 0xFF8080u);
    EXPECT_EQ(control->BackColorSelected(), 0xFF8080u);
    EXPECT_EQ(control->ForeColorOrd(), 0x0000FFu);
    EXPECT_EQ(control->IperTextColor(), 0xFF0000u);
    EXPECT_EQ(control->ColorGridHead(), 0xF5DDCDu);
    EXPECT_EQ(S().elements.Shape2->BackColor(), 0xF5DDCDu);
    EXPECT_EQ(control->ForeColorHead(), 0u);
    EXPECT_EQ(control->ForeColor(), 0u);
    EXPECT_EQ(control->BorderColor(), 0xCEAB8Eu);
    EXPECT_EQ(control->BackColorTopScheda(), 0xFFFFFFu);
    EXPECT_EQ(control->IndiceordinamentoAttivo(), -1);
    EXPECT_EQ(control->IndiceSelezionato(), -1);
    EXPECT_EQ(control->RighePiene(), 0);
    EXPECT_EQ(control->Rows(), 0);
    EXPECT_EQ(S().LarghezzaColonnaDefault, 1000);
    EXPECT_EQ(S().selection.AncoraMultipla(), -1);
}

TEST_F(ColumnsTest, EnumerationsHaveTheirNumbers) {
    EXPECT_EQ(static_cast<int>(StileTestaType::Violet), 4);
    EXPECT_EQ(static_cast<int>(StileTestaType::White), 7);
    EXPECT_EQ(static_cast<int>(StileTestaType::Scheda), 99);
    EXPECT_EQ(static_cast<int>(StileTestaType::Custom), 100);
    EXPECT_EQ(static_cast<int>(ColorArrowType::Grey), 2);
    EXPECT_EQ(static_cast<int>(ColorArrowType::Green), 4);
    EXPECT_EQ(static_cast<int>(ColorArrowType::Custom), 100);
}

TEST_F(ColumnsTest, MinRowsWriteLeavesTheValueButNotifiesTheHost) {
    ASSERT_EQ(control->MinRows(), 10);
    control->setMinRows(25);
    EXPECT_EQ(control->MinRows(), 10);
    EXPECT_EQ(changed, std::vector<std::string>{"MinRows"});
}

TEST_F(ColumnsTest, FormatoWriteWithABadIndexChangesNothingButNotifies) {
    control->setCols(3);
    changed.clear();
    control->setFormato(99, "Data");
    EXPECT_EQ(control->Formato(0), "Nessuno");
    EXPECT_EQ(control->Formato(1), "");
    EXPECT_EQ(control->Formato(2), "");
    EXPECT_EQ(changed, std::vector<std::string>{"Formato"});
}

TEST_F(ColumnsTest, ColAlignmentReadWithABadIndexFailsWhileFormatoReadGivesEmpty) {
    control->setCols(3);
    EXPECT_EQ(control->Formato(99), "");
    try {
        (void)control->ColAlignment(99);
        FAIL() << "no error";
    } catch (const Error& e) {
        EXPECT_EQ(e.kind(), ErrorKind::OutOfBounds);
        EXPECT_EQ(e.number(), 9);
    }
    EXPECT_THROW((void)control->ColAlignment(-1), Error);
}

TEST_F(ColumnsTest, PerColumnReadsWithABadIndexAnswerZeroOrEmpty) {
    EXPECT_EQ(control->Intestazione(-1), "");
    EXPECT_EQ(control->ColsWidth(5), 0);
    EXPECT_EQ(control->ImmagineB(5), 0);
    EXPECT_EQ(control->BackColorCol(5), 0u);
    EXPECT_EQ(control->IsIperText(5), 0);
    EXPECT_FALSE(control->MostraBarraVert(5));
    EXPECT_EQ(control->TestoScelta(5), "");
}

TEST_F(ColumnsTest, EveryPerColumnWriteNotifiesWithItsOwnNameEvenForABadIndex) {
    for (int16_t index : {int16_t{0}, int16_t{42}}) {
        changed.clear();
        control->setIntestazione(index, "x");
        control->setColsWidth(index, 1000);
        control->setColAlignment(index, 0);
        control->setOrdinamento(index, "x");
        control->setFormato(index, "Nessuno");
        control->setCampoQuery(index, "x");
        control->setImmagineA(index, 0);
        control->setImmagineB(index, 0);
        control->setCondizione(index, "");
        control->setOperatoreCondizionale(index, "=");
        control->setColonnaImmagine(index, 0);
        control->setColonnaForeColor(index, 0);
        control->setToolTT(index, "t");
        control->setToolTTvero(index, "t");
        control->setToolTTfalso(index, "t");
        control->setIsIperText(index, 0);
        control->setIperTextIndex(index, 0);
        control->setKeyID(index, "k");
        control->setBackColorCol(index, 0xFFFFFF);
        control->setMostraBarraVert(index, false);
        control->setMostraTotCol(index, 0);
        control->setColonnaOpzionale(index, 0);
        control->setTestoScelta(index, "s");
        const std::vector<std::string> expected{
            "Intestazione", "ColsWidth",      "ColAlignment", "Ordinamento",     "Formato",          "CampoQuery",
            "ImmagineA",    "ImmagineB",      "Condizione",   "OperatoreCondizionale", "ColonnaImmagine", "ColonnaForeColor",
            "ToolTT",       "ToolTTvero",     "ToolTTfalso",  "IsIperText",      "IperTextIndex",    "KeyID",
            "BackColorCol", "MostraBarraVert", "MostraTotCol", "ColonnaOpzionale", "TestoScelta"};
        EXPECT_EQ(changed, expected) << "index " << index;
    }
}

TEST_F(ColumnsTest, PerColumnWritesStoreTheirValues) {
    control->setCols(2);
    control->setOrdinamento(1, "name DESC");
    control->setCondizione(1, "5");
    control->setOperatoreCondizionale(1, ">=");
    control->setIsIperText(1, 1);
    control->setIperTextIndex(1, 0);
    control->setKeyID(1, "K");
    control->setMostraBarraVert(1, true);
    control->setColonnaOpzionale(1, 3);
    EXPECT_EQ(control->Ordinamento(1), "name DESC");
    EXPECT_EQ(control->Condizione(1), "5");
    EXPECT_EQ(control->OperatoreCondizionale(1), ">=");
    EXPECT_EQ(control->IsIperText(1), 1);
    EXPECT_EQ(control->KeyID(1), "K");
    EXPECT_TRUE(control->MostraBarraVert(1));
    EXPECT_EQ(S().columns.MostraBarraVert[1], VbTrue);
    EXPECT_EQ(control->ColonnaOpzionale(1), 3);
}

TEST_F(ColumnsTest, IntestazioneWriteCaptionsTheHeadingLabel) {
    control->setIntestazione(0, "Cliente");
    EXPECT_EQ(Menu(0).Caption(), "Cliente");
}

TEST_F(ColumnsTest, ToolTTWriteSetsTheHeadingPictureTooltip) {
    control->setToolTT(0, "Il cliente");
    EXPECT_EQ(PicCol(0).ToolTipText(), "Il cliente");
}

TEST_F(ColumnsTest, ImmagineAWriteSetsTheHeadingPictureAndImmagineBDoesNot) {
    auto list = std::make_shared<ImageList>("Immagini");
    auto red = std::make_shared<Image>(4, 4, 0xFFFF0000u);
    auto green = std::make_shared<Image>(6, 6, 0xFF00FF00u);
    list->Add(red);
    list->Add(green);
    auto form = std::make_shared<HostForm>("Form1");
    form->Add(list);
    control->setFormContenitore(form);
    control->setImageLista("Immagini");
    control->setImmagineA(0, 1);
    EXPECT_EQ(PicCol(0).GetPicture(), red);
    control->setImmagineB(0, 2);
    EXPECT_EQ(PicCol(0).GetPicture(), red);
    EXPECT_EQ(control->ImmagineB(0), 2);
}

TEST_F(ColumnsTest, ColsWidthReadIsZeroForAHiddenColumnWhileColsWidthEffStillScales) {
    control->setCols(3);
    control->setColsWidth(1, 2000);
    FG1().setColWidth(1, 0);
    EXPECT_EQ(control->ColsWidth(1), 0);
    const float factor = S().structure.FattoreAdattamento();
    EXPECT_EQ(control->ColsWidthEff(1), static_cast<int16_t>(std::nearbyint(2000 * factor)));
    EXPECT_NE(control->ColsWidthEff(1), 0);
    EXPECT_EQ(S().columns.ColsWidth[1], 2000);
}

TEST_F(ColumnsTest, ColsWidthWrittenWithTheSameValueDoesNotRebuildTheStructure) {
    control->setCols(2);
    control->Superficie().Resize(6000, kTenRowHeight);  // no layout runs on a resize yet
    const float widthBefore = FG1().Width();
    control->setColsWidth(0, control->ColsWidth(0));
    EXPECT_EQ(FG1().Width(), widthBefore);
    control->setColsWidth(0, 1234);
    EXPECT_EQ(FG1().Width(), 6000 - 270);
}

TEST_F(ColumnsTest, ColsLoweredBelowColonnaColorePlusOneResetsIt) {
    control->setCols(5);
    control->setColonnaColore(4);
    control->setCols(5);
    EXPECT_EQ(control->ColonnaColore(), 4);
    control->setCols(4);
    EXPECT_EQ(control->ColonnaColore(), -1);
}

TEST_F(ColumnsTest, ColumnsAddedByColsGetWidthAlignmentBackAndAnEmptyFormato) {
    control->setIntestazione(0, "keep");
    control->setCols(3);
    EXPECT_EQ(control->Intestazione(0), "keep");
    EXPECT_EQ(control->Formato(0), "Nessuno");
    for (int16_t c : {int16_t{1}, int16_t{2}}) {
        EXPECT_EQ(S().columns.ColsWidth[static_cast<size_t>(c)], 1000);
        EXPECT_EQ(control->ColAlignment(c), 0);
        EXPECT_EQ(control->BackColorCol(c), 0xFFFFFFu);
        EXPECT_EQ(control->Formato(c), "");
        EXPECT_EQ(control->CampoQuery(c), "");
        EXPECT_EQ(S().columns.TipoCampo[static_cast<size_t>(c)], 0);
    }
}

TEST_F(ColumnsTest, ColsWriteResizesTheRowStoreKeepingItsRowsAndNotifies) {
    LoadNumbered(12);
    ASSERT_EQ(control->Rows(), 12);
    changed.clear();
    control->setCols(5);
    EXPECT_EQ(S().MatriceRighe.ColBound(), 5);
    EXPECT_EQ(control->Rows(), 12);
    EXPECT_EQ(S().MatriceRighe.Cell(11, 1), "Name 12");
    EXPECT_EQ(changed, std::vector<std::string>{"Cols"});
    EXPECT_EQ(FG1().Cols(), 5);  // the structure was rebuilt
}

TEST_F(ColumnsTest, ColsWriteBelowOneFails) {
    EXPECT_THROW(control->setCols(0), Error);
    EXPECT_EQ(control->Cols(), 1);
}

TEST_F(ColumnsTest, ColAlignmentWriteGivesTheSurfaceItsOwnCodes) {
    control->setCols(4);
    control->setColAlignment(0, 0);
    control->setColAlignment(1, 1);
    control->setColAlignment(2, 2);
    FG1().setColAlignment(3, CellAlign::RightBottom);
    control->setColAlignment(3, 5);
    EXPECT_EQ(FG1().ColAlignment(0), 1);
    EXPECT_EQ(FG1().ColAlignment(1), 7);
    EXPECT_EQ(FG1().ColAlignment(2), 4);
    EXPECT_EQ(FG1().ColAlignment(3), CellAlign::RightBottom);
    EXPECT_EQ(control->ColAlignment(3), 5);
}

TEST_F(ColumnsTest, PlainScalarWritesStoreAndNotifyWithTheirNames) {
    control->setActiveCol(3);
    control->setFileScelta("scelta.txt");
    control->setTestoCount("Righe:");
    control->setColonnaColore(0);
    control->setSelezioneMultiplaImmediata(true);
    control->setVerticalGrid(true);
    control->setIperTextEnabled(true);
    control->setWheelStatus(false);  // True needs a form: the wheel tests write it
    control->setStileTesta(StileTestaType::Sea);
    control->setStileTestaOver(StileTestaType::Scheda);
    control->setStileArrow(ColorArrowType::Grey);
    control->setBackColor2(1);
    control->setBackColorSel(2);
    control->setForeColorSel(3);
    control->setBackColorSelected(4);
    control->setForeColorOrd(5);
    control->setIperTextColor(6);
    const std::vector<std::string> expected{
        "ActiveCol",  "FileScelta",   "TestoCount",  "ColonnaColore", "SelezioneMultiplaImmediata", "VerticalGrid",
        "IperTextEnabled", "WheelStatus", "StileTesta", "StileTestaOver", "StileArrow", "BackColor2",
        "BackColorSel", "ForeColorSel", "BackColorSelected", "ForeColorOrd", "IperTextColor"};
    EXPECT_EQ(changed, expected);
    EXPECT_EQ(control->ActiveCol(), 3);
    EXPECT_EQ(control->FileScelta(), "scelta.txt");
    EXPECT_EQ(control->StileTestaOver(), StileTestaType::Scheda);
    EXPECT_EQ(control->StileArrow(), ColorArrowType::Grey);
    EXPECT_EQ(control->IperTextColor(), 6u);
}

TEST_F(ColumnsTest, AdattamentoColonneDisattivatoRebuildsWithoutNotifying) {
    control->Superficie().Resize(5000, kTenRowHeight);
    control->setAdattamentoColonneDisattivato(true);
    EXPECT_TRUE(control->AdattamentoColonneDisattivato());
    EXPECT_TRUE(changed.empty());
    EXPECT_EQ(FG1().Width(), 5000 - 270);
}

TEST_F(ColumnsTest, BackColorAndBackColorSfondoReadTheSurfaceAlike) {
    control->setBackColor(0x123456);
    EXPECT_EQ(control->BackColor(), 0x123456u);
    EXPECT_EQ(control->BackColorSfondo(), 0x123456u);
    EXPECT_EQ(S().BackColor, 0x123456u);
    control->setBackColorSfondo(0x654321);
    EXPECT_EQ(control->BackColor(), 0x654321u);
    EXPECT_EQ(FG1().BackColorBkg(), 0x654321u);
    EXPECT_EQ(S().BackColor, 0x123456u);  // the stored copy is BackColor's own
    EXPECT_EQ(changed, (std::vector<std::string>{"BackColor", "BackColorSfondo"}));
}

TEST_F(ColumnsTest, ColoursHeldByElementsAreWrittenThere) {
    control->setBorderColor(0x010203);
    EXPECT_EQ(S().elements.Shape1->BorderColor(), 0x010203u);
    control->setBackColorTopScheda(0x0A0B0C);
    EXPECT_EQ(S().elements.LabelTopSk->BackColor(), 0x0A0B0Cu);
    control->setGridColor(0x00FF00);
    EXPECT_EQ(FG1().GridColor(), 0x00FF00u);
    EXPECT_EQ(control->GridColor(), 0x00FF00u);
    control->setColorGridHead(0x111111);
    EXPECT_EQ(S().elements.Shape2->BackColor(), 0x111111u);
    control->setForeColor(0x222222);
    EXPECT_EQ(FG1().ForeColor(), 0x222222u);
    control->setVerticalGridColor(0x333333);
    EXPECT_EQ(FrameLine(0).BackColor(), 0x333333u);
    EXPECT_EQ(control->VerticalGridColor(), 0x333333u);
    control->setForeColorHead(0x444444);
    EXPECT_EQ(Menu(0).ForeColor(), 0x444444u);
    EXPECT_EQ(changed, (std::vector<std::string>{"BorderColor", "BackColorTopScheda", "GridColor", "ColorGridHead",
                                                 "ForeColor", "VerticalGridColor", "ForeColorHead"}));
}

TEST_F(ColumnsTest, FontGoesToTheSurfaceAndNotifies) {
    control->setFont(Font{"Arial", 12.0f, true});
    EXPECT_EQ(FG1().GetFont().size, 12.0f);
    EXPECT_TRUE(control->GetFont().bold);
    EXPECT_EQ(changed, std::vector<std::string>{"Font"});
}

TEST_F(ColumnsTest, CellMembersForwardToTheCurrentCellAndCellPictureNotifiesNobody) {
    control->setCols(2);
    FG1().setRow(2);
    FG1().setCol(1);
    control->setCellBackColor(0x0000FF);
    control->setCellForeColor(0x00FF00);
    control->setCellFontUnderline(true);
    auto pic = std::make_shared<Image>(2, 2);
    control->setCellPicture(pic);
    EXPECT_EQ(FG1().CellBackColor(), 0x0000FFu);
    EXPECT_EQ(control->CellForeColor(), 0x00FF00u);
    EXPECT_TRUE(control->CellFontUnderline());
    EXPECT_EQ(control->CellPicture(), pic);
    EXPECT_EQ(control->CellTop(), FG1().RowPos(2));
    EXPECT_EQ(control->CellLeft(), FG1().ColPos(1));
    EXPECT_EQ(changed, (std::vector<std::string>{"Cols", "CellBackColor", "CellForeColor", "CellFontUnderline"}));
}

TEST_F(ColumnsTest, ConsentiSceltaColonneShowsTheChooserButton) {
    control->setConsentiSceltaColonne(true);
    EXPECT_TRUE(S().elements.ImageTools->Visible());
    control->setConsentiSceltaColonne(false);
    EXPECT_FALSE(S().elements.ImageTools->Visible());
}

TEST_F(ColumnsTest, QueryStringWriteSetsBothQueriesWithoutLoading) {
    control->setQueryString("SELECT 1");
    EXPECT_EQ(control->QueryString(), "SELECT 1");
    EXPECT_EQ(S().QueryCaricamento, "SELECT 1");
    EXPECT_EQ(events.Count("Caricato"), 0);
    EXPECT_EQ(changed, std::vector<std::string>{"QueryString"});
}

TEST_F(ColumnsTest, MultiSelOffClearsEveryMarkerOfTheStore) {
    LoadNumbered(12);
    control->setMultiSel(true);
    S().MatriceRighe.SetCell(3, 3, "1");
    S().MatriceRighe.SetCell(7, 3, "0");
    control->setMultiSel(true);
    EXPECT_EQ(S().MatriceRighe.Cell(3, 3), "1");
    control->setMultiSel(false);
    EXPECT_TRUE(S().MatriceRighe.IsEmpty(3, 3));
    EXPECT_TRUE(S().MatriceRighe.IsEmpty(7, 3));
    EXPECT_EQ(S().selection.AncoraMultipla(), -1);
}

TEST_F(ColumnsTest, BaseDatiAndFormContenitoreStoreWithoutNotifying) {
    auto form = std::make_shared<HostForm>("Form1");
    control->setFormContenitore(form);
    EXPECT_EQ(control->ParentForm(), form);
    const std::string path = MakeNumbered(1);
    control->setBaseDati(engine.real.OpenDatabase(path, OpenOptions{}));
    EXPECT_TRUE(changed.empty());
}

}  // namespace
}  // namespace TabulonLib12::testing
