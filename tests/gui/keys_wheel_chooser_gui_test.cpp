// The keys, the wheel and the column chooser on the real widget: arrow keys typed with QTest
// move the selection and scroll at the edges, wheel events anywhere in the host's window scroll
// by the steps of the wheel and still reach their widget, and the chooser opens on a click,
// shows its boxes and hides an unticked column when it closes.
#include <gtest/gtest.h>

#include <QLabel>
#include <QVBoxLayout>
#include <QtTest/qtestspontaneevent.h>
#include <QWheelEvent>
#include <filesystem>
#include <fstream>

#include "gui_test_support.h"
#include "tests/db/sqlite_fixture.h"
#include "tests/support/probe.h"
#include "tests/support/test_doubles.h"
#include "widgets/tabulon12_widget.h"

namespace TabulonLib12::GuiTest {
namespace {

// Counts the wheel events that reach a widget, and lets them go on.
struct WheelCounter : QObject {
    int seen = 0;
    bool eventFilter(QObject*, QEvent* e) override {
        if (e->type() == QEvent::Wheel) ++seen;
        return false;
    }
};

// A host window: the list above a line label, the list's wheel hooked to the window.
class KeysWheelChooserGuiTest : public ::testing::Test {
protected:
    void SetUp() override {
        const std::string path = dir.File("list.db");
        testing::WriteDatabase(path,
                               "CREATE TABLE t(id INTEGER, name TEXT, city TEXT, amount DOUBLE);"
                               "WITH RECURSIVE k(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM k WHERE i < 60)"
                               " INSERT INTO t SELECT i, 'Name ' || i, 'City ' || i, i * 2.5 FROM k;");
        Tabulon12Widget::Services services;
        services.host.clock = &clock;
        window.setObjectName("FormOrdini");
        auto* layout = new QVBoxLayout(&window);
        widget = new Tabulon12Widget(services, &window);
        label = new QLabel("Totale ordini", &window);
        layout->addWidget(widget);
        layout->addWidget(label);
        window.resize(640, 330);
        Tabulon12& c = widget->Control();
        c.setAdattamentoColonneDisattivato(true);
        c.setCols(4);
        const char* fields[] = {"id", "name", "city", "amount"};
        const int16_t widths[] = {900, 2000, 2000, 1500};
        for (int16_t i = 0; i < 4; ++i) {
            c.setCampoQuery(i, fields[i]);
            c.setFormato(i, "Nessuno");
            c.setIntestazione(i, fields[i]);
            c.setColsWidth(i, widths[i]);
            c.setTestoScelta(i, std::string("Colonna ") + fields[i]);
            c.setBackColorCol(i, 0xFFFFFF);
        }
        c.setColonnaOpzionale(2, 1);
        c.setColonnaOpzionale(3, 1);
        c.setConsentiSceltaColonne(true);
        c.setFileScelta(dir.File("scelta.txt"));
        c.setDataBaseName(path);
        c.setQueryString("SELECT id, name, city, amount FROM t ORDER BY id");
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
        c.Carica();
        QApplication::processEvents();
        clock.now = Tabulon12Probe::LastWheelTick() + 100'000;
    }

