#include "platform/host/property_bag.h"

#include <cmath>

#include "platform/runtime/conversions.h"
#include "platform/runtime/error.h"
#include "platform/runtime/rounding.h"
#include "platform/runtime/settings.h"

namespace TabulonLib12 {

namespace {

double AsNumber(const PropertyValue& v) {
    if (auto i = std::get_if<int32_t>(&v)) return *i;
    if (auto b = std::get_if<bool>(&v)) return *b ? -1 : 0;
    if (auto d = std::get_if<double>(&v)) return *d;
    if (auto s = std::get_if<std::string>(&v)) {
        if (auto n = ParseNumber(*s, CurrentSettings())) return *n;
    }
    throw Error::TypeMismatch();
}

}  // namespace

int32_t PropertyBag::ReadInt(const std::string& key, int32_t defaultValue) const {
    return ToInt32(AsNumber(ReadProperty(key, defaultValue)));
}

bool PropertyBag::ReadBool(const std::string& key, bool defaultValue) const {
    const PropertyValue v = ReadProperty(key, defaultValue);
    if (auto s = std::get_if<std::string>(&v)) {
        if (*s == "True") return true;
        if (*s == "False") return false;
    }
    return AsNumber(v) != 0;
}

std::string PropertyBag::ReadText(const std::string& key, const std::string& defaultValue) const {
    const PropertyValue v = ReadProperty(key, defaultValue);
    if (auto s = std::get_if<std::string>(&v)) return *s;
    if (auto b = std::get_if<bool>(&v)) return *b ? "True" : "False";
    if (std::holds_alternative<Font>(v)) throw Error::TypeMismatch();
    return NumberToText(AsNumber(v), CurrentSettings());
}

Font PropertyBag::ReadFont(const std::string& key, const Font& defaultValue) const {
    const PropertyValue v = ReadProperty(key, defaultValue);
    if (auto f = std::get_if<Font>(&v)) return *f;
    throw Error::TypeMismatch();
}

PropertyValue MemoryPropertyBag::ReadProperty(const std::string& key, const PropertyValue& defaultValue) const {
    auto it = values_.find(key);
    return it == values_.end() ? defaultValue : it->second;
}

void MemoryPropertyBag::WriteProperty(const std::string& key, const PropertyValue& value,
                                      const PropertyValue& defaultValue) {
    if (value == defaultValue) values_.erase(key);
    else values_[key] = value;
}

}  // namespace TabulonLib12
