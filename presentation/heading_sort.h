#pragma once
// Sorting by heading: a click on a sortable heading keeps an ORDER BY term for the load and
// walks through ascending, descending and no sort. The component owns the sort's state: the
// term, its direction, the column of the active sort and the colour of its caption.
#include <cstdint>
#include <string>

#include "platform/runtime/colour.h"

namespace TabulonLib12 {

class HeadingSort {
public:
    const std::string& CampoOrdinamentoAttivo() const { return campo_; }
    bool OrdinamentoDiscendente() const { return discendente_; }
    int16_t IndiceordinamentoAttivo() const { return indice_; }
    // The caption colour of the active sort column.
    Colour ForeColorOrd() const { return foreColorOrd_; }
    void setForeColorOrd(Colour c) { foreColorOrd_ = c; }
    // Sets the term the load puts behind " ORDER BY " (empty: no sort), and its direction.
    void SetOrder(const std::string& term, bool descending) {
        campo_ = term;
        discendente_ = descending;
    }

private:
    std::string campo_;
    bool discendente_ = false;
    int16_t indice_ = -1;
    Colour foreColorOrd_ = 0x0000FF;
};

}  // namespace TabulonLib12
