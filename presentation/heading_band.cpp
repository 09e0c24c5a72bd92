#include "presentation/heading_band.h"

namespace TabulonLib12 {

HeadingBand::HeadingBand(Frame& shape2, ImageElement& image1, Label& labelMenu, ImageElement& imageZ, Label& labelTopSk,
                         ImageElement& imageOrd)
    : shape2_(shape2), image1_(image1), labelMenu_(labelMenu), imageZ_(imageZ), labelTopSk_(labelTopSk), imageOrd_(imageOrd) {}

void HeadingBand::SetCaption(int16_t column, const std::string& caption) { labelMenu_(column).setCaption(caption); }
void HeadingBand::SetEnabled(bool enabled) { shape2_.setEnabled(enabled); }
void HeadingBand::SetWidth(float width) { shape2_.setWidth(width); }
void HeadingBand::HideHoverTile() { imageZ_.setVisible(false); }

void HeadingBand::setColorGridHead(Colour c) {
    colorGridHead_ = c;
    shape2_.setBackColor(c);
}

void HeadingBand::setForeColorHead(Colour c) {
    foreColorHead_ = c;
    for (auto& [index, label] : labelMenu_.Items()) label->setForeColor(c);
}

Colour HeadingBand::BackColorTopScheda() const { return labelTopSk_.BackColor(); }
void HeadingBand::setBackColorTopScheda(Colour c) { labelTopSk_.setBackColor(c); }

void HeadingBand::DisponiSfondiTesta() {}
void HeadingBand::DisponiTestate() {}

}  // namespace TabulonLib12
