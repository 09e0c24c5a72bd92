#pragma once
// What the control uses of a database engine: a read-only database, snapshot recordsets on a
// query text, fields by name and by index. Every failure is an Error of kind Database whose
// description is the engine's own text.
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "value.h"

namespace TabulonLib12 {

class Recordset {
public:
    virtual ~Recordset() = default;

    // Records counted so far: 0 for an empty result, at least 1 otherwise until MoveLast has
    // been called, exact afterwards.
    virtual int32_t RecordCount() = 0;
    virtual void MoveFirst() = 0;
    virtual void MoveLast() = 0;
    virtual void MoveNext() = 0;  // past the last record EOF becomes true; beyond that it fails
    virtual bool IsEOF() const = 0;

    virtual int FieldCount() const = 0;
    virtual std::string FieldName(int index) const = 0;
    // Index of a field by name, compared without regard to case; -1 when there is none.
    virtual int FieldIndex(std::string_view name) const = 0;
    // The type code of a field at the current record (the declared type where the engine has
    // one, otherwise the type of the value).
    virtual int16_t FieldType(int index) const = 0;
    // The value of a field at the current record. A bad index, or no current record, fails.
    virtual Value FieldValue(int index) const = 0;

    // The hot path of a load: the field's general text (as Value::ToText gives it) appended to
    // `out`, and its numeric value for the sums, without building a Value.
    virtual void AppendFieldText(int index, std::string& out) const = 0;
    virtual bool FieldIsNull(int index) const = 0;
    // The field as a number for the column sums: whole and real numbers as they are, a truth
    // value -1 or 0, a text that reads as a number (system settings) its value, all else 0.
    virtual double FieldNumber(int index) const;

    virtual void Close() = 0;
};

struct OpenOptions {
    bool exclusive = false;
    bool readOnly = true;        // the control never opens for writing; false is refused
    std::string connect;         // "; pwd=..." and other engine-specific connect text
};

class Database {
public:
    virtual ~Database() = default;
    // Opens a snapshot on a query text: the records as they were when it was opened.
    virtual std::unique_ptr<Recordset> OpenRecordset(const std::string& query) = 0;
    virtual std::vector<std::string> TableNames() = 0;
    virtual std::vector<std::string> QueryNames() = 0;  // views
    virtual std::string Name() const = 0;
    virtual void Close() = 0;
    virtual bool IsOpen() const = 0;
};

// The engine that opens databases by name (the host registers one with the control). A path
// that does not exist is an error, never a new empty file.
class DatabaseEngine {
public:
    virtual ~DatabaseEngine() = default;
    virtual std::shared_ptr<Database> OpenDatabase(const std::string& name, const OpenOptions& options) = 0;
};

}  // namespace TabulonLib12
