#pragma once
// One engine for the host to register: names of database servers go to the server engine, every
// other name (a file path) to the file engine. The choice is made on the text of the name alone,
// so this layer needs no database client library.
#include <memory>
#include <string>
#include <string_view>

#include "database.h"

namespace TabulonLib12 {

// True for the names that denote a PostgreSQL server: a "postgresql://" or "postgres://" URI
// (the scheme in any case), or a key=value connection string whose every key is a connection
// keyword ("host=127.0.0.1 port=5433 dbname=x", values plain or in single quotes). Anything
// else, a file path with '=' in it included, is not.
bool IsServerDatabaseName(std::string_view name);

class CompositeEngine final : public DatabaseEngine {
public:
    // Both engines stay the caller's and must outlive this one.
    CompositeEngine(DatabaseEngine& serverEngine, DatabaseEngine& fileEngine)
        : server_(serverEngine), files_(fileEngine) {}

    std::shared_ptr<Database> OpenDatabase(const std::string& name, const OpenOptions& options) override {
        return IsServerDatabaseName(name) ? server_.OpenDatabase(name, options) : files_.OpenDatabase(name, options);
    }

private:
    DatabaseEngine& server_;
    DatabaseEngine& files_;
};

}  // namespace TabulonLib12
