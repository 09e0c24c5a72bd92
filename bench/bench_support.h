#pragma once
// Shared pieces of the benchmarks: the data generator, memory readings and a reporter that
// keeps each benchmark's time so that ratios can be printed at the end of the run.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <map>
#include <string>

namespace TabulonBench {

// A SQLite file with `rows` records of ten mixed columns: an integer key, two short texts, an
// ISO date, two reals, an integer, a boolean, a 60-character text and a colour text. Made once
// and kept in the temporary folder under a name that tells its size.
std::string MixedDatabase(int64_t rows);
inline constexpr const char* kMixedQuery =
    "SELECT id, code, city, day, price, rate, qty, paid, note, colour FROM mixed ORDER BY id";

// How many records the long-list benchmarks read: TABULON_BENCH_ROWS, 1,000,000 by default.
int64_t BenchRecords();

// The copying floor of a load: opens `path` read-only, steps `query` and copies the text of
// every column of every record into one buffer with offsets, as a loader that keeps text must.
struct RawCopy {
    size_t textBytes = 0;
    size_t cells = 0;
};
RawCopy RawSqliteCopy(const std::string& path, const std::string& query);

// Resident memory of the process, and its peak since the last ResetPeak, in bytes.
size_t ResidentBytes();
size_t PeakResidentBytes();
void ResetPeak();

// Keeps the real time per iteration (seconds) of every benchmark run, by name.
class KeepingReporter : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override;
    std::map<std::string, double> seconds;  // median where repetitions ran
    std::map<std::string, std::map<std::string, double>> counters;
};

}  // namespace TabulonBench
