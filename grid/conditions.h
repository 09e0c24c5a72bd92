#pragma once
// The two evaluators that turn store text into what a cell shows: whether a column's condition
// holds for a value (which picks the picture and the tooltip of a condition column), and the
// display text of a value by the column's format key. Neither touches any state.
#include <string>
#include <string_view>

namespace TabulonLib12 {

// Whether `v` (the cell, always the left side) compared by `op` with `condition` holds. The
// class of the comparison comes from `typeCode`, the field's type found at load time as decimal
// text: 1 truth, 2-4 integer, 5-7 real, 8 date, 10 text (exact, case-sensitive, "=" and "<>"
// only); any other type, and an operator outside the six, answer false. A side that does not
// convert to the class throws a type mismatch.
bool ValutaCondizione(std::string_view op, std::string_view condition, std::string_view v, std::string_view typeCode);

// The display text of `v` by the format key: "Nessuno" as it is, "Data", "Ora", "Valuta",
// "Single", "Data Breve", "Numeri_4_Dec", "Numerico"; the empty text for an empty value and for
// any other key (an empty key included).
std::string FormattaValore(std::string_view format, std::string_view v);

}  // namespace TabulonLib12
