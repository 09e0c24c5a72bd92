// The control as a Qt widget: with Qt's default services it loads and paints a list from a real
// SQLite file, a host's services replace the defaults one by one, the surface follows the
// widget's size and position, keys reach the surface, and widgets with loaded controls come and
// go cleanly.
#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QWindow>
#include <algorithm>
#include <memory>
#include <stdexcept>

#include "gui_test_support.h"
#include "platform/qt/qt_text_metrics.h"
#include "platform/qt/qt_timer_service.h"
#include "platform/sqlite/sqlite_engine.h"
#include "tests/db/sqlite_fixture.h"
#include "tests/support/test_doubles.h"
#include "widgets/tabulon12_widget.h"

namespace TabulonLib12::GuiTest {
namespace {

// A cell's rectangle in widget pixels, one pixel in from its edges.
QRect CellRect(CellGrid& grid, int row, int col) {
    const int x = static_cast<int>((grid.SurfaceLeft() + grid.ColPos(col)) / TwipsPerPixel);
    const int y = static_cast<int>((grid.SurfaceTop() + grid.RowPos(row)) / TwipsPerPixel);
    return QRect(x + 1, y + 1, grid.ColWidth(col) / TwipsPerPixel - 2, grid.RowHeight(row) / TwipsPerPixel - 2);
}

class Tabulon12WidgetTest : public ::testing::Test {
protected:
    void SetUp() override {
        path = dir.File("list.db");
        testing::WriteDatabase(path,
                               "CREATE TABLE t(id INTEGER, name VARCHAR(30));"
                               "WITH RECURSIVE k(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM k WHERE i < 100)"
                               " INSERT INTO t SELECT i, 'Record number ' || i FROM k;");
    }

    // Two columns over the fixture's table.
    void DefineList(Tabulon12& c, const std::string& database) {
        c.setCols(2);
        c.setCampoQuery(0, "id");
        c.setCampoQuery(1, "name");
        c.setFormato(0, "Nessuno");
        c.setFormato(1, "Nessuno");
        c.setColsWidth(0, 1500);
        c.setColsWidth(1, 4500);
        c.setDataBaseName(database);
        c.setQueryString("SELECT id, name FROM t ORDER BY id");
    }

    static void ShowAndWait(QWidget& w) {
        w.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&w));
    }

    testing::TempDir dir;
    std::string path;
};

TEST_F(Tabulon12WidgetTest, WithTheDefaultServicesALoadPaintsTheRowsOfASqliteFile) {
    Tabulon12Widget widget;
    widget.resize(600, 400);
    ShowAndWait(widget);
    DefineList(widget.Control(), path);
    CellGrid& grid = GridOf(widget);
    QApplication::processEvents();
    const QImage before = Grab(widget);
    EXPECT_EQ(CountDiffering(before, CellRect(grid, 0, 1), grid.View(0, 1).back), 0);  // blank before the load

    widget.Control().Carica();
    QApplication::processEvents();
    const QImage after = Grab(widget);
    ASSERT_EQ(widget.Control().RighePiene(), 100);
    EXPECT_EQ(widget.Control().TextMatrix(0, 1), "Record number 1");
    ASSERT_GE(widget.Control().MinRows(), 5);
    for (int r = 0; r < 5; ++r) {
        EXPECT_GT(CountDiffering(after, CellRect(grid, r, 0), 0xFFFFFF), 5) << "key of row " << r;
        EXPECT_GT(CountDiffering(after, CellRect(grid, r, 1), 0xFFFFFF), 40) << "name of row " << r;
    }
}

