// The cell surface under the mouse and the keys.
#include "cell_grid_fixture.h"

namespace TabulonLib12::testing {
namespace {

// Surface coordinates of the middle of a cell with default sizes (960 by 240 twips); the grid
// stands at 30, 345.
float X(int col) { return 30.0f + col * 960.0f + 480.0f; }
float Y(int row) { return 345.0f + row * 240.0f + 120.0f; }

using CellGridMouse = CellGridTest;

TEST_F(CellGridMouse, RowAtAndColAtFindTheCellOfAPoint) {
    Plain(3, 3);
    grid.setColWidth(1, 0);  // a hidden column is never hit
    EXPECT_EQ(grid.RowAt(0), 0);
    EXPECT_EQ(grid.RowAt(239.9f), 0);
    EXPECT_EQ(grid.RowAt(240), 1);
    EXPECT_EQ(grid.RowAt(719), 2);
    EXPECT_EQ(grid.RowAt(720), -1);
    EXPECT_EQ(grid.RowAt(-1), -1);
    EXPECT_EQ(grid.ColAt(959), 0);
    EXPECT_EQ(grid.ColAt(960), 2);
    EXPECT_EQ(grid.ColAt(1920), -1);
}

TEST_F(CellGridMouse, LeftPressMakesTheCellCurrentBeforeMouseDownIsRaised) {
    Plain(10, 4);
    WatchGrid();
    Watch(grid);
    grid.onGotFocus = nullptr;
    surface.MouseDown(MouseButton::Left, 0, X(2), Y(5));
    EXPECT_EQ(grid.Row(), 5);
    EXPECT_EQ(grid.Col(), 2);
    EXPECT_EQ(log, (Log{"leave 1,1", "enter 5,2", "rowcol 5,2", "sel 5,2-5,2", "FG1 down 1 2400,1320"}));
}

TEST_F(CellGridMouse, APressInFreeModeShowsNoSelection) {
    Plain(10, 4);
    grid.setRowSel(4);
    surface.MouseDown(MouseButton::Left, 0, X(2), Y(5));
    EXPECT_FALSE(grid.SelectionShown());
    EXPECT_EQ(grid.RowSel(), 5);
    EXPECT_EQ(grid.ColSel(), 2);
}

TEST_F(CellGridMouse, APressInByRowModeSelectsTheWholeRow) {
    Plain(10, 4);
    grid.setSelectionMode(1);
    surface.MouseDown(MouseButton::Left, 0, X(2), Y(5));
    EXPECT_EQ(grid.Row(), 5);
    EXPECT_EQ(grid.Col(), 2);
    EXPECT_EQ(grid.RowSel(), 5);
    EXPECT_EQ(grid.ColSel(), 3);
    EXPECT_TRUE(grid.SelectionShown());
    for (int c = 0; c < 4; ++c) EXPECT_TRUE(grid.View(5, c).selected);
    EXPECT_FALSE(grid.View(4, 0).selected);
}

TEST_F(CellGridMouse, APressInByColumnModeSelectsTheWholeColumn) {
    Plain(10, 4);
    grid.setSelectionMode(2);
    surface.MouseDown(MouseButton::Left, 0, X(2), Y(5));
    EXPECT_EQ(grid.RowSel(), 9);
    EXPECT_EQ(grid.ColSel(), 2);
    EXPECT_TRUE(grid.View(0, 2).selected);
    EXPECT_FALSE(grid.View(5, 1).selected);
}

TEST_F(CellGridMouse, APressOnAFixedCellLeavesTheCurrentCell) {
    grid.setRows(5);
    grid.setCols(3);
    grid.setRow(3);
    surface.MouseDown(MouseButton::Left, 0, X(2), Y(0));
    EXPECT_EQ(grid.Row(), 3);
    EXPECT_EQ(grid.Col(), 1);
    EXPECT_EQ(grid.MouseRow(), 0);
    EXPECT_EQ(grid.MouseCol(), 2);
}

TEST_F(CellGridMouse, ARightPressLeavesTheCurrentCell) {
    Plain(10, 4);
    int downs = 0;
    grid.onMouseDown = [&](Element&, int16_t& button, int16_t&, float&, float&) {
        EXPECT_EQ(button, MouseButton::Right);
        ++downs;
    };
    surface.MouseDown(MouseButton::Right, 0, X(2), Y(5));
    EXPECT_EQ(grid.Row(), 1);
    EXPECT_EQ(downs, 1);
    EXPECT_EQ(grid.MouseRow(), 5);
}

TEST_F(CellGridMouse, APressBelowTheLastRowMovesNothing) {
    Plain(3, 2);
    surface.MouseDown(MouseButton::Left, 0, X(0), Y(6));
    EXPECT_EQ(grid.Row(), 1);
    EXPECT_EQ(grid.MouseRow(), -1);
}

TEST_F(CellGridMouse, DraggingWithTheLeftButtonExtendsTheSelection) {
    Plain(10, 4);
    surface.MouseDown(MouseButton::Left, 0, X(1), Y(2));
    WatchGrid();
    surface.MouseMove(MouseButton::Left, 0, X(3), Y(6));
    EXPECT_EQ(grid.Row(), 2);
    EXPECT_EQ(grid.Col(), 1);
    EXPECT_EQ(grid.RowSel(), 6);
    EXPECT_EQ(grid.ColSel(), 3);
    EXPECT_TRUE(grid.SelectionShown());
    EXPECT_TRUE(grid.View(4, 2).selected);
    EXPECT_FALSE(grid.View(4, 0).selected);
    EXPECT_EQ(log, (Log{"sel 2,1-6,3"}));
}

TEST_F(CellGridMouse, DraggingInByRowModeExtendsOverWholeRows) {
    Plain(10, 4);
    grid.setSelectionMode(1);
    surface.MouseDown(MouseButton::Left, 0, X(1), Y(2));
    surface.MouseMove(MouseButton::Left, 0, X(1), Y(4));
    EXPECT_EQ(grid.RowSel(), 4);
    EXPECT_EQ(grid.ColSel(), 3);
    EXPECT_TRUE(grid.View(3, 0).selected);
}

TEST_F(CellGridMouse, DraggingPastTheEdgeStopsAtTheLastCell) {
    Plain(5, 3);
    surface.MouseDown(MouseButton::Left, 0, X(1), Y(1));
    surface.MouseMove(MouseButton::Left, 0, 14000, 7000);
    EXPECT_EQ(grid.RowSel(), 4);
    EXPECT_EQ(grid.ColSel(), 2);
    surface.MouseMove(MouseButton::Left, 0, 0, 0);  // above and left of the cells
    EXPECT_EQ(grid.RowSel(), 0);
    EXPECT_EQ(grid.ColSel(), 0);
}

TEST_F(CellGridMouse, MovingWithoutAPressSelectsNothing) {
    Plain(5, 3);
    surface.MouseMove(MouseButton::Left, 0, X(2), Y(3));
    EXPECT_EQ(grid.RowSel(), 1);
    EXPECT_FALSE(grid.SelectionShown());
    surface.MouseDown(MouseButton::Left, 0, X(0), Y(0));
    surface.MouseUp(MouseButton::Left, 0, X(0), Y(0));
    surface.MouseMove(MouseButton::Left, 0, X(2), Y(3));
    EXPECT_EQ(grid.RowSel(), 0);
}

TEST_F(CellGridMouse, ShiftPressExtendsTheSelectionInFreeMode) {
    Plain(10, 4);
    surface.MouseDown(MouseButton::Left, 0, X(1), Y(2));
    surface.MouseUp(MouseButton::Left, 0, X(1), Y(2));
    surface.MouseDown(MouseButton::Left, ShiftState::Shift, X(3), Y(4));
    EXPECT_EQ(grid.Row(), 2);
    EXPECT_EQ(grid.RowSel(), 4);
    EXPECT_EQ(grid.ColSel(), 3);
    EXPECT_TRUE(grid.SelectionShown());
}

TEST_F(CellGridMouse, MouseRowAndMouseColFollowEveryMouseEvent) {
    Plain(10, 4);
    int16_t seenRow = -9;
    grid.onMouseMove = [&](Element& e, int16_t&, int16_t&, float&, float&) {
        seenRow = static_cast<int16_t>(static_cast<CellGrid&>(e).MouseRow());
    };
    surface.MouseMove(0, 0, X(3), Y(7));
    EXPECT_EQ(grid.MouseRow(), 7);
    EXPECT_EQ(grid.MouseCol(), 3);
    EXPECT_EQ(seenRow, 7);  // updated before the event
    surface.MouseMove(0, 0, 14000, Y(7));  // beyond the last column
    EXPECT_EQ(grid.MouseCol(), -1);
    surface.MouseDown(MouseButton::Left, 0, X(0), Y(1));
    surface.MouseUp(MouseButton::Left, 0, X(2), Y(4));
    EXPECT_EQ(grid.MouseRow(), 4);
    EXPECT_EQ(grid.MouseCol(), 2);
}

TEST_F(CellGridMouse, AClickComesAfterTheCellChange) {
    Plain(10, 4);
    int32_t rowAtClick = -1;
    grid.onClick = [&](Element& e) { rowAtClick = static_cast<CellGrid&>(e).Row(); };
    surface.MouseDown(MouseButton::Left, 0, X(0), Y(6));
    surface.MouseUp(MouseButton::Left, 0, X(0), Y(6));
    EXPECT_EQ(rowAtClick, 6);
}

TEST_F(CellGridMouse, APressGivesTheGridTheFocus) {
    Plain(10, 4);
    surface.MouseDown(MouseButton::Left, 0, X(0), Y(6));
    EXPECT_TRUE(grid.HasFocus());
}

using CellGridKeys = CellGridTest;

TEST_F(CellGridKeys, ArrowsMoveWithinTheNonFixedCells) {
    grid.setRows(4);
    grid.setCols(4);
    grid.HandleKeyDown(40, 0);
    grid.HandleKeyDown(40, 0);
    EXPECT_EQ(grid.Row(), 3);
    grid.HandleKeyDown(40, 0);  // the last row
    EXPECT_EQ(grid.Row(), 3);
    for (int i = 0; i < 5; ++i) grid.HandleKeyDown(38, 0);
    EXPECT_EQ(grid.Row(), 1);  // never into the fixed row
    grid.HandleKeyDown(39, 0);
    EXPECT_EQ(grid.Col(), 2);
    grid.HandleKeyDown(37, 0);
    grid.HandleKeyDown(37, 0);
    EXPECT_EQ(grid.Col(), 1);
}

TEST_F(CellGridKeys, HomeAndEndGoToTheFirstAndLastColumn) {
    grid.setRows(5);
    grid.setCols(6);
    grid.setRow(2);
    grid.HandleKeyDown(35, 0);
    EXPECT_EQ(grid.Col(), 5);
    EXPECT_EQ(grid.Row(), 2);
    grid.HandleKeyDown(36, 0);
    EXPECT_EQ(grid.Col(), 1);
    grid.HandleKeyDown(35, ShiftState::Ctrl);
    EXPECT_EQ(grid.Row(), 4);
    grid.HandleKeyDown(36, ShiftState::Ctrl);
    EXPECT_EQ(grid.Row(), 1);
    EXPECT_EQ(grid.Col(), 1);
}

TEST_F(CellGridKeys, KeyDownIsRaisedAfterTheMove) {
    Plain(5, 2);
    grid.SetFocus();
    WatchGrid();
    grid.onKeyDown = [this](Element& e, int16_t& key, int16_t&) {
        log.push_back("key " + std::to_string(key) + " at " + Cell(static_cast<CellGrid&>(e)));
    };
    surface.KeyDown(40, 0);
    EXPECT_EQ(log, (Log{"leave 1,1", "enter 2,1", "rowcol 2,1", "sel 2,1-2,1", "key 40 at 2,1"}));
}

TEST_F(CellGridKeys, OtherKeysMoveNothingButAreRaised) {
    Plain(5, 2);
    int keys = 0;
    grid.onKeyDown = [&](Element&, int16_t&, int16_t&) { ++keys; };
    grid.HandleKeyDown(65, 0);
    grid.HandleKeyDown(33, 0);
    EXPECT_EQ(grid.Row(), 1);
    EXPECT_EQ(keys, 2);
}

TEST_F(CellGridKeys, ArrowsInByRowModeKeepTheWholeRowSelected) {
    Plain(5, 3);
    grid.setSelectionMode(1);
    grid.HandleKeyDown(40, 0);
    EXPECT_EQ(grid.Row(), 2);
    EXPECT_TRUE(grid.SelectionShown());
    EXPECT_TRUE(grid.View(2, 0).selected);
    EXPECT_TRUE(grid.View(2, 2).selected);
    EXPECT_FALSE(grid.View(1, 0).selected);
}

TEST_F(CellGridKeys, AGridWithoutNonFixedCellsIgnoresArrows) {
    grid.setRows(1);
    grid.HandleKeyDown(40, 0);
    EXPECT_EQ(grid.Row(), 0);
}

}  // namespace
}  // namespace TabulonLib12::testing
