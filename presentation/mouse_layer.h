#pragma once
// The event layer over the cell surface: it follows the mouse, shows the control's own tooltip
// (the picture box PictureTTT holding the label LabelTTT, shown at the pointer at once, with no
// delay, re-decided on every move), turns the pointer into a hand over hyperlink cells,
// hit-tests rows and columns itself, and raises the host's events of the surface. It owns the
// tooltip, the measuring label LabelMisTxt, the handlers of the surface's events and the last
// pointer position, which every hit test reads (a click is hit-tested where the last move was).
//
// Numbering: ColonnaSelezionata answers the column under the pointer counted from 1 (0 left of
// the first), RigaSorvolata the row counted from 1, except that the last grid row answers like
// the one above it; RigaCliccata the grid row counted from 0, 0 for the last.
#include <cstdint>
#include <string>

#include "grid/column_properties.h"
#include "grid/events.h"
#include "grid/row_store.h"
#include "platform/ui/cell_grid.h"
#include "presentation/image_list.h"
#include "scrollbar/scorrix.h"

namespace TabulonLib12 {

class MouseLayer {
public:
    // What the layer asks of the components around it.
    class Neighbours {
    public:
        virtual ~Neighbours() = default;
        virtual bool Loading() const = 0;           // a load runs: cell enter and leave are held back
        virtual void GridTookTheHover() = 0;        // the band loses its hover look
        virtual void SelezionaRiga(int32_t riga) = 0;
        virtual void SelezionaRigaMS(int32_t riga, bool nonDeselezionare) = 0;
        virtual bool MultiSel() const = 0;
        virtual bool SelezioneMultiplaImmediata() const = 0;
        // The selection as the surface's current row sets it, and as a click sets it: the
        // current row, the active record and the selected key.
        virtual void SetCurrentRow(int32_t riga, int32_t indiceRigaAttiva, int32_t indiceSelezionato) = 0;
        virtual int32_t IndiceSelezionato() const = 0;
        virtual int32_t IndiceRigaAttiva() const = 0;
        virtual void FocusKeys() = 0;  // the key box takes the focus
    };

    MouseLayer(PictureBox& pictureTTT, Label& labelTTT, Label& labelMisTxt, CellGrid& fg, Scorrix& bar,
               RowStore& store, const ColumnDefinitions& columns, const ImageListRef& images, HostEvents& events,
               Neighbours& neighbours);

    // Every scroll ends any tooltip.
    void HideTip();

    int16_t ColonnaSelezionata() const;
    int16_t RigaSorvolata() const;
    int16_t RigaCliccata() const;
    // Whether the cell of store index `riga` and column `colonna` shows a picture.
    bool CellaConImmagine(int16_t riga, int16_t colonna) const;

private:
    void MouseMove(int16_t button, int16_t shift, float x, float y);
    void MouseDown(int16_t button, int16_t shift, float x, float y);
    void Click();
    void DblClick();
    void SelChange();
    // Decides the tooltip for grid row g and one-based column c1 at the pointer x, y.
    void Tooltip(int32_t g, int16_t c1, float x, float y);
    // The caption shows when it holds more than blanks, in front of everything.
    void FinishTip();

    PictureBox& pictureTTT_;
    Label& labelTTT_;
    Label& labelMisTxt_;
    CellGrid& fg_;
    Scorrix& bar_;
    RowStore& store_;
    const ColumnDefinitions& columns_;
    const ImageListRef& images_;
    HostEvents& events_;
    Neighbours& neighbours_;
    int32_t ultimoMouseX_ = 0;
    int32_t ultimoMouseY_ = 0;
};

// The text a tooltip shows of a cell: the whole text, or for a very long one its beginning,
// cut at a character boundary (never inside a character or before a combining mark) and ended
// with an ellipsis.
std::string TipText(const std::string& text);

}  // namespace TabulonLib12
