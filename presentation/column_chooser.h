#pragma once
// The column chooser: the user hides optional columns through a panel of check boxes opened by
// the button ImageTools; a second click on the button closes the panel and applies the choice.
// The choice lives in the file named by FileScelta, read again at every load, and in memory as
// ColonneScelte: the comma-separated indices of the hidden columns, which the structure, the
// sizing and the band consult. The component owns the button, the panel and its boxes,
// FileScelta, ColonneScelte and ConsentiSceltaColonne.
//
// The file: one line, the hidden columns' indices in ascending order joined by "," with no
// blanks, ended by CR LF; no file at all when nothing is hidden. Reading takes every line and the
// last one wins; an empty, missing or unreadable file hides nothing. A new choice replaces the
// file at once and whole (written beside it, then renamed over it), so that a crash, a full disk
// or a folder without write permission leaves the old choice as it was.
#include <cstdint>
#include <string>
#include <string_view>

#include "grid/column_properties.h"
#include "platform/ui/cell_grid.h"
#include "platform/ui/control_array.h"

namespace TabulonLib12 {

class ColumnChooser {
public:
    // What the chooser asks of the control: its message boxes, its width as the host sees it,
    // and the new choice applied (the columns fitted again, the list loaded again).
    class Neighbours {
    public:
        virtual ~Neighbours() = default;
        virtual void ChooserMessage(const std::string& text, const std::string& title) = 0;
        virtual float ControlWidth() const = 0;
        virtual void ApplyColumnChoice() = 0;
    };

    ColumnChooser(PictureBox& imageTools, Frame& panel, CheckBox& checkScelta, const CellGrid& fg,
                  const ColumnDefinitions& columns, Neighbours& neighbours);

    const std::string& FileScelta() const { return fileScelta_; }
    void setFileScelta(const std::string& path) { fileScelta_ = path; }
    const std::string& ColonneScelte() const { return colonneScelte_; }
    bool ConsentiSceltaColonne() const { return consenti_; }
    void setConsentiSceltaColonne(bool v);  // also shows or hides the button

    // ColonneScelte := the last line of the choice file; empty when it cannot be read.
    void LeggiFileScelta();
    // The button stands at the left of the scroll bar, in front of everything.
    void PlaceButton(float left);

    // The click on the button: the panel opens with a box per optional column, or closes and
    // applies the choice.
    void ApriChiudiSceltaColonne();

    // Whether `path` can be opened for reading.
    static bool FileEsiste(const std::string& path);
    // The choice a file's bytes hold: their last line.
    static std::string ChoiceInFile(std::string_view bytes);

private:
    void CompilaSceltaColonne();
    void ApplicaSceltaColonne();

    PictureBox& imageTools_;
    Frame& panel_;
    ControlArray<CheckBox> checkScelta_;
    const CellGrid& fg_;
    const ColumnDefinitions& columns_;
    Neighbours& neighbours_;
    std::string fileScelta_;
    std::string colonneScelte_;
    bool consenti_ = false;
};

}  // namespace TabulonLib12
