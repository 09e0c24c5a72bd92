#include "grid/markers.h"

#include "grid/values.h"
#include "platform/runtime/conversions.h"
#include "platform/runtime/settings.h"

namespace TabulonLib12 {

void ClearMarkers(RowStore& store, int32_t markerColumn) {
    if (markerColumn < 0 || markerColumn > store.ColBound()) return;
    for (int32_t r = 0; r <= store.RowBound(); ++r) store.SetCell(r, markerColumn, "");
}

std::string PickedKeys(const RowStore& store, int32_t markerColumn) {
    std::string result;
    if (markerColumn < 0 || markerColumn > store.ColBound()) return result;
    const auto& settings = CurrentSettings();
    for (int32_t i = 0; i <= store.RowBound(); ++i) {
        if (store.Cell(i, markerColumn) != kPicked) continue;
        if (!result.empty()) result += ',';
        result += NumberToText(ValoreNumerico(store.Cell(i, 0)), settings);
    }
    return result;
}

}  // namespace TabulonLib12
