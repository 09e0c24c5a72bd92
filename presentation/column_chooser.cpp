#include "presentation/column_chooser.h"

#include <filesystem>
#include <system_error>
#include <vector>

#include "grid/values.h"
#include "platform/host/file_access.h"
#include "platform/host/sequential_file.h"
#include "platform/runtime/steps.h"
#include "platform/runtime/text.h"

namespace TabulonLib12 {

namespace {

constexpr float kBoxLeft = 15, kBoxWidth = 2925, kBoxHeight = 210, kBoxPitch = 225;
// The chosen columns must leave this much of the control's width for the bar and the frame.
constexpr float kRoomBesideTheColumns = 260;
// A choice file is one short line; a larger file is read up to this size, which no list reaches.
constexpr size_t kLargestChoiceFile = 64u * 1024 * 1024;

constexpr const char* kNoPath = "Percorso del file di salvataggio impostazioni colonne non valido.";
constexpr const char* kTooWide =
    "Le impostazioni correnti selezionano colonne che verrebbero nascoste completamente o in parte in quanto "
    "troppo larghe. Selezionare meno colonne.";

}  // namespace

ColumnChooser::ColumnChooser(PictureBox& imageTools, Frame& panel, CheckBox& checkScelta, const CellGrid& fg,
                             const ColumnDefinitions& columns, Neighbours& neighbours)
    : imageTools_(imageTools), panel_(panel), checkScelta_(checkScelta), fg_(fg), columns_(columns), neighbours_(neighbours) {
    imageTools.onClick = [this](Element&) { ApriChiudiSceltaColonne(); };
}

void ColumnChooser::setConsentiSceltaColonne(bool v) {
    consenti_ = v;
    imageTools_.setVisible(v);
}

bool ColumnChooser::FileEsiste(const std::string& path) { return !path.empty() && FileCanOpen(path); }

std::string ColumnChooser::ChoiceInFile(std::string_view bytes) {
    const std::vector<std::string> lines = SplitLines(bytes);
    return lines.empty() ? std::string() : lines.back();
}

void ColumnChooser::LeggiFileScelta() {
    colonneScelte_.clear();
    if (!FileEsiste(fileScelta_)) return;
    Steps steps;  // a file that cannot be read leaves the choice empty
    steps([&] { colonneScelte_ = ChoiceInFile(ReadWholeFile(fileScelta_, kLargestChoiceFile, "Column choice file")); });
}

void ColumnChooser::PlaceButton(float left) {
    imageTools_.setLeft(left);
    imageTools_.ZOrder(0);
}

void ColumnChooser::ApriChiudiSceltaColonne() {
    // The panel's right edge meets the button.
    panel_.setLeft(imageTools_.Left() - panel_.Width());
    panel_.setVisible(!panel_.Visible());
    if (panel_.Visible()) CompilaSceltaColonne();
    else ApplicaSceltaColonne();
}

void ColumnChooser::CompilaSceltaColonne() {
    std::vector<int16_t> loaded;
    for (const auto& [index, box] : checkScelta_.Items())
        if (index != 0) loaded.push_back(index);
    for (int16_t index : loaded) checkScelta_.Unload(index);
    int16_t k = 0;
    for (int16_t i = 0; i < columns_.Count(); ++i) {
        if (columns_.ColonnaOpzionale[static_cast<size_t>(i)] != 1) continue;  // only 1 is optional here
        if (k > 0) checkScelta_.Load(k);
        CheckBox& box = checkScelta_(k);
        box.Move(kBoxLeft, k * kBoxPitch + 15, kBoxWidth, kBoxHeight);
        box.setTag(DecimalText(i));
        box.setCaption(columns_.TestoScelta[static_cast<size_t>(i)]);
        box.setBackColor(columns_.BackColorCol[static_cast<size_t>(i)]);
        box.setVisible(true);
        box.setValue(ListHolds(colonneScelte_, DecimalText(i)) ? 0 : 1);
        ++k;
    }
    panel_.setHeight(k * kBoxPitch + 15);
}

void ColumnChooser::ApplicaSceltaColonne() {
    if (fileScelta_.empty()) {
        neighbours_.ChooserMessage(kNoPath, "");
        return;
    }
    // The width of what would be shown: every column that is not optional, and each optional one
    // whose box (boxes taken in order) is ticked.
    float sum = 0;
    auto box = checkScelta_.Items().begin();
    for (int32_t i = 0; i < fg_.Cols() && columns_.Has(i); ++i) {
        const auto width = static_cast<float>(columns_.ColsWidth[static_cast<size_t>(i)]);
        if (columns_.ColonnaOpzionale[static_cast<size_t>(i)] != 1) {
            sum += width;
        } else if (box != checkScelta_.Items().end()) {
            if (box->second->Value() == 1 && !box->second->Tag().empty()) sum += width;
            ++box;
        }
    }
    if (sum > neighbours_.ControlWidth() - kRoomBesideTheColumns) {
        neighbours_.ChooserMessage(kTooWide, "Errore");
        return;
    }
    std::string list;
    for (const auto& [index, item] : checkScelta_.Items()) {
        if (item->Value() != 0 || item->Tag().empty()) continue;
        if (!list.empty()) list += ',';
        list += item->Tag();
    }
    // The old choice goes only when the new one is in place: a file that cannot be replaced or
    // removed keeps the old choice, and the user is told why.
    try {
        if (list.empty()) {
            // Nothing hidden: no file. Only a file that can be opened is removed, never a folder.
            std::error_code ec;
            if (FileEsiste(fileScelta_) && !std::filesystem::remove(fileScelta_, ec) && ec)
                throw Error(ErrorKind::File, 75, "Column choice file \"" + fileScelta_ + "\" cannot be removed: " + ec.message());
        } else {
            ReplaceFileAtomically(fileScelta_, list + "\r\n", "Column choice file \"" + fileScelta_ + "\"");
        }
    } catch (const Error& e) {
        neighbours_.ChooserMessage(e.description(), "");
        return;
    }
    colonneScelte_ = list;
    neighbours_.ApplyColumnChoice();
}

}  // namespace TabulonLib12
