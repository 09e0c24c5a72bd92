#pragma once
// The host's property store: flat keys with typed values, in which a control saves its design
// and from which it restores it.
//
// Kinds. Every value is held with the kind the store keeps it as, and the kind is saved with it:
//   Byte     uint8_t       0 to 255
//   Integer  int16_t       16-bit whole numbers (counts, sizes, enumerations)
//   Long     int32_t       32-bit whole numbers; colours are Longs in 0x00BBGGRR, and a value with
//                          the top bit set (a negative Long) is a system colour
//   Boolean  bool          True and False; as a number True is -1 and False is 0
//   Single   float
//   Double   double
//   Text     std::string   UTF-8
//   Font     Font          name, size, bold, italic, underline
//
// Writing and reading defaults. ReadProperty answers the held value, with its kind, or the
// default the reader passes. WriteProperty records the value and leaves the key out when the value
// equals the default the writer passes (PropertyValuesEqual). The two defaults are independent:
// a value written equal to its write default and read with another default reads as the other
// one. Saved designs depend on that difference; it is part of the format, not a defect.
//
// Keys. Keys are compared without regard to ASCII case ("Cols", "COLS" and "cols" are one key),
// as the hosts' stores compare them. A key keeps the spelling it was first written with; a later
// write under another spelling changes the value, not the spelling.
//
// Typed reads. ReadByte, ReadInt16, ReadInt32, ReadBool, ReadSingle, ReadDouble, ReadText and
// ReadFont read a key (or the default) and convert the held value to the asked type:
//   - a number of any kind converts to any numeric type; whole types round half to even; a
//     value outside the target's range fails with Error::Overflow() (6): 70000 read as 16 bits,
//     -1 or 256 read as a byte;
//   - a Boolean reads as the number -1 or 0, and as the text "True" or "False";
//   - a Text reads as a number when it passes the numeric test under the system's settings
//     ("12" is 12), and otherwise fails with Error::TypeMismatch() (13): "abc" read as a number;
//     as a truth value "True" and "False" (in any case) also count;
//   - a number reads as text in its general form under the system's settings (a Single with the
//     shortest digits that give back the same Single: 0.1f reads as "0.1");
//   - a Font reads only as a Font, and only a Font reads as one: anything else is a mismatch.
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <variant>
#include <vector>

#include "platform/ui/graphics.h"

namespace TabulonLib12 {

// A stored value. The alternatives are in the order of PropertyKind.
using PropertyValue = std::variant<uint8_t, int16_t, int32_t, bool, float, double, std::string, Font>;

// The kind a value is kept as; the numbers are the indices of PropertyValue's alternatives.
enum class PropertyKind : uint8_t { Byte, Integer, Long, Boolean, Single, Double, Text, Font };

PropertyKind KindOf(const PropertyValue& value);
// The kind's name as files and messages spell it: "Byte", "Integer", "Long", "Boolean", "Single",
// "Double", "Text", "Font".
std::string_view PropertyKindName(PropertyKind kind);
// The kind of a name, spelled exactly as PropertyKindName spells it; nothing for another text.
std::optional<PropertyKind> PropertyKindFromName(std::string_view name);

// Whether a value equals a default, the test WriteProperty makes: numbers (Byte, Integer, Long,
// Single, Double, and Boolean as -1 or 0) compare by their numeric values whatever their kinds
// (a Byte 0 equals an Integer 0 and a Boolean False; a Single 0.1f does not equal the Double
// 0.1, which is another number; NaN equals nothing); texts compare exactly, byte for byte; fonts
// compare by all their members. A text never equals a number, nor a font anything but a font.
bool PropertyValuesEqual(const PropertyValue& a, const PropertyValue& b);

// Whether two values have the same kind and the same value, NaN matching NaN: the comparison of
// stored values (a saved Byte 0 is not a saved Integer 0).
bool SameStoredValue(const PropertyValue& a, const PropertyValue& b);

class PropertyBag {
public:
    virtual ~PropertyBag() = default;
    // The held value with its kind, or `defaultValue` when the key is absent.
    virtual PropertyValue ReadProperty(const std::string& key, const PropertyValue& defaultValue) const = 0;
    // Records `value` under `key`, or leaves the key out when PropertyValuesEqual(value,
    // defaultValue) (removing a value held before).
    virtual void WriteProperty(const std::string& key, const PropertyValue& value, const PropertyValue& defaultValue) = 0;

    // Typed reads (see the file's opening): the held value or the default, converted.
    uint8_t ReadByte(const std::string& key, uint8_t defaultValue) const;
    int16_t ReadInt16(const std::string& key, int16_t defaultValue) const;
    int32_t ReadInt32(const std::string& key, int32_t defaultValue) const;
    bool ReadBool(const std::string& key, bool defaultValue) const;
    float ReadSingle(const std::string& key, float defaultValue) const;
    double ReadDouble(const std::string& key, double defaultValue) const;
    std::string ReadText(const std::string& key, const std::string& defaultValue) const;
    Font ReadFont(const std::string& key, const Font& defaultValue) const;
};

// One key of a store and its value.
struct PropertyEntry {
    std::string key;  // as first written
    PropertyValue value;
};

// The property store in memory, in the order keys were first written: that order is part of a
// saved design and a form file keeps it. A key left out by a write of its default loses its
// place; written again later, it goes to the end.
class MemoryPropertyBag final : public PropertyBag {
public:
    PropertyValue ReadProperty(const std::string& key, const PropertyValue& defaultValue) const override;
    void WriteProperty(const std::string& key, const PropertyValue& value, const PropertyValue& defaultValue) override;

    // Whether the store holds the key (in any case).
    bool Has(std::string_view key) const;
    // The held keys and values, in the order keys were first written.
    const std::vector<PropertyEntry>& Values() const { return entries_; }
    // Holds `value` under `key` whatever it equals (no default): a held key keeps its place and
    // spelling, a new one goes to the end.
    void Set(const std::string& key, PropertyValue value);
    // Removes the key; answers whether it was held.
    bool Remove(std::string_view key);
    void Clear();

    // Two stores are equal when they hold the same keys, spelled alike, in the same order, with
    // values of the same kinds and values (SameStoredValue).
    bool operator==(const MemoryPropertyBag& other) const;

private:
    std::vector<PropertyEntry> entries_;
    std::unordered_map<std::string, size_t> index_;  // ASCII-lowered key -> position in entries_
};

}  // namespace TabulonLib12
