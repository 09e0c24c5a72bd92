// Where the one statement of a query text ends, read with the shared SQL scanner in the
// server's dialect.
#include "platform/db/sql_text.h"
#include "postgres_internal.h"

namespace TabulonLib12::pg {

std::string SingleStatement(std::string_view query) {
    if (query.find('\0') != std::string_view::npos) throw ClientError("42601", "the query holds a NUL character");
    size_t statementEnd = 0;  // just past the statement's last token that is no blank or comment
    size_t i = 0;
    while (i < query.size()) {
        const SqlToken token = NextSqlToken(query, i, SqlDialect::Postgres());
        i = token.end;
        if (IsSqlSymbol(query, token, ';')) {
            // Only blanks, comments and further semicolons may follow.
            while (i < query.size()) {
                const SqlToken rest = NextSqlToken(query, i, SqlDialect::Postgres());
                i = rest.end;
                if (rest.kind != SqlTokenKind::Blank && rest.kind != SqlTokenKind::Comment && !IsSqlSymbol(query, rest, ';')) {
                    throw ClientError("42601", "only one statement may be run: the query goes on after ';'");
                }
            }
            break;
        }
        if (token.kind != SqlTokenKind::Blank && token.kind != SqlTokenKind::Comment) statementEnd = token.end;
    }
    if (statementEnd == 0) throw ClientError("42601", "the query holds no statement");
    return std::string(query.substr(0, statementEnd));
}

}  // namespace TabulonLib12::pg
