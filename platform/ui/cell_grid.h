#pragma once
// The cell surface: a grid of text cells with per-cell colours, underline and pictures, a
// current cell, a selection range and the grid's events. It never scrolls by itself: the
// control shows a window of its rows store through it.
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "element.h"

namespace TabulonLib12 {

namespace CellAlign {  // ColAlignment and CellPictureAlignment codes
inline constexpr int16_t LeftTop = 0, LeftCentre = 1, LeftBottom = 2;
inline constexpr int16_t CentreTop = 3, CentreCentre = 4, CentreBottom = 5;
inline constexpr int16_t RightTop = 6, RightCentre = 7, RightBottom = 8;
inline constexpr int16_t General = 9;  // text left, numbers right
}  // namespace CellAlign

// The failures of the grid's members, by the error numbers the control's messages use.
namespace CellGridError {
inline constexpr int32_t InvalidRow = 30009;          // "Invalid Row value"
inline constexpr int32_t InvalidCol = 30010;          // "Invalid Col value"
inline constexpr int32_t InvalidIndex = 381;          // "Subscript out of range" for a cell index
inline constexpr int32_t CannotRemoveLastRow = 30015; // "Cannot remove last non-fixed row"
}  // namespace CellGridError

class CellGrid final : public Element {
public:
    static constexpr int64_t MaxCells = 4 * 1024 * 1024;

    // Size. Rows and Cols keep contents that still fit; a refused value (negative, below the
    // fixed rows or columns, more than MaxCells rows, columns or cells) leaves the old one and
    // throws InvalidValue. Rows 0 (Cols 0) is possible only without fixed rows (columns); the
    // current row (column) is then -1. When a size change moves the current cell or the
    // selection inside the new bounds, RowColChange and SelChange follow as for a move
    // (LeaveCell and EnterCell do not).
    int32_t Rows() const { return rows_; }
    void setRows(int32_t n);
    int32_t Cols() const { return cols_; }
    void setCols(int32_t n);
    int32_t FixedRows() const { return fixedRows_; }
    void setFixedRows(int32_t n);  // 0 to Rows
    int32_t FixedCols() const { return fixedCols_; }
    void setFixedCols(int32_t n);

    // Current cell and selection. Setting Row or Col to another cell raises LeaveCell, then
    // EnterCell and RowColChange; it also reduces the selection to the current cell (SelChange
    // when one of Row, Col, RowSel, ColSel changed). Fixed cells can be made current. Out of
    // range throws InvalidRow / InvalidCol; so do RowSel and ColSel.
    int32_t Row() const { return row_; }
    void setRow(int32_t r);
    int32_t Col() const { return col_; }
    void setCol(int32_t c);
    int32_t RowSel() const { return rowSel_; }
    void setRowSel(int32_t r);
    int32_t ColSel() const { return colSel_; }
    void setColSel(int32_t c);
    // True while a selection set through RowSel/ColSel (or by dragging) is shown highlighted:
    // the non-fixed cells from Row,Col to RowSel,ColSel in BackColorSel and ForeColorSel (in
    // by-row mode every non-fixed cell of the rows from Row to RowSel, in by-column mode of the
    // columns). Writing Row or Col ends it. HighLight 0 hides it, 2 shows it only while the grid
    // has the focus.
    bool SelectionShown() const;
    int16_t HighLight() const { return highLight_; }
    void setHighLight(int16_t h);  // 0 never, 1 always, 2 with focus
    int16_t SelectionMode() const { return selectionMode_; }
    void setSelectionMode(int16_t m);  // 0 free, 1 by row, 2 by column: clicks select whole rows/cols

    // Cells. A bad index throws OutOfBounds (381): cells are 0..Rows-1 by 0..Cols-1.
    const std::string& TextMatrix(int32_t row, int32_t col) const;
    void setTextMatrix(int32_t row, int32_t col, const std::string& text);
    const std::string& Text() const { return TextMatrix(row_, col_); }
    void setText(const std::string& t) { setTextMatrix(row_, col_, t); }

