// Sorting by heading, and the hover look of sortable headings. The arrow carries the sort's
// direction: its picture is the up or down arrow of the arrow style, its tooltip says which,
// its Tag holds the Ordinamento text of the sorted column, and a click reads them back.
#include "presentation/heading_band.h"

#include "platform/runtime/steps.h"

namespace TabulonLib12 {

namespace {

constexpr float kTileHeight = 330;        // a heading tile
constexpr float kSortedTileHeight = 320;  // the tile of the sorted column

}  // namespace

void HeadingBand::PlaceHoverOn(int16_t k) {
    const ImageElement& tile = image1_(k);
    imageZ_.Move(tile.Left(), tile.Top(), tile.Width(), tile.Height());
    labelTopSk_.Move(imageZ_.Left(), 0, imageZ_.Width(), shape2_.Height());
    if (stileTestaOver_ == StileTestaType::Scheda) {
        imageZ_.setVisible(false);
        labelTopSk_.setVisible(true);
        labelTopSk_.ZOrder(0);
    } else {
        labelTopSk_.setVisible(false);
        imageZ_.setVisible(true);
        imageZ_.ZOrder(0);
    }
    labelMenu_(k).ZOrder(0);
    image1_(k).setVisible(false);
}

void HeadingBand::Click(int16_t k) {
    if (!columns_.Has(k)) throw Error::OutOfBounds();
    if (columns_.Ordinamento[static_cast<size_t>(k)].empty()) return;
    ultimaTestaCliccata_ = k;
    for (auto& [index, tile] : image1_.Items())
        if (index != k) tile->setVisible(true);
    PlaceHoverOn(k);
    // The arrow decides, not the column: from a descending sort any click removes the sort.
    if (imageOrd_.ToolTipText() == kDescendingTip) {
        ImpostaFrecciaOrdine(k, true);
        campoOrdinamento_.clear();
        discendente_ = false;
    } else {
        const auto [term, direction] = ImpostaFrecciaOrdine(k, false);
        campoOrdinamento_ = term;
        discendente_ = direction == " DESC";
    }
    neighbours_.ReloadSorted();
}

std::pair<std::string, std::string> HeadingBand::ImpostaFrecciaOrdine(int16_t k, bool reset) {
    Steps steps;  // every failing statement is dropped
    const std::string ordinamento = ColumnValue(columns_.Ordinamento, k);
    auto noSort = [&] {
        steps([&] { imageOrd_.setVisible(false); });
        imageOrd_.setTag("");
        return std::pair<std::string, std::string>();
    };
    if (ordinamento.empty()) return noSort();
    if (reset) {
        imageOrd_.setVisible(false);
        steps([&] { image1_(k).setHeight(kTileHeight); });
        imageOrd_.setToolTipText(std::string(kAscendingTip));
        indiceOrdinamento_ = -1;
        steps([&] { labelMenu_(k).setForeColor(foreColorHead_); });
        return noSort();
    }
    indiceOrdinamento_ = k;
    imageZ_.setVisible(stileTestaOver_ != StileTestaType::Scheda);

    // The arrow's next state, read from the arrow itself. A style without an arrow of its own
    // (a value the library has no item for) drops the picture and leaves it as it was.
    const auto style = static_cast<int16_t>(stileArrow_);
    const Picture current = imageOrd_.GetPicture();
    Picture up, down;
    steps([&] { up = neighbours_.ArrowUp(style); });
    steps([&] { down = neighbours_.ArrowDown(style); });
    if (!current || ordinamento != imageOrd_.Tag()) {
        steps([&] { imageOrd_.setPicture(neighbours_.ArrowUp(style)); });
        imageOrd_.setToolTipText(std::string(kAscendingTip));
    } else if (up && current == up) {
        steps([&] { imageOrd_.setPicture(neighbours_.ArrowDown(style)); });
        imageOrd_.setToolTipText(std::string(kDescendingTip));
    } else if (down && current == down) {
        steps([&] { imageOrd_.setPicture(neighbours_.ArrowUp(style)); });
        imageOrd_.setToolTipText(std::string(kAscendingTip));
    }
    imageOrd_.setTag(ordinamento);
    steps([&] { lblMisuraTitolo_.setCaption(labelMenu_(k).Caption()); });
    float top = 0, left = 0;
    steps([&] { top = image1_(0).Top(); });
    steps([&] { left = image1_(k).Left() + image1_(k).Width() - imageOrd_.Width(); });
    steps([&] { labelMenu_(k).setForeColor(foreColorOrd_); });
    for (auto& [index, tile] : image1_.Items()) {
        if (index == k) continue;
        tile->setHeight(kTileHeight);
        const int16_t i = index;
        steps([&] { labelMenu_(i).setForeColor(foreColorHead_); });  // the filler has no caption
    }
    steps([&] { image1_(k).setHeight(kSortedTileHeight); });
    steps([&] { imageOrd_.Move(left, top); });
    imageOrd_.ZOrder(0);
    imageOrd_.setVisible(true);
    return {ordinamento, imageOrd_.ToolTipText() == kDescendingTip ? " DESC" : ""};
}

void HeadingBand::Hover(int16_t k) {
    if (!columns_.Has(k)) throw Error::OutOfBounds();
    if (columns_.Ordinamento[static_cast<size_t>(k)].empty()) return;
    // While an arrow shows, no heading takes the hover look.
    if (image1_(k).Visible() && !imageOrd_.Visible()) PlaceHoverOn(k);
    testaSorvolata_ = k;
    for (auto& [index, tile] : image1_.Items())
        if (index != k) tile->setVisible(true);
}

void HeadingBand::GridTookTheHover() {
    Steps steps;  // the mouse layer swallows every failure
    imageZ_.setVisible(false);
    if (testaSorvolata_ == -1) return;
    const int16_t h = testaSorvolata_;
    steps([&] {
        if (!image1_(h).Visible() && !imageOrd_.Visible()) {
            image1_(h).setVisible(true);
            imageZ_.setVisible(false);
            testaSorvolata_ = -1;
        }
    });
}

}  // namespace TabulonLib12
