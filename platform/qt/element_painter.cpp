// Painting of the elementary kinds and the walk over the tree. The cell grid is painted in
// cell_grid_painter.cpp.
#include "platform/qt/element_painter.h"

#include <QFontMetrics>
#include <QPainterPath>
#include <algorithm>
#include <unordered_set>

#include "platform/qt/qt_graphics.h"

namespace TabulonLib12 {

namespace {

constexpr size_t kPicturesBeforePrune = 64;

void FillRect(QPainter& p, const QRect& r, Colour c) { p.fillRect(r, ToQColor(c)); }

// A one-pixel outline drawn inside the rectangle.
void Outline(QPainter& p, const QRect& r, const QColor& c) {
    if (r.width() <= 0 || r.height() <= 0) return;
    p.fillRect(QRect(r.left(), r.top(), r.width(), 1), c);
    p.fillRect(QRect(r.left(), r.bottom(), r.width(), 1), c);
    p.fillRect(QRect(r.left(), r.top(), 1, r.height()), c);
    p.fillRect(QRect(r.right(), r.top(), 1, r.height()), c);
}

// Text of an element that takes no input shows greyed.
QColor TextColour(const Element& e) {
    return e.IsActive() ? ToQColor(e.ForeColor()) : ToQColor(SystemColour::GrayText);
}

}  // namespace

QRect PixelRect(const Element& element) {
    double left = 0, top = 0;
    for (const Element* e = &element; e && e->Kind() != ElementKind::Surface; e = e->Container()) {
        left += e->Left();
        top += e->Top();
    }
    const int x0 = TwipsToPixels(left), y0 = TwipsToPixels(top);
    const int x1 = TwipsToPixels(left + element.Width()), y1 = TwipsToPixels(top + element.Height());
    return QRect(QPoint(x0, y0), QPoint(x1 - 1, y1 - 1));
}

void ElementPainter::PaintSurface(QPainter& p, const Surface& surface, const QRect& area) {
    FillRect(p, area, surface.BackColor());
    std::unordered_set<const CellGrid*> grids;
    for (const Element* e : surface.PaintOrder()) {
        if (e->Kind() == ElementKind::Surface || e->Kind() == ElementKind::Timer || !e->IsShown()) continue;
        const QRect r = PixelRect(*e);
        QRect clip = r.intersected(area);
        for (const Element* c = e->Container(); c && c->Kind() != ElementKind::Surface && !clip.isEmpty();
             c = c->Container())
            clip = clip.intersected(PixelRect(*c));
        if (clip.isEmpty()) continue;
        if (e->Kind() == ElementKind::CellGrid) grids.insert(static_cast<const CellGrid*>(e));
        p.save();
        p.setClipRect(clip);
        PaintElement(p, *e, r);
        p.restore();
    }
    for (auto it = gridImages_.begin(); it != gridImages_.end();) {
        if (grids.count(it->first) == 0) it = gridImages_.erase(it);
        else ++it;
    }
    if (pictures_.Size() > kPicturesBeforePrune) pictures_.Prune();
}

void ElementPainter::PaintElement(QPainter& p, const Element& e, const QRect& r) {
    switch (e.Kind()) {
        case ElementKind::Label: PaintLabel(p, static_cast<const Label&>(e), r); break;
        case ElementKind::Image: PaintImage(p, static_cast<const ImageElement&>(e), r); break;
        case ElementKind::Frame: PaintFrame(p, static_cast<const Frame&>(e), r); break;
        case ElementKind::Shape: PaintShape(p, static_cast<const Shape&>(e), r); break;
        case ElementKind::PictureBox: PaintPictureBox(p, static_cast<const PictureBox&>(e), r); break;
        case ElementKind::TextBox: PaintTextBox(p, static_cast<const TextBox&>(e), r); break;
        case ElementKind::CheckBox: PaintCheckBox(p, static_cast<const CheckBox&>(e), r); break;
        case ElementKind::CellGrid: PaintCellGrid(p, static_cast<const CellGrid&>(e), r); break;
        case ElementKind::Surface:
        case ElementKind::Timer: break;
    }
}

void ElementPainter::PaintLabel(QPainter& p, const Label& e, const QRect& r) {
    if (e.BackStyle() == 1) FillRect(p, r, e.BackColor());
    if (e.Caption().empty()) return;
    // A label that sizes itself to one line keeps it on one line; any other label breaks its
    // caption at word boundaries within its width.
    int flags = Qt::AlignTop;
    if (!e.AutoSize() || e.WordWrap()) flags |= Qt::TextWordWrap;
    switch (e.Alignment()) {
        case Alignment::Right: flags |= Qt::AlignRight; break;
        case Alignment::Centre: flags |= Qt::AlignHCenter; break;
        default: flags |= Qt::AlignLeft; break;
    }
    p.setFont(ToQFont(e.GetFont()));
    p.setPen(TextColour(e));
    p.drawText(r, flags, ToQString(e.Caption()));
}

void ElementPainter::PaintImage(QPainter& p, const ImageElement& e, const QRect& r) {
    const QImage& image = pictures_.Get(e.GetPicture(), PainterPixelRatio(p));
    if (image.isNull()) return;
    if (e.Stretch()) {
        p.setRenderHint(QPainter::SmoothPixmapTransform);
        p.drawImage(r, image);
    } else {
        DrawPicture(p, image, r.topLeft(), r);
    }
}

void ElementPainter::PaintFrame(QPainter& p, const Frame& e, const QRect& r) {
    FillRect(p, r, e.BackColor());
    if (e.BorderStyle() != 1) return;  // without a border the caption is not shown either
    const QFont font = ToQFont(e.GetFont());
    const QFontMetrics fm(font, p.device());
    const QString caption = ToQString(e.Caption());
    // An etched line (shadow, then highlight one pixel in), down by half the caption's height.
    const int lineTop = caption.isEmpty() ? r.top() : r.top() + fm.height() / 2;
    const QRect box(QPoint(r.left(), lineTop), r.bottomRight());
    Outline(p, box.adjusted(1, 1, 0, 0), ToQColor(0x80000014u));  // button highlight
    Outline(p, box.adjusted(0, 0, -1, -1), ToQColor(SystemColour::ButtonShadow));
    if (caption.isEmpty()) return;
    const int textWidth = std::min(fm.horizontalAdvance(caption) + 4, std::max(0, r.width() - 12));
    const QRect textRect(r.left() + 6, r.top(), textWidth, fm.height());
    FillRect(p, textRect, e.BackColor());
    p.setFont(font);
    p.setPen(TextColour(e));
    p.drawText(textRect.adjusted(2, 0, 0, 0), Qt::AlignLeft | Qt::AlignTop | Qt::TextSingleLine, caption);
}

void ElementPainter::PaintShape(QPainter& p, const Shape& e, const QRect& r) {
    if (r.isEmpty()) return;
    if (e.BackStyle() == 1) FillRect(p, r, e.BackColor());
    // The border lies inside the rectangle, BorderWidth pixels thick.
    const int w = std::clamp<int>(e.BorderWidth(), 1, std::max(1, (std::min(r.width(), r.height()) + 1) / 2));
    const QColor c = ToQColor(e.BorderColor());
    p.fillRect(QRect(r.left(), r.top(), r.width(), w), c);
    p.fillRect(QRect(r.left(), r.bottom() - w + 1, r.width(), w), c);
    p.fillRect(QRect(r.left(), r.top(), w, r.height()), c);
    p.fillRect(QRect(r.right() - w + 1, r.top(), w, r.height()), c);
}

void ElementPainter::PaintPictureBox(QPainter& p, const PictureBox& e, const QRect& r) {
    FillRect(p, r, e.BackColor());
    const bool border = e.BorderStyle() == 1;
    const QRect inside = border ? r.adjusted(1, 1, -1, -1) : r;
    DrawPicture(p, pictures_.Get(e.GetPicture(), PainterPixelRatio(p)), inside.topLeft(), inside);
    if (border) Outline(p, r, ToQColor(SystemColour::WindowFrame));
}

void ElementPainter::PaintTextBox(QPainter& p, const TextBox& e, const QRect& r) {
    // The field is white unless the back colour was changed from the elements' default.
    const Colour back = e.BackColor() == SystemColour::ButtonFace ? SystemColour::WindowBackground : e.BackColor();
    FillRect(p, r, back);
    Outline(p, r, ToQColor(SystemColour::ButtonShadow));
    const QFont font = ToQFont(e.GetFont());
    const QFontMetrics fm(font, p.device());
    const QRect textRect = r.adjusted(3, 1, -3, -1);
    const QString text = ToQString(e.Text());
    p.setFont(font);
    p.setPen(TextColour(e));
    p.drawText(textRect, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text);
    if (e.HasFocus()) {  // the caret after the text
        const int x = std::min(textRect.left() + fm.horizontalAdvance(text) + 1, textRect.right());
        const int h = std::min(fm.height(), textRect.height());
        p.fillRect(QRect(x, textRect.top() + (textRect.height() - h) / 2, 1, h), TextColour(e));
    }
}

void ElementPainter::PaintCheckBox(QPainter& p, const CheckBox& e, const QRect& r) {
    FillRect(p, r, e.BackColor());
    constexpr int side = 13;
    const QRect box(r.left() + 1, r.top() + (r.height() - side) / 2, side, side);
    const bool grey = e.Value() == 2 || !e.IsActive();
    p.fillRect(box, grey ? ToQColor(SystemColour::ButtonFace) : ToQColor(SystemColour::WindowBackground));
    Outline(p, box, ToQColor(0x80000015u));  // dark shadow
    if (e.Value() != 0) {
        QPainterPath tick;
        tick.moveTo(box.left() + 2.5, box.top() + 6.5);
        tick.lineTo(box.left() + 5.5, box.top() + 9.5);
        tick.lineTo(box.left() + 10.5, box.top() + 3.5);
        p.save();
        p.setRenderHint(QPainter::Antialiasing);
        p.setPen(QPen(grey ? ToQColor(SystemColour::GrayText) : ToQColor(SystemColour::WindowText), 2.0,
                      Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
        p.drawPath(tick);
        p.restore();
    }
    if (e.Caption().empty()) return;
    const QFont font = ToQFont(e.GetFont());
    const QFontMetrics fm(font, p.device());
    const QString caption = ToQString(e.Caption());
    const QRect textRect(box.right() + 5, r.top(), std::max(0, r.right() - box.right() - 5), r.height());
    p.setFont(font);
    p.setPen(TextColour(e));
    p.drawText(textRect, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, caption);
    if (e.HasFocus()) {
        const int w = std::min(fm.horizontalAdvance(caption) + 2, textRect.width());
        const int h = std::min(fm.height(), textRect.height());
        p.save();
        p.setPen(QPen(TextColour(e), 1, Qt::DotLine));
        p.drawRect(QRect(textRect.left() - 1, textRect.top() + (textRect.height() - h) / 2, w, h - 1));
        p.restore();
    }
}

}  // namespace TabulonLib12