    // Column widths and row heights in twips. -1 restores the default (a column 960 twips, a
    // row the font's line height plus 45 twips); below -1 is refused. Index -1 of the writes sets
    // every column or row. Here and below, other indices outside the columns (rows) throw
    // OutOfBounds (381).
    int32_t ColWidth(int32_t col) const;
    void setColWidth(int32_t col, int32_t width);
    int32_t RowHeight(int32_t row) const;
    void setRowHeight(int32_t row, int32_t height);
    // Offsets from the grid's top-left corner: the sum of the widths (heights) before, for
    // an index from 0 to Cols-1 (Rows-1); ColPos(0) is 0. Sums beyond i32 stop at its largest.
    int32_t ColPos(int32_t col) const;
    int32_t RowPos(int32_t row) const;
    // Every column starts General (9).
    int16_t ColAlignment(int32_t col) const;
    void setColAlignment(int32_t col, int16_t alignment);  // 0 to 9; -1 sets all

    // Members of the current cell (Row, Col).
    Colour CellBackColor() const;  // the column/grid default when none is set
    void setCellBackColor(Colour c);
    Colour CellForeColor() const;
    void setCellForeColor(Colour c);
    bool CellFontUnderline() const;
    void setCellFontUnderline(bool u);
    const Picture& CellPicture() const;
    void setCellPicture(Picture p);
    int16_t CellPictureAlignment() const;
    void setCellPictureAlignment(int16_t a);  // 0 to 8
    int32_t CellTop() const { return RowPos(row_); }
    int32_t CellLeft() const { return ColPos(col_); }
    int32_t CellWidth() const { return ColWidth(col_); }
    int32_t CellHeight() const { return RowHeight(row_); }

    // What the painter reads of any cell without moving the current cell (381 for a bad index).
    // The colours are resolved to plain ones (ResolveColour): the selection colours for a
    // selected cell, else the cell's own, else the fixed colours for a fixed cell, else
    // BackColor / ForeColor. The pointers stay valid until the grid's size changes.
    struct CellView {
        const std::string* text;
        Colour back;
        Colour fore;
        bool underline;
        const Picture* picture;
        int16_t pictureAlignment;
        bool selected;        // within the shown selection
    };
    CellView View(int32_t row, int32_t col) const;

    // Drawing switch: while False nothing is painted; setting it True paints once.
    bool Redraw() const { return redraw_; }
    void setRedraw(bool v);
    // Clears the text, colours, underline and pictures of every cell; size and position stay.
    void Clear();

    // Rows of tab-separated texts, as a list editor uses them. AddItem inserts a row before
    // `index` (0 to Rows; -1 adds at the end); texts beyond the last column are dropped. The
    // current row and selection keep their numbers, clamped after a removal. A fixed row is
    // not removed (381); nor is the last non-fixed row (30015).
    void AddItem(const std::string& tabbedTexts, int32_t index = -1);
    void RemoveItem(int32_t index);

    Colour BackColorBkg() const { return backColorBkg_; }
    void setBackColorBkg(Colour c);
    Colour BackColorFixed() const { return backColorFixed_; }
    void setBackColorFixed(Colour c);
    Colour ForeColorFixed() const { return foreColorFixed_; }
    void setForeColorFixed(Colour c);
    Colour BackColorSel() const { return backColorSel_; }
    void setBackColorSel(Colour c);
    Colour ForeColorSel() const { return foreColorSel_; }
    void setForeColorSel(Colour c);
    Colour GridColor() const { return gridColor_; }
    void setGridColor(Colour c);
    Colour GridColorFixed() const { return gridColorFixed_; }
    void setGridColorFixed(Colour c);
    int16_t GridLines() const { return gridLines_; }
    void setGridLines(int16_t g);  // 0 none, 1 flat, 2 inset, 3 raised
    int16_t GridLinesFixed() const { return gridLinesFixed_; }
    void setGridLinesFixed(int16_t g);
    void setFont(const Font& f) override;  // rows without a height of their own follow the font

    // The cell under the mouse at the last mouse event (-1 outside the cells).
    int32_t MouseRow() const { return mouseRow_; }
    int32_t MouseCol() const { return mouseCol_; }
    // The cell that holds a point in grid twips, or -1.
    int32_t RowAt(float y) const;
    int32_t ColAt(float x) const;

    bool CanFocus() const override { return true; }

