#pragma once
// Reading the shape of a query text as an engine's lexer would, without parsing it: tokens
// (blanks, comments, quoted texts and names, words, symbols), and whether a final ORDER BY can
// be left out when the rows are only counted. The engines differ in a few lexical rules, which a
// dialect names as flags; everything else is one scanner for both.
#include <cstddef>
#include <string_view>

namespace TabulonLib12 {

struct SqlDialect {
    bool bracketAndBacktickNames = false;  // [name] and `name` quote names (SQLite)
    bool dollarQuotes = false;             // $tag$...$tag$ quotes a text (PostgreSQL)
    bool escapeStrings = false;            // E'...' takes backslash escapes (PostgreSQL)
    bool nestedComments = false;           // /* /* */ */ nests (PostgreSQL)

    static SqlDialect Sqlite() { return {true, false, false, false}; }
    static SqlDialect Postgres() { return {false, true, true, true}; }
};

enum class SqlTokenKind { Blank, Comment, Quoted, Word, Symbol };

struct SqlToken {
    SqlTokenKind kind;
    size_t begin;
    size_t end;  // just past the token
};

// The token that starts at `at` (below text.size()). Unclosed quotes and comments run to the end.
SqlToken NextSqlToken(std::string_view text, size_t at, const SqlDialect& dialect);
// Whether `token` is the word `upperWord`, compared without regard to case.
bool IsSqlWord(std::string_view text, const SqlToken& token, std::string_view upperWord);
bool IsSqlSymbol(std::string_view text, const SqlToken& token, char symbol);

// The statement without its final ORDER BY when that clause orders the whole result and no
// LIMIT, OFFSET, FETCH or FOR clause follows it; the text as it is otherwise. Counting the
// rows of the shorter text gives the same count without a sort.
std::string_view WithoutFinalOrderBy(std::string_view sql, const SqlDialect& dialect);

}  // namespace TabulonLib12
