#pragma once
// What gives the columns their look beyond the text: a vertical line at the left edge of each
// column (FrameLine, thin frames laid over the grid, not the grid's own lines) and a picture in
// a column's heading (PicCol). It owns those elements, VerticalGrid and the lines' colour,
// which the lines themselves hold.
#include <cstdint>
#include <string>

#include "platform/ui/control_array.h"
#include "platform/ui/surface.h"

namespace TabulonLib12 {

class ColumnBands {
public:
    ColumnBands(Frame& frameLine, ImageElement& picCol);

    bool VerticalGrid() const { return verticalGrid_; }
    void setVerticalGrid(bool v) { verticalGrid_ = v; }
    // The colour of the lines, held by line 0; a write colours lines 0 to cols - 1 (a line not
    // built yet fails with error 340).
    Colour VerticalGridColor() const;
    void setVerticalGridColor(Colour c, int16_t cols);

    // The tooltip and the picture of column `column`'s heading picture (error 340 when it does
    // not exist).
    void SetPictureToolTip(int16_t column, const std::string& text);
    void SetPicture(int16_t column, Picture picture);
    // Lines 0 to count - 1 as high as the grid, those that exist.
    void StretchLines(float height, int32_t count);

    // The heading pictures placed over their columns; the lines and pictures of columns above 0
    // removed before a change of Cols. The pictures keep their designed place until the
    // heading pictures are laid out.
    void DisponiImmaginiColonna();
    void ScaricaElementiColonna();

private:
    ControlArray<Frame> frameLine_;
    ControlArray<ImageElement> picCol_;
    bool verticalGrid_ = false;
};

}  // namespace TabulonLib12
