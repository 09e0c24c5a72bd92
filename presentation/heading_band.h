#pragma once
// The heading band: the columns of the cell surface have no headings of their own, so the
// control lays a band of its own above the grid, inside the frame Shape2 (left 38, so that a
// tile at ColPos - 10 in the band stands at ColPos + 28 on the control): one background tile
// (Image1) and one caption (LabelMenu) per column, a filler tile behind the last column, a hover
// tile (ImageZ), the tab of the Scheda style (LabelTopSk) and the sort arrow (ImageOrd). It owns
// those elements and the band's look: the styles, the band's colour, the captions' colour, and
// the heading last clicked and last hovered, by which the hover tile and the arrow stand.
//
// The builds run step by step and rely on it: creating an item that exists fails, the failure
// is dropped and the item is reused. Items above the new last column are left where they were
// (the tile after the last column becomes the filler); the tiles are never unloaded.
#include <cstdint>
#include <string>
#include <string_view>

#include "grid/column_properties.h"
#include "grid/enumerations.h"
#include "platform/ui/cell_grid.h"
#include "platform/ui/control_array.h"
#include "scrollbar/scorrix.h"

namespace TabulonLib12 {

class HeadingBand {
public:
    // Where the band takes its textures: the picture library's item of a style value, failing
    // with error 340 for a value without an item.
    class Textures {
    public:
        virtual ~Textures() = default;
        virtual Picture Texture(int16_t style) const = 0;
    };

    HeadingBand(Frame& shape2, ImageElement& image1, Label& labelMenu, ImageElement& imageZ, Label& labelTopSk,
                ImageElement& imageOrd, const CellGrid& fg, const Scorrix& bar, const ColumnDefinitions& columns,
                const Textures& textures);

    // The caption of column `column`; a heading that does not exist fails with error 340.
    void SetCaption(int16_t column, const std::string& caption);
    // While a load runs the band takes no clicks.
    void SetEnabled(bool enabled);
    void SetWidth(float width);
    void HideHoverTile();
    // The captions above column 0 removed, before a change of Cols rebuilds them; answers how
    // many captions there were.
    int32_t UnloadCaptions();

    StileTestaType StileTesta() const { return stileTesta_; }
    // Stores the style, then gives every tile its texture; a style without a texture fails there,
    // with the style already stored.
    void setStileTesta(StileTestaType v);
    StileTestaType StileTestaOver() const { return stileTestaOver_; }
    // Stores the style, then gives the hover tile its texture: that of Ice for Scheda, whose
    // hover is the tab, else the style's own.
    void setStileTestaOver(StileTestaType v);
    ColorArrowType StileArrow() const { return stileArrow_; }
    void setStileArrow(ColorArrowType v) { stileArrow_ = v; }
    // A new picture of the Custom texture reaches the tiles and the hover tile that show Custom.
    void CustomTextureChanged(const Picture& picture);
    Colour ColorGridHead() const { return colorGridHead_; }
    void setColorGridHead(Colour c);  // also the band frame's back colour
    Colour ForeColorHead() const { return foreColorHead_; }
    void setForeColorHead(Colour c);  // also the text colour of every caption
    Colour BackColorTopScheda() const;  // held by the tab itself
    void setBackColorTopScheda(Colour c);

    int16_t UltimaTestaCliccata() const { return ultimaTestaCliccata_; }
    void setUltimaTestaCliccata(int16_t k) { ultimaTestaCliccata_ = k; }
    int16_t TestaSorvolata() const { return testaSorvolata_; }
    void setTestaSorvolata(int16_t k) { testaSorvolata_ = k; }

    // The tiles and the frame: one tile per column of the surface at its ColPos - 10, 10 twips
    // narrower than the column (a hidden column's tile is hidden, and keeps its width, since
    // the surface refuses -10), tile 0 at the frame's left edge once there are two columns, and
    // the filler after the last column.
    void DisponiSfondiTesta();
    // The captions of `cols` columns, each over its tile and as wide as its column, in the
    // heading colour, empty for a column hidden by `columnChoice` or of width 0; the hover tile,
    // the tab and the arrow follow the heading last clicked.
    void DisponiTestate(int16_t cols, std::string_view columnChoice);

private:
    friend struct Tabulon12Probe;  // the tests' window on the private state
    Frame& shape2_;
    ControlArray<ImageElement> image1_;
    ControlArray<Label> labelMenu_;
    ImageElement& imageZ_;
    Label& labelTopSk_;
    ImageElement& imageOrd_;
    const CellGrid& fg_;
    const Scorrix& bar_;
    const ColumnDefinitions& columns_;
    const Textures& textures_;
    StileTestaType stileTesta_ = StileTestaType::Ice;
    StileTestaType stileTestaOver_ = StileTestaType::Sky;
    ColorArrowType stileArrow_ = ColorArrowType::Blue;
    Colour colorGridHead_ = 0xF5DDCD;
    Colour foreColorHead_ = 0;
    int16_t ultimaTestaCliccata_ = -1;  // the heading of the last click on a sortable heading
    int16_t testaSorvolata_ = 0;        // the heading last under the mouse; -1 once the grid took the hover
};

}  // namespace TabulonLib12
