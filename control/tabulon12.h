#pragma once
// Tabulon12: the list-grid control. A host gives it a database, a query and column
// definitions, and calls Carica; the control copies the records as text into its row store and
// shows them through a virtual window of rows on its cell surface.
//
// Conventions: a property X reads as X(...) and writes as setX(..., value); a per-column
// property takes Index first. Per-column accessors never report a bad Index: a read answers 0
// or "", a write skips the store and still notifies the host (the one exception is the
// ColAlignment read). Every write of a persistent property ends by calling the host's
// property-change notice with the member's name.
#include <cstdint>
#include <memory>
#include <string>

#include "grid/enumerations.h"
#include "grid/events.h"
#include "platform/db/database.h"
#include "platform/host/host_services.h"
#include "platform/host/property_bag.h"
#include "platform/ui/graphics.h"
#include "platform/ui/surface.h"

namespace TabulonLib12 {

class Tabulon12 {
public:
    // The control builds its elements on a surface measured by `metrics` and timed by `timers`;
    // `host` gives it message boxes, the screen pointer, the clock, the database engine, the
    // form it is placed on, the ambient font, the controls around it and the property-change
    // notice. An instance comes into being in one of two ways, and passes through exactly one
    // of InitProperties and ReadProperties:
    //   - newly placed on a form: InitProperties runs (one column, no structure, no hook);
    Tabulon12(const HostServices& host, const TextMetrics& metrics, TimerService& timers);
    //   - restored from its saved design: ReadProperties(saved) runs, and never InitProperties.
    Tabulon12(const HostServices& host, const TextMetrics& metrics, TimerService& timers, const PropertyBag& saved);
    ~Tabulon12();
    Tabulon12(const Tabulon12&) = delete;
    Tabulon12& operator=(const Tabulon12&) = delete;

    // The host's event handler (may be null). The control does not own it.
    void setEvents(Tabulon12Events* events);
    // The element tree the realisation paints and feeds with input.
    Surface& Superficie();

    // --- The property store ---
    // A new instance: one column of the new-instance values, the new-instance settings, no
    // structure and no hook. The first constructor runs it.
    void InitProperties();
    // A saved instance restored from `store`: every key read straight into its field or element
    // (no setter runs and the host hears no notice), the row store sized by MinRows, the empty
    // structure built and the wheel hooked when WheelStatus says so. A key that cannot be read
    // (a value too wide for its field, a style without a texture) leaves its field as it was; no
    // failure reaches the host. The result is that of a restored instance whatever the instance
    // held before: the default width of the stored columns is 0 from here on. Rows are never
    // stored: call Carica for the data.
    void ReadProperties(const PropertyBag& store);
    // Saves the design into `store`, each key left out where it equals the writer's default.
    // A failure of the store reaches the caller; the keys written so far stay written.
    void WriteProperties(PropertyBag& store) const;
    // The end of the instance: the wheel hook is taken away. The destructor calls it.
    void Terminate();

