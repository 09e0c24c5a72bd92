// The assembly of child elements that makes up the control, as designed: what exists when an
// instance is created and where it stands until the first build or resize moves it.
#include "presentation/composition.h"

#include "presentation/drawn_pictures.h"

namespace TabulonLib12 {

namespace {

Label& DesignLabel(Label& l, float x, float y, float w, float h, const std::string& caption) {
    l.Move(x, y, w, h);
    l.setCaption(caption);
    return l;
}

}  // namespace

ControlElements ComposeControl(Surface& s) {
    ControlElements e;
    s.Resize(15600, 9600);

    e.VS1 = std::make_unique<Scorrix>(s, nullptr, "VS1");
    e.VS1->Move(15105, 375, 255, 8925);

    e.FrameSceltaColonne = &s.CreateFrame("FrameSceltaColonne");
    e.FrameSceltaColonne->setBorderStyle(0);
    e.FrameSceltaColonne->Move(6450, 135, 2955, 3870);
    e.FrameSceltaColonne->setVisible(false);
    e.FrameSceltaColonne->setBackColor(0xFF0000);
    e.FrameSceltaColonne->setCaption("Frame1");
    auto& check = s.CreateCheckBox("CheckScelta", e.FrameSceltaColonne);
    check.Move(15, 15, 2925, 195);
    check.setCaption("Check1");
    e.CheckScelta = &check;

    e.ImageTools = &s.CreatePictureBox("ImageTools");
    e.ImageTools->Move(3600, 45, 240, 240);
    e.ImageTools->setBorderStyle(0);
    e.ImageTools->setForeColor(SystemColour::WindowText);
    e.ImageTools->setToolTipText("Scelta colonne da visualizzare");
    e.ImageTools->setPicture(ChooserButton());

    e.PictureTTT = &s.CreatePictureBox("PictureTTT");
    e.PictureTTT->Move(2055, 7380, 2310, 285);
    e.PictureTTT->setVisible(false);
    e.PictureTTT->setBackColor(SystemColour::WindowBackground);
    e.PictureTTT->setForeColor(SystemColour::WindowText);
    e.LabelTTT = &DesignLabel(s.CreateLabel("LabelTTT", e.PictureTTT), 0, 0, 1995, 255, "");
    e.LabelTTT->setBackColor(0x80FFFF);
    e.LabelTTT->setAutoSize(true);

    auto& line = s.CreateFrame("FrameLine");
    line.setBorderStyle(0);
    line.Move(900, 0, 15, 2775);
    line.setVisible(false);
    line.setBackColor(0x0000FF);
    line.setCaption("Frame1");
    e.FrameLine = &line;

    e.FrameImmagini = &s.CreateFrame("FrameImmagini");
    e.FrameImmagini->Move(2805, 7725, 3225, 1545);
    e.FrameImmagini->setVisible(false);
    e.FrameImmagini->setCaption("Frame1");
    e.ImageStyle = &s.CreateImage("ImageStyle", e.FrameImmagini);
    e.ImageUP = &s.CreateImage("ImageUP", e.FrameImmagini);
    e.ImageDown = &s.CreateImage("ImageDown", e.FrameImmagini);

    e.FG1 = &s.CreateCellGrid("FG1");
    e.FG1->Move(30, 345, 15000, 7140);
    e.FG1->setFixedRows(0);
    e.FG1->setFixedCols(0);
    e.FG1->setRows(29);
    e.FG1->setCols(1);
    e.FG1->setBackColor(0xC0C0C0);
    e.FG1->setForeColor(0x404040);
    e.FG1->setBackColorFixed(SystemColour::ButtonFace);
    e.FG1->setForeColorFixed(SystemColour::ButtonText);
    e.FG1->setBackColorSel(SystemColour::Highlight);
    e.FG1->setForeColorSel(0xFFFFFF);
    e.FG1->setBackColorBkg(0xE6E6E6);
    e.FG1->setGridColor(0xFFFFFF);
    e.FG1->setGridColorFixed(0xFFFFFF);
    e.FG1->setGridLines(1);
    e.FG1->setGridLinesFixed(2);
    e.FG1->setFont(Font{"Arial", 8.25f});
    e.FG1->setMouseIcon(HandPointer());  // shown over hyperlink cells (pointer 99)

    e.TextKey = &s.CreateTextBox("TextKey");
    e.TextKey->Move(1500, 585, 2235, 315);

    e.Shape2 = &s.CreateFrame("Shape2");
    e.Shape2->setBorderStyle(0);
    e.Shape2->Move(0, 15, 3870, 315);
    e.Shape2->setBackColor(0xF5DDCD);
    e.Shape2->setCaption("Frame1");
    e.LabelTopSk = &DesignLabel(s.CreateLabel("LabelTopSk", e.Shape2), 840, 15, 900, 300, "");
    e.LabelTopSk->setVisible(false);
    auto& pic = s.CreateImage("PicCol", e.Shape2);
    pic.Move(270, 30, 195, 195);
    e.PicCol = &pic;
    auto& menu = DesignLabel(s.CreateLabel("LabelMenu", e.Shape2), 330, 60, 120, 195, "N");
    menu.setAlignment(Alignment::Centre);
    menu.setBackStyle(0);
    menu.setForeColor(0xFFFFFF);
    e.LabelMenu = &menu;
    e.ImageZ = &s.CreateImage("ImageZ", e.Shape2);
    e.ImageZ->setStretch(true);
    e.ImageZ->setVisible(false);
    e.ImageZ->Move(0, 0, 0, 330);
    e.ImageZ->setPicture(BandTexture(StileTestaType::Scheda));
    auto& tile = s.CreateImage("Image1", e.Shape2);
    tile.setStretch(true);
    tile.Move(0, 0, 0, 330);
    tile.setPicture(BandTexture(StileTestaType::Green));
    e.Image1 = &tile;
    e.ImageOrd = &s.CreateImage("ImageOrd", e.Shape2);
    e.ImageOrd->Move(0, 0, 300, 345);
    e.ImageOrd->setVisible(false);

    auto& total = DesignLabel(s.CreateLabel("LabelTOT"), 165, 7905, 660, 195, "0");
    total.setVisible(false);
    total.setBackStyle(0);
    total.setFont(Font{"Arial", 8.25f});
    e.LabelTOT = &total;
    e.LabelCount = &s.CreateLabel("LabelCount");
    e.LabelCount->Move(165, 7590, 1620, 195);
    e.LabelCount->setBackStyle(0);
    e.LabelCount->setFont(Font{"MS Sans Serif", 8.25f, true});
    e.LabelCount->setAutoSize(true);
    e.LabelCount->setCaption("Righe visualizzate:");
    e.LblMisuraTitolo = &DesignLabel(s.CreateLabel("LblMisuraTitolo"), 0, 0, 480, 195, "Label1");
    e.LblMisuraTitolo->setVisible(false);
    e.LblMisuraTitolo->setAutoSize(true);
    e.LabelMisTxt = &DesignLabel(s.CreateLabel("LabelMisTxt"), 210, 675, 480, 195, "Label1");
    e.LabelMisTxt->setAutoSize(true);
    e.Shape1 = &s.CreateShape("Shape1");
    e.Shape1->Move(5415, 0, 8670, 7485);
    e.Shape1->setBorderColor(0xCEAB8E);

    // The design lists each container's elements from the front to the back: the scroll bar in
    // front of everything, the cell surface in front of the key box and the measuring label, the
    // lines over the grid, the captions over the tiles, the outline behind all. Bringing each
    // to the front from the last to the first leaves them in that order.
    Element* frontToBack[] = {&e.VS1->Corpo(), e.FrameSceltaColonne, e.ImageTools, e.PictureTTT, e.FrameLine,
                                    e.FrameImmagini, e.FG1, e.TextKey, e.Shape2, e.LabelTOT, e.LabelCount,
                                    e.LblMisuraTitolo, e.LabelMisTxt, e.Shape1};
    Element* bandFrontToBack[] = {e.LabelTopSk, e.PicCol, e.LabelMenu, e.ImageZ, e.Image1, e.ImageOrd};
    for (auto it = std::rbegin(frontToBack); it != std::rend(frontToBack); ++it) (*it)->ZOrder(0);
    for (auto it = std::rbegin(bandFrontToBack); it != std::rend(bandFrontToBack); ++it) (*it)->ZOrder(0);
    return e;
}

}  // namespace TabulonLib12