    std::function<void(CellGrid&)> onSelChange, onEnterCell, onLeaveCell, onRowColChange;
    // True while the grid handles the user's own mouse or key input, so that a handler can tell
    // a change the user made from one made by code.
    bool HandlingInput() const { return inputDepth_ > 0; }

    // A left press on a non-fixed cell makes it current (events as for Row/Col), then the
    // MouseDown event follows. Free mode collapses the selection (with Shift it extends it
    // instead); by-row mode selects the whole row (RowSel the row, ColSel the last column),
    // by-column mode the whole column, both shown. Dragging with the left button extends the
    // selection to the cell under the pointer (clamped to the non-fixed cells). Arrow keys (37
    // to 40), Home (36) and End (35) move the current cell within the non-fixed cells as a
    // press would, then KeyDown is raised; Ctrl with Home or End goes to the first or last row
    // as well. Every mouse event updates MouseRow and MouseCol first.
    void HandleMouseDown(int16_t button, int16_t shift, float x, float y) override;
    void HandleMouseMove(int16_t button, int16_t shift, float x, float y) override;
    void HandleMouseUp(int16_t button, int16_t shift, float x, float y) override;
    void HandleKeyDown(int16_t keyCode, int16_t shift) override;

private:
    friend class Surface;
    CellGrid(Surface* s, std::string name);
    void CopyFrom(const Element& other) override;
    bool PaintSuspended() const override { return !redraw_; }

    struct Cell {
        std::string text;
        bool hasBack = false, hasFore = false, underline = false;
        Colour back = 0, fore = 0;
        Picture picture;
        int16_t pictureAlignment = CellAlign::LeftCentre;
    };
    Cell& At(int32_t row, int32_t col);
    const Cell& At(int32_t row, int32_t col) const;
    void Resize(int32_t rows, int32_t cols);
    // Moves the current cell and sets the selection, raising the events in their order.
    void Place(int32_t row, int32_t col, int32_t rowSel, int32_t colSel, bool shown);
    // Brings the current cell and the selection inside the size after a size change.
    void FitCurrentToSize(int32_t oldRow, int32_t oldCol, int32_t oldRowSel, int32_t oldColSel);
    int32_t DefaultRowHeight() const;
    // Makes a cell current as a press or a key does, by the selection mode.
    void SelectCell(int32_t row, int32_t col, bool extend);
    bool InSelection(int32_t row, int32_t col) const;
    bool IsFixed(int32_t row, int32_t col) const { return row < fixedRows_ || col < fixedCols_; }
    void CheckCell(int32_t row, int32_t col) const;
    void UpdateMouseCell(float x, float y);
    void Changed();

    int32_t rows_ = 2, cols_ = 2, fixedRows_ = 1, fixedCols_ = 1;
    int32_t row_ = 1, col_ = 1, rowSel_ = 1, colSel_ = 1;
    bool selectionShown_ = false;
    int16_t highLight_ = 1, selectionMode_ = 0;
    std::vector<Cell> cells_;
    std::vector<int32_t> colWidths_;   // -1: default
    std::vector<int32_t> rowHeights_;  // -1: from the font
    std::vector<int16_t> colAlign_;
    bool redraw_ = true;
    Colour backColorBkg_ = 0x808080, backColorFixed_ = SystemColour::ButtonFace,
           foreColorFixed_ = SystemColour::ButtonText, backColorSel_ = SystemColour::Highlight,
           foreColorSel_ = SystemColour::HighlightText, gridColor_ = 0xC0C0C0, gridColorFixed_ = 0;
    int16_t gridLines_ = 1, gridLinesFixed_ = 2;
    int32_t mouseRow_ = -1, mouseCol_ = -1;
    bool dragging_ = false;  // a left press on a cell is being dragged
    int inputDepth_ = 0;     // nesting of the input handlers running
    // Counts an input handler for HandlingInput while it runs.
    struct InputScope {
        explicit InputScope(CellGrid& grid) : grid_(grid) { ++grid_.inputDepth_; }
        ~InputScope() { --grid_.inputDepth_; }
        InputScope(const InputScope&) = delete;
        InputScope& operator=(const InputScope&) = delete;
        CellGrid& grid_;
    };
};

}  // namespace TabulonLib12
