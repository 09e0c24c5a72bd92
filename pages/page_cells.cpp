// The bindings of the working table's cells, generated from the per-column property table: the
// getter and setter of each property with a cell, and the conversion its kind calls for.
#include "pages/page_cells.h"

#include <algorithm>
#include <type_traits>

#include "control/tabulon12.h"
#include "pages/page_values.h"
#include "platform/runtime/rounding.h"

namespace TabulonLib12 {

namespace {

enum class Rule { Text, Format, Width, Alignment, WholeFromNumber, WholeFromText, ByteFromText, ByteFromNumber, Colour, Boolean };

constexpr Rule RuleOf(std::string_view property, StoreKind kind) {
    if (property == "Formato") return Rule::Format;
    if (property == "ColsWidth") return Rule::Width;
    if (property == "ColAlignment") return Rule::Alignment;
    if (property == "ImmagineA") return Rule::WholeFromText;
    if (property == "MostraTotCol") return Rule::ByteFromNumber;
    switch (kind) {
        case StoreKind::Text: return Rule::Text;
        case StoreKind::Int16: return Rule::WholeFromNumber;
        case StoreKind::Byte: return Rule::ByteFromText;
        case StoreKind::Int32: return Rule::Colour;
        case StoreKind::Boolean: return Rule::Boolean;
    }
    return Rule::Text;
}

template <class T>
std::string CellText(Rule rule, const Tabulon12& control, int16_t index, const T& value) {
    if constexpr (std::is_same_v<T, std::string>) {
        return rule == Rule::Format && value.empty() ? std::string("Nessuno") : value;
    } else if constexpr (std::is_same_v<T, bool>) {
        return BooleanText(value);
    } else if constexpr (std::is_same_v<T, Colour>) {
        return ColourText(value);
    } else {
        if (rule == Rule::Width) return std::to_string(control.ColsWidthMemorizzata(index));
        if (rule == Rule::Alignment) return NumeroInAllineamento(std::to_string(value));
        return std::to_string(value);
    }
}

template <class T>
T CellValue(Rule rule, const std::string& text) {
    if constexpr (std::is_same_v<T, std::string>) {
        return text;
    } else if constexpr (std::is_same_v<T, bool>) {
        return BooleanFromText(text);
    } else if constexpr (std::is_same_v<T, Colour>) {
        return ColourFromText(text);
    } else if constexpr (std::is_same_v<T, uint8_t>) {
        return rule == Rule::ByteFromNumber ? ByteFromNumber(ValoreNumericoTesto(text)) : ByteFromText(text);
    } else {
        static_assert(std::is_same_v<T, int16_t>);
        if (rule == Rule::Alignment) return AllineamentoInNumero(text);
        if (rule == Rule::WholeFromText) return IntegerFromText(text);
        return ToInt16(ValoreNumericoTesto(text));
    }
}

template <class C, auto Get, auto Set>
PageCellBinding Bind(std::string_view property, int cell, StoreKind kind) {
    using T = std::remove_cvref_t<decltype((std::declval<const C&>().*Get)(int16_t{}))>;
    const Rule rule = RuleOf(property, kind);
    PageCellBinding b;
    b.cell = cell;
    b.property = property;
    b.read = [rule](const Tabulon12& control, int16_t index) {
        return CellText<T>(rule, control, index, (control.*Get)(index));
    };
    b.write = [rule](Tabulon12& control, int16_t index, const std::string& text) {
        (control.*Set)(index, CellValue<T>(rule, text));
    };
    return b;
}

// A template so that the members of a property without a cell (and so without accessors on the
// control) are never named.
template <class C>
std::vector<PageCellBinding> MakeBindings() {
    std::vector<PageCellBinding> bindings;
#define TABULON_PAGE_BINDING(Name, Type, NewInstance, Added, Kind, PageCell) \
    if constexpr ((PageCell) >= 0) bindings.push_back(Bind<C, &C::Name, &C::set##Name>(#Name, PageCell, Kind));
    TABULON_COLUMN_PROPERTIES(TABULON_PAGE_BINDING)
#undef TABULON_PAGE_BINDING
    std::sort(bindings.begin(), bindings.end(), [](const auto& a, const auto& b) { return a.cell < b.cell; });
    return bindings;
}

}  // namespace

const std::vector<PageCellBinding>& PageCellBindings() {
    static const std::vector<PageCellBinding> bindings = MakeBindings<Tabulon12>();
    return bindings;
}

}  // namespace TabulonLib12
