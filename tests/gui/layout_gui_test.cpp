// The control's layout on the real widget: resized narrower, wider, lower and higher, the rows,
// the scroll bar, the outline and the totals follow on screen, and a host's own widget placed
// below the grid follows the grid's bottom edge.
#include <gtest/gtest.h>

#include <QLabel>

#include "gui_test_support.h"
#include "platform/sqlite/sqlite_engine.h"
#include "tests/db/sqlite_fixture.h"
#include "tests/support/probe.h"
#include "widgets/tabulon12_widget.h"

namespace TabulonLib12::GuiTest {
namespace {

class LayoutGuiTest : public ::testing::Test {
protected:
    void SetUp() override {
        path = dir.File("list.db");
        testing::WriteDatabase(path,
                               "CREATE TABLE t(id INTEGER, name VARCHAR(30), amount DOUBLE);"
                               "WITH RECURSIVE k(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM k WHERE i < 200)"
                               " INSERT INTO t SELECT i, 'Record number ' || i, i * 10 FROM k;");
        widget = std::make_unique<Tabulon12Widget>();
        widget->resize(600, 400);
        Tabulon12& c = widget->Control();
        c.Superficie().setBackColor(kSurfaceColour);
        c.setCols(3);
        const char* fields[] = {"id", "name", "amount"};
        const int16_t widths[] = {1500, 4500, 2000};
        for (int16_t i = 0; i < 3; ++i) {
            c.setCampoQuery(i, fields[i]);
            c.setFormato(i, "Nessuno");
            c.setColsWidth(i, widths[i]);
        }
        c.setFormato(2, "Numerico");
        c.setColAlignment(2, 1);
        c.setMostraTotCol(2, 1);
        c.setTestoCount("Righe:");
        c.setDataBaseName(path);
        c.setQueryString("SELECT id, name, amount FROM t ORDER BY id");
        widget->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(widget.get()));
        c.Carica();
    }

    Tabulon12::Impl& S() { return Tabulon12Probe::Of(widget->Control()); }
    CellGrid& FG1() { return S().FG1; }

    QImage ResizeAndShoot(int width, int height) {
        widget->resize(width, height);
        QApplication::processEvents();
        return Grab(*widget);
    }

    QRect CellRect(int row, int col) {
        const int x = PixelsOf(FG1().Left() + FG1().ColPos(col));
        const int y = PixelsOf(FG1().Top() + FG1().RowPos(row));
        return QRect(x + 1, y + 1, FG1().ColWidth(col) / TwipsPerPixel - 2, FG1().RowHeight(row) / TwipsPerPixel - 2);
    }
    // What a user sees of the layout at the widget's present size.
    void ExpectLayoutFollows(const QImage& shot, int width, int height) {
        SCOPED_TRACE(std::to_string(width) + " x " + std::to_string(height));
        // The grid takes the width less the bar's room, and as many rows as fit.
        EXPECT_EQ(FG1().Width(), static_cast<float>(width * TwipsPerPixel - 270));
        const int last = control().MinRows() - 1;
        ASSERT_GE(last, 1);
        EXPECT_GT(CountDiffering(shot, CellRect(last, 1), FG1().View(last, 1).back), 30) << "the last row's text";
        EXPECT_EQ(FG1().TextMatrix(last, 1), "Record number " + std::to_string(last + 1));
        // The bar stands at the grid's right, as high as the grid: its down button ends there.
        const QRect bar = AreaOf(S().VS1.Corpo());
        EXPECT_EQ(bar.left(), PixelsOf(FG1().Width()));
        EXPECT_EQ(bar.bottom() + 1, PixelsOf(FG1().Top() + FG1().Height()));
        const QRect downButton(bar.left() + 2, bar.bottom() - 14, bar.width() - 4, 12);
        EXPECT_GT(CountDiffering(shot, downButton, kSurfaceColour), 20) << "the bar's down button";
        // The outline runs under the grid and the bar in the border colour, from its left to
        // its right.
        const Shape& outline = *S().elements.Shape1;
        const int bottom = PixelsOf(outline.Top() + outline.Height()) - 1;
        const int left = PixelsOf(outline.Left()), right = PixelsOf(outline.Left() + outline.Width()) - 1;
        EXPECT_EQ(bottom, PixelsOf(FG1().Top() + FG1().Height()));
        EXPECT_GE(CountExactly(shot, QRect(left, bottom, right - left + 1, 1), outline.BorderColor()), right - left - 2)
            << "the outline's bottom edge";
        EXPECT_GE(right, PixelsOf(S().VS1.Left() + S().VS1.Width()) - 1) << "the outline reaches past the bar";
        // The total of the amounts stands on the count's line, under its column.
        const Label& total = testing::FindElement<Label>(S().surface, "LabelTOT", 2);
        EXPECT_EQ(total.Top(), FG1().Top() + FG1().Height() + 60);
        EXPECT_GT(CountDiffering(shot, AreaOf(total), kSurfaceColour), 20) << "the total's text";
        EXPECT_EQ(total.Caption(), "201000");
        const Label& count = *S().elements.LabelCount;
        EXPECT_GT(CountDiffering(shot, AreaOf(count), kSurfaceColour), 20) << "the count's text";
    }

