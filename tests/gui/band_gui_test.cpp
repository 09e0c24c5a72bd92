// The heading band on the real widget: every style shows its texture under every column with
// readable captions over it, and the vertical lines stand exactly where MostraBarraVert asks.
#include <gtest/gtest.h>

#include "gui_test_support.h"
#include "platform/sqlite/sqlite_engine.h"
#include "tests/db/sqlite_fixture.h"
#include "tests/support/probe.h"
#include "widgets/tabulon12_widget.h"

namespace TabulonLib12::GuiTest {
namespace {

QColor ArgbColour(uint32_t argb) { return QColor((argb >> 16) & 0xFF, (argb >> 8) & 0xFF, argb & 0xFF); }

int Distance(const QColor& a, const QColor& b) {
    return std::abs(a.red() - b.red()) + std::abs(a.green() - b.green()) + std::abs(a.blue() - b.blue());
}

constexpr StileTestaType kStyles[] = {StileTestaType::Ice,    StileTestaType::Black,  StileTestaType::Sea,
                                      StileTestaType::Orange, StileTestaType::Violet, StileTestaType::Sky,
                                      StileTestaType::Green,  StileTestaType::White,  StileTestaType::Scheda,
                                      StileTestaType::Custom};

class BandGuiTest : public ::testing::Test {
protected:
    void SetUp() override {
        const std::string path = dir.File("list.db");
        testing::WriteDatabase(path,
                               "CREATE TABLE t(id INTEGER, name VARCHAR(30), city VARCHAR(20), amount DOUBLE);"
                               "WITH RECURSIVE k(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM k WHERE i < 40)"
                               " INSERT INTO t SELECT i, 'Cliente ' || i, 'Citta ' || i, i * 2.5 FROM k;");
        widget = std::make_unique<Tabulon12Widget>();
        widget->resize(700, 300);
        Tabulon12& c = widget->Control();
        c.setAdattamentoColonneDisattivato(true);
        c.setCols(4);
        const char* fields[] = {"id", "name", "city", "amount"};
        const char* headings[] = {"Numero", "Ragione sociale", "Citta", "Importo"};
        const int16_t widths[] = {1500, 3000, 2400, 1800};
        for (int16_t i = 0; i < 4; ++i) {
            c.setCampoQuery(i, fields[i]);
            c.setFormato(i, "Nessuno");
            c.setIntestazione(i, headings[i]);
            c.setColsWidth(i, widths[i]);
        }
        c.setDataBaseName(path);
        c.setQueryString("SELECT id, name, city, amount FROM t ORDER BY id");
        widget->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(widget.get()));
        c.Carica();
    }

    Tabulon12::Impl& S() { return Tabulon12Probe::Of(widget->Control()); }
    QImage Shot() {
        QApplication::processEvents();
        return Grab(*widget);
    }
    testing::TempDir dir;
    std::unique_ptr<Tabulon12Widget> widget;
};

TEST_F(BandGuiTest, EveryStyleShowsItsTextureUnderEveryColumnWithReadableCaptions) {
    for (StileTestaType style : kStyles) {
        SCOPED_TRACE(static_cast<int>(style));
        Tabulon12& c = widget->Control();
        c.setStileTesta(style);
        // Captions in a colour that stands out on the style: light on the dark ones.
        const bool dark = style == StileTestaType::Black || style == StileTestaType::Sea;
        c.setForeColorHead(dark ? 0xFFFFFF : 0x000000);
        const QImage shot = Shot();
        const Image& texture = *S().pictures.Style(static_cast<int16_t>(style));
        for (int16_t i = 0; i <= 4; ++i) {  // four columns and the filler
            const ImageElement& tile = testing::FindElement<ImageElement>(S().surface, "Image1", i);
            const QRect r = AreaOf(tile).intersected(AreaOf(*S().elements.Shape2));
            ASSERT_FALSE(r.isEmpty()) << i;
            // Away from the caption: the tile's pixels near its right end show the texture's
            // colour of the same height, whatever the stretch.
            const int x = r.right() - 3;
            for (int y : {r.top() + r.height() / 3, r.top() + r.height() / 2, r.top() + 2 * r.height() / 3}) {
                const int ty = std::clamp((y - PixelsOf(tile.SurfaceTop())) * texture.height / std::max(1, PixelsOf(tile.Height())), 0,
                                          texture.height - 1);
                const QColor want = ArgbColour(texture.at(texture.width - 4, ty));
                EXPECT_LT(Distance(shot.pixelColor(x, y), want), 40) << "tile " << i << " at y " << y;
            }
        }
        for (int16_t i = 0; i < 4; ++i) {
            const Label& caption = testing::FindElement<Label>(S().surface, "LabelMenu", i);
            EXPECT_GT(CountDiffering(shot, AreaOf(caption), c.ForeColorHead() == 0 ? 0xFFFFFF : 0x000000), 0);
            const QColor ink = ColourOf(c.ForeColorHead());
            const int inked = CountPixels(shot, AreaOf(caption), [&](const QColor& p) { return Distance(p, ink) < 150; });
            EXPECT_GT(inked, 15) << "caption " << i << " has no readable text";
        }
    }
}

TEST_F(BandGuiTest, TheVerticalLinesStandExactlyWhereMostraBarraVertAsks) {
    Tabulon12& c = widget->Control();
    c.setVerticalGridColor(Rgb(200, 0, 0));
    c.setMostraBarraVert(0, true);   // the line between columns 0 and 1
    c.setMostraBarraVert(2, true);   // between 2 and 3
    c.setMostraBarraVert(3, true);   // the last column's governs no line
    c.setVerticalGrid(true);
    c.CaricaStruttura();
    const QImage shot = Shot();
    CellGrid& fg = S().FG1;
    const int top = PixelsOf(fg.Top()) + 2, height = PixelsOf(fg.Height()) - 4;
    auto redColumnAt = [&](int x) { return CountExactly(shot, QRect(x, top, 1, height), Rgb(200, 0, 0)); };
    for (int i = 0; i < 4; ++i) {
        const int x = PixelsOf(fg.Left() + fg.ColPos(i) - 15);
        const bool wanted = i == 1 || i == 3;
        if (wanted) EXPECT_GE(redColumnAt(x), height - 1) << "line " << i;
        else EXPECT_EQ(redColumnAt(x), 0) << "line " << i;
    }
    // No red anywhere else on the grid.
    const int all = CountExactly(shot, QRect(PixelsOf(fg.Left()), top, PixelsOf(fg.Width()), height), Rgb(200, 0, 0));
    EXPECT_EQ(all, redColumnAt(PixelsOf(fg.Left() + fg.ColPos(1) - 15)) + redColumnAt(PixelsOf(fg.Left() + fg.ColPos(3) - 15)));
    c.setVerticalGrid(false);
    EXPECT_EQ(CountExactly(Shot(), QRect(PixelsOf(fg.Left()), top, PixelsOf(fg.Width()), height), Rgb(200, 0, 0)), 0);
}

}  // namespace
}  // namespace TabulonLib12::GuiTest
