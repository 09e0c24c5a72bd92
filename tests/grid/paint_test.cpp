// The paint of the row window: the four kinds of column, hidden columns, hyperlink and text
// colours, row colours and the colour text.
#include <gtest/gtest.h>

#include "grid_fixture.h"

namespace TabulonLib12::testing {
namespace {

class PaintTest : public GridTest {
protected:
    // Columns: 0 id, 1 name, 2 state (a number), 3 colour text, 4 a condition or picture column.
    void LoadStates() {
        MakeDatabase(
            "CREATE TABLE s(id INTEGER, name VARCHAR(20), state INTEGER, colour VARCHAR(20));"
            "INSERT INTO s VALUES(1, 'uno', 1, '255,0,0');"
            "INSERT INTO s VALUES(2, 'due', 2, '');"
            "INSERT INTO s VALUES(3, 'tre', 0, '0,128,255');"
            "INSERT INTO s VALUES(NULL, 'quattro', 7, '1,2');"
            "INSERT INTO s VALUES(5, '', NULL, NULL);");
        control->setCols(5);
        const char* fields[] = {"id", "name", "state", "colour", "state"};
        for (int16_t c = 0; c < 5; ++c) {
            control->setCampoQuery(c, fields[c]);
            control->setFormato(c, "Nessuno");
        }
        control->setDataBaseName(dir.File("test.db"));
        control->setQueryString("SELECT * FROM s");
    }

    void UseImageList() {
        red = std::make_shared<Image>(8, 8, 0xFFFF0000u);
        green = std::make_shared<Image>(8, 8, 0xFF00FF00u);
        auto list = std::make_shared<ImageList>("Stati", std::vector<Picture>{red, green});
        auto form = std::make_shared<HostForm>("Form1");
        form->Add(list);
        control->setFormContenitore(form);
        control->setImageLista("Stati");
    }

    const Picture* PictureAt(int r, int c) { return FG1().View(r, c).picture; }
    Colour BackAt(int r, int c) { return FG1().View(r, c).back; }
    Colour ForeAt(int r, int c) { return FG1().View(r, c).fore; }

