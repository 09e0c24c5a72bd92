// Painting of the cell grid: cells with their colours, texts, underline and pictures, the grid
// lines, the selection and the background beyond the last row and column.
#include <QFontMetrics>
#include <cmath>
#include <vector>

#include "platform/qt/element_painter.h"
#include "platform/qt/qt_graphics.h"
#include "platform/runtime/conversions.h"

namespace TabulonLib12 {

namespace {

constexpr int kTextPadding = 2;  // pixels between the text and the cell's sides

struct Span {
    int32_t index;
    int from, to;  // pixels, [from, to)
};

// The rows (or columns) that start inside `limit` pixels, with their pixel extents taken from the
// running sum in twips so that neighbours always meet.
template <class SizeOf>
std::vector<Span> Spans(int32_t count, int limit, SizeOf sizeOf) {
    std::vector<Span> spans;
    int64_t pos = 0;
    for (int32_t i = 0; i < count; ++i) {
        const int64_t size = sizeOf(i);
        const int from = TwipsToPixels(static_cast<double>(pos));
        if (from >= limit) break;
        pos += size > 0 ? size : 0;
        const int to = TwipsToPixels(static_cast<double>(pos));
        if (to > from) spans.push_back({i, from, to});
    }
    return spans;
}

// Horizontal part of an alignment code: 0 left, 1 centre, 2 right; vertical: 0 top, 1 centre,
// 2 bottom.
int HorizontalOf(int16_t code) { return code / 3; }
int VerticalOf(int16_t code) { return code % 3; }

Qt::Alignment TextAlignment(int16_t code, const std::string& text) {
    int h = 0, v = 1;
    if (code == CellAlign::General) {
        h = IsNumeric(text, CurrentSettings()) ? 2 : 0;
    } else if (code >= 0 && code <= 8) {
        h = HorizontalOf(code);
        v = VerticalOf(code);
    }
    const Qt::Alignment hs[] = {Qt::AlignLeft, Qt::AlignHCenter, Qt::AlignRight};
    const Qt::Alignment vs[] = {Qt::AlignTop, Qt::AlignVCenter, Qt::AlignBottom};
    return hs[h] | vs[v];
}

QPoint PicturePosition(int16_t code, const QSize& size, const QRect& cell) {
    const int h = code >= 0 && code <= 8 ? HorizontalOf(code) : 0;
    const int v = code >= 0 && code <= 8 ? VerticalOf(code) : 1;
    const int x = h == 0 ? cell.left() : h == 1 ? cell.left() + (cell.width() - size.width()) / 2
                                                : cell.right() + 1 - size.width();
    const int y = v == 0 ? cell.top() : v == 1 ? cell.top() + (cell.height() - size.height()) / 2
                                               : cell.bottom() + 1 - size.height();
    return QPoint(x, y);
}

// The cell's lines on its right and bottom sides (flat); inset and raised add the light and dark
// edges of a pressed or raised cell.
void DrawCellLines(QPainter& p, const QRect& cell, int16_t style, const QColor& colour) {
    if (style <= 0) return;
    const QColor light(255, 255, 255);
    const QRect right(cell.right(), cell.top(), 1, cell.height());
    const QRect bottom(cell.left(), cell.bottom(), cell.width(), 1);
    if (style == 1) {
        p.fillRect(right, colour);
        p.fillRect(bottom, colour);
        return;
    }
    const QColor topLeft = style == 2 ? colour : light;
    const QColor bottomRight = style == 2 ? light : colour;
    p.fillRect(QRect(cell.left(), cell.top(), cell.width() - 1, 1), topLeft);
    p.fillRect(QRect(cell.left(), cell.top(), 1, cell.height() - 1), topLeft);
    p.fillRect(right, bottomRight);
    p.fillRect(bottom, bottomRight);
}

}  // namespace

void ElementPainter::PaintCellGrid(QPainter& p, const CellGrid& g, const QRect& r) {
    if (r.isEmpty()) return;
    if (!g.Redraw()) {
        // Nothing is painted while Redraw is False: the grid keeps what it last showed.
        auto it = gridImages_.find(&g);
        if (it != gridImages_.end()) p.drawImage(r.topLeft(), it->second);
        else p.fillRect(r, ToQColor(g.BackColorBkg()));
        return;
    }
    const qreal dpr = p.device() ? p.device()->devicePixelRatioF() : 1.0;
    const QSize deviceSize(static_cast<int>(std::ceil(r.width() * dpr)), static_cast<int>(std::ceil(r.height() * dpr)));
    QImage image(deviceSize, QImage::Format_ARGB32_Premultiplied);
    if (image.isNull()) return;
    image.setDevicePixelRatio(dpr);
    {
        QPainter gp(&image);
        DrawGrid(gp, g, QRect(0, 0, r.width(), r.height()));
    }
    p.drawImage(r.topLeft(), image);
    gridImages_[&g] = std::move(image);
}

void ElementPainter::DrawGrid(QPainter& p, const CellGrid& g, const QRect& r) {
    p.fillRect(r, ToQColor(g.BackColorBkg()));
    const auto rows = Spans(g.Rows(), r.height(), [&](int32_t i) { return g.RowHeight(i); });
    const auto cols = Spans(g.Cols(), r.width(), [&](int32_t i) { return g.ColWidth(i); });
    if (rows.empty() || cols.empty()) return;

    const QFont font = ToQFont(g.GetFont());
    QFont underlined = font;
    underlined.setUnderline(true);
    const QColor gridColour = ToQColor(g.GridColor()), gridColourFixed = ToQColor(g.GridColorFixed());

    for (const Span& row : rows) {
        for (const Span& col : cols) {
            const CellGrid::CellView v = g.View(row.index, col.index);
            const bool fixed = row.index < g.FixedRows() || col.index < g.FixedCols();
            const int16_t lines = fixed ? g.GridLinesFixed() : g.GridLines();
            const QRect cell(col.from, row.from, col.to - col.from, row.to - row.from);
            const QRect inner = lines > 0 ? cell.adjusted(0, 0, -1, -1) : cell;
            // The view gives the selection colours for a selected cell already.
            p.fillRect(cell, ToQColor(v.back));

            if (v.picture && *v.picture && !inner.isEmpty()) {
                const QImage& picture = pictures_.Get(*v.picture, PainterPixelRatio(p));
                if (!picture.isNull())
                    DrawPicture(p, picture, PicturePosition(v.pictureAlignment, PictureSize(picture), inner), inner);
            }
            if (v.text && !v.text->empty()) {
                const QRect textRect = inner.adjusted(kTextPadding, 0, -kTextPadding, 0);
                if (textRect.width() > 0 && textRect.height() > 0) {
                    p.setFont(v.underline ? underlined : font);
                    p.setPen(ToQColor(v.fore));
                    p.drawText(textRect, static_cast<int>(TextAlignment(g.ColAlignment(col.index), *v.text)) |
                                             Qt::TextSingleLine,
                               ToQString(*v.text));
                }
            }
            DrawCellLines(p, cell, lines, fixed ? gridColourFixed : gridColour);
        }
    }
}

}  // namespace TabulonLib12
