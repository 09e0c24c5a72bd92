#include "grid/conditions.h"

#include "platform/runtime/conversions.h"
#include "platform/runtime/datetime.h"
#include "platform/runtime/error.h"
#include "platform/runtime/format.h"
#include "platform/runtime/rounding.h"
#include "platform/runtime/settings.h"
#include "platform/runtime/text.h"

namespace TabulonLib12 {

namespace {

enum class CompareClass { Truth, Integer, Real, Date, Text, None };

CompareClass ClassOf(std::string_view typeCode) {
    if (typeCode == "1") return CompareClass::Truth;
    if (typeCode == "2" || typeCode == "3" || typeCode == "4") return CompareClass::Integer;
    if (typeCode == "5" || typeCode == "6" || typeCode == "7") return CompareClass::Real;
    if (typeCode == "8") return CompareClass::Date;
    if (typeCode == "10") return CompareClass::Text;
    return CompareClass::None;
}

double ToReal(std::string_view text) {
    const auto v = ParseNumber(text, CurrentSettings());
    if (!v) throw Error::TypeMismatch();
    return *v;
}

double ToDateSerial(std::string_view text) {
    if (auto d = ParseDate(text, CurrentSettings())) return d->serial;
    if (auto v = ParseNumber(text, CurrentSettings())) return *v;  // a number is a day serial
    throw Error::TypeMismatch();
}

bool ToTruth(std::string_view text) {
    if (EqualsInsensitive(text, "true")) return true;
    if (EqualsInsensitive(text, "false")) return false;
    return ToReal(text) != 0.0;
}

template <class T>
bool Compare(std::string_view op, const T& left, const T& right) {
    if (op == "=") return left == right;
    if (op == "<>") return left != right;
    if (op == "<") return left < right;
    if (op == ">") return left > right;
    if (op == "<=") return left <= right;
    if (op == ">=") return left >= right;
    return false;
}

}  // namespace

bool ValutaCondizione(std::string_view op, std::string_view right, std::string_view v, std::string_view t) {
    const bool ordering = op == "<" || op == ">" || op == "<=" || op == ">=";
    const bool equality = op == "=" || op == "<>";
    if (!ordering && !equality) return false;
    switch (ClassOf(t)) {
        case CompareClass::Truth:
            return equality && Compare(op, ToTruth(v), ToTruth(right));
        case CompareClass::Integer:
            return Compare(op, ToInt32(ToReal(v)), ToInt32(ToReal(right)));
        case CompareClass::Real:
            return Compare(op, ToReal(v), ToReal(right));
        case CompareClass::Date:
            return Compare(op, ToDateSerial(v), ToDateSerial(right));
        case CompareClass::Text:
            return equality && Compare(op, v, right);
        case CompareClass::None:
            return false;
    }
    return false;
}

std::string FormattaValore(std::string_view format, std::string_view v) {
    return FormatByKey(v, format, CurrentSettings());
}

}  // namespace TabulonLib12
