#include "presentation/heading_band.h"

namespace TabulonLib12 {

HeadingBand::HeadingBand(const ControlElements& e)
    : shape2_(*e.Shape2),
      image1_(*e.Image1),
      labelMenu_(*e.LabelMenu),
      imageZ_(*e.ImageZ),
      labelTopSk_(*e.LabelTopSk),
      imageOrd_(*e.ImageOrd) {}

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
