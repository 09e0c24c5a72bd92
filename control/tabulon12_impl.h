#pragma once
// The private side of Tabulon12: the control composes its components and owns what no single
// component owns: the column definitions, the row store and the load's results, the data
// source, and the settings that only the host and the property store read. It is also the one
// place where the roads that cross components run (the load, the structure build, the resize
// layout, a scroll), as the components' neighbour.
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "control/tabulon12.h"
#include "grid/column_properties.h"
#include "grid/events.h"
#include "grid/row_store.h"
#include "platform/host/property_bag.h"
#include "platform/runtime/steps.h"
#include "presentation/column_bands.h"
#include "presentation/column_chooser.h"
#include "presentation/composition.h"
#include "presentation/heading_band.h"
#include "presentation/image_list.h"
#include "presentation/keys_wheel.h"
#include "presentation/mouse_layer.h"
#include "presentation/picture_library.h"
#include "presentation/row_painter.h"
#include "presentation/selection.h"
#include "presentation/structure_layout.h"
#include "presentation/totals_count.h"

namespace TabulonLib12 {

struct Tabulon12::Impl final : StructureLayout::Neighbours,
                               Selection::RowColours,
                               HeadingBand::Neighbours,
                               MouseLayer::Neighbours,
                               KeysAndWheel::Neighbours,
                               ColumnChooser::Neighbours {
    Impl(const HostServices& host, const TextMetrics& metrics, TimerService& timers);
    ~Impl() override;

    HostServices host;
    HostEvents events;
    Surface surface;
    ControlElements elements;  // the designed assembly; the components hold what they own
    Scorrix& VS1;
    CellGrid& FG1;

    // --- the data: column definitions, row store and what the last load found ---
    int16_t Cols = 1;
    ColumnDefinitions columns;
    RowStore MatriceRighe;
    std::vector<float> TotaliColonna;
    int32_t RighePiene = 0;
    std::string QueryEffettiva, UltimaQueryCaricata;
    bool CaricamentoInCorso = false;

    // --- the data source ---
    std::string QueryString, QueryCaricamento, DataBaseName, Password, ImageLista;
    std::shared_ptr<Database> BaseDati;
    std::shared_ptr<HostForm> ParentForm;
    ImageListRef imageList;

    // --- settings that nothing but the host and the property store reads ---
    int16_t ActiveCol = 1;
    bool IperTextEnabled = false;
    Colour BackColor = 0;  // the stored copy; the surface holds the shown one
    Colour BackColor2 = 0xFF8080, BackColorSel = 0, ForeColorSel = 0;
    int16_t BackStyle = 0;
    int16_t Col = 0;  // the public Col's own field
    int32_t LimiteRighe = 0;  // the row limit taken from MinRows when a property store is read
    // The default of the stored column widths: 1000 once InitProperties ran, 0 in a restored instance.
    int32_t LarghezzaColonnaDefault = 0;

    // --- the components ---
    RowPainter painter;
    Selection selection;
    StructureLayout structure;
    HeadingBand band;
    ColumnBands bands;
    TotalsAndCount totals;
    ColumnChooser chooser;
    MouseLayer mouse;
    KeysAndWheel keys;
    PictureLibrary pictures;

    // --- notices to the host ---
    void PropertyChanged(const std::string& name) const;
    void MessageBox(const std::string& text, int16_t style) const;
    void SetScreenPointer(int16_t pointer);

    // --- the data source ---
    // Opens DataBaseName read-only with the given connect text; a failure is kept in `steps`.
    std::shared_ptr<Database> OpenDatabase(const std::string& connect, Steps& steps);
    std::shared_ptr<HostControl> TrovaImageList(const std::string& name) const;
    std::string PrimoValoreQuery(const std::string& query);

    // --- the property store ---
    // Whether the store holds alignments in the surface's old numbers (some "Allineamento" key
    // above 2); a key that cannot be read counts as absent.
    bool AllineamentoVecchio(const PropertyBag& store) const;

    // --- the roads across components ---
    void Carica(bool soloRefresh);
    void CaricaStruttura();
    void RidimensionaColonne();
    void LayoutRidimensionamento();
    void ReazioneCambioVS1();
    void RiempiFinestraRighe(bool senzaColore);
    void SetScrollValue(int32_t value);

    // --- the selection's row colours: the row painter's ---
    void ColoraRiga(int32_t riga, bool def, Colour colore) override;
    void ColoraSfondoRighe() override;
    Colour BackColorSelected() const override;

    // --- the band's pictures: the picture library's; its sort reloads the list ---
    Picture Texture(int16_t style) const override;
    Picture ArrowUp(int16_t colour) const override;
    Picture ArrowDown(int16_t colour) const override;
    void ReloadSorted() override;

    // --- the mouse layer's neighbours: the guard of the load, the band, the selection, the keys ---
    bool Loading() const override { return CaricamentoInCorso; }
    void GridTookTheHover() override;
    void SelezionaRiga(int32_t riga) override;
    void SelezionaRigaMS(int32_t riga, bool nonDeselezionare) override;
    bool MultiSel() const override;
    bool SelezioneMultiplaImmediata() const override;
    void SetCurrentRow(int32_t riga, int32_t indiceRigaAttiva, int32_t indiceSelezionato) override;
    int32_t IndiceSelezionato() const override;
    int32_t IndiceRigaAttiva() const override;
    void FocusKeys() override;

    // --- the items of the columns' own elements, removed before a change of Cols ---
    void ScaricaElementiColonna();

    // --- the structure's neighbours ---
    void SetHeadingCaption(int16_t column, const std::string& caption) override;
    void BuildBand() override;
    void PlaceColumnPictures() override;
    void RefreshImageList() override;
    void HideHoverTile() override;
    void SetBandWidth(float width) override;
    void StretchLines(float height) override;
    void PlaceChooserButton(float left) override;
    void PlaceCount(float top) override;
    void RedrawTotals() override;
    void RaiseResize() override;

    // --- the chooser's neighbours: its boxes, the host's width, the choice applied ---
    void ChooserMessage(const std::string& text, const std::string& title) override;
    float ControlWidth() const override;
    void ApplyColumnChoice() override;

private:
    // The load's work once it has a database; answers false when it must stop early.
    void LoadFrom(Database& db, bool openedHere, Steps& steps);
};

}  // namespace TabulonLib12
