// A form file opened by a host: the list's design in and out, with database names kept relative
// to the form file's folder.
#include "widgets/form_document.h"

#include <filesystem>

#include "platform/db/composite_engine.h"
#include "platform/runtime/error.h"
#include "widgets/tabulon12_widget.h"

namespace TabulonLib12 {

namespace {

namespace fs = std::filesystem;

constexpr const char* kDatabaseKey = "DataBaseName";

bool IsRelativeFile(const std::string& name) {
    return !name.empty() && !IsServerDatabaseName(name) && fs::path(name).is_relative();
}

}  // namespace

std::string DesignText(const PropertyBag& design, const std::string& key) {
    if (std::holds_alternative<Font>(design.ReadProperty(key, std::string()))) return {};
    return design.ReadText(key, std::string());
}

FormDocument::FormDocument(std::string path, FormFile form, std::string controlName)
    : path_(std::move(path)), form_(std::move(form)), controlName_(std::move(controlName)) {}

FormDocument::FormDocument(std::string path, const std::string& formName, std::string controlName)
    : FormDocument(std::move(path), FormFile(formName), std::move(controlName)) {
    if (controlName_.empty()) throw Error(ErrorKind::InvalidValue, 380, "A list needs a name in its form");
}

FormDocument FormDocument::Open(const std::string& path, const std::string& controlName) {
    FormFile form = FormFile::Load(path);
    std::string name = controlName;
    if (name.empty()) {
        for (const FormControl& control : form.Controls())
            if (control.Type() == kControlType) {
                name = control.Name();
                break;
            }
        if (name.empty())
            throw Error(ErrorKind::InvalidValue, 380, path + " holds no control of type " + kControlType);
    } else {
        const FormControl* control = form.Find(name);
        if (!control) throw Error(ErrorKind::InvalidValue, 380, path + " holds no control named " + name);
        if (control->Type() != kControlType)
            throw Error(ErrorKind::InvalidValue, 380,
                        path + ": the control " + name + " is a " + control->Type() + ", not a " + kControlType);
        name = control->Name();
    }
    return FormDocument(path, std::move(form), std::move(name));
}

bool FormDocument::HasDesign() const { return form_.Find(controlName_) != nullptr; }

std::string FormDocument::Folder() const {
    return fs::absolute(fs::path(path_)).parent_path().lexically_normal().string();
}

MemoryPropertyBag FormDocument::DesignForHost() const {
    MemoryPropertyBag design = HasDesign() ? form_.Properties(controlName_) : MemoryPropertyBag();
    const std::string database = DesignText(design, kDatabaseKey);
    if (IsRelativeFile(database))
        design.Set(kDatabaseKey, (fs::path(Folder()) / database).lexically_normal().string());
    return design;
}

void FormDocument::Save(const Tabulon12Widget& list, const std::string& path) {
    const std::string target = path.empty() ? path_ : path;
    // The relative name the form held, kept while the control still names that file and the
    // form stays in its folder.
    const std::string stored = HasDesign() ? DesignText(form_.Properties(controlName_), kDatabaseKey) : std::string();
    FormFile saved = form_;
    list.SaveTo(saved, controlName_);
    const bool sameFolder =
        fs::absolute(fs::path(target)).parent_path().lexically_normal().string() == Folder();
    if (IsRelativeFile(stored) && sameFolder) {
        MemoryPropertyBag& design = saved.Properties(controlName_);
        const std::string absolute = DesignText(design, kDatabaseKey);
        if (absolute == DesignText(DesignForHost(), kDatabaseKey)) design.Set(kDatabaseKey, stored);
    }
    saved.Save(target);
    form_ = std::move(saved);
    path_ = target;
}

}  // namespace TabulonLib12
