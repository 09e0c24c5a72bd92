// ValutaCondizione: whether the condition of a column holds for a cell value. The class of the
// comparison comes from the field type found at load time; the cell is always the left side.
#include <cmath>
#include <strings.h>

#include "grid/control_state.h"
#include "platform/runtime/conversions.h"
#include "platform/runtime/datetime.h"
#include "platform/runtime/rounding.h"
#include "platform/runtime/settings.h"

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
    const std::string s(text);
    if (strcasecmp(s.c_str(), "true") == 0) return true;
    if (strcasecmp(s.c_str(), "false") == 0) return false;
    return ToReal(text) != 0.0;
}

template <class T>
bool Compare(const std::string& op, const T& left, const T& right) {
    if (op == "=") return left == right;
    if (op == "<>") return left != right;
    if (op == "<") return left < right;
    if (op == ">") return left > right;
    if (op == "<=") return left <= right;
    if (op == ">=") return left >= right;
    return false;
}

}  // namespace

bool Tabulon12::Impl::ValutaCondizione(int16_t c, std::string_view v, std::string_view t) const {
    if (!col.Has(c)) throw Error::OutOfBounds();
    const std::string& op = col.OperatoreCondizionale[static_cast<size_t>(c)];
    const std::string& right = col.Condizione[static_cast<size_t>(c)];
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
            return equality && Compare(op, std::string(v), right);
        case CompareClass::None:
            return false;
    }
    return false;
}

}  // namespace TabulonLib12
