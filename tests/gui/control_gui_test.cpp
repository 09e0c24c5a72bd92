// The control on the real Qt widget: a load paints the records, a scroll repaints them from the
// store, and both selections show in their colours.
#include <gtest/gtest.h>

#include "control/tabulon12.h"
#include "gui_test_support.h"
#include "platform/sqlite/sqlite_engine.h"
#include "tests/db/sqlite_fixture.h"
#include "tests/support/probe.h"
#include "tests/support/test_doubles.h"

namespace TabulonLib12::GuiTest {
namespace {

class ControlGuiTest : public ::testing::Test {
protected:
    void SetUp() override {
        const std::string path = dir.File("list.db");
        testing::WriteDatabase(path,
                               "CREATE TABLE t(id INTEGER, name VARCHAR(30));"
                               "WITH RECURSIVE k(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM k WHERE i < 100)"
                               " INSERT INTO t SELECT i, 'Record number ' || i FROM k;");
        host.messages = &messages;
        host.engine = &engine;
        control = std::make_unique<Tabulon12>(host, metrics, timers);
        widget = std::make_unique<SurfaceWidget>(control->Superficie());
        widget->resize(500, 400);
        control->setCols(2);
        control->setCampoQuery(0, "id");
        control->setCampoQuery(1, "name");
        control->setFormato(0, "Nessuno");
        control->setFormato(1, "Nessuno");
        control->setColsWidth(0, 1500);
        control->setColsWidth(1, 4500);
        control->setDataBaseName(path);
        control->setQueryString("SELECT id, name FROM t ORDER BY id");
        widget->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(widget.get()));
    }

    Tabulon12::Impl& S() { return Tabulon12Probe::Of(*control); }
    CellGrid& FG1() { return S().FG1; }

    // The cell's rectangle in widget pixels, one pixel in from its edges.
    QRect CellRect(int row, int col) {
        const int x = static_cast<int>((FG1().Left() + FG1().ColPos(col)) / TwipsPerPixel);
        const int y = static_cast<int>((FG1().Top() + FG1().RowPos(row)) / TwipsPerPixel);
        const int w = FG1().ColWidth(col) / TwipsPerPixel;
        const int h = FG1().RowHeight(row) / TwipsPerPixel;
        return QRect(x + 1, y + 1, w - 2, h - 2);
    }

    QImage Shot() {
        QApplication::processEvents();
        return Grab(*widget);
    }