    // --- Column definitions (Index from 0 to Cols - 1) ---
    std::string Intestazione(int16_t Index) const;
    void setIntestazione(int16_t Index, const std::string& New_Intestazione);
    // The stored width when the column is shown on the surface, 0 for a hidden column.
    int16_t ColsWidth(int16_t Index) const;
    void setColsWidth(int16_t Index, int16_t New_ColsWidth);
    // The designed width as stored, whether or not the surface shows the column (0 for a
    // missing Index): what the design page edits.
    int16_t ColsWidthMemorizzata(int16_t Index) const;
    // The stored width scaled by the adaptation factor of the columns.
    int16_t ColsWidthEff(int16_t Index) const;
    // 0 left, 1 right, 2 centred. The read fails with a subscript error for a bad Index.
    int16_t ColAlignment(int16_t Index) const;
    void setColAlignment(int16_t Index, int16_t New_ColAlignment);
    std::string Ordinamento(int16_t Index) const;
    void setOrdinamento(int16_t Index, const std::string& New_Ordinamento);
    std::string Formato(int16_t Index) const;
    void setFormato(int16_t Index, const std::string& New_Formato);
    std::string CampoQuery(int16_t Index) const;
    void setCampoQuery(int16_t Index, const std::string& New_CampoQuery);
    int16_t ImmagineA(int16_t Index) const;
    void setImmagineA(int16_t Index, int16_t New_ImmagineA);
    int16_t ImmagineB(int16_t Index) const;
    void setImmagineB(int16_t Index, int16_t New_ImmagineB);
    std::string Condizione(int16_t Index) const;
    void setCondizione(int16_t Index, const std::string& New_Condizione);
    std::string OperatoreCondizionale(int16_t Index) const;
    void setOperatoreCondizionale(int16_t Index, const std::string& New_OperatoreCondizionale);
    int16_t ColonnaImmagine(int16_t Index) const;
    void setColonnaImmagine(int16_t Index, int16_t New_ColonnaImmagine);
    int16_t ColonnaForeColor(int16_t Index) const;
    void setColonnaForeColor(int16_t Index, int16_t New_ColonnaForeColor);
    std::string ToolTT(int16_t Index) const;
    void setToolTT(int16_t Index, const std::string& New_ToolTT);
    std::string ToolTTvero(int16_t Index) const;
    void setToolTTvero(int16_t Index, const std::string& New_ToolTTvero);
    std::string ToolTTfalso(int16_t Index) const;
    void setToolTTfalso(int16_t Index, const std::string& New_ToolTTfalso);
    uint8_t IsIperText(int16_t Index) const;
    void setIsIperText(int16_t Index, uint8_t New_IsIperText);
    int16_t IperTextIndex(int16_t Index) const;
    void setIperTextIndex(int16_t Index, int16_t New_IperTextIndex);
    std::string KeyID(int16_t Index) const;
    void setKeyID(int16_t Index, const std::string& New_KeyID);
    Colour BackColorCol(int16_t Index) const;
    void setBackColorCol(int16_t Index, Colour New_BackColorCol);
    bool MostraBarraVert(int16_t Index) const;
    void setMostraBarraVert(int16_t Index, bool New_MostraBarraVert);
    // 1 shows the column's total under it (any other value hides it); a write redraws the totals.
    uint8_t MostraTotCol(int16_t Index) const;
    void setMostraTotCol(int16_t Index, uint8_t New_MostraTotCol);
    uint8_t ColonnaOpzionale(int16_t Index) const;
    void setColonnaOpzionale(int16_t Index, uint8_t New_ColonnaOpzionale);
    std::string TestoScelta(int16_t Index) const;
    void setTestoScelta(int16_t Index, const std::string& New_TestoScelta);

    // --- Scalar settings ---
    int16_t Cols() const;
    // Resizes every column array and the row store, then rebuilds the structure.
    void setCols(int16_t New_Cols);
    int16_t MinRows() const;
    // Stores nothing: the rows of the surface follow from the control's height.
    void setMinRows(int16_t New_MinRows);
    int16_t ActiveCol() const;
    void setActiveCol(int16_t New_ActiveCol);
    std::string QueryString() const;
    void setQueryString(const std::string& New_QueryString);
    std::string DataBaseName() const;
    // Stores the name and, when the file can be opened, opens it into BaseDati (read-only, and
    // without the password).
    void setDataBaseName(const std::string& New_DataBaseName);
    std::string ImageLista() const;
    // Stores the name and finds the host's image list of that name.
    void setImageLista(const std::string& New_ImageLista);
    std::string FileScelta() const;
    void setFileScelta(const std::string& New_FileScelta);
    // The text before the row count; the count shows as the text, a blank and RighePiene, and
    // is hidden while the text is empty.
    std::string TestoCount() const;
    void setTestoCount(const std::string& New_TestoCount);
    // Twips kept free under the grid; a write lays the control out again at once (and raises Resize).
    int32_t BottomHeight() const;
    void setBottomHeight(int32_t New_BottomHeight);
    int16_t ColonnaColore() const;
    void setColonnaColore(int16_t New_ColonnaColore);
    bool MultiSel() const;
    void setMultiSel(bool New_MultiSel);
    bool SelezioneMultiplaImmediata() const;
    void setSelezioneMultiplaImmediata(bool New_SelezioneMultiplaImmediata);
    bool ConsentiSceltaColonne() const;
    void setConsentiSceltaColonne(bool New_ConsentiSceltaColonne);
    bool AdattamentoColonneDisattivato() const;
    void setAdattamentoColonneDisattivato(bool New_AdattamentoColonneDisattivato);
    // Shows the vertical lines: line i (at the left edge of column i) when MostraBarraVert(i - 1)
    // holds. A write before the lines are built fails with a subscript error, the value stored.
    bool VerticalGrid() const;
    void setVerticalGrid(bool New_VerticalGrid);
    bool IperTextEnabled() const;
    void setIperTextEnabled(bool New_IperTextEnabled);
    // Whether the wheel of the host form's window scrolls the list. True hooks the window of
    // ParentForm (one hook per thread: the list that hooks last has the wheel); False, and the
    // end of any list, takes the hook away. Without a form, True fails after it is stored.
    bool WheelStatus() const;
    void setWheelStatus(bool New_WheelStatus);
    // The texture of every heading tile. A value without a texture fails with a subscript error
    // after it is stored, and notifies nobody.
    StileTestaType StileTesta() const;
    void setStileTesta(StileTestaType New_StileTesta);
    // The texture of the hovered heading; Scheda shows a tab in BackColorTopScheda instead.
    StileTestaType StileTestaOver() const;
    void setStileTestaOver(StileTestaType New_StileTestaOver);
    // The colour of the sort arrow, taken at the next sort click.
    ColorArrowType StileArrow() const;
    void setStileArrow(ColorArrowType New_StileArrow);
    // The host's own pictures for the Custom texture and arrows; not saved with the design.
    void setCustomPictureStyle(Picture New_CustomPictureStyle);
    void setCustomPicArrowUp(Picture New_CustomPicArrowUp);
    void setCustomPicArrowDown(Picture New_CustomPicArrowDown);

