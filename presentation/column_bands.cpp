#include "presentation/column_bands.h"

#include "platform/runtime/rounding.h"
#include "platform/runtime/steps.h"

namespace TabulonLib12 {

namespace {

constexpr float kLineWidth = 15;
constexpr int32_t kPictureWidth = 270;  // the width a heading picture is placed by

}  // namespace

ColumnBands::ColumnBands(Frame& frameLine, ImageElement& picCol, const CellGrid& fg, const ColumnDefinitions& columns,
                         const ImageListRef& images)
    : frameLine_(frameLine), picCol_(picCol), fg_(fg), columns_(columns), images_(images) {}

void ColumnBands::setVerticalGrid(bool v, int16_t cols) {
    verticalGrid_ = v;
    for (int16_t i = 0; i < cols; ++i) frameLine_(i).setVisible(v && ColumnValue(columns_.MostraBarraVert, i - 1) != 0);
}

Colour ColumnBands::VerticalGridColor() const { return frameLine_(0).BackColor(); }

void ColumnBands::setVerticalGridColor(Colour c, int16_t cols) {
    for (int16_t i = 0; i < cols; ++i) frameLine_(i).setBackColor(c);
}

void ColumnBands::SetPictureToolTip(int16_t column, const std::string& text) { picCol_(column).setToolTipText(text); }
void ColumnBands::SetPicture(int16_t column, Picture picture) { picCol_(column).setPicture(std::move(picture)); }

void ColumnBands::StretchLines(float height, int32_t count) {
    for (int32_t i = 0; i < count && i <= INT16_MAX; ++i) frameLine_(static_cast<int16_t>(i)).setHeight(height);
}

void ColumnBands::DisponiLinee(int16_t cols) {
    Steps steps;
    for (int16_t i = 0; i < cols; ++i) {
        if (i > 0) {
            steps([&] { frameLine_.Load(i); });
            steps([&] { frameLine_(i).setBackColor(frameLine_(0).BackColor()); });
        }
        steps([&] { frameLine_(i).setVisible(verticalGrid_ && ColumnValue(columns_.MostraBarraVert, i - 1) != 0); });
        steps([&] { frameLine_(i).setTop(fg_.Top()); });
        steps([&] { frameLine_(i).setWidth(kLineWidth); });
        steps([&] { frameLine_(i).setHeight(static_cast<float>(ToInt32(fg_.Height()))); });
        steps([&] { frameLine_(i).ZOrder(0); });
        steps([&] { frameLine_(i).setLeft(fg_.Left() + static_cast<float>(fg_.ColPos(i)) - kLineWidth); });
    }
}

void ColumnBands::DisponiImmaginiColonna(int16_t cols) {
    Steps steps;  // silent in every case
    for (int16_t i = 0; i < cols; ++i) {
        const int16_t item = ColumnValue(columns_.ImmagineA, i);
        if (item == 0) {
            steps([&] { picCol_(i).setVisible(false); });
            continue;
        }
        if (i > 0) steps([&] { picCol_.Load(i); });
        steps([&] { picCol_(i).setVisible(true); });
        steps([&] { picCol_(i).setTop(picCol_(0).Top()); });
        steps([&] { picCol_(i).ZOrder(0); });
        steps([&] { picCol_(i).setToolTipText(ColumnValue(columns_.ToolTT, i)); });
        steps([&] { picCol_(i).setWidth(static_cast<float>(kPictureWidth)); });
        steps([&] {
            const double half = RoundHalfEven((fg_.ColWidth(i) - kPictureWidth) / 2.0);
            picCol_(i).setLeft(static_cast<float>(fg_.ColPos(i) + half));
        });
        // Without an image list, or with an item beyond it, the picture stays as it was.
        steps([&] { picCol_(i).setPicture(images_.Item(item)); });
    }
}

void ColumnBands::ScaricaElementiColonna(int32_t count) {
    Steps steps;  // an item that is not there is no failure
    for (int32_t i = 1; i < count && i <= INT16_MAX; ++i) {
        const auto index = static_cast<int16_t>(i);
        steps([&] { picCol_.Unload(index); });
        steps([&] { frameLine_.Unload(index); });
    }
}

}  // namespace TabulonLib12
