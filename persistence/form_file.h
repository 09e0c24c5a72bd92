#pragma once
// The form file: the saved design of one form and its controls. Each control has a name (unique
// in the form without regard to ASCII case), a type ("Tabulon12", "Scorrix", ...) and its
// property store, which the control reads and writes directly through the PropertyBag interface
// (ReadProperties / WriteProperties). docs/form-file.md describes the format with an example.
//
// The format. UTF-8 JSON text, one object with four members in this order:
//
//   {
//     "format": "tabulon12-form",
//     "version": 1,
//     "form": "Clienti",
//     "controls": [
//       {
//         "name": "Tabulon121",
//         "type": "Tabulon12",
//         "properties": {
//           "Cols": {"kind": "Integer", "value": 4},
//           "BackColor": {"kind": "Long", "value": -2147483643},
//           "Font": {"kind": "Font", "value": {"name": "Arial", "size": 8.25, "bold": false, "italic": false, "underline": false}}
//         }
//       }
//     ]
//   }
//
// - "format" names the format and "version" its version; a file of a later version is refused
//   with a message that says which version it is and which this program reads.
// - "properties" holds the control's keys in the order of their first write (the store's order,
//   which is part of the design), each with its kind and its value:
//     Byte, Integer, Long   a whole number in 0..255, -32768..32767, or the 32-bit range (colours
//                           as their signed 32-bit value: a system colour is negative)
//     Boolean               true or false
//     Single, Double        a number; a Single is written with the shortest digits that give it
//                           back, and a value beyond the largest Single is refused
//     Text                  a string
//     Font                  an object of name (string), size (number, a Single), bold, italic and
//                           underline (true or false), all five present
// - A reader takes any JSON layout and refuses anything else it does not know: a member not named
//   above, a kind not in the list, a value of the wrong JSON type for its kind, a number out of
//   its kind's range, a control without a name or type, two controls of one name, a key twice
//   in one control (without regard to case). What it reads, it saves back unchanged.
//
// Writing. The text is always laid out alike: two spaces of indentation, one line per property,
// the members in the order above, LF line ends and a final LF, UTF-8 as it is (no \u escapes
// but those JSON requires), numbers in the C form ("8.25" whatever the process locale). The same
// form gives the same bytes on every machine and in every locale.
//
// Failures. Every failure is an Error, and nothing half done is left behind:
// - Load: a file missing (53 "File not found"), not readable or not a regular file (75), a read
//   failure (57), larger than 64 MiB (321), or not a valid form file (kind File, 321, for text
//   that is not JSON, with the line and column, for another format, another version and a wrong
//   structure; kind InvalidValue, 380, for a property of an unknown kind, a value of the wrong
//   JSON type, or a number out of its kind's range). The description names the file and what is
//   wrong. A load that fails gives no form at all.
// - Save: the text is made first; a value that JSON cannot hold (a NaN or infinite Single or
//   Double, a text that is not UTF-8) fails with InvalidValue (380) before anything is written.
//   The file is then written to a temporary file in the target's folder, flushed to the disk and
//   renamed over the target, so the target holds the old form or the new one, never a mix. A
//   failure (no room: 61; no permission, a folder or a device as the target: 75; a missing
//   folder: 76; another failure of the system: 57) leaves the old file byte for byte as it was
//   and removes the temporary file. The new file keeps the old one's permissions; a link as the
//   target is followed and the file it names is replaced.
#include <cstddef>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/host/property_bag.h"

namespace TabulonLib12 {

// One control of a form: its name, its type and its property store.
class FormControl {
public:
    FormControl(std::string name, std::string type, MemoryPropertyBag properties = {});

    const std::string& Name() const { return name_; }
    const std::string& Type() const { return type_; }
    // The control's property store: a control reads and writes its design here.
    MemoryPropertyBag& Properties() { return properties_; }
    const MemoryPropertyBag& Properties() const { return properties_; }

    // Same name (spelled alike), same type, equal stores (MemoryPropertyBag::operator==).
    bool operator==(const FormControl& other) const = default;

private:
    std::string name_;
    std::string type_;
    MemoryPropertyBag properties_;
};

class FormFile {
public:
    static constexpr std::string_view kFormatName = "tabulon12-form";
    static constexpr int kFormatVersion = 1;
    // Larger files are refused unread: a form file of the biggest design is a few hundred KB.
    static constexpr size_t kMaxFileBytes = 64u << 20;

    // An empty form of that name; an empty name fails with InvalidValue (380).
    explicit FormFile(std::string formName);

    // The form in the file at `path` (see the file's opening for the failures).
    static FormFile Load(const std::string& path);
    // The form in `text`; `origin` names the text in error messages as a path would.
    static FormFile FromText(std::string_view text, const std::string& origin);

    // Writes the form to `path` atomically (see the file's opening).
    void Save(const std::string& path) const;
    // The text Save writes.
    std::string ToText() const;

    const std::string& FormName() const { return name_; }
    void setFormName(std::string formName);  // not empty: InvalidValue (380)

    // The controls in the order of the form. References stay valid until a control is removed.
    const std::deque<FormControl>& Controls() const { return controls_; }
    // Their names, in the same order.
    std::vector<std::string> ControlNames() const;

    // The control of that name (without regard to case), or null.
    FormControl* Find(std::string_view name);
    const FormControl* Find(std::string_view name) const;

    // Adds the control at the end, or replaces the control of the same name (without regard to
    // case) in its place: its name's spelling, type and store become the new control's. An empty
    // name or type fails with InvalidValue (380). Answers the control in the form.
    FormControl& AddOrReplace(FormControl control);
    // Removes the control of that name; answers whether there was one.
    bool Remove(std::string_view name);

    // The property store of the control of that name, which the control reads and writes
    // through PropertyBag; no such control fails with InvalidValue (380).
    MemoryPropertyBag& Properties(std::string_view controlName);
    const MemoryPropertyBag& Properties(std::string_view controlName) const;

    // Same form name, same controls in the same order.
    bool operator==(const FormFile& other) const;

private:
    std::string name_;
    std::deque<FormControl> controls_;
    std::unordered_map<std::string, size_t> index_;  // ASCII-lowered name -> position in controls_
};

}  // namespace TabulonLib12
