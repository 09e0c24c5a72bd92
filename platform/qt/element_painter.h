#pragma once
// Paints an element tree with a QPainter in logical pixels (twips / 15): the surface's back
// colour, then every shown element in the surface's painting order, each clipped to its own
// rectangle and to its containers'. The device pixel ratio is the painter's business.
#include <QImage>
#include <QPainter>
#include <QRect>
#include <unordered_map>

#include "platform/qt/picture_cache.h"
#include "platform/ui/cell_grid.h"
#include "platform/ui/surface.h"

namespace TabulonLib12 {

// The element's rectangle in surface pixels: its position summed over its containers.
QRect PixelRect(const Element& element);

class ElementPainter {
public:
    void PaintSurface(QPainter& p, const Surface& surface, const QRect& area);

private:
    void PaintElement(QPainter& p, const Element& e, const QRect& r);
    void PaintLabel(QPainter& p, const Label& e, const QRect& r);
    void PaintImage(QPainter& p, const ImageElement& e, const QRect& r);
    void PaintFrame(QPainter& p, const Frame& e, const QRect& r);
    void PaintShape(QPainter& p, const Shape& e, const QRect& r);
    void PaintPictureBox(QPainter& p, const PictureBox& e, const QRect& r);
    void PaintTextBox(QPainter& p, const TextBox& e, const QRect& r);
    void PaintCheckBox(QPainter& p, const CheckBox& e, const QRect& r);
    void PaintCellGrid(QPainter& p, const CellGrid& e, const QRect& r);
    void DrawGrid(QPainter& p, const CellGrid& g, const QRect& r);

    PictureCache pictures_;
    // What each grid showed when last painted: while its Redraw is False it keeps showing it.
    std::unordered_map<const CellGrid*, QImage> gridImages_;
};

}  // namespace TabulonLib12