TEST_F(Tabulon12WidgetTest, WithTheDefaultServicesALoadFailureIsWrittenToStandardError) {
    Tabulon12Widget widget;
    DefineList(widget.Control(), dir.File("missing.db"));
    ::testing::internal::CaptureStderr();
    widget.Control().Carica();
    const std::string written = ::testing::internal::GetCapturedStderr();
    EXPECT_NE(written.find(": Nessun DB disponibile\n"), std::string::npos) << written;
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(Tabulon12WidgetTest, AHostsMessageBoxReplacesTheDefault) {
    RecordingMessageBox messages;
    Tabulon12Widget::Services services;
    services.host.messages = &messages;
    Tabulon12Widget widget(services);
    DefineList(widget.Control(), dir.File("missing.db"));
    ::testing::internal::CaptureStderr();
    widget.Control().Carica();
    const std::string written = ::testing::internal::GetCapturedStderr();
    ASSERT_EQ(messages.shown.size(), 1u);
    EXPECT_EQ(messages.shown[0].prompt, "Nessun DB disponibile");
    EXPECT_EQ(messages.shown[0].style, MsgBoxStyle::Critical);
    EXPECT_EQ(written.find("Nessun DB disponibile"), std::string::npos) << written;
}

TEST_F(Tabulon12WidgetTest, EveryServiceAHostGivesIsTheOneTheControlUses) {
    SqliteEngine engine;
    RecordingScreenPointer screen;
    ManualClock clock;
    QtTextMetrics metrics;
    QtTimerService timers;
    std::vector<std::string> changed;
    Tabulon12Widget::Services services;
    services.host.engine = &engine;
    services.host.screen = &screen;
    services.host.clock = &clock;
    services.host.propertyChanged = [&](const std::string& name) { changed.push_back(name); };
    services.metrics = &metrics;
    services.timers = &timers;
    {
        Tabulon12Widget widget(services);
        EXPECT_EQ(&widget.Engine(), &engine);
        EXPECT_EQ(&widget.Control().Superficie().Metrics(), &metrics);
        EXPECT_EQ(&widget.Control().Superficie().Timers(), &timers);
        DefineList(widget.Control(), path);
        widget.Control().Carica();
        EXPECT_EQ(widget.Control().RighePiene(), 100);
        // The load shows the hourglass on the host's pointer and takes it away at the end.
        ASSERT_FALSE(screen.history.empty());
        EXPECT_EQ(screen.history.front(), Pointer::Hourglass);
        EXPECT_EQ(screen.MousePointer(), 0);
        EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
        EXPECT_NE(std::find(changed.begin(), changed.end(), "DataBaseName"), changed.end());
    }
    // The host's services outlive the widget: its timers are all stopped.
    EXPECT_EQ(timers.ActiveCount(), 0);
}

TEST_F(Tabulon12WidgetTest, ThePainterFillsTheWidgetAndTheSurfaceFollowsAResize) {
    Tabulon12Widget widget;
    EXPECT_EQ(widget.sizeHint(), widget.Painter().sizeHint());
    widget.resize(600, 400);
    ShowAndWait(widget);
    DefineList(widget.Control(), path);
    widget.Control().Carica();
    QApplication::processEvents();
    Surface& surface = widget.Control().Superficie();
    EXPECT_EQ(widget.Painter().geometry(), widget.rect());
    EXPECT_FLOAT_EQ(surface.Width(), 600.0f * TwipsPerPixel);
    EXPECT_FLOAT_EQ(surface.Height(), 400.0f * TwipsPerPixel);
    const float gridWidth = GridOf(widget).Width();

    widget.resize(760, 520);
    QApplication::processEvents();
    EXPECT_EQ(widget.Painter().geometry(), widget.rect());
    EXPECT_FLOAT_EQ(surface.Width(), 760.0f * TwipsPerPixel);
    EXPECT_FLOAT_EQ(surface.Height(), 520.0f * TwipsPerPixel);
    // The control laid itself out again: its cell surface grew with it.
    EXPECT_FLOAT_EQ(GridOf(widget).Width(), gridWidth + 160.0f * TwipsPerPixel);
    // And the new area is painted: the rows still show their text at the new size.
    const QImage shot = Grab(widget);
    EXPECT_EQ(shot.size(), QSize(760, 520));
    EXPECT_GT(CountDiffering(shot, CellRect(GridOf(widget), 0, 1), 0xFFFFFF), 40);
}

TEST_F(Tabulon12WidgetTest, TheSurfacesExtenderPositionIsTheWidgetsPlaceOnItsParent) {
    QWidget form;
    form.resize(800, 600);
    auto* widget = new Tabulon12Widget(&form);
    widget->setGeometry(30, 40, 500, 300);
    ShowAndWait(form);
    const Surface& surface = widget->Control().Superficie();
    EXPECT_FLOAT_EQ(surface.ExtenderLeft(), 30.0f * TwipsPerPixel);
    EXPECT_FLOAT_EQ(surface.ExtenderTop(), 40.0f * TwipsPerPixel);
    widget->move(70, 15);
    QApplication::processEvents();
    EXPECT_FLOAT_EQ(surface.ExtenderLeft(), 70.0f * TwipsPerPixel);
    EXPECT_FLOAT_EQ(surface.ExtenderTop(), 15.0f * TwipsPerPixel);
}

TEST_F(Tabulon12WidgetTest, FocusGoesToThePainterAndKeysReachTheSurface) {
    Tabulon12Widget widget;
    widget.resize(600, 400);
    ShowAndWait(widget);
    DefineList(widget.Control(), path);
    widget.Control().Carica();
    QApplication::processEvents();
    CellGrid& grid = GridOf(widget);

    // A click on the third row gives the cell surface the focus and makes the row current.
    QTest::mouseClick(&widget.Painter(), Qt::LeftButton, Qt::NoModifier, CellRect(grid, 2, 1).center());
    ASSERT_EQ(grid.Row(), 2);
    widget.activateWindow();
    widget.setFocus();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&widget));
    EXPECT_EQ(QApplication::focusWidget(), &widget.Painter());

    // A key typed on the window (not sent to a widget) goes through Qt's focus to the surface.
    QTest::keyClick(widget.windowHandle(), Qt::Key_Down);
    EXPECT_EQ(grid.Row(), 3);
}

TEST_F(Tabulon12WidgetTest, WidgetsWithLoadedControlsComeAndGoCleanly) {
    const int windowsBefore = static_cast<int>(QApplication::topLevelWidgets().size());
    for (int i = 0; i < 4; ++i) {
        auto widget = std::make_unique<Tabulon12Widget>();
        widget->resize(500, 300 + 20 * i);
        ShowAndWait(*widget);
        DefineList(widget->Control(), path);
        widget->Control().Carica();
        widget->Control().setTopRow(10 * i);
        QApplication::processEvents();
        EXPECT_EQ(widget->Control().TextMatrix(10 * i, 1), "Record number " + std::to_string(10 * i + 1));
        widget.reset();
        QApplication::processEvents();
    }
    // Nothing of theirs stays behind: no window, no override cursor of a load.
    EXPECT_EQ(static_cast<int>(QApplication::topLevelWidgets().size()), windowsBefore);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    // A widget inside a parent goes with the parent.
    auto form = std::make_unique<QWidget>();
    auto* inside = new Tabulon12Widget(form.get());
    DefineList(inside->Control(), path);
    inside->Control().Carica();
    ShowAndWait(*form);
    form.reset();
    QApplication::processEvents();
    EXPECT_EQ(static_cast<int>(QApplication::topLevelWidgets().size()), windowsBefore);
}

}  // namespace
}  // namespace TabulonLib12::GuiTest
