// A snapshot recordset streamed from a server-side cursor inside a read-only REPEATABLE READ
// transaction: only the batch in hand and the few fetched ahead of it are kept, the count comes
// from the server in the same snapshot, and moving back declares the cursor again, which sees the
// same records.
#include <algorithm>
#include <cctype>
#include <limits>

#include "platform/db/sql_text.h"
#include "postgres_internal.h"
#include "platform/runtime/text.h"

namespace TabulonLib12 {

namespace {

constexpr int64_t kFirstBatch = 1000;  // small, so that opening for one value stays quick
// Small batches, several asked for ahead of the reader: the server always has a fetch waiting
// while the reader takes in one batch and works through another, and a small batch is read with
// less work, since the server gathers each one whole before sending it. One fetch in flight left
// the server idle at every batch's arrival: on a million records, four fetches of 500 ahead load
// in about four fifths of the time that one fetch of 2,000 ahead takes.
constexpr int64_t kBatch = 500;
constexpr int kDepth = 4;

}  // namespace

PostgresRecordset::PostgresRecordset(std::shared_ptr<pg::Session> session, std::string sql)
    : session_(std::move(session)), sql_(std::move(sql)) {
    session_->leased = true;
    try {
        // The savepoint stands before the cursor: rolling back to it repairs a failed fetch and
        // keeps the transaction's snapshot, which the cursor's first statement takes.
        session_->Run("BEGIN TRANSACTION ISOLATION LEVEL REPEATABLE READ READ ONLY; SAVEPOINT tabulon_start",
                      PGRES_COMMAND_OK);
        DeclareCursor();
        SendFetch();
        ReceiveFetch();
        if (aheadError_) throw *aheadError_;
        PGresult* first = ahead_.front().rows.get();
        const int count = PQnfields(first);
        if (count == 0) throw pg::ClientError("42601", "the statement returns no records");
        std::vector<Oid> types;
        for (int i = 0; i < count; ++i) types.push_back(PQftype(first, i));
        session_->LearnTypes(types);
        columns_.reserve(static_cast<size_t>(count));
        for (int i = 0; i < count; ++i) {
            columns_.push_back(Column{PQfname(first, i), session_->TypeOf(PQftype(first, i), PQfmod(first, i))});
        }
        UseNext();
        eof_ = batchRows_ == 0;
    } catch (...) {
        EndTransaction();
        throw;
    }
}

PostgresRecordset::~PostgresRecordset() {
    EndTransaction();
}

void PostgresRecordset::EndTransaction() noexcept {
    if (!session_) return;
    for (; inFlight_ > 0; --inFlight_) session_->ReceivePipelined();
    session_->LeavePipeline();
    // Rolled back, never committed: whatever the read-only transaction admitted is undone.
    // Session advisory locks outlive a rollback and are let go here.
    session_->TryRun("ROLLBACK; SELECT pg_catalog.pg_advisory_unlock_all()", PGRES_TUPLES_OK);
    session_->leased = false;
    session_.reset();
    batch_.reset();
    ahead_.clear();
}

void PostgresRecordset::DeclareCursor() const {
    Settle();
    batch_.reset();
    ++batchGeneration_;
    ahead_.clear();
    aheadError_.reset();
    batchStart_ = batchRows_ = 0;
    cursorAt_ = 0;
    cursorDone_ = false;
    sent_ = fetches_ = 0;
    try {
        if (failed_) {
            session_->Run("ROLLBACK TO SAVEPOINT tabulon_start", PGRES_COMMAND_OK);
            failed_ = false;
        } else if (cursorOpen_) {
            session_->Run("CLOSE tabulon_rows", PGRES_COMMAND_OK);
        }
        cursorOpen_ = false;
        // The user's text goes by the extended protocol, which runs one statement only.
        session_->RunExtended("DECLARE tabulon_rows NO SCROLL CURSOR FOR " + sql_, PGRES_COMMAND_OK);
        cursorOpen_ = true;
    } catch (...) {
        failed_ = true;
        throw;
    }
}

void PostgresRecordset::SendFetch() const {
    const int64_t size = sent_ == 0 ? kFirstBatch : kBatch;
    session_->SendPipelined("FETCH FORWARD " + std::to_string(size) + " FROM tabulon_rows");
    ++sent_;
    ++inFlight_;
}

void PostgresRecordset::ReceiveFetch() const {
    --inFlight_;
    pg::ResultPtr rows = session_->ReceivePipelined();
    if (inFlight_ == 0) session_->LeavePipeline();
    // After a failed fetch the transaction is aborted: what the later ones answer is dropped.
    if (failed_) return;
    if (!rows || PQresultStatus(rows.get()) != PGRES_TUPLES_OK) {
        failed_ = true;
        aheadError_ = session_->ResultError(rows.get());
        return;
    }
    const int64_t asked = fetches_ == 0 ? kFirstBatch : kBatch;
    ++fetches_;
    const int64_t count = PQntuples(rows.get());
    ahead_.push_back(Batch{std::move(rows), cursorAt_, count});
    cursorAt_ += count;
    seen_ = std::max(seen_, cursorAt_);
    if (count < asked) {
        cursorDone_ = true;
        seen_ = cursorAt_;
        exact_ = true;
    }
}

void PostgresRecordset::TopUp() const {
    // Nothing is asked for beyond the end, when the end is known.
    auto asked = [this] {
        int64_t end = cursorAt_;
        for (int i = fetches_; i < sent_; ++i) end += i == 0 ? kFirstBatch : kBatch;
        return end;
    };
    while (inFlight_ < kDepth && !cursorDone_ && !failed_ && cursorOpen_ && !(exact_ && asked() >= seen_)) {
        SendFetch();
    }
}

void PostgresRecordset::Settle() const {
    while (inFlight_ > 0) ReceiveFetch();
}

void PostgresRecordset::UseNext() const {
    batch_.reset();  // the old batch goes before the next one is asked for
    Batch& next = ahead_.front();
    batch_ = std::move(next.rows);
    ++batchGeneration_;
    batchStart_ = next.start;
    batchRows_ = next.count;
    ahead_.pop_front();
    TopUp();
}

void PostgresRecordset::SyncToCurrent() const {
    if (InBatch()) {
        eof_ = false;
        return;
    }
    if (current_ < batchStart_) DeclareCursor();
    while (true) {
        // The batches received after the one in hand follow it without a gap.
        while (!ahead_.empty()) {
            if (current_ < ahead_.front().start + ahead_.front().count) {
                UseNext();
                eof_ = false;
                return;
            }
            ahead_.pop_front();  // skipped over
        }
        if (inFlight_ > 0) {
            ReceiveFetch();
            continue;
        }
        if (aheadError_) {
            // The records from here on could not be read; MoveFirst repairs the cursor.
            Error error = *aheadError_;
            aheadError_.reset();
            throw error;
        }
        if (failed_ || !cursorOpen_) {
            DeclareCursor();
            continue;
        }
        if (cursorDone_) {
            // The records ended before the current one: that is where EOF is.
            seen_ = cursorAt_;
            exact_ = true;
            current_ = seen_;
            eof_ = true;
            return;
        }
        if (current_ > cursorAt_) {
            const int64_t skip = current_ - cursorAt_;
            const std::string move = "MOVE FORWARD " + std::to_string(skip) + " FROM tabulon_rows";
            pg::ResultPtr moved;
            try {
                moved = session_->Run(move.c_str(), PGRES_COMMAND_OK);
            } catch (...) {
                failed_ = true;
                throw;
            }
            const int64_t count = pg::WholeNumber(PQcmdTuples(moved.get()));
            cursorAt_ += count;
            seen_ = std::max(seen_, cursorAt_);
            if (count < skip) cursorDone_ = true;
            continue;
        }
        SendFetch();
    }
}

int64_t PostgresRecordset::CountRecords() {
    Settle();
    if (failed_) {
        // A failed fetch left the transaction waiting for a rollback; the batch in hand stays.
        session_->Run("ROLLBACK TO SAVEPOINT tabulon_start", PGRES_COMMAND_OK);
        failed_ = false;
        cursorOpen_ = false;
    }
    // A savepoint of its own: a count that fails leaves the cursor as it was. The line break
    // ends a comment that the query may finish with.
    session_->Run("SAVEPOINT tabulon_count", PGRES_COMMAND_OK);
    std::string count = "SELECT count(*) FROM (";
    count += WithoutFinalOrderBy(sql_, SqlDialect::Postgres());
    count += "\n) AS tabulon_count";
    try {
        pg::ResultPtr rows = session_->RunExtended(count, PGRES_TUPLES_OK);
        session_->Run("RELEASE SAVEPOINT tabulon_count", PGRES_COMMAND_OK);
        return pg::WholeNumber(PQntuples(rows.get()) == 1 ? PQgetvalue(rows.get(), 0, 0) : nullptr);
    } catch (const Error&) {
        if (!session_->TryRun("ROLLBACK TO SAVEPOINT tabulon_count; RELEASE SAVEPOINT tabulon_count",
                              PGRES_COMMAND_OK)) {
            failed_ = true;
        }
        throw;
    }
}

void PostgresRecordset::RequireOpen() const {
    if (!session_) throw pg::ClosedObject("the recordset");
}

void PostgresRecordset::RequireField(int index) const {
    RequireOpen();
    if (index < 0 || index >= static_cast<int>(columns_.size())) throw Error::OutOfBounds();
}

void PostgresRecordset::RequireCurrentRow() const {
    RequireOpen();
    if (eof_) throw pg::NoCurrentRecord();
    if (InBatch()) return;
    SyncToCurrent();
    if (eof_) throw pg::NoCurrentRecord();
}

int32_t PostgresRecordset::RecordCount() {
    RequireOpen();
    return static_cast<int32_t>(std::min<int64_t>(seen_, std::numeric_limits<int32_t>::max()));
}

void PostgresRecordset::MoveFirst() {
    RequireOpen();
    if (exact_ && seen_ == 0) throw pg::NoCurrentRecord();
    current_ = 0;
    eof_ = false;
    SyncToCurrent();
}

void PostgresRecordset::MoveLast() {
    RequireOpen();
    if (!exact_) {
        // A query whose records depend on chance may count otherwise than it reads; the records
        // already read stand.
        seen_ = std::max(seen_, CountRecords());
        exact_ = true;
    }
    if (seen_ == 0) throw pg::NoCurrentRecord();
    current_ = seen_ - 1;  // the cursor catches up only when a field is read
    eof_ = false;
}

void PostgresRecordset::MoveNext() {
    RequireOpen();
    if (eof_) throw pg::NoCurrentRecord();
    if (exact_ && current_ + 1 >= seen_) {
        current_ = seen_;
        eof_ = true;
        return;
    }
    ++current_;
    if (InBatch()) {
        if (inFlight_ > 0 && (current_ & 1023) == 0) session_->Poll();
        return;
    }
    SyncToCurrent();
}

bool PostgresRecordset::IsEOF() const {
    return !session_ || eof_;
}

int PostgresRecordset::FieldCount() const {
    RequireOpen();
    return static_cast<int>(columns_.size());
}

std::string PostgresRecordset::FieldName(int index) const {
    RequireField(index);
    return columns_[static_cast<size_t>(index)].name;
}

int PostgresRecordset::FieldIndex(std::string_view name) const {
    RequireOpen();
    for (size_t i = 0; i < columns_.size(); ++i) {
        if (EqualsInsensitive(columns_[i].name, name)) return static_cast<int>(i);
    }
    return -1;
}

int16_t PostgresRecordset::FieldType(int index) const {
    RequireField(index);
    return columns_[static_cast<size_t>(index)].type.code;
}

const PostgresRecordset::Cell& PostgresRecordset::CellAt(int index) const {
    if (!session_ || index < 0 || index >= static_cast<int>(columns_.size()) || eof_ || !InBatch()) {
        RequireField(index);
        RequireCurrentRow();
    }
    if (cell_.index == index && cell_.record == current_ && cell_.batch == batchGeneration_) return cell_;
    const int row = Row();
    PGresult* batch = batch_.get();
    cell_.batch = batchGeneration_;
    cell_.record = current_;
    cell_.index = index;
    cell_.numberKnown = false;
    cell_.null = PQgetisnull(batch, row, index) != 0;
    cell_.text = cell_.null ? std::string_view()
                            : std::string_view(PQgetvalue(batch, row, index),
                                               static_cast<size_t>(PQgetlength(batch, row, index)));
    return cell_;
}

bool PostgresRecordset::FieldIsNull(int index) const {
    return CellAt(index).null;
}

Value PostgresRecordset::FieldValue(int index) const {
    const Cell& cell = CellAt(index);
    if (cell.null) return Value();
    return pg::DecodeValue(columns_[static_cast<size_t>(index)].type.kind, cell.text);
}

void PostgresRecordset::AppendFieldText(int index, std::string& out) const {
    const Cell& cell = CellAt(index);
    if (cell.null) return;
    double number = 0.0;
    if (pg::AppendValueText(columns_[static_cast<size_t>(index)].type.kind, cell.text, out, number)) {
        cell_.number = number;
        cell_.numberKnown = true;
    }
}

double PostgresRecordset::FieldNumber(int index) const {
    const Cell& cell = CellAt(index);
    if (cell.null) return 0.0;
    if (cell.numberKnown) return cell.number;
    const pg::ValueKind kind = columns_[static_cast<size_t>(index)].type.kind;
    const double number = pg::DecodeNumber(kind, cell.text);
    // Text is read as a number under the settings in force, which may change before the next
    // question: only a number that does not depend on them is kept.
    if (kind != pg::ValueKind::Text && kind != pg::ValueKind::Date && kind != pg::ValueKind::Timestamp &&
        kind != pg::ValueKind::Time) {
        cell_.number = number;
        cell_.numberKnown = true;
    }
    return number;
}

void PostgresRecordset::Close() {
    EndTransaction();
    eof_ = true;
}

}  // namespace TabulonLib12
