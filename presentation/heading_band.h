#pragma once
// The heading band: the columns of the cell surface have no headings of their own, so the
// control lays a band of its own above the grid, inside the frame Shape2 (left 38, so that a
// tile at ColPos - 10 in the band stands at ColPos + 28 on the control): one background tile
// (Image1) and one caption (LabelMenu) per column, a filler tile behind the last column, a hover
// tile (ImageZ), the tab of the Scheda style (LabelTopSk) and the sort arrow (ImageOrd). It owns
// those elements and the band's look: the styles, the band's colour, the captions' colour, and
// the heading last clicked and last hovered, by which the hover tile and the arrow stand.
//
// A click on a sortable heading sorts the list through the query (heading_band_sort.cpp): the
// band keeps the ORDER BY term and its direction, walks ascending, descending and no sort, and
// has the list loaded again. The direction lives in the arrow itself, as its picture and
// tooltip: a click decides by reading them back.
//
// The builds run step by step and rely on it: creating an item that exists fails, the failure
// is dropped and the item is reused. Items above the new last column are left where they were
// (the tile after the last column becomes the filler); the tiles are never unloaded.
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "grid/column_properties.h"
#include "grid/enumerations.h"
#include "platform/ui/cell_grid.h"
#include "platform/ui/control_array.h"
#include "scrollbar/scorrix.h"

namespace TabulonLib12 {

inline constexpr std::string_view kAscendingTip = "Ordinamento Crescente";
inline constexpr std::string_view kDescendingTip = "Ordinamento Decrescente";

class HeadingBand {
public:
    // What the band asks of its neighbours: the picture library's textures and arrows (each
    // failing with error 340 for a value without an item), and a reload of the list in the
    // sort's new order.
    class Neighbours {
    public:
        virtual ~Neighbours() = default;
        virtual Picture Texture(int16_t style) const = 0;
        virtual Picture ArrowUp(int16_t colour) const = 0;
        virtual Picture ArrowDown(int16_t colour) const = 0;
        virtual void ReloadSorted() = 0;
    };

    HeadingBand(Frame& shape2, ImageElement& image1, Label& labelMenu, ImageElement& imageZ, Label& labelTopSk,
                ImageElement& imageOrd, Label& lblMisuraTitolo, const CellGrid& fg, const Scorrix& bar,
                const ColumnDefinitions& columns, Neighbours& neighbours);

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
    // The settings alone, as a new instance and the property store set them: the tiles and the
    // captions keep their look until the band is built again.
    void RestoreStileTesta(StileTestaType v) { stileTesta_ = v; }
    void RestoreStileTestaOver(StileTestaType v) { stileTestaOver_ = v; }
    void RestoreForeColorHead(Colour c) { foreColorHead_ = c; }
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

    // --- Sorting by heading ---
    const std::string& CampoOrdinamentoAttivo() const { return campoOrdinamento_; }
    bool OrdinamentoDiscendente() const { return discendente_; }
    int16_t IndiceordinamentoAttivo() const { return indiceOrdinamento_; }
    void setIndiceordinamentoAttivo(int16_t k) { indiceOrdinamento_ = k; }
    // Sets the term the load puts behind " ORDER BY " (empty: no sort), and its direction.
    void SetOrder(const std::string& term, bool descending) {
        campoOrdinamento_ = term;
        discendente_ = descending;
    }
    Colour ForeColorOrd() const { return foreColorOrd_; }
    void setForeColorOrd(Colour c) { foreColorOrd_ = c; }
    // The click on heading `k`, as the user's or the host's: a heading without an Ordinamento
    // does nothing; otherwise the hover look moves to it and the sort walks on: none or another
    // column ascending, ascending descending, descending none (from a descending sort a click
    // anywhere removes it first), and the list is loaded again. A `k` outside the columns fails
    // with a subscript error before anything changes.
    void Click(int16_t k);
    // The mouse over heading `k`: a sortable heading takes the hover look while no arrow shows.
    void Hover(int16_t k);
    // The mouse went over the grid: the hover tile goes, and a hovered heading whose tile is
    // hidden without an arrow shows its tile again.
    void GridTookTheHover();

private:
    friend struct Tabulon12Probe;  // the tests' window on the private state
    // Steps 4 to 8 of a click: the hover look on heading k.
    void PlaceHoverOn(int16_t k);
    // Sets the arrow for heading k (or, with `reset`, takes the sort away from it); answers the
    // sort term and " DESC" or "" for the direction, both empty without a sort.
    std::pair<std::string, std::string> ImpostaFrecciaOrdine(int16_t k, bool reset);

    Frame& shape2_;
    ControlArray<ImageElement> image1_;
    ControlArray<Label> labelMenu_;
    ImageElement& imageZ_;
    Label& labelTopSk_;
    ImageElement& imageOrd_;
    Label& lblMisuraTitolo_;
    const CellGrid& fg_;
    const Scorrix& bar_;
    const ColumnDefinitions& columns_;
    Neighbours& neighbours_;
    StileTestaType stileTesta_ = StileTestaType::Ice;
    StileTestaType stileTestaOver_ = StileTestaType::Sky;
    ColorArrowType stileArrow_ = ColorArrowType::Blue;
    Colour colorGridHead_ = 0xF5DDCD;
    Colour foreColorHead_ = 0;
    int16_t ultimaTestaCliccata_ = -1;  // the heading of the last click on a sortable heading
    int16_t testaSorvolata_ = 0;        // the heading last under the mouse; -1 once the grid took the hover
    std::string campoOrdinamento_;      // the ORDER BY term of the sort, "" for none
    bool discendente_ = false;
    int16_t indiceOrdinamento_ = -1;    // the column of the active sort, -1 for none
    Colour foreColorOrd_ = 0x0000FF;    // the caption colour of the active sort column
};

}  // namespace TabulonLib12
