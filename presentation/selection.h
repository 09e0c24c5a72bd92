#pragma once
// The two selections of the list. The single one is the current row of the cell surface, which
// the surface highlights whole, with the key of its record in IndiceSelezionato. The multiple
// one is a marker per record in the store's column Cols (grid/markers.h), painted through the
// row painter; it works only while MultiSel holds. A record can be picked only when column 0 of
// its row holds a number other than 0: the list takes column 0 for the record's key.
#include <cstdint>
#include <string>

#include "grid/row_store.h"
#include "platform/ui/cell_grid.h"
#include "platform/runtime/colour.h"
#include "scrollbar/scorrix.h"

namespace TabulonLib12 {

class Selection {
public:
    // How the selection has rows painted: a grid row in a colour or in its default colours,
    // every row in its default colours, and the colour of a picked row.
    class RowColours {
    public:
        virtual ~RowColours() = default;
        virtual void ColoraRiga(int32_t riga, bool def, Colour colore) = 0;
        virtual void ColoraSfondoRighe() = 0;
        virtual Colour BackColorSelected() const = 0;
    };

    Selection(CellGrid& fg, const Scorrix& bar, RowStore& store, RowColours& painter);

    int32_t IndiceSelezionato() const { return indiceSelezionato_; }
    int32_t IndiceRigaAttiva() const { return indiceRigaAttiva_; }
    int32_t RigaCorrente() const { return rigaCorrente_; }
    void setRigaCorrente(int32_t g) { rigaCorrente_ = g; }
    bool MultiSel() const { return multiSel_; }
    // The switch alone, as the property store restores it: no marker is cleared, nothing repainted.
    void RestoreMultiSel(bool v) { multiSel_ = v; }
    void ResetAnchor() { ancoraMultipla_ = -1; }
    bool SelezioneMultiplaImmediata() const { return selezioneMultiplaImmediata_; }
    void setSelezioneMultiplaImmediata(bool v) { selezioneMultiplaImmediata_ = v; }
    int32_t AncoraMultipla() const { return ancoraMultipla_; }

    // A load forgets the selection: no selected key, no active row, no anchor.
    void ForgetForLoad();
    // The selection as the surface or a click left it: the current grid row, the active record
    // and the selected key.
    void SetCurrentRow(int32_t riga, int32_t indiceRigaAttiva, int32_t indiceSelezionato) {
        rigaCorrente_ = riga;
        indiceRigaAttiva_ = indiceRigaAttiva;
        indiceSelezionato_ = indiceSelezionato;
    }

    // Makes grid row `riga` the single selection; a row past the surface changes nothing.
    void SelezionaRiga(int32_t riga);
    // Toggles the pick of grid row `riga` (with `nonDeselezionare`, picks it) while MultiSel
    // holds. A row whose column 0 is no number, or 0, is left alone.
    void SelezionaRigaMS(int32_t riga, bool nonDeselezionare);
    // Picks the record at store index `index` (the toggle on the surface, then the marker below
    // `rowLimit`); every failure is swallowed.
    void SelezionaIndice(int32_t index, int16_t cols, int32_t rowLimit);
    // Releases the record at store index `index`; the store's last row cannot be released.
    void DeselezionaRiga(int32_t index, int16_t cols);
    // The keys of the picked records, or without MultiSel the selected key.
    std::string ListaIndiciSel(int16_t cols) const;
    // MultiSel off clears every marker; the rows are repainted, then the field changes.
    void setMultiSel(bool v, int16_t cols);
    // After a scroll or a load: the selected record follows its row on the surface.
    void RiselezionaRiga();
    // After a scroll with MultiSel: every grid row painted by its record's marker.
    void RicoloraSelezione(int16_t cols);

private:
    CellGrid& fg_;
    const Scorrix& bar_;
    RowStore& store_;
    RowColours& painter_;
    int32_t indiceSelezionato_ = -1;
    int32_t indiceRigaAttiva_ = -1;
    int32_t rigaCorrente_ = 0;
    bool multiSel_ = false;
    bool selezioneMultiplaImmediata_ = false;
    int32_t ancoraMultipla_ = -1;  // written by the load and MultiSel, read by nothing
};

}  // namespace TabulonLib12
