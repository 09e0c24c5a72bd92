// The load of a long list from PostgreSQL on loopback: Carica of 1,000,000 records of ten mixed
// columns against a floor, raw libpq in single-row mode fetching the same query and copying every
// column's text into one contiguous buffer with offsets, in the same run. Also the peak memory of
// the load against what the row store keeps.
//
// It needs a running server: TABULON_PG_URI and TABULON_PG_PASSWORD, as scripts/postgres.sh
// start DIR writes them into DIR/env. The table is made once in the schema tabulon_bench.
#include <libpq-fe.h>
#include <malloc.h>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench_support.h"
#include "control_rig.h"
#include "control/tabulon12.h"
#include "platform/postgres/postgres_engine.h"
#include "platform/ui/text_metrics.h"

using namespace TabulonLib12;
using namespace TabulonBench;

namespace {

constexpr const char* kSchema = "tabulon_bench";

std::string Env(const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr ? value : "";
}

// The server's URI with the benchmark's schema first in the search path.
std::string BenchUri() {
    std::string uri = Env("TABULON_PG_URI");
    return uri + (uri.find('?') == std::string::npos ? "?" : "&") + "options=-c%20search_path%3D" + kSchema;
}

PGconn* Connect(const std::string& uri) {
    const std::string password = Env("TABULON_PG_PASSWORD");
    const char* keywords[] = {"dbname", "password", nullptr};
    const char* values[] = {uri.c_str(), password.c_str(), nullptr};
    PGconn* connection = PQconnectdbParams(keywords, values, 1);
    if (PQstatus(connection) != CONNECTION_OK) {
        std::string message = PQerrorMessage(connection);
        PQfinish(connection);
        throw std::runtime_error("cannot connect: " + message);
    }
    return connection;
}

void Run(PGconn* connection, const std::string& sql) {
    PGresult* result = PQexec(connection, sql.c_str());
    const ExecStatusType status = PQresultStatus(result);
    std::string message = PQresultErrorMessage(result);
    PQclear(result);
    if (status != PGRES_COMMAND_OK && status != PGRES_TUPLES_OK) throw std::runtime_error(message + sql);
}

// The mixed table of the SQLite benchmark, with the same values, made once.
void MakeMixedTable(int64_t rows) {
    PGconn* connection = Connect(Env("TABULON_PG_URI"));
    const std::string count = std::to_string(rows);
    PGresult* present = PQexec(connection, ("SELECT count(*) FROM " + std::string(kSchema) + ".mixed").c_str());
    const bool ready = PQresultStatus(present) == PGRES_TUPLES_OK && std::string(PQgetvalue(present, 0, 0)) == count;
    PQclear(present);
    if (!ready) {
        std::fprintf(stderr, "making %s.mixed with %s records...\n", kSchema, count.c_str());
        Run(connection, std::string("DROP SCHEMA IF EXISTS ") + kSchema + " CASCADE; CREATE SCHEMA " + kSchema +
                            "; SET search_path TO " + kSchema +
                            "; CREATE TABLE mixed(id INTEGER PRIMARY KEY, code VARCHAR(10), city VARCHAR(20), day DATE,"
                            " price DOUBLE PRECISION, rate DOUBLE PRECISION, qty INTEGER, paid BOOLEAN,"
                            " note VARCHAR(60), colour VARCHAR(12));"
                            "INSERT INTO mixed SELECT i, 'C' || (i % 9973),"
                            " CASE i % 5 WHEN 0 THEN 'Milano' WHEN 1 THEN 'Torino' WHEN 2 THEN 'Bari'"
                            " WHEN 3 THEN 'Roma' ELSE 'Udine' END, DATE '2020-01-01' + (i % 2000),"
                            " (i % 100000) / 100.0, (i % 997) / 7.0, i % 250, i % 2 = 1,"
                            " substr('Consegna prevista entro la fine del mese, salvo imprevisti del vettore' || i,"
                            " 1, 60), (i % 256) || ',' || ((i * 7) % 256) || ',200'"
                            " FROM generate_series(1, " + count + ") AS i; ANALYZE mixed");
    }
    PQfinish(connection);
}

// The floor: single-row mode, each column's text copied into one buffer with offsets.
void RawLibpqFloor(benchmark::State& state) {
    const std::string uri = BenchUri();
    for (auto _ : state) {
        PGconn* connection = Connect(uri);
        std::string buffer;
        std::vector<uint64_t> offsets;
        PQsendQuery(connection, kMixedQuery);
        PQsetSingleRowMode(connection);
        while (PGresult* result = PQgetResult(connection)) {
            if (PQresultStatus(result) == PGRES_SINGLE_TUPLE) {
                const int columns = PQnfields(result);
                for (int c = 0; c < columns; ++c) {
                    offsets.push_back(buffer.size());
                    if (!PQgetisnull(result, 0, c)) {
                        buffer.append(PQgetvalue(result, 0, c), static_cast<size_t>(PQgetlength(result, 0, c)));
                    }
                }
            } else if (PQresultStatus(result) != PGRES_TUPLES_OK) {
                state.SkipWithError(PQresultErrorMessage(result));
            }
            PQclear(result);
        }
        benchmark::DoNotOptimize(buffer.data());
        state.counters["text_bytes"] = static_cast<double>(buffer.size());
        state.counters["cells"] = static_cast<double>(offsets.size());
        PQfinish(connection);
    }
}

// A control of 30 surface rows over the mixed table, with the columns of the SQLite benchmark.
struct PostgresRig {
    HeadlessTextMetrics metrics;
    ManualTimerService timers;
    RecordingMessageBox messages;
    RecordingScreenPointer screen;
    PostgresEngine engine;
    HostServices host;
    std::unique_ptr<Tabulon12> control;

