// The heading band and the column bands: tiles, captions, the filler, the lines and the
// heading pictures placed to the twip, the styles and the colour properties, and the quirks
// the builds keep on purpose. Scaling is turned off so that the designed widths stand.
#include <gtest/gtest.h>

#include "grid_fixture.h"

namespace TabulonLib12::testing {
namespace {

class BandTest : public GridTest {
protected:
    ImageElement& Tile(int16_t i) { return FindElement<ImageElement>(S().surface, "Image1", i); }
    bool HasTile(int16_t i) { return FindElementIn(S().surface, "Image1", i) != nullptr; }
    bool HasCaption(int16_t i) { return FindElementIn(S().surface, "LabelMenu", i) != nullptr; }
    bool HasLine(int16_t i) { return FindElementIn(S().surface, "FrameLine", i) != nullptr; }
    bool HasPicture(int16_t i) { return FindElementIn(S().surface, "PicCol", i) != nullptr; }
    Frame& Band() { return *S().elements.Shape2; }

    // `widths.size()` columns of those widths, headed "H0", "H1", ..., built unscaled.
    void Columns(std::initializer_list<int16_t> widths) {
        control->setAdattamentoColonneDisattivato(true);
        control->setCols(static_cast<int16_t>(widths.size()));
        int16_t i = 0;
        for (int16_t w : widths) {
            control->setIntestazione(i, "H" + std::to_string(i));
            control->setColsWidth(i, w);
            ++i;
        }
        control->CaricaStruttura();
    }

    void UseImageList() {
        red = std::make_shared<Image>(18, 13, 0xFFFF0000u);
        green = std::make_shared<Image>(18, 13, 0xFF00FF00u);
        blue = std::make_shared<Image>(18, 13, 0xFF0000FFu);
        auto list = std::make_shared<ImageList>("Figure", std::vector<Picture>{red, green, blue});
        auto form = std::make_shared<HostForm>("Form1");
        form->Add(list);
        control->setFormContenitore(form);
        control->setImageLista("Figure");
    }

