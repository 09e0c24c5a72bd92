#pragma once
// The host's property store: flat key/value pairs that save and restore a control's design.
// ReadProperty answers the held value or the given default; WriteProperty leaves the key out
// when the value equals the given default, so a value survives a save and a load only when
// both use the same default.
#include <cstdint>
#include <map>
#include <string>
#include <variant>

#include "platform/ui/graphics.h"

namespace TabulonLib12 {

// A stored value: whole numbers (16 and 32-bit values and colours alike), truth values,
// texts, reals and fonts.
using PropertyValue = std::variant<int32_t, bool, std::string, double, Font>;

class PropertyBag {
public:
    virtual ~PropertyBag() = default;
    virtual PropertyValue ReadProperty(const std::string& key, const PropertyValue& defaultValue) const = 0;
    virtual void WriteProperty(const std::string& key, const PropertyValue& value, const PropertyValue& defaultValue) = 0;

    // Typed reads: a held value of another kind converts where it can (a number held as text,
    // a truth value as -1/0), and fails with a type mismatch where it cannot.
    int32_t ReadInt(const std::string& key, int32_t defaultValue) const;
    bool ReadBool(const std::string& key, bool defaultValue) const;
    std::string ReadText(const std::string& key, const std::string& defaultValue) const;
    Font ReadFont(const std::string& key, const Font& defaultValue) const;
};

// A property store in memory, in key order; the hosts serialise it into their form files.
class MemoryPropertyBag final : public PropertyBag {
public:
    PropertyValue ReadProperty(const std::string& key, const PropertyValue& defaultValue) const override;
    void WriteProperty(const std::string& key, const PropertyValue& value, const PropertyValue& defaultValue) override;
    bool Has(const std::string& key) const { return values_.count(key) != 0; }
    const std::map<std::string, PropertyValue>& Values() const { return values_; }
    void Set(const std::string& key, PropertyValue value) { values_[key] = std::move(value); }

private:
    std::map<std::string, PropertyValue> values_;
};

}  // namespace TabulonLib12
