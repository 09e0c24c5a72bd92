// The column report: its lines from the working table, appended to the file with CR LF.
#include "pages/column_report.h"

#include <cstdlib>
#include <filesystem>
#include <string_view>

#include "pages/page_cells.h"
#include "platform/host/sequential_file.h"
#include "platform/runtime/steps.h"

namespace TabulonLib12 {

namespace {

struct ReportLine {
    std::string_view literal;
    std::string_view property;  // the property whose cell follows the literal
};

constexpr ReportLine kLines[] = {
    {" Intestazione: ", "Intestazione"},
    {" colswidth: ", "ColsWidth"},
    {" Ordinamento: ", "Ordinamento"},
    {" Formato: ", "Formato"},
    {" CampoQuery: ", "CampoQuery"},
    {" Condizione: ", "Condizione"},
    {" ImmagineA: ", "ImmagineA"},
    {" ImmagineB: ", "ImmagineB"},
    {" Operatore Condizionale: ", "OperatoreCondizionale"},
    {" Allineamento: ", "ColAlignment"},
    {" Tool Tip text: ", "ToolTT"},
    {" Key ID: ", "KeyID"},
    {" Ipertext: ", "IsIperText"},
    {" Index iperText: ", "IperTextIndex"},
    {" TTT true: ", "ToolTTvero"},
    {" TTT false: ", "ToolTTfalso"},
    {" Scelta Opzionale: ", "ColonnaOpzionale"},
    {" Colonna Forecolor: ", "ColonnaForeColor"},
    {" Mostra Totale: ", "MostraTotCol"},
    {" Colonna Immagine: ", "ColonnaImmagine"},
    {" Testo scelta: ", "TestoScelta"},
};

constexpr bool EveryLineHasACell() {
    for (const auto& line : kLines)
        if (PageCellOf(line.property) < 0) return false;
    return true;
}
static_assert(EveryLineHasACell(), "each line of the report shows a cell of the working table");

}  // namespace

std::string CartellaRapportoPredefinita() {
    const char* home = std::getenv("HOME");
    return home != nullptr ? std::string(home) : std::string();
}

std::string PercorsoRapporto(const std::string& folder) {
    if (folder.empty()) return kNomeRapporto;
    return (std::filesystem::path(folder) / kNomeRapporto).string();
}

std::vector<std::string> RigheRapporto(const WorkingTable& FG) {
    std::vector<std::string> lines;
    lines.reserve(static_cast<size_t>(FG.Rows()) * (std::size(kLines) + 2) + 1);
    for (int i = 0; i < FG.Rows(); ++i) {
        lines.push_back("****** Colonna N\u00B0 " + std::to_string(i) + " ********************");
        for (const auto& line : kLines) {
            lines.push_back(std::string(line.literal) + FG.TextMatrix(i, PageCellOf(line.property)));
        }
        lines.emplace_back();
    }
    lines.emplace_back("****** FINE ********************");
    return lines;
}

void ScriviRapporto(const WorkingTable& FG, const std::string& folder) {
    Steps steps;
    std::vector<std::string> lines;
    if (steps([&] { lines = RigheRapporto(FG); })) steps([&] { AppendLines(PercorsoRapporto(folder), lines); });
}

}  // namespace TabulonLib12
