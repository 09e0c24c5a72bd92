#pragma once
// Campi: the column editor page. A developer edits the per-column definitions of a control one
// column at a time in a form of 23 fields; the page keeps every column as texts in its working
// table FG (one row per column, the cells of pages/page_cells.h) and writes them into the
// control only when the frame asks it to apply. One write reaches the control at once: adding a
// column raises the control's Cols, and closing the page without applying does not lower it.
//
// The logic reaches its form through the interfaces of pages/page_fields.h and its frame
// through PropertyPageSite; the toolkit's page (widgets/campi_page.h) forwards the events below.
//
// Events and what they run:
//   SelectionChanged      CaricaPagina, the first time only (the page is filled once, from the
//                         first selected control; selecting several edits the first)
//   ApplyChanges          ApplicaModifiche, then the frame clears Changed
//   KeyDown, key F2 (113) the next column, when there is one, and the focus to Text2
//   HScroll1_Change       the navigator: saves the fields into row Text1 (unless a removal is
//                         running), shows row HScroll1.Value, sets Text1, CalcolaSpazioLibero
//   InsBtn_Click          InserisciColonna(Text1), then the focus to Text2
//   DelBtn_Click          RimuoviColonna(Text1) when FG has two rows or more
//   StampaBtn_Click       the column report of FG (pages/column_report.h) into CartellaRapporto
//   LabelColor_DblClick   the colour dialog on the swatch's colour (Changed is not raised)
//   LabelColor_KeyUp      the swatch takes the typed number as its colour, when it is one
//   Change(field)         a user's edit of a field: Text4 runs CalcolaSpazioLibero and raises
//                         Changed; the other text boxes but Text7, and a pick from a combo box's
//                         list, raise Changed; the check boxes, Text7 and LabelColor raise
//                         nothing. The page's own writes into its fields are no edits and raise
//                         nothing.
//
// Failures: the navigator, the swatch's key-up and CalcolaSpazioLibero go on past a failing
// statement (a cell or field that cannot be converted keeps what it had); CaricaPagina,
// InserisciColonna, RimuoviColonna and ApplicaModifiche stop at the first failure and throw it
// to the host (TabulonLib12::Error). The page shows no message of its own.
#include <array>
#include <cstdint>
#include <string>

#include "pages/page_cells.h"
#include "pages/page_fields.h"
#include "pages/working_table.h"

namespace TabulonLib12 {

class Steps;

// The form of the page, by design names. Captions: Text1 "Indice", Text2 "Intestazione",
// Text4 "Dimens", Text8 "Ordinamento", Combo1 "Formato", Text3 "Campo della query", Text5
// "Condizione", Text9 "Immagine Vero", Text10 "Immagine Falso", Combo3 "Operatore", Combo4
// "Allineamento", TextTTT "Image ToolTipText", Text6 "Key ID", CheckIT "Ipertesto", Text7
// "Colonna Index IT", TextTTTvero "ToolTipText vero", TextTTTfalso "ToolTipText falso",
// LabelColor "Back Color Col", Check1 "Barra Vert. dx", CheckScelta "Colonna opzionale", Text11
// "Colonna Forecolor", CheckMostraTotCol "Mostra totale", Text12 "Colonna Immagine", TextScelta
// "Testo scelta"; HScroll1 the column navigator, Label11 the free width, CD1 the colour dialog.
struct CampiFields {
    TextField& Text1;
    TextField& Text2;
    TextField& Text4;
    TextField& Text8;
    ComboField& Combo1;
    TextField& Text3;
    TextField& Text5;
    TextField& Text9;
    TextField& Text10;
    ComboField& Combo3;
    ComboField& Combo4;
    TextField& TextTTT;
    TextField& Text6;
    CheckField& CheckIT;
    TextField& Text7;
    TextField& TextTTTvero;
    TextField& TextTTTfalso;
    SwatchField& LabelColor;
    CheckField& Check1;
    CheckField& CheckScelta;
    TextField& Text11;
    CheckField& CheckMostraTotCol;
    TextField& Text12;
    TextField& TextScelta;
    ScrollField& HScroll1;
    CaptionField& Label11;
    ColourDialog& CD1;
};

// The fields whose edits the page hears of, one per cell of a row.
enum class CampoPagina {
    Text2, Text4, Text8, Combo1, Text3, Text5, Text9, Text10, Combo3, Combo4, TextTTT, Text6, CheckIT, Text7,
    TextTTTvero, TextTTTfalso, LabelColor, Check1, CheckScelta, Text11, CheckMostraTotCol, Text12, TextScelta
};

// The fixed lists of the combo boxes, in their order.
inline constexpr const char* kElencoFormati[] = {"Nessuno", "Data",       "Ora",          "Valuta",
                                                 "Single",  "Data Breve", "Numeri_4_Dec", "Numerico"};
inline constexpr const char* kElencoOperatori[] = {"=", "<", ">", "<=", ">=", "<>"};
inline constexpr const char* kElencoAllineamenti[] = {"Sinistra", "Destra", "Centro"};

inline constexpr int16_t kKeyF2 = 113;

class Campi {
public:
    // Fills the combo boxes' lists and sets the starting texts: Text1 "0", Label11 "(0)". The
    // fields and the site stay the caller's and must outlive the page.
    Campi(PropertyPageSite& site, const CampiFields& fields);
    Campi(const Campi&) = delete;
    Campi& operator=(const Campi&) = delete;

