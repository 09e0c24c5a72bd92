#pragma once
// A cell grid on the test surface, with its grid events logged.
#include "ui_fixture.h"

namespace TabulonLib12::testing {

class CellGridTest : public UiTest {
protected:
    CellGridTest() : grid(surface.CreateCellGrid("FG1")) { grid.Move(30, 345, 15000, 7140); }

    static std::string Cell(const CellGrid& g) { return std::to_string(g.Row()) + "," + std::to_string(g.Col()); }

    void WatchGrid() {
        grid.onLeaveCell = [this](CellGrid& g) { log.push_back("leave " + Cell(g)); };
        grid.onEnterCell = [this](CellGrid& g) { log.push_back("enter " + Cell(g)); };
        grid.onRowColChange = [this](CellGrid& g) { log.push_back("rowcol " + Cell(g)); };
        grid.onSelChange = [this](CellGrid& g) {
            log.push_back("sel " + Cell(g) + "-" + std::to_string(g.RowSel()) + "," + std::to_string(g.ColSel()));
        };
    }

    // The control's own layout: no fixed cells, `rows` by `cols`.
    void Plain(int32_t rows, int32_t cols) {
        grid.setFixedRows(0);
        grid.setFixedCols(0);
        grid.setRows(rows);
        grid.setCols(cols);
    }

    CellGrid& grid;
};

}  // namespace TabulonLib12::testing
