#include "grid/values.h"

#include <charconv>
#include <cmath>

#include "platform/runtime/conversions.h"
#include "platform/runtime/error.h"
#include "platform/runtime/rounding.h"
#include "platform/runtime/settings.h"
#include "platform/runtime/text.h"

namespace TabulonLib12 {

double ValoreNumerico(std::string_view text) {
    if (text.empty()) return 0.0;
    return ParseNumber(text, CurrentSettings()).value_or(0.0);
}

double ValoreNumerico(const Value& v) { return NumericValue(v, CurrentSettings()); }

std::string ValoreTesto(const Value& v) { return v.ToText(CurrentSettings()); }

Colour ColoreDaTesto(std::string_view text) {
    if (text.empty()) return 0xFFFFFF;
    if (PieceCount(text, ',') != 3) return 0;
    // Each part is read as a number and taken whole, ties to even; a part too large for a whole
    // number gives 0 rather than a wrapped colour.
    int parts[3] = {0, 0, 0};
    size_t n = 0;
    ForEachPiece(text, ',', [&](std::string_view piece) {
        double v = 0;
        try {
            v = Val(piece);
        } catch (const Error&) {
        }
        parts[n++] = std::fabs(v) < 2147483647.0 ? ToInt32(v) : 0;
        return false;
    });
    return Rgb(parts[0], parts[1], parts[2]);
}

std::string AssembleQuery(const std::string& query, const std::string& orderTerm, bool descending) {
    if (orderTerm.empty()) return query;
    return query + " ORDER BY " + orderTerm + (descending ? " DESC" : "");
}

std::string ConnectText(const std::string& password) { return password.empty() ? std::string() : "; pwd=" + password; }

std::string DecimalText(int64_t n) {
    char buffer[24];
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, n);
    return std::string(buffer, result.ptr);
}

}  // namespace TabulonLib12
