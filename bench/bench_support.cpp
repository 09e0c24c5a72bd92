#include "bench_support.h"

#include <sqlite3.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <vector>

namespace TabulonBench {

int64_t BenchRecords() {
    const char* env = std::getenv("TABULON_BENCH_ROWS");
    return env ? std::atoll(env) : 1000000;
}

RawCopy RawSqliteCopy(const std::string& path, const std::string& query) {
    sqlite3* db = nullptr;
    sqlite3_open_v2(path.c_str(), &db, SQLITE_OPEN_READONLY, nullptr);
    sqlite3_stmt* st = nullptr;
    sqlite3_prepare_v2(db, query.c_str(), -1, &st, nullptr);
    std::string buffer;
    std::vector<uint64_t> offsets;
    const int columns = sqlite3_column_count(st);
    while (sqlite3_step(st) == SQLITE_ROW) {
        for (int c = 0; c < columns; ++c) {
            const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(st, c));
            offsets.push_back(buffer.size());
            if (text) buffer.append(text, static_cast<size_t>(sqlite3_column_bytes(st, c)));
        }
    }
    benchmark::DoNotOptimize(buffer.data());
    sqlite3_finalize(st);
    sqlite3_close(db);
    return {buffer.size(), offsets.size()};
}

std::string MixedDatabase(int64_t rows) {
    const auto path = std::filesystem::temp_directory_path() / ("tabulon_bench_mixed_" + std::to_string(rows) + ".db");
    if (std::filesystem::exists(path)) return path.string();
    const auto partial = path.string() + ".part";
    std::filesystem::remove(partial);
    sqlite3* db = nullptr;
    if (sqlite3_open(partial.c_str(), &db) != SQLITE_OK) throw std::runtime_error("cannot create " + partial);
    const std::string script =
        "PRAGMA journal_mode=OFF; PRAGMA synchronous=OFF;"
        "CREATE TABLE mixed(id INTEGER PRIMARY KEY, code VARCHAR(10), city VARCHAR(20), day DATE, price DOUBLE,"
        " rate DOUBLE, qty INTEGER, paid BOOLEAN, note VARCHAR(60), colour VARCHAR(12));"
        "WITH RECURSIVE k(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM k WHERE i < " +
        std::to_string(rows) +
        ") INSERT INTO mixed SELECT i, 'C' || (i % 9973), "
        " CASE i % 5 WHEN 0 THEN 'Milano' WHEN 1 THEN 'Torino' WHEN 2 THEN 'Bari' WHEN 3 THEN 'Roma' ELSE 'Udine' END,"
        " date('2020-01-01', '+' || (i % 2000) || ' days'), (i % 100000) / 100.0, (i % 997) / 7.0, i % 250, i % 2,"
        " substr('Consegna prevista entro la fine del mese, salvo imprevisti del vettore' || i, 1, 60),"
        " (i % 256) || ',' || ((i * 7) % 256) || ',200' FROM k;";
    char* message = nullptr;
    if (sqlite3_exec(db, script.c_str(), nullptr, nullptr, &message) != SQLITE_OK) {
        std::string text = message ? message : "unknown";
        sqlite3_free(message);
        sqlite3_close(db);
        throw std::runtime_error("cannot fill the benchmark database: " + text);
    }
    sqlite3_close(db);
    std::filesystem::rename(partial, path);
    return path.string();
}

namespace {
size_t StatusKiB(const std::string& key) {
    std::ifstream status("/proc/self/status");
    std::string line;
    while (std::getline(status, line))
        if (line.rfind(key, 0) == 0) return std::stoul(line.substr(key.size())) * 1024;
    return 0;
}
}  // namespace

size_t ResidentBytes() { return StatusKiB("VmRSS:"); }
size_t PeakResidentBytes() { return StatusKiB("VmHWM:"); }
void ResetPeak() { std::ofstream("/proc/self/clear_refs") << "5"; }

void KeepingReporter::ReportRuns(const std::vector<Run>& runs) {
    ConsoleReporter::ReportRuns(runs);
    for (const auto& run : runs) {
        const bool aggregate = run.run_type == Run::RT_Aggregate;
        if (aggregate && run.aggregate_name != "median") continue;
        if (!aggregate && seconds.count(run.run_name.function_name) && run.repetitions > 1) continue;
        seconds[run.run_name.function_name] = run.GetAdjustedRealTime() / 1e9 *
                                              (run.time_unit == benchmark::kNanosecond ? 1.0
                                               : run.time_unit == benchmark::kMicrosecond ? 1e3
                                               : run.time_unit == benchmark::kMillisecond ? 1e6
                                                                                          : 1e9);
        for (const auto& [name, counter] : run.counters) counters[run.run_name.function_name][name] = counter.value;
    }
}

}  // namespace TabulonBench
