// Sorting and the mouse over cells on the real widget, driven with QTest: a click on a heading
// sorts and shows the arrow in each arrow colour, the hover tile follows the mouse over the
// headings, a cut cell shows its tip at the pointer, and a hyperlink shows the hand and raises
// IperTextClick to the host's handler and as a Qt signal.
#include <gtest/gtest.h>

#include <QSignalSpy>

#include "gui_test_support.h"
#include "tests/db/sqlite_fixture.h"
#include "tests/support/probe.h"
#include "widgets/tabulon12_widget.h"

namespace TabulonLib12::GuiTest {
namespace {

struct LinkHandler : Tabulon12Events {
    void IperTextClick(int32_t& r, int16_t& c, int32_t& id, std::string& text) override {
        ++clicks;
        row = r, column = c, key = id, linkText = text;
    }
    int clicks = 0, row = -1, column = -1, key = -1;
    std::string linkText;
};

class SortMouseGuiTest : public ::testing::Test {
protected:
    void SetUp() override {
        const std::string path = dir.File("list.db");
        testing::WriteDatabase(path,
                               "CREATE TABLE t(id INTEGER, name VARCHAR(60), price DOUBLE);"
                               "INSERT INTO t VALUES (3, 'Carla', 30.5), (1, 'Anna con un nome molto lungo davvero', 10),"
                               " (2, 'Bruno', 7), (5, 'Elio', 4), (4, 'Dario', 12);");
        widget = std::make_unique<Tabulon12Widget>();
        widget->resize(640, 300);
        Tabulon12& c = widget->Control();
        c.setAdattamentoColonneDisattivato(true);
        c.setCols(3);
        const char* fields[] = {"id", "name", "price"};
        const int16_t widths[] = {900, 1800, 1500};
        for (int16_t i = 0; i < 3; ++i) {
            c.setCampoQuery(i, fields[i]);
            c.setFormato(i, "Nessuno");
            c.setIntestazione(i, fields[i]);
            c.setColsWidth(i, widths[i]);
            c.setOrdinamento(i, fields[i]);
        }
        c.setStileTesta(StileTestaType::White);
        c.setDataBaseName(path);
        c.setQueryString("SELECT id, name, price FROM t");
        widget->setEvents(&handler);
        widget->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(widget.get()));
        c.Carica();
        QApplication::processEvents();
    }

