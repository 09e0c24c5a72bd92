// The form file's text: the reader, which checks everything before it builds the form, and the
// writer, which builds an ordered_json document and lays it out always alike.
//
// nlohmann's ordered_json keeps the members of an object in the order they were written, which
// the property stores need (the order of first writes is part of a design); its numbers are read
// and written in the C form whatever the process locale. Its objects look members up one by one,
// so the reader refuses objects of more than kMaxMembers members while it parses, before the
// look-ups could grow with the square of a hostile file's size; the writer refuses the same, so
// that what one saves the other reads.
#include <cmath>
#include <cstdint>
#include <limits>
#include <new>
#include <string>
#include <unordered_set>
#include <vector>

#include <nlohmann/json.hpp>

#include "persistence/form_file.h"
#include "platform/runtime/error.h"
#include "platform/runtime/rounding.h"
#include "platform/runtime/text.h"

namespace TabulonLib12 {

namespace {

using Json = nlohmann::ordered_json;

constexpr size_t kMaxMembers = 10000;  // of one JSON object: a control's keys, for one
constexpr int kMaxDepth = 64;          // a form file nests six deep
constexpr int kInlineDepth = 4;        // a property's entry and what it holds go on one line

// --- messages ---

// A text of the file or the form, quoted for a message: JSON's escapes, at most 60 bytes of it.
std::string Quote(std::string_view text) {
    constexpr size_t kShown = 60;
    bool cut = false;
    if (text.size() > kShown) {
        size_t end = kShown;
        while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) --end;  // a whole character
        text = text.substr(0, end);
        cut = true;
    }
    std::string quoted = Json(std::string(text)).dump(-1, ' ', false, Json::error_handler_t::replace);
    if (cut) quoted.insert(quoted.size() - 1, "...");
    return quoted;
}

// What a JSON value is, for a message: a number or a truth value as written, others by their type.
std::string Describe(const Json& v) {
    switch (v.type()) {
        case Json::value_t::null: return "null";
        case Json::value_t::boolean: return v.get<bool>() ? "true" : "false";
        case Json::value_t::string: return "a text";
        case Json::value_t::array: return "a list";
        case Json::value_t::object: return "an object";
        case Json::value_t::number_integer:
        case Json::value_t::number_unsigned:
        case Json::value_t::number_float: return v.dump();
        default: return "a value of another kind";
    }
}

// Where a message points: "control \"Tabulon121\", property \"Cols\"".
std::string Place(const std::string& control, const std::string& key = {}) {
    std::string place = "control " + Quote(control);
    if (!key.empty()) place += ", property " + Quote(key);
    return place;
}

// --- reading ---

class Reader {
public:
    explicit Reader(const std::string& origin) : subject_("Form file \"" + origin + "\"") {}

    // Not a form file, or one whose structure is wrong (321, kind File).
    [[noreturn]] void Structure(const std::string& what) const {
        throw Error(ErrorKind::File, 321, subject_ + ": " + what);
    }
    // A property whose kind or value is wrong (380, kind InvalidValue).
    [[noreturn]] void Value(const std::string& what) const {
        throw Error(ErrorKind::InvalidValue, 380, subject_ + ": " + what);
    }

    Json Parse(std::string_view text) const;
    FormFile Form(const Json& root) const;

private:
    void OnlyMembers(const Json& object, std::initializer_list<std::string_view> known, const std::string& where) const;
    std::string NonEmptyText(const Json& object, std::string_view member, const std::string& label,
                             const std::string& where) const;
    FormControl Control(const Json& entry, size_t position) const;
    PropertyValue Property(const Json& entry, const std::string& control, const std::string& key) const;
    int64_t Whole(const Json& v, PropertyKind kind, int64_t low, int64_t high, const std::string& where) const;
    float Single(const Json& v, const std::string& what, const std::string& where) const;