    testing::TempDir dir;
    QtTextMetrics metrics;
    QtTimerService timers;
    RecordingMessageBox messages;
    SqliteEngine engine;
    HostServices host;
    std::unique_ptr<Tabulon12> control;
    std::unique_ptr<SurfaceWidget> widget;
};

TEST_F(ControlGuiTest, ALoadPaintsTheFirstRecordsOnTheSurface) {
    const QImage before = Shot();
    EXPECT_EQ(CountDiffering(before, CellRect(0, 1), FG1().View(0, 1).back), 0);
    control->Carica();
    const QImage after = Shot();
    ASSERT_GE(control->MinRows(), 10);
    for (int r = 0; r < control->MinRows(); ++r) {
        EXPECT_GT(CountDiffering(after, CellRect(r, 0), 0xFFFFFF), 5) << "key of row " << r;
        EXPECT_GT(CountDiffering(after, CellRect(r, 1), 0xFFFFFF), 40) << "name of row " << r;
    }
    // Cells with more text paint more ink: "Record number 10" against "Record number 1".
    EXPECT_GT(CountDiffering(after, CellRect(9, 1), 0xFFFFFF), CountDiffering(after, CellRect(0, 1), 0xFFFFFF));
    EXPECT_EQ(FG1().TextMatrix(0, 1), "Record number 1");
}

TEST_F(ControlGuiTest, AShortListLeavesTheRowsBelowItBlank) {
    control->setQueryString("SELECT id, name FROM t WHERE id <= 3");
    control->Carica();
    const QImage shot = Shot();
    EXPECT_GT(CountDiffering(shot, CellRect(2, 1), 0xFFFFFF), 40);
    EXPECT_EQ(CountDiffering(shot, CellRect(3, 1), 0xFFFFFF), 0);
    EXPECT_EQ(CountDiffering(shot, CellRect(5, 0), 0xFFFFFF), 0);
}

TEST_F(ControlGuiTest, ScrollingRepaintsTheRowsFromTheStore) {
    control->Carica();
    const QImage top = Shot();
    const QImage row5Name = top.copy(CellRect(5, 1));
    const QImage row5Key = top.copy(CellRect(5, 0));
    control->setTopRow(5);
    const QImage scrolled = Shot();
    EXPECT_EQ(scrolled.copy(CellRect(0, 1)), row5Name);  // record 6 moved up to grid row 0
    EXPECT_EQ(scrolled.copy(CellRect(0, 0)), row5Key);
    EXPECT_NE(scrolled.copy(CellRect(5, 1)), row5Name);
}

TEST_F(ControlGuiTest, ScrollingWithTheBarRepaintsTheRows) {
    control->Carica();
    const QImage top = Shot();
    const QImage row1 = top.copy(CellRect(1, 1));
    int32_t one = 1;
    S().VS1.setValue(one);
    const QImage scrolled = Shot();
    EXPECT_EQ(scrolled.copy(CellRect(0, 1)), row1);
}

TEST_F(ControlGuiTest, ClickingTheBarsDownButtonScrollsThePaintedRows) {
    control->Carica();
    const QImage top = Shot();
    const QImage row1 = top.copy(CellRect(1, 1));
    const ImageElement& down = *ScorrixProbe::Of(S().VS1).ImageDWN;
    const QPoint centre(static_cast<int>((down.SurfaceLeft() + down.Width() / 2) / TwipsPerPixel),
                        static_cast<int>((down.SurfaceTop() + down.Height() / 2) / TwipsPerPixel));
    QTest::mouseClick(widget.get(), Qt::LeftButton, Qt::NoModifier, centre);
    EXPECT_EQ(control->TopRow(), 1);
    const QImage scrolled = Shot();
    EXPECT_EQ(scrolled.copy(CellRect(0, 1)), row1);
}

TEST_F(ControlGuiTest, RowColoursOfTheColourColumnArePainted) {
    const std::string path = dir.File("colours.db");
    testing::WriteDatabase(path,
                           "CREATE TABLE c(id INTEGER, colour VARCHAR(12));"
                           "INSERT INTO c VALUES(1, '255,0,0'), (2, ''), (3, '0,0,255');");
    control->setDataBaseName(path);
    control->setCampoQuery(1, "colour");
    control->setColonnaColore(1);
    control->setQueryString("SELECT id, colour FROM c");
    control->Carica();
    const QImage shot = Shot();
    const QRect r0 = CellRect(0, 0);
    EXPECT_GT(CountExactly(shot, r0, Rgb(255, 0, 0)), r0.width() * r0.height() / 2);
    EXPECT_GT(CountExactly(shot, CellRect(2, 0), Rgb(0, 0, 255)), r0.width() * r0.height() / 2);
    EXPECT_GT(CountExactly(shot, CellRect(1, 0), 0xFFFFFF), r0.width() * r0.height() / 2);
}

TEST_F(ControlGuiTest, TheSingleSelectionIsHighlightedAlsoAfterAScroll) {
    control->Carica();
    control->SelezionaRiga(2);
    QImage shot = Shot();
    const Colour highlight = FG1().BackColorSel();
    const QRect cell = CellRect(2, 1);
    EXPECT_GT(CountExactly(shot, cell, highlight), cell.width() * cell.height() / 2);
    EXPECT_EQ(CountExactly(shot, CellRect(3, 1), highlight), 0);
    control->setTopRow(1);  // record 3 is now on grid row 1
    shot = Shot();
    EXPECT_GT(CountExactly(shot, CellRect(1, 1), highlight), cell.width() * cell.height() / 2);
    EXPECT_EQ(CountExactly(shot, CellRect(2, 1), highlight), 0);
}

TEST_F(ControlGuiTest, PickedRowsArePaintedInBackColorSelectedAlsoAfterAScroll) {
    control->Carica();
    control->setBackColorSelected(Rgb(255, 200, 0));
    control->setMultiSel(true);
    control->SelezionaRigaMS(4);
    QImage shot = Shot();
    const QRect cell = CellRect(4, 0);
    EXPECT_GT(CountExactly(shot, cell, Rgb(255, 200, 0)), cell.width() * cell.height() / 2);
    control->setTopRow(50);
    shot = Shot();
    EXPECT_EQ(CountExactly(shot, CellRect(4, 0), Rgb(255, 200, 0)), 0);
    control->setTopRow(2);
    shot = Shot();
    EXPECT_GT(CountExactly(shot, CellRect(2, 0), Rgb(255, 200, 0)), cell.width() * cell.height() / 2);
}

TEST_F(ControlGuiTest, AScrollPaintsTheWidgetOnce) {
    control->Carica();
    QApplication::processEvents();
    const int before = widget->PaintCount();
    control->setTopRow(40);
    QApplication::processEvents();
    EXPECT_EQ(widget->PaintCount(), before + 1);
}

TEST_F(ControlGuiTest, TheLoadMessageBoxesGoToTheHost) {
    control->setQueryString("SELECT id, name FROM t");
    S().BaseDati.reset();
    S().DataBaseName = dir.File("missing.db");
    control->Carica();
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_EQ(messages.shown[0].prompt, "Nessun DB disponibile");
}

}  // namespace
}  // namespace TabulonLib12::GuiTest