    // --- Colours and font ---
    Colour BackColor() const;  // the surface's back colour
    void setBackColor(Colour New_BackColor);
    Colour BackColorSfondo() const;  // reads like BackColor
    void setBackColorSfondo(Colour New_BackColorSfondo);
    Colour BackColor2() const;
    void setBackColor2(Colour New_BackColor2);
    Colour BackColorSel() const;
    void setBackColorSel(Colour New_BackColorSel);
    Colour ForeColorSel() const;
    void setForeColorSel(Colour New_ForeColorSel);
    Colour BackColorSelected() const;
    void setBackColorSelected(Colour New_BackColorSelected);
    Colour BackColorTopScheda() const;
    void setBackColorTopScheda(Colour New_BackColorTopScheda);
    Colour BorderColor() const;
    void setBorderColor(Colour New_BorderColor);
    Colour ForeColor() const;
    void setForeColor(Colour New_ForeColor);
    Colour ForeColorHead() const;
    void setForeColorHead(Colour New_ForeColorHead);
    Colour ForeColorOrd() const;
    void setForeColorOrd(Colour New_ForeColorOrd);
    Colour ColorGridHead() const;
    void setColorGridHead(Colour New_ColorGridHead);
    Colour GridColor() const;
    void setGridColor(Colour New_GridColor);
    // The colour of the vertical lines, held by line 0; a write before the lines are built fails
    // with a subscript error at the first line missing.
    Colour VerticalGridColor() const;
    void setVerticalGridColor(Colour New_VerticalGridColor);
    Colour IperTextColor() const;
    void setIperTextColor(Colour New_IperTextColor);
    Font GetFont() const;
    void setFont(const Font& New_Font);

    // --- The current cell of the surface ---
    int32_t CellTop() const;
    int32_t CellLeft() const;
    bool CellFontUnderline() const;
    void setCellFontUnderline(bool New_CellFontUnderline);
    Colour CellBackColor() const;
    void setCellBackColor(Colour New_CellBackColor);
    Colour CellForeColor() const;
    void setCellForeColor(Colour New_CellForeColor);
    Picture CellPicture() const;
    void setCellPicture(Picture New_CellPicture);

    // --- Host objects ---
    std::shared_ptr<HostForm> ParentForm() const;
    void setFormContenitore(std::shared_ptr<HostForm> New_FormContenitore);
    // A database the host opened and keeps: the control uses it and never closes it.
    void setBaseDati(std::shared_ptr<Database> vTabDB);

