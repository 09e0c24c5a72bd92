// The cell grid as the widget paints it: cells where the grid's model puts them.
#include <gtest/gtest.h>

#include "gui_test_support.h"

namespace TabulonLib12::GuiTest {
namespace {

constexpr Colour kCellBack = Rgb(255, 255, 200);
constexpr Colour kBkg = Rgb(0, 160, 0);
constexpr Colour kGridLine = Rgb(0, 0, 255);
constexpr Colour kRed = Rgb(255, 0, 0);

// A 3 x 2 grid at pixel (10, 10): columns of 100 and 50 pixels, rows of 20 pixels, in a
// rectangle of 200 x 100 pixels.
class CellGridPainting : public WidgetTest {
protected:
    void SetUp() override {
        WidgetTest::SetUp();
        grid = &surface().CreateCellGrid("FG1");
        grid->Move(Px(10), Px(10), Px(200), Px(100));
        grid->setFixedRows(0);
        grid->setFixedCols(0);
        grid->setRows(3);
        grid->setCols(2);
        grid->setColWidth(0, Px(100));
        grid->setColWidth(1, Px(50));
        grid->setRowHeight(-1, Px(20));
        grid->setBackColor(kCellBack);
        grid->setForeColor(Rgb(0, 0, 0));
        grid->setBackColorBkg(kBkg);
        grid->setGridColor(kGridLine);
        grid->setGridLines(1);
    }
    // The inside of a cell in widget pixels, without its grid lines.
    QRect CellInside(int row, int col) const {
        const int x = 10 + (col == 0 ? 0 : 100), w = col == 0 ? 100 : 50;
        return QRect(x, 10 + row * 20, w - 1, 19);
    }
    void SetCell(int row, int col) {
        grid->setRow(row);
        grid->setCol(col);
    }
    CellGrid* grid = nullptr;
};

TEST_F(CellGridPainting, CellBackColourFillsTheCell) {
    SetCell(0, 0);
    grid->setCellBackColor(kRed);
    const QImage image = Grab(widget);
    const QRect inside = CellInside(0, 0);
    EXPECT_EQ(CountExactly(image, inside, kRed), inside.width() * inside.height());
    EXPECT_EQ(PixelAt(image, 60, 50), ColourOf(kCellBack));  // another cell keeps the grid's colour
}

TEST_F(CellGridPainting, BackColorBkgFillsBelowAndRightOfTheCells) {
    const QImage image = Grab(widget);
    EXPECT_EQ(PixelAt(image, 60, 75), ColourOf(kBkg));    // below the third row
    EXPECT_EQ(PixelAt(image, 60, 108), ColourOf(kBkg));   // last pixel row of the grid
    EXPECT_EQ(PixelAt(image, 180, 20), ColourOf(kBkg));   // right of the second column
    EXPECT_EQ(PixelAt(image, 211, 20), ColourOf(kSurfaceColour));  // beyond the grid
}

TEST_F(CellGridPainting, GridLinesRunOnTheRightAndBottomOfEachCell) {
    const QImage image = Grab(widget);
    EXPECT_EQ(PixelAt(image, 10 + 99, 15), ColourOf(kGridLine));   // right of column 0
    EXPECT_EQ(PixelAt(image, 10 + 149, 15), ColourOf(kGridLine));  // right of column 1
    EXPECT_EQ(PixelAt(image, 50, 10 + 19), ColourOf(kGridLine));   // bottom of row 0
    EXPECT_EQ(PixelAt(image, 50, 10 + 20), ColourOf(kCellBack));   // top of row 1 is cell
}

TEST_F(CellGridPainting, NoGridLinesWhenGridLinesIsZero) {
    grid->setGridLines(0);
    const QImage image = Grab(widget);
    EXPECT_EQ(CountExactly(image, QRect(10, 10, 150, 60), kGridLine), 0);
    EXPECT_EQ(PixelAt(image, 10 + 99, 15), ColourOf(kCellBack));
}

TEST_F(CellGridPainting, TextIsPaintedInsideItsCellOnly) {
    grid->setTextMatrix(1, 0, "WWWW");
    const QImage image = Grab(widget);
    EXPECT_GT(CountDiffering(image, CellInside(1, 0), kCellBack), 20);
    EXPECT_EQ(CountDiffering(image, CellInside(1, 1), kCellBack), 0);
    EXPECT_EQ(CountDiffering(image, CellInside(0, 0), kCellBack), 0);
    EXPECT_EQ(CountDiffering(image, CellInside(2, 0), kCellBack), 0);
}

TEST_F(CellGridPainting, TextTakesTheCellForeColour) {
    SetCell(1, 0);
    grid->setText("MMMM");
    grid->setCellForeColor(kRed);
    const QImage image = Grab(widget);
    const int reddish = CountPixels(image, CellInside(1, 0), [](const QColor& c) {
        return c.red() > 200 && c.green() < 120 && c.blue() < 120;
    });
    EXPECT_GT(reddish, 10);
}

TEST_F(CellGridPainting, TextLongerThanTheCellIsClippedToIt) {
    grid->setTextMatrix(0, 1, "WWWWWWWWWWWWWWWWWWWW");
    const QImage image = Grab(widget);
    EXPECT_GT(CountDiffering(image, CellInside(0, 1), kCellBack), 20);
    EXPECT_EQ(CountExactly(image, QRect(160, 10, 50, 19), kBkg), 50 * 19);  // nothing spills right
}

TEST_F(CellGridPainting, GeneralAlignmentPutsNumbersRightAndTextLeft) {
    grid->setColAlignment(0, CellAlign::General);
    grid->setTextMatrix(0, 0, "1234");
    grid->setTextMatrix(1, 0, "abcd");
    const QImage image = Grab(widget);
    const QRect number = CellInside(0, 0), text = CellInside(1, 0);
    auto leftHalf = [](QRect r) { return QRect(r.left(), r.top(), r.width() / 2, r.height()); };
    auto rightHalf = [](QRect r) { return QRect(r.left() + r.width() / 2, r.top(), r.width() / 2, r.height()); };
    EXPECT_EQ(CountDiffering(image, leftHalf(number), kCellBack), 0);
    EXPECT_GT(CountDiffering(image, rightHalf(number), kCellBack), 10);
    EXPECT_GT(CountDiffering(image, leftHalf(text), kCellBack), 10);
    EXPECT_EQ(CountDiffering(image, rightHalf(text), kCellBack), 0);
}

TEST_F(CellGridPainting, CentreAlignmentLeavesBothSidesEmpty) {
    grid->setColAlignment(0, CellAlign::CentreCentre);
    grid->setTextMatrix(0, 0, "ab");
    const QImage image = Grab(widget);
    const QRect r = CellInside(0, 0);
    EXPECT_EQ(CountDiffering(image, QRect(r.left(), r.top(), 30, r.height()), kCellBack), 0);
    EXPECT_EQ(CountDiffering(image, QRect(r.right() - 30, r.top(), 30, r.height()), kCellBack), 0);
    EXPECT_GT(CountDiffering(image, QRect(r.left() + 35, r.top(), 30, r.height()), kCellBack), 5);
}

// The longest run of text-coloured pixels along one pixel row of the area.
int LongestDarkRun(const QImage& image, const QRect& area) {
    int best = 0;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        int run = 0;
        for (int x = area.left(); x <= area.right(); ++x) {
            run = image.pixelColor(x, y).lightness() < 110 ? run + 1 : 0;
            best = std::max(best, run);
        }
    }
    return best;
}

TEST_F(CellGridPainting, UnderlinedCellDrawsALineUnderItsText) {
    grid->setTextMatrix(0, 0, "i i i i i i");
    grid->setTextMatrix(1, 0, "i i i i i i");
    SetCell(1, 0);
    grid->setCellFontUnderline(true);
    const QImage image = Grab(widget);
    EXPECT_LT(LongestDarkRun(image, CellInside(0, 0)), 6);
    EXPECT_GT(LongestDarkRun(image, CellInside(1, 0)), 20);
}

TEST_F(CellGridPainting, CellPictureSitsWhereItsAlignmentSays) {
    auto picture = std::make_shared<Image>(6, 6, 0xFFFF00FFu);  // opaque magenta
    SetCell(0, 0);
    grid->setCellPicture(picture);
    grid->setCellPictureAlignment(CellAlign::CentreCentre);
    SetCell(1, 0);
    grid->setCellPicture(picture);
    grid->setCellPictureAlignment(CellAlign::LeftTop);
    const QImage image = Grab(widget);
    const Colour magenta = Rgb(255, 0, 255);
    const QRect centre = CellInside(0, 0), corner = CellInside(1, 0);
    EXPECT_EQ(CountExactly(image, centre, magenta), 36);
    EXPECT_EQ(PixelAt(image, centre.center().x(), centre.center().y()), ColourOf(magenta));
    EXPECT_EQ(PixelAt(image, centre.left(), centre.top()), ColourOf(kCellBack));
    EXPECT_EQ(CountExactly(image, QRect(corner.topLeft(), QSize(6, 6)), magenta), 36);
}

TEST_F(CellGridPainting, SelectionIsPaintedInTheSelectionColours) {
    const Colour sel = Rgb(0, 128, 128);
    grid->setBackColorSel(sel);
    grid->setHighLight(1);
    SetCell(2, 0);
    grid->setColSel(1);
    ASSERT_TRUE(grid->SelectionShown());
    const QImage image = Grab(widget);
    const QRect first = CellInside(2, 0), second = CellInside(2, 1);
    EXPECT_EQ(CountExactly(image, first, sel), first.width() * first.height());
    EXPECT_EQ(CountExactly(image, second, sel), second.width() * second.height());
    EXPECT_EQ(CountExactly(image, CellInside(1, 0), sel), 0);
}

TEST_F(CellGridPainting, FixedCellsTakeTheFixedColours) {
    const Colour fixed = Rgb(200, 100, 50);
    grid->setBackColorFixed(fixed);
    grid->setFixedRows(1);
    const QImage image = Grab(widget);
    EXPECT_EQ(PixelAt(image, 50, 15), ColourOf(fixed));
    EXPECT_EQ(PixelAt(image, 50, 35), ColourOf(kCellBack));
}

TEST_F(CellGridPainting, ZeroWidthColumnIsNotPainted) {
    grid->setColWidth(0, 0);
    grid->setTextMatrix(0, 1, "x");
    SetCell(0, 1);
    grid->setCellBackColor(kRed);
    const QImage image = Grab(widget);
    // Column 1 now starts at the grid's left edge.
    EXPECT_EQ(PixelAt(image, 10 + 40, 12), ColourOf(kRed));
    EXPECT_EQ(PixelAt(image, 10 + 55, 12), ColourOf(kBkg));
}

TEST_F(CellGridPainting, WhileRedrawIsFalseTheGridKeepsWhatItShowed) {
    grid->setTextMatrix(0, 0, "");
    const QImage before = Grab(widget);
    grid->setRedraw(false);
    SetCell(0, 0);
    grid->setCellBackColor(kRed);
    const QImage during = Grab(widget);
    EXPECT_EQ(CountExactly(during, CellInside(0, 0), kRed), 0);
    EXPECT_EQ(during.copy(10, 10, 200, 100), before.copy(10, 10, 200, 100));
    grid->setRedraw(true);
    const QImage after = Grab(widget);
    EXPECT_EQ(PixelAt(after, 50, 15), ColourOf(kRed));
}

TEST_F(CellGridPainting, HiddenGridIsNotPainted) {
    grid->setVisible(false);
    const QImage image = Grab(widget);
    EXPECT_EQ(CountExactly(image, QRect(10, 10, 200, 100), kSurfaceColour), 200 * 100);
}

TEST_F(CellGridPainting, DevicePixelRatioTwoPaintsEachLogicalPixelAsTwoByTwo) {
    SetCell(0, 0);
    grid->setCellBackColor(kRed);
    QImage single(300, 200, QImage::Format_RGB32);
    widget.render(&single);
    QImage dense(600, 400, QImage::Format_RGB32);
    dense.setDevicePixelRatio(2.0);
    widget.render(&dense);
    dense.setDevicePixelRatio(1.0);  // count in device pixels
    const int one = CountExactly(single, single.rect(), kRed);
    const int two = CountExactly(dense, dense.rect(), kRed);
    EXPECT_EQ(one, 99 * 19);
    EXPECT_EQ(two, 4 * one);
    // Along one pixel row the cell is twice as wide.
    EXPECT_EQ(CountExactly(dense, QRect(0, 2 * 15, 600, 1), kRed), 2 * CountExactly(single, QRect(0, 15, 300, 1), kRed));
    EXPECT_EQ(dense.pixelColor(2 * 10, 2 * 10), ColourOf(kRed));
    EXPECT_EQ(dense.pixelColor(2 * 10 - 1, 2 * 10), ColourOf(kSurfaceColour));
}

}  // namespace
}  // namespace TabulonLib12::GuiTest
