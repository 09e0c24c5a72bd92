#include "grid/column_properties.h"

namespace TabulonLib12 {

void ColumnDefinitions::Resize(int16_t n) {
    const size_t count = n < 0 ? 0 : static_cast<size_t>(n);
#define TABULON_RESIZE_ADDED(Name, Type, NewInstance, Added, ...) Name.resize(count, Type(Added));
    TABULON_COLUMN_PROPERTIES(TABULON_RESIZE_ADDED)
#undef TABULON_RESIZE_ADDED
    TipoCampoRilevato.resize(count);
}

void ColumnDefinitions::ResizePlain(int16_t n) {
    const size_t count = n < 0 ? 0 : static_cast<size_t>(n);
#define TABULON_RESIZE_PLAIN(Name, Type, ...) Name.resize(count, Type{});
    TABULON_COLUMN_PROPERTIES(TABULON_RESIZE_PLAIN)
#undef TABULON_RESIZE_PLAIN
    TipoCampoRilevato.resize(count);
}

void ColumnDefinitions::ResetToNewInstance() {
#define TABULON_RESET(Name, Type, NewInstance, ...) Name.assign(1, Type(NewInstance));
    TABULON_COLUMN_PROPERTIES(TABULON_RESET)
#undef TABULON_RESET
    TipoCampoRilevato.assign(1, std::string());
}

}  // namespace TabulonLib12
