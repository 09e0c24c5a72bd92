#include "platform/ui/cell_grid.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "platform/runtime/error.h"
#include "platform/ui/surface.h"

namespace TabulonLib12 {

namespace {

constexpr int32_t kDefaultColWidth = 960;
constexpr int32_t kRowPadding = 45;  // twips added to the font's line height

Error InvalidRowError() { return Error(ErrorKind::InvalidValue, CellGridError::InvalidRow, "Invalid Row value"); }
Error InvalidColError() { return Error(ErrorKind::InvalidValue, CellGridError::InvalidCol, "Invalid Col value"); }
Error BadIndexError() { return Error(ErrorKind::OutOfBounds, CellGridError::InvalidIndex, "Subscript out of range"); }

int32_t Saturate(int64_t v) {
    return static_cast<int32_t>(std::min<int64_t>(v, std::numeric_limits<int32_t>::max()));
}

// A current row (column) brought inside `count` rows: -1 when there are none; one that was
// undefined goes to the first non-fixed row, if any.
int32_t Fit(int32_t v, int32_t count, int32_t fixed) {
    if (count <= 0) return -1;
    if (v < 0) return std::min(fixed, count - 1);
    return std::min(v, count - 1);
}

bool Between(int32_t v, int32_t a, int32_t b) { return v >= std::min(a, b) && v <= std::max(a, b); }

}  // namespace

CellGrid::CellGrid(Surface* s, std::string name) : Element(s, ElementKind::CellGrid, std::move(name)) {
    setBackColor(SystemColour::WindowBackground);
    setForeColor(SystemColour::WindowText);
    cells_.resize(static_cast<size_t>(rows_) * cols_);
    colWidths_.assign(cols_, -1);
    rowHeights_.assign(rows_, -1);
    colAlign_.assign(cols_, CellAlign::General);
}

CellGrid::Cell& CellGrid::At(int32_t row, int32_t col) { return cells_[static_cast<size_t>(row) * cols_ + col]; }

const CellGrid::Cell& CellGrid::At(int32_t row, int32_t col) const {
    return cells_[static_cast<size_t>(row) * cols_ + col];
}

void CellGrid::CheckCell(int32_t row, int32_t col) const {
    if (row < 0 || row >= rows_ || col < 0 || col >= cols_) throw BadIndexError();
}

void CellGrid::Changed() { Invalidate(); }

// ---- Size

void CellGrid::setRows(int32_t n) {
    if (n < 0 || n < fixedRows_ || n > MaxCells || static_cast<int64_t>(n) * cols_ > MaxCells)
        throw Error::InvalidValue();
    if (n != rows_) Resize(n, cols_);
}

void CellGrid::setCols(int32_t n) {
    if (n < 0 || n < fixedCols_ || n > MaxCells || static_cast<int64_t>(rows_) * n > MaxCells)
        throw Error::InvalidValue();
    if (n != cols_) Resize(rows_, n);
}

void CellGrid::setFixedRows(int32_t n) {
    if (n < 0 || n > rows_) throw Error::InvalidValue();
    if (n == fixedRows_) return;
    fixedRows_ = n;
    Changed();
}

void CellGrid::setFixedCols(int32_t n) {
    if (n < 0 || n > cols_) throw Error::InvalidValue();
    if (n == fixedCols_) return;
    fixedCols_ = n;
    Changed();
}

void CellGrid::Resize(int32_t rows, int32_t cols) {
    // Build the new cells first: a failed allocation leaves the grid as it was.
    std::vector<Cell> cells(static_cast<size_t>(rows) * cols);
    const int32_t keepRows = std::min(rows, rows_), keepCols = std::min(cols, cols_);
    for (int32_t r = 0; r < keepRows; ++r)
        for (int32_t c = 0; c < keepCols; ++c) cells[static_cast<size_t>(r) * cols + c] = std::move(At(r, c));
    cells_.swap(cells);
    colWidths_.resize(cols, -1);
    rowHeights_.resize(rows, -1);
    colAlign_.resize(cols, CellAlign::General);
    rows_ = rows;
    cols_ = cols;
    Changed();
    FitCurrentToSize(row_, col_, rowSel_, colSel_);
}

void CellGrid::FitCurrentToSize(int32_t oldRow, int32_t oldCol, int32_t oldRowSel, int32_t oldColSel) {
    row_ = Fit(row_, rows_, fixedRows_);
    col_ = Fit(col_, cols_, fixedCols_);
    rowSel_ = Fit(rowSel_, rows_, fixedRows_);
    colSel_ = Fit(colSel_, cols_, fixedCols_);
    const bool moved = row_ != oldRow || col_ != oldCol;
    const bool selChanged = moved || rowSel_ != oldRowSel || colSel_ != oldColSel;
    Surface::DispatchScope scope(Owner());
    if (moved) Surface::RaiseEvent(*this, onRowColChange, *this);
    if (selChanged) Surface::RaiseEvent(*this, onSelChange, *this);
}

// ---- Current cell and selection

void CellGrid::Place(int32_t row, int32_t col, int32_t rowSel, int32_t colSel, bool shown) {
    Surface::DispatchScope scope(Owner());
    const int32_t oldRow = row_, oldCol = col_, oldRowSel = rowSel_, oldColSel = colSel_;
    const bool wasShown = SelectionShown();
    const bool moved = row != row_ || col != col_;
    if (moved) Surface::RaiseEvent(*this, onLeaveCell, *this);
    // A LeaveCell handler may have changed the size: keep the request inside the cells.
    auto inside = [](int32_t v, int32_t count) { return count <= 0 ? -1 : std::clamp(v, 0, count - 1); };
    row_ = inside(row, rows_);
    col_ = inside(col, cols_);
    rowSel_ = inside(rowSel, rows_);
    colSel_ = inside(colSel, cols_);
    selectionShown_ = shown;
    const bool isShown = SelectionShown();
    const bool rangeChanged = row_ != oldRow || col_ != oldCol || rowSel_ != oldRowSel || colSel_ != oldColSel;
    // Only the highlighted range is drawn differently: a move without a shown selection
    // leaves the picture as it is.
    if (wasShown != isShown || (isShown && rangeChanged)) Changed();
    if (moved) {
        Surface::RaiseEvent(*this, onEnterCell, *this);
        Surface::RaiseEvent(*this, onRowColChange, *this);
    }
    if (rangeChanged) Surface::RaiseEvent(*this, onSelChange, *this);
}

void CellGrid::setRow(int32_t r) {
    if (r < 0 || r >= rows_) throw InvalidRowError();
    Place(r, col_, r, col_, false);
}

void CellGrid::setCol(int32_t c) {
    if (c < 0 || c >= cols_) throw InvalidColError();
    Place(row_, c, row_, c, false);
}

void CellGrid::setRowSel(int32_t r) {
    if (r < 0 || r >= rows_) throw InvalidRowError();
    Place(row_, col_, r, colSel_, true);
}

void CellGrid::setColSel(int32_t c) {
    if (c < 0 || c >= cols_) throw InvalidColError();
    Place(row_, col_, rowSel_, c, true);
}

bool CellGrid::SelectionShown() const {
    if (!selectionShown_) return false;
    return highLight_ == 1 || (highLight_ == 2 && HasFocus());
}

void CellGrid::setHighLight(int16_t h) {
    if (h < 0 || h > 2) throw Error::InvalidValue();
    if (h == highLight_) return;
    highLight_ = h;
    Changed();
}

void CellGrid::setSelectionMode(int16_t m) {
    if (m < 0 || m > 2) throw Error::InvalidValue();
    if (m == selectionMode_) return;
    selectionMode_ = m;
    Changed();
}

bool CellGrid::InSelection(int32_t row, int32_t col) const {
    if (IsFixed(row, col) || !SelectionShown()) return false;
    switch (selectionMode_) {
        case 1: return Between(row, row_, rowSel_);
        case 2: return Between(col, col_, colSel_);
        default: return Between(row, row_, rowSel_) && Between(col, col_, colSel_);
    }
}

// ---- Cells

const std::string& CellGrid::TextMatrix(int32_t row, int32_t col) const {
    CheckCell(row, col);
    return At(row, col).text;
}

void CellGrid::setTextMatrix(int32_t row, int32_t col, const std::string& text) {
    CheckCell(row, col);
    std::string& cell = At(row, col).text;
    if (cell == text) return;
    cell = text;
    Changed();
}

int32_t CellGrid::DefaultRowHeight() const {
    return Saturate(static_cast<int64_t>(Owner().Metrics().TextHeight(GetFont())) + kRowPadding);
}

int32_t CellGrid::ColWidth(int32_t col) const {
    if (col < 0 || col >= cols_) throw BadIndexError();
    const int32_t w = colWidths_[col];
    return w < 0 ? kDefaultColWidth : w;
}

void CellGrid::setColWidth(int32_t col, int32_t width) {
    if (width < -1) throw Error::InvalidValue();
    if (col == -1) {
        std::fill(colWidths_.begin(), colWidths_.end(), width);
    } else {
        if (col < 0 || col >= cols_) throw BadIndexError();
        if (colWidths_[col] == width) return;
        colWidths_[col] = width;
    }
    Changed();
}

int32_t CellGrid::RowHeight(int32_t row) const {
    if (row < 0 || row >= rows_) throw BadIndexError();
    const int32_t h = rowHeights_[row];
    return h < 0 ? DefaultRowHeight() : h;
}

void CellGrid::setRowHeight(int32_t row, int32_t height) {
    if (height < -1) throw Error::InvalidValue();
    if (row == -1) {
        std::fill(rowHeights_.begin(), rowHeights_.end(), height);
    } else {
        if (row < 0 || row >= rows_) throw BadIndexError();
        if (rowHeights_[row] == height) return;
        rowHeights_[row] = height;
    }
    Changed();
}

int32_t CellGrid::ColPos(int32_t col) const {
    if (col < 0 || col >= cols_) throw BadIndexError();
    int64_t pos = 0;
    for (int32_t c = 0; c < col; ++c) pos += colWidths_[c] < 0 ? kDefaultColWidth : colWidths_[c];
    return Saturate(pos);
}

int32_t CellGrid::RowPos(int32_t row) const {
    if (row < 0 || row >= rows_) throw BadIndexError();
    const int32_t byFont = DefaultRowHeight();
    int64_t pos = 0;
    for (int32_t r = 0; r < row; ++r) pos += rowHeights_[r] < 0 ? byFont : rowHeights_[r];
    return Saturate(pos);
}

int16_t CellGrid::ColAlignment(int32_t col) const {
    if (col < 0 || col >= cols_) throw BadIndexError();
    return colAlign_[col];
}

void CellGrid::setColAlignment(int32_t col, int16_t alignment) {
    if (alignment < CellAlign::LeftTop || alignment > CellAlign::General) throw Error::InvalidValue();
    if (col == -1) {
        std::fill(colAlign_.begin(), colAlign_.end(), alignment);
    } else {
        if (col < 0 || col >= cols_) throw BadIndexError();
        if (colAlign_[col] == alignment) return;
        colAlign_[col] = alignment;
    }
    Changed();
}

// ---- Members of the current cell

Colour CellGrid::CellBackColor() const {
    CheckCell(row_, col_);
    const Cell& cell = At(row_, col_);
    if (cell.hasBack) return cell.back;
    return IsFixed(row_, col_) ? backColorFixed_ : BackColor();
}

void CellGrid::setCellBackColor(Colour c) {
    CheckCell(row_, col_);
    Cell& cell = At(row_, col_);
    if (cell.hasBack && cell.back == c) return;
    cell.hasBack = true;
    cell.back = c;
    Changed();
}

Colour CellGrid::CellForeColor() const {
    CheckCell(row_, col_);
    const Cell& cell = At(row_, col_);
    if (cell.hasFore) return cell.fore;
    return IsFixed(row_, col_) ? foreColorFixed_ : ForeColor();
}

void CellGrid::setCellForeColor(Colour c) {
    CheckCell(row_, col_);
    Cell& cell = At(row_, col_);
    if (cell.hasFore && cell.fore == c) return;
    cell.hasFore = true;
    cell.fore = c;
    Changed();
}

bool CellGrid::CellFontUnderline() const {
    CheckCell(row_, col_);
    return At(row_, col_).underline;
}

void CellGrid::setCellFontUnderline(bool u) {
    CheckCell(row_, col_);
    Cell& cell = At(row_, col_);
    if (cell.underline == u) return;
    cell.underline = u;
    Changed();
}

const Picture& CellGrid::CellPicture() const {
    CheckCell(row_, col_);
    return At(row_, col_).picture;
}

void CellGrid::setCellPicture(Picture p) {
    CheckCell(row_, col_);
    Cell& cell = At(row_, col_);
    if (cell.picture == p) return;
    cell.picture = std::move(p);
    Changed();
}

int16_t CellGrid::CellPictureAlignment() const {
    CheckCell(row_, col_);
    return At(row_, col_).pictureAlignment;
}

void CellGrid::setCellPictureAlignment(int16_t a) {
    if (a < CellAlign::LeftTop || a > CellAlign::RightBottom) throw Error::InvalidValue();
    CheckCell(row_, col_);
    Cell& cell = At(row_, col_);
    if (cell.pictureAlignment == a) return;
    cell.pictureAlignment = a;
    Changed();
}

CellGrid::CellView CellGrid::View(int32_t row, int32_t col) const {
    CheckCell(row, col);
    const Cell& cell = At(row, col);
    const bool fixed = IsFixed(row, col);
    const bool selected = InSelection(row, col);
    Colour back, fore;
    if (selected) {
        back = backColorSel_;
        fore = foreColorSel_;
    } else {
        back = cell.hasBack ? cell.back : fixed ? backColorFixed_ : BackColor();
        fore = cell.hasFore ? cell.fore : fixed ? foreColorFixed_ : ForeColor();
    }
    return CellView{&cell.text,     ResolveColour(back),    ResolveColour(fore), cell.underline,
                    &cell.picture, cell.pictureAlignment, selected};
}

// ---- Drawing, clearing, rows of text

void CellGrid::setRedraw(bool v) {
    redraw_ = v;
    if (v) Changed();  // one paint for everything written while it was off
}

void CellGrid::Clear() {
    for (Cell& cell : cells_) cell = Cell{};
    Changed();
}

void CellGrid::AddItem(const std::string& tabbedTexts, int32_t index) {
    if (index == -1) index = rows_;
    if (index < 0 || index > rows_) throw BadIndexError();
    if (rows_ >= MaxCells || (static_cast<int64_t>(rows_) + 1) * cols_ > MaxCells) throw Error::InvalidValue();
    std::vector<Cell> row(cols_);
    size_t start = 0;
    for (int32_t c = 0; c < cols_; ++c) {
        const size_t tab = tabbedTexts.find('\t', start);
        row[c].text = tabbedTexts.substr(start, tab == std::string::npos ? std::string::npos : tab - start);
        if (tab == std::string::npos) break;
        start = tab + 1;
    }
    const auto at = cells_.begin() + static_cast<std::ptrdiff_t>(index) * cols_;
    cells_.insert(at, std::make_move_iterator(row.begin()), std::make_move_iterator(row.end()));
    rowHeights_.insert(rowHeights_.begin() + index, -1);
    ++rows_;
    Changed();
    FitCurrentToSize(row_, col_, rowSel_, colSel_);
}

void CellGrid::RemoveItem(int32_t index) {
    if (index < 0 || index >= rows_ || index < fixedRows_) throw BadIndexError();
    if (rows_ - fixedRows_ <= 1)
        throw Error(ErrorKind::InvalidValue, CellGridError::CannotRemoveLastRow, "Cannot remove last non-fixed row");
    const auto at = cells_.begin() + static_cast<std::ptrdiff_t>(index) * cols_;
    cells_.erase(at, at + cols_);
    rowHeights_.erase(rowHeights_.begin() + index);
    --rows_;
    Changed();
    FitCurrentToSize(row_, col_, rowSel_, colSel_);
}

// ---- Look

void CellGrid::setBackColorBkg(Colour c) {
    if (c == backColorBkg_) return;
    backColorBkg_ = c;
    Changed();
}

void CellGrid::setBackColorFixed(Colour c) {
    if (c == backColorFixed_) return;
    backColorFixed_ = c;
    Changed();
}

void CellGrid::setForeColorFixed(Colour c) {
    if (c == foreColorFixed_) return;
    foreColorFixed_ = c;
    Changed();
}

void CellGrid::setBackColorSel(Colour c) {
    if (c == backColorSel_) return;
    backColorSel_ = c;
    Changed();
}

void CellGrid::setForeColorSel(Colour c) {
    if (c == foreColorSel_) return;
    foreColorSel_ = c;
    Changed();
}

void CellGrid::setGridColor(Colour c) {
    if (c == gridColor_) return;
    gridColor_ = c;
    Changed();
}

void CellGrid::setGridColorFixed(Colour c) {
    if (c == gridColorFixed_) return;
    gridColorFixed_ = c;
    Changed();
}

void CellGrid::setGridLines(int16_t g) {
    if (g < 0 || g > 3) throw Error::InvalidValue();
    if (g == gridLines_) return;
    gridLines_ = g;
    Changed();
}

void CellGrid::setGridLinesFixed(int16_t g) {
    if (g < 0 || g > 3) throw Error::InvalidValue();
    if (g == gridLinesFixed_) return;
    gridLinesFixed_ = g;
    Changed();
}

void CellGrid::setFont(const Font& f) { Element::setFont(f); }

// ---- Mouse and keys

int32_t CellGrid::RowAt(float y) const {
    if (!(y >= 0.0f)) return -1;
    const int32_t byFont = DefaultRowHeight();
    int64_t pos = 0;
    for (int32_t r = 0; r < rows_; ++r) {
        pos += rowHeights_[r] < 0 ? byFont : rowHeights_[r];
        if (y < static_cast<double>(pos)) return r;
    }
    return -1;
}

int32_t CellGrid::ColAt(float x) const {
    if (!(x >= 0.0f)) return -1;
    int64_t pos = 0;
    for (int32_t c = 0; c < cols_; ++c) {
        pos += colWidths_[c] < 0 ? kDefaultColWidth : colWidths_[c];
        if (x < static_cast<double>(pos)) return c;
    }
    return -1;
}

void CellGrid::UpdateMouseCell(float x, float y) {
    mouseRow_ = RowAt(y);
    mouseCol_ = ColAt(x);
}

void CellGrid::SelectCell(int32_t row, int32_t col, bool extend) {
    switch (selectionMode_) {
        case 1:
            if (extend)
                Place(row_, col_, row, cols_ - 1, true);
            else
                Place(row, col, row, cols_ - 1, true);
            break;
        case 2:
            if (extend)
                Place(row_, col_, rows_ - 1, col, true);
            else
                Place(row, col, rows_ - 1, col, true);
            break;
        default:
            if (extend)
                Place(row_, col_, row, col, true);
            else
                Place(row, col, row, col, false);
            break;
    }
}

void CellGrid::HandleMouseDown(int16_t button, int16_t shift, float x, float y) {
    Surface::DispatchScope scope(Owner());
    InputScope input(*this);
    UpdateMouseCell(x, y);
    if (button == MouseButton::Left && mouseRow_ >= 0 && mouseCol_ >= 0 && !IsFixed(mouseRow_, mouseCol_)) {
        dragging_ = true;
        SelectCell(mouseRow_, mouseCol_, (shift & ShiftState::Shift) != 0 && row_ >= 0 && col_ >= 0);
    }
    Element::HandleMouseDown(button, shift, x, y);
}

void CellGrid::HandleMouseMove(int16_t button, int16_t shift, float x, float y) {
    Surface::DispatchScope scope(Owner());
    InputScope input(*this);
    UpdateMouseCell(x, y);
    if (dragging_ && (button & MouseButton::Left) && rows_ > fixedRows_ && cols_ > fixedCols_ && row_ >= 0 &&
        col_ >= 0) {
        // Past an edge the selection stops at the last (or first) non-fixed cell.
        int32_t r = mouseRow_, c = mouseCol_;
        if (r < 0) r = y < 0.0f ? fixedRows_ : rows_ - 1;
        if (c < 0) c = x < 0.0f ? fixedCols_ : cols_ - 1;
        r = std::max(r, fixedRows_);
        c = std::max(c, fixedCols_);
        switch (selectionMode_) {
            case 1: Place(row_, col_, r, colSel_, true); break;
            case 2: Place(row_, col_, rowSel_, c, true); break;
            default: Place(row_, col_, r, c, true); break;
        }
    }
    Element::HandleMouseMove(button, shift, x, y);
}

void CellGrid::HandleMouseUp(int16_t button, int16_t shift, float x, float y) {
    Surface::DispatchScope scope(Owner());
    InputScope input(*this);
    UpdateMouseCell(x, y);
    if (button & MouseButton::Left) dragging_ = false;
    Element::HandleMouseUp(button, shift, x, y);
}

void CellGrid::HandleKeyDown(int16_t keyCode, int16_t shift) {
    Surface::DispatchScope scope(Owner());
    InputScope input(*this);
    if (rows_ > fixedRows_ && cols_ > fixedCols_ && row_ >= 0 && col_ >= 0) {
        const bool ctrl = (shift & ShiftState::Ctrl) != 0;
        int32_t r = row_, c = col_;
        bool key = true;
        switch (keyCode) {
            case 37: c = std::max(c - 1, fixedCols_); break;                 // left
            case 38: r = std::max(r - 1, fixedRows_); break;                 // up
            case 39: c = std::clamp(c + 1, fixedCols_, cols_ - 1); break;    // right
            case 40: r = std::clamp(r + 1, fixedRows_, rows_ - 1); break;    // down
            case 36: c = fixedCols_; if (ctrl) r = fixedRows_; break;        // home
            case 35: c = cols_ - 1; if (ctrl) r = rows_ - 1; break;          // end
            default: key = false; break;
        }
        if (key && (r != row_ || c != col_)) SelectCell(r, c, false);
    }
    Element::HandleKeyDown(keyCode, shift);
}

// ---- Control arrays

void CellGrid::CopyFrom(const Element& other) {
    Element::CopyFrom(other);
    const auto& o = static_cast<const CellGrid&>(other);
    rows_ = o.rows_;
    cols_ = o.cols_;
    fixedRows_ = o.fixedRows_;
    fixedCols_ = o.fixedCols_;
    row_ = o.row_;
    col_ = o.col_;
    rowSel_ = o.rowSel_;
    colSel_ = o.colSel_;
    selectionShown_ = o.selectionShown_;
    highLight_ = o.highLight_;
    selectionMode_ = o.selectionMode_;
    cells_ = o.cells_;
    colWidths_ = o.colWidths_;
    rowHeights_ = o.rowHeights_;
    colAlign_ = o.colAlign_;
    redraw_ = o.redraw_;
    backColorBkg_ = o.backColorBkg_;
    backColorFixed_ = o.backColorFixed_;
    foreColorFixed_ = o.foreColorFixed_;
    backColorSel_ = o.backColorSel_;
    foreColorSel_ = o.foreColorSel_;
    gridColor_ = o.gridColor_;
    gridColorFixed_ = o.gridColorFixed_;
    gridLines_ = o.gridLines_;
    gridLinesFixed_ = o.gridLinesFixed_;
    onSelChange = o.onSelChange;
    onEnterCell = o.onEnterCell;
    onLeaveCell = o.onLeaveCell;
    onRowColChange = o.onRowColChange;
}

}  // namespace TabulonLib12
