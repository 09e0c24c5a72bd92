#pragma once
// The multiple selection as the store keeps it: a marker per record in the store's column Cols,
// one beyond the last defined column. "1" means picked; "0" and "" both mean not picked.
#include <cstdint>
#include <string>
#include <string_view>

#include "grid/row_store.h"

namespace TabulonLib12 {

inline constexpr std::string_view kPicked = "1";

// Empties the marker of every record.
void ClearMarkers(RowStore& store, int32_t markerColumn);

// The keys of the picked records in store order, joined by commas: the general text of the
// number in column 0 of each. "" when none is picked or the store has no such column.
std::string PickedKeys(const RowStore& store, int32_t markerColumn);

}  // namespace TabulonLib12