    std::string subject_;
};

Json Reader::Parse(std::string_view text) const {
    // Members seen, per open object: a member twice is refused (the parser would keep the last
    // one silently), and so is an object larger than any form file has.
    std::vector<std::unordered_set<std::string>> open;
    const auto guard = [&](int depth, nlohmann::json::parse_event_t event, Json& parsed) {
        using Event = nlohmann::json::parse_event_t;
        switch (event) {
            case Event::object_start:
            case Event::array_start:
                if (depth >= kMaxDepth) Structure("the text nests deeper than " + std::to_string(kMaxDepth) + " levels");
                if (event == Event::object_start) open.emplace_back();
                break;
            case Event::key: {
                const auto& key = parsed.get_ref<const std::string&>();
                if (!open.back().insert(key).second) Structure("the member " + Quote(key) + " appears twice in one object");
                if (open.back().size() > kMaxMembers) {
                    Structure("an object has more than " + std::to_string(kMaxMembers) + " members");
                }
                break;
            }
            case Event::object_end: open.pop_back(); break;
            default: break;
        }
        return true;
    };
    try {
        return Json::parse(text.begin(), text.end(), guard, true, false);
    } catch (const Json::parse_error& e) {
        // The line and column (in bytes) of the last byte read, and the parser's own account.
        const size_t at = std::min<size_t>(e.byte == 0 ? 0 : e.byte - 1, text.size());
        size_t line = 1;
        size_t lineStart = 0;
        for (size_t i = 0; i < at; ++i) {
            if (text[i] == '\n') {
                ++line;
                lineStart = i + 1;
            }
        }
        std::string detail = e.what();
        if (const size_t column = detail.find("column "); column != std::string::npos) {
            if (const size_t colon = detail.find(": ", column); colon != std::string::npos) detail.erase(0, colon + 2);
        } else if (const size_t bracket = detail.find("] "); bracket != std::string::npos) {
            detail.erase(0, bracket + 2);
        }
        Structure("not valid JSON at line " + std::to_string(line) + ", column " + std::to_string(at - lineStart + 1) +
                  ": " + detail);
    } catch (const Json::out_of_range& e) {  // a number beyond a double
        std::string detail = e.what();
        if (const size_t bracket = detail.find("] "); bracket != std::string::npos) detail.erase(0, bracket + 2);
        Structure("not valid JSON: " + detail);
    }
}

void Reader::OnlyMembers(const Json& object, std::initializer_list<std::string_view> known,
                         const std::string& where) const {
    for (auto it = object.begin(); it != object.end(); ++it) {
        bool isKnown = false;
        for (std::string_view name : known) isKnown = isKnown || it.key() == name;
        if (!isKnown) {
            Structure(where + " has a member " + Quote(it.key()) + " that a form file of version " +
                      std::to_string(FormFile::kFormatVersion) + " does not have");
        }
    }
}

std::string Reader::NonEmptyText(const Json& object, std::string_view member, const std::string& label,
                                 const std::string& where) const {
    auto it = object.find(member);
    if (it == object.end() || !it->is_string() || it->get_ref<const std::string&>().empty()) {
        Structure(where + " has no " + label + " (\"" + std::string(member) + "\" must be a text that is not empty)");
    }
    return it->get<std::string>();
}

FormFile Reader::Form(const Json& root) const {
    const std::string expected = std::string(FormFile::kFormatName);
    if (!root.is_object()) Structure("it is not a form file: it holds " + Describe(root) + " where a form file has an object");
    auto format = root.find("format");
    if (format == root.end()) Structure("it is not a form file: it has no \"format\"");
    if (!format->is_string() || format->get_ref<const std::string&>() != expected) {
        Structure("it is not a form file: its format is " +
                  (format->is_string() ? Quote(format->get_ref<const std::string&>()) : Describe(*format)) +
                  ", where a form file's is \"" + expected + "\"");
    }

    auto version = root.find("version");
    if (version == root.end()) Structure("it has no \"version\"");
    const std::string readable = "; this program reads version " + std::to_string(FormFile::kFormatVersion);
    if (version->is_number_unsigned()) {
        const uint64_t v = version->get<uint64_t>();
        if (v > static_cast<uint64_t>(FormFile::kFormatVersion)) {
            Structure("it is a form file of version " + std::to_string(v) + readable);
        }
        if (v == 0) Structure("it claims version 0, which does not exist" + readable);
    } else {
        Structure("its version " + Describe(*version) + " is not a version number" + readable);
    }

    OnlyMembers(root, {"format", "version", "form", "controls"}, "the form");
    FormFile form(NonEmptyText(root, "form", "form name", "it"));

    auto controls = root.find("controls");
    if (controls == root.end() || !controls->is_array()) Structure("it has no list of \"controls\"");
    for (size_t i = 0; i < controls->size(); ++i) {
        FormControl control = Control((*controls)[i], i + 1);
        if (const FormControl* held = form.Find(control.Name())) {
            Structure("two controls are named alike: " + Quote(held->Name()) + " and " + Quote(control.Name()));
        }
        form.AddOrReplace(std::move(control));
    }
    return form;
}

FormControl Reader::Control(const Json& entry, size_t position) const {
    const std::string counted = "control " + std::to_string(position) + " (counting from 1)";
    if (!entry.is_object()) Structure(counted + " is " + Describe(entry) + ", not an object");
    const std::string name = NonEmptyText(entry, "name", "name", counted);
    const std::string where = Place(name);
    OnlyMembers(entry, {"name", "type", "properties"}, where);
    const std::string type = NonEmptyText(entry, "type", "type", where);

    auto properties = entry.find("properties");
    if (properties == entry.end() || !properties->is_object()) Structure(where + " has no \"properties\" object");
    MemoryPropertyBag bag;
    for (auto it = properties->begin(); it != properties->end(); ++it) {
        const std::string& key = it.key();
        if (bag.Has(key)) {
            const std::string* first = nullptr;
            for (const auto& held : bag.Values()) {
                if (EqualsInsensitive(held.key, key)) first = &held.key;
            }
            Structure(where + " has the key " + Quote(key) + " twice (also as " + Quote(first ? *first : key) +
                      "); keys are the same without regard to case");
        }
        bag.Set(key, Property(it.value(), name, key));
    }
    return FormControl(name, type, std::move(bag));
}

PropertyValue Reader::Property(const Json& entry, const std::string& control, const std::string& key) const {
    const std::string where = Place(control, key);
    if (!entry.is_object()) Structure(where + " is " + Describe(entry) + ", not an object of \"kind\" and \"value\"");
    OnlyMembers(entry, {"kind", "value"}, where);
    auto kindMember = entry.find("kind");
    auto value = entry.find("value");
    if (kindMember == entry.end() || !kindMember->is_string()) Structure(where + " has no \"kind\" text");
    if (value == entry.end()) Structure(where + " has no \"value\"");
    const std::string& kindName = kindMember->get_ref<const std::string&>();
    const auto kind = PropertyKindFromName(kindName);
    if (!kind) {
        Value(where + " is of the unknown kind " + Quote(kindName) +
              " (the kinds are Byte, Integer, Long, Boolean, Single, Double, Text and Font)");
    }
    const Json& v = *value;
    switch (*kind) {
        case PropertyKind::Byte: return static_cast<uint8_t>(Whole(v, *kind, 0, 255, where));
        case PropertyKind::Integer: return static_cast<int16_t>(Whole(v, *kind, INT16_MIN, INT16_MAX, where));
        case PropertyKind::Long: return static_cast<int32_t>(Whole(v, *kind, INT32_MIN, INT32_MAX, where));
        case PropertyKind::Boolean:
            if (!v.is_boolean()) Value(where + ": a Boolean must be true or false, not " + Describe(v));
            return v.get<bool>();
        case PropertyKind::Single: return Single(v, "a Single", where);
        case PropertyKind::Double:
            if (!v.is_number()) Value(where + ": a Double must be a number, not " + Describe(v));
            return v.get<double>();
        case PropertyKind::Text:
            if (!v.is_string()) Value(where + ": a Text must be a text, not " + Describe(v));
            return v.get<std::string>();
        case PropertyKind::Font: {
            if (!v.is_object()) Value(where + ": a Font must be an object, not " + Describe(v));
            OnlyMembers(v, {"name", "size", "bold", "italic", "underline"}, where + "'s font");
            Font font;
            auto name = v.find("name");
            if (name == v.end() || !name->is_string()) Value(where + ": a Font needs a \"name\" text");
            font.name = name->get<std::string>();
            auto size = v.find("size");
            if (size == v.end()) Value(where + ": a Font needs a \"size\"");
            font.size = Single(*size, "a Font's size", where);
            for (auto [member, field] : {std::pair{"bold", &font.bold}, std::pair{"italic", &font.italic},
                                         std::pair{"underline", &font.underline}}) {
                auto flag = v.find(member);
                if (flag == v.end() || !flag->is_boolean()) {
                    Value(where + ": a Font needs \"" + std::string(member) + "\", true or false");
                }
                *field = flag->get<bool>();
            }
            return font;
        }
    }
    Value(where + " is of a kind this reader cannot hold");
}

int64_t Reader::Whole(const Json& v, PropertyKind kind, int64_t low, int64_t high, const std::string& where) const {
    const auto refuse = [&] {
        Value(where + ": a" + std::string(kind == PropertyKind::Integer ? "n " : " ") + std::string(PropertyKindName(kind)) +
              " must be a whole number from " + std::to_string(low) + " to " + std::to_string(high) + ", not " +
              Describe(v));
    };
    if (v.is_number_unsigned()) {
        const uint64_t u = v.get<uint64_t>();
        if (u > static_cast<uint64_t>(high)) refuse();
        return static_cast<int64_t>(u);
    }
    if (v.is_number_integer()) {
        const int64_t i = v.get<int64_t>();
        if (i < low || i > high) refuse();
        return i;
    }
    if (v.is_number_float()) {
        // A whole number written with a fraction or an exponent ("4.0", "1e3") counts.
        const double d = v.get<double>();
        if (!(d == std::floor(d) && d >= static_cast<double>(low) && d <= static_cast<double>(high))) refuse();
        return static_cast<int64_t>(d);
    }
    refuse();
    return 0;
}

float Reader::Single(const Json& v, const std::string& what, const std::string& where) const {
    if (!v.is_number()) Value(where + ": " + what + " must be a number, not " + Describe(v));
    try {
        return ToSingle(v.get<double>());
    } catch (const Error&) {
        Value(where + ": " + what + " must be a number within the Single's range (up to 3.4028235e+38), not " +
              Describe(v));
    }
}

// --- writing ---

class Writer {
public:
    [[noreturn]] static void Refuse(const std::string& what) { throw Error(ErrorKind::InvalidValue, 380, what); }

