// A snapshot recordset over one prepared statement. The rows are read as the reader moves, never
// gathered in memory; a one-row read kept open beside the statement holds the read transaction,
// so that counting, rewinding and reading all see the file as it was when the recordset opened.
#include <algorithm>
#include <cctype>
#include <charconv>
#include <limits>

#include "platform/db/sql_text.h"
#include "platform/runtime/conversions.h"
#include "platform/runtime/text.h"
#include "sqlite_internal.h"

namespace TabulonLib12 {

namespace {

using detail::EngineError;

std::string_view ColumnText(sqlite3_stmt* statement, int index) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, index));
    int size = sqlite3_column_bytes(statement, index);
    return text != nullptr ? std::string_view(text, static_cast<size_t>(size)) : std::string_view();
}

void AppendInteger(int64_t value, std::string& out) {
    char buffer[24];
    auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
    out.append(buffer, result.ptr);
}

}  // namespace

SqliteRecordset::SqliteRecordset(std::shared_ptr<detail::SqliteConnection> connection, std::string sql,
                                 detail::StatementPtr statement)
    : connection_(std::move(connection)), sql_(std::move(sql)), statement_(std::move(statement)) {
    sqlite3* db = connection_->handle;
    snapshot_ = detail::PrepareSingleStatement(db, "SELECT count(*) FROM sqlite_master", nullptr);
    if (sqlite3_step(snapshot_.get()) != SQLITE_ROW) throw EngineError(db);

    int count = sqlite3_column_count(statement_.get());
    names_.reserve(static_cast<size_t>(count));
    declared_.reserve(static_cast<size_t>(count));
    for (int i = 0; i < count; ++i) {
        const char* name = sqlite3_column_name(statement_.get(), i);
        if (name == nullptr) throw EngineError(SQLITE_NOMEM);
        names_.emplace_back(name);
        declared_.push_back(detail::DeclaredTypeCode(sqlite3_column_decltype(statement_.get(), i)));
    }
    SyncToCurrent();
}

SqliteRecordset::~SqliteRecordset() = default;

void SqliteRecordset::RequireOpen() const {
    if (!statement_) throw detail::ClosedObject("the recordset");
}

void SqliteRecordset::RequireField(int index) const {
    RequireOpen();
    if (index < 0 || index >= static_cast<int>(names_.size())) throw Error::OutOfBounds();
}

bool SqliteRecordset::StepOnce() const {
    int rc = sqlite3_step(statement_.get());
    if (rc == SQLITE_ROW) {
        ++statementRow_;
        seen_ = std::max(seen_, statementRow_ + 1);
        return true;
    }
    // After the end, or a failure, the statement must start again from its first row.
    statementDone_ = true;
    if (rc == SQLITE_DONE) return false;
    throw EngineError(connection_->handle);
}

void SqliteRecordset::SyncToCurrent() const {
    if (!statementDone_ && statementRow_ == current_) return;
    if (statementDone_ || statementRow_ > current_) {
        sqlite3_reset(statement_.get());
        statementRow_ = -1;
        statementDone_ = false;
    }
    while (statementRow_ < current_) {
        if (!StepOnce()) {
            // The rows ended before the current one: that is where EOF is.
            seen_ = statementRow_ + 1;
            exact_ = true;
            current_ = seen_;
            eof_ = true;
            return;
        }
    }
    eof_ = false;
}

void SqliteRecordset::RequireCurrentRow() const {
    RequireOpen();
    if (eof_) throw detail::NoCurrentRecord();
    SyncToCurrent();
    if (eof_) throw detail::NoCurrentRecord();
}

