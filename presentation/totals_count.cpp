#include "presentation/totals_count.h"

#include "grid/values.h"

namespace TabulonLib12 {

TotalsAndCount::TotalsAndCount(Label& labelTot, Label& labelCount) : labelTot_(labelTot), labelCount_(labelCount) {}

void TotalsAndCount::ShowCount(int32_t records) {
    labelCount_.setCaption(testoCount_ + " " + DecimalText(records));
    labelCount_.setVisible(!testoCount_.empty());
}

void TotalsAndCount::PlaceCount(float top) { labelCount_.setTop(top); }

void TotalsAndCount::RidisegnaTotali() {}

}  // namespace TabulonLib12
