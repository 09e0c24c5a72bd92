#include "presentation/column_bands.h"

namespace TabulonLib12 {

ColumnBands::ColumnBands(Frame& frameLine, ImageElement& picCol) : frameLine_(frameLine), picCol_(picCol) {}

Colour ColumnBands::VerticalGridColor() const { return frameLine_(0).BackColor(); }

void ColumnBands::setVerticalGridColor(Colour c, int16_t cols) {
    for (int16_t i = 0; i < cols; ++i) frameLine_(i).setBackColor(c);
}

void ColumnBands::SetPictureToolTip(int16_t column, const std::string& text) { picCol_(column).setToolTipText(text); }
void ColumnBands::SetPicture(int16_t column, Picture picture) { picCol_(column).setPicture(std::move(picture)); }

void ColumnBands::StretchLines(float height, int32_t count) {
    for (int32_t i = 0; i < count && i <= INT16_MAX; ++i)
        if (frameLine_.Exists(static_cast<int16_t>(i))) frameLine_(static_cast<int16_t>(i)).setHeight(height);
}

void ColumnBands::DisponiImmaginiColonna() {}
void ColumnBands::ScaricaElementiColonna() {}

}  // namespace TabulonLib12
