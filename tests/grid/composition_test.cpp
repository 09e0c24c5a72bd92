// The designed assembly of a new control: every element with its design geometry and settings,
// before any build or layout moves it.
#include <gtest/gtest.h>

#include "grid_fixture.h"

namespace TabulonLib12::testing {
namespace {

class CompositionTest : public GridTest {
protected:
    // A control as created, with no build and no layout after it.
    CompositionTest() { fresh = std::make_unique<Tabulon12>(host, metrics, timers); }
    Tabulon12::Impl& F() { return Tabulon12Probe::Of(*fresh); }
    template <class T = Element>
    T& E(const char* name, int16_t index = -1) {
        return FindElement<T>(F().surface, name, index);
    }
    static void ExpectGeometry(const Element& e, float l, float t, float w, float h) {
        EXPECT_EQ(e.Left(), l) << e.Name();
        EXPECT_EQ(e.Top(), t) << e.Name();
        EXPECT_EQ(e.Width(), w) << e.Name();
        EXPECT_EQ(e.Height(), h) << e.Name();
    }
    std::unique_ptr<Tabulon12> fresh;
};

TEST_F(CompositionTest, TheSurfaceHasTheDesignedSize) {
    EXPECT_EQ(F().surface.Width(), 15600);
    EXPECT_EQ(F().surface.Height(), 9600);
}

TEST_F(CompositionTest, TheScrollBarAndTheChooserStandWhereDesigned) {
    EXPECT_EQ(F().VS1.Left(), 15105);
    EXPECT_EQ(F().VS1.Top(), 375);
    EXPECT_EQ(F().VS1.Width(), 255);
    EXPECT_EQ(F().VS1.Height(), 8925);
    auto& panel = E<Frame>("FrameSceltaColonne");
    ExpectGeometry(panel, 6450, 135, 2955, 3870);
    EXPECT_FALSE(panel.Visible());
    EXPECT_EQ(panel.BackColor(), 0xFF0000u);
    EXPECT_EQ(panel.Caption(), "Frame1");
    EXPECT_EQ(panel.BorderStyle(), 0);
    auto& box = E<CheckBox>("CheckScelta", 0);
    EXPECT_EQ(box.Container(), &panel);
    ExpectGeometry(box, 15, 15, 2925, 195);
    EXPECT_EQ(box.Caption(), "Check1");
    auto& tools = E<PictureBox>("ImageTools");
    ExpectGeometry(tools, 3600, 45, 240, 240);
    EXPECT_EQ(tools.ForeColor(), 0x80000008u);
    EXPECT_EQ(tools.ToolTipText(), "Scelta colonne da visualizzare");
}

TEST_F(CompositionTest, TheTooltipIsHiddenWithItsPaleYellowLabel) {
    auto& tip = E<PictureBox>("PictureTTT");
    ExpectGeometry(tip, 2055, 7380, 2310, 285);
    EXPECT_FALSE(tip.Visible());
    EXPECT_EQ(tip.BackColor(), 0x80000005u);
    EXPECT_EQ(tip.ForeColor(), 0x80000008u);
    auto& text = E<Label>("LabelTTT");
    EXPECT_EQ(text.Container(), &tip);
    EXPECT_EQ(text.Left(), 0);
    EXPECT_EQ(text.Top(), 0);
    EXPECT_TRUE(text.AutoSize());
    EXPECT_EQ(text.BackColor(), 0x80FFFFu);
}

TEST_F(CompositionTest, TheLinesAndThePictureLibraryStartHidden) {
    auto& line = E<Frame>("FrameLine", 0);
    ExpectGeometry(line, 900, 0, 15, 2775);
    EXPECT_FALSE(line.Visible());
    EXPECT_EQ(line.BackColor(), 0x0000FFu);
    auto& library = E<Frame>("FrameImmagini");
    ExpectGeometry(library, 2805, 7725, 3225, 1545);
    EXPECT_FALSE(library.Visible());
    for (const char* name : {"ImageStyle", "ImageUP", "ImageDown"}) EXPECT_EQ(E(name, 0).Container(), &library) << name;
}

TEST_F(CompositionTest, TheCellSurfaceHasItsDesignedState) {
    CellGrid& fg = F().FG1;
    ExpectGeometry(fg, 30, 345, 15000, 7140);
    EXPECT_EQ(fg.Rows(), 29);
    EXPECT_EQ(fg.Cols(), 1);
    EXPECT_EQ(fg.FixedRows(), 0);
    EXPECT_EQ(fg.FixedCols(), 0);
    EXPECT_EQ(fg.BackColor(), 0xC0C0C0u);
    EXPECT_EQ(fg.ForeColor(), 0x404040u);
    EXPECT_EQ(fg.BackColorFixed(), SystemColour::ButtonFace);
    EXPECT_EQ(fg.ForeColorFixed(), SystemColour::ButtonText);
    EXPECT_EQ(fg.BackColorSel(), SystemColour::Highlight);
    EXPECT_EQ(fg.ForeColorSel(), 0xFFFFFFu);
    EXPECT_EQ(fg.BackColorBkg(), 0xE6E6E6u);
    EXPECT_EQ(fg.GridColor(), 0xFFFFFFu);
    EXPECT_EQ(fg.GridColorFixed(), 0xFFFFFFu);
    EXPECT_EQ(fg.GridLines(), 1);
    EXPECT_EQ(fg.GridLinesFixed(), 2);
    EXPECT_EQ(fg.GetFont(), (Font{"Arial", 8.25f}));
}

TEST_F(CompositionTest, TheKeyBoxStandsBehindTheCellSurface) {
    auto& key = E<TextBox>("TextKey");
    ExpectGeometry(key, 1500, 585, 2235, 315);
    const auto& order = F().surface.Children();
    const auto keyAt = std::find(order.begin(), order.end(), &key);
    const auto gridAt = std::find(order.begin(), order.end(), &F().FG1);
    EXPECT_LT(keyAt, gridAt);  // back to front: the grid is in front
}

TEST_F(CompositionTest, TheHeadingBandAndItsItems) {
    auto& band = E<Frame>("Shape2");
    ExpectGeometry(band, 0, 15, 3870, 315);
    EXPECT_EQ(band.BackColor(), 0xF5DDCDu);
    EXPECT_EQ(band.BorderStyle(), 0);
    auto& tab = E<Label>("LabelTopSk");
    EXPECT_EQ(tab.Container(), &band);
    ExpectGeometry(tab, 840, 15, 900, 300);
    EXPECT_FALSE(tab.Visible());
    auto& picture = E<ImageElement>("PicCol", 0);
    ExpectGeometry(picture, 270, 30, 195, 195);
    auto& caption = E<Label>("LabelMenu", 0);
    ExpectGeometry(caption, 330, 60, 120, 195);
    EXPECT_EQ(caption.Caption(), "N");
    EXPECT_EQ(caption.Alignment(), Alignment::Centre);
    EXPECT_EQ(caption.BackStyle(), 0);
    EXPECT_EQ(caption.ForeColor(), 0xFFFFFFu);
    EXPECT_TRUE(E<ImageElement>("ImageZ").Stretch());
    EXPECT_FALSE(E<ImageElement>("ImageZ").Visible());
    EXPECT_TRUE(E<ImageElement>("Image1", 0).Stretch());
    auto& arrow = E<ImageElement>("ImageOrd");
    ExpectGeometry(arrow, 0, 0, 300, 345);
    EXPECT_FALSE(arrow.Visible());
}

TEST_F(CompositionTest, TheTotalsTheCountAndTheMeasuringLabels) {
    auto& total = E<Label>("LabelTOT", 0);
    ExpectGeometry(total, 165, 7905, 660, 195);
    EXPECT_FALSE(total.Visible());
    EXPECT_EQ(total.Caption(), "0");
    EXPECT_EQ(total.BackStyle(), 0);
    EXPECT_EQ(total.GetFont().name, "Arial");
    auto& count = E<Label>("LabelCount");
    EXPECT_EQ(count.Left(), 165);
    EXPECT_EQ(count.Top(), 7590);
    EXPECT_EQ(count.Caption(), "Righe visualizzate:");
    EXPECT_TRUE(count.AutoSize());
    EXPECT_EQ(count.BackStyle(), 0);
    EXPECT_TRUE(count.GetFont().bold);
    auto& title = E<Label>("LblMisuraTitolo");
    EXPECT_FALSE(title.Visible());
    EXPECT_TRUE(title.AutoSize());
    EXPECT_EQ(title.Caption(), "Label1");
    auto& measure = E<Label>("LabelMisTxt");
    EXPECT_EQ(measure.Left(), 210);
    EXPECT_EQ(measure.Top(), 675);
    EXPECT_TRUE(measure.AutoSize());
    EXPECT_EQ(measure.Caption(), "Label1");
    auto& outline = *F().elements.Shape1;  // the scroll bar has a Shape1 of its own
    ExpectGeometry(outline, 5415, 0, 8670, 7485);
    EXPECT_EQ(outline.BorderColor(), 0xCEAB8Eu);
}

}  // namespace
}  // namespace TabulonLib12::testing
