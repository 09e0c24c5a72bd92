#include "presentation/row_painter.h"

#include "grid/conditions.h"
#include "grid/row_window.h"
#include "grid/values.h"
#include "platform/runtime/rounding.h"
#include "platform/runtime/steps.h"

namespace TabulonLib12 {

namespace {

// Moves the surface's current cell, when the surface has that cell.
bool SelectCell(CellGrid& fg, int32_t r, int32_t c) {
    if (r < 0 || r >= fg.Rows() || c < 0 || c >= fg.Cols()) return false;
    fg.setRow(r);
    fg.setCol(c);
    return true;
}

}  // namespace

RowPainter::RowPainter(CellGrid& fg, const Scorrix& bar, const ColumnDefinitions& columns, const RowStore& store,
                       const ImageListRef& images)
    : fg_(fg), bar_(bar), columns_(columns), store_(store), images_(images) {}

void RowPainter::setForeColor(Colour c) {
    foreColor_ = c;
    fg_.setForeColor(c);
}

void RowPainter::ColoraSfondoRighe() {
    CellGrid& fg = fg_;
    fg.setRedraw(false);
    const int32_t offset = bar_.Value();
    const bool rowColours = colonnaColore_ >= 0 && colonnaColore_ <= store_.ColBound();
    for (int32_t r = 0; r < fg.Rows(); ++r) {
        for (int32_t c = 0; c < fg.Cols(); ++c) {
            fg.setRow(r);
            fg.setCol(c);
            if (!columns_.Has(c)) continue;  // a surface column without a definition keeps its colour
            Colour back = columns_.BackColorCol[static_cast<size_t>(c)];
            if (rowColours && c <= store_.ColBound() && r <= store_.RowBound()) {
                const int64_t s = static_cast<int64_t>(r) + offset;
                if (store_.InBounds(s, colonnaColore_) && !store_.IsEmpty(s, colonnaColore_))
                    back = ColoreDaTesto(store_.Cell(s, colonnaColore_));
            }
            fg.setCellBackColor(back);
        }
    }
    fg.setRedraw(true);
}

void RowPainter::RiempiFinestraRighe(bool senzaColore, bool haveQuery, int16_t minRows, int16_t cols) {
    if (colonnaColore_ > -1 && !senzaColore) ColoraSfondoRighe();
    if (!haveQuery) return;
    Steps steps;  // the paint's own failures: a value that does not convert, a missing picture
    CellGrid& fg = fg_;
    fg.setRedraw(false);
    const int64_t offset = bar_.Value();
    const int64_t lastRow = store_.RowBound();
    const ColumnDefinitions& col = columns_;
    for (int32_t r = 0; r < minRows; ++r) {
        const int64_t s = r + offset;
        for (int16_t c = 0; c < cols && col.Has(c); ++c) {
            if (!SelectCell(fg, r, c)) continue;
            const size_t ci = static_cast<size_t>(c);
            if (s < 0 || s > lastRow) {
                fg.setText("");
                continue;
            }
            if (!col.Condizione[ci].empty()) {
                // A condition column shows a picture and no text.
                if (store_.IsEmpty(s, 0)) continue;
                if (col.ImmagineA[ci] + col.ImmagineB[ci] < 1) {
                    fg.setCellPicture(nullptr);
                    continue;
                }
                if (images_.Present()) {
                    bool holds = true;  // a value that does not convert counts as holding
                    steps([&] {
                        holds = ValutaCondizione(col.OperatoreCondizionale[ci], col.Condizione[ci], store_.Cell(s, c),
                                                 col.TipoCampoRilevato[ci]);
                    });
                    fg.setCellPictureAlignment(CellAlign::CentreCentre);
                    const int16_t item = holds ? col.ImmagineA[ci] : col.ImmagineB[ci];
                    if (item != 0) steps([&] { fg.setCellPicture(images_.Item(item)); });
                    else fg.setCellPicture(nullptr);
                }
                fg.setText("");
                continue;
            }
            if (col.ColonnaImmagine[ci] != 0) {
                // A picture chosen by the number in another column; the text is not written.
                if (store_.IsEmpty(s, 0)) {
                    fg.setCellPicture(nullptr);
                    continue;
                }
                if (!images_.Present()) continue;
                fg.setCellPictureAlignment(CellAlign::CentreCentre);
                double x = 0;
                steps([&] { x = ValoreNumerico(store_.Cell(s, col.ColonnaImmagine[ci])); });
                if (!(x > 0)) {
                    fg.setCellPicture(nullptr);
                } else {
                    steps([&] { fg.setCellPicture(images_.Item(ToInt32(x))); });
                }
                continue;
            }
            const std::string_view value = store_.Cell(s, c);
            if (value.empty()) {
                fg.setText("");
                continue;
            }
            if (col.IsIperText[ci] == 1) {
                fg.setCellFontUnderline(true);
                fg.setCellForeColor(iperTextColor_);
            } else {
                fg.setCellFontUnderline(false);
                fg.setCellForeColor(foreColor_);
            }
            const int16_t foreColumn = col.ColonnaForeColor[ci];
            if (foreColumn >= 1 && store_.InBounds(s, foreColumn) && !store_.IsEmpty(s, foreColumn))
                fg.setCellForeColor(ColoreDaTesto(store_.Cell(s, foreColumn)));
            if (fg.ColWidth(c) < 1 && c != 0) fg.setText("");
            else fg.setText(FormattaValore(col.Formato[ci], value));
        }
    }
    fg.setRedraw(true);
}

void RowPainter::ColoraRiga(int32_t riga, bool def, Colour colore) {
    CellGrid& fg = fg_;
    if (riga < 0 || riga > fg.Rows() - 1) return;
    const int32_t oldRow = fg.Row();
    const bool oldRedraw = fg.Redraw();
    fg.setRedraw(false);
    fg.setRow(riga);
    for (int32_t c = 0; c < fg.Cols(); ++c) {
        fg.setCol(c);
        if (!def) {
            fg.setCellBackColor(colore);
            continue;
        }
        const int64_t s = IndiceDaRiga(bar_.Value(), riga);
        if (colonnaColore_ >= 0 && !store_.Cell(s, colonnaColore_).empty()) {
            fg.setCellBackColor(ColoreDaTesto(store_.Cell(s, colonnaColore_)));
        } else {
            if (!columns_.Has(c)) throw Error::OutOfBounds();
            fg.setCellBackColor(columns_.BackColorCol[static_cast<size_t>(c)]);
        }
    }
    fg.setRedraw(oldRedraw);
    fg.setRow(oldRow);
}

}  // namespace TabulonLib12
