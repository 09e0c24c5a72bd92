#pragma once
// A control on the headless elements with real SQLite files, recorders for the host's message
// boxes, screen pointer and property-change notices, and a recorder of the control's events.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "control/tabulon12.h"
#include "grid/row_window.h"
#include "grid/values.h"
#include "platform/runtime/text.h"
#include "platform/sqlite/sqlite_engine.h"
#include "platform/ui/text_metrics.h"
#include "tests/db/sqlite_fixture.h"
#include "tests/support/probe.h"
#include "tests/support/test_doubles.h"

namespace TabulonLib12::testing {

// Records the events in the order they arrive; a handler for Caricato may be set.
class EventRecorder : public Tabulon12Events {
public:
    std::vector<std::string> names;
    std::function<void()> onCaricato;
    void Caricato() override {
        names.push_back("Caricato");
        if (onCaricato) onCaricato();
    }
    void GoDown() override { names.push_back("GoDown"); }
    void GoUp() override { names.push_back("GoUp"); }
    void Resize() override { names.push_back("Resize"); }
    int Count(const std::string& name) const {
        return static_cast<int>(std::count(names.begin(), names.end(), name));
    }
};

// An engine that counts the opens, remembers their names and connect texts, and hands out the
// real SQLite databases.
class CountingEngine : public DatabaseEngine {
public:
    std::shared_ptr<Database> OpenDatabase(const std::string& name, const OpenOptions& options) override {
        ++opens;
        names.push_back(name);
        connects.push_back(options.connect);
        readOnly.push_back(options.readOnly);
        if (!failWith.empty()) throw Error(ErrorKind::Database, 26, failWith);
        auto db = real.OpenDatabase(name, options);
        last = db;
        return db;
    }
    SqliteEngine real;
    int opens = 0;
    std::vector<std::string> names, connects;
    std::vector<bool> readOnly;
    std::weak_ptr<Database> last;
    std::string failWith;  // when set, every open fails with this description
};

// The control's height that gives ten rows of the surface with the headless metrics: the free
// height under the grid's top is twelve rows of 240 twips, rounding gives eleven and the room
// for the totals takes one more.
inline constexpr float kTenRowHeight = 345 + 12 * 240;

class GridTest : public ::testing::Test {
protected:
    GridTest() {
        host.messages = &messages;
        host.screen = &screen;
        host.clock = &clock;
        host.engine = &engine;
        host.propertyChanged = [this](const std::string& name) { changed.push_back(name); };
        control = std::make_unique<Tabulon12>(host, metrics, timers);
        control->setEvents(&events);
        control->Superficie().Resize(9000, kTenRowHeight);
        control->CaricaStruttura();
        changed.clear();
    }

    Tabulon12::Impl& S() { return Tabulon12Probe::Of(*control); }
    CellGrid& FG1() { return S().FG1; }
    // Items of the control's element arrays, by their design names.
    Label& Menu(int16_t i) { return FindElement<Label>(S().surface, "LabelMenu", i); }
    ImageElement& PicCol(int16_t i) { return FindElement<ImageElement>(S().surface, "PicCol", i); }
    Frame& FrameLine(int16_t i) { return FindElement<Frame>(S().surface, "FrameLine", i); }

    // A database file in the test's folder, written with the script.
    std::string MakeDatabase(const std::string& script, const std::string& name = "test.db") {
        const std::string path = dir.File(name);
        WriteDatabase(path, script);
        return path;
    }

    // A table t(id INTEGER, name VARCHAR(50), amount DOUBLE) with `n` records: id i+1,
    // name "Name i+1", amount (i+1) * 1.5.
    std::string MakeNumbered(int n, const std::string& name = "test.db") {
        std::string script = "CREATE TABLE t(id INTEGER, name VARCHAR(50), amount DOUBLE);";
        if (n > 0)
            script += "WITH RECURSIVE k(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM k WHERE i < " + std::to_string(n) +
                      ") INSERT INTO t SELECT i, 'Name ' || i, i * 1.5 FROM k;";
        return MakeDatabase(script, name);
    }

    // Three columns bound to id, name and amount.
    void DefineColumns() {
        control->setCols(3);
        const char* fields[] = {"id", "name", "amount"};
        for (int16_t c = 0; c < 3; ++c) {
            control->setCampoQuery(c, fields[c]);
            control->setFormato(c, "Nessuno");
            control->setIntestazione(c, fields[c]);
        }
        changed.clear();
    }

    void LoadNumbered(int n) {
        const std::string path = MakeNumbered(n);
        DefineColumns();
        control->setDataBaseName(path);
        control->setQueryString("SELECT id, name, amount FROM t ORDER BY id");
        control->Carica();
    }

    TempDir dir;
    HeadlessTextMetrics metrics;
    ManualTimerService timers;
    RecordingMessageBox messages;
    RecordingScreenPointer screen;
    ManualClock clock;
    CountingEngine engine;
    HostServices host;
    EventRecorder events;
    std::vector<std::string> changed;
    std::unique_ptr<Tabulon12> control;
};

}  // namespace TabulonLib12::testing
