#pragma once
// The PostgreSQL engine: a database is a server session reached by a "postgresql://" (or
// "postgres://") URI or a key=value connection string; a recordset is a snapshot streamed from
// a server-side cursor, never gathered whole in memory.
//
// Connecting: the name goes to libpq as its dbname with expansion, so every URI and key=value
// form of libpq works. The connect text "; pwd=..." gives the password (everything after
// "pwd=", to the end of the text, without regard to the case of "pwd"); it overrides one in the
// name, goes to libpq as its own parameter, and never appears in a message: every text that
// comes back from libpq or the server has each password of the connection (the given one, and
// one written in the name, also in its %-encoded form) replaced by "********".
//
// Read-only, several guards deep:
//   - the session starts with default_transaction_read_only=on in its options, and runs
//     SET SESSION CHARACTERISTICS AS TRANSACTION READ ONLY, then checks that it holds;
//   - every recordset runs inside BEGIN TRANSACTION ISOLATION LEVEL REPEATABLE READ READ ONLY,
//     which is rolled back (never committed) when the recordset closes, so that whatever a query
//     may do that a read-only transaction admits (a large object, a notification, a setting) is
//     undone; session advisory locks, which outlive a rollback, are released at that point too;
//   - the query runs as DECLARE ... CURSOR FOR <query>, which admits SELECT, VALUES and TABLE
//     and refuses data-modifying WITH clauses, and is sent over the extended protocol, which
//     refuses a text of more than one statement;
//   - before anything is sent, a text that goes on after a ';' with more than blanks and comments
//     is refused here, in our own words.
// A query that tries to write therefore fails with the server's message (or ours for a second
// statement), and the database stays as it was.
//
// The session also fixes what the value texts depend on: client_encoding UTF8, DateStyle ISO,
// IntervalStyle postgres, bytea_output hex, lc_monetary C, standard_conforming_strings on,
// extra_float_digits 3 (exact float texts). Settings of the name's own "options" are kept,
// these come after them.
//
// Type codes (FieldType) come from the column's type as the server describes it; a domain takes
// the code of its base type, an enum is Text:
//
//   boolean                                                  1  Boolean
//   smallint (int2)                                          3  Integer
//   integer (int4), bigint (int8), oid                       4  Long   (the codes have no wider
//                                                                       whole type; a bigint keeps
//                                                                       every digit in its text)
//   numeric, money                                           5  Currency
//   real (float4)                                            6  Single
//   double precision (float8)                                7  Double
//   date, timestamp, timestamptz, time, timetz               8  Date
//   text, name, "char", citext, an enum; varchar and char
//     without a length or with a length up to 255            10 Text
//   varchar and char with a length above 255                 12 Memo
//   bytea                                                    11 LongBinary
//   uuid                                                     15 Guid
//   json, jsonb, xml, and every other type (interval, inet,
//     arrays, ranges, geometric and composite types, ...)    12 Memo
//
// text without a length is Text (10), not Memo, as the SQLite engine takes TEXT: it is the
// ordinary type of short strings, and the conditions of the control compare only Text as text.
//
// Values (FieldValue; AppendFieldText gives the same text as FieldValue(i).ToText):
//   NULL                          Null
//   boolean                       bool, text "True"/"False"
//   smallint, integer, bigint, oid int64_t, all digits
//   numeric                       a whole value that fits 64 bits: int64_t, all digits; any other
//                                 double, text by NumberToText under CurrentSettings() (as a
//                                 NUMERIC column of SQLite keeps 12.00 as 12 and 1.5 as a real)
//   money                         double (the amount, without symbol and grouping), as numeric
//   real, double precision        double, text by NumberToText under CurrentSettings()
//   date, timestamp, time         DateTime, text by DateToText under CurrentSettings(); fractions
//     (also with a zone)          of a second and the zone offset are dropped (a timestamptz shows
//                                 the time in the session's time zone); infinity, BC dates and
//                                 years beyond 9999 stay text as the server writes them
//   bytea                         Blob, text the bytes as they are
//   uuid                          text "{XXXXXXXX-XXXX-XXXX-XXXX-XXXXXXXXXXXX}", as the SQLite
//                                 engine shows a GUID
//   any other type                std::string, the server's text (char(n) keeps its padding)
//
// Streaming: the first FETCH takes 1,000 records, each later one 2,000. The next batch is asked
// for as soon as the one before arrives, so that the server works on it while the reader goes
// through the batch in hand; no more than these two batches are ever held. RecordCount is the
// number of records seen so far (at least 1 when there is one) until MoveLast, which counts the
// query in the same snapshot (SELECT count(*) FROM (<query>), a final ORDER BY left out) without
// moving the cursor: the cursor catches up, skipping with MOVE, only when a field is read.
// MoveFirst declares the cursor again when the batch in hand does not hold the first record; a
// failed fetch is repaired there (a savepoint taken before the cursor keeps the snapshot). A
// recordset holds its own session for its lifetime: the database's own when it is free, else a
// second one opened with the same parameters.
//
// Errors are Error(ErrorKind::Database, number, the server's primary message, or libpq's text
// for a failed connection). The number is the SQLSTATE packed as the server packs it (six bits
// per character, SqlStateNumber below); a failed connection is "08001", a lost one "08006".
// Moving past EOF, or reading with no current record, gives number 3021 "No current record.".
// A bad field index gives Error::OutOfBounds().
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "platform/db/database.h"

namespace TabulonLib12 {

// The number of an SQLSTATE such as "22012": each of the five characters c gives (c - '0') & 63,
// the first in the lowest six bits. Never 0 except for "00000".
int32_t SqlStateNumber(std::string_view sqlState);

class PostgresEngine final : public DatabaseEngine {
public:
    // `name` is a connection URI or key=value string (IsServerDatabaseName); anything else, a
    // failed connection, or options.readOnly false fail. options.exclusive has no meaning here.
    std::shared_ptr<Database> OpenDatabase(const std::string& name, const OpenOptions& options) override;
};

}  // namespace TabulonLib12
