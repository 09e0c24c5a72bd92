#pragma once
// A control over one of the two engines: the same scripts make the same tables in a SQLite file
// or in the test's PostgreSQL schema, so a test runs once per engine with the same assertions.
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "control/tabulon12.h"
#include "pg_fixture.h"
#include "platform/db/composite_engine.h"
#include "platform/runtime/settings.h"
#include "platform/sqlite/sqlite_engine.h"
#include "tests/grid/grid_fixture.h"
#include "tests/support/probe.h"
#include "tests/support/test_doubles.h"

namespace TabulonLib12::testing {

enum class Backend { Sqlite, Postgres };

inline void PrintTo(Backend backend, std::ostream* os) {
    *os << (backend == Backend::Sqlite ? "SQLite" : "PostgreSQL");
}

// The engine a host registers, counting its opens.
class HostEngine : public DatabaseEngine {
public:
    std::shared_ptr<Database> OpenDatabase(const std::string& name, const OpenOptions& options) override {
        ++opens;
        connects.push_back(options.connect);
        auto db = composite.OpenDatabase(name, options);
        last = db;
        return db;
    }
    PostgresEngine server;
    SqliteEngine files;
    CompositeEngine composite{server, files};
    int opens = 0;
    std::vector<std::string> connects;
    std::weak_ptr<Database> last;
};

// A control over one backend: the same scripts make the same tables in a SQLite file or in the
// test's PostgreSQL schema.
class LoadRig {
public:
    explicit LoadRig(Backend backend) : backend_(backend) {}

    // Call first; false (with the failure reported) when the server of the test script is missing.
    bool Start() {
        if (backend_ == Backend::Postgres) {
            if (ServerUri().empty()) {
                ADD_FAILURE() << kRunThroughScript;
                return false;
            }
            admin_ = std::make_unique<AdminConnection>();
            if (!admin_->Ok()) return false;
            schema_ = std::make_unique<TestSchema>(*admin_);
        }
        host.messages = &messages;
        host.screen = &screen;
        host.clock = &clock;
        host.engine = &engine;
        control = std::make_unique<Tabulon12>(host, metrics, timers);
        control->setEvents(&events);
        control->Superficie().Resize(9000, kTenRowHeight);
        control->CaricaStruttura();
        // The password reaches the engine as "; pwd=..."; the SQLite engine ignores it.
        S().Password = ServerPassword().empty() ? "segreto" : ServerPassword();
        return true;
    }

    ~LoadRig() {
        control.reset();  // the database it holds goes before the schema
        schema_.reset();
        admin_.reset();
    }

    Tabulon12::Impl& S() { return Tabulon12Probe::Of(*control); }
    CellGrid& FG1() { return S().FG1; }
    const std::string& Password() { return S().Password; }

    // Runs the script on the backend; answers the DataBaseName that reaches it.
    std::string MakeDatabase(const std::string& script, const std::string& file = "test.db") {
        if (backend_ == Backend::Sqlite) {
            const std::string path = dir_.File(file);
            WriteDatabase(path, script);
            return path;
        }
        schema_->Exec(script);
        return schema_->Uri();
    }

    // t(id INTEGER, name VARCHAR(50), amount DOUBLE PRECISION) with records i = 1..n: id i,
    // name "Name i", amount i * 1.5.
    std::string MakeNumbered(int n) {
        std::string script = "CREATE TABLE t(id INTEGER, name VARCHAR(50), amount DOUBLE PRECISION);";
        if (n > 0)
            script += "WITH RECURSIVE k(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM k WHERE i < " + std::to_string(n) +
                      ") INSERT INTO t SELECT i, 'Name ' || i, i * 1.5 FROM k;";
        return MakeDatabase(script);
    }

    void DefineColumns() {
        control->setCols(3);
        const char* fields[] = {"id", "name", "amount"};
        for (int16_t c = 0; c < 3; ++c) {
            control->setCampoQuery(c, fields[c]);
            control->setFormato(c, "Nessuno");
            control->setIntestazione(c, fields[c]);
        }
    }

    void LoadNumbered(int n) {
        const std::string name = MakeNumbered(n);
        DefineColumns();
        control->setDataBaseName(name);
        control->setQueryString("SELECT id, name, amount FROM t ORDER BY id");
        control->Carica();
    }

    // A name under which the backend has no database to give.
    std::string MissingDatabase() {
        if (backend_ == Backend::Sqlite) return dir_.File("gone.db");
        return "postgresql://tabulon@127.0.0.1:1/tabulon";  // nothing listens on port 1
    }

    Backend backend() const { return backend_; }

    HostEngine engine;
    HeadlessTextMetrics metrics;
    ManualTimerService timers;
    RecordingMessageBox messages;
    RecordingScreenPointer screen;
    ManualClock clock;
    HostServices host;
    EventRecorder events;
    std::unique_ptr<Tabulon12> control;

private:
    Backend backend_;
    TempDir dir_;
    std::unique_ptr<AdminConnection> admin_;
    std::unique_ptr<TestSchema> schema_;
};

}  // namespace TabulonLib12::testing
