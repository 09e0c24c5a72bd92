#include "presentation/heading_band.h"

#include <vector>

#include "grid/values.h"
#include "platform/runtime/steps.h"
#include "platform/runtime/text.h"

namespace TabulonLib12 {

HeadingBand::HeadingBand(Frame& shape2, ImageElement& image1, Label& labelMenu, ImageElement& imageZ,
                         Label& labelTopSk, ImageElement& imageOrd, Label& lblMisuraTitolo, const CellGrid& fg,
                         const Scorrix& bar, const ColumnDefinitions& columns, Neighbours& neighbours)
    : shape2_(shape2),
      image1_(image1),
      labelMenu_(labelMenu),
      imageZ_(imageZ),
      labelTopSk_(labelTopSk),
      imageOrd_(imageOrd),
      lblMisuraTitolo_(lblMisuraTitolo),
      fg_(fg),
      bar_(bar),
      columns_(columns),
      neighbours_(neighbours) {
    // Every caption takes the clicks and the hover of its heading: the handlers of item 0 go
    // with every copy.
    labelMenu.onClick = [this](Element& caption) { Click(caption.Index()); };
    labelMenu.onMouseMove = [this](Element& caption, int16_t&, int16_t&, float&, float&) { Hover(caption.Index()); };
}

void HeadingBand::SetCaption(int16_t column, const std::string& caption) { labelMenu_(column).setCaption(caption); }
void HeadingBand::SetEnabled(bool enabled) { shape2_.setEnabled(enabled); }
void HeadingBand::SetWidth(float width) { shape2_.setWidth(width); }
void HeadingBand::HideHoverTile() { imageZ_.setVisible(false); }

int32_t HeadingBand::UnloadCaptions() {
    const int32_t count = labelMenu_.Count();
    Steps steps;  // a caption that is not there is no failure
    for (int32_t i = 1; i < count && i <= INT16_MAX; ++i) steps([&] { labelMenu_.Unload(static_cast<int16_t>(i)); });
    return count;
}

void HeadingBand::setStileTesta(StileTestaType v) {
    stileTesta_ = v;
    const Picture texture = neighbours_.Texture(static_cast<int16_t>(v));
    for (auto& [index, tile] : image1_.Items()) tile->setPicture(texture);
}

void HeadingBand::setStileTestaOver(StileTestaType v) {
    stileTestaOver_ = v;
    imageZ_.setPicture(neighbours_.Texture(v == StileTestaType::Scheda ? 0 : static_cast<int16_t>(v)));
}

void HeadingBand::CustomTextureChanged(const Picture& picture) {
    if (stileTesta_ == StileTestaType::Custom)
        for (auto& [index, tile] : image1_.Items()) tile->setPicture(picture);
    if (stileTestaOver_ == StileTestaType::Custom) imageZ_.setPicture(picture);
}

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

void HeadingBand::DisponiSfondiTesta() {
    Steps steps;
    const int32_t last = fg_.Cols() - 1;
    ImageElement& first = image1_(0);
    for (int32_t i = 0; i <= last && i < INT16_MAX; ++i) {
        const auto index = static_cast<int16_t>(i);
        // Item 0 goes to the frame's left edge on every turn: with two or more columns the first
        // tile starts there and not at its column.
        steps([&] { first.setLeft(0); });
        if (i > 0) {
            steps([&] { image1_.Load(index); });
            steps([&] { image1_(index).setVisible(fg_.ColWidth(i) != 0); });
            steps([&] { image1_(index).setTop(first.Top()); });
        }
        steps([&] { image1_(index).setLeft(static_cast<float>(fg_.ColPos(i) - 10)); });
        steps([&] { image1_(index).setWidth(static_cast<float>(fg_.ColWidth(i) - 10)); });
    }
    steps([&] { shape2_.setWidth(bar_.Width() + fg_.Width() + 1000); });
    steps([&] { shape2_.setLeft(38); });
    steps([&] { shape2_.setBackColor(colorGridHead_); });
    // The filler tile, behind the last column to the band's end.
    if (last + 1 > INT16_MAX) return;
    const auto filler = static_cast<int16_t>(last + 1);
    steps([&] { image1_.Load(filler); });
    steps([&] { image1_(filler).setLeft(static_cast<float>(fg_.ColPos(last) + fg_.ColWidth(last) - 15)); });
    steps([&] { image1_(filler).setWidth(shape2_.Width() - 15); });
    steps([&] { image1_(filler).setTop(first.Top()); });
    steps([&] { image1_(filler).ZOrder(0); });
    steps([&] { image1_(filler).setVisible(true); });
}

void HeadingBand::DisponiTestate(int16_t cols, std::string_view columnChoice) {
    Steps steps;
    for (int16_t i = 0; i < cols; ++i) {
        if (i > 0) {
            steps([&] { labelMenu_.Load(i); });
            steps([&] { labelMenu_(i).setVisible(true); });
            steps([&] { labelMenu_(i).setTop(labelMenu_(0).Top()); });
            steps([&] { labelMenu_(i).ZOrder(0); });
            if (ultimaTestaCliccata_ > -1) {
                // The hover tile, the tab and the arrow stay with the heading last clicked.
                const int16_t k = ultimaTestaCliccata_;
                steps([&] {
                    const ImageElement& tile = image1_(k);
                    imageZ_.Move(tile.Left(), tile.Top(), tile.Width(), tile.Height());
                });
                steps([&] { labelTopSk_.Move(imageZ_.Left(), 0, imageZ_.Width(), shape2_.Height()); });
                steps([&] {
                    const ImageElement& tile = image1_(k);
                    imageOrd_.Move(tile.Left() + tile.Width() - imageOrd_.Width(), image1_(0).Top());
                });
            }
        }
        steps([&] { labelMenu_(i).setForeColor(foreColorHead_); });
        steps([&] { labelMenu_(i).setLeft(image1_(i).Left()); });
        // As wide as the column, not the tile: a caption may reach 10 twips past its tile.
        steps([&] { labelMenu_(i).setWidth(static_cast<float>(fg_.ColWidth(i))); });
        steps([&] {
            const bool hidden = ListHolds(columnChoice, DecimalText(i));
            const bool shown = columns_.Has(i) && i < fg_.Cols() && fg_.ColWidth(i) >= 1 &&
                               columns_.ColsWidth[static_cast<size_t>(i)] != 0;
            labelMenu_(i).setCaption(hidden || !shown ? "" : ColumnValue(columns_.Intestazione, i));
        });
    }
}

}  // namespace TabulonLib12
