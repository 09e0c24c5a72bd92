// The column choice as the load and the structure read it: the last line of the choice file,
// a comma-separated list of hidden column numbers.
#include <algorithm>
#include <cctype>

#include "grid/control_state.h"
#include "platform/host/sequential_file.h"

namespace TabulonLib12 {

bool Tabulon12::Impl::FileEsiste(const std::string& path) { return !path.empty() && FileCanOpen(path); }

void Tabulon12::Impl::LeggiFileScelta() {
    ColonneScelte.clear();
    if (!FileEsiste(FileScelta)) return;
    Step(err, [&] {
        const auto lines = ReadLines(FileScelta);
        if (!lines.empty()) ColonneScelte = lines.back();
    });
}

bool Tabulon12::Impl::VoceInLista(std::string_view voce, std::string_view lista) {
    if (voce.empty() || lista.empty()) return false;
    auto equalNoCase = [](std::string_view a, std::string_view b) {
        return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](unsigned char x, unsigned char y) {
                   return std::tolower(x) == std::tolower(y);
               });
    };
    size_t start = 0;
    while (true) {
        const size_t comma = lista.find(',', start);
        const std::string_view piece = lista.substr(start, comma == std::string_view::npos ? lista.npos : comma - start);
        if (equalNoCase(piece, voce)) return true;
        if (comma == std::string_view::npos) return false;
        start = comma + 1;
    }
}

}  // namespace TabulonLib12