int64_t SqliteRecordset::CountRows() const {
    sqlite3* db = connection_->handle;
    // The engine counts the rows of the query itself, which for a plain table needs no scan and
    // for an ordered one no sort. The line break ends a comment that the query may finish with.
    try {
        std::string countQuery = "SELECT count(*) FROM (";
        countQuery += WithoutFinalOrderBy(sql_, SqlDialect::Sqlite());
        countQuery += "\n)";
        detail::StatementPtr count = detail::PrepareSingleStatement(db, countQuery, nullptr);
        if (sqlite3_step(count.get()) == SQLITE_ROW) return sqlite3_column_int64(count.get(), 0);
    } catch (const Error&) {
        // Not every statement can stand as a subquery (PRAGMA, for one): step a copy instead.
    }
    detail::StatementPtr copy = detail::PrepareSingleStatement(db, sql_, nullptr);
    int64_t rows = 0;
    int rc;
    while ((rc = sqlite3_step(copy.get())) == SQLITE_ROW) ++rows;
    if (rc != SQLITE_DONE) throw EngineError(db);
    return rows;
}

int32_t SqliteRecordset::RecordCount() {
    RequireOpen();
    return static_cast<int32_t>(std::min<int64_t>(seen_, std::numeric_limits<int32_t>::max()));
}

void SqliteRecordset::MoveFirst() {
    RequireOpen();
    if (exact_ && seen_ == 0) throw detail::NoCurrentRecord();
    current_ = 0;
    eof_ = false;
    SyncToCurrent();
}

void SqliteRecordset::MoveLast() {
    RequireOpen();
    if (!exact_) {
        // A query whose rows depend on chance may count otherwise than it reads; the rows already
        // read stand.
        seen_ = std::max(seen_, CountRows());
        exact_ = true;
    }
    if (seen_ == 0) throw detail::NoCurrentRecord();
    current_ = seen_ - 1;
    eof_ = false;
}

void SqliteRecordset::MoveNext() {
    RequireOpen();
    if (eof_) throw detail::NoCurrentRecord();
    if (exact_ && current_ + 1 >= seen_) {
        current_ = seen_;
        eof_ = true;
        return;
    }
    ++current_;
    SyncToCurrent();
}

bool SqliteRecordset::IsEOF() const {
    return !statement_ || eof_;
}

int SqliteRecordset::FieldCount() const {
    RequireOpen();
    return static_cast<int>(names_.size());
}

std::string SqliteRecordset::FieldName(int index) const {
    RequireField(index);
    return names_[static_cast<size_t>(index)];
}

int SqliteRecordset::FieldIndex(std::string_view name) const {
    RequireOpen();
    for (size_t i = 0; i < names_.size(); ++i) {
        if (EqualsInsensitive(names_[i], name)) return static_cast<int>(i);
    }
    return -1;
}

int16_t SqliteRecordset::TypeCodeAtRow(int index) const {
    int16_t code = declared_[static_cast<size_t>(index)];
    if (code != 0) return code;
    return detail::StorageTypeCode(sqlite3_column_type(statement_.get(), index));
}

int16_t SqliteRecordset::FieldType(int index) const {
    RequireField(index);
    int16_t code = declared_[static_cast<size_t>(index)];
    if (code != 0) return code;
    if (eof_) return FieldType::Text;  // no value to take the type from: as for NULL
    SyncToCurrent();
    if (eof_) return FieldType::Text;
    return detail::StorageTypeCode(sqlite3_column_type(statement_.get(), index));
}

bool SqliteRecordset::FieldIsNull(int index) const {
    RequireField(index);
    RequireCurrentRow();
    return sqlite3_column_type(statement_.get(), index) == SQLITE_NULL;
}