    Tabulon12& control() { return widget->Control(); }

    testing::TempDir dir;
    std::string path;
    std::unique_ptr<Tabulon12Widget> widget;
};

TEST_F(LayoutGuiTest, ResizedNarrowerTheRowsTheBarTheOutlineAndTheTotalsFollow) {
    ExpectLayoutFollows(Grab(*widget), 600, 400);
    const int16_t rows = control().MinRows();
    ExpectLayoutFollows(ResizeAndShoot(420, 400), 420, 400);
    EXPECT_EQ(control().MinRows(), rows);  // the width alone keeps the rows
    EXPECT_LT(FG1().ColWidth(1), 4500 * 420 / 600 + 1);  // the columns scaled down with the width
}

TEST_F(LayoutGuiTest, ResizedWiderTheColumnsScaleUpAndTheBarMovesRight) {
    const float barBefore = S().VS1.Left();
    ExpectLayoutFollows(ResizeAndShoot(800, 400), 800, 400);
    EXPECT_GT(S().VS1.Left(), barBefore);
    EXPECT_GT(FG1().ColWidth(1), 4500 * 600 / 800);
}

TEST_F(LayoutGuiTest, ResizedLowerAndHigherTheRowsFitTheHeight) {
    const int16_t rows = control().MinRows();
    ExpectLayoutFollows(ResizeAndShoot(600, 250), 600, 250);
    EXPECT_LT(control().MinRows(), rows);
    // Rows added by a taller control stay blank until the next scroll repaints the window.
    widget->resize(600, 560);
    QApplication::processEvents();
    EXPECT_GT(control().MinRows(), rows);
    EXPECT_EQ(FG1().TextMatrix(control().MinRows() - 1, 1), "");
    control().setTopRow(control().TopRow());
    ExpectLayoutFollows(ResizeAndShoot(600, 560), 600, 560);
}

TEST_F(LayoutGuiTest, AHostWidgetBelowTheGridFollowsTheGridsBottomEdge) {
    auto* note = new QLabel(QStringLiteral("Nota dell'applicazione"), widget.get());
    note->setAutoFillBackground(true);
    note->setStyleSheet(QStringLiteral("background: rgb(30, 90, 200); color: white;"));
    const int gridBottom = PixelsOf(FG1().Top() + FG1().Height());
    note->move(300, gridBottom + 4);
    note->resize(200, 16);
    note->show();
    const int offset = note->y() - gridBottom;

    for (int height : {520, 300, 450}) {
        widget->resize(600, height);
        QApplication::processEvents();
        const int bottom = PixelsOf(FG1().Top() + FG1().Height());
        EXPECT_EQ(note->y(), bottom + offset) << height;
        const QImage shot = Grab(*widget);
        EXPECT_GT(CountExactly(shot, QRect(note->x() + 2, note->y() + 2, 150, 10), Rgb(30, 90, 200)), 500) << height;
    }
}

}  // namespace
}  // namespace TabulonLib12::GuiTest
