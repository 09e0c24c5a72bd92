// The property store's value rules (kinds, equality with a default, typed reads) and the store in
// memory: entries in the order of their first write, and an index of the lowered keys beside them.
#include "platform/host/property_bag.h"

#include <array>
#include <cmath>

#include "platform/runtime/conversions.h"
#include "platform/runtime/error.h"
#include "platform/runtime/rounding.h"
#include "platform/runtime/settings.h"
#include "platform/runtime/text.h"

namespace TabulonLib12 {

namespace {

constexpr std::array<std::string_view, 8> kKindNames = {"Byte",   "Integer", "Long", "Boolean",
                                                        "Single", "Double",  "Text", "Font"};

// The numeric value of a number or a Boolean; nothing for a text or a font.
std::optional<double> NumericValue(const PropertyValue& v) {
    switch (KindOf(v)) {
        case PropertyKind::Byte: return std::get<uint8_t>(v);
        case PropertyKind::Integer: return std::get<int16_t>(v);
        case PropertyKind::Long: return std::get<int32_t>(v);
        case PropertyKind::Boolean: return std::get<bool>(v) ? -1.0 : 0.0;
        case PropertyKind::Single: return std::get<float>(v);
        case PropertyKind::Double: return std::get<double>(v);
        case PropertyKind::Text:
        case PropertyKind::Font: return std::nullopt;
    }
    return std::nullopt;
}

// The number a held value reads as: its numeric value, or a text that passes the numeric test.
double AsNumber(const PropertyValue& v) {
    if (auto n = NumericValue(v)) return *n;
    if (auto s = std::get_if<std::string>(&v)) {
        if (auto n = ParseNumber(*s, CurrentSettings())) return *n;
    }
    throw Error::TypeMismatch();
}

}  // namespace

PropertyKind KindOf(const PropertyValue& value) { return static_cast<PropertyKind>(value.index()); }

std::string_view PropertyKindName(PropertyKind kind) { return kKindNames[static_cast<size_t>(kind)]; }

std::optional<PropertyKind> PropertyKindFromName(std::string_view name) {
    for (size_t i = 0; i < kKindNames.size(); ++i) {
        if (kKindNames[i] == name) return static_cast<PropertyKind>(i);
    }
    return std::nullopt;
}

bool PropertyValuesEqual(const PropertyValue& a, const PropertyValue& b) {
    const auto x = NumericValue(a);
    const auto y = NumericValue(b);
    if (x || y) return x && y && *x == *y;
    if (a.index() != b.index()) return false;
    return a == b;  // two texts byte for byte, or two fonts member by member
}

bool SameStoredValue(const PropertyValue& a, const PropertyValue& b) {
    if (a.index() != b.index()) return false;
    if (auto f = std::get_if<float>(&a)) {
        const float g = std::get<float>(b);
        return *f == g || (std::isnan(*f) && std::isnan(g));
    }
    if (auto d = std::get_if<double>(&a)) {
        const double e = std::get<double>(b);
        return *d == e || (std::isnan(*d) && std::isnan(e));
    }
    return a == b;
}

// --- typed reads ---

uint8_t PropertyBag::ReadByte(const std::string& key, uint8_t defaultValue) const {
    const double n = RoundHalfEven(AsNumber(ReadProperty(key, defaultValue)));
    if (!(n >= 0 && n <= 255)) throw Error::Overflow();  // NaN too
    return static_cast<uint8_t>(n);
}

int16_t PropertyBag::ReadInt16(const std::string& key, int16_t defaultValue) const {
    return ToInt16(AsNumber(ReadProperty(key, defaultValue)));
}

int32_t PropertyBag::ReadInt32(const std::string& key, int32_t defaultValue) const {
    return ToInt32(AsNumber(ReadProperty(key, defaultValue)));
}

bool PropertyBag::ReadBool(const std::string& key, bool defaultValue) const {
    const PropertyValue v = ReadProperty(key, defaultValue);
    if (auto s = std::get_if<std::string>(&v)) {
        if (EqualsInsensitive(*s, "True")) return true;
        if (EqualsInsensitive(*s, "False")) return false;
    }
    return AsNumber(v) != 0;
}

float PropertyBag::ReadSingle(const std::string& key, float defaultValue) const {
    return ToSingle(AsNumber(ReadProperty(key, defaultValue)));
}

double PropertyBag::ReadDouble(const std::string& key, double defaultValue) const {
    return AsNumber(ReadProperty(key, defaultValue));
}

std::string PropertyBag::ReadText(const std::string& key, const std::string& defaultValue) const {
    const PropertyValue v = ReadProperty(key, defaultValue);
    if (auto s = std::get_if<std::string>(&v)) return *s;
    if (auto b = std::get_if<bool>(&v)) return *b ? "True" : "False";
    if (auto f = std::get_if<float>(&v)) return NumberToText(SingleAsDouble(*f), CurrentSettings());
    if (auto n = NumericValue(v)) return NumberToText(*n, CurrentSettings());
    throw Error::TypeMismatch();  // a font
}

Font PropertyBag::ReadFont(const std::string& key, const Font& defaultValue) const {
    const PropertyValue v = ReadProperty(key, defaultValue);
    if (auto f = std::get_if<Font>(&v)) return *f;
    throw Error::TypeMismatch();
}

// --- the store in memory ---

PropertyValue MemoryPropertyBag::ReadProperty(const std::string& key, const PropertyValue& defaultValue) const {
    auto it = index_.find(LowerAscii(key));
    return it == index_.end() ? defaultValue : entries_[it->second].value;
}

void MemoryPropertyBag::WriteProperty(const std::string& key, const PropertyValue& value,
                                      const PropertyValue& defaultValue) {
    if (PropertyValuesEqual(value, defaultValue)) Remove(key);
    else Set(key, value);
}

bool MemoryPropertyBag::Has(std::string_view key) const { return index_.count(LowerAscii(key)) != 0; }

void MemoryPropertyBag::Set(const std::string& key, PropertyValue value) {
    auto [it, added] = index_.try_emplace(LowerAscii(key), entries_.size());
    if (!added) {
        entries_[it->second].value = std::move(value);
        return;
    }
    try {
        entries_.push_back(PropertyEntry{key, std::move(value)});
    } catch (...) {
        index_.erase(it);  // the index never names an entry that is not there
        throw;
    }
}

bool MemoryPropertyBag::Remove(std::string_view key) {
    auto it = index_.find(LowerAscii(key));
    if (it == index_.end()) return false;
    const size_t position = it->second;
    index_.erase(it);
    entries_.erase(entries_.begin() + static_cast<std::ptrdiff_t>(position));
    for (auto& [lowered, at] : index_) {
        if (at > position) --at;
    }
    return true;
}

void MemoryPropertyBag::Clear() {
    entries_.clear();
    index_.clear();
}

bool MemoryPropertyBag::operator==(const MemoryPropertyBag& other) const {
    if (entries_.size() != other.entries_.size()) return false;
    for (size_t i = 0; i < entries_.size(); ++i) {
        if (entries_[i].key != other.entries_[i].key) return false;
        if (!SameStoredValue(entries_[i].value, other.entries_[i].value)) return false;
    }
    return true;
}

}  // namespace TabulonLib12
