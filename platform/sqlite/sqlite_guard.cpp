// What keeps a connection from writing: whatever the query text says, no statement that could
// change the file (or any other file) is ever prepared.
#include <algorithm>
#include <array>
#include <cctype>
#include <string_view>

#include "platform/runtime/text.h"
#include "sqlite_internal.h"

namespace TabulonLib12::detail {

namespace {

template <size_t N>
bool IsOneOf(const char* name, const std::array<std::string_view, N>& names) {
    if (name == nullptr) return false;
    return std::any_of(names.begin(), names.end(), [name](std::string_view n) { return EqualsInsensitive(n, name); });
}

// Pragmas that only report, with or without an argument (the argument names a table or index,
// or limits a check).
constexpr std::array<std::string_view, 16> kReportingPragmas{
    "table_info",    "table_xinfo",   "index_info",    "index_xinfo",  "index_list",     "foreign_key_list",
    "foreign_key_check", "integrity_check", "quick_check", "table_list", "database_list", "collation_list",
    "function_list", "module_list",   "pragma_list",   "compile_options",
};

// Pragmas that report when given no value and change a setting or the file when given one.
constexpr std::array<std::string_view, 15> kSettingPragmas{
    "user_version",  "schema_version", "application_id", "page_count",   "page_size",
    "freelist_count", "data_version",  "encoding",       "journal_mode", "query_only",
    "auto_vacuum",   "foreign_keys",   "cache_size",     "max_page_count", "busy_timeout",
};

// SQL functions that reach files outside the database, load code or register native pointers.
constexpr std::array<std::string_view, 5> kWritingFunctions{
    "load_extension", "writefile", "edit", "fts3_tokenizer", "readfile",
};

int ReadOnlyAuthorizer(void*, int action, const char* arg1, const char* arg2, const char*, const char*) {
    switch (action) {
        case SQLITE_SELECT:
        case SQLITE_READ:
        case SQLITE_RECURSIVE:
            return SQLITE_OK;
        case SQLITE_FUNCTION:  // arg2 is the function's name
            return IsOneOf(arg2, kWritingFunctions) ? SQLITE_DENY : SQLITE_OK;
        case SQLITE_PRAGMA:  // arg1 the pragma, arg2 its value or argument
            if (IsOneOf(arg1, kReportingPragmas)) return SQLITE_OK;
            if (arg2 == nullptr && IsOneOf(arg1, kSettingPragmas)) return SQLITE_OK;
            return SQLITE_DENY;
        default:
            // Writes, schema changes, transactions and savepoints, ATTACH and DETACH, ANALYZE,
            // REINDEX, virtual table changes, and any action a newer engine may add.
            return SQLITE_DENY;
    }
}

bool IsBlank(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f' || c == '\v';
}

// True when the text holds nothing but blanks, semicolons and comments.
bool NothingFollows(std::string_view tail) {
    size_t i = 0;
    while (i < tail.size()) {
        char c = tail[i];
        if (IsBlank(c) || c == ';') {
            ++i;
        } else if (c == '-' && i + 1 < tail.size() && tail[i + 1] == '-') {
            auto end = tail.find('\n', i);
            i = end == std::string_view::npos ? tail.size() : end + 1;
        } else if (c == '/' && i + 1 < tail.size() && tail[i + 1] == '*') {
            auto end = tail.find("*/", i + 2);
            i = end == std::string_view::npos ? tail.size() : end + 2;
        } else {
            return false;
        }
    }
    return true;
}

void RunGuardStatement(sqlite3* db, const char* sql) {
    char* message = nullptr;
    int rc = sqlite3_exec(db, sql, nullptr, nullptr, &message);
    if (rc != SQLITE_OK) {
        std::string text = message != nullptr ? message : sqlite3_errstr(rc);
        sqlite3_free(message);
        throw EngineError(sqlite3_extended_errcode(db), text);
    }
}

}  // namespace

void InstallReadOnlyGuards(sqlite3* db) {
    sqlite3_extended_result_codes(db, 1);
    int previous = 0;
    sqlite3_db_config(db, SQLITE_DBCONFIG_DEFENSIVE, 1, &previous);
    sqlite3_db_config(db, SQLITE_DBCONFIG_ENABLE_LOAD_EXTENSION, 0, &previous);
    sqlite3_db_config(db, SQLITE_DBCONFIG_ENABLE_FTS3_TOKENIZER, 0, &previous);
    sqlite3_db_config(db, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, &previous);
    sqlite3_db_config(db, SQLITE_DBCONFIG_WRITABLE_SCHEMA, 0, &previous);
    sqlite3_limit(db, SQLITE_LIMIT_ATTACHED, 0);
    RunGuardStatement(db, "PRAGMA query_only=ON");
    // Last: from here on even the engine's own helpers pass the authorizer.
    int rc = sqlite3_set_authorizer(db, ReadOnlyAuthorizer, nullptr);
    if (rc != SQLITE_OK) throw EngineError(rc);
}

StatementPtr PrepareSingleStatement(sqlite3* db, std::string_view query, std::string* statementText) {
    if (query.size() > static_cast<size_t>(sqlite3_limit(db, SQLITE_LIMIT_SQL_LENGTH, -1))) {
        throw EngineError(SQLITE_TOOBIG);
    }
    sqlite3_stmt* raw = nullptr;
    const char* tail = nullptr;
    int rc = sqlite3_prepare_v2(db, query.data(), static_cast<int>(query.size()), &raw, &tail);
    StatementPtr statement(raw);
    if (rc != SQLITE_OK) throw EngineError(db);
    if (!statement) {
        // Blanks or comments only: the engine prepares nothing.
        throw EngineError(SQLITE_MISUSE, "the query holds no statement");
    }
    const char* end = query.data() + query.size();
    if (!NothingFollows(std::string_view(tail, static_cast<size_t>(end - tail)))) {
        throw EngineError(SQLITE_MISUSE, "only one statement may be run: the query goes on after ';'");
    }
    // The authorizer has seen every action; this catches what it cannot name (VACUUM).
    if (!sqlite3_stmt_readonly(statement.get())) {
        throw EngineError(SQLITE_READONLY, "attempt to write a readonly database");
    }
    // A statement without result columns is no query (REINDEX on a file without indexes, say).
    if (sqlite3_column_count(statement.get()) == 0) {
        throw EngineError(SQLITE_MISUSE, "the statement returns no records");
    }
    if (statementText != nullptr) {
        std::string_view text(query.data(), static_cast<size_t>(tail - query.data()));
        while (!text.empty() && (IsBlank(text.back()) || text.back() == ';')) text.remove_suffix(1);
        statementText->assign(text);
    }
    return statement;
}

}  // namespace TabulonLib12::detail
