#pragma once
// Pieces shared by the files of the PostgreSQL engine; not part of its public face.
#include <libpq-fe.h>

#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/runtime/datetime.h"
#include "platform/runtime/error.h"
#include "postgres_engine.h"

namespace TabulonLib12::pg {

struct ResultDeleter {
    void operator()(PGresult* result) const { PQclear(result); }
};
using ResultPtr = std::unique_ptr<PGresult, ResultDeleter>;

// How a column's text becomes a value.
enum class ValueKind : uint8_t {
    Bool, Integer, Numeric, Money, Float, Date, Timestamp, Time, Bytes, Uuid, Text,
};

struct ColumnType {
    int16_t code = 0;  // 0: not a built-in type, ask the catalogue
    ValueKind kind = ValueKind::Text;
};

// The parameters of a session, kept to open further sessions of the same database.
struct ConnectParameters {
    std::vector<std::string> keywords;
    std::vector<std::string> values;
    std::vector<std::string> secrets;  // never shown: scrubbed from every message
};

// One libpq connection in read-only mode.
class Session {
public:
    // Connects and makes the session read-only; fails with libpq's text, scrubbed.
    static std::shared_ptr<Session> Open(std::shared_ptr<const ConnectParameters> parameters);
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    // Reconnects a session whose connection was lost.
    void Repair();
    bool IsBroken() const;

    // Our own statements, by the simple protocol (several in one text are allowed here).
    ResultPtr Run(const char* sql, ExecStatusType expected);
    // A statement holding user text, by the extended protocol, with text parameters.
    ResultPtr RunExtended(const std::string& sql, ExecStatusType expected, const std::vector<std::string>& params = {});
    // Our statement, whose failure is left to the caller to read (null when it failed).
    ResultPtr TryRun(const char* sql, ExecStatusType expected);
    // Our statements sent one after another without waiting for their answers (pipeline mode);
    // ReceivePipelined takes the answers in the order sent, and LeavePipeline ends the mode once
    // every answer has been taken. Nothing else may be run in between.
    void SendPipelined(const std::string& sql);
    ResultPtr ReceivePipelined() noexcept;
    void LeavePipeline() noexcept;
    // Reads what has arrived so far, so that the server is not kept waiting on a full socket.
    void Poll() noexcept;

    Error ResultError(const PGresult* result) const;
    Error ConnectionError(const char* sqlState) const;
    std::string Scrub(std::string text) const;

    // Type of a column by its type OID and modifier; types not built in are read from the
    // catalogue (domains to their base type) once per session.
    ColumnType TypeOf(Oid type, int modifier);
    void LearnTypes(const std::vector<Oid>& types);

    bool leased = false;  // a recordset runs its transaction on this session

private:
    Session(std::shared_ptr<const ConnectParameters> parameters, PGconn* connection);
    void MakeReadOnly();

    std::shared_ptr<const ConnectParameters> parameters_;
    PGconn* connection_;
    struct CatalogType {
        ColumnType type;
        Oid base = 0;       // a domain's base type
        int modifier = -1;  // a domain's type modifier
    };
    std::unordered_map<Oid, CatalogType> catalog_;
};

Error ClientError(const char* sqlState, const std::string& message);
// A whole number written by the server (a count, a command tag's count); 0 when there is none.
int64_t WholeNumber(const char* text);
// The text with every secret replaced by asterisks.
std::string WithoutSecrets(std::string text, const std::vector<std::string>& secrets);
Error NoCurrentRecord();  // 3021
Error ClosedObject(const char* what);

// The one statement of a query text, without the semicolons, blanks and comments after it.
// Fails when the text holds no statement, or goes on after a ';' with anything else.
std::string SingleStatement(std::string_view query);

// The type map: a built-in type by OID and modifier; code 0 when the catalogue must tell.
ColumnType BuiltinType(Oid type, int modifier);
// A type of the catalogue by its kind (pg_type.typtype) and name.
ColumnType CatalogueType(char typtype, std::string_view name);

// Reading the server's value texts.
Value DecodeValue(ValueKind kind, std::string_view text);
// Appends the value's text; when the number was read on the way to it (money, numeric and reals
// whose text could not be made from the server's digits) also gives that number, as
// DecodeNumber would, and answers true.
bool AppendValueText(ValueKind kind, std::string_view text, std::string& out, double& number);
double DecodeNumber(ValueKind kind, std::string_view text);
// ISO "yyyy-mm-dd", "yyyy-mm-dd hh:nn:ss[.f][zone]" or "hh:nn:ss[.f][zone]" as the kind says;
// the parts only in their form, the date also in the calendar.
bool ReadDateParts(ValueKind kind, std::string_view text, DateParts& parts);
bool ReadDateTime(ValueKind kind, std::string_view text, DateTime& out);

}  // namespace TabulonLib12::pg

