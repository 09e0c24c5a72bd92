#pragma once
// The cells of the column editor's working table, derived from the one table of per-column
// properties (grid/column_properties.h, its PageCell): which property each cell holds, how the
// page turns the control's value into the cell's text when it loads, and how it turns the text
// back into the value when it applies. Cell order is the order of both: the load reads the
// getters and the apply calls the setters from cell 0 up.
//
// Texts of the cells, by the property's kind:
//   texts                       as they stand; Formato shows "Nessuno" for an empty format
//   ColsWidth                   the stored (designed) width, also of a column the surface hides;
//                               back from the cell's number rounded to 16 bits
//   ColAlignment                the word of the alignment list ("Sinistra", "Destra", "Centro")
//   ImmagineA                   its decimal; back as the cell's own 16-bit value (a text that is
//                               no number fails)
//   other 16-bit numbers        their decimal; back from the cell's number (0 for no number)
//                               rounded to 16 bits
//   bytes                       their decimal; back as the cell's own byte value, MostraTotCol
//                               from the cell's number (0 for no number)
//   BackColorCol                the colour's decimal; back as the cell's 32 bits
//   MostraBarraVert             "True" or "False"; back as the cell's truth value
// A failing conversion throws (Error::TypeMismatch, Error::Overflow).
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "grid/column_properties.h"

namespace TabulonLib12 {

class Tabulon12;

namespace detail {
struct PageCellEntry {
    std::string_view property;
    int cell;
};
#define TABULON_PAGE_CELL_ENTRY(Name, Type, NewInstance, Added, Kind, PageCell) PageCellEntry{#Name, PageCell},
inline constexpr PageCellEntry kPageCellEntries[] = {TABULON_COLUMN_PROPERTIES(TABULON_PAGE_CELL_ENTRY)};
#undef TABULON_PAGE_CELL_ENTRY

constexpr int PageCellCount() {
    int last = -1;
    for (const auto& e : kPageCellEntries) last = e.cell > last ? e.cell : last;
    return last + 1;
}

// Every cell from 0 to the last held by exactly one property.
constexpr bool PageCellsAreContiguous() {
    for (int cell = 0; cell < PageCellCount(); ++cell) {
        int holders = 0;
        for (const auto& e : kPageCellEntries) holders += e.cell == cell ? 1 : 0;
        if (holders != 1) return false;
    }
    return true;
}
}  // namespace detail

// The cells of a row of the working table.
inline constexpr int kPageCellCount = detail::PageCellCount();
static_assert(detail::PageCellsAreContiguous(), "each cell of the working table holds one property");

// The cell that holds a property, -1 for a property the page does not show (TipoCampo).
constexpr int PageCellOf(std::string_view property) {
    for (const auto& e : detail::kPageCellEntries)
        if (e.property == property) return e.cell;
    return -1;
}

struct PageCellBinding {
    int cell;
    std::string_view property;
    // The control's value of column `index` as the cell's text.
    std::function<std::string(const Tabulon12&, int16_t index)> read;
    // The cell's text written into column `index` of the control through its setter.
    std::function<void(Tabulon12&, int16_t index, const std::string& text)> write;
};

// The bindings of every cell, in cell order (element i holds cell i).
const std::vector<PageCellBinding>& PageCellBindings();

}  // namespace TabulonLib12
