#pragma once
// The row painting: the cell surface shows MinRows rows of the store from the scroll bar's
// value, written in one block under Redraw False, so a repaint costs the same at any list
// length. It owns the colours of the cells' text and rows: ForeColor (also the surface's),
// IperTextColor, ColonnaColore (a store column whose "r,g,b" text colours its row) and
// BackColorSelected (picked rows). Each routine runs step by step: a failing statement is
// skipped and its failure stays the routine's own.
#include <cstdint>

#include "grid/column_properties.h"
#include "grid/row_store.h"
#include "platform/ui/cell_grid.h"
#include "presentation/image_list.h"
#include "scrollbar/scorrix.h"

namespace TabulonLib12 {

class RowPainter {
public:
    RowPainter(CellGrid& fg, const Scorrix& bar, const ColumnDefinitions& columns, const RowStore& store,
               const ImageListRef& images);

    Colour ForeColor() const { return foreColor_; }
    void setForeColor(Colour c);  // also the surface's own text colour
    Colour IperTextColor() const { return iperTextColor_; }
    void setIperTextColor(Colour c) { iperTextColor_ = c; }
    int16_t ColonnaColore() const { return colonnaColore_; }
    void setColonnaColore(int16_t c) { colonnaColore_ = c; }
    Colour BackColorSelected() const { return backColorSelected_; }
    void setBackColorSelected(Colour c) { backColorSelected_ = c; }

    // Paints the text and pictures of the first `minRows` grid rows and `cols` columns from the
    // store at the scroll bar's value; without `senzaColore` the row colours are painted first
    // when ColonnaColore is set. Does nothing without a query (`haveQuery` false).
    void RiempiFinestraRighe(bool senzaColore, bool haveQuery, int16_t minRows, int16_t cols);
    // Paints the back colour of every surface cell: its row's colour from ColonnaColore where
    // that cell of the store has text, the column's BackColorCol otherwise.
    void ColoraSfondoRighe();
    // Paints the cells of grid row `riga` in `colore`, or with `def` in their default colours
    // (the row colour, else the column's). A row off the surface is ignored; the current row
    // and Redraw are restored, the current column is not. A column without a definition fails
    // with a subscript error.
    void ColoraRiga(int32_t riga, bool def, Colour colore);

private:
    CellGrid& fg_;
    const Scorrix& bar_;
    const ColumnDefinitions& columns_;
    const RowStore& store_;
    const ImageListRef& images_;
    Colour foreColor_ = 0;
    Colour iperTextColor_ = 0xFF0000;
    int16_t colonnaColore_ = -1;
    Colour backColorSelected_ = 0xFF8080;
};

}  // namespace TabulonLib12
