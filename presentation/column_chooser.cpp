#include "presentation/column_chooser.h"

#include "platform/host/sequential_file.h"
#include "platform/runtime/steps.h"

namespace TabulonLib12 {

ColumnChooser::ColumnChooser(PictureBox& imageTools, Frame& panel, CheckBox& checkScelta)
    : imageTools_(imageTools), panel_(panel), checkScelta_(checkScelta) {}

void ColumnChooser::setConsentiSceltaColonne(bool v) {
    consenti_ = v;
    imageTools_.setVisible(v);
}

bool ColumnChooser::FileEsiste(const std::string& path) { return !path.empty() && FileCanOpen(path); }

void ColumnChooser::LeggiFileScelta() {
    colonneScelte_.clear();
    if (!FileEsiste(fileScelta_)) return;
    Steps steps;  // a file that cannot be read leaves the choice empty
    steps([&] {
        const auto lines = ReadLines(fileScelta_);
        if (!lines.empty()) colonneScelte_ = lines.back();
    });
}

void ColumnChooser::PlaceButton(float left) {
    imageTools_.setLeft(left);
    imageTools_.ZOrder(0);
}

}  // namespace TabulonLib12
