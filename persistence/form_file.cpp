// The form as the host sees it: its name, its controls in order with an index of their lowered
// names, and the load and save that join the text of form_file_text.cpp to the files of
// file_access.cpp.
#include "persistence/form_file.h"

#include <new>

#include "platform/host/file_access.h"
#include "platform/runtime/error.h"
#include "platform/runtime/text.h"

namespace TabulonLib12 {

namespace {

std::string Subject(const std::string& path) { return "Form file \"" + path + "\""; }

}  // namespace

FormControl::FormControl(std::string name, std::string type, MemoryPropertyBag properties)
    : name_(std::move(name)), type_(std::move(type)), properties_(std::move(properties)) {
    if (name_.empty()) throw Error(ErrorKind::InvalidValue, 380, "A control of a form needs a name");
    if (type_.empty()) throw Error(ErrorKind::InvalidValue, 380, "The control \"" + name_ + "\" needs a type");
}

FormFile::FormFile(std::string formName) { setFormName(std::move(formName)); }

void FormFile::setFormName(std::string formName) {
    if (formName.empty()) throw Error(ErrorKind::InvalidValue, 380, "A form needs a name");
    name_ = std::move(formName);
}

FormFile FormFile::Load(const std::string& path) {
    try {
        const std::string text = ReadWholeFile(path, kMaxFileBytes, Subject(path));
        return FromText(text, path);
    } catch (const std::bad_alloc&) {
        throw Error(ErrorKind::OutOfMemory, 7, Subject(path) + " cannot be read: out of memory");
    }
}

void FormFile::Save(const std::string& path) const {
    std::string text;
    try {
        text = ToText();
    } catch (const std::bad_alloc&) {
        throw Error(ErrorKind::OutOfMemory, 7, Subject(path) + " was not saved: out of memory");
    } catch (const Error& e) {
        throw Error(e.kind(), e.number(), Subject(path) + " was not saved: " + e.description());
    }
    ReplaceFileAtomically(path, text, Subject(path));
}

std::vector<std::string> FormFile::ControlNames() const {
    std::vector<std::string> names;
    names.reserve(controls_.size());
    for (const auto& control : controls_) names.push_back(control.Name());
    return names;
}

FormControl* FormFile::Find(std::string_view name) {
    auto it = index_.find(LowerAscii(name));
    return it == index_.end() ? nullptr : &controls_[it->second];
}

const FormControl* FormFile::Find(std::string_view name) const {
    auto it = index_.find(LowerAscii(name));
    return it == index_.end() ? nullptr : &controls_[it->second];
}

FormControl& FormFile::AddOrReplace(FormControl control) {
    std::string lowered = LowerAscii(control.Name());
    if (auto it = index_.find(lowered); it != index_.end()) {
        FormControl& held = controls_[it->second];
        held = std::move(control);
        return held;
    }
    controls_.push_back(std::move(control));
    try {
        index_.emplace(std::move(lowered), controls_.size() - 1);
    } catch (...) {
        controls_.pop_back();  // the index names every control, and only those
        throw;
    }
    return controls_.back();
}

bool FormFile::Remove(std::string_view name) {
    auto it = index_.find(LowerAscii(name));
    if (it == index_.end()) return false;
    const size_t position = it->second;
    index_.erase(it);
    controls_.erase(controls_.begin() + static_cast<std::ptrdiff_t>(position));
    for (auto& [lowered, at] : index_) {
        if (at > position) --at;
    }
    return true;
}

MemoryPropertyBag& FormFile::Properties(std::string_view controlName) {
    if (FormControl* control = Find(controlName)) return control->Properties();
    throw Error(ErrorKind::InvalidValue, 380, "The form \"" + name_ + "\" has no control named \"" + std::string(controlName) + "\"");
}

const MemoryPropertyBag& FormFile::Properties(std::string_view controlName) const {
    if (const FormControl* control = Find(controlName)) return control->Properties();
    throw Error(ErrorKind::InvalidValue, 380, "The form \"" + name_ + "\" has no control named \"" + std::string(controlName) + "\"");
}

bool FormFile::operator==(const FormFile& other) const {
    return name_ == other.name_ && controls_ == other.controls_;
}

}  // namespace TabulonLib12
