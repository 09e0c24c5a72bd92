#pragma once
// The working table of the column editor page: one row per column of the control, a fixed
// number of cells per row, every cell a text. It is the page's copy of the column definitions
// between the load of the page and the apply; nothing in it reaches the control until then.
//
// It behaves as the grid it stands for: Rows may be set (new rows are empty, rows past the new
// count are dropped), AddItem inserts a row at an index from 0 to Rows (the cells taken from a
// text with tabs between them, missing ones empty), RemoveItem removes one but never the last.
// A row or cell outside the table fails with Error::OutOfBounds().
#include <cstdint>
#include <string>
#include <vector>

namespace TabulonLib12 {

class WorkingTable {
public:
    explicit WorkingTable(int cols) : cols_(cols) {}

    int Cols() const { return cols_; }
    int Rows() const { return static_cast<int>(cells_.size()); }
    // A negative count fails with Error::InvalidValue().
    void setRows(int rows);

    const std::string& TextMatrix(int row, int col) const;
    void setTextMatrix(int row, int col, const std::string& text);

    // Inserts a row at `index` (0 to Rows); `item` gives its cells, tab-separated.
    void AddItem(const std::string& item, int index);
    // Removes row `index`; with one row left it fails (number 30015) and the row stays.
    void RemoveItem(int index);

private:
    void RequireCell(int row, int col) const;

    int cols_;
    std::vector<std::vector<std::string>> cells_;
};

}  // namespace TabulonLib12
