#include "platform/runtime/text.h"

#include <algorithm>

namespace TabulonLib12 {

char LowerAscii(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

std::string LowerAscii(std::string_view text) {
    std::string out(text);
    for (char& c : out) c = LowerAscii(c);
    return out;
}

bool EqualsInsensitive(std::string_view a, std::string_view b) {
    return a.size() == b.size() &&
           std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) { return LowerAscii(x) == LowerAscii(y); });
}

bool StartsWithInsensitive(std::string_view text, std::string_view prefix) {
    return text.size() >= prefix.size() && EqualsInsensitive(text.substr(0, prefix.size()), prefix);
}

bool ListHolds(std::string_view list, std::string_view item) {
    if (item.empty() || list.empty()) return false;
    return ForEachPiece(list, ',', [&](std::string_view piece) { return EqualsInsensitive(piece, item); });
}

size_t PieceCount(std::string_view list, char separator) {
    return static_cast<size_t>(std::count(list.begin(), list.end(), separator)) + 1;
}

}  // namespace TabulonLib12
