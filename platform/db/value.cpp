#include "value.h"

#include <charconv>
#include <type_traits>

#include "platform/runtime/conversions.h"

namespace TabulonLib12 {

std::string Value::ToText(const SystemSettings& settings) const {
    return std::visit(
        [&settings](const auto& v) -> std::string {
            using T = std::decay_t<decltype(v)>;
            if constexpr (std::is_same_v<T, Null>) {
                return {};
            } else if constexpr (std::is_same_v<T, bool>) {
                return v ? "True" : "False";
            } else if constexpr (std::is_same_v<T, int64_t>) {
                // Whole numbers keep every digit: a 64-bit key must not turn into an exponent.
                char buffer[24];
                auto result = std::to_chars(buffer, buffer + sizeof buffer, v);
                return std::string(buffer, result.ptr);
            } else if constexpr (std::is_same_v<T, double>) {
                return NumberToText(v, settings);
            } else if constexpr (std::is_same_v<T, std::string>) {
                return v;
            } else if constexpr (std::is_same_v<T, DateTime>) {
                return DateToText(v, settings);
            } else {
                static_assert(std::is_same_v<T, Blob>);
                return std::string(v.begin(), v.end());
            }
        },
        v_);
}

}  // namespace TabulonLib12
