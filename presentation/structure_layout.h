#pragma once
// Structure and sizing: how the cell surface takes its shape from the column definitions and
// the control's size. The structure build sizes FG1, fits as many rows as the height allows
// (MinRows), gives every column its width and alignment, and places the scroll bar, the outline
// and the chooser button around the grid; the fitting rule scales the designed widths by the
// ratio of the control's width to the width they were designed for; the resize layout re-lays
// everything when the control changes size. All lengths are twips.
//
// The heading band, the lines, the pictures, the totals and the chooser are other components':
// the build and the layout reach them through Neighbours, in the order the routines give.
#include <cstdint>
#include <string>
#include <string_view>

#include "grid/column_properties.h"
#include "platform/host/host_services.h"
#include "platform/ui/cell_grid.h"
#include "platform/ui/surface.h"
#include "scrollbar/scorrix.h"

namespace TabulonLib12 {

// The value rounded to a whole number of pixels, in twips: divided by 15, rounded to a 16-bit
// whole number (ties to even, overflowing beyond 16 bits), times 15.
int32_t ArrotondaTwips(float value);

class StructureLayout {
public:
    // What the build and the layout ask of the components around the grid.
    class Neighbours {
    public:
        virtual ~Neighbours() = default;
        virtual void SetHeadingCaption(int16_t column, const std::string& caption) = 0;
        virtual void BuildBand() = 0;             // the tiles, then the captions and lines
        virtual void PlaceColumnPictures() = 0;   // the heading pictures
        virtual void RefreshImageList() = 0;      // the host's image list found again by name
        virtual void HideHoverTile() = 0;
        virtual void SetBandWidth(float width) = 0;
        virtual void StretchLines(float height) = 0;
        virtual void PlaceChooserButton(float left) = 0;
        virtual void PlaceCount(float top) = 0;
        virtual void RedrawTotals() = 0;
        virtual void RaiseResize() = 0;
    };

    // `contained` are the host's controls inside the control (may be null): the layout moves them
    // with the grid's bottom edge.
    StructureLayout(Surface& surface, CellGrid& fg, Scorrix& bar, Shape& outline, const ColumnDefinitions& columns,
                    Neighbours& neighbours, ContainedControls* contained);

    int16_t MinRows() const { return minRows_; }
    void setMinRows(int16_t v) { minRows_ = v; }  // the next build computes it again
    int32_t BottomHeight() const { return bottomHeight_; }
    void setBottomHeight(int32_t v) { bottomHeight_ = v; }
    bool AdattamentoColonneDisattivato() const { return adattamentoDisattivato_; }
    void setAdattamentoColonneDisattivato(bool v) { adattamentoDisattivato_ = v; }
    int32_t DeltaWidth() const { return deltaWidth_; }
    int32_t LarghezzaRiferimento() const { return larghezzaRiferimento_; }
    void setLarghezzaRiferimento(int32_t v) { larghezzaRiferimento_ = v; }

    // The structure build for `cols` columns, with the columns listed in `columnChoice` hidden.
    // Every failing statement is dropped and the next one runs.
    void CaricaStruttura(int16_t cols, std::string_view columnChoice);
    // The fitting rule: every column's designed width times the adaptation factor, hidden
    // columns at 0, then the band rebuilt. Failures of the grid go to the caller.
    void RidimensionaColonne(std::string_view columnChoice);
    // The scale factor of the widths, cut to two decimals; with scaling off it is 1 and the
    // reference width follows the control.
    float FattoreAdattamento();
    // The resize layout. It stops at the first failure and hands it on.
    void LayoutRidimensionamento(std::string_view columnChoice);

private:
    // The rows that fit under the grid's top above BottomHeight: FG1's height and rows, and
    // MinRows. The build drops a failing step; the resize layout hands it on.
    void ApplicaRegolaAltezza(bool dropFailures);
    // The scroll bar, the outline and the chooser button placed around the grid.
    void DisponiIntornoGriglia();
    // Every control the host placed inside the control, vertical scroll bars excepted, moves
    // down or up by as much as the grid's height changed since the last layout.
    void SpostaControlliContenuti();

    Surface& surface_;
    CellGrid& fg_;
    Scorrix& bar_;
    Shape& outline_;
    const ColumnDefinitions& columns_;
    Neighbours& neighbours_;
    ContainedControls* contained_;

    int16_t minRows_ = 10;
    int32_t bottomHeight_ = 0;
    bool adattamentoDisattivato_ = false;
    int32_t deltaWidth_ = 0;
    int32_t larghezzaRiferimento_ = 0;        // the width the designed widths hold for
    int32_t larghezzaPrecedente_ = 0;         // the width at the last layout; 0 before the first
    int32_t altezzaSuperficiePrecedente_ = 0; // FG1's height at the last layout; 0 before the first
};

}  // namespace TabulonLib12
