#pragma once
// A field value as the database engines hand it out: Null, a whole number, a real, a text, a
// date, a truth value or binary data.
#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include "platform/runtime/datetime.h"
#include "platform/runtime/settings.h"

namespace TabulonLib12 {

struct Null {
    bool operator==(const Null&) const = default;
};
using Blob = std::vector<uint8_t>;

class Value {
public:
    using Storage = std::variant<Null, bool, int64_t, double, std::string, DateTime, Blob>;

    Value() = default;
    Value(Null) {}
    Value(bool v) : v_(v) {}
    Value(int v) : v_(int64_t{v}) {}
    Value(int64_t v) : v_(v) {}
    Value(double v) : v_(v) {}
    Value(std::string v) : v_(std::move(v)) {}
    Value(const char* v) : v_(std::string(v)) {}
    Value(DateTime v) : v_(v) {}
    Value(Blob v) : v_(std::move(v)) {}

    bool IsNull() const { return std::holds_alternative<Null>(v_); }
    const Storage& storage() const { return v_; }

    // The value's general text under the settings: numbers with the system's decimal
    // separator, dates in the system's short form, truth values "True"/"False", Null "".
    // Binary data is taken as bytes of text.
    std::string ToText(const SystemSettings& settings) const;

    bool operator==(const Value&) const = default;

private:
    Storage v_;
};

// A value as a number: whole and real numbers as they are, a truth value -1 or 0, a text that
// passes the numeric test under the settings its value; Null, the empty text, dates, binary
// data and any other text 0.
double NumericValue(const Value& v, const SystemSettings& settings);

// The field type codes that the conditions and the structure page use.
namespace FieldType {
inline constexpr int16_t Boolean = 1;
inline constexpr int16_t Byte = 2;
inline constexpr int16_t Integer = 3;
inline constexpr int16_t Long = 4;
inline constexpr int16_t Currency = 5;
inline constexpr int16_t Single = 6;
inline constexpr int16_t Double = 7;
inline constexpr int16_t Date = 8;
inline constexpr int16_t Text = 10;
inline constexpr int16_t LongBinary = 11;
inline constexpr int16_t Memo = 12;
inline constexpr int16_t Guid = 15;
}  // namespace FieldType

}  // namespace TabulonLib12
