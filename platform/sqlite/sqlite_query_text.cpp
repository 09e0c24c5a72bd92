// Reading the shape of a query text without parsing it: enough to count its rows cheaply.
#include <cctype>
#include <string_view>

#include "sqlite_internal.h"

namespace TabulonLib12::detail {

namespace {

bool IsWordChar(char c) {
    auto u = static_cast<unsigned char>(c);
    return std::isalnum(u) || c == '_' || c == '$' || u >= 0x80;
}

bool IsWord(std::string_view text, size_t at, size_t length, std::string_view word) {
    if (length != word.size()) return false;
    for (size_t i = 0; i < length; ++i) {
        if (std::toupper(static_cast<unsigned char>(text[at + i])) != word[i]) return false;
    }
    return true;
}

// Skips a quoted string or name starting at `at` (closing quote doubled to escape it).
size_t SkipQuoted(std::string_view text, size_t at, char close) {
    size_t i = at + 1;
    while (i < text.size()) {
        if (text[i] == close) {
            if (close != ']' && i + 1 < text.size() && text[i + 1] == close) {
                i += 2;
                continue;
            }
            return i + 1;
        }
        ++i;
    }
    return text.size();
}

}  // namespace

std::string_view WithoutFinalOrderBy(std::string_view sql) {
    int depth = 0;
    size_t orderAt = std::string_view::npos;  // the last top-level ORDER that BY follows
    bool limitAfterOrder = false;
    bool pendingOrder = false;                // the previous top-level word was ORDER
    size_t pendingAt = 0;
    size_t i = 0;
    while (i < sql.size()) {
        char c = sql[i];
        if (c == '\'' || c == '"' || c == '`' || c == '[') {
            i = SkipQuoted(sql, i, c == '[' ? ']' : c);
            pendingOrder = false;
        } else if (c == '-' && i + 1 < sql.size() && sql[i + 1] == '-') {
            auto end = sql.find('\n', i);
            i = end == std::string_view::npos ? sql.size() : end + 1;
        } else if (c == '/' && i + 1 < sql.size() && sql[i + 1] == '*') {
            auto end = sql.find("*/", i + 2);
            i = end == std::string_view::npos ? sql.size() : end + 2;
        } else if (c == '(') {
            ++depth;
            ++i;
            pendingOrder = false;
        } else if (c == ')') {
            --depth;
            ++i;
            pendingOrder = false;
        } else if (IsWordChar(c)) {
            size_t start = i;
            while (i < sql.size() && IsWordChar(sql[i])) ++i;
            size_t length = i - start;
            if (depth == 0) {
                if (pendingOrder && IsWord(sql, start, length, "BY")) {
                    orderAt = pendingAt;
                    limitAfterOrder = false;
                } else if (IsWord(sql, start, length, "LIMIT")) {
                    limitAfterOrder = true;
                }
                pendingOrder = IsWord(sql, start, length, "ORDER");
                pendingAt = start;
            } else {
                pendingOrder = false;
            }
        } else {
            if (!std::isspace(static_cast<unsigned char>(c))) pendingOrder = false;
            ++i;
        }
    }
    if (orderAt == std::string_view::npos || limitAfterOrder || depth != 0) return sql;
    return sql.substr(0, orderAt);
}

}  // namespace TabulonLib12::detail
