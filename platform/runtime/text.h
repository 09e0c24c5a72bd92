#pragma once
// Small text vocabulary shared by every layer: comparisons without regard to case, and the
// comma-separated lists that the control keeps its column choices and keys in. The case rules
// are ASCII's: names, keywords and digit lists are all the control compares this way.
#include <cstddef>
#include <string>
#include <string_view>

namespace TabulonLib12 {

char LowerAscii(char c);
std::string LowerAscii(std::string_view text);
bool EqualsInsensitive(std::string_view a, std::string_view b);
bool StartsWithInsensitive(std::string_view text, std::string_view prefix);

// Whether the bytes are well-formed UTF-8: no stray continuation byte, no overlong form, no
// surrogate, nothing beyond U+10FFFF, no sequence cut short.
bool IsValidUtf8(std::string_view text);

// Calls `piece(text)` for every piece of `list` between separators, in order, empty pieces
// included; an empty list is one empty piece. Stops early when `piece` answers true, and then
// answers true itself.
template <class F>
bool ForEachPiece(std::string_view list, char separator, F&& piece) {
    size_t start = 0;
    while (true) {
        const size_t end = list.find(separator, start);
        const std::string_view item = list.substr(start, end == std::string_view::npos ? std::string_view::npos : end - start);
        if (piece(item)) return true;
        if (end == std::string_view::npos) return false;
        start = end + 1;
    }
}

// Whether the comma-separated `list` holds `item` as a whole piece, without regard to case.
// An empty item or an empty list holds nothing.
bool ListHolds(std::string_view list, std::string_view item);

// The number of pieces of `list` between separators (an empty list is one empty piece).
size_t PieceCount(std::string_view list, char separator);

}  // namespace TabulonLib12