    static Json Document(const FormFile& form);

private:
    static void CheckText(const std::string& text, const std::string& what) {
        if (!IsValidUtf8(text)) Refuse(what + " is not valid UTF-8 text");
    }
    static Json Number(double value, const std::string& where) {
        if (!std::isfinite(value)) Refuse(where + " holds " + (std::isnan(value) ? "NaN" : "an infinity") + ", which a form file cannot hold");
        return value;
    }
    static Json Entry(const PropertyValue& value, const std::string& where);
};

Json Writer::Document(const FormFile& form) {
    CheckText(form.FormName(), "the form's name");
    Json root = Json::object();
    root["format"] = std::string(FormFile::kFormatName);
    root["version"] = FormFile::kFormatVersion;
    root["form"] = form.FormName();
    Json controls = Json::array();
    for (const FormControl& control : form.Controls()) {
        CheckText(control.Name(), "a control's name");
        const std::string where = Place(control.Name());
        CheckText(control.Type(), where + "'s type");
        const auto& entries = control.Properties().Values();
        if (entries.size() > kMaxMembers) {
            Refuse(where + " has " + std::to_string(entries.size()) + " keys, more than the " +
                   std::to_string(kMaxMembers) + " a form file holds");
        }
        Json properties = Json::object();
        for (const PropertyEntry& entry : entries) {
            CheckText(entry.key, where + ": a key");
            properties.emplace(entry.key, Entry(entry.value, Place(control.Name(), entry.key)));
        }
        Json item = Json::object();
        item["name"] = control.Name();
        item["type"] = control.Type();
        item["properties"] = std::move(properties);
        controls.push_back(std::move(item));
    }
    root["controls"] = std::move(controls);
    return root;
}

Json Writer::Entry(const PropertyValue& value, const std::string& where) {
    Json entry = Json::object();
    entry["kind"] = std::string(PropertyKindName(KindOf(value)));
    switch (KindOf(value)) {
        case PropertyKind::Byte: entry["value"] = std::get<uint8_t>(value); break;
        case PropertyKind::Integer: entry["value"] = std::get<int16_t>(value); break;
        case PropertyKind::Long: entry["value"] = std::get<int32_t>(value); break;
        case PropertyKind::Boolean: entry["value"] = std::get<bool>(value); break;
        case PropertyKind::Single: entry["value"] = Number(SingleAsDouble(std::get<float>(value)), where); break;
        case PropertyKind::Double: entry["value"] = Number(std::get<double>(value), where); break;
        case PropertyKind::Text:
            CheckText(std::get<std::string>(value), where);
            entry["value"] = std::get<std::string>(value);
            break;
        case PropertyKind::Font: {
            const Font& font = std::get<Font>(value);
            CheckText(font.name, where + "'s font name");
            Json f = Json::object();
            f["name"] = font.name;
            f["size"] = Number(SingleAsDouble(font.size), where + "'s font size");
            f["bold"] = font.bold;
            f["italic"] = font.italic;
            f["underline"] = font.underline;
            entry["value"] = std::move(f);
            break;
        }
    }
    return entry;
}

// A container on one line: members or items separated by ", ", a member's name by ": ".
void LayOutInline(const Json& j, std::string& out) {
    if (j.is_object()) {
        out += '{';
        for (auto it = j.begin(); it != j.end(); ++it) {
            if (it != j.begin()) out += ", ";
            out += Json(it.key()).dump();
            out += ": ";
            LayOutInline(it.value(), out);
        }
        out += '}';
    } else if (j.is_array()) {
        out += '[';
        for (auto it = j.begin(); it != j.end(); ++it) {
            if (it != j.begin()) out += ", ";
            LayOutInline(*it, out);
        }
        out += ']';
    } else {
        out += j.dump();
    }
}

// The document, one member or item a line down to kInlineDepth, two spaces a level.
void LayOut(const Json& j, int depth, std::string& out) {
    if (!(j.is_object() || j.is_array()) || j.empty() || depth >= kInlineDepth) {
        LayOutInline(j, out);
        return;
    }
    const std::string inner(static_cast<size_t>(2 * (depth + 1)), ' ');
    out += j.is_object() ? "{\n" : "[\n";
    for (auto it = j.begin(); it != j.end(); ++it) {
        if (it != j.begin()) out += ",\n";
        out += inner;
        if (j.is_object()) {
            out += Json(it.key()).dump();
            out += ": ";
        }
        LayOut(*it, depth + 1, out);
    }
    out += '\n';
    out.append(static_cast<size_t>(2 * depth), ' ');
    out += j.is_object() ? '}' : ']';
}

}  // namespace

FormFile FormFile::FromText(std::string_view text, const std::string& origin) {
    const Reader reader(origin);
    try {
        return reader.Form(reader.Parse(text));
    } catch (const std::bad_alloc&) {
        throw Error(ErrorKind::OutOfMemory, 7, "Form file \"" + origin + "\" cannot be read: out of memory");
    } catch (const Json::exception& e) {
        // The reader tests every type before it asks for a value; should one slip through, it is
        // still a failure of this file and not a crash.
        reader.Structure(e.what());
    }
}

std::string FormFile::ToText() const {
    const Json document = Writer::Document(*this);
    std::string text;
    LayOut(document, 0, text);
    text += '\n';
    return text;
}

}  // namespace TabulonLib12
