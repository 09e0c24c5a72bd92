#pragma once
// The heading band: the columns of the cell surface have no headings of their own, so the
// control lays a band of its own above the grid, inside the frame Shape2: one background tile
// (Image1) and one caption (LabelMenu) per column, a filler tile behind the last column, a hover
// tile (ImageZ), the tab of the Scheda style (LabelTopSk) and the sort arrow (ImageOrd). It owns
// those elements and the band's look: the styles, the band's colour and the captions' colour.
#include <cstdint>
#include <string>

#include "grid/enumerations.h"
#include "platform/ui/control_array.h"
#include "platform/ui/surface.h"

namespace TabulonLib12 {

class HeadingBand {
public:
    HeadingBand(Frame& shape2, ImageElement& image1, Label& labelMenu, ImageElement& imageZ, Label& labelTopSk,
                ImageElement& imageOrd);

    // The caption of column `column`; a heading that does not exist fails with error 340.
    void SetCaption(int16_t column, const std::string& caption);
    // While a load runs the band takes no clicks.
    void SetEnabled(bool enabled);
    void SetWidth(float width);
    void HideHoverTile();

    StileTestaType StileTesta() const { return stileTesta_; }
    void setStileTesta(StileTestaType v) { stileTesta_ = v; }
    StileTestaType StileTestaOver() const { return stileTestaOver_; }
    void setStileTestaOver(StileTestaType v) { stileTestaOver_ = v; }
    ColorArrowType StileArrow() const { return stileArrow_; }
    void setStileArrow(ColorArrowType v) { stileArrow_ = v; }
    Colour ColorGridHead() const { return colorGridHead_; }
    void setColorGridHead(Colour c);  // also the band frame's back colour
    Colour ForeColorHead() const { return foreColorHead_; }
    void setForeColorHead(Colour c);  // also the text colour of every caption
    Colour BackColorTopScheda() const;  // held by the tab itself
    void setBackColorTopScheda(Colour c);

    // The tiles and the frame, then the captions: always in that order. The band keeps its
    // designed look until its layout is built.
    void DisponiSfondiTesta();
    void DisponiTestate();

private:
    friend struct Tabulon12Probe;  // the tests' window on the private state
    Frame& shape2_;
    ControlArray<ImageElement> image1_;
    ControlArray<Label> labelMenu_;
    ImageElement& imageZ_;
    Label& labelTopSk_;
    ImageElement& imageOrd_;
    StileTestaType stileTesta_ = StileTestaType::Ice;
    StileTestaType stileTestaOver_ = StileTestaType::Sky;
    ColorArrowType stileArrow_ = ColorArrowType::Blue;
    Colour colorGridHead_ = 0xF5DDCD;
    Colour foreColorHead_ = 0;
};

}  // namespace TabulonLib12