    Picture red, green, blue;
};

TEST_F(BandTest, OneColumnItsTileAtItsPositionLessTenAndTheFillerAfterIt) {
    Columns({2000});
    EXPECT_EQ(Tile(0).Left(), -10);  // FG1.ColPos(0) - 10: with one column item 0 keeps its place
    EXPECT_EQ(Tile(0).Width(), 1990);
    EXPECT_TRUE(HasTile(1));  // the filler
    EXPECT_EQ(Tile(1).Left(), 2000 - 15);
    EXPECT_EQ(Tile(1).Width(), Band().Width() - 15);
    EXPECT_TRUE(Tile(1).Visible());
    EXPECT_FALSE(HasTile(2));
}

TEST_F(BandTest, TwoColumnsOrMoreTheFirstTileStartsAtTheBandsEdge) {
    Columns({1200, 1800});
    EXPECT_EQ(Tile(0).Left(), 0);
    EXPECT_EQ(Tile(0).Width(), 1190);
    EXPECT_EQ(Tile(1).Left(), 1200 - 10);
    EXPECT_EQ(Tile(1).Width(), 1790);
    EXPECT_EQ(Tile(2).Left(), 1200 + 1800 - 15);  // the filler
    EXPECT_EQ(Tile(2).Width(), Band().Width() - 15);
}

TEST_F(BandTest, FiveColumnsTilesCaptionsAndFillerToTheTwip) {
    Columns({900, 2500, 1300, 700, 1600});
    const float lefts[] = {0, 890, 3390, 4690, 5390};
    const float widths[] = {890, 2490, 1290, 690, 1590};
    for (int16_t i = 0; i < 5; ++i) {
        EXPECT_EQ(Tile(i).Left(), lefts[i]) << i;
        EXPECT_EQ(Tile(i).Width(), widths[i]) << i;
        EXPECT_EQ(Menu(i).Left(), lefts[i]) << i;
        // The caption is as wide as its column: 10 twips past its tile.
        EXPECT_EQ(Menu(i).Width(), widths[i] + 10) << i;
        EXPECT_EQ(Menu(i).Caption(), "H" + std::to_string(i)) << i;
        EXPECT_EQ(Menu(i).Top(), Menu(0).Top()) << i;
        EXPECT_EQ(Tile(i).Top(), Tile(0).Top()) << i;
    }
    EXPECT_EQ(Tile(5).Left(), 900 + 2500 + 1300 + 700 + 1600 - 15);
}

TEST_F(BandTest, TheBandFrameSpansTheGridAndTheBarAndAThousandMore) {
    Columns({1000, 1000});
    EXPECT_EQ(Band().Left(), 38);
    EXPECT_EQ(Band().Width(), S().VS1.Width() + FG1().Width() + 1000);
    EXPECT_EQ(Band().BackColor(), control->ColorGridHead());
}

TEST_F(BandTest, AHiddenColumnHasAHiddenTileThatKeepsItsWidthAndAnEmptyCaption) {
    Columns({1000, 1500, 1200});
    EXPECT_EQ(Tile(1).Width(), 1490);
    control->setColsWidth(1, 0);  // rebuilds
    EXPECT_FALSE(Tile(1).Visible());
    EXPECT_EQ(Tile(1).Width(), 1490);  // -10 is refused and the build goes on
    EXPECT_EQ(Tile(1).Left(), 1000 - 10);
    EXPECT_EQ(Menu(1).Caption(), "");
    EXPECT_EQ(control->Intestazione(1), "H1");
    EXPECT_EQ(Tile(2).Left(), 1000 - 10);  // the next column starts where the hidden one did
    EXPECT_TRUE(Tile(2).Visible());
}

TEST_F(BandTest, ColsWidthZeroEmptiesTheCaptionEvenWithAHeading) {
    Columns({1000, 1000});
    control->setColsWidth(0, 0);
    EXPECT_EQ(Menu(0).Caption(), "");
    control->setIntestazione(0, "Visibile");  // the write itself reaches the caption
    EXPECT_EQ(Menu(0).Caption(), "Visibile");
    control->CaricaStruttura();
    EXPECT_EQ(Menu(0).Caption(), "");
}

TEST_F(BandTest, AColumnOfTheChoiceHasAnEmptyCaptionAndKeepsItsLineAtTheNextColumnsLeft) {
    const std::string choice = dir.File("scelta.txt");
    std::ofstream(choice) << "1\r\n";
    LoadNumbered(3);
    control->setAdattamentoColonneDisattivato(true);
    control->setFileScelta(choice);
    control->Carica();
    control->CaricaStruttura();
    EXPECT_EQ(Menu(1).Caption(), "");
    EXPECT_EQ(FG1().ColWidth(1), 0);
    EXPECT_EQ(FrameLine(1).Left(), FrameLine(2).Left());
}

TEST_F(BandTest, ItemsAboveANewLastColumnStayAndTheNextTileBecomesTheFiller) {
    Columns({1000, 1000, 1000, 1000});
    const float oldTile3 = Tile(3).Left();
    control->setCols(2);
    EXPECT_FALSE(HasCaption(2));
    EXPECT_FALSE(HasLine(2));
    EXPECT_TRUE(HasTile(4));  // tiles are never unloaded
    EXPECT_EQ(Tile(3).Left(), oldTile3);  // left where it was
    EXPECT_EQ(Tile(2).Left(), 2000 - 15);  // the filler now
    EXPECT_EQ(Tile(2).Width(), Band().Width() - 15);
}

TEST_F(BandTest, TheColsWriteUnloadsCaptionsLinesAndPicturesAboveZeroBeforeTheRebuild) {
    UseImageList();
    Columns({1000, 1000, 1000});
    control->setImmagineA(2, 1);
    control->CaricaStruttura();
    ASSERT_TRUE(HasPicture(2));
    control->setCols(2);
    EXPECT_FALSE(HasPicture(2));
    EXPECT_FALSE(HasCaption(2));
    EXPECT_TRUE(HasCaption(1));  // rebuilt
    EXPECT_TRUE(HasLine(1));
}

TEST_F(BandTest, CaptionsTakeTheHeadingColourAtEveryBuild) {
    Columns({1000, 1000, 1000});
    control->setForeColorHead(0x123456);
    for (int16_t i = 0; i < 3; ++i) EXPECT_EQ(Menu(i).ForeColor(), 0x123456u);
    Menu(1).setForeColor(0xFF);
    control->CaricaStruttura();
    EXPECT_EQ(Menu(1).ForeColor(), 0x123456u);
}

TEST_F(BandTest, TheLinesStandAtTheColumnsLeftEdgesAsHighAsTheGrid) {
    Columns({1000, 2000, 1500});
    for (int16_t i = 0; i < 3; ++i) {
        EXPECT_EQ(FrameLine(i).Top(), FG1().Top()) << i;
        EXPECT_EQ(FrameLine(i).Width(), 15) << i;
        EXPECT_EQ(FrameLine(i).Height(), FG1().Height()) << i;
        EXPECT_EQ(FrameLine(i).Left(), FG1().Left() + FG1().ColPos(i) - 15) << i;
    }
    EXPECT_EQ(FrameLine(2).Left(), 30 + 3000 - 15);
}

TEST_F(BandTest, EveryMostraBarraVertOfThreeShowsLinesOneAndTwoOnly) {
    Columns({1000, 1000, 1000});
    for (int16_t i = 0; i < 3; ++i) control->setMostraBarraVert(i, true);
    control->setVerticalGrid(true);
    EXPECT_FALSE(FrameLine(0).Visible());
    EXPECT_TRUE(FrameLine(1).Visible());
    EXPECT_TRUE(FrameLine(2).Visible());
    EXPECT_FALSE(HasLine(3));  // the last column's switch governs no line
}

TEST_F(BandTest, MostraBarraVertOfColumnZeroShowsTheLineBetweenZeroAndOneAtTheNextRebuild) {
    Columns({1000, 1000, 1000});
    control->setVerticalGrid(true);
    control->setMostraBarraVert(0, true);
    EXPECT_FALSE(FrameLine(1).Visible());  // the write itself changes no line
    control->CaricaStruttura();
    EXPECT_TRUE(FrameLine(1).Visible());
    EXPECT_FALSE(FrameLine(2).Visible());
    control->setVerticalGrid(false);  // hides them, and keeps the items
    EXPECT_FALSE(FrameLine(1).Visible());
    EXPECT_TRUE(HasLine(1));
}

TEST_F(BandTest, VerticalGridBeforeTheLinesAreBuiltFailsAfterStoringTheValue) {
    control = std::make_unique<Tabulon12>(host, metrics, timers);
    control->setCols(1);
    Tabulon12Probe::Of(*control).Cols = 3;  // as a restored store leaves it before the build
    EXPECT_THROW(control->setVerticalGrid(true), Error);
    EXPECT_TRUE(control->VerticalGrid());
    EXPECT_THROW(control->setVerticalGridColor(0x00FF00), Error);
    EXPECT_EQ(control->VerticalGridColor(), 0x00FF00u);  // line 0 took it
}

TEST_F(BandTest, VerticalGridColorColoursEveryLineAndReadsLineZero) {
    Columns({1000, 1000, 1000});
    control->setVerticalGridColor(0x0080FF);
    for (int16_t i = 0; i < 3; ++i) EXPECT_EQ(FrameLine(i).BackColor(), 0x0080FFu) << i;
    EXPECT_EQ(control->VerticalGridColor(), 0x0080FFu);
}

TEST_F(BandTest, AHeadingPictureIsCentredOverItsColumnAndMayStartBeforeIt) {
    UseImageList();
    Columns({1000, 2000, 200});
    control->setImmagineA(1, 3);
    control->setImmagineA(2, 2);
    control->setToolTT(2, "Stato");
    control->CaricaStruttura();
    EXPECT_TRUE(PicCol(1).Visible());
    EXPECT_EQ(PicCol(1).Left(), 1000 + (2000 - 270) / 2);
    EXPECT_EQ(PicCol(1).GetPicture(), blue);
    // A column narrower than the picture: half the difference before the column's own left.
    EXPECT_EQ(PicCol(2).Left(), 3000 - 35);
    EXPECT_EQ(PicCol(2).GetPicture(), green);
    EXPECT_EQ(PicCol(2).ToolTipText(), "Stato");
    EXPECT_EQ(PicCol(2).Top(), PicCol(0).Top());
    // Halves round to even: (1001 - 270) / 2 = 365.5 gives 366, (1003 - 270) / 2 = 366.5 gives 366.
    control->setColsWidth(1, 1001);
    EXPECT_EQ(PicCol(1).Left(), 1000 + 366);
    control->setColsWidth(1, 1003);
    EXPECT_EQ(PicCol(1).Left(), 1000 + 366);
}

TEST_F(BandTest, ImmagineAZeroHidesTheHeadingPictureAndLaterItemsStillCopyItsTop) {
    UseImageList();
    Columns({1000, 1000});
    control->setImmagineA(1, 1);
    control->CaricaStruttura();
    EXPECT_FALSE(PicCol(0).Visible());
    EXPECT_TRUE(PicCol(1).Visible());
    EXPECT_EQ(PicCol(1).Top(), PicCol(0).Top());
    control->setImmagineA(1, 0);
    control->CaricaStruttura();
    EXPECT_FALSE(PicCol(1).Visible());
}

TEST_F(BandTest, AHeadingPictureBeyondTheListIsPlacedAndKeepsItsPicture) {
    UseImageList();
    Columns({1000, 1000});
    control->setImmagineA(1, 2);
    control->CaricaStruttura();
    control->setImmagineA(1, 9);
    control->CaricaStruttura();
    EXPECT_TRUE(PicCol(1).Visible());
    EXPECT_EQ(PicCol(1).GetPicture(), green);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(BandTest, StileTestaGivesEveryTileItsTextureAndStoresBeforeFailing) {
    Columns({1000, 1000, 1000});
    changed.clear();
    control->setStileTesta(StileTestaType::Sea);
    const Picture sea = Tabulon12Probe::Of(*control).pictures.Style(2);
    for (int16_t i = 0; i <= 3; ++i) EXPECT_EQ(Tile(i).GetPicture(), sea) << i;
    EXPECT_EQ(changed, std::vector<std::string>{"StileTesta"});
    changed.clear();
    try {
        control->setStileTesta(static_cast<StileTestaType>(50));
        ADD_FAILURE() << "a style without a texture must fail";
    } catch (const Error& e) {
        EXPECT_EQ(e.kind(), ErrorKind::OutOfBounds);
    }
    EXPECT_EQ(static_cast<int>(control->StileTesta()), 50);
    EXPECT_TRUE(changed.empty());
    EXPECT_EQ(Tile(0).GetPicture(), sea);
}

TEST_F(BandTest, ANewTileCopiesTheTextureOfItemZero) {
    Columns({1000});
    control->setStileTesta(StileTestaType::Orange);
    control->setCols(4);
    EXPECT_EQ(Tile(3).GetPicture(), Tile(0).GetPicture());
    EXPECT_EQ(Tile(4).GetPicture(), Tile(0).GetPicture());
}

TEST_F(BandTest, StileTestaOverSchedaShowsTheIceTextureInTheHoverTile) {
    const auto& library = Tabulon12Probe::Of(*control).pictures;
    control->setStileTestaOver(StileTestaType::Scheda);
    EXPECT_EQ(S().elements.ImageZ->GetPicture(), library.Style(0));
    EXPECT_NE(S().elements.ImageZ->GetPicture(), library.Style(99));
    control->setStileTestaOver(StileTestaType::Violet);
    EXPECT_EQ(S().elements.ImageZ->GetPicture(), library.Style(4));
    EXPECT_THROW(control->setStileTestaOver(static_cast<StileTestaType>(8)), Error);
}

TEST_F(BandTest, StileTestaSchedaIsSimplyItsOwnTexture) {
    Columns({1000});
    control->setStileTesta(StileTestaType::Scheda);
    EXPECT_EQ(Tile(0).GetPicture(), Tabulon12Probe::Of(*control).pictures.Style(99));
}

TEST_F(BandTest, CustomStartsAsSchedaAndTakesTheHostsPicture) {
    Columns({1000, 1000});
    const auto& library = Tabulon12Probe::Of(*control).pictures;
    control->setStileTesta(StileTestaType::Custom);
    EXPECT_EQ(Tile(0).GetPicture(), library.Style(99));
    auto mine = std::make_shared<Image>(93, 21, 0xFF336699u);
    control->setStileTestaOver(StileTestaType::Custom);
    changed.clear();
    control->setCustomPictureStyle(mine);
    for (int16_t i = 0; i <= 2; ++i) EXPECT_EQ(Tile(i).GetPicture(), mine) << i;
    EXPECT_EQ(S().elements.ImageZ->GetPicture(), mine);
    EXPECT_EQ(library.Style(100), mine);
    EXPECT_TRUE(changed.empty());  // a custom picture is not saved
}

TEST_F(BandTest, CustomArrowsGoToTheLibraryOnly) {
    auto up = std::make_shared<Image>(13, 21, 0xFF00FF00u);
    auto down = std::make_shared<Image>(13, 21, 0xFFFF0000u);
    const auto& library = Tabulon12Probe::Of(*control).pictures;
    EXPECT_EQ(library.ArrowUp(100), library.ArrowUp(0));
    control->setCustomPicArrowUp(up);
    control->setCustomPicArrowDown(down);
    EXPECT_EQ(library.ArrowUp(100), up);
    EXPECT_EQ(library.ArrowDown(100), down);
    EXPECT_FALSE(S().elements.ImageOrd->Visible());
}

TEST_F(BandTest, StileArrowStoresAValueWithoutAPictureToo) {
    changed.clear();
    control->setStileArrow(static_cast<ColorArrowType>(5));
    EXPECT_EQ(static_cast<int>(control->StileArrow()), 5);
    EXPECT_EQ(changed, std::vector<std::string>{"StileArrow"});
}

TEST_F(BandTest, TheDesignedTilesShowGreenAndTheHoverTileScheda) {
    auto fresh = std::make_unique<Tabulon12>(host, metrics, timers);
    auto& s = Tabulon12Probe::Of(*fresh);
    EXPECT_EQ(FindElement<ImageElement>(s.surface, "Image1", 0).GetPicture(), s.pictures.Style(6));
    EXPECT_EQ(s.elements.ImageZ->GetPicture(), s.pictures.Style(99));
}

TEST_F(BandTest, BackColorSfondoThenBackColorTheSurfaceIsTheLastAndTheGridBackWaitsForTheBuild) {
    control->setBackColorSfondo(0x0000FF);
    EXPECT_EQ(FG1().BackColorBkg(), 0x0000FFu);
    control->setBackColor(0xFF0000);
    EXPECT_EQ(S().surface.BackColor(), 0xFF0000u);
    EXPECT_EQ(control->BackColor(), 0xFF0000u);
    EXPECT_EQ(control->BackColorSfondo(), 0xFF0000u);
    EXPECT_EQ(FG1().BackColorBkg(), 0x0000FFu);
    control->CaricaStruttura();
    EXPECT_EQ(FG1().BackColorBkg(), 0xFF0000u);
}

TEST_F(BandTest, BackColor2ReachesNothing) {
    LoadNumbered(3);
    const Colour before = FG1().View(0, 1).back;
    control->setBackColor2(0x00FF00);
    EXPECT_EQ(control->BackColor2(), 0x00FF00u);
    EXPECT_EQ(FG1().View(0, 1).back, before);
    EXPECT_EQ(FG1().BackColor(), 0xC0C0C0u);  // the grid's own back colour is never set at run time
}

TEST_F(BandTest, ColourPropertiesReachTheirSurfaces) {
    Columns({1000, 1000});
    control->setColorGridHead(0x112233);
    EXPECT_EQ(Band().BackColor(), 0x112233u);
    control->setBorderColor(0x445566);
    EXPECT_EQ(S().elements.Shape1->BorderColor(), 0x445566u);
    control->setBackColorTopScheda(0x778899);
    EXPECT_EQ(S().elements.LabelTopSk->BackColor(), 0x778899u);
    control->setGridColor(0x010101);
    EXPECT_EQ(FG1().GridColor(), 0x010101u);
    control->setForeColor(0x020202);
    EXPECT_EQ(FG1().ForeColor(), 0x020202u);
}

}  // namespace
}  // namespace TabulonLib12::testing
