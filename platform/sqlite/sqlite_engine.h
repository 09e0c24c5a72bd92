#pragma once
// The SQLite engine: a database is a file opened strictly read-only, a recordset is a snapshot
// read row by row from one prepared statement (nothing is copied into memory ahead of the reader).
//
// Read-only by construction: the file is opened with SQLITE_OPEN_READONLY (never created), the
// connection runs with PRAGMA query_only=ON, attaching is disabled, and an authorizer admits
// only reads (SELECT, reading pragmas, functions that do not write). A query text holds exactly
// one statement. The connect text ("; pwd=...") means nothing to SQLite files and is ignored;
// it never reaches a message.
//
// Type codes (FieldType) come from the declared type of the column, read without regard to case,
// by the name before any "(...)":
//
//   BOOLEAN, BOOL, BIT                                          1  Boolean
//   TINYINT, BYTE                                               2  Byte
//   SMALLINT, SHORT, INT2                                       3  Integer
//   INTEGER, INT, BIGINT, BIG INT, LONG, COUNTER, MEDIUMINT,
//     INT4, INT8                                                4  Long
//   MONEY, SMALLMONEY, CURRENCY, DECIMAL, NUMERIC               5  Currency
//   REAL, FLOAT4, SINGLE                                        6  Single
//   DOUBLE, DOUBLE PRECISION, FLOAT, FLOAT8                     7  Double
//   DATE, DATETIME, TIMESTAMP, TIME                             8  Date
//   CHAR, VARCHAR, NCHAR, NVARCHAR, CHARACTER, VARYING CHARACTER,
//     CHARACTER VARYING, NATIVE CHARACTER, STRING, TEXT:
//     no length or a length up to 255                           10 Text
//   the same with a length above 255; CLOB, MEMO, LONGTEXT,
//     MEDIUMTEXT, NTEXT, LONGCHAR                               12 Memo
//   BLOB, BINARY, VARBINARY, LONGBINARY, IMAGE                  11 LongBinary
//   GUID, UUID, UNIQUEIDENTIFIER                                15 Guid
//
// The words SIGNED and UNSIGNED are ignored ("UNSIGNED BIG INT" is BIG INT).
// TEXT without a length is Text (10), not Memo: in SQLite schemas TEXT is the ordinary type of
// short strings, and the conditions of the control compare only Text columns as text.
// A column without a declared type (an expression) or with a type name not listed takes the code
// of the storage class of the value at the current record: INTEGER 4, REAL 7, TEXT 10, BLOB 11,
// NULL 10 (also when there is no current record).
//
// Values (FieldValue; AppendFieldText gives the same text as FieldValue(i).ToText):
//   NULL                                 Null
//   Boolean column, INTEGER or REAL      bool (not 0 is true), text "True"/"False"
//   Date column, ISO text "yyyy-mm-dd", "yyyy-mm-dd hh:nn[:ss[.fff]]" (also with 'T'), or a time
//     alone "hh:nn[:ss]"                  DateTime, text in the system's short date form
//     (fractions of a second are dropped; other text in a Date column stays text)
//   Guid column, 16-byte BLOB            text "{XXXXXXXX-XXXX-XXXX-XXXX-XXXXXXXXXXXX}"
//   other INTEGER                        int64_t, all digits
//   other REAL                           double, text by NumberToText under CurrentSettings()
//   other TEXT                           std::string as stored (UTF-8)
//   other BLOB                           Blob, text the bytes as they are
//
// Snapshot: while a recordset is open its connection holds one read transaction, so counting,
// MoveFirst and reading all see the file as it was at the opening. In a rollback-journal file
// that also keeps other processes from committing until the recordset is closed.
//
// Errors are Error(ErrorKind::Database, SQLite extended result code, the engine's message).
// Moving past EOF, or reading with no current record, gives number 3021 "No current record.".
// A bad field index gives Error::OutOfBounds().
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/db/database.h"

struct sqlite3;
struct sqlite3_stmt;