namespace TabulonLib12 {

class PostgresDatabase final : public Database {
public:
    PostgresDatabase(std::string name, std::shared_ptr<const pg::ConnectParameters> parameters,
                     std::shared_ptr<pg::Session> session);
    ~PostgresDatabase() override;

    std::unique_ptr<Recordset> OpenRecordset(const std::string& query) override;
    std::vector<std::string> TableNames() override;  // base tables outside the system schemas
    std::vector<std::string> QueryNames() override;  // views and materialized views
    std::string Name() const override { return name_; }
    void Close() override;
    bool IsOpen() const override { return session_ != nullptr; }

private:
    // The database's own session when no recordset holds it, otherwise a new one.
    std::shared_ptr<pg::Session> FreeSession();
    std::vector<std::string> RelationNames(const char* kinds);
    static std::vector<std::string> RelationNames(pg::Session& session, const char* kinds);

    std::string name_;
    std::shared_ptr<const pg::ConnectParameters> parameters_;
    std::shared_ptr<pg::Session> session_;
};

class PostgresRecordset final : public Recordset {
public:
    // Begins the read-only transaction on the session (which it leases until Close), declares
    // the cursor and fetches the first batch.
    PostgresRecordset(std::shared_ptr<pg::Session> session, std::string sql);
    ~PostgresRecordset() override;

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
    double FieldNumber(int index) const override;

    void Close() override;

private:
    struct Column {
        std::string name;
        pg::ColumnType type;
    };

    void RequireOpen() const;
    void RequireField(int index) const;
    void RequireCurrentRow() const;
    // Brings the batch in hand onto the current record, moving or declaring the cursor again;
    // sets EOF when the records end before it.
    void SyncToCurrent() const;
    void DeclareCursor() const;
    // Batches are asked for ahead of the reader, so that the server reads them while the reader
    // works through the batch in hand.
    void SendFetch() const;
    void ReceiveFetch() const;  // the oldest fetch in flight
    void TopUp() const;         // asks for batches ahead up to the pipeline's depth
    void Settle() const;        // takes in every fetch in flight: needed before any other statement
    void UseNext() const;       // the first batch received becomes the batch in hand
    bool InBatch() const { return current_ >= batchStart_ && current_ < batchStart_ + batchRows_; }
    int64_t CountRecords();
    // The field at the current record, read once for the questions a load asks of it in turn
    // (null? text? number?).
    struct Cell {
        uint64_t batch = 0;  // generation of the batch it was read from
        int64_t record = -1;
        int index = -1;
        bool null = false;
        bool numberKnown = false;
        double number = 0.0;
        std::string_view text;
    };
    const Cell& CellAt(int index) const;
    int Row() const { return static_cast<int>(current_ - batchStart_); }
    void EndTransaction() noexcept;

    std::shared_ptr<pg::Session> session_;
    std::string sql_;
    std::vector<Column> columns_;

    mutable pg::ResultPtr batch_;
    mutable uint64_t batchGeneration_ = 0;  // changes with every batch taken in hand
    mutable Cell cell_;
    mutable int64_t batchStart_ = 0;   // record number of the batch's first row
    mutable int64_t batchRows_ = 0;
    struct Batch {
        pg::ResultPtr rows;
        int64_t start = 0;  // record number of its first row
        int64_t count = 0;
    };
    mutable std::deque<Batch> ahead_;  // received after the batch in hand, in order
    mutable std::optional<Error> aheadError_;  // the failure of the fetch after them, told when reached
    mutable int inFlight_ = 0;         // fetches sent and not yet received
    mutable int sent_ = 0;             // fetches sent since the cursor was declared
    mutable int64_t cursorAt_ = 0;     // records the cursor has gone past
    mutable bool cursorDone_ = false;  // the cursor has reached its end
    mutable bool cursorOpen_ = false;  // declared and not closed or rolled back
    mutable bool failed_ = false;      // a statement failed: the transaction needs its savepoint
    mutable int fetches_ = 0;

    mutable int64_t current_ = 0;
    mutable bool eof_ = false;
    mutable int64_t seen_ = 0;     // records known to exist
    mutable bool exact_ = false;   // seen_ is the exact count
};

}  // namespace TabulonLib12
