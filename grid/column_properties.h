#pragma once
// The per-column properties of the control, declared once. Every column array, the accessors,
// the property store and the design page derive from this one table, so a property's name, type
// and defaults cannot disagree between them.
//
// X(Name, Type, NewInstance, Added, StoreKind, PageCell), in the order in which the property
// store writes a column's keys:
//   Name        the property, the array and the base word of its store key ("Intestazione0");
//   Type        the element type;
//   NewInstance column 0 of a new instance, and the store's default (ColsWidth excepted: its
//               default is the control's LarghezzaColonnaDefault);
//   Added       a column added by a write of Cols (its Formato is empty, on purpose);
//   StoreKind   how the store keeps the value;
//   PageCell    the cell of the design page's working table that holds it, -1 for none.
#include <cstdint>
#include <string>
#include <vector>

#include "platform/runtime/colour.h"

namespace TabulonLib12 {

enum class StoreKind { Text, Int16, Byte, Int32, Boolean };

// Truth values as the control keeps them, 16 bits: True -1, False 0.
inline constexpr int16_t VbTrue = -1;
inline constexpr int16_t VbFalse = 0;

#define TABULON_COLUMN_PROPERTIES(X)                                                    \
    X(Intestazione, std::string, "", "", StoreKind::Text, 0)                            \
    X(TestoScelta, std::string, "", "", StoreKind::Text, 22)                            \
    X(ColsWidth, int16_t, 1000, 1000, StoreKind::Int16, 1)                              \
    X(ColAlignment, int16_t, 0, 0, StoreKind::Int16, 9)                                 \
    X(Ordinamento, std::string, "", "", StoreKind::Text, 2)                             \
    X(Formato, std::string, "Nessuno", "", StoreKind::Text, 3)                          \
    X(CampoQuery, std::string, "", "", StoreKind::Text, 4)                              \
    X(ImmagineA, int16_t, 0, 0, StoreKind::Int16, 6)                                    \
    X(ImmagineB, int16_t, 0, 0, StoreKind::Int16, 7)                                    \
    X(ColonnaOpzionale, uint8_t, 0, 0, StoreKind::Byte, 18)                             \
    X(Condizione, std::string, "", "", StoreKind::Text, 5)                              \
    X(OperatoreCondizionale, std::string, "", "", StoreKind::Text, 8)                   \
    X(ToolTT, std::string, "", "", StoreKind::Text, 10)                                 \
    X(ToolTTvero, std::string, "", "", StoreKind::Text, 14)                             \
    X(ToolTTfalso, std::string, "", "", StoreKind::Text, 15)                            \
    X(IsIperText, uint8_t, 0, 0, StoreKind::Byte, 12)                                   \
    X(IperTextIndex, int16_t, 0, 0, StoreKind::Int16, 13)                               \
    X(ColonnaForeColor, int16_t, 0, 0, StoreKind::Int16, 19)                            \
    X(ColonnaImmagine, int16_t, 0, 0, StoreKind::Int16, 21)                             \
    X(KeyID, std::string, "", "", StoreKind::Text, 11)                                  \
    X(TipoCampo, int16_t, 10, 0, StoreKind::Int16, -1)                                  \
    X(BackColorCol, Colour, 0xFFFFFF, 0xFFFFFF, StoreKind::Int32, 16)                   \
    X(MostraBarraVert, int16_t, VbFalse, VbFalse, StoreKind::Boolean, 17)               \
    X(MostraTotCol, uint8_t, 0, 0, StoreKind::Byte, 20)

// The column definitions: one array per property of the table, all of the same length (the
// control's Cols), zero-based. TipoCampoRilevato, the field type a load found, goes with them
// but is never stored.
struct ColumnDefinitions {
#define TABULON_COLUMN_ARRAY(Name, Type, ...) std::vector<Type> Name;
    TABULON_COLUMN_PROPERTIES(TABULON_COLUMN_ARRAY)
#undef TABULON_COLUMN_ARRAY
    std::vector<std::string> TipoCampoRilevato;

    int16_t Count() const { return static_cast<int16_t>(Intestazione.size()); }
    bool Has(int64_t index) const { return index >= 0 && index < static_cast<int64_t>(Intestazione.size()); }

    // Every array to `n` elements, keeping contents; added columns take the table's Added values.
    void Resize(int16_t n);
    // Every array to `n` elements, keeping contents; added elements are zero or empty.
    void ResizePlain(int16_t n);
    // One column with the new-instance values.
    void ResetToNewInstance();
};

// Reads an element of a column array; a missing index answers the type's zero or empty text.
template <class T>
T ColumnValue(const std::vector<T>& array, int64_t index) {
    return index >= 0 && index < static_cast<int64_t>(array.size()) ? array[static_cast<size_t>(index)] : T{};
}

// Writes an element of a column array; a missing index is skipped.
template <class T, class V>
void SetColumnValue(std::vector<T>& array, int64_t index, V&& value) {
    if (index >= 0 && index < static_cast<int64_t>(array.size())) array[static_cast<size_t>(index)] = std::forward<V>(value);
}

}  // namespace TabulonLib12