    // --- The frame's events ---
    void SelectionChanged();
    void ApplyChanges();

    // --- The form's events ---
    void KeyDown(int16_t KeyCode, int16_t Shift);
    void HScroll1_Change();
    void InsBtn_Click();
    void DelBtn_Click();
    void StampaBtn_Click();
    void LabelColor_DblClick();
    void LabelColor_KeyUp(int16_t KeyCode, int16_t Shift);
    void Change(CampoPagina field);

    // --- The page's routines ---
    // Fills FG from the control's getters and shows row 0; sets PaginaCaricata first.
    void CaricaPagina();
    // Label11 shows "(" + the control's width less the widths in FG + ")".
    void CalcolaSpazioLibero();
    // Raises the control's Cols by one at once, inserts an empty row at `index` and resets the
    // fields to a new column's values, which reach the row at the next save.
    void InserisciColonna(int16_t index);
    // Removes row `index` and shows the row now at HScroll1.Value, without saving the fields.
    void RimuoviColonna(int16_t index);
    // Saves the fields into row Text1, sets the control's Cols to FG.Rows, writes every cell of
    // every row through the setters (cell order) and rebuilds the control's structure.
    void ApplicaModifiche();

    // --- State ---
    bool PaginaCaricata() const { return paginaCaricata_; }
    bool EliminazioneInCorso() const { return eliminazioneInCorso_; }
    Tabulon12* ControlloSelezionato() const { return controllo_; }
    const WorkingTable& FG() const { return fg_; }

    // The folder of the column report (see pages/column_report.h for the default).
    const std::string& CartellaRapporto() const { return cartellaRapporto_; }
    void setCartellaRapporto(const std::string& folder) { cartellaRapporto_ = folder; }

private:
    enum class Show { Load, Navigator };
    enum class Save { Navigator, Apply };

    Tabulon12& Controllo() const;
    void MostraRiga(int row, Steps* steps, Show mode);
    void SalvaCampi(Steps* steps, Save mode);
    void SalvaCella(int cell, Save mode);
    // Shows one cell in its field as the load does (the swatch's text untouched).
    void MostraCella(int row, int cell);

    // The field that shows each cell: exactly one of the pointers is set.
    struct CellField {
        TextField* text = nullptr;
        ComboField* combo = nullptr;
        CheckField* check = nullptr;
        SwatchField* swatch = nullptr;
    };

    PropertyPageSite& site_;
    CampiFields f_;
    std::array<CellField, kPageCellCount> cells_;
    WorkingTable fg_;
    Tabulon12* controllo_ = nullptr;
    bool paginaCaricata_ = false;
    bool eliminazioneInCorso_ = false;
    std::string cartellaRapporto_;
};

}  // namespace TabulonLib12
