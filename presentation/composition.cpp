// The assembly of child elements that makes up the control, as designed: what exists when an
// instance is created and where it stands until the first build or resize moves it.
#include "grid/control_state.h"

namespace TabulonLib12 {

namespace {

Label& DesignLabel(Label& l, float x, float y, float w, float h, const std::string& caption) {
    l.Move(x, y, w, h);
    l.setCaption(caption);
    return l;
}

}  // namespace

void Tabulon12::Impl::CreaComposizione() {
    Surface& s = surface;
    s.Resize(15600, 9600);

    VS1 = std::make_unique<Scorrix>(s, nullptr, "VS1");
    VS1->Move(15105, 375, 255, 8925);

    FrameSceltaColonne = &s.CreateFrame("FrameSceltaColonne");
    FrameSceltaColonne->setBorderStyle(0);
    FrameSceltaColonne->Move(6450, 135, 2955, 3870);
    FrameSceltaColonne->setVisible(false);
    FrameSceltaColonne->setBackColor(0xFF0000);
    FrameSceltaColonne->setCaption("Frame1");
    auto& check = s.CreateCheckBox("CheckScelta", FrameSceltaColonne);
    check.Move(15, 15, 2925, 195);
    check.setCaption("Check1");
    CheckScelta = std::make_unique<ControlArray<CheckBox>>(check);

    ImageTools = &s.CreatePictureBox("ImageTools");
    ImageTools->Move(3600, 45, 240, 240);
    ImageTools->setBorderStyle(0);
    ImageTools->setForeColor(SystemColour::WindowText);
    ImageTools->setToolTipText("Scelta colonne da visualizzare");

    PictureTTT = &s.CreatePictureBox("PictureTTT");
    PictureTTT->Move(2055, 7380, 2310, 285);
    PictureTTT->setVisible(false);
    PictureTTT->setBackColor(SystemColour::WindowBackground);
    PictureTTT->setForeColor(SystemColour::WindowText);
    LabelTTT = &DesignLabel(s.CreateLabel("LabelTTT", PictureTTT), 0, 0, 1995, 255, "");
    LabelTTT->setBackColor(0x80FFFF);
    LabelTTT->setAutoSize(true);

    auto& line = s.CreateFrame("FrameLine");
    line.setBorderStyle(0);
    line.Move(900, 0, 15, 2775);
    line.setVisible(false);
    line.setBackColor(0x0000FF);
    line.setCaption("Frame1");
    FrameLine = std::make_unique<ControlArray<Frame>>(line);

    FrameImmagini = &s.CreateFrame("FrameImmagini");
    FrameImmagini->Move(2805, 7725, 3225, 1545);
    FrameImmagini->setVisible(false);
    FrameImmagini->setCaption("Frame1");
    ImageStyle = std::make_unique<ControlArray<ImageElement>>(s.CreateImage("ImageStyle", FrameImmagini));
    ImageUP = std::make_unique<ControlArray<ImageElement>>(s.CreateImage("ImageUP", FrameImmagini));
    ImageDown = std::make_unique<ControlArray<ImageElement>>(s.CreateImage("ImageDown", FrameImmagini));

    FG1 = &s.CreateCellGrid("FG1");
    FG1->Move(30, 345, 15000, 7140);
    FG1->setFixedRows(0);
    FG1->setFixedCols(0);
    FG1->setRows(29);
    FG1->setCols(1);
    FG1->setBackColor(0xC0C0C0);
    FG1->setForeColor(0x404040);
    FG1->setBackColorFixed(SystemColour::ButtonFace);
    FG1->setForeColorFixed(SystemColour::ButtonText);
    FG1->setBackColorSel(SystemColour::Highlight);
    FG1->setForeColorSel(0xFFFFFF);
    FG1->setBackColorBkg(0xE6E6E6);
    FG1->setGridColor(0xFFFFFF);
    FG1->setGridColorFixed(0xFFFFFF);
    FG1->setGridLines(1);
    FG1->setGridLinesFixed(2);
    FG1->setFont(Font{"Arial", 8.25f});

    TextKey = &s.CreateTextBox("TextKey");
    TextKey->Move(1500, 585, 2235, 315);

    Shape2 = &s.CreateFrame("Shape2");
    Shape2->setBorderStyle(0);
    Shape2->Move(0, 15, 3870, 315);
    Shape2->setBackColor(0xF5DDCD);
    Shape2->setCaption("Frame1");
    LabelTopSk = &DesignLabel(s.CreateLabel("LabelTopSk", Shape2), 840, 15, 900, 300, "");
    LabelTopSk->setVisible(false);
    auto& pic = s.CreateImage("PicCol", Shape2);
    pic.Move(270, 30, 195, 195);
    PicCol = std::make_unique<ControlArray<ImageElement>>(pic);
    auto& menu = DesignLabel(s.CreateLabel("LabelMenu", Shape2), 330, 60, 120, 195, "N");
    menu.setAlignment(Alignment::Centre);
    menu.setBackStyle(0);
    menu.setForeColor(0xFFFFFF);
    LabelMenu = std::make_unique<ControlArray<Label>>(menu);
    ImageZ = &s.CreateImage("ImageZ", Shape2);
    ImageZ->setStretch(true);
    ImageZ->setVisible(false);
    auto& tile = s.CreateImage("Image1", Shape2);
    tile.setStretch(true);
    Image1 = std::make_unique<ControlArray<ImageElement>>(tile);
    ImageOrd = &s.CreateImage("ImageOrd", Shape2);
    ImageOrd->Move(0, 0, 300, 345);
    ImageOrd->setVisible(false);

    auto& total = DesignLabel(s.CreateLabel("LabelTOT"), 165, 7905, 660, 195, "0");
    total.setVisible(false);
    total.setBackStyle(0);
    total.setFont(Font{"Arial", 8.25f});
    LabelTOT = std::make_unique<ControlArray<Label>>(total);
    LabelCount = &s.CreateLabel("LabelCount");
    LabelCount->Move(165, 7590, 1620, 195);
    LabelCount->setBackStyle(0);
    LabelCount->setFont(Font{"MS Sans Serif", 8.25f, true});
    LabelCount->setAutoSize(true);
    LabelCount->setCaption("Righe visualizzate:");
    LblMisuraTitolo = &DesignLabel(s.CreateLabel("LblMisuraTitolo"), 0, 0, 480, 195, "Label1");
    LblMisuraTitolo->setVisible(false);
    LblMisuraTitolo->setAutoSize(true);
    LabelMisTxt = &DesignLabel(s.CreateLabel("LabelMisTxt"), 210, 675, 480, 195, "Label1");
    LabelMisTxt->setAutoSize(true);
    Shape1 = &s.CreateShape("Shape1");
    Shape1->Move(5415, 0, 8670, 7485);
    Shape1->setBorderColor(0xCEAB8E);

    // The cell surface stands in front of the text box that keeps the focus.
    FG1->ZOrder(0);
}

}  // namespace TabulonLib12
