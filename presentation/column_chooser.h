#pragma once
// The column chooser: the user hides optional columns through a panel of check boxes opened by
// the button ImageTools, and the choice lives in the file named by FileScelta, read again at
// every load. ColonneScelte is the choice in memory: the comma-separated indices of the hidden
// columns, which the structure, the sizing and the band consult. The component owns the button,
// the panel and its boxes, FileScelta, ColonneScelte and ConsentiSceltaColonne.
#include <string>

#include "platform/ui/control_array.h"
#include "platform/ui/surface.h"

namespace TabulonLib12 {

class ColumnChooser {
public:
    ColumnChooser(PictureBox& imageTools, Frame& panel, CheckBox& checkScelta);

    const std::string& FileScelta() const { return fileScelta_; }
    void setFileScelta(const std::string& path) { fileScelta_ = path; }
    const std::string& ColonneScelte() const { return colonneScelte_; }
    bool ConsentiSceltaColonne() const { return consenti_; }
    void setConsentiSceltaColonne(bool v);  // also shows or hides the button

    // ColonneScelte := the last line of the choice file; empty when it cannot be read.
    void LeggiFileScelta();
    // The button stands at the left of the scroll bar, in front of everything.
    void PlaceButton(float left);

    // Whether `path` can be opened for reading.
    static bool FileEsiste(const std::string& path);

private:
    PictureBox& imageTools_;
    Frame& panel_;
    ControlArray<CheckBox> checkScelta_;
    std::string fileScelta_;
    std::string colonneScelte_;
    bool consenti_ = false;
};

}  // namespace TabulonLib12
