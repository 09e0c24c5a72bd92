#include "presentation/totals_count.h"

#include <algorithm>

#include "grid/conditions.h"
#include "grid/values.h"
#include "platform/runtime/conversions.h"
#include "platform/runtime/settings.h"
#include "platform/runtime/steps.h"

namespace TabulonLib12 {

namespace {

// A total runs 400 twips beyond its column into the neighbour's room, so that a wide sum is not
// cut: to the right for a left-aligned column, to the left for a right-aligned one.
constexpr float kTotalOverhang = 400;

}  // namespace

TotalsAndCount::TotalsAndCount(Label& labelTot, Label& labelCount, const CellGrid& fg, const ColumnDefinitions& columns,
                               const std::vector<float>& totals)
    : labelTot_(labelTot), labelCount_(labelCount), fg_(fg), columns_(columns), totals_(totals) {}

void TotalsAndCount::ShowCount(int32_t records) {
    labelCount_.setCaption(testoCount_ + " " + DecimalText(records));
    labelCount_.setVisible(!testoCount_.empty());
}

void TotalsAndCount::PlaceCount(float top) { labelCount_.setTop(top); }

void TotalsAndCount::RidisegnaTotali() {
    Steps steps;  // every failure is dropped, and none is left behind
    Label& first = labelTot_(0);
    steps([&] { first.setTop(labelCount_.Top()); });
    std::vector<int16_t> loaded;
    for (const auto& [index, item] : labelTot_.Items())
        if (index != 0) loaded.push_back(index);
    for (int16_t index : loaded) steps([&] { labelTot_.Unload(index); });

    const int32_t columns = std::min<int32_t>(fg_.Cols(), INT16_MAX);
    for (int32_t i = 0; i < columns; ++i) {
        const auto index = static_cast<int16_t>(i);
        steps([&] { first.setLeft(0); });
        if (i > 0) steps([&] { labelTot_.Load(index); });
        if (!labelTot_.Exists(index)) continue;
        Label& item = labelTot_(index);
        const int32_t width = fg_.ColWidth(i);
        if (width == 0 || ColumnValue(columns_.MostraTotCol, i) != 1) {
            item.setVisible(false);
        } else {
            item.setVisible(true);
            steps([&] {
                if (i >= static_cast<int32_t>(totals_.size())) throw Error::OutOfBounds();
                const std::string sum = NumberToText(static_cast<double>(totals_[static_cast<size_t>(i)]), CurrentSettings());
                item.setCaption(FormattaValore(columns_.Formato[static_cast<size_t>(i)], sum));
            });
        }
        steps([&] { item.setTop(first.Top()); });
        steps([&] { item.ZOrder(0); });
        if (!columns_.Has(i)) continue;  // no alignment to read: the placement is dropped
        const int16_t alignment = columns_.ColAlignment[static_cast<size_t>(i)];
        steps([&] { item.setAlignment(alignment); });
        const float x = static_cast<float>(fg_.ColPos(i));
        const float w = static_cast<float>(width);
        steps([&] {
            switch (alignment) {
                case 0:
                    item.setLeft(x);
                    item.setWidth(w + kTotalOverhang);
                    break;
                case 1:
                    item.setLeft(x - kTotalOverhang);
                    item.setWidth(w + kTotalOverhang);
                    break;
                default:
                    item.setLeft(x);
                    item.setWidth(w);
                    break;
            }
        });
    }
}

std::string TotalsAndCount::StringaTotCol(const ColumnDefinitions& columns) {
    std::string list;
    for (int16_t i = 0; i < columns.Count(); ++i) {
        if (columns.MostraTotCol[static_cast<size_t>(i)] == 0) continue;
        if (!list.empty()) list += ',';
        list += DecimalText(i);
    }
    return list;
}

}  // namespace TabulonLib12
