#include <type_traits>
#include <variant>

#include "platform/db/database.h"
#include "platform/runtime/conversions.h"

namespace TabulonLib12 {

double NumericValue(const Value& v, const SystemSettings& settings) {
    return std::visit(
        [&](const auto& x) -> double {
            using T = std::decay_t<decltype(x)>;
            if constexpr (std::is_same_v<T, bool>) return x ? -1.0 : 0.0;
            else if constexpr (std::is_same_v<T, int64_t>) return static_cast<double>(x);
            else if constexpr (std::is_same_v<T, double>) return x;
            else if constexpr (std::is_same_v<T, std::string>) return ParseNumber(x, settings).value_or(0.0);
            else return 0.0;
        },
        v.storage());
}

double Recordset::FieldNumber(int index) const { return NumericValue(FieldValue(index), CurrentSettings()); }

}  // namespace TabulonLib12