Value SqliteRecordset::FieldValue(int index) const {
    RequireField(index);
    RequireCurrentRow();
    sqlite3_stmt* statement = statement_.get();
    int16_t code = TypeCodeAtRow(index);
    switch (sqlite3_column_type(statement, index)) {
        case SQLITE_NULL:
            return Value();
        case SQLITE_INTEGER: {
            int64_t value = sqlite3_column_int64(statement, index);
            if (code == FieldType::Boolean) return Value(value != 0);
            return Value(value);
        }
        case SQLITE_FLOAT: {
            double value = sqlite3_column_double(statement, index);
            if (code == FieldType::Boolean) return Value(value != 0.0);
            return Value(value);
        }
        case SQLITE_TEXT: {
            std::string_view text = ColumnText(statement, index);
            DateTime date;
            if (code == FieldType::Date && detail::ReadIsoDate(text, date)) return Value(date);
            return Value(std::string(text));
        }
        default: {
            const auto* bytes = static_cast<const unsigned char*>(sqlite3_column_blob(statement, index));
            int size = sqlite3_column_bytes(statement, index);
            if (code == FieldType::Guid && size == 16) {
                std::string text;
                detail::AppendGuidText(bytes, text);
                return Value(std::move(text));
            }
            return Value(bytes != nullptr ? Blob(bytes, bytes + size) : Blob());
        }
    }
}

void SqliteRecordset::AppendFieldText(int index, std::string& out) const {
    RequireField(index);
    RequireCurrentRow();
    sqlite3_stmt* statement = statement_.get();
    switch (sqlite3_column_type(statement, index)) {
        case SQLITE_NULL:
            return;
        case SQLITE_INTEGER: {
            int64_t value = sqlite3_column_int64(statement, index);
            if (TypeCodeAtRow(index) == FieldType::Boolean) {
                out += value != 0 ? "True" : "False";
            } else {
                AppendInteger(value, out);
            }
            return;
        }
        case SQLITE_FLOAT: {
            double value = sqlite3_column_double(statement, index);
            if (TypeCodeAtRow(index) == FieldType::Boolean) {
                out += value != 0.0 ? "True" : "False";
            } else {
                AppendNumberText(value, CurrentSettings(), out);
            }
            return;
        }
        case SQLITE_TEXT: {
            std::string_view text = ColumnText(statement, index);
            DateTime date;
            if (declared_[static_cast<size_t>(index)] == FieldType::Date && detail::ReadIsoDate(text, date)) {
                out += DateToText(date, CurrentSettings());
            } else {
                out += text;
            }
            return;
        }
        default: {
            const auto* bytes = static_cast<const char*>(sqlite3_column_blob(statement, index));
            size_t size = static_cast<size_t>(sqlite3_column_bytes(statement, index));
            if (declared_[static_cast<size_t>(index)] == FieldType::Guid && size == 16) {
                detail::AppendGuidText(reinterpret_cast<const unsigned char*>(bytes), out);
            } else if (bytes != nullptr) {
                out.append(bytes, size);
            }
            return;
        }
    }
}

double SqliteRecordset::FieldNumber(int index) const {
    RequireField(index);
    RequireCurrentRow();
    sqlite3_stmt* statement = statement_.get();
    bool truth = declared_[static_cast<size_t>(index)] == FieldType::Boolean;
    switch (sqlite3_column_type(statement, index)) {
        case SQLITE_INTEGER: {
            int64_t value = sqlite3_column_int64(statement, index);
            if (truth) return value != 0 ? -1.0 : 0.0;
            return static_cast<double>(value);
        }
        case SQLITE_FLOAT: {
            double value = sqlite3_column_double(statement, index);
            if (truth) return value != 0.0 ? -1.0 : 0.0;
            return value;
        }
        case SQLITE_TEXT: {
            std::string_view text = ColumnText(statement, index);
            DateTime date;
            if (declared_[static_cast<size_t>(index)] == FieldType::Date && detail::ReadIsoDate(text, date)) {
                return 0.0;  // a date is no number for the sums
            }
            return ParseNumber(text, CurrentSettings()).value_or(0.0);
        }
        default:
            return 0.0;  // NULL and binary data
    }
}

void SqliteRecordset::Close() {
    statement_.reset();
    snapshot_.reset();
    connection_.reset();  // after the statements: a closed database may now let its file go
    eof_ = true;
}

}  // namespace TabulonLib12