namespace TabulonLib12 {

namespace detail {
// One open connection, shared by the database and its recordsets so that a recordset may outlive
// the Close of its database. The connection closes when the last owner lets go.
struct SqliteConnection {
    explicit SqliteConnection(sqlite3* h) : handle(h) {}
    ~SqliteConnection();
    SqliteConnection(const SqliteConnection&) = delete;
    SqliteConnection& operator=(const SqliteConnection&) = delete;
    sqlite3* handle;
};

struct StatementFinalizer {
    void operator()(sqlite3_stmt* statement) const;
};
using StatementPtr = std::unique_ptr<sqlite3_stmt, StatementFinalizer>;
}  // namespace detail

class SqliteEngine final : public DatabaseEngine {
public:
    // `name` is a file path (or a "file:" URI). A missing file, a file that is not a database,
    // or options.readOnly false all fail; options.exclusive has no meaning for a reader.
    std::shared_ptr<Database> OpenDatabase(const std::string& name, const OpenOptions& options) override;
};

class SqliteDatabase final : public Database {
public:
    SqliteDatabase(std::string name, std::shared_ptr<detail::SqliteConnection> connection);
    ~SqliteDatabase() override;

    std::unique_ptr<Recordset> OpenRecordset(const std::string& query) override;
    std::vector<std::string> TableNames() override;   // user tables, sorted, no sqlite_ ones
    std::vector<std::string> QueryNames() override;   // views, sorted
    std::string Name() const override { return name_; }
    void Close() override;
    bool IsOpen() const override { return connection_ != nullptr; }

private:
    std::vector<std::string> SchemaNames(const char* type);
    const detail::SqliteConnection& Connection() const;

    std::string name_;
    std::shared_ptr<detail::SqliteConnection> connection_;
};

class SqliteRecordset final : public Recordset {
public:
    // Takes a prepared single statement; steps it once to learn whether there is a first record.
    SqliteRecordset(std::shared_ptr<detail::SqliteConnection> connection, std::string sql,
                    detail::StatementPtr statement);
    ~SqliteRecordset() override;

    int32_t RecordCount() override;
    void MoveFirst() override;
    void MoveLast() override;
    void MoveNext() override;
    bool IsEOF() const override;

    int FieldCount() const override;
    std::string FieldName(int index) const override;
    int FieldIndex(std::string_view name) const override;
    int16_t FieldType(int index) const override;
    Value FieldValue(int index) const override;
    void AppendFieldText(int index, std::string& out) const override;
    bool FieldIsNull(int index) const override;
    // Read from the row as it stands: the same number as NumericValue of FieldValue, without
    // building the value.
    double FieldNumber(int index) const override;

    void Close() override;

private:
    void RequireOpen() const;
    void RequireField(int index) const;
    // Brings the statement onto the current record (stepping forward, or from the start) and
    // fails with 3021 when there is none.
    void RequireCurrentRow() const;
    void SyncToCurrent() const;
    bool StepOnce() const;  // true: a row; false: the end
    int64_t CountRows() const;
    int16_t TypeCodeAtRow(int index) const;

    // Destroyed in reverse order: the statements are finalized before the connection is let go.
    std::shared_ptr<detail::SqliteConnection> connection_;
    std::string sql_;
    detail::StatementPtr snapshot_;   // a one-row read kept open: holds the read transaction
    detail::StatementPtr statement_;
    std::vector<std::string> names_;
    std::vector<int16_t> declared_;   // type code by declared type; 0 when it comes from the value

    // The logical position is current_; the statement stands on row statementRow_ (-1 before its
    // first step). MoveLast only moves current_: the statement catches up when a field is read.
    mutable int64_t current_ = 0;
    mutable int64_t statementRow_ = -1;
    mutable bool statementDone_ = false;
    mutable bool eof_ = false;
    mutable int64_t seen_ = 0;        // records known to exist
    mutable bool exact_ = false;      // seen_ is the exact count
};

}  // namespace TabulonLib12
