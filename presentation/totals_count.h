#pragma once
// The strip under the grid: one total per column (LabelTOT, transparent labels, one loaded per
// column of the surface) and the row count (LabelCount), whose caption is TestoCount, a blank
// and the number of records loaded. It owns those labels and TestoCount; the sums themselves are
// the load's (the control's TotaliColonna, one single per column).
#include <cstdint>
#include <string>
#include <vector>

#include "grid/column_properties.h"
#include "platform/ui/cell_grid.h"
#include "platform/ui/control_array.h"

namespace TabulonLib12 {

class TotalsAndCount {
public:
    TotalsAndCount(Label& labelTot, Label& labelCount, const CellGrid& fg, const ColumnDefinitions& columns,
                   const std::vector<float>& totals);

    const std::string& TestoCount() const { return testoCount_; }
    void setTestoCount(const std::string& text) { testoCount_ = text; }
    // The count label shows TestoCount, a blank and the number; it is hidden while TestoCount
    // is empty.
    void ShowCount(int32_t records);
    void PlaceCount(float top);

    // Lays the totals out anew on the count's line: every item but 0 unloaded, then one item per
    // column of the surface, shown with its column's formatted sum when the column has a width
    // and MostraTotCol is exactly 1, and placed by the column's alignment: a left total from the
    // column's left, 400 twips wider than the column, a right one 400 twips before it and as
    // wide, a centred one over the column alone. Every failing statement is dropped.
    void RidisegnaTotali();

    // The columns with MostraTotCol not 0, in decimal, joined by commas.
    static std::string StringaTotCol(const ColumnDefinitions& columns);

private:
    ControlArray<Label> labelTot_;
    Label& labelCount_;
    const CellGrid& fg_;
    const ColumnDefinitions& columns_;
    const std::vector<float>& totals_;
    std::string testoCount_;
};

}  // namespace TabulonLib12
