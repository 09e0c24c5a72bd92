// Pictures on high-density devices: the finer rendering of a picture (Image::doubleScale) is
// painted at 1.5 or more device pixels per logical pixel, in the place and at the logical size of
// the plain picture; the plain pixels are painted below that ratio and for pictures without one.
// And a pointer picture's hot spot travels with it to the cursor, the drawn hand's among them.
#include <gtest/gtest.h>

#include <QMouseEvent>
#include <QPainter>
#include <cmath>

#include "gui_test_support.h"
#include "platform/qt/element_painter.h"
#include "platform/qt/qt_pointer.h"
#include "presentation/drawn_pictures.h"

namespace TabulonLib12::GuiTest {
namespace {

constexpr uint32_t kPlainRed = 0xFFFF0000u;
constexpr uint32_t kFineBlue = 0xFF0000FFu;
constexpr uint32_t kFineGreen = 0xFF00FF00u;

// A 10 x 10 red picture whose finer rendering, 20 x 20, is blue on its left half and green on
// its right half: what shows tells which rendering was painted, and how it was laid out.
Picture TwoRenderings() {
    auto plain = std::make_shared<Image>(10, 10, kPlainRed);
    auto fine = std::make_shared<Image>(20, 20, kFineBlue);
    for (int y = 0; y < 20; ++y)
        for (int x = 10; x < 20; ++x) fine->at(x, y) = kFineGreen;
    plain->doubleScale = fine;
    return plain;
}

bool IsRed(const QColor& c) { return c.red() > 200 && c.green() < 60 && c.blue() < 60; }
bool IsBlue(const QColor& c) { return c.blue() > 200 && c.red() < 60 && c.green() < 60; }
bool IsGreen(const QColor& c) { return c.green() > 200 && c.red() < 60 && c.blue() < 60; }

class PictureScale : public WidgetTest {
protected:
    // The surface painted on an image of `ratio` device pixels per logical pixel.
    QImage PaintAt(qreal ratio) {
        const QSize device(static_cast<int>(std::ceil(300 * ratio)), static_cast<int>(std::ceil(200 * ratio)));
        QImage image(device, QImage::Format_ARGB32_Premultiplied);
        image.setDevicePixelRatio(ratio);
        {
            QPainter p(&image);
            painter.PaintSurface(p, surface(), QRect(0, 0, 300, 200));
        }
        return image.convertToFormat(QImage::Format_RGB32);
    }
    int Count(const QImage& image, const QRect& area, bool (*test)(const QColor&)) {
        return CountPixels(image, area, test);
    }

