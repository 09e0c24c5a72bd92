// Labels, images, frames, shapes, picture boxes, text boxes and check boxes.
#include "ui_fixture.h"

namespace TabulonLib12::testing {
namespace {

using LabelTest = UiTest;

TEST_F(LabelTest, AutoSizeTakesTheCaptionSizeInItsFont) {
    Label& l = surface.CreateLabel("LabelCount");
    l.Move(165, 7590, 1620, 195);
    l.setAutoSize(true);
    l.setCaption("Righe visualizzate:");
    EXPECT_EQ(l.Width(), 19 * 105.0f);
    EXPECT_EQ(l.Height(), 195.0f);
    EXPECT_EQ(l.Left(), 165.0f);  // the position stays
    EXPECT_EQ(l.Top(), 7590.0f);
}

TEST_F(LabelTest, AutoSizeFollowsAFontChange) {
    Label& l = surface.CreateLabel("LabelCount");
    l.setAutoSize(true);
    l.setCaption("Righe");
    Font bold;
    bold.name = "MS Sans Serif";
    bold.bold = true;
    l.setFont(bold);
    EXPECT_EQ(l.Width(), 5 * 120.0f);
    Font big;
    big.size = 12.0f;
    l.setFont(big);
    EXPECT_EQ(l.Width(), 5 * 135.0f);
    EXPECT_EQ(l.Height(), 285.0f);
}

TEST_F(LabelTest, EmptyCaptionIsZeroWideAndOneLineHigh) {
    Label& l = surface.CreateLabel("L");
    l.Move(0, 0, 480, 500);
    l.setAutoSize(true);
    EXPECT_EQ(l.Width(), 0.0f);
    EXPECT_EQ(l.Height(), 195.0f);
}

TEST_F(LabelTest, TurningAutoSizeOnFitsTheCaptionAtOnce) {
    Label& l = surface.CreateLabel("LblMisuraTitolo");
    l.Move(0, 0, 480, 195);
    l.setCaption("Descrizione articolo");
    EXPECT_EQ(l.Width(), 480.0f);
    l.setAutoSize(true);
    EXPECT_EQ(l.Width(), 20 * 105.0f);
}

TEST_F(LabelTest, WithoutAutoSizeTheSizeStaysAsWritten) {
    Label& l = surface.CreateLabel("LabelMenu");
    l.Move(330, 60, 120, 195);
    l.setCaption("A very long heading");
    EXPECT_EQ(l.Width(), 120.0f);
    l.setAutoSize(true);
    l.setAutoSize(false);
    l.setCaption("x");
    EXPECT_EQ(l.Width(), 19 * 105.0f);  // fitted while AutoSize was on, kept after
}

TEST_F(LabelTest, EveryCaptionWriteRefitsAMeasuringLabel) {
    Label& l = surface.CreateLabel("LabelMisTxt");
    l.setAutoSize(true);
    l.setCaption("abc");
    l.setWidth(5000);
    l.setCaption("abc");
    EXPECT_EQ(l.Width(), 315.0f);
}

TEST_F(LabelTest, MultiLineCaptionTakesTheWidestLine) {
    Label& l = surface.CreateLabel("L");
    l.setAutoSize(true);
    l.setCaption("ab\r\nabcd\nc");
    EXPECT_EQ(l.Width(), 4 * 105.0f);
    EXPECT_EQ(l.Height(), 3 * 195.0f);
}

TEST_F(LabelTest, WordWrapKeepsTheWidthAndGrowsInHeight) {
    Label& l = surface.CreateLabel("L");
    l.setWordWrap(true);
    l.Move(0, 0, 5 * 105, 100);  // five characters to a line
    l.setAutoSize(true);
    l.setCaption("abc de fghijkl m");
    // "abc de" is six characters: "abc", "de", "fghijkl" (alone, too wide), "m"
    EXPECT_EQ(l.Width(), 525.0f);
    EXPECT_EQ(l.Height(), 4 * 195.0f);
}

TEST_F(LabelTest, AlignmentAndBackStyleRefuseUnknownCodes) {
    Label& l = surface.CreateLabel("LabelMenu");
    l.setAlignment(Alignment::Centre);
    l.setBackStyle(0);
    EXPECT_UI_ERROR(l.setAlignment(3), ErrorKind::InvalidValue, 380);
    EXPECT_UI_ERROR(l.setBackStyle(2), ErrorKind::InvalidValue, 380);
    EXPECT_EQ(l.Alignment(), 2);
    EXPECT_EQ(l.BackStyle(), 0);
}

using ImageTest = UiTest;

TEST_F(ImageTest, WithoutStretchTheImageTakesThePictureSize) {
    ImageElement& i = surface.CreateImage("ImageOrd");
    i.Move(10, 20, 300, 345);
    i.setPicture(MakePicture(13, 21));
    EXPECT_EQ(i.Width(), 195.0f);
    EXPECT_EQ(i.Height(), 315.0f);
    EXPECT_EQ(i.Left(), 10.0f);
}

TEST_F(ImageTest, ANullPictureLeavesTheSize) {
    ImageElement& i = surface.CreateImage("PicCol");
    i.setPicture(MakePicture(13, 13));
    i.setPicture(nullptr);
    EXPECT_EQ(i.GetPicture(), nullptr);
    EXPECT_EQ(i.Width(), 195.0f);
}

TEST_F(ImageTest, WithStretchThePictureFillsTheElement) {
    ImageElement& i = surface.CreateImage("Image1");
    i.setStretch(true);
    i.Move(0, 0, 1200, 330);
    i.setPicture(MakePicture(93, 21));
    EXPECT_EQ(i.Width(), 1200.0f);
    EXPECT_EQ(i.Height(), 330.0f);
}

TEST_F(ImageTest, TurningStretchOffTakesThePictureSize) {
    ImageElement& i = surface.CreateImage("ImageZ");
    i.setStretch(true);
    i.Move(0, 0, 1200, 330);
    i.setPicture(MakePicture(93, 21));
    i.setStretch(false);
    EXPECT_EQ(i.Width(), 93 * 15.0f);
    EXPECT_EQ(i.Height(), 21 * 15.0f);
}

TEST(ImageModel, PicturePixelsAreAddressedByColumnAndRow) {
    Image img(3, 2, 0);
    img.at(2, 1) = 0xFF112233u;
    EXPECT_EQ(img.argb.size(), 6u);
    EXPECT_EQ(img.argb[5], 0xFF112233u);
    EXPECT_EQ(static_cast<const Image&>(img).at(2, 1), 0xFF112233u);
}

using FrameTest = UiTest;

TEST_F(FrameTest, CaptionAndBorderStyleAreKept) {
    Frame& f = surface.CreateFrame("FrameSceltaColonne");
    f.setCaption("Frame1");
    f.setBorderStyle(0);
    EXPECT_EQ(f.Caption(), "Frame1");
    EXPECT_EQ(f.BorderStyle(), 0);
    EXPECT_UI_ERROR(f.setBorderStyle(2), ErrorKind::InvalidValue, 380);
    EXPECT_EQ(f.BorderStyle(), 0);
}

using ShapeTest = UiTest;

TEST_F(ShapeTest, KeepsItsBorderColourAsTheLookOfTheControl) {
    Shape& s = surface.CreateShape("Shape1");
    s.setBorderColor(0xCEAB8E);
    EXPECT_EQ(s.BorderColor(), 0xCEAB8Eu);
    EXPECT_EQ(s.BackStyle(), 0);
}

TEST_F(ShapeTest, BorderWidthAndBackStyleRefuseValuesOutOfRange) {
    Shape& s = surface.CreateShape("Shape1");
    s.setBorderWidth(3);
    EXPECT_UI_ERROR(s.setBorderWidth(0), ErrorKind::InvalidValue, 380);
    EXPECT_UI_ERROR(s.setBorderWidth(8193), ErrorKind::InvalidValue, 380);
    EXPECT_UI_ERROR(s.setBackStyle(2), ErrorKind::InvalidValue, 380);
    EXPECT_EQ(s.BorderWidth(), 3);
}

using PictureBoxTest = UiTest;

TEST_F(PictureBoxTest, HoldsAPictureAndChildren) {
    PictureBox& p = surface.CreatePictureBox("PictureTTT");
    Picture pic = MakePicture(16, 16);
    p.setPicture(pic);
    Label& l = surface.CreateLabel("LabelTTT", &p);
    EXPECT_EQ(p.GetPicture(), pic);
    EXPECT_EQ(l.Container(), &p);
    EXPECT_TRUE(p.CanFocus());
    EXPECT_UI_ERROR(p.setBorderStyle(5), ErrorKind::InvalidValue, 380);
}

using TextBoxTest = UiTest;

TEST_F(TextBoxTest, TypedCharactersAreAdded) {
    TextBox& t = surface.CreateTextBox("TextKey");
    t.SetFocus();
    surface.KeyPress('a');
    surface.KeyPress('B');
    surface.KeyPress(' ');
    EXPECT_EQ(t.Text(), "aB ");
}

TEST_F(TextBoxTest, BackspaceRemovesTheLastCharacterNotTheLastByte) {
    TextBox& t = surface.CreateTextBox("T");
    t.setText("Citt\xC3\xA0");
    t.HandleKeyPress(8);
    EXPECT_EQ(t.Text(), "Citt");
    t.setText("");
    t.HandleKeyPress(8);
    EXPECT_EQ(t.Text(), "");
}

TEST_F(TextBoxTest, CodesBeyondAsciiAreStoredAsUtf8) {
    TextBox& t = surface.CreateTextBox("T");
    t.HandleKeyPress(0xE0);    // à
    t.HandleKeyPress(0x20AC);  // the euro sign
    EXPECT_EQ(t.Text(), "\xC3\xA0\xE2\x82\xAC");
}

TEST_F(TextBoxTest, ControlCodesAreNotTyped) {
    TextBox& t = surface.CreateTextBox("T");
    t.HandleKeyPress(13);
    t.HandleKeyPress(27);
    t.HandleKeyPress(127);
    t.HandleKeyPress(-5);
    EXPECT_EQ(t.Text(), "");
}

TEST_F(TextBoxTest, AHandlerThatClearsTheKeyKeepsTheText) {
    TextBox& t = surface.CreateTextBox("TextKey");
    t.setText("ab");
    t.onKeyPress = [](Element&, int16_t& key) { key = 0; };
    t.HandleKeyPress('c');
    t.HandleKeyPress(8);
    EXPECT_EQ(t.Text(), "ab");
}

TEST_F(TextBoxTest, ChangeFollowsEveryChangeOfText) {
    TextBox& t = surface.CreateTextBox("T");
    std::vector<std::string> seen;
    t.onChange = [&](Element& e) { seen.push_back(static_cast<TextBox&>(e).Text()); };
    t.setText("x");
    t.setText("x");  // no change
    t.HandleKeyPress('y');
    t.HandleKeyPress(8);
    EXPECT_EQ(seen, (std::vector<std::string>{"x", "xy", "x"}));
}

using CheckBoxTest = UiTest;

TEST_F(CheckBoxTest, AValueWriteThatChangesTheValueRaisesClick) {
    CheckBox& c = surface.CreateCheckBox("CheckScelta");
    int clicks = 0;
    c.onClick = [&](Element&) { ++clicks; };
    c.setValue(1);
    EXPECT_EQ(clicks, 1);
    c.setValue(1);
    EXPECT_EQ(clicks, 1);
    c.setValue(2);
    EXPECT_EQ(clicks, 2);
}

TEST_F(CheckBoxTest, ValuesOutsideZeroToTwoAreRefused) {
    CheckBox& c = surface.CreateCheckBox("C");
    EXPECT_UI_ERROR(c.setValue(3), ErrorKind::InvalidValue, 380);
    EXPECT_UI_ERROR(c.setValue(-1), ErrorKind::InvalidValue, 380);
    EXPECT_EQ(c.Value(), 0);
}

TEST_F(CheckBoxTest, AClickTogglesBetweenUncheckedAndChecked) {
    CheckBox& c = surface.CreateCheckBox("C");
    c.Move(0, 0, 2925, 195);
    int clicks = 0;
    c.onClick = [&](Element&) { ++clicks; };
    surface.MouseDown(MouseButton::Left, 0, 10, 10);
    surface.MouseUp(MouseButton::Left, 0, 10, 10);
    EXPECT_EQ(c.Value(), 1);
    surface.MouseDown(MouseButton::Left, 0, 10, 10);
    surface.MouseUp(MouseButton::Left, 0, 10, 10);
    EXPECT_EQ(c.Value(), 0);
    EXPECT_EQ(clicks, 2);
}

TEST_F(CheckBoxTest, AClickOnAGreyBoxUnchecksIt) {
    CheckBox& c = surface.CreateCheckBox("C");
    c.setValue(2);
    c.HandleClick();
    EXPECT_EQ(c.Value(), 0);
}

TEST_F(CheckBoxTest, CaptionIsKept) {
    CheckBox& c = surface.CreateCheckBox("CheckScelta");
    c.setCaption("Check1");
    EXPECT_EQ(c.Caption(), "Check1");
    EXPECT_TRUE(c.CanFocus());
}

}  // namespace
}  // namespace TabulonLib12::testing
