#pragma once
// The private state of a Tabulon12 instance: the column arrays, the scalar settings, the
// run-time fields, the row store and the child elements, with the routines the control's
// layers share. One object per instance; everything runs on the host's UI thread.
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "grid/enumerations.h"
#include "grid/events.h"
#include "grid/row_store.h"
#include "grid/tabulon12.h"
#include "platform/db/database.h"
#include "platform/host/host_services.h"
#include "platform/runtime/error.h"
#include "platform/ui/cell_grid.h"
#include "platform/ui/control_array.h"
#include "platform/ui/surface.h"
#include "scrollbar/scorrix.h"

namespace TabulonLib12 {

// The column definition arrays, all of the same length Cols.
struct ColumnArrays {
    std::vector<std::string> Intestazione, Ordinamento, Formato, CampoQuery, TipoCampoRilevato, Condizione,
        OperatoreCondizionale, ToolTT, ToolTTvero, ToolTTfalso, KeyID, TestoScelta;
    std::vector<int16_t> ColsWidth, ColAlignment, TipoCampo, ImmagineA, ImmagineB, ColonnaImmagine,
        ColonnaForeColor, IperTextIndex, MostraBarraVert;
    std::vector<uint8_t> IsIperText, MostraTotCol, ColonnaOpzionale;
    std::vector<Colour> BackColorCol;

    // Every array to `n` elements, keeping contents; new elements zero or empty.
    void Resize(size_t n);
    size_t Count() const { return Intestazione.size(); }
    bool Has(int64_t index) const { return index >= 0 && static_cast<size_t>(index) < Count(); }
};

// An error left pending by a step that failed, as the routines that run step by step keep it
// until a later step tests or clears it.
struct PendingError {
    int32_t number = 0;
    std::string description;
    void Clear() { number = 0, description.clear(); }
    void Set(const Error& e) { number = e.number(), description = e.description(); }
    bool IsSet() const { return number >= 1; }
};

struct Tabulon12::Impl {
    Impl(Tabulon12& owner, const HostServices& host, const TextMetrics& metrics, TimerService& timers);

    Tabulon12& owner;
    HostServices host;
    Tabulon12Events* events = nullptr;

    // --- child elements, in the order of the design ---
    Surface surface;
    std::unique_ptr<Scorrix> VS1;
    Frame* FrameSceltaColonne;
    std::unique_ptr<ControlArray<CheckBox>> CheckScelta;
    PictureBox* ImageTools;
    PictureBox* PictureTTT;
    Label* LabelTTT;
    std::unique_ptr<ControlArray<Frame>> FrameLine;
    Frame* FrameImmagini;
    std::unique_ptr<ControlArray<ImageElement>> ImageStyle, ImageUP, ImageDown;
    CellGrid* FG1;
    TextBox* TextKey;
    Frame* Shape2;
    Label* LabelTopSk;
    std::unique_ptr<ControlArray<ImageElement>> PicCol;
    std::unique_ptr<ControlArray<Label>> LabelMenu;
    ImageElement* ImageZ;
    std::unique_ptr<ControlArray<ImageElement>> Image1;
    ImageElement* ImageOrd;
    std::unique_ptr<ControlArray<Label>> LabelTOT;
    Label* LabelCount;
    Label* LblMisuraTitolo;
    Label* LabelMisTxt;
    Shape* Shape1;

    // --- column definitions and scalar settings ---
    ColumnArrays col;
    int16_t Cols = 1;
    int16_t MinRows = 10;
    int16_t ActiveCol = 1;
    std::string QueryString, QueryCaricamento, DataBaseName, Password, ImageLista, FileScelta, TestoCount;
    int32_t BottomHeight = 0;
    int16_t ColonnaColore = -1;
    bool MultiSel = false, SelezioneMultiplaImmediata = false, ConsentiSceltaColonne = false,
         AdattamentoColonneDisattivato = false, VerticalGrid = false, IperTextEnabled = false,
         WheelStatus = false;
    StileTestaType StileTesta = StileTestaType::Ice, StileTestaOver = StileTestaType::Sky;
    ColorArrowType StileArrow = ColorArrowType::Blue;
    Colour BackColor = 0;  // the stored copy; the surface holds the shown one
    Colour BackColor2 = 0xFF8080, BackColorSelected = 0xFF8080, ForeColorOrd = 0x0000FF,
           IperTextColor = 0xFF0000, ColorGridHead = 0xF5DDCD, ForeColorHead = 0, ForeColor = 0,
           BackColorSel = 0, ForeColorSel = 0;
    int16_t BackStyle = 0;