    ElementPainter painter;
};

TEST_F(PictureScale, ImageShowsItsFinerRenderingPixelForPixelAtRatioTwo) {
    ImageElement& image = surface().CreateImage("ImageStyle");
    image.Move(Px(20), Px(30), 0, 0);
    image.setPicture(TwoRenderings());
    EXPECT_EQ(image.Width(), Px(10));  // the element keeps the plain picture's size
    const QImage shown = PaintAt(2.0);
    EXPECT_EQ(Count(shown, shown.rect(), IsRed), 0);
    EXPECT_EQ(Count(shown, QRect(40, 60, 10, 20), IsBlue), 200);
    EXPECT_EQ(Count(shown, QRect(50, 60, 10, 20), IsGreen), 200);
    EXPECT_EQ(Count(shown, shown.rect(), IsBlue) + Count(shown, shown.rect(), IsGreen), 400);
    EXPECT_EQ(PixelAt(shown, 60, 70), ColourOf(kSurfaceColour));
    EXPECT_EQ(PixelAt(shown, 45, 80), ColourOf(kSurfaceColour));
}

TEST_F(PictureScale, ImageShowsItsPlainPixelsAtRatioOne) {
    ImageElement& image = surface().CreateImage("ImageStyle");
    image.Move(Px(20), Px(30), 0, 0);
    image.setPicture(TwoRenderings());
    const QImage shown = PaintAt(1.0);
    EXPECT_EQ(Count(shown, QRect(20, 30, 10, 10), IsRed), 100);
    EXPECT_EQ(Count(shown, shown.rect(), IsBlue) + Count(shown, shown.rect(), IsGreen), 0);
}

TEST_F(PictureScale, FinerRenderingCoversTheSameLogicalSizeAtRatioOneAndAHalf) {
    ImageElement& image = surface().CreateImage("ImageStyle");
    image.Move(Px(20), Px(30), 0, 0);
    image.setPicture(TwoRenderings());
    const QImage shown = PaintAt(1.5);
    EXPECT_EQ(Count(shown, shown.rect(), IsRed), 0);
    const int blue = Count(shown, QRect(30, 45, 15, 15), IsBlue);
    const int green = Count(shown, QRect(30, 45, 15, 15), IsGreen);
    EXPECT_GE(blue, 90);   // about 7.5 of the 15 device columns each, edges blended
    EXPECT_GE(green, 90);
    EXPECT_EQ(Count(shown, QRect(0, 0, 450, 45), IsBlue) + Count(shown, QRect(0, 60, 450, 240), IsBlue), 0);
    EXPECT_EQ(Count(shown, QRect(45, 0, 405, 300), IsGreen), 0);
}

TEST_F(PictureScale, PictureWithoutFinerRenderingIsStretchedAsBeforeAtRatioTwo) {
    ImageElement& image = surface().CreateImage("ImageStyle");
    image.Move(Px(20), Px(30), 0, 0);
    image.setPicture(std::make_shared<Image>(10, 10, kPlainRed));
    const QImage shown = PaintAt(2.0);
    EXPECT_EQ(Count(shown, QRect(40, 60, 20, 20), IsRed), 400);
    EXPECT_EQ(Count(shown, shown.rect(), IsRed), 400);
}

TEST_F(PictureScale, FinerRenderingOfTheWrongSizeIsIgnored) {
    auto plain = std::make_shared<Image>(10, 10, kPlainRed);
    plain->doubleScale = std::make_shared<Image>(15, 15, kFineBlue);
    ImageElement& image = surface().CreateImage("ImageStyle");
    image.Move(Px(20), Px(30), 0, 0);
    image.setPicture(plain);
    const QImage shown = PaintAt(2.0);
    EXPECT_EQ(Count(shown, shown.rect(), IsRed), 400);
    EXPECT_EQ(Count(shown, shown.rect(), IsBlue), 0);
}

TEST_F(PictureScale, PictureBoxShowsTheFinerRenderingClippedToItsInsideAtRatioTwo) {
    PictureBox& box = surface().CreatePictureBox("ImageTools");
    box.setBorderStyle(0);
    box.Move(Px(100), Px(50), Px(6), Px(20));  // narrower than the picture
    box.setPicture(TwoRenderings());
    const QImage shown = PaintAt(2.0);
    EXPECT_EQ(Count(shown, shown.rect(), IsRed), 0);
    EXPECT_EQ(Count(shown, QRect(200, 100, 10, 20), IsBlue), 200);
    EXPECT_EQ(Count(shown, QRect(210, 100, 2, 20), IsGreen), 40);  // one logical column of green
    EXPECT_EQ(Count(shown, shown.rect(), IsGreen), 40);
}

TEST_F(PictureScale, CellPictureShowsTheFinerRenderingAtRatioTwo) {
    CellGrid& grid = surface().CreateCellGrid("FG1");
    grid.Move(Px(10), Px(10), Px(200), Px(100));
    grid.setFixedRows(0);
    grid.setFixedCols(0);
    grid.setRows(1);
    grid.setCols(1);
    grid.setColWidth(0, Px(100));
    grid.setRowHeight(0, Px(20));
    grid.setBackColor(Rgb(255, 255, 255));
    grid.setRow(0);
    grid.setCol(0);
    grid.setCellPictureAlignment(0);  // left top
    grid.setCellPicture(TwoRenderings());
    const QImage shown = PaintAt(2.0);
    EXPECT_EQ(Count(shown, shown.rect(), IsRed), 0);
    EXPECT_EQ(Count(shown, QRect(20, 20, 10, 20), IsBlue), 200);
    EXPECT_EQ(Count(shown, QRect(30, 20, 10, 20), IsGreen), 200);
    const QImage plain = PaintAt(1.0);
    EXPECT_EQ(Count(plain, QRect(10, 10, 10, 10), IsRed), 100);
}

TEST_F(PictureScale, MouseIconHotSpotBecomesTheCursorsHotSpot) {
    auto icon = std::make_shared<Image>(32, 32, 0xFFFFFFFFu);
    icon->hotSpot = HotSpot{9, 2};
    EXPECT_EQ(CursorForPointer(Pointer::Custom, icon, ElementKind::CellGrid).hotSpot(), QPoint(9, 2));
    icon->hotSpot = HotSpot{400, -7};  // kept inside the picture
    EXPECT_EQ(CursorForPointer(Pointer::Custom, icon, ElementKind::CellGrid).hotSpot(), QPoint(31, 0));
    icon->hotSpot.reset();  // none: the centre, as before
    EXPECT_EQ(CursorForPointer(Pointer::Custom, icon, ElementKind::CellGrid).hotSpot(), QPoint(16, 16));
}

TEST_F(PictureScale, DrawnHandAsMouseIconPointsWithItsFingerTip) {
    const Picture hand = HandPointer();
    const QCursor cursor = CursorForPointer(Pointer::Custom, hand, ElementKind::CellGrid);
    EXPECT_EQ(cursor.shape(), Qt::BitmapCursor);
    EXPECT_EQ(cursor.pixmap().size(), QSize(32, 32));
    EXPECT_EQ(cursor.hotSpot(), QPoint(hand->hotSpot->x, hand->hotSpot->y));
    EXPECT_GT(qAlpha(cursor.pixmap().toImage().pixel(cursor.hotSpot())), 200);
}

TEST_F(PictureScale, ElementWithAMouseIconAndHotSpotShowsItAsItsCursor) {
    PictureBox& box = surface().CreatePictureBox("ImageTools");
    box.Move(Px(50), Px(50), Px(20), Px(20));
    auto icon = std::make_shared<Image>(24, 24, 0xFF102030u);
    icon->hotSpot = HotSpot{5, 1};
    box.setMouseIcon(icon);
    box.setMousePointer(Pointer::Custom);
    ShowAndWait();
    QMouseEvent move(QEvent::MouseMove, QPointF(60, 60), QPointF(widget.mapToGlobal(QPoint(60, 60))), Qt::NoButton,
                     Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(&widget, &move);
    EXPECT_EQ(widget.cursor().shape(), Qt::BitmapCursor);
    EXPECT_EQ(widget.cursor().pixmap().size(), QSize(24, 24));
    EXPECT_EQ(widget.cursor().hotSpot(), QPoint(5, 1));
}

}  // namespace
}  // namespace TabulonLib12::GuiTest
