#include "platform/db/sql_text.h"

#include <cctype>

#include "platform/runtime/text.h"

namespace TabulonLib12 {

namespace {

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f' || c == '\v'; }

bool IsWordStart(char c) {
    const auto u = static_cast<unsigned char>(c);
    return std::isalpha(u) || c == '_' || u >= 0x80;
}

bool IsWordChar(char c) { return IsWordStart(c) || std::isdigit(static_cast<unsigned char>(c)) || c == '$'; }

// From the opening quote at `at` to just past the closing one; a doubled quote stands for one
// (not inside brackets), and with `backslashes` a backslash escapes the next character.
size_t SkipQuoted(std::string_view text, size_t at, char close, bool backslashes) {
    size_t i = at + 1;
    while (i < text.size()) {
        if (backslashes && text[i] == '\\') {
            i += 2;
        } else if (text[i] == close) {
            if (close != ']' && i + 1 < text.size() && text[i + 1] == close) {
                i += 2;
            } else {
                return i + 1;
            }
        } else {
            ++i;
        }
    }
    return text.size();
}

// A block comment from its "/*" at `at` to just past its end; with `nested`, comments nest.
size_t SkipBlockComment(std::string_view text, size_t at, bool nested) {
    if (!nested) {
        const size_t end = text.find("*/", at + 2);
        return end == std::string_view::npos ? text.size() : end + 2;
    }
    int depth = 0;
    size_t i = at;
    while (i + 1 < text.size()) {
        if (text[i] == '/' && text[i + 1] == '*') {
            ++depth;
            i += 2;
        } else if (text[i] == '*' && text[i + 1] == '/') {
            i += 2;
            if (--depth == 0) return i;
        } else {
            ++i;
        }
    }
    return text.size();
}

// The end of a dollar-quote delimiter "$tag$" (or "$$") starting at `at`; npos when the '$'
// starts none (a parameter such as $1).
size_t DollarTagEnd(std::string_view text, size_t at) {
    size_t i = at + 1;
    if (i < text.size() && IsWordStart(text[i])) {
        while (i < text.size() && IsWordChar(text[i]) && text[i] != '$') ++i;
    }
    if (i < text.size() && text[i] == '$') return i + 1;
    return std::string_view::npos;
}

}  // namespace

SqlToken NextSqlToken(std::string_view text, size_t at, const SqlDialect& dialect) {
    const char c = text[at];
    const size_t next = at + 1;
    if (IsBlank(c)) {
        size_t i = at;
        while (i < text.size() && IsBlank(text[i])) ++i;
        return {SqlTokenKind::Blank, at, i};
    }
    if (c == '-' && next < text.size() && text[next] == '-') {
        const size_t end = text.find('\n', at);
        return {SqlTokenKind::Comment, at, end == std::string_view::npos ? text.size() : end + 1};
    }
    if (c == '/' && next < text.size() && text[next] == '*')
        return {SqlTokenKind::Comment, at, SkipBlockComment(text, at, dialect.nestedComments)};
    if (c == '\'' || c == '"') return {SqlTokenKind::Quoted, at, SkipQuoted(text, at, c, false)};
    if (dialect.bracketAndBacktickNames && (c == '`' || c == '['))
        return {SqlTokenKind::Quoted, at, SkipQuoted(text, at, c == '[' ? ']' : c, false)};
    if (c == '$' && dialect.dollarQuotes) {
        const size_t tagEnd = DollarTagEnd(text, at);
        if (tagEnd != std::string_view::npos) {
            const std::string_view delimiter = text.substr(at, tagEnd - at);
            const size_t close = text.find(delimiter, tagEnd);
            return {SqlTokenKind::Quoted, at, close == std::string_view::npos ? text.size() : close + delimiter.size()};
        }
        return {SqlTokenKind::Symbol, at, next};
    }
    if (IsWordChar(c)) {
        size_t i = at;
        while (i < text.size() && IsWordChar(text[i])) ++i;
        if (dialect.escapeStrings && i == next && (c == 'E' || c == 'e') && i < text.size() && text[i] == '\'')
            return {SqlTokenKind::Quoted, at, SkipQuoted(text, i, '\'', true)};
        return {SqlTokenKind::Word, at, i};
    }
    return {SqlTokenKind::Symbol, at, next};
}

bool IsSqlWord(std::string_view text, const SqlToken& token, std::string_view upperWord) {
    return token.kind == SqlTokenKind::Word && EqualsInsensitive(text.substr(token.begin, token.end - token.begin), upperWord);
}

bool IsSqlSymbol(std::string_view text, const SqlToken& token, char symbol) {
    return token.kind == SqlTokenKind::Symbol && text[token.begin] == symbol;
}

std::string_view WithoutFinalOrderBy(std::string_view sql, const SqlDialect& dialect) {
    int depth = 0;
    size_t orderAt = std::string_view::npos;  // the last top-level ORDER that BY follows
    bool clauseAfterOrder = false;            // LIMIT, OFFSET, FETCH or FOR after it
    bool pendingOrder = false;                // the previous top-level word was ORDER
    size_t pendingAt = 0;
    size_t i = 0;
    while (i < sql.size()) {
        const SqlToken token = NextSqlToken(sql, i, dialect);
        i = token.end;
        if (token.kind == SqlTokenKind::Blank || token.kind == SqlTokenKind::Comment) continue;
        if (IsSqlSymbol(sql, token, '(')) {
            ++depth;
        } else if (IsSqlSymbol(sql, token, ')')) {
            --depth;
        } else if (depth == 0 && token.kind == SqlTokenKind::Word) {
            if (pendingOrder && IsSqlWord(sql, token, "BY")) {
                orderAt = pendingAt;
                clauseAfterOrder = false;
            } else if (IsSqlWord(sql, token, "LIMIT") || IsSqlWord(sql, token, "OFFSET") ||
                       IsSqlWord(sql, token, "FETCH") || IsSqlWord(sql, token, "FOR")) {
                clauseAfterOrder = true;
            }
            pendingOrder = IsSqlWord(sql, token, "ORDER");
            pendingAt = token.begin;
            continue;
        }
        pendingOrder = false;
    }
    if (orderAt == std::string_view::npos || clauseAfterOrder || depth != 0) return sql;
    return sql.substr(0, orderAt);
}

}  // namespace TabulonLib12
