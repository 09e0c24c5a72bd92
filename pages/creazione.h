#pragma once
// Creazione: the structure creation page. A developer names a database, picks a table or a
// stored query (a view) of it, and presses one button: the control's column definitions are
// written at once from the fields of that source, one column per field. It is the quick way to
// a first structure, refined afterwards on the column editor page. There is no apply step and
// the page never raises Changed; it calls nothing to show the new structure, which the control
// draws at its next CaricaStruttura.
//
// Databases are opened through the DatabaseEngine handed to the page, read-only, with the
// default options and the host's password (setPassword) as connect text: a SQLite file path or
// a PostgreSQL server name (a postgresql:// URI or a key=value connection string) alike.
//
// Events:
//   SelectionChanged  LeggiControllo: TextDB takes the control's DataBaseName and ComboTabella
//                     its QueryString, the first time only
//   DBok_Click        ElencaSorgenti: the list of ComboTabella becomes the names of the tables,
//                     then of the stored queries or views, of the database in TextDB
//   CreaBtn_Click     CreaColonne(TextDB, ComboTabella) when neither is empty
//
// ElencaSorgenti, in order: with TextDB empty it only takes the selected control again. A file
// path that does not exist, or cannot be opened for reading, leaves at once without a word and
// the list stays as it was. A server name has no such test (there is no file to look for): the
// page connects, and a server that cannot be reached is told like any other failure. Otherwise
// the database is opened, the list cleared (its text too) and filled, the database closed, and
// the selected control taken again. The first failure stops it and is shown.
//
// CreaColonne opens the source with a snapshot recordset: a name of the database's tables or
// views (compared without regard to case) is read whole, as SELECT * FROM the table, any other
// text runs as the query it is (the control's QueryString, as LeggiControllo puts it there). It
// sets the control's Cols to the number of fields, then for each field i, in this order:
//   Intestazione(i) the field's name, and "" for field 0, which stays out of sight;
//   ColsWidth(i) LarghezzaPerTipo(i, type); Ordinamento(i) and CampoQuery(i) the name;
//   ImmagineA(i) 0, ImmagineB(i) 0, OperatoreCondizionale(i) "";
//   ColAlignment(i) AllineamentoPerTipo(type);
//   ToolTT(i) "", IsIperText(i) 0, IperTextIndex(i) 0, ColonnaOpzionale(i) 0, MostraTotCol(i) 0,
//   MostraBarraVert(i) False.
// Formato, Condizione, KeyID, ToolTTvero, ToolTTfalso, TestoScelta, BackColorCol,
// ColonnaForeColor and ColonnaImmagine are not written, so a column that existed keeps them
// (and a new column's Formato stays empty, as a write of Cols leaves it). DataBaseName and
// QueryString are read, never written. It goes on past each failing statement (a failed open
// leaves the later statements to fail one by one, so the control may keep its old Cols) and
// shows the first failure at the end.
//
// Failures are told in the database engine's own words, the description of the Error, in one
// message box with the critical icon (16) and the default title; the page has no text of its
// own. A password never appears in a message (the engines leave it out).
#include <cstdint>
#include <string>

#include "pages/page_fields.h"

namespace TabulonLib12 {

class DatabaseEngine;
class MessageBoxService;

// The form: TextDB (label "DB") the database, ComboTabella (label "Tabella") the source; the
// buttons DBok ("OK") and CreaBtn ("Crea") are the events below.
struct CreazioneFields {
    TextField& TextDB;
    ComboField& ComboTabella;
};

// The width in twips and the alignment (0 left, 1 right, 2 centred) of a column by the type
// code of its field:
//   Boolean 1: 700, 0        Byte 2: 0, 0            Integer 3: 700, 1      Long 4: 1200, 1
//   Currency 5: 1200, 1      Single 6: 1200, 1       Double 7: 1200, 1      Date 8: 900, 2
//   Text 10: 2000, 0         Long binary 11: 0, 1    Memo 12: 2000, 0       GUID 15: 0, 0
//   any other: 0, 0
// A width of 0 (Byte, Long binary, GUID) is meant: such a column takes no room.
struct TipoColonna {
    int16_t type;
    int16_t width;
    int16_t alignment;
};
inline constexpr TipoColonna kTipiColonna[] = {
    {1, 700, 0},   {2, 0, 0},     {3, 700, 1},  {4, 1200, 1},  {5, 1200, 1}, {6, 1200, 1},
    {7, 1200, 1},  {8, 900, 2},   {10, 2000, 0}, {11, 0, 1},   {12, 2000, 0}, {15, 0, 0},
};

// The width of the table above; for index 0, the first field, always 0 whatever the type.
int16_t LarghezzaPerTipo(int index, int16_t type);
// The alignment of the table above.
int16_t AllineamentoPerTipo(int16_t type);
// Whether the file can be opened for reading (a folder cannot); never fails.
bool FileEsiste(const std::string& path);

// The host's way to a first structure without the page: opens `database` (with `password`),
// writes the control's Cols and columns from the fields of `source` exactly as CreaBtn does (a
// table or view read whole, any other text run as the query it is) and answers the query it ran,
// for the control's QueryString. A column left without a format (a new one) then takes "Data"
// for a date field, "Valuta" for a currency field and "Nessuno" for any other, so that the host's
// list shows its values without a visit to the column editor (a column the page adds shows
// nothing until a format is set). Unlike the page it stops at the first failure and throws it
// (the engine's Error; InvalidValue (380) for a source without fields, before Cols is written);
// the database is closed in every case. DataBaseName and QueryString are left to the host.
std::string ColumnsFromSource(Tabulon12& control, DatabaseEngine& engine, const std::string& database,
                              const std::string& source, const std::string& password = {});

// The query that reads `source` of `database` as the page reads it: SELECT * FROM a table or view
// of that name (compared without regard to case), any other text as it is. Opens the database
// for the names and closes it; the engine's failures pass through.
std::string SourceQuery(DatabaseEngine& engine, const std::string& database, const std::string& source,
                        const std::string& password = {});

class Creazione {
public:
    // The site, the fields, the engine and the message box stay the caller's and must outlive
    // the page.
    Creazione(PropertyPageSite& site, const CreazioneFields& fields, DatabaseEngine& engine,
              MessageBoxService& messages);
    Creazione(const Creazione&) = delete;
    Creazione& operator=(const Creazione&) = delete;

    // The password the page opens databases with (none by default); it goes to the engine as
    // the connect text "; pwd=...".
    void setPassword(const std::string& password) { password_ = password; }

    // --- Events ---
    void SelectionChanged();
    void DBok_Click();
    void CreaBtn_Click();

    // --- Routines ---
    void LeggiControllo();
    void ElencaSorgenti();
    void CreaColonne(const std::string& database, const std::string& source);

    // --- State ---
    bool PaginaCaricata() const { return paginaCaricata_; }
    Tabulon12* ControlloSelezionato() const { return controllo_; }

private:
    void TakeSelectedControl();
    Tabulon12& Controllo() const;

    PropertyPageSite& site_;
    CreazioneFields f_;
    DatabaseEngine& engine_;
    MessageBoxService& messages_;
    std::string password_;
    Tabulon12* controllo_ = nullptr;
    bool paginaCaricata_ = false;
};

}  // namespace TabulonLib12
