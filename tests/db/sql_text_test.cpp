// The shared SQL scanner in the SQLite dialect: the final ORDER BY that a count may leave out.
#include <gtest/gtest.h>

#include "platform/db/sql_text.h"

namespace TabulonLib12 {
namespace {

std::string_view Shorter(std::string_view sql) { return WithoutFinalOrderBy(sql, SqlDialect::Sqlite()); }

TEST(SqlText, AFinalOrderByOfTheWholeResultIsLeftOut) {
    EXPECT_EQ(Shorter("SELECT a FROM t ORDER BY a"), "SELECT a FROM t ");
    EXPECT_EQ(Shorter("SELECT a FROM t order\nby a DESC, b"), "SELECT a FROM t ");
}

TEST(SqlText, AnOrderByThatALimitFollowsStays) {
    EXPECT_EQ(Shorter("SELECT a FROM t ORDER BY a LIMIT 3"), "SELECT a FROM t ORDER BY a LIMIT 3");
}

TEST(SqlText, OrderByInsideParenthesesQuotesOrCommentsIsNoneOfTheStatements) {
    EXPECT_EQ(Shorter("SELECT a FROM (SELECT a FROM t ORDER BY a) s"), "SELECT a FROM (SELECT a FROM t ORDER BY a) s");
    EXPECT_EQ(Shorter("SELECT 'ORDER BY' FROM t"), "SELECT 'ORDER BY' FROM t");
    EXPECT_EQ(Shorter("SELECT [order by] FROM t"), "SELECT [order by] FROM t");
    EXPECT_EQ(Shorter("SELECT `order` FROM t ORDER BY 1"), "SELECT `order` FROM t ");
    EXPECT_EQ(Shorter("SELECT a FROM t -- ORDER BY a"), "SELECT a FROM t -- ORDER BY a");
    EXPECT_EQ(Shorter("SELECT a FROM t /* ORDER BY a */"), "SELECT a FROM t /* ORDER BY a */");
}

TEST(SqlText, TheDialectsDifferOnlyInTheirLexicalRules) {
    // Brackets quote a name in SQLite and are symbols in PostgreSQL.
    EXPECT_EQ(WithoutFinalOrderBy("SELECT [a] FROM t ORDER BY 1", SqlDialect::Postgres()), "SELECT [a] FROM t ");
    // A dollar quote hides the words in PostgreSQL; in SQLite '$' starts a word.
    EXPECT_EQ(WithoutFinalOrderBy("SELECT $q$ ORDER BY $q$ FROM t", SqlDialect::Postgres()),
              "SELECT $q$ ORDER BY $q$ FROM t");
    // Nested comments close at their last end in PostgreSQL only.
    EXPECT_EQ(WithoutFinalOrderBy("SELECT a /* x /* y */ ORDER BY a */ FROM t ORDER BY a", SqlDialect::Postgres()),
              "SELECT a /* x /* y */ ORDER BY a */ FROM t ");
}

TEST(SqlText, AnUnclosedQuoteOrAnUnbalancedParenthesisKeepsTheText) {
    EXPECT_EQ(Shorter("SELECT 'a FROM t ORDER BY a"), "SELECT 'a FROM t ORDER BY a");
    EXPECT_EQ(Shorter("SELECT (a FROM t ORDER BY a"), "SELECT (a FROM t ORDER BY a");
}

}  // namespace
}  // namespace TabulonLib12
