// The working table: a vector of rows, each of Cols() texts.
#include "pages/working_table.h"

#include "platform/runtime/error.h"
#include "platform/runtime/text.h"

namespace TabulonLib12 {

void WorkingTable::setRows(int rows) {
    if (rows < 0) throw Error::InvalidValue();
    cells_.resize(static_cast<size_t>(rows), std::vector<std::string>(static_cast<size_t>(cols_)));
}

void WorkingTable::RequireCell(int row, int col) const {
    if (row < 0 || row >= Rows() || col < 0 || col >= cols_) throw Error::OutOfBounds();
}

const std::string& WorkingTable::TextMatrix(int row, int col) const {
    RequireCell(row, col);
    return cells_[static_cast<size_t>(row)][static_cast<size_t>(col)];
}

void WorkingTable::setTextMatrix(int row, int col, const std::string& text) {
    RequireCell(row, col);
    cells_[static_cast<size_t>(row)][static_cast<size_t>(col)] = text;
}

void WorkingTable::AddItem(const std::string& item, int index) {
    if (index < 0 || index > Rows()) throw Error::OutOfBounds();
    std::vector<std::string> row(static_cast<size_t>(cols_));
    size_t col = 0;
    ForEachPiece(item, '\t', [&](std::string_view piece) {
        if (col >= row.size()) return true;  // pieces beyond the last cell are dropped
        row[col++] = std::string(piece);
        return false;
    });
    cells_.insert(cells_.begin() + index, std::move(row));
}

void WorkingTable::RemoveItem(int index) {
    if (index < 0 || index >= Rows()) throw Error::OutOfBounds();
    if (Rows() == 1) throw Error(ErrorKind::InvalidValue, 30015, "The last row of the table cannot be removed");
    cells_.erase(cells_.begin() + index);
}

}  // namespace TabulonLib12