    Tabulon12& Control() { return widget->Control(); }
    Tabulon12::Impl& S() { return Tabulon12Probe::Of(Control()); }
    QWidget& Painter() { return widget->Painter(); }
    QPoint Cell(int row, int col) { return CellPoint(S().FG1, row, col); }
    // A notch of the wheel over `target`, `ms` after the last one, as the window system gives
    // it: a widget that ignores it passes it on to its parent.
    void Notch(QWidget& target, uint32_t ms, int delta) {
        clock.now += ms;
        const QPointF at(target.width() / 2.0, target.height() / 2.0);
        QWheelEvent event(at, target.mapToGlobal(at), QPoint(), QPoint(0, delta), Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QSpontaneKeyEvent::setSpontaneous(&event);
        qApp->notify(&target, &event);
    }

    testing::TempDir dir;
    ManualClock clock;
    QWidget window;
    Tabulon12Widget* widget = nullptr;
    QLabel* label = nullptr;
};

TEST_F(KeysWheelChooserGuiTest, ArrowKeysTypedOnTheListMoveTheSelectionAndScrollAtTheEdges) {
    QTest::mouseClick(&Painter(), Qt::LeftButton, Qt::NoModifier, Cell(2, 1));
    ASSERT_EQ(S().FG1.Row(), 2);
    EXPECT_TRUE(S().elements.TextKey->HasFocus());
    QTest::keyClick(&Painter(), Qt::Key_Down);
    EXPECT_EQ(S().FG1.Row(), 3);
    EXPECT_EQ(Control().IndiceSelezionato(), 4);
    const int32_t last = S().FG1.Rows() - 1;
    for (int32_t r = 3; r < last; ++r) QTest::keyClick(&Painter(), Qt::Key_Down);
    ASSERT_EQ(S().FG1.Row(), last);
    EXPECT_EQ(Control().TopRow(), 0);
    QTest::keyClick(&Painter(), Qt::Key_Down);  // the records pass under the last row
    EXPECT_EQ(Control().TopRow(), 1);
    EXPECT_EQ(S().FG1.Row(), last);
    EXPECT_EQ(Control().IndiceSelezionato(), last + 2);
    QTest::keyClick(&Painter(), Qt::Key_PageDown);  // no paging
    EXPECT_EQ(Control().TopRow(), 1);
    QApplication::processEvents();
    // The selected row shows highlighted on the last grid row, with the record's key.
    const QImage shot = Grab(*widget);
    const QRect row(PixelsOf(S().FG1.Left()) + 2, PixelsOf(S().FG1.Top() + S().FG1.RowPos(last)) + 2, 40, 8);
    const QColor highlight = ColourOf(S().FG1.BackColorSel());
    EXPECT_GT(CountPixels(shot, row, [&](const QColor& p) { return p == highlight; }), 100);
    EXPECT_EQ(S().FG1.TextMatrix(last, 0), std::to_string(last + 2));
}

TEST_F(KeysWheelChooserGuiTest, TheWheelAnywhereInTheHostsWindowScrollsTheListAndStillReachesItsWidget) {
    Control().setFormContenitore(widget->WindowForm());
    Control().setWheelStatus(true);
    WheelCounter counter;
    label->installEventFilter(&counter);
    WheelCounter atWindow;
    window.installEventFilter(&atWindow);
    int heard = 0;  // the label passes the wheel on to the window: still one notch each
    const int id = widget->WindowForm()->Window()->AddWheelListener([&](int32_t, int32_t) { ++heard; });
    Notch(*label, 0, -120);  // long after the last notch: one record down
    EXPECT_EQ(Control().TopRow(), 1);
    EXPECT_EQ(counter.seen, 1);
    Notch(*label, 200, -120);
    EXPECT_EQ(Control().TopRow(), 4);
    Notch(*label, 200, 120);
    EXPECT_EQ(Control().TopRow(), 0);
    Notch(Painter(), 1000, -120);  // over the list itself: one step, not two
    EXPECT_EQ(Control().TopRow(), 1);
    QApplication::processEvents();
    EXPECT_EQ(S().FG1.TextMatrix(0, 0), "2");
    Control().setWheelStatus(false);
    Notch(*label, 1000, -120);
    EXPECT_EQ(Control().TopRow(), 1);
    EXPECT_EQ(counter.seen, 4);
    EXPECT_EQ(heard, 5);
    EXPECT_EQ(atWindow.seen, 4) << "the label's notches went on to the window";
    widget->WindowForm()->Window()->RemoveWheelListener(id);
    EXPECT_EQ(widget->WindowForm()->Name(), "FormOrdini");
}

TEST_F(KeysWheelChooserGuiTest, AListThatGoesTakesItsHookAlong) {
    Control().setFormContenitore(widget->WindowForm());
    Control().setWheelStatus(true);
    delete widget;
    widget = nullptr;
    WheelCounter counter;
    label->installEventFilter(&counter);
    Notch(*label, 1000, -120);  // nobody is called back
    EXPECT_EQ(counter.seen, 1);
}

TEST_F(KeysWheelChooserGuiTest, TheChooserOpensOnAClickAndHidesTheUntickedColumnWhenItCloses) {
    const PictureBox& button = *S().elements.ImageTools;
    ASSERT_TRUE(button.Visible());
    QTest::mouseClick(&Painter(), Qt::LeftButton, Qt::NoModifier, CentreOf(button));
    const Frame& panel = *S().elements.FrameSceltaColonne;
    ASSERT_TRUE(panel.Visible());
    QApplication::processEvents();
    QImage shot = Grab(*widget);
    shot.save(QString::fromStdString(std::string(TABULON_TEST_OUTPUT_DIR) + "/column_chooser.png"));
    // The panel's blue rim, and the two boxes' captions over their white backs.
    const QRect rim = AreaOf(panel);
    EXPECT_GT(CountPixels(shot, rim, [](const QColor& p) { return p.blue() > 200 && p.red() < 40 && p.green() < 40; }),
              rim.width());
    const CheckBox& first = testing::FindElement<CheckBox>(S().surface, "CheckScelta", 0);
    const CheckBox& second = testing::FindElement<CheckBox>(S().surface, "CheckScelta", 1);
    EXPECT_EQ(first.Caption(), "Colonna city");
    EXPECT_EQ(second.Caption(), "Colonna amount");
    EXPECT_GT(CountDiffering(shot, AreaOf(second), 0xFFFFFF), 40);

    QTest::mouseClick(&Painter(), Qt::LeftButton, Qt::NoModifier, CentreOf(first));
    EXPECT_EQ(first.Value(), 0);
    const Label& cityHeading = testing::FindElement<Label>(S().surface, "LabelMenu", 2);
    QTest::mouseClick(&Painter(), Qt::LeftButton, Qt::NoModifier, CentreOf(button));
    EXPECT_FALSE(panel.Visible());
    std::ifstream in(dir.File("scelta.txt"), std::ios::binary);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(in), {}), "2\r\n");
    EXPECT_EQ(S().FG1.ColWidth(2), 0);
    EXPECT_EQ(cityHeading.Caption(), "");
    QApplication::processEvents();
    shot = Grab(*widget);
    // Where the city column was, the amounts stand now.
    const QRect cell(PixelsOf(S().FG1.Left() + S().FG1.ColPos(3)), PixelsOf(S().FG1.Top()), PixelsOf(S().FG1.ColWidth(3)), 14);
    EXPECT_EQ(S().FG1.ColPos(3), S().FG1.ColPos(2));
    EXPECT_GT(CountDiffering(shot, cell, 0xFFFFFF), 10);
}

}  // namespace
}  // namespace TabulonLib12::GuiTest