    Picture red, green;
};

TEST_F(PaintTest, TextColumnsShowTheStoreTextAndEmptyRowsStayBlank) {
    LoadStates();
    control->Carica();
    EXPECT_EQ(FG1().TextMatrix(0, 1), "uno");
    EXPECT_EQ(FG1().TextMatrix(3, 0), "");
    EXPECT_EQ(FG1().TextMatrix(3, 1), "quattro");
    EXPECT_EQ(FG1().TextMatrix(5, 1), "");
    EXPECT_EQ(FG1().TextMatrix(9, 0), "");
}

TEST_F(PaintTest, AColumnWithoutAFormatShowsNothing) {
    LoadStates();
    control->setFormato(1, "");
    control->Carica();
    EXPECT_EQ(FG1().TextMatrix(0, 1), "");
    EXPECT_EQ(S().MatriceRighe.Cell(0, 1), "uno");
    control->setFormato(1, "Sconosciuto");
    control->Carica();
    EXPECT_EQ(FG1().TextMatrix(0, 1), "");
}

TEST_F(PaintTest, NumericoShowsTheNumberOfTheTextAndZeroForOtherText) {
    LoadStates();
    control->setFormato(1, "Numerico");
    control->setFormato(2, "Numerico");
    control->Carica();
    EXPECT_EQ(FG1().TextMatrix(0, 1), "0");
    EXPECT_EQ(FG1().TextMatrix(1, 2), "2");
}

TEST_F(PaintTest, AHiddenColumnIsBlankExceptColumnZero) {
    LoadStates();
    control->Carica();
    FG1().setColWidth(0, 0);
    FG1().setColWidth(1, 0);
    S().RiempiFinestraRighe(false);
    EXPECT_EQ(FG1().TextMatrix(0, 0), "1");
    EXPECT_EQ(FG1().TextMatrix(0, 1), "");
}

TEST_F(PaintTest, HyperlinkColumnsAreUnderlinedInIperTextColor) {
    LoadStates();
    control->setIsIperText(1, 1);
    control->setIperTextColor(0x00AA00);
    control->setForeColor(0x101010);
    control->Carica();
    EXPECT_TRUE(FG1().View(0, 1).underline);
    EXPECT_EQ(ForeAt(0, 1), 0x00AA00u);
    EXPECT_FALSE(FG1().View(0, 0).underline);
    EXPECT_EQ(ForeAt(0, 0), 0x101010u);
}

TEST_F(PaintTest, AnIsIperTextOtherThanOneIsPlain) {
    LoadStates();
    control->setIsIperText(1, 2);
    control->Carica();
    EXPECT_FALSE(FG1().View(0, 1).underline);
}

TEST_F(PaintTest, ColonnaForeColorColoursTheTextFromTheColourColumn) {
    LoadStates();
    control->setColonnaForeColor(1, 3);
    control->Carica();
    EXPECT_EQ(ForeAt(0, 1), Rgb(255, 0, 0));
    EXPECT_EQ(ForeAt(1, 1), control->ForeColor());  // empty colour text: the plain colour stays
    EXPECT_EQ(ForeAt(2, 1), Rgb(0, 128, 255));
    EXPECT_EQ(ForeAt(3, 1), 0u);  // two numbers: black
}

TEST_F(PaintTest, ColonnaColoreColoursTheWholeRow) {
    LoadStates();
    control->setBackColorCol(0, 0xEEEEEE);
    control->setColonnaColore(3);
    control->Carica();
    for (int c = 0; c < 5; ++c) {
        EXPECT_EQ(BackAt(0, c), Rgb(255, 0, 0)) << c;
        EXPECT_EQ(BackAt(2, c), Rgb(0, 128, 255)) << c;
        EXPECT_EQ(BackAt(3, c), 0u) << c;
    }
    EXPECT_EQ(BackAt(1, 0), 0xEEEEEEu);  // no colour text: the column's own back colour
    EXPECT_EQ(BackAt(1, 1), 0xFFFFFFu);
}

TEST_F(PaintTest, ColoreDaTestoReadsThreeNumbers) {
    EXPECT_EQ(ColoreDaTesto(""), 0xFFFFFFu);
    EXPECT_EQ(ColoreDaTesto("255,0,0"), 0x0000FFu);
    EXPECT_EQ(ColoreDaTesto("0,0,255"), 0xFF0000u);
    EXPECT_EQ(ColoreDaTesto("10, 20 ,30"), Rgb(10, 20, 30));
    EXPECT_EQ(ColoreDaTesto("1,2"), 0u);
    EXPECT_EQ(ColoreDaTesto("1,2,3,4"), 0u);
    EXPECT_EQ(ColoreDaTesto("rosso"), 0u);
}

TEST_F(PaintTest, PictureByValueColumnTakesTheItemOfTheNumberAndWritesNoText) {
    LoadStates();
    UseImageList();
    control->setColonnaImmagine(4, 2);
    control->Carica();
    EXPECT_EQ(*PictureAt(0, 4), red);
    EXPECT_EQ(*PictureAt(1, 4), green);
    EXPECT_EQ(*PictureAt(2, 4), nullptr);  // 0: no picture
    EXPECT_EQ(*PictureAt(3, 4), nullptr);  // first column empty: no picture
    EXPECT_EQ(FG1().View(0, 4).pictureAlignment, CellAlign::CentreCentre);
    EXPECT_EQ(FG1().TextMatrix(0, 4), "");
}

TEST_F(PaintTest, PictureByValueWithoutAnImageListPaintsNothing) {
    LoadStates();
    control->setColonnaImmagine(4, 2);
    control->Carica();
    EXPECT_EQ(*PictureAt(0, 4), nullptr);
    EXPECT_EQ(FG1().TextMatrix(0, 4), "");
}

TEST_F(PaintTest, ConditionColumnShowsImmagineAWhenItHoldsAndImmagineBOtherwise) {
    LoadStates();
    UseImageList();
    control->setCondizione(4, "1");
    control->setOperatoreCondizionale(4, ">=");
    control->setImmagineA(4, 2);
    control->setImmagineB(4, 1);
    control->Carica();
    EXPECT_EQ(S().columns.TipoCampoRilevato[4], "4");
    EXPECT_EQ(*PictureAt(0, 4), green);  // 1 >= 1
    EXPECT_EQ(*PictureAt(1, 4), green);  // 2 >= 1
    EXPECT_EQ(*PictureAt(2, 4), red);    // 0 < 1
    EXPECT_EQ(FG1().TextMatrix(0, 4), "");
}

TEST_F(PaintTest, AnEmptyCellInANumericConditionColumnShowsImmagineA) {
    LoadStates();
    UseImageList();
    control->setCondizione(4, "1");
    control->setOperatoreCondizionale(4, "=");
    control->setImmagineA(4, 2);
    control->setImmagineB(4, 1);
    control->Carica();
    EXPECT_EQ(*PictureAt(4, 4), green);  // state NULL, id 5: conversion fails, counts as holding
}

TEST_F(PaintTest, ALoadWhoseConditionColumnMeetsANullNumberShowsNoBox) {
    LoadStates();
    UseImageList();
    control->setCondizione(4, "1");
    control->setOperatoreCondizionale(4, ">");
    control->setImmagineA(4, 2);
    control->setImmagineB(4, 1);
    control->Carica();
    // The paint counts the value that does not convert as holding, and tells nobody.
    EXPECT_EQ(*PictureAt(4, 4), green);
    EXPECT_TRUE(messages.shown.empty());
    control->Carica(true);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(PaintTest, ARepaintThatMeetsANullNumberLeavesNothingForTheRoutinesAfterIt) {
    LoadStates();
    UseImageList();
    control->setCondizione(4, "1");
    control->setOperatoreCondizionale(4, "<");
    control->setImmagineA(4, 2);
    control->setImmagineB(4, 1);
    control->Carica();
    control->setTopRow(1);  // each scroll repaints the null cell again
    control->setTopRow(0);
    control->setDataBaseName(dir.File("test.db"));
    control->Carica();
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(control->RighePiene(), 5);
}

TEST_F(PaintTest, AConditionRowWhoseFirstColumnIsEmptyKeepsItsPreviousPicture) {
    LoadStates();
    UseImageList();
    control->setCondizione(4, "1");
    control->setOperatoreCondizionale(4, "=");
    control->setImmagineA(4, 2);
    control->setImmagineB(4, 1);
    control->Carica();
    FG1().setRow(3);
    FG1().setCol(4);
    FG1().setCellPicture(red);
    FG1().setText("kept");
    S().RiempiFinestraRighe(false);
    EXPECT_EQ(*PictureAt(3, 4), red);
    EXPECT_EQ(FG1().TextMatrix(3, 4), "kept");
}

TEST_F(PaintTest, AConditionColumnWithoutPicturesClearsThePictureAndKeepsTheText) {
    LoadStates();
    UseImageList();
    control->setCondizione(4, "1");
    control->setOperatoreCondizionale(4, "=");
    control->Carica();
    FG1().setRow(0);
    FG1().setCol(4);
    FG1().setCellPicture(red);
    FG1().setText("stays");
    S().RiempiFinestraRighe(false);
    EXPECT_EQ(*PictureAt(0, 4), nullptr);
    EXPECT_EQ(FG1().TextMatrix(0, 4), "stays");
}

TEST_F(PaintTest, AnEmptyOperatorGivesImmagineBForEveryRow) {
    LoadStates();
    UseImageList();
    control->setCondizione(4, "1");
    control->setImmagineA(4, 2);
    control->setImmagineB(4, 1);
    control->Carica();
    EXPECT_EQ(*PictureAt(0, 4), red);
    EXPECT_EQ(*PictureAt(1, 4), red);
}

TEST_F(PaintTest, RowsBeyondTheStoreAreBlank) {
    LoadStates();
    control->Carica();
    int32_t v = 0;
    S().VS1.setValue(v);
    S().MatriceRighe = RowStore(3, 5);
    S().RiempiFinestraRighe(false);
    EXPECT_EQ(FG1().TextMatrix(5, 1), "");
}

TEST_F(PaintTest, ThePaintRunsWithRedrawOffAndEndsWithItOn) {
    LoadStates();
    int paints = 0;
    control->Superficie().onInvalidate = [&] { ++paints; };
    S().RiempiFinestraRighe(true);
    EXPECT_TRUE(FG1().Redraw());
    EXPECT_EQ(paints, 1);
    control->Superficie().onInvalidate = nullptr;
}

TEST_F(PaintTest, BackColorColRecoloursTheVisibleCells) {
    LoadStates();
    control->Carica();
    control->setBackColorCol(2, 0x00FFFF);
    EXPECT_EQ(BackAt(0, 2), 0x00FFFFu);
    EXPECT_EQ(BackAt(9, 2), 0x00FFFFu);
}

}  // namespace
}  // namespace TabulonLib12::testing
