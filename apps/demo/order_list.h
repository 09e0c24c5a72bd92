#pragma once
// The demo's list of orders, built from elements on one surface: a heading band of captions,
// the cell grid and a count line, inside a thin outline. Filled from the sample database through
// the database interface; laid out again whenever the surface changes size.
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "platform/db/database.h"
#include "platform/ui/cell_grid.h"
#include "platform/ui/surface.h"

namespace TabulonLib12::Demo {

class OrderList {
public:
    explicit OrderList(Surface& surface);

    // Reads the first `rows` orders of the database into the grid. Failures are Errors of the
    // engine (a missing file, a query the schema does not know).
    void Load(DatabaseEngine& engine, const std::string& databasePath, int32_t rows);
    CellGrid& Grid() const { return *grid_; }

    // Called with the grid row and column (from 0) of a click on a cell.
    std::function<void(int32_t row, int32_t col)> onCellClick;

private:
    struct Column {
        std::string caption;
        std::string field;
        int16_t alignment;
        int32_t naturalWidth = 0;  // twips: the widest text of the column, padded
    };
    void Layout();
    void SizeColumns();
    void PlaceHeadings();

    Surface& surface_;
    std::vector<Column> columns_;
    Frame* band_ = nullptr;
    std::vector<Label*> headings_;
    std::vector<Frame*> separators_;
    CellGrid* grid_ = nullptr;
    Label* count_ = nullptr;
    Shape* outline_ = nullptr;
};

// A row colour given as "r,g,b" with three numbers from 0 to 255; false for anything else.
bool ColourFromText(const std::string& text, Colour& colour);

}  // namespace TabulonLib12::Demo
