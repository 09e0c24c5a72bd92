// The bar as created: its elements, its defaults, its pictures and its removal.
#include <algorithm>

#include "scorrix_fixture.h"
#include "scrollbar/scorrix_pictures.h"

namespace TabulonLib12::testing {
namespace {

using Construction = ScorrixTest;

TEST_F(Construction, NewBarHoldsTheDefaultValueAndBounds) {
    EXPECT_EQ(bar.Value(), 0);
    EXPECT_EQ(bar.Max(), 100);
    EXPECT_EQ(bar.Min(), 0);
    EXPECT_TRUE(bar.Enabled());
    EXPECT_EQ(S().YTraccia, 0);
    EXPECT_EQ(S().YPresa, 0);
    EXPECT_EQ(S().PassoVelocita, 0);
    EXPECT_EQ(S().TickPremuto, 0);
    EXPECT_EQ(S().ValorePrecedente, 0);
}

TEST_F(Construction, BodyIsABorderlessPictureBoxNamedAsAsked) {
    EXPECT_EQ(bar.Corpo().Name(), "VS1");
    EXPECT_EQ(bar.Corpo().Container(), &surface);
    EXPECT_EQ(bar.Corpo().BorderStyle(), 0);
    EXPECT_EQ(bar.Left(), kLeft);
    EXPECT_EQ(bar.Top(), kTop);
    EXPECT_EQ(bar.Width(), kW);
    EXPECT_EQ(bar.Height(), kH);
}

TEST_F(Construction, BodyHoldsBackgroundButtonsThumbAndTimersInThatOrder) {
    std::vector<std::string> names;
    for (const Element* child : bar.Corpo().Children()) names.push_back(child->Name());
    EXPECT_EQ(names, (std::vector<std::string>{"Shape1", "ImageUP", "ImageDWN", "ImageScr", "TimerUP", "TimerDWN"}));
    EXPECT_EQ(S().Shape1->Kind(), ElementKind::Shape);
    EXPECT_EQ(S().ImageScr->Kind(), ElementKind::Image);
    EXPECT_EQ(S().Shape1->BackStyle(), 1);
}

TEST_F(Construction, TimersRepeatEvery100MsAndAreOffAtStart) {
    for (Timer* timer : {S().TimerUP, S().TimerDWN}) {
        EXPECT_EQ(timer->Interval(), 100);
        EXPECT_FALSE(timer->Enabled());
        EXPECT_FALSE(timer->Running());
    }
    EXPECT_EQ(timers.ActiveCount(), 0);
}

TEST_F(Construction, BarInsideAContainerPlacesItsBodyThere) {
    Frame& frame = surface.CreateFrame("Frame1");
    Scorrix inner(surface, &frame, "VS2");
    EXPECT_EQ(inner.Corpo().Container(), &frame);
    EXPECT_EQ(ScorrixProbe::Of(inner).ImageUP->Container(), &inner.Corpo());
}

TEST_F(Construction, DestroyingTheBarRemovesItsElementsAndStopsItsTimers) {
    const size_t before = surface.Children().size();
    {
        Scorrix other(surface, nullptr, "VS2");
        other.Move(0, 0, 255, 2000);
        ScorrixProbe::Of(other).TimerDWN->setEnabled(true);
        EXPECT_EQ(timers.ActiveCount(), 1);
        EXPECT_EQ(surface.Children().size(), before + 1);
    }
    EXPECT_EQ(surface.Children().size(), before);
    EXPECT_EQ(timers.ActiveCount(), 0);
    timers.Advance(1000);  // nothing left to tick
}

TEST_F(Construction, BarRemovesItsElementsAlsoWhenTheHostReplacedAHandler) {
    const size_t before = surface.Children().size();
    {
        Scorrix other(surface, nullptr, "VS2");
        other.Corpo().onMouseDown = nullptr;
        ScorrixProbe::Of(other).ImageUP->onClick = [](Element&) {};
    }
    EXPECT_EQ(surface.Children().size(), before);
}

TEST_F(Construction, BarOutlivingItsRemovedContainerGoesQuietly) {
    Frame& frame = surface.CreateFrame("Frame1");
    auto inner = std::make_unique<Scorrix>(surface, &frame, "VS2");
    ScorrixProbe::Of(*inner).TimerUP->setEnabled(true);
    surface.Destroy(frame);
    EXPECT_EQ(timers.ActiveCount(), 0);
    inner.reset();
    EXPECT_TRUE(std::find(surface.Children().begin(), surface.Children().end(), &bar.Corpo()) !=
                surface.Children().end());
}

TEST_F(Construction, PicturesAreDrawnToFitTheButtonsAndTheThumb) {
    const Image& up = *S().ImageUP->GetPicture();
    const Image& down = *S().ImageDWN->GetPicture();
    const Image& thumb = *S().ImageScr->GetPicture();
    EXPECT_EQ(up.width * TwipsPerPixel, 255);
    EXPECT_EQ(up.height * TwipsPerPixel, 255);
    EXPECT_EQ(down.width, up.width);
    EXPECT_EQ(thumb.width * TwipsPerPixel, 255 - 30);
    EXPECT_EQ(thumb.height, kAltezzaCursore);
    for (const ImageElement* image : {S().ImageUP, S().ImageDWN, S().ImageScr}) EXPECT_TRUE(image->Stretch());
    for (const Image* image : {&up, &down, &thumb}) {
        EXPECT_EQ(image->argb.size(), static_cast<size_t>(image->width) * image->height);
        EXPECT_TRUE(std::all_of(image->argb.begin(), image->argb.end(), [](uint32_t p) { return (p >> 24) == 0xFF; }));
    }
}

TEST_F(Construction, ArrowsPointUpAndDown) {
    const Image& up = *S().ImageUP->GetPicture();
    const Image& down = *S().ImageDWN->GetPicture();
    const int c = up.width / 2;
    // The tip is one pixel wide, the base nine: the tip stands above the base on the up arrow.
    const uint32_t arrow = up.at(c, 6);
    EXPECT_NE(up.at(c - 1, 6), arrow);
    EXPECT_EQ(up.at(c - 4, 10), arrow);
    EXPECT_EQ(up.at(c + 4, 10), arrow);
    EXPECT_EQ(down.at(c, 10), arrow);
    EXPECT_NE(down.at(c - 1, 10), arrow);
    EXPECT_EQ(down.at(c - 4, 6), arrow);
    EXPECT_NE(up.at(c - 4, 6), arrow);
}

TEST_F(Construction, ThumbIsLighterInTheMiddleThanAtTheSides) {
    const Image& thumb = *S().ImageScr->GetPicture();
    auto green = [](uint32_t p) { return static_cast<int>((p >> 8) & 0xFF); };
    const int y = 5;
    EXPECT_GT(green(thumb.at(thumb.width / 2, y)), green(thumb.at(1, y)));
    EXPECT_GT(green(thumb.at(thumb.width / 2, y)), green(thumb.at(thumb.width - 2, y)));
}

TEST_F(Construction, EveryBarSharesTheSamePictures) {
    Scorrix other(surface, nullptr, "VS2");
    EXPECT_EQ(ScorrixProbe::Of(other).ImageUP->GetPicture(), S().ImageUP->GetPicture());
    EXPECT_EQ(ScorrixProbe::Of(other).ImageScr->GetPicture(), S().ImageScr->GetPicture());
}

}  // namespace
}  // namespace TabulonLib12::testing
