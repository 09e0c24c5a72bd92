#pragma once
// The strip under the grid: one total per column (LabelTOT, transparent labels loaded one per
// column of the surface) and the row count (LabelCount), whose caption is TestoCount, a blank
// and the number of records loaded. It owns those labels and TestoCount.
#include <cstdint>
#include <string>

#include "platform/ui/control_array.h"
#include "platform/ui/surface.h"

namespace TabulonLib12 {

class TotalsAndCount {
public:
    TotalsAndCount(Label& labelTot, Label& labelCount);

    const std::string& TestoCount() const { return testoCount_; }
    void setTestoCount(const std::string& text) { testoCount_ = text; }
    // The count label shows TestoCount and the number; it is hidden while TestoCount is empty.
    void ShowCount(int32_t records);
    void PlaceCount(float top);

    // Lays the totals out under their columns. The totals keep their designed state until
    // their layout is built.
    void RidisegnaTotali();

private:
    ControlArray<Label> labelTot_;
    Label& labelCount_;
    std::string testoCount_;
};

}  // namespace TabulonLib12