    PostgresRig() {
        host.messages = &messages;
        host.screen = &screen;
        host.engine = &engine;
        control = std::make_unique<Tabulon12>(host, metrics, timers);
        DefineMixedList(*control, 30);
        Tabulon12Probe::Of(*control).Password = Env("TABULON_PG_PASSWORD");
        control->setDataBaseName(BenchUri());
    }
};

void CaricaFromPostgres(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        auto rig = std::make_unique<PostgresRig>();
        const size_t before = ResidentBytes();
        ResetPeak();
        state.ResumeTiming();
        rig->control->Carica();
        state.PauseTiming();
        if (!rig->messages.shown.empty()) state.SkipWithError(rig->messages.shown[0].prompt.c_str());
        const auto& store = Tabulon12Probe::Of(*rig->control).MatriceRighe;
        state.counters["records"] = rig->control->RighePiene();
        state.counters["store_bytes"] = static_cast<double>(store.MemoryBytes());
        state.counters["peak_growth_bytes"] = static_cast<double>(PeakResidentBytes() - before);
        rig.reset();
        malloc_trim(0);
        state.ResumeTiming();
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (Env("TABULON_PG_URI").empty()) {
        std::fprintf(stderr,
                     "bench_postgres needs a running PostgreSQL server: set TABULON_PG_URI and TABULON_PG_PASSWORD,\n"
                     "for example: scripts/postgres.sh start /tmp/pg && . /tmp/pg/env\n");
        return 2;
    }
    // Large blocks come straight from the system and go back to it when freed, so that each
    // load's peak is measured from the same resident size.
    mallopt(M_MMAP_THRESHOLD, 1 << 20);
    try {
        MakeMixedTable(BenchRecords());
    } catch (const std::exception& e) {
        std::fprintf(stderr, "bench_postgres: %s\n", e.what());
        return 1;
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RegisterBenchmark("RawLibpqFloor", RawLibpqFloor)
        ->Unit(benchmark::kMillisecond)
        ->Iterations(1)
        ->Repetitions(5);
    benchmark::RegisterBenchmark("CaricaPostgres", CaricaFromPostgres)
        ->Unit(benchmark::kMillisecond)
        ->Iterations(1)
        ->Repetitions(5);
    KeepingReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);

    auto& t = reporter.seconds;
    auto& k = reporter.counters;
    std::printf("\n--- same-run ratios (medians) ---\n");
    if (t.count("CaricaPostgres") && t.count("RawLibpqFloor"))
        std::printf("Carica from PostgreSQL / raw libpq single-row floor: %.2f (%.3f s / %.3f s; target at most 1.3)\n",
                    t["CaricaPostgres"] / t["RawLibpqFloor"], t["CaricaPostgres"], t["RawLibpqFloor"]);
    if (k.count("CaricaPostgres")) {
        auto& c = k["CaricaPostgres"];
        std::printf("row store kept: %.1f MB for %.0f records\n", c["store_bytes"] / 1e6, c["records"]);
        std::printf("peak growth during the load: %.1f MB = %.2f x the store kept (target at most 1.2)\n",
                    c["peak_growth_bytes"] / 1e6, c["peak_growth_bytes"] / c["store_bytes"]);
    }
    benchmark::Shutdown();
    return 0;
}