    Tabulon12::Impl& S() { return Tabulon12Probe::Of(widget->Control()); }
    QWidget& Painter() { return widget->Painter(); }
    QPoint Cell(int row, int col) { return CellPoint(S().FG1, row, col); }
    std::string Shown(int row) { return widget->Control().TextMatrix(row, 0); }
    testing::TempDir dir;
    LinkHandler handler;
    std::unique_ptr<Tabulon12Widget> widget;
};

TEST_F(SortMouseGuiTest, AClickOnAHeadingSortsAndShowsTheArrow) {
    const Label& caption = testing::FindElement<Label>(S().surface, "LabelMenu", 1);
    QTest::mouseClick(&Painter(), Qt::LeftButton, Qt::NoModifier, CentreOf(caption));
    QApplication::processEvents();
    EXPECT_EQ(widget->Control().IndiceordinamentoAttivo(), 1);
    EXPECT_EQ(Shown(0), "1");  // Anna
    const ImageElement& arrow = *S().elements.ImageOrd;
    ASSERT_TRUE(arrow.Visible());
    const QImage shot = Grab(*widget);
    // The blue up arrow stands at the heading's right end: blue pixels there.
    const int blue = CountPixels(shot, AreaOf(arrow), [](const QColor& p) { return p.blue() > 150 && p.red() < 120; });
    EXPECT_GT(blue, 10);
    QTest::mouseClick(&Painter(), Qt::LeftButton, Qt::NoModifier, CentreOf(caption));
    EXPECT_EQ(Shown(0), "5");  // Elio first of the descending
    EXPECT_EQ(arrow.ToolTipText(), "Ordinamento Decrescente");
}

TEST_F(SortMouseGuiTest, EveryArrowColourShowsItsArrowOnTheBand) {
    struct Expect {
        ColorArrowType colour;
        std::function<bool(const QColor&)> looksRight;
    };
    const Expect expectations[] = {
        {ColorArrowType::White, [](const QColor& p) { return p.red() > 235 && p.green() > 235 && p.blue() > 235; }},
        {ColorArrowType::Black, [](const QColor& p) { return p.red() < 60 && p.green() < 60 && p.blue() < 60; }},
        {ColorArrowType::Grey, [](const QColor& p) { return std::abs(p.red() - p.blue()) < 20 && p.red() > 90 && p.red() < 200; }},
        {ColorArrowType::Blue, [](const QColor& p) { return p.blue() > p.red() + 60; }},
        {ColorArrowType::Green, [](const QColor& p) { return p.green() > p.red() + 50 && p.green() > p.blue() + 20; }},
    };
    Tabulon12& c = widget->Control();
    c.setStileTesta(StileTestaType::Sea);  // a dark band, so that a white arrow shows
    for (const Expect& e : expectations) {
        SCOPED_TRACE(static_cast<int>(e.colour));
        c.OrdinaColonna(2);
        if (S().elements.ImageOrd->ToolTipText() == "Ordinamento Decrescente") c.OrdinaColonna(2);
        if (!S().elements.ImageOrd->Visible()) c.OrdinaColonna(2);
        c.setStileArrow(e.colour);
        c.OrdinaColonna(0);  // a click elsewhere takes the new colour
        ASSERT_TRUE(S().elements.ImageOrd->Visible());
        ASSERT_EQ(S().elements.ImageOrd->GetPicture(), S().pictures.ArrowUp(static_cast<int16_t>(e.colour)));
        QApplication::processEvents();
        const QImage shot = Grab(*widget);
        EXPECT_GT(CountPixels(shot, AreaOf(*S().elements.ImageOrd), e.looksRight), 6);
        c.OrdinaColonna(0);  // descending: the down arrow of the same colour
        EXPECT_EQ(S().elements.ImageOrd->GetPicture(), S().pictures.ArrowDown(static_cast<int16_t>(e.colour)));
        c.OrdinaColonna(0);  // no sort
    }
}

TEST_F(SortMouseGuiTest, TheHoverTileFollowsTheMouseOverSortableHeadings) {
    widget->Control().setStileTestaOver(StileTestaType::Orange);
    const Label& caption = testing::FindElement<Label>(S().surface, "LabelMenu", 2);
    QTest::mouseMove(&Painter(), CentreOf(caption));
    QApplication::processEvents();
    const ImageElement& hover = *S().elements.ImageZ;
    ASSERT_TRUE(hover.Visible());
    const QImage shot = Grab(*widget);
    // The orange hover texture, not the white tiles, under the heading.
    const QRect tile = AreaOf(hover).intersected(AreaOf(*S().elements.Shape2));
    const int orange = CountPixels(shot, tile, [](const QColor& p) { return p.red() > 200 && p.blue() < 150; });
    EXPECT_GT(orange, tile.width() * tile.height() / 3);
    QTest::mouseMove(&Painter(), Cell(2, 1));  // over the grid the hover goes
    QApplication::processEvents();
    EXPECT_FALSE(hover.Visible());
}

TEST_F(SortMouseGuiTest, ACutCellShowsItsTipAtThePointer) {
    const QPoint at = Cell(1, 1) + QPoint(20, 0);  // "Anna con un nome molto lungo davvero"
    QTest::mouseMove(&Painter(), at);
    QApplication::processEvents();
    const PictureBox& tip = *S().elements.PictureTTT;
    ASSERT_TRUE(tip.Visible());
    EXPECT_EQ(S().elements.LabelTTT->Caption(), " Anna con un nome molto lungo davvero ");
    const QPoint tipAt(PixelsOf(tip.SurfaceLeft()), PixelsOf(tip.SurfaceTop()));
    const QPoint grid(PixelsOf(S().FG1.Left()), PixelsOf(S().FG1.Top()));
    EXPECT_LE((tipAt - (at - grid)).manhattanLength(), 2);  // at the pointer, in the grid's place
    const QImage shot = Grab(*widget);
    EXPECT_GT(CountExactly(shot, AreaOf(*S().elements.LabelTTT), 0x80FFFF), 50);  // the pale yellow back
    EXPECT_GT(CountDiffering(shot, AreaOf(*S().elements.LabelTTT), 0x80FFFF), 40);  // and its text
    QTest::mouseMove(&Painter(), Cell(0, 0));
    QApplication::processEvents();
    EXPECT_FALSE(tip.Visible());
}

TEST_F(SortMouseGuiTest, AHyperlinkShowsTheHandAndItsClickReachesTheHandlerAndTheSignal) {
    widget->Control().setIsIperText(1, 1);
    QSignalSpy spy(widget.get(), &Tabulon12Widget::IperTextClick);
    const QPoint link = Cell(2, 1);
    QTest::mouseMove(&Painter(), link);
    QApplication::processEvents();
    EXPECT_EQ(S().FG1.MousePointer(), Pointer::Custom);
    EXPECT_EQ(Painter().cursor().shape(), Qt::BitmapCursor);  // the drawn hand
    QTest::mouseClick(&Painter(), Qt::LeftButton, Qt::NoModifier, link);
    EXPECT_EQ(handler.clicks, 1);
    EXPECT_EQ(handler.row, 2);
    EXPECT_EQ(handler.column, 2);
    EXPECT_EQ(handler.key, 2);
    EXPECT_EQ(handler.linkText, "Bruno");
    ASSERT_EQ(spy.count(), 1);
    QTest::mouseMove(&Painter(), Cell(2, 0));
    QApplication::processEvents();
    EXPECT_NE(Painter().cursor().shape(), Qt::BitmapCursor);
}

TEST_F(SortMouseGuiTest, EveryHostEventIsAlsoAQtSignalWhoseSlotMayChangeItsArguments) {
    QSignalSpy clicks(widget.get(), &Tabulon12Widget::CellClick);
    QSignalSpy loads(widget.get(), &Tabulon12Widget::Caricato);
    int16_t rewritten = 0;
    QObject::connect(widget.get(), &Tabulon12Widget::KeyDown, [&](int16_t& key, int16_t&) {
        rewritten = key;
        key = 0;
    });
    QTest::mouseClick(&Painter(), Qt::LeftButton, Qt::NoModifier, Cell(3, 2));
    ASSERT_EQ(clicks.count(), 1);
    widget->Control().Carica();
    EXPECT_EQ(loads.count(), 1);
    QTest::mouseClick(&Painter(), Qt::LeftButton, Qt::NoModifier, Cell(3, 2));
    QTest::keyClick(&Painter(), Qt::Key_Down);
    EXPECT_EQ(rewritten, 40);
    EXPECT_EQ(S().FG1.Row(), 4);  // the key moved the selection first
}

}  // namespace
}  // namespace TabulonLib12::GuiTest
