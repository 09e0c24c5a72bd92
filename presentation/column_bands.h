#pragma once
// What gives the columns their look beyond the text: a vertical line at the left edge of each
// column (FrameLine, thin frames laid over the grid, not the grid's own lines) and a picture in
// a column's heading (PicCol). It owns those elements and VerticalGrid; the lines' colour lives
// in the lines themselves and reads from line 0.
//
// The switch of line i is MostraBarraVert(i - 1): a column's property governs the line at its
// right edge, so the last column's governs none and line 0 never shows.
#include <cstdint>
#include <string>

#include "grid/column_properties.h"
#include "platform/ui/cell_grid.h"
#include "platform/ui/control_array.h"
#include "presentation/image_list.h"

namespace TabulonLib12 {

class ColumnBands {
public:
    ColumnBands(Frame& frameLine, ImageElement& picCol, const CellGrid& fg, const ColumnDefinitions& columns,
                const ImageListRef& images);

    bool VerticalGrid() const { return verticalGrid_; }
    // Stores the switch, then shows or hides lines 0 to cols - 1 by it; a line not built yet
    // fails with error 340, the switch already stored.
    void setVerticalGrid(bool v, int16_t cols);
    // The colour of the lines, held by line 0; a write colours lines 0 to cols - 1 and fails at
    // the first that is not built yet.
    Colour VerticalGridColor() const;
    void setVerticalGridColor(Colour c, int16_t cols);

    // The tooltip and the picture of column `column`'s heading picture (error 340 when it does
    // not exist).
    void SetPictureToolTip(int16_t column, const std::string& text);
    void SetPicture(int16_t column, Picture picture);
    // Lines 0 to count - 1 as high as the grid; a line not built yet fails with error 340.
    void StretchLines(float height, int32_t count);

    // The lines of `cols` columns: each at its column's left edge less 15 twips, 15 wide and as
    // high as the grid, in line 0's colour, shown by VerticalGrid and the column before it.
    void DisponiLinee(int16_t cols);
    // The heading pictures: each column with an ImmagineA shows that picture of the image list,
    // 270 twips wide and centred over the column; a column without one hides it. Silent.
    void DisponiImmaginiColonna(int16_t cols);
    // The lines and pictures of columns 1 to count - 1 removed, before a change of Cols.
    void ScaricaElementiColonna(int32_t count);

private:
    ControlArray<Frame> frameLine_;
    ControlArray<ImageElement> picCol_;
    const CellGrid& fg_;
    const ColumnDefinitions& columns_;
    const ImageListRef& images_;
    bool verticalGrid_ = false;
};

}  // namespace TabulonLib12
