#pragma once
// The column report: the column definitions held by the column editor's working table, written
// as plain text so that a developer can read them outside the designer. It reads the table, not
// the control, so what is typed in the column on show and not yet left is not in it.
//
// The file is "Tabulon09.log" in the report folder. The folder is the host's to choose
// (Campi::setCartellaRapporto, CampiPage::setReportFolder); by default it is the user's home
// folder ($HOME), or the working folder when HOME is not set or empty. The file is opened for
// appending: a report never replaces an earlier one, and a missing file is created.
//
// Each line ends with CR LF. Texts are written as the page holds them, in UTF-8, the system's
// encoding here; the degree sign of "N°" is the two bytes C2 B0. For each row i of the table:
//   "****** Colonna N° " i " ********************"
//   " Intestazione: " and the cell's text, then likewise " colswidth: ", " Ordinamento: ",
//   " Formato: ", " CampoQuery: ", " Condizione: ", " ImmagineA: ", " ImmagineB: ",
//   " Operatore Condizionale: ", " Allineamento: " (the word, not the number),
//   " Tool Tip text: ", " Key ID: ", " Ipertext: ", " Index iperText: ", " TTT true: ",
//   " TTT false: ", " Scelta Opzionale: ", " Colonna Forecolor: ", " Mostra Totale: ",
//   " Colonna Immagine: ", " Testo scelta: "
//   an empty line
// and after the last row the line "****** FINE ********************". The back colour and the
// vertical line of a column are left out on purpose.
//
// Writing is silent: a folder that is missing or cannot be written to gives no message and
// changes nothing.
#include <string>
#include <vector>

#include "pages/working_table.h"

namespace TabulonLib12 {

inline constexpr const char* kNomeRapporto = "Tabulon09.log";

// $HOME when it is set and not empty, else "" (the working folder).
std::string CartellaRapportoPredefinita();
// The report's path in `folder`; the bare name for the empty folder.
std::string PercorsoRapporto(const std::string& folder);
// The lines of one report of the table, without their line ends.
std::vector<std::string> RigheRapporto(const WorkingTable& FG);
// Appends one report of the table to the report file of `folder`; failures are dropped.
void ScriviRapporto(const WorkingTable& FG, const std::string& folder);

}  // namespace TabulonLib12
