// Opening SQLite files read-only, and the database object over one connection.
#include <sys/stat.h>

#include <cstdio>

#include "sqlite_internal.h"

namespace TabulonLib12 {

namespace detail {

SqliteConnection::~SqliteConnection() {
    // close_v2: any statement still unfinalized keeps the handle alive until it goes.
    sqlite3_close_v2(handle);
}

void StatementFinalizer::operator()(sqlite3_stmt* statement) const {
    sqlite3_finalize(statement);
}

Error EngineError(sqlite3* db) {
    return Error(ErrorKind::Database, sqlite3_extended_errcode(db), sqlite3_errmsg(db));
}

Error EngineError(int code) {
    return Error(ErrorKind::Database, code, sqlite3_errstr(code));
}

Error EngineError(int code, const std::string& message) {
    return Error(ErrorKind::Database, code, message);
}

Error NoCurrentRecord() {
    return Error(ErrorKind::Database, 3021, "No current record.");
}

Error ClosedObject(const char* what) {
    return Error(ErrorKind::Database, SQLITE_MISUSE, std::string(what) + " is closed");
}

}  // namespace detail

namespace {

using detail::EngineError;
using detail::SqliteConnection;

constexpr int kBusyTimeoutMs = 3000;

std::shared_ptr<SqliteConnection> OpenReadOnly(const std::string& name, bool uri) {
    int flags = SQLITE_OPEN_READONLY | SQLITE_OPEN_NOMUTEX;
    if (uri) flags |= SQLITE_OPEN_URI;
    sqlite3* handle = nullptr;
    int rc = sqlite3_open_v2(name.c_str(), &handle, flags, nullptr);
    if (rc != SQLITE_OK) {
        Error error = handle != nullptr ? EngineError(handle) : EngineError(rc);
        sqlite3_close_v2(handle);
        throw error;
    }
    auto connection = std::make_shared<SqliteConnection>(handle);
    sqlite3_busy_timeout(handle, kBusyTimeoutMs);
    detail::InstallReadOnlyGuards(handle);
    // The open itself reads nothing: reading the schema now makes a file that is no database,
    // or cannot be read, fail here rather than at the first query.
    detail::StatementPtr probe = detail::PrepareSingleStatement(handle, "SELECT count(*) FROM sqlite_master", nullptr);
    if (sqlite3_step(probe.get()) != SQLITE_ROW) throw EngineError(handle);
    return connection;
}

// A WAL file needs its shared-memory file beside it; in a folder where that file cannot be
// created a reader may still read the main file as it stands, provided no WAL content is waiting.
bool MayReadAsImmutable(const std::string& name, int code) {
    int primary = code & 0xFF;
    bool sharedMemoryFailure = primary == SQLITE_CANTOPEN || code == SQLITE_READONLY_CANTINIT ||
                               code == SQLITE_READONLY_DIRECTORY || code == SQLITE_IOERR_SHMOPEN ||
                               code == SQLITE_IOERR_SHMSIZE || code == SQLITE_READONLY_CANTLOCK;
    if (!sharedMemoryFailure || name.rfind("file:", 0) == 0) return false;
    struct stat info {};
    if (stat(name.c_str(), &info) != 0 || !S_ISREG(info.st_mode)) return false;
    std::string wal = name + "-wal";
    return stat(wal.c_str(), &info) != 0 || !S_ISREG(info.st_mode) || info.st_size == 0;
}

std::string ImmutableUri(const std::string& path) {
    std::string uri = "file:";
    for (unsigned char c : path) {
        bool plain = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '-' ||
                     c == '.' || c == '_' || c == '~' || c == '/';
        if (plain) {
            uri += static_cast<char>(c);
        } else {
            char escaped[4];
            std::snprintf(escaped, sizeof escaped, "%%%02X", c);
            uri += escaped;
        }
    }
    return uri + "?mode=ro&immutable=1";
}

}  // namespace

std::shared_ptr<Database> SqliteEngine::OpenDatabase(const std::string& name, const OpenOptions& options) {
    // options.connect carries at most a password: SQLite files have none, so it is not read, and
    // it is never part of a message.
    if (!options.readOnly) {
        throw EngineError(SQLITE_READONLY, "a database can only be opened read-only");
    }
    // The empty name and ":memory:" would give a new empty database instead of a file.
    if (name.empty() || name == ":memory:" || name.find('\0') != std::string::npos) {
        throw EngineError(SQLITE_CANTOPEN);
    }
    std::shared_ptr<SqliteConnection> connection;
    try {
        connection = OpenReadOnly(name, false);
    } catch (const Error& error) {
        if (!MayReadAsImmutable(name, error.number())) throw;
        try {
            connection = OpenReadOnly(ImmutableUri(name), true);
        } catch (const Error&) {
            throw error;
        }
    }
    return std::make_shared<SqliteDatabase>(name, std::move(connection));
}

SqliteDatabase::SqliteDatabase(std::string name, std::shared_ptr<detail::SqliteConnection> connection)
    : name_(std::move(name)), connection_(std::move(connection)) {}

SqliteDatabase::~SqliteDatabase() = default;

const detail::SqliteConnection& SqliteDatabase::Connection() const {
    if (!connection_) throw detail::ClosedObject("the database");
    return *connection_;
}

std::unique_ptr<Recordset> SqliteDatabase::OpenRecordset(const std::string& query) {
    sqlite3* db = Connection().handle;
    std::string text;
    detail::StatementPtr statement = detail::PrepareSingleStatement(db, query, &text);
    return std::make_unique<SqliteRecordset>(connection_, std::move(text), std::move(statement));
}

std::vector<std::string> SqliteDatabase::SchemaNames(const char* type) {
    sqlite3* db = Connection().handle;
    detail::StatementPtr statement = detail::PrepareSingleStatement(
        db,
        "SELECT name FROM sqlite_master WHERE type = ?1 AND name NOT LIKE 'sqlite\\_%' ESCAPE '\\' "
        "ORDER BY name COLLATE NOCASE",
        nullptr);
    sqlite3_bind_text(statement.get(), 1, type, -1, SQLITE_STATIC);
    std::vector<std::string> names;
    int rc;
    while ((rc = sqlite3_step(statement.get())) == SQLITE_ROW) {
        const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement.get(), 0));
        names.emplace_back(text != nullptr ? text : "");
    }
    if (rc != SQLITE_DONE) throw EngineError(db);
    return names;
}

std::vector<std::string> SqliteDatabase::TableNames() {
    return SchemaNames("table");
}

std::vector<std::string> SqliteDatabase::QueryNames() {
    return SchemaNames("view");
}

void SqliteDatabase::Close() {
    connection_.reset();
}

}  // namespace TabulonLib12
