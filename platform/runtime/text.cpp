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

bool IsValidUtf8(std::string_view text) {
    size_t i = 0;
    while (i < text.size()) {
        const auto byte = [&](size_t k) { return static_cast<unsigned char>(text[k]); };
        const unsigned char lead = byte(i);
        if (lead < 0x80) {
            ++i;
            continue;
        }
        // The length of the sequence and the range of its second byte, which rules out the
        // overlong forms, the surrogates and what lies beyond U+10FFFF.
        size_t length = 0;
        unsigned char low = 0x80;
        unsigned char high = 0xBF;
        if (lead >= 0xC2 && lead <= 0xDF) {
            length = 2;
        } else if (lead >= 0xE0 && lead <= 0xEF) {
            length = 3;
            if (lead == 0xE0) low = 0xA0;
            if (lead == 0xED) high = 0x9F;
        } else if (lead >= 0xF0 && lead <= 0xF4) {
            length = 4;
            if (lead == 0xF0) low = 0x90;
            if (lead == 0xF4) high = 0x8F;
        } else {
            return false;
        }
        if (text.size() - i < length || byte(i + 1) < low || byte(i + 1) > high) return false;
        for (size_t k = 2; k < length; ++k) {
            if (byte(i + k) < 0x80 || byte(i + k) > 0xBF) return false;
        }
        i += length;
    }
    return true;
}

bool ListHolds(std::string_view list, std::string_view item) {
    if (item.empty() || list.empty()) return false;
    return ForEachPiece(list, ',', [&](std::string_view piece) { return EqualsInsensitive(piece, item); });
}

size_t PieceCount(std::string_view list, char separator) {
    return static_cast<size_t>(std::count(list.begin(), list.end(), separator)) + 1;
}

}  // namespace TabulonLib12
