// Labels, images, frames, shapes, boxes and the z-order as the widget paints them.
#include <gtest/gtest.h>

#include "gui_test_support.h"

namespace TabulonLib12::GuiTest {
namespace {

constexpr Colour kGreen = Rgb(0, 200, 0);
constexpr Colour kPurple = Rgb(200, 0, 200);
constexpr Colour kRed = Rgb(255, 0, 0);
constexpr Colour kBlue = Rgb(0, 0, 255);

using ElementPainting = WidgetTest;

TEST_F(ElementPainting, OpaqueLabelFillsItsRectangleWithItsBackColour) {
    Label& label = surface().CreateLabel("L");
    label.Move(Px(20), Px(20), Px(40), Px(10));
    label.setBackColor(kGreen);
    const QImage image = Grab(widget);
    EXPECT_EQ(CountExactly(image, QRect(20, 20, 40, 10), kGreen), 400);
    EXPECT_EQ(PixelAt(image, 19, 25), ColourOf(kSurfaceColour));
    EXPECT_EQ(PixelAt(image, 60, 25), ColourOf(kSurfaceColour));
}

TEST_F(ElementPainting, TransparentLabelShowsItsContainerBehind) {
    Frame& frame = surface().CreateFrame("F");
    frame.setBorderStyle(0);
    frame.setBackColor(kPurple);
    frame.Move(Px(10), Px(10), Px(100), Px(50));
    Label& label = surface().CreateLabel("L", &frame);
    label.Move(Px(10), Px(10), Px(60), Px(20));
    label.setBackColor(kGreen);
    label.setBackStyle(0);
    label.setCaption("Ab");
    label.setForeColor(Rgb(0, 0, 0));
    const QImage image = Grab(widget);
    const QRect area(20, 20, 60, 20);
    EXPECT_EQ(CountExactly(image, area, kGreen), 0);
    EXPECT_GT(CountExactly(image, area, kPurple), 60 * 20 / 2);
    EXPECT_GT(CountDiffering(image, area, kPurple), 10);  // the caption itself
}

TEST_F(ElementPainting, LabelCaptionFollowsItsAlignment) {
    auto make = [&](const char* name, int top, int16_t alignment) {
        Label& label = surface().CreateLabel(name);
        label.Move(Px(10), Px(top), Px(200), Px(20));
        label.setBackColor(kSurfaceColour);
        label.setForeColor(Rgb(0, 0, 0));
        label.setCaption("Abc");
        label.setAlignment(alignment);
    };
    make("Left", 10, Alignment::Left);
    make("Right", 40, Alignment::Right);
    make("Centre", 70, Alignment::Centre);
    const QImage image = Grab(widget);
    auto inked = [&](int x, int y, int w) { return CountDiffering(image, QRect(x, y, w, 20), kSurfaceColour); };
    EXPECT_GT(inked(10, 10, 50), 5);
    EXPECT_EQ(inked(150, 10, 60), 0);
    EXPECT_EQ(inked(10, 40, 60), 0);
    EXPECT_GT(inked(160, 40, 50), 5);
    EXPECT_EQ(inked(10, 70, 60), 0);
    EXPECT_EQ(inked(150, 70, 60), 0);
    EXPECT_GT(inked(80, 70, 60), 5);
}

TEST_F(ElementPainting, LabelCaptionIsClippedToTheLabel) {
    Label& label = surface().CreateLabel("L");
    label.Move(Px(10), Px(10), Px(30), Px(15));
    label.setBackStyle(0);
    label.setForeColor(Rgb(0, 0, 0));
    label.setCaption("WWWWWWWWWWWWWWWW");
    const QImage image = Grab(widget);
    EXPECT_GT(CountDiffering(image, QRect(10, 10, 30, 15), kSurfaceColour), 20);
    EXPECT_EQ(CountDiffering(image, QRect(40, 0, 260, 200), kSurfaceColour), 0);
    EXPECT_EQ(CountDiffering(image, QRect(0, 25, 300, 175), kSurfaceColour), 0);
}

TEST_F(ElementPainting, ChildIsClippedToItsContainer) {
    Frame& frame = surface().CreateFrame("F");
    frame.setBorderStyle(0);
    frame.setBackColor(kPurple);
    frame.Move(Px(10), Px(10), Px(50), Px(50));
    Label& label = surface().CreateLabel("L", &frame);
    label.Move(Px(30), Px(30), Px(100), Px(100));
    label.setBackColor(kGreen);
    const QImage image = Grab(widget);
    EXPECT_EQ(CountExactly(image, image.rect(), kGreen), 20 * 20);
    EXPECT_EQ(PixelAt(image, 65, 65), ColourOf(kSurfaceColour));
}

TEST_F(ElementPainting, HiddenElementAndTheChildrenOfAHiddenContainerAreNotPainted) {
    Label& hidden = surface().CreateLabel("H");
    hidden.Move(Px(0), Px(0), Px(20), Px(20));
    hidden.setBackColor(kGreen);
    hidden.setVisible(false);
    Frame& frame = surface().CreateFrame("F");
    frame.Move(Px(50), Px(50), Px(50), Px(50));
    frame.setVisible(false);
    Label& inside = surface().CreateLabel("I", &frame);
    inside.Move(0, 0, Px(20), Px(20));
    inside.setBackColor(kGreen);
    const QImage image = Grab(widget);
    EXPECT_EQ(CountExactly(image, image.rect(), kGreen), 0);
    EXPECT_EQ(CountExactly(image, image.rect(), kSurfaceColour), 300 * 200);
}

TEST_F(ElementPainting, FrameWithBorderDrawsAnEtchedLineAndNoneWithout) {
    Frame& bordered = surface().CreateFrame("A");
    bordered.setBackColor(kPurple);
    bordered.Move(Px(10), Px(10), Px(80), Px(60));
    bordered.setCaption("");
    Frame& plain = surface().CreateFrame("B");
    plain.setBackColor(kPurple);
    plain.setBorderStyle(0);
    plain.setCaption("Frame1");
    plain.Move(Px(110), Px(10), Px(80), Px(60));
    const QImage image = Grab(widget);
    EXPECT_EQ(PixelAt(image, 10, 40), ColourOf(SystemColour::ButtonShadow));
    EXPECT_EQ(PixelAt(image, 50, 40), ColourOf(kPurple));
    // Without a border the back colour reaches the edges and the caption is not shown.
    EXPECT_EQ(CountExactly(image, QRect(110, 10, 80, 60), kPurple), 80 * 60);
}

TEST_F(ElementPainting, FrameCaptionIsWrittenOnTheBorder) {
    Frame& frame = surface().CreateFrame("A");
    frame.setBackColor(kPurple);
    frame.setForeColor(Rgb(0, 0, 0));
    frame.setCaption("Colonne");
    frame.Move(Px(10), Px(10), Px(150), Px(60));
    const QImage image = Grab(widget);
    EXPECT_GT(CountPixels(image, QRect(15, 10, 60, 15), [](const QColor& c) { return c.lightness() < 80; }), 10);
}

TEST_F(ElementPainting, ShapeDrawsItsBorderInsideItsRectangleAndFillsOnlyWhenOpaque) {
    Shape& outline = surface().CreateShape("S1");
    outline.Move(Px(10), Px(10), Px(50), Px(40));
    outline.setBorderColor(kRed);
    outline.setBorderWidth(3);
    outline.setBackColor(kBlue);
    Shape& filled = surface().CreateShape("S2");
    filled.Move(Px(100), Px(10), Px(50), Px(40));
    filled.setBorderColor(kRed);
    filled.setBackColor(kBlue);
    filled.setBackStyle(1);
    const QImage image = Grab(widget);
    for (int x : {10, 11, 12, 57, 58, 59}) EXPECT_EQ(PixelAt(image, x, 30), ColourOf(kRed)) << x;
    EXPECT_EQ(PixelAt(image, 13, 30), ColourOf(kSurfaceColour));
    EXPECT_EQ(PixelAt(image, 9, 30), ColourOf(kSurfaceColour));
    EXPECT_EQ(PixelAt(image, 30, 10), ColourOf(kRed));
    EXPECT_EQ(PixelAt(image, 30, 49), ColourOf(kRed));
    EXPECT_EQ(PixelAt(image, 30, 50), ColourOf(kSurfaceColour));
    EXPECT_EQ(PixelAt(image, 100, 30), ColourOf(kRed));
    EXPECT_EQ(PixelAt(image, 101, 30), ColourOf(kBlue));
    EXPECT_EQ(PixelAt(image, 125, 30), ColourOf(kBlue));
}

Picture Solid(int w, int h, uint32_t argb) { return std::make_shared<Image>(w, h, argb); }

TEST_F(ElementPainting, ImageShowsItsPictureAtNaturalSizeAtTheTopLeft) {
    ImageElement& image = surface().CreateImage("I");
    image.Move(Px(20), Px(20));
    image.setPicture(Solid(4, 4, 0xFFFF0000u));
    image.Move(Px(20), Px(20), Px(10), Px(10));
    const QImage shot = Grab(widget);
    EXPECT_EQ(CountExactly(shot, shot.rect(), kRed), 16);
    EXPECT_EQ(PixelAt(shot, 20, 20), ColourOf(kRed));
    EXPECT_EQ(PixelAt(shot, 23, 23), ColourOf(kRed));
    EXPECT_EQ(PixelAt(shot, 24, 24), ColourOf(kSurfaceColour));
}

TEST_F(ElementPainting, StretchedImageFillsItsRectangle) {
    ImageElement& image = surface().CreateImage("I");
    image.setStretch(true);
    image.setPicture(Solid(4, 4, 0xFFFF0000u));
    image.Move(Px(20), Px(20), Px(30), Px(10));
    const QImage shot = Grab(widget);
    EXPECT_EQ(CountExactly(shot, shot.rect(), kRed), 300);
    EXPECT_EQ(PixelAt(shot, 49, 29), ColourOf(kRed));
    EXPECT_EQ(PixelAt(shot, 50, 29), ColourOf(kSurfaceColour));
}

TEST_F(ElementPainting, PicturePixelsKeepTheirColoursAndTransparency) {
    auto picture = std::make_shared<Image>(2, 1);
    picture->at(0, 0) = 0xFF102030u;  // opaque
    picture->at(1, 0) = 0x00FFFFFFu;  // fully transparent
    ImageElement& image = surface().CreateImage("I");
    image.setPicture(picture);
    image.Move(Px(5), Px(5));
    const QImage shot = Grab(widget);
    EXPECT_EQ(PixelAt(shot, 5, 5), QColor(0x10, 0x20, 0x30));
    EXPECT_EQ(PixelAt(shot, 6, 5), ColourOf(kSurfaceColour));
}

TEST_F(ElementPainting, PictureBoxShowsBackColourPictureAndBorder) {
    PictureBox& box = surface().CreatePictureBox("P");
    box.Move(Px(10), Px(10), Px(40), Px(30));
    box.setBackColor(kGreen);
    box.setPicture(Solid(5, 5, 0xFFFF0000u));
    const QImage shot = Grab(widget);
    EXPECT_EQ(PixelAt(shot, 30, 30), ColourOf(kGreen));
    EXPECT_EQ(CountExactly(shot, QRect(10, 10, 40, 30), kRed), 25);
    EXPECT_EQ(PixelAt(shot, 10, 30), ColourOf(SystemColour::WindowFrame));
    box.setBorderStyle(0);
    const QImage plain = Grab(widget);
    EXPECT_EQ(PixelAt(plain, 10, 30), ColourOf(kGreen));
    EXPECT_EQ(PixelAt(plain, 10, 10), ColourOf(kRed));
}

TEST_F(ElementPainting, TextBoxIsAWhiteFieldWithItsText) {
    TextBox& box = surface().CreateTextBox("T");
    box.Move(Px(10), Px(10), Px(100), Px(20));
    box.setForeColor(Rgb(0, 0, 0));
    box.setText("Testo");
    const QImage shot = Grab(widget);
    EXPECT_EQ(PixelAt(shot, 100, 20), ColourOf(SystemColour::WindowBackground));
    EXPECT_GT(CountPixels(shot, QRect(11, 11, 60, 18), [](const QColor& c) { return c.lightness() < 100; }), 10);
}

TEST_F(ElementPainting, CheckBoxShowsAMarkOnlyWhenChecked) {
    CheckBox& box = surface().CreateCheckBox("C");
    box.Move(Px(10), Px(10), Px(100), Px(20));
    box.setBackColor(kPurple);
    const QRect square(11, 13, 13, 13);  // 13 pixels, centred on the height
    const QRect inside = square.adjusted(1, 1, -1, -1);
    const QImage empty = Grab(widget);
    EXPECT_EQ(CountExactly(empty, inside, SystemColour::WindowBackground), 11 * 11);
    box.setValue(1);
    const QImage checked = Grab(widget);
    EXPECT_GT(CountPixels(checked, inside, [](const QColor& c) { return c.lightness() < 100; }), 8);
}

TEST_F(ElementPainting, WindowedElementsStandAboveGraphicalOnesWhateverTheirOrder) {
    PictureBox& box = surface().CreatePictureBox("P");
    box.setBorderStyle(0);
    box.setBackColor(kBlue);
    box.Move(Px(10), Px(10), Px(40), Px(40));
    Label& label = surface().CreateLabel("L");
    label.setBackColor(kRed);
    label.Move(Px(30), Px(30), Px(40), Px(40));
    label.ZOrder(0);
    const QImage shot = Grab(widget);
    EXPECT_EQ(PixelAt(shot, 40, 40), ColourOf(kBlue));  // overlap: the windowed box
    EXPECT_EQ(PixelAt(shot, 60, 60), ColourOf(kRed));
}

TEST_F(ElementPainting, ZOrderDecidesBetweenElementsOfOneLayer) {
    Label& back = surface().CreateLabel("A");
    back.setBackColor(kRed);
    back.Move(Px(10), Px(10), Px(40), Px(40));
    Label& front = surface().CreateLabel("B");
    front.setBackColor(kGreen);
    front.Move(Px(30), Px(30), Px(40), Px(40));
    EXPECT_EQ(PixelAt(Grab(widget), 40, 40), ColourOf(kGreen));
    front.ZOrder(1);
    EXPECT_EQ(PixelAt(Grab(widget), 40, 40), ColourOf(kRed));
    front.ZOrder(0);
    EXPECT_EQ(PixelAt(Grab(widget), 40, 40), ColourOf(kGreen));
}

TEST_F(ElementPainting, SurfaceBackColourFillsTheWidget) {
    surface().setBackColor(kPurple);
    const QImage shot = Grab(widget);
    EXPECT_EQ(CountExactly(shot, shot.rect(), kPurple), 300 * 200);
}

}  // namespace
}  // namespace TabulonLib12::GuiTest
