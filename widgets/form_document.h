#pragma once
// FormDocument: a form file as a host opens it to show or edit one list of it. It keeps the
// file's path, the form, and which of its controls is the list; it gives that control's design
// to a Tabulon12Widget and takes the widget's design back when the host saves.
//
// A database named by a relative file path in a design (DataBaseName "ordini.db") lives beside
// the form file: the design handed to the widget names it from the form file's folder, so a form
// and its database can move together. Saving writes the relative name back while the control
// still names that same file; a server name or an absolute path is kept as it is.
#include <string>

#include "persistence/form_file.h"
#include "platform/host/property_bag.h"

namespace TabulonLib12 {

class Tabulon12Widget;

// The text held under `key` in a design (a number as its text), or "" where the key is absent or
// holds a font: what a host reads of a design never fails.
std::string DesignText(const PropertyBag& design, const std::string& key);

class FormDocument {
public:
    static constexpr const char* kControlType = "Tabulon12";

    // The form file at `path` and its list `controlName`, or its first control of type
    // "Tabulon12" when the name is empty. Load's failures pass through as they are; a form
    // without that control (or without any list) fails with InvalidValue (380), naming the file
    // and the control.
    static FormDocument Open(const std::string& path, const std::string& controlName = {});
    // A new form `formName` to be saved at `path`, whose list `controlName` has no design yet.
    FormDocument(std::string path, const std::string& formName, std::string controlName);

    const std::string& Path() const { return path_; }
    const std::string& ControlName() const { return controlName_; }
    const FormFile& Form() const { return form_; }
    // Whether the form holds a design for the list (false for a new form until its first save).
    bool HasDesign() const;

    // The list's design as the widget must read it: a relative DataBaseName made absolute from
    // the form file's folder.
    MemoryPropertyBag DesignForHost() const;

    // The widget's design into the form as the list (see above for DataBaseName), then the form
    // saved atomically to `path`, or to the document's own path when empty; a save to another
    // path makes that the document's path. FormFile::Save's failures pass through and leave
    // both the file and the document as they were.
    void Save(const Tabulon12Widget& list, const std::string& path = {});

private:
    FormDocument(std::string path, FormFile form, std::string controlName);
    // The folder relative database names are taken from.
    std::string Folder() const;

    std::string path_;
    FormFile form_;
    std::string controlName_;
};

}  // namespace TabulonLib12
