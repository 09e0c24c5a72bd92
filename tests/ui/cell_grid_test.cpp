// The cell surface: size, current cell and selection, cells, widths and heights, drawing.
#include <limits>

#include "cell_grid_fixture.h"

namespace TabulonLib12::testing {
namespace {

TEST_F(CellGridTest, StartsWithTwoByTwoCellsOneFixedRowAndColumn) {
    EXPECT_EQ(grid.Rows(), 2);
    EXPECT_EQ(grid.Cols(), 2);
    EXPECT_EQ(grid.FixedRows(), 1);
    EXPECT_EQ(grid.FixedCols(), 1);
    EXPECT_EQ(grid.Row(), 1);
    EXPECT_EQ(grid.Col(), 1);
    EXPECT_EQ(grid.RowSel(), 1);
    EXPECT_EQ(grid.ColSel(), 1);
    EXPECT_FALSE(grid.SelectionShown());
    EXPECT_EQ(grid.HighLight(), 1);
    EXPECT_EQ(grid.SelectionMode(), 0);
    EXPECT_TRUE(grid.Redraw());
    EXPECT_EQ(grid.BackColor(), SystemColour::WindowBackground);
    EXPECT_EQ(grid.ForeColor(), SystemColour::WindowText);
    EXPECT_EQ(grid.BackColorFixed(), SystemColour::ButtonFace);
    EXPECT_EQ(grid.BackColorSel(), SystemColour::Highlight);
    EXPECT_EQ(grid.BackColorBkg(), 0x808080u);
    EXPECT_EQ(grid.GridLines(), 1);
    EXPECT_EQ(grid.GridLinesFixed(), 2);
    EXPECT_EQ(grid.MouseRow(), -1);
    EXPECT_EQ(grid.MouseCol(), -1);
    EXPECT_TRUE(grid.CanFocus());
}

TEST_F(CellGridTest, GrowingKeepsTheCells) {
    grid.setTextMatrix(1, 1, "a");
    grid.setRows(10);
    grid.setCols(5);
    EXPECT_EQ(grid.TextMatrix(1, 1), "a");
    EXPECT_EQ(grid.TextMatrix(9, 4), "");
}

TEST_F(CellGridTest, ShrinkingKeepsTheCellsThatStillFit) {
    Plain(5, 5);
    grid.setTextMatrix(1, 1, "kept");
    grid.setTextMatrix(4, 4, "dropped");
    grid.setRows(3);
    grid.setCols(3);
    grid.setRows(5);
    grid.setCols(5);
    EXPECT_EQ(grid.TextMatrix(1, 1), "kept");
    EXPECT_EQ(grid.TextMatrix(4, 4), "");
}

TEST_F(CellGridTest, ShrinkingBringsTheCurrentCellInsideWithoutLeaveOrEnter) {
    Plain(10, 4);
    grid.setRow(8);
    grid.setCol(3);
    grid.setRowSel(9);
    WatchGrid();
    grid.setRows(5);
    EXPECT_EQ(grid.Row(), 4);
    EXPECT_EQ(grid.RowSel(), 4);
    EXPECT_EQ(log, (Log{"rowcol 4,3", "sel 4,3-4,3"}));
}

TEST_F(CellGridTest, RowsBelowTheFixedRowsAreRefused) {
    EXPECT_UI_ERROR(grid.setRows(0), ErrorKind::InvalidValue, 380);
    EXPECT_UI_ERROR(grid.setRows(-1), ErrorKind::InvalidValue, 380);
    EXPECT_UI_ERROR(grid.setCols(0), ErrorKind::InvalidValue, 380);
    EXPECT_EQ(grid.Rows(), 2);
    EXPECT_EQ(grid.Cols(), 2);
    grid.setRows(1);  // the fixed row alone is allowed
    EXPECT_EQ(grid.Rows(), 1);
}

TEST_F(CellGridTest, ZeroRowsWithoutFixedRowsLeaveNoCurrentRow) {
    Plain(3, 2);
    grid.setRows(0);
    EXPECT_EQ(grid.Rows(), 0);
    EXPECT_EQ(grid.Row(), -1);
    EXPECT_UI_ERROR(grid.Text(), ErrorKind::OutOfBounds, 381);
    EXPECT_UI_ERROR(grid.setRow(0), ErrorKind::InvalidValue, CellGridError::InvalidRow);
    EXPECT_UI_ERROR(grid.setCellBackColor(0xFF), ErrorKind::OutOfBounds, 381);
    grid.setRows(4);
    EXPECT_EQ(grid.Row(), 0);
}

TEST_F(CellGridTest, SizesBeyondTheCellLimitAreRefused) {
    EXPECT_UI_ERROR(grid.setRows(static_cast<int32_t>(CellGrid::MaxCells)), ErrorKind::InvalidValue, 380);
    EXPECT_UI_ERROR(grid.setRows(std::numeric_limits<int32_t>::max()), ErrorKind::InvalidValue, 380);
    EXPECT_EQ(grid.Rows(), 2);
    Plain(0, 0);
    EXPECT_UI_ERROR(grid.setRows(std::numeric_limits<int32_t>::max()), ErrorKind::InvalidValue, 380);
}

TEST_F(CellGridTest, FixedRowsAndColsStayWithinTheSize) {
    EXPECT_UI_ERROR(grid.setFixedRows(3), ErrorKind::InvalidValue, 380);
    EXPECT_UI_ERROR(grid.setFixedCols(-1), ErrorKind::InvalidValue, 380);
    grid.setFixedRows(2);
    EXPECT_EQ(grid.FixedRows(), 2);
    EXPECT_UI_ERROR(grid.setRows(1), ErrorKind::InvalidValue, 380);
}

TEST_F(CellGridTest, RowOutOfRangeFailsWithInvalidRowValue) {
    try {
        grid.setRow(2);
        ADD_FAILURE() << "row 2 of 2 was taken";
    } catch (const Error& e) {
        EXPECT_EQ(e.number(), 30009);
        EXPECT_EQ(e.description(), "Invalid Row value");
    }
    EXPECT_UI_ERROR(grid.setRow(-1), ErrorKind::InvalidValue, 30009);
    EXPECT_UI_ERROR(grid.setRowSel(5), ErrorKind::InvalidValue, 30009);
    EXPECT_EQ(grid.Row(), 1);
}

TEST_F(CellGridTest, ColOutOfRangeFailsWithInvalidColValue) {
    try {
        grid.setCol(2);
        ADD_FAILURE() << "col 2 of 2 was taken";
    } catch (const Error& e) {
        EXPECT_EQ(e.number(), 30010);
        EXPECT_EQ(e.description(), "Invalid Col value");
    }
    EXPECT_UI_ERROR(grid.setColSel(-3), ErrorKind::InvalidValue, 30010);
}

TEST_F(CellGridTest, FixedCellsCanBeMadeCurrent) {
    grid.setRow(0);
    grid.setCol(0);
    grid.setCellBackColor(0x00FF00);
    EXPECT_EQ(grid.CellBackColor(), 0x00FF00u);
}

TEST_F(CellGridTest, MovingRaisesLeaveOnTheOldCellThenEnterAndRowColChange) {
    Plain(5, 3);
    WatchGrid();
    grid.setRow(3);
    EXPECT_EQ(log, (Log{"leave 1,1", "enter 3,1", "rowcol 3,1", "sel 3,1-3,1"}));
    log.clear();
    grid.setCol(2);
    EXPECT_EQ(log, (Log{"leave 3,1", "enter 3,2", "rowcol 3,2", "sel 3,2-3,2"}));
}

TEST_F(CellGridTest, SettingTheSameCellRaisesNoCellEvents) {
    WatchGrid();
    grid.setRow(1);
    grid.setCol(1);
    EXPECT_TRUE(log.empty());
}

TEST_F(CellGridTest, SettingRowCollapsesTheSelectionEvenToTheSameRow) {
    Plain(5, 3);
    grid.setRow(1);
    grid.setRowSel(3);
    grid.setColSel(2);
    EXPECT_TRUE(grid.SelectionShown());
    WatchGrid();
    grid.setRow(1);
    EXPECT_EQ(grid.RowSel(), 1);
    EXPECT_EQ(grid.ColSel(), 1);
    EXPECT_FALSE(grid.SelectionShown());
    EXPECT_EQ(log, (Log{"sel 1,1-1,1"}));
}

TEST_F(CellGridTest, SettingColEndsTheShownSelection) {
    Plain(5, 3);
    grid.setRowSel(2);
    grid.setCol(0);
    EXPECT_FALSE(grid.SelectionShown());
    EXPECT_EQ(grid.RowSel(), 1);
    EXPECT_EQ(grid.ColSel(), 0);
}

TEST_F(CellGridTest, RowSelAndColSelShowTheSelectionAndRaiseSelChange) {
    Plain(5, 3);
    WatchGrid();
    grid.setColSel(2);
    grid.setRowSel(1);  // the same: SelChange only for a change
    grid.setRowSel(4);
    EXPECT_TRUE(grid.SelectionShown());
    EXPECT_EQ(log, (Log{"sel 1,1-1,2", "sel 1,1-4,2"}));
}

TEST_F(CellGridTest, HighLightZeroHidesTheSelection) {
    Plain(5, 3);
    grid.setRowSel(2);
    grid.setHighLight(0);
    EXPECT_FALSE(grid.SelectionShown());
    EXPECT_FALSE(grid.View(2, 1).selected);
    grid.setHighLight(1);
    EXPECT_TRUE(grid.View(2, 1).selected);
}

TEST_F(CellGridTest, HighLightTwoShowsTheSelectionOnlyWithTheFocus) {
    Plain(5, 3);
    grid.setRowSel(2);
    grid.setHighLight(2);
    EXPECT_FALSE(grid.SelectionShown());
    grid.SetFocus();
    EXPECT_TRUE(grid.SelectionShown());
}

TEST_F(CellGridTest, SelectionSettingsRefuseUnknownCodes) {
    EXPECT_UI_ERROR(grid.setHighLight(3), ErrorKind::InvalidValue, 380);
    EXPECT_UI_ERROR(grid.setSelectionMode(3), ErrorKind::InvalidValue, 380);
    EXPECT_UI_ERROR(grid.setSelectionMode(-1), ErrorKind::InvalidValue, 380);
    grid.setSelectionMode(1);
    EXPECT_EQ(grid.SelectionMode(), 1);
}

TEST_F(CellGridTest, TextMatrixOutsideTheCellsFailsWith381) {
    EXPECT_UI_ERROR(grid.TextMatrix(2, 0), ErrorKind::OutOfBounds, 381);
    EXPECT_UI_ERROR(grid.TextMatrix(0, 2), ErrorKind::OutOfBounds, 381);
    EXPECT_UI_ERROR(grid.TextMatrix(-1, 0), ErrorKind::OutOfBounds, 381);
    EXPECT_UI_ERROR(grid.setTextMatrix(0, -1, "x"), ErrorKind::OutOfBounds, 381);
}

TEST_F(CellGridTest, TextIsTheCurrentCellsText) {
    Plain(3, 3);
    grid.setRow(2);
    grid.setCol(1);
    grid.setText("12");
    EXPECT_EQ(grid.TextMatrix(2, 1), "12");
    EXPECT_EQ(grid.Text(), "12");
}

TEST_F(CellGridTest, ColumnsAre960TwipsWideByDefault) {
    EXPECT_EQ(grid.ColWidth(0), 960);
    grid.setCols(4);
    EXPECT_EQ(grid.ColWidth(3), 960);
}

TEST_F(CellGridTest, ColWidthMinusOneRestoresTheDefault) {
    grid.setColWidth(1, 0);
    EXPECT_EQ(grid.ColWidth(1), 0);
    grid.setColWidth(1, -1);
    EXPECT_EQ(grid.ColWidth(1), 960);
}

TEST_F(CellGridTest, ColWidthBelowMinusOneIsRefused) {
    grid.setColWidth(0, 300);
    EXPECT_UI_ERROR(grid.setColWidth(0, -2), ErrorKind::InvalidValue, 380);
    EXPECT_EQ(grid.ColWidth(0), 300);
}

TEST_F(CellGridTest, ColWidthIndexMinusOneSetsEveryColumn) {
    grid.setCols(4);
    grid.setColWidth(-1, 500);
    for (int c = 0; c < 4; ++c) EXPECT_EQ(grid.ColWidth(c), 500);
    EXPECT_UI_ERROR(grid.ColWidth(4), ErrorKind::OutOfBounds, 381);
    EXPECT_UI_ERROR(grid.setColWidth(-2, 10), ErrorKind::OutOfBounds, 381);
}

TEST_F(CellGridTest, RowHeightIsTheFontLinePlus45) {
    EXPECT_EQ(grid.RowHeight(0), 195 + 45);
    Font big;
    big.size = 12.0f;
    grid.setFont(big);
    EXPECT_EQ(grid.RowHeight(1), 285 + 45);
}

TEST_F(CellGridTest, RowsWithTheirOwnHeightDoNotFollowTheFont) {
    grid.setRowHeight(0, 330);
    Font big;
    big.size = 12.0f;
    grid.setFont(big);
    EXPECT_EQ(grid.RowHeight(0), 330);
    grid.setRowHeight(0, -1);
    EXPECT_EQ(grid.RowHeight(0), 330);  // the font's 285 + 45
    grid.setRowHeight(-1, 100);
    EXPECT_EQ(grid.RowHeight(1), 100);
    EXPECT_UI_ERROR(grid.setRowHeight(0, -5), ErrorKind::InvalidValue, 380);
    EXPECT_UI_ERROR(grid.RowHeight(2), ErrorKind::OutOfBounds, 381);
}

TEST_F(CellGridTest, ColPosAndRowPosSumWhatComesBefore) {
    Plain(4, 4);
    grid.setColWidth(0, 100);
    grid.setColWidth(1, 250);
    grid.setRowHeight(1, 300);
    EXPECT_EQ(grid.ColPos(0), 0);
    EXPECT_EQ(grid.ColPos(1), 100);
    EXPECT_EQ(grid.ColPos(2), 350);
    EXPECT_EQ(grid.ColPos(3), 1310);
    EXPECT_EQ(grid.RowPos(0), 0);
    EXPECT_EQ(grid.RowPos(2), 540);
    EXPECT_EQ(grid.RowPos(3), 780);
}

TEST_F(CellGridTest, ColPosAndRowPosOutsideTheGridFailWith381) {
    EXPECT_UI_ERROR(grid.ColPos(2), ErrorKind::OutOfBounds, 381);
    EXPECT_UI_ERROR(grid.ColPos(-1), ErrorKind::OutOfBounds, 381);
    EXPECT_UI_ERROR(grid.RowPos(2), ErrorKind::OutOfBounds, 381);
}

TEST_F(CellGridTest, PositionsStopAtTheLargestValue) {
    Plain(3, 3);
    grid.setColWidth(-1, std::numeric_limits<int32_t>::max());
    EXPECT_EQ(grid.ColPos(2), std::numeric_limits<int32_t>::max());
}

TEST_F(CellGridTest, CellTopLeftWidthHeightDescribeTheCurrentCell) {
    Plain(3, 3);
    grid.setColWidth(0, 400);
    grid.setRow(2);
    grid.setCol(1);
    EXPECT_EQ(grid.CellLeft(), 400);
    EXPECT_EQ(grid.CellTop(), 480);
    EXPECT_EQ(grid.CellWidth(), 960);
    EXPECT_EQ(grid.CellHeight(), 240);
}

TEST_F(CellGridTest, ColumnsStartWithGeneralAlignment) {
    EXPECT_EQ(grid.ColAlignment(0), CellAlign::General);
    grid.setCols(3);
    EXPECT_EQ(grid.ColAlignment(2), CellAlign::General);
}

TEST_F(CellGridTest, ColAlignmentTakesCodesZeroToNine) {
    grid.setCols(3);
    grid.setColAlignment(1, CellAlign::RightCentre);
    EXPECT_EQ(grid.ColAlignment(1), 7);
    grid.setColAlignment(-1, CellAlign::CentreCentre);
    EXPECT_EQ(grid.ColAlignment(0), 4);
    EXPECT_EQ(grid.ColAlignment(2), 4);
    EXPECT_UI_ERROR(grid.setColAlignment(0, 10), ErrorKind::InvalidValue, 380);
    EXPECT_UI_ERROR(grid.setColAlignment(0, -1), ErrorKind::InvalidValue, 380);
    EXPECT_UI_ERROR(grid.setColAlignment(3, 0), ErrorKind::OutOfBounds, 381);
    EXPECT_EQ(grid.ColAlignment(0), 4);
}

TEST_F(CellGridTest, CellMembersActOnTheCurrentCell) {
    Plain(3, 3);
    grid.setRow(1);
    grid.setCol(2);
    grid.setCellBackColor(0x0000FF);
    grid.setCellForeColor(0x00FF00);
    grid.setCellFontUnderline(true);
    grid.setRow(2);
    EXPECT_EQ(grid.CellBackColor(), grid.BackColor());
    EXPECT_FALSE(grid.CellFontUnderline());
    grid.setRow(1);
    EXPECT_EQ(grid.CellBackColor(), 0x0000FFu);
    EXPECT_EQ(grid.CellForeColor(), 0x00FF00u);
    EXPECT_TRUE(grid.CellFontUnderline());
}

TEST_F(CellGridTest, CellColoursDefaultToTheGridOrTheFixedColours) {
    grid.setBackColor(0xC0C0C0);
    grid.setForeColor(0x404040);
    EXPECT_EQ(grid.CellBackColor(), 0xC0C0C0u);  // cell 1,1
    EXPECT_EQ(grid.CellForeColor(), 0x404040u);
    grid.setRow(0);
    EXPECT_EQ(grid.CellBackColor(), SystemColour::ButtonFace);
    EXPECT_EQ(grid.CellForeColor(), SystemColour::ButtonText);
    grid.setForeColorFixed(0x111111);
    EXPECT_EQ(grid.CellForeColor(), 0x111111u);
}

TEST_F(CellGridTest, CellPictureAndItsAlignment) {
    Picture pic = MakePicture(13, 13);
    grid.setCellPicture(pic);
    EXPECT_EQ(grid.CellPicture(), pic);
    EXPECT_EQ(grid.CellPictureAlignment(), CellAlign::LeftCentre);
    grid.setCellPictureAlignment(CellAlign::CentreCentre);
    EXPECT_EQ(grid.CellPictureAlignment(), 4);
    EXPECT_UI_ERROR(grid.setCellPictureAlignment(9), ErrorKind::InvalidValue, 380);
    EXPECT_EQ(grid.View(1, 1).picture->get(), pic.get());
    EXPECT_EQ(grid.View(1, 1).pictureAlignment, 4);
}

TEST_F(CellGridTest, ViewResolvesTheColoursOfACell) {
    grid.setCols(3);
    grid.setTextMatrix(1, 2, "x");
    grid.setCol(2);
    grid.setCellBackColor(0x123456);
    CellGrid::CellView own = grid.View(1, 2);
    EXPECT_EQ(*own.text, "x");
    EXPECT_EQ(own.back, 0x123456u);
    EXPECT_EQ(own.fore, 0x000000u);  // window text
    EXPECT_FALSE(own.selected);
    EXPECT_EQ(grid.View(1, 1).back, 0xFFFFFFu);  // window background
    EXPECT_EQ(grid.View(0, 1).back, 0xF0F0F0u);  // button face
    EXPECT_UI_ERROR(grid.View(2, 0), ErrorKind::OutOfBounds, 381);
}

TEST_F(CellGridTest, AWholeRowSelectionIsShownInTheSelectionColours) {
    Plain(5, 3);
    grid.setForeColorSel(0xFFFFFF);
    // The control's own selection of a row: Col 0, Row r, ColSel Cols - 1, RowSel r.
    grid.setCol(0);
    grid.setRow(2);
    grid.setColSel(2);
    grid.setRowSel(2);
    for (int c = 0; c < 3; ++c) {
        EXPECT_TRUE(grid.View(2, c).selected);
        EXPECT_EQ(grid.View(2, c).back, 0xD77800u);
        EXPECT_EQ(grid.View(2, c).fore, 0xFFFFFFu);
        EXPECT_FALSE(grid.View(1, c).selected);
        EXPECT_FALSE(grid.View(3, c).selected);
    }
}

TEST_F(CellGridTest, ByRowModeHighlightsWholeRowsWhateverTheColumns) {
    Plain(5, 3);
    grid.setSelectionMode(1);
    grid.setCol(1);
    grid.setRow(1);
    grid.setRowSel(2);
    EXPECT_TRUE(grid.View(2, 0).selected);
    EXPECT_TRUE(grid.View(1, 2).selected);
    EXPECT_FALSE(grid.View(3, 0).selected);
}

TEST_F(CellGridTest, FixedCellsAreNeverShownSelected) {
    grid.setRows(4);
    grid.setCols(3);
    grid.setRow(0);
    grid.setCol(0);
    grid.setRowSel(3);
    grid.setColSel(2);
    EXPECT_FALSE(grid.View(0, 1).selected);
    EXPECT_FALSE(grid.View(2, 0).selected);
    EXPECT_TRUE(grid.View(2, 2).selected);
}

TEST_F(CellGridTest, ClearEmptiesTheCellsAndKeepsSizeAndPosition) {
    Plain(3, 3);
    grid.setColWidth(1, 500);
    grid.setColAlignment(1, 1);
    grid.setRow(2);
    grid.setCol(1);
    grid.setText("x");
    grid.setCellBackColor(0xFF);
    grid.setCellFontUnderline(true);
    grid.setCellPicture(MakePicture(2, 2));
    grid.Clear();
    EXPECT_EQ(grid.Text(), "");
    EXPECT_EQ(grid.CellBackColor(), grid.BackColor());
    EXPECT_FALSE(grid.CellFontUnderline());
    EXPECT_EQ(grid.CellPicture(), nullptr);
    EXPECT_EQ(grid.Rows(), 3);
    EXPECT_EQ(grid.Row(), 2);
    EXPECT_EQ(grid.Col(), 1);
    EXPECT_EQ(grid.ColWidth(1), 500);
    EXPECT_EQ(grid.ColAlignment(1), 1);
}

TEST_F(CellGridTest, ClearEmptiesTheFixedCellsToo) {
    grid.setTextMatrix(0, 0, "head");
    grid.Clear();
    EXPECT_EQ(grid.TextMatrix(0, 0), "");
}

TEST_F(CellGridTest, AddItemAppendsARowOfTabSeparatedTexts) {
    grid.setCols(3);
    grid.AddItem("a\tb\tc\td");
    EXPECT_EQ(grid.Rows(), 3);
    EXPECT_EQ(grid.TextMatrix(2, 0), "a");
    EXPECT_EQ(grid.TextMatrix(2, 2), "c");  // "d" has no column
    grid.AddItem("only");
    EXPECT_EQ(grid.TextMatrix(3, 0), "only");
    EXPECT_EQ(grid.TextMatrix(3, 1), "");
}

TEST_F(CellGridTest, AddItemAtAnIndexPushesTheRowsBelowDown) {
    Plain(2, 2);
    grid.setTextMatrix(0, 0, "first");
    grid.setTextMatrix(1, 0, "second");
    grid.setRowHeight(1, 500);
    grid.AddItem("new\tx", 1);
    EXPECT_EQ(grid.TextMatrix(1, 0), "new");
    EXPECT_EQ(grid.TextMatrix(1, 1), "x");
    EXPECT_EQ(grid.TextMatrix(2, 0), "second");
    EXPECT_EQ(grid.RowHeight(2), 500);
    EXPECT_EQ(grid.RowHeight(1), 240);
    EXPECT_UI_ERROR(grid.AddItem("z", 4), ErrorKind::OutOfBounds, 381);
    EXPECT_UI_ERROR(grid.AddItem("z", -2), ErrorKind::OutOfBounds, 381);
}

TEST_F(CellGridTest, AddItemGivesAnEmptyGridACurrentRow) {
    Plain(0, 2);
    grid.AddItem("a\tb");
    EXPECT_EQ(grid.Row(), 0);
    EXPECT_EQ(grid.Col(), 1);
    EXPECT_EQ(grid.Text(), "b");
}

TEST_F(CellGridTest, RemoveItemRemovesTheRow) {
    Plain(3, 1);
    grid.setTextMatrix(0, 0, "a");
    grid.setTextMatrix(1, 0, "b");
    grid.setTextMatrix(2, 0, "c");
    grid.setRow(2);
    grid.RemoveItem(1);
    EXPECT_EQ(grid.Rows(), 2);
    EXPECT_EQ(grid.TextMatrix(1, 0), "c");
    EXPECT_EQ(grid.Row(), 1);  // brought inside
}

TEST_F(CellGridTest, TheLastNonFixedRowCannotBeRemoved) {
    try {
        grid.RemoveItem(1);
        ADD_FAILURE() << "the last row went";
    } catch (const Error& e) {
        EXPECT_EQ(e.number(), 30015);
        EXPECT_EQ(e.description(), "Cannot remove last non-fixed row");
    }
    EXPECT_EQ(grid.Rows(), 2);
}

TEST_F(CellGridTest, RemoveItemRefusesFixedRowsAndBadIndices) {
    grid.setRows(4);
    EXPECT_UI_ERROR(grid.RemoveItem(0), ErrorKind::OutOfBounds, 381);
    EXPECT_UI_ERROR(grid.RemoveItem(4), ErrorKind::OutOfBounds, 381);
    EXPECT_EQ(grid.Rows(), 4);
}

TEST_F(CellGridTest, ColoursAndLinesAreKept) {
    grid.setBackColorBkg(0xE6E6E6);
    grid.setGridColor(0xFFFFFF);
    grid.setGridColorFixed(0xFFFFFF);
    grid.setBackColorSel(0x112233);
    grid.setGridLinesFixed(1);
    EXPECT_EQ(grid.BackColorBkg(), 0xE6E6E6u);
    EXPECT_EQ(grid.GridColor(), 0xFFFFFFu);
    EXPECT_EQ(grid.GridColorFixed(), 0xFFFFFFu);
    EXPECT_EQ(grid.BackColorSel(), 0x112233u);
    EXPECT_EQ(grid.GridLinesFixed(), 1);
    EXPECT_UI_ERROR(grid.setGridLines(4), ErrorKind::InvalidValue, 380);
    EXPECT_UI_ERROR(grid.setGridLinesFixed(-1), ErrorKind::InvalidValue, 380);
}

TEST_F(CellGridTest, CellWritesRequestAPaint) {
    paints = 0;
    grid.setTextMatrix(1, 1, "x");
    grid.setCellBackColor(0xFF);
    grid.setTextMatrix(1, 1, "x");  // unchanged
    EXPECT_EQ(paints, 2);
}

TEST_F(CellGridTest, NothingIsPaintedWhileRedrawIsFalseAndOnceWhenItReturns) {
    Plain(29, 5);
    paints = 0;
    grid.setRedraw(false);
    for (int r = 0; r < 29; ++r)
        for (int c = 0; c < 5; ++c) grid.setTextMatrix(r, c, std::to_string(r * c));
    grid.setColWidth(-1, 700);
    grid.setRowSel(3);
    EXPECT_EQ(paints, 0);
    grid.setRedraw(true);
    EXPECT_EQ(paints, 1);
}

TEST_F(CellGridTest, ColouringEveryCellUnderRedrawFalsePaintsOnce) {
    // The way the control colours its rows: Row and Col for every cell inside a Redraw lock.
    Plain(29, 12);
    paints = 0;
    const bool before = grid.Redraw();
    grid.setRedraw(false);
    for (int r = 0; r < grid.Rows(); ++r) {
        grid.setRow(r);
        for (int c = 0; c < grid.Cols(); ++c) {
            grid.setCol(c);
            grid.setCellBackColor(r % 2 ? 0xF0F0F0 : 0xFFFFFF);
        }
    }
    grid.setRedraw(before);
    EXPECT_EQ(paints, 1);
    EXPECT_EQ(grid.View(3, 11).back, 0xF0F0F0u);
}

TEST_F(CellGridTest, NestedRedrawLocksPaintOnlyWhenTheOuterOneEnds) {
    paints = 0;
    grid.setRedraw(false);
    const bool remembered = grid.Redraw();
    grid.setRedraw(false);
    grid.setTextMatrix(1, 1, "x");
    grid.setRedraw(remembered);
    EXPECT_EQ(paints, 0);
    grid.setRedraw(true);
    EXPECT_EQ(paints, 1);
}

TEST_F(CellGridTest, MovingTheCurrentCellWithoutAShownSelectionDoesNotRepaint) {
    Plain(5, 5);
    paints = 0;
    grid.setRow(3);
    grid.setCol(4);
    EXPECT_EQ(paints, 0);
    grid.setRowSel(4);
    EXPECT_EQ(paints, 1);
    grid.setRow(0);  // the highlight goes
    EXPECT_EQ(paints, 2);
}

TEST_F(CellGridTest, AHiddenGridRequestsNoPaint) {
    grid.setVisible(false);
    paints = 0;
    grid.setTextMatrix(1, 1, "x");
    grid.setRedraw(true);
    EXPECT_EQ(paints, 0);
}

TEST_F(CellGridTest, AHandlerThatShrinksTheGridDuringAMoveLeavesItConsistent) {
    Plain(10, 2);
    grid.onLeaveCell = [](CellGrid& g) { g.setRows(3); };
    grid.setRow(8);
    EXPECT_EQ(grid.Rows(), 3);
    EXPECT_EQ(grid.Row(), 2);
    EXPECT_EQ(grid.RowSel(), 2);
    EXPECT_EQ(grid.Text(), "");
}

}  // namespace
}  // namespace TabulonLib12::testing