    // --- The load ---
    // Runs the query and fills the row store; with SoloRefresh the image list is kept and the
    // scroll position stays where the query did not change.
    void Carica(bool SoloRefresh = false);
    // Blanks the cell surface; the row store stays.
    void Clear();
    std::string QueryEffettiva() const;
    int32_t RighePiene() const;
    int32_t Rows() const;  // upper row bound of the row store
    // The column of the active heading sort, -1 for none.
    int16_t IndiceordinamentoAttivo() const;
    // Sorts by the heading of column Index exactly as a click on it: ascending, descending and
    // no sort in turn, reloading the list each time. A heading without an Ordinamento does
    // nothing; an Index outside the columns fails with a subscript error.
    void OrdinaColonna(int16_t Index);
    int32_t IndiceSelezionato() const;
    // The designed width minus the present width of the control, as the last column fitting found it.
    int32_t DeltaWidth() const;

    // --- Totals ---
    // The sum of column Colonna from the last load that opened a recordset; a column out of
    // range fails with a subscript error, and so does every column before such a load.
    float TotaleColonna(int16_t Colonna) const;
    // The columns whose MostraTotCol is not 0, in decimal, joined by commas ("" for none).
    std::string StringaTotCol() const;

    // --- The row window ---
    // The store text of a record (Row is a store index); outside the store the out-of-bounds
    // error reaches the caller.
    std::string TextMatrix(int32_t Row, int16_t Col) const;
    // Writes the store and, when the record is on the surface, its cell as plain text. Silent
    // for a column beyond Cols - 1 or a row at or beyond the row limit of the property store.
    void setTextMatrix(int32_t Row, int16_t Col, const std::string& New_TextMatrix);
    // The store text of the current row in column ColRif, "" beyond the columns.
    std::string TMatrix(int16_t ColRif) const;
    int32_t TopRow() const;  // the store index shown in grid row 0
    void setTopRow(int32_t New_TopRow);  // clamped to the scroll range; always repaints
    // The current row as a store index; fails with an overflow above 32767.
    int16_t Row() const;
    void setRow(int16_t New_Row);  // a grid row; nothing moves
    int16_t Col() const;
    void setCol(int16_t New_Col);
    int32_t RowHeight(int16_t Index) const;
    bool RowIsVisible(int32_t Index) const;
    int16_t PrimaRigaVisibile() const;
    int16_t UltimaRigaVisibile() const;  // one beyond the last store index on the surface
    bool IndiceIsVisible(int32_t Indice) const;
    int16_t ColPos(int16_t Index) const;
    int16_t RowPos(int16_t Index) const;
    int32_t PosizioneColonna(int16_t Index) const;

    // --- Selection ---
    // Makes grid row IndiceRiga the single selection; the options have no effect.
    void SelezionaRiga(int32_t IndiceRiga, bool DaScroll = false, bool NonDeselezionare = false);
    // Toggles the pick of grid row Riga (with NonDeselezionare: picks it) while MultiSel holds.
    void SelezionaRigaMS(int32_t Riga, bool NonDeselezionare = false);
    void SelezionaIndice(int32_t Index);       // picks a record by store index
    void DeselezionaRiga(int32_t IndiceRiga);  // releases a record by store index
    // Paints grid row Riga in Colore, or in its default colours when Def is true.
    void ColoraRiga(int32_t Riga, bool Def, Colour Colore = 0);
    // The keys of the picked records in store order, or the selected key without MultiSel.
    std::string ListaIndiciSel() const;
    void setSelRow(int16_t New_SelRow);  // one-based grid row; 0 does nothing

    // --- The mouse over the cells ---
    // Hit tests at the last position of the mouse over the surface: the column under it counted
    // from 1 (0 left of the first, Cols past the last), the row counted from 1 (the last grid
    // row answers like the one above it), and the grid row counted from 0 (the last gives 0).
    int16_t ColonnaSelezionata() const;
    int16_t RigaSorvolata() const;
    int16_t RigaCliccata() const;
    // Whether the cell of store index RigaRif and column ColonnaRif shows a picture.
    bool CellaConImmagine(int16_t RigaRif, int16_t ColonnaRif) const;

    // --- Structure ---
    // Sizes the cell surface from the column definitions and the control's size.
    void CaricaStruttura(bool SoloRefresh = false);

    // Scales the designed column widths to the control's present width and rebuilds the band.
    void RidimensionaColonne();

    struct Impl;  // the private state (control/tabulon12_impl.h)

private:
    friend struct Tabulon12Probe;  // the tests' window on the private state
    std::unique_ptr<Impl> impl_;
};

}  // namespace TabulonLib12
