#pragma once
// Helpers of the GUI tests: a control widget of a known size, pixels of its rendering.
#include <QApplication>
#include <QColor>
#include <QImage>
#include <QLineEdit>
#include <QPoint>
#include <QRect>
#include <QTest>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <stdexcept>
#include <iterator>
#include <string>

#include "platform/qt/qt_text_metrics.h"
#include "platform/qt/qt_timer_service.h"
#include "platform/qt/surface_widget.h"
#include "platform/ui/cell_grid.h"
#include "platform/ui/elements.h"
#include "widgets/tabulon12_widget.h"

namespace TabulonLib12::GuiTest {

inline constexpr Colour kSurfaceColour = Rgb(255, 255, 255);

// Twips of a pixel count, to place elements on whole pixels.
inline float Px(int pixels) { return static_cast<float>(pixels * TwipsPerPixel); }

// Twips on the surface to whole pixels of the widget, and an element's area on the widget.
inline int PixelsOf(float twips) { return static_cast<int>(twips / TwipsPerPixel); }
inline QRect AreaOf(const Element& e) {
    return QRect(PixelsOf(e.SurfaceLeft()), PixelsOf(e.SurfaceTop()), PixelsOf(e.Width()), PixelsOf(e.Height()));
}

// The middle of an element, and a point inside cell (row, col) of a cell surface, on the widget.
inline QPoint CentreOf(const Element& e) {
    return QPoint(PixelsOf(e.SurfaceLeft() + e.Width() / 2), PixelsOf(e.SurfaceTop() + e.Height() / 2));
}
inline QPoint CellPoint(const CellGrid& fg, int row, int col) {
    return QPoint(PixelsOf(fg.Left() + fg.ColPos(col)) + 12, PixelsOf(fg.Top() + fg.RowPos(row)) + 6);
}

// The child widget of that object name (a form's design name); fails the test's setup loudly
// when there is none.
template <class W>
W* ChildNamed(QWidget& parent, const char* name) {
    W* w = parent.findChild<W*>(QString::fromLatin1(name));
    if (w == nullptr) throw std::runtime_error(std::string("no widget named ") + name);
    return w;
}

// The cell surface of a control, found in its element tree.
inline CellGrid& GridOf(Tabulon12Widget& widget) {
    for (Element* e : widget.Control().Superficie().PaintOrder())
        if (e->Kind() == ElementKind::CellGrid) return static_cast<CellGrid&>(*e);
    throw std::runtime_error("the control shows no cell surface");
}

// Where the GUI tests leave the pictures they draw (CMake names the test binary's folder).
#ifndef TABULON_TEST_OUTPUT_DIR
#define TABULON_TEST_OUTPUT_DIR "."
#endif

inline QImage Grab(QWidget& widget) { return widget.grab().toImage().convertToFormat(QImage::Format_RGB32); }

inline QColor ColourOf(Colour c) {
    const Colour r = ResolveColour(c);
    return QColor(static_cast<int>(r & 0xFF), static_cast<int>((r >> 8) & 0xFF), static_cast<int>((r >> 16) & 0xFF));
}

inline QColor PixelAt(const QImage& image, int x, int y) { return image.pixelColor(x, y); }

inline int CountPixels(const QImage& image, const QRect& area, const std::function<bool(const QColor&)>& test) {
    int n = 0;
    const QRect r = area.intersected(image.rect());
    for (int y = r.top(); y <= r.bottom(); ++y)
        for (int x = r.left(); x <= r.right(); ++x)
            if (test(image.pixelColor(x, y))) ++n;
    return n;
}

// Pixels that differ clearly from the colour: text, lines, pictures over a plain back.
inline int CountDiffering(const QImage& image, const QRect& area, Colour back) {
    const QColor b = ColourOf(back);
    return CountPixels(image, area, [&](const QColor& c) {
        return std::abs(c.red() - b.red()) + std::abs(c.green() - b.green()) + std::abs(c.blue() - b.blue()) > 90;
    });
}

inline int CountExactly(const QImage& image, const QRect& area, Colour colour) {
    const QColor want = ColourOf(colour);
    return CountPixels(image, area, [&](const QColor& c) { return c.rgb() == want.rgb(); });
}

// The visible heading caption of the list that reads `caption`, or null.
inline const Label* HeadingCaption(Tabulon12Widget& widget, const std::string& caption) {
    for (Element* e : widget.Control().Superficie().PaintOrder()) {
        if (e->Kind() != ElementKind::Label || e->Name() != "LabelMenu") continue;
        const auto* label = static_cast<const Label*>(e);
        if (label->Caption() == caption && label->Visible()) return label;
    }
    return nullptr;
}

// A file's bytes, or "" when it cannot be read.
inline std::string ReadAll(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

// A line edit's text replaced as a user does it: select all, delete, type.
inline void Retype(QLineEdit* edit, const QString& text) {
    edit->setFocus();
    QTest::keyClick(edit, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(edit, Qt::Key_Delete);
    QTest::keyClicks(edit, text);
}

// A widget of 300 x 200 pixels with a surface of its own on a white back.
class WidgetTest : public ::testing::Test {
protected:
    void SetUp() override {
        widget.resize(300, 200);
        surface().setBackColor(kSurfaceColour);
    }
    Surface& surface() { return widget.GetSurface(); }
    void ShowAndWait() {
        widget.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&widget));
    }

    SurfaceWidget widget;
};

}  // namespace TabulonLib12::GuiTest
