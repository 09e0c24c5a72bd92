// Painting the row window: the surface shows MinRows rows of the store from the offset
// VS1.Value, written in one block under Redraw False, so a repaint costs the same at any list
// length.
#include <charconv>

#include "grid/control_state.h"
#include "platform/runtime/conversions.h"
#include "platform/runtime/format.h"
#include "platform/runtime/rounding.h"
#include "platform/runtime/settings.h"

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

Colour Tabulon12::Impl::ColoreDaTesto(std::string_view text) {
    if (text.empty()) return 0xFFFFFF;
    int parts[3] = {0, 0, 0};
    size_t count = 0, start = 0;
    while (true) {
        const size_t comma = text.find(',', start);
        const std::string_view piece = text.substr(start, comma == std::string_view::npos ? text.npos : comma - start);
        if (count < 3) parts[count] = static_cast<int>(Val(piece));
        ++count;
        if (comma == std::string_view::npos) break;
        start = comma + 1;
    }
    if (count != 3) return 0;
    return Rgb(parts[0], parts[1], parts[2]);
}

void Tabulon12::Impl::ColoraSfondoRighe() {
    CellGrid& fg = *FG1;
    fg.setRedraw(false);
    const int32_t offset = VS1->Value();
    const bool rowColours = ColonnaColore >= 0 && ColonnaColore <= MatriceRighe.ColBound();
    for (int32_t r = 0; r < fg.Rows(); ++r) {
        for (int32_t c = 0; c < fg.Cols(); ++c) {
            fg.setRow(r);
            fg.setCol(c);
            if (!col.Has(c)) continue;  // a surface column without a definition keeps its colour
            Colour back = col.BackColorCol[static_cast<size_t>(c)];
            if (rowColours && c <= MatriceRighe.ColBound() && r <= MatriceRighe.RowBound()) {
                const int64_t s = static_cast<int64_t>(r) + offset;
                if (MatriceRighe.InBounds(s, ColonnaColore) && !MatriceRighe.IsEmpty(s, ColonnaColore))
                    back = ColoreDaTesto(MatriceRighe.Cell(s, ColonnaColore));
            }
            fg.setCellBackColor(back);
        }
    }
    fg.setRedraw(true);
}

void Tabulon12::Impl::RiempiFinestraRighe(bool senzaColore) {
    if (ColonnaColore > -1 && !senzaColore) ColoraSfondoRighe();
    if (QueryCaricamento.empty()) return;
    CellGrid& fg = *FG1;
    fg.setRedraw(false);
    const int64_t offset = VS1->Value();
    const int64_t lastRow = MatriceRighe.RowBound();
    for (int32_t r = 0; r < MinRows; ++r) {
        const int64_t s = r + offset;
        for (int16_t c = 0; c < Cols; ++c) {
            if (!SelectCell(fg, r, c)) continue;
            const size_t ci = static_cast<size_t>(c);
            if (s < 0 || s > lastRow) {
                fg.setText("");
                continue;
            }
            if (!col.Condizione[ci].empty()) {
                // A condition column shows a picture and no text.
                if (MatriceRighe.IsEmpty(s, 0)) continue;
                if (col.ImmagineA[ci] + col.ImmagineB[ci] < 1) {
                    fg.setCellPicture(nullptr);
                    continue;
                }
                if (OggettoImageList) {
                    bool holds = true;  // a value that does not convert counts as holding
                    Step(err, [&] {
                        holds = ValutaCondizione(c, MatriceRighe.Cell(s, c), col.TipoCampoRilevato[ci]);
                    });
                    fg.setCellPictureAlignment(CellAlign::CentreCentre);
                    const int16_t item = holds ? col.ImmagineA[ci] : col.ImmagineB[ci];
                    if (item != 0) Step(err, [&] { fg.setCellPicture(ListImage(item)); });
                    else fg.setCellPicture(nullptr);
                }
                fg.setText("");
                continue;
            }
            if (col.ColonnaImmagine[ci] != 0) {
                // A picture chosen by the number in another column; the text is not written.
                if (MatriceRighe.IsEmpty(s, 0)) {
                    fg.setCellPicture(nullptr);
                    continue;
                }
                if (!OggettoImageList) continue;
                fg.setCellPictureAlignment(CellAlign::CentreCentre);
                double x = 0;
                Step(err, [&] { x = ValoreNumerico(MatriceRighe.Cell(s, col.ColonnaImmagine[ci])); });
                if (!(x > 0)) {
                    fg.setCellPicture(nullptr);
                } else {
                    Step(err, [&] { fg.setCellPicture(ListImage(ToInt32(x))); });
                }
                continue;
            }
            const std::string_view value = MatriceRighe.Cell(s, c);
            if (value.empty()) {
                fg.setText("");
                continue;
            }
            if (col.IsIperText[ci] == 1) {
                fg.setCellFontUnderline(true);
                fg.setCellForeColor(IperTextColor);
            } else {
                fg.setCellFontUnderline(false);
                fg.setCellForeColor(ForeColor);
            }
            const int16_t foreColumn = col.ColonnaForeColor[ci];
            if (foreColumn >= 1 && MatriceRighe.InBounds(s, foreColumn) && !MatriceRighe.IsEmpty(s, foreColumn))
                fg.setCellForeColor(ColoreDaTesto(MatriceRighe.Cell(s, foreColumn)));
            if (fg.ColWidth(c) < 1 && c != 0) fg.setText("");
            else fg.setText(FormattaValore(c, value));
        }
    }
    fg.setRedraw(true);
}

std::string Tabulon12::Impl::FormattaValore(int16_t c, std::string_view v) const {
    static const std::string kNoFormat;
    const std::string& format = col.Has(c) ? col.Formato[static_cast<size_t>(c)] : kNoFormat;
    return FormatByKey(v, format, CurrentSettings());
}

}  // namespace TabulonLib12
