// Reading the shape of a query text as the server's lexer would, without parsing it: where the
// one statement ends, and whether a final ORDER BY can be left out of a count.
#include <cctype>

#include "postgres_internal.h"

namespace TabulonLib12::pg {

namespace {

enum class TokenKind { Blank, Comment, Quoted, Word, Symbol };

struct Token {
    TokenKind kind;
    size_t begin;
    size_t end;
};

bool IsBlank(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f' || c == '\v';
}

bool IsWordStart(char c) {
    auto u = static_cast<unsigned char>(c);
    return std::isalpha(u) || c == '_' || u >= 0x80;
}

bool IsWordChar(char c) {
    return IsWordStart(c) || std::isdigit(static_cast<unsigned char>(c)) || c == '$';
}

// From the opening quote at `at` to just past the closing one; a doubled quote stands for one,
// and with `backslashes` a backslash escapes the next character.
size_t SkipQuoted(std::string_view text, size_t at, char quote, bool backslashes) {
    size_t i = at + 1;
    while (i < text.size()) {
        if (backslashes && text[i] == '\\') {
            i += 2;
        } else if (text[i] == quote) {
            if (i + 1 < text.size() && text[i + 1] == quote) {
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

// Block comments nest.
size_t SkipBlockComment(std::string_view text, size_t at) {
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

Token NextToken(std::string_view text, size_t at) {
    char c = text[at];
    size_t next = at + 1 < text.size() ? at + 1 : text.size();
    if (IsBlank(c)) {
        size_t i = at;
        while (i < text.size() && IsBlank(text[i])) ++i;
        return {TokenKind::Blank, at, i};
    }
    if (c == '-' && next < text.size() && text[next] == '-') {
        size_t end = text.find('\n', at);
        return {TokenKind::Comment, at, end == std::string_view::npos ? text.size() : end + 1};
    }
    if (c == '/' && next < text.size() && text[next] == '*') {
        return {TokenKind::Comment, at, SkipBlockComment(text, at)};
    }
    if (c == '\'' || c == '"') return {TokenKind::Quoted, at, SkipQuoted(text, at, c, false)};
    if (c == '$') {
        size_t tagEnd = DollarTagEnd(text, at);
        if (tagEnd != std::string_view::npos) {
            std::string_view delimiter = text.substr(at, tagEnd - at);
            size_t close = text.find(delimiter, tagEnd);
            return {TokenKind::Quoted, at, close == std::string_view::npos ? text.size() : close + delimiter.size()};
        }
        return {TokenKind::Symbol, at, at + 1};
    }
    if (IsWordChar(c)) {
        size_t i = at;
        while (i < text.size() && IsWordChar(text[i])) ++i;
        // E'...' strings take backslash escapes.
        if (i == at + 1 && (c == 'E' || c == 'e') && i < text.size() && text[i] == '\'') {
            return {TokenKind::Quoted, at, SkipQuoted(text, i, '\'', true)};
        }
        return {TokenKind::Word, at, i};
    }
    return {TokenKind::Symbol, at, at + 1};
}

bool IsWord(std::string_view text, const Token& token, std::string_view word) {
    if (token.kind != TokenKind::Word || token.end - token.begin != word.size()) return false;
    for (size_t i = 0; i < word.size(); ++i) {
        if (std::toupper(static_cast<unsigned char>(text[token.begin + i])) != word[i]) return false;
    }
    return true;
}

bool IsSymbol(std::string_view text, const Token& token, char symbol) {
    return token.kind == TokenKind::Symbol && text[token.begin] == symbol;
}

}  // namespace

std::string SingleStatement(std::string_view query) {
    if (query.find('\0') != std::string_view::npos) throw ClientError("42601", "the query holds a NUL character");
    size_t statementEnd = 0;  // just past the statement's last token that is no blank or comment
    size_t i = 0;
    while (i < query.size()) {
        Token token = NextToken(query, i);
        i = token.end;
        if (IsSymbol(query, token, ';')) {
            // Only blanks, comments and further semicolons may follow.
            while (i < query.size()) {
                Token rest = NextToken(query, i);
                i = rest.end;
                if (rest.kind != TokenKind::Blank && rest.kind != TokenKind::Comment && !IsSymbol(query, rest, ';')) {
                    throw ClientError("42601", "only one statement may be run: the query goes on after ';'");
                }
            }
            break;
        }
        if (token.kind != TokenKind::Blank && token.kind != TokenKind::Comment) statementEnd = token.end;
    }
    if (statementEnd == 0) throw ClientError("42601", "the query holds no statement");
    return std::string(query.substr(0, statementEnd));
}

std::string_view WithoutFinalOrderBy(std::string_view sql) {
    int depth = 0;
    size_t orderAt = std::string_view::npos;  // the last top-level ORDER that BY follows
    bool clauseAfterOrder = false;            // LIMIT, OFFSET, FETCH or FOR after it
    bool pendingOrder = false;                // the previous top-level word was ORDER
    size_t pendingAt = 0;
    size_t i = 0;
    while (i < sql.size()) {
        Token token = NextToken(sql, i);
        i = token.end;
        if (token.kind == TokenKind::Blank || token.kind == TokenKind::Comment) continue;
        if (IsSymbol(sql, token, '(')) {
            ++depth;
        } else if (IsSymbol(sql, token, ')')) {
            --depth;
        } else if (depth == 0 && token.kind == TokenKind::Word) {
            if (pendingOrder && IsWord(sql, token, "BY")) {
                orderAt = pendingAt;
                clauseAfterOrder = false;
            } else if (IsWord(sql, token, "LIMIT") || IsWord(sql, token, "OFFSET") || IsWord(sql, token, "FETCH") ||
                       IsWord(sql, token, "FOR")) {
                clauseAfterOrder = true;
            }
            pendingOrder = IsWord(sql, token, "ORDER");
            pendingAt = token.begin;
            continue;
        }
        pendingOrder = false;
    }
    if (orderAt == std::string_view::npos || clauseAfterOrder || depth != 0) return sql;
    return sql.substr(0, orderAt);
}

}  // namespace TabulonLib12::pg