    // --- run-time fields ---
    RowStore MatriceRighe{0, 0};
    std::vector<float> TotaliColonna;
    int32_t RighePiene = 0;
    std::string QueryEffettiva, UltimaQueryCaricata, CampoOrdinamentoAttivo, ColonneScelte;
    bool OrdinamentoDiscendente = false;
    int16_t IndiceordinamentoAttivo = -1;
    bool CaricamentoInCorso = false;
    int32_t IndiceSelezionato = -1, IndiceRigaAttiva = -1, RigaCorrente = 0, AncoraMultipla = -1, LimiteRighe = 0;
    int16_t Col = 0;  // the public Col's own field; nothing else reads it
    std::shared_ptr<HostControl> OggettoImageList;
    std::shared_ptr<Database> BaseDati;
    std::shared_ptr<HostForm> ParentForm;
    int32_t LarghezzaColonnaDefault = 1000;
    int32_t DeltaWidth = 0;
    int32_t LarghezzaRiferimento = 0, LarghezzaPrecedente = 0, AltezzaSuperficiePrecedente = 0;
    PendingError err;

    // --- notices to the host ---
    void PropertyChanged(const std::string& name) const;
    void MessageBox(const std::string& text, int16_t style) const;
    void SetScreenPointer(int16_t pointer);

    // --- data source ---
    // Opens DataBaseName read-only with the given connect text; the failure is left pending.
    std::shared_ptr<Database> OpenDatabase(const std::string& connect);
    std::string ConnectText() const;
    std::string AssembleQuery() const;
    std::shared_ptr<HostControl> TrovaImageList(const std::string& name) const;
    static double ValoreNumerico(const Value& v);
    static double ValoreNumerico(std::string_view text);
    static std::string ValoreTesto(const Value& v);
    std::string PrimoValoreQuery(const std::string& query);
    // The picture of item `index` of the image list; fails as the host list does.
    Picture ListImage(int32_t index) const;

    // --- load and paint ---
    void Carica(bool soloRefresh);
    void RiempiFinestraRighe(bool senzaColore);
    void ColoraSfondoRighe();
    static Colour ColoreDaTesto(std::string_view text);
    std::string FormattaValore(int16_t c, std::string_view v) const;
    // Whether the condition of column `c` holds for `v` with the type code `t`; a side that
    // does not convert throws a type mismatch.
    bool ValutaCondizione(int16_t c, std::string_view v, std::string_view t) const;

    // --- the column choice and its file ---
    void LeggiFileScelta();
    static bool FileEsiste(const std::string& path);
    static bool VoceInLista(std::string_view voce, std::string_view lista);

    // --- structure and the presentation around the cells ---
    void CreaComposizione();
    void CaricaStruttura();
    // The rows that fit under the grid's top above BottomHeight: FG1's height and rows, and
    // MinRows. The build drops a failing step; the resize layout hands it on.
    void ApplicaRegolaAltezza(bool dropFailures);
    // The scroll bar, the outline and the chooser button placed around the grid.
    void DisponiIntornoGriglia();
    void RicostruisciControlliColonna();
    void DisponiSfondiTesta();
    void DisponiTestate();
    void DisponiImmaginiColonna();
    void RidimensionaColonne();
    float FattoreAdattamento();
    void LayoutRidimensionamento();
    void SpostaControlliContenuti();
    void RiselezionaRiga();
    void RidisegnaTotali();

    // --- the row window ---
    void SetScrollValue(int32_t value);
    int32_t IndiceDaRiga(int32_t riga) const;
    int32_t RigaDaIndice(int32_t indice) const;
    void ReazioneCambioVS1();
    void RicoloraSelezione();

    // --- selection ---
    void SelezionaRiga(int32_t riga);
    void SelezionaRigaMS(int32_t riga, bool nonDeselezionare);
    void ColoraRiga(int32_t riga, bool def, Colour colore);
    std::string_view Marker(int64_t indice) const;
};

// Runs one step of a routine that goes on after a failure: a failing step leaves its error
// pending in `err` and answers false.
template <class F>
bool Step(PendingError& err, F&& step) {
    try {
        step();
        return true;
    } catch (const Error& e) {
        err.Set(e);
        return false;
    }
}

}  // namespace TabulonLib12
