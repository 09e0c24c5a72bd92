// The load of a long list: Carica of 1,000,000 records of ten mixed columns against two floors:
// the raw SQLite C API stepping the same query and copying every column's text into one
// contiguous buffer with offsets, and the bare step of the query that reads no column. Also the memory the row store keeps, the peak during the
// load, and the repaint of a 30 by 10 window over a short and a long list.
#include <malloc.h>
#include <sqlite3.h>

#include <cstdio>
#include <memory>
#include <vector>

#include "bench_support.h"
#include "control_rig.h"

using namespace TabulonLib12;
using namespace TabulonBench;

namespace {

// The mixed query prepared on its database, opened read-only.
struct RawQuery {
    explicit RawQuery(const std::string& path) {
        sqlite3_open_v2(path.c_str(), &db, SQLITE_OPEN_READONLY, nullptr);
        sqlite3_prepare_v2(db, kMixedQuery, -1, &st, nullptr);
    }
    ~RawQuery() {
        sqlite3_finalize(st);
        sqlite3_close(db);
    }
    sqlite3* db = nullptr;
    sqlite3_stmt* st = nullptr;
};

// The bare floor: open, prepare and step the query without reading a column; what no load of
// the same records can go below.
void BareSqliteStep(benchmark::State& state) {
    const std::string path = MixedDatabase(BenchRecords());
    for (auto _ : state) {
        RawQuery query(path);
        sqlite3_stmt* st = query.st;
        int64_t rows = 0;
        while (sqlite3_step(st) == SQLITE_ROW) ++rows;
        benchmark::DoNotOptimize(rows);
    }
}

// The copying floor: step the query and copy each column's text into one buffer with offsets.
void RawSqliteFloor(benchmark::State& state) {
    const std::string path = MixedDatabase(BenchRecords());
    for (auto _ : state) {
        const RawCopy copy = RawSqliteCopy(path, kMixedQuery);
        state.counters["text_bytes"] = static_cast<double>(copy.textBytes);
        state.counters["cells"] = static_cast<double>(copy.cells);
    }
}

void CaricaMixed(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        auto rig = std::make_unique<ControlRig>(BenchRecords(), 30);
        const size_t before = ResidentBytes();
        ResetPeak();
        state.ResumeTiming();
        rig->control->Carica();
        state.PauseTiming();
        const auto& store = Tabulon12Probe::Of(*rig->control).MatriceRighe;
        size_t text = 0;
        for (int32_t r = 0; r <= store.RowBound(); ++r)
            for (int32_t c = 0; c <= store.ColBound(); ++c) text += store.Cell(r, c).size();
        const double cells = static_cast<double>(store.RowBound() + 1) * (store.ColBound() + 1);
        state.counters["records"] = rig->control->RighePiene();
        state.counters["store_bytes"] = static_cast<double>(store.MemoryBytes());
        state.counters["store_text_bytes"] = static_cast<double>(text);
        state.counters["store_cells"] = cells;
        state.counters["peak_growth_bytes"] = static_cast<double>(PeakResidentBytes() - before);
        rig.reset();
        malloc_trim(0);
        state.ResumeTiming();
    }
}

template <int64_t kRecords>
void RepaintWindow(benchmark::State& state) {
    ControlRig rig(kRecords, 30);
    rig.control->Carica();
    auto& s = Tabulon12Probe::Of(*rig.control);
    int32_t top = static_cast<int32_t>(kRecords / 2);
    s.VS1.setValue(top);
    for (auto _ : state) s.RiempiFinestraRighe(false);
    state.counters["rows"] = rig.control->MinRows();
}

}  // namespace

int main(int argc, char** argv) {
    // Large blocks come straight from the system and go back to it when freed, so that each
    // load's peak is measured from the same resident size.
    mallopt(M_MMAP_THRESHOLD, 1 << 20);
    benchmark::Initialize(&argc, argv);
    benchmark::RegisterBenchmark("BareSqliteStep", BareSqliteStep)->Unit(benchmark::kMillisecond)->Iterations(1)->Repetitions(5);
    benchmark::RegisterBenchmark("RawSqliteFloor", RawSqliteFloor)->Unit(benchmark::kMillisecond)->Iterations(1)->Repetitions(5);
    benchmark::RegisterBenchmark("Carica", CaricaMixed)->Unit(benchmark::kMillisecond)->Iterations(1)->Repetitions(5);
    benchmark::RegisterBenchmark("RepaintWindow1k", RepaintWindow<1000>)->Unit(benchmark::kMicrosecond);
    benchmark::RegisterBenchmark("RepaintWindow1M", RepaintWindow<1000000>)->Unit(benchmark::kMicrosecond);
    KeepingReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);

    auto& t = reporter.seconds;
    auto& k = reporter.counters;
    std::printf("\n--- same-run ratios (medians) ---\n");
    if (t.count("Carica") && t.count("RawSqliteFloor"))
        std::printf("Carica / raw SQLite floor: %.2f (%.3f s / %.3f s)\n", t["Carica"] / t["RawSqliteFloor"], t["Carica"],
                    t["RawSqliteFloor"]);
    if (t.count("Carica") && t.count("BareSqliteStep"))
        std::printf("Carica / bare SQLite step: %.2f (%.3f s / %.3f s)\n", t["Carica"] / t["BareSqliteStep"], t["Carica"],
                    t["BareSqliteStep"]);
    if (k.count("Carica")) {
        auto& c = k["Carica"];
        const double budget = 1.1 * c["store_text_bytes"] + 8 * c["store_cells"];
        std::printf("row store: %.1f MB kept, text %.1f MB, %.0f cells; kept / (1.1 text + 8 per cell) = %.2f\n",
                    c["store_bytes"] / 1e6, c["store_text_bytes"] / 1e6, c["store_cells"], c["store_bytes"] / budget);
        std::printf("peak growth during the load: %.1f MB = %.2f x the store kept\n", c["peak_growth_bytes"] / 1e6,
                    c["peak_growth_bytes"] / c["store_bytes"]);
    }
    if (t.count("RepaintWindow1k") && t.count("RepaintWindow1M"))
        std::printf("repaint 30x10 window, 1M / 1k records: %.2f (%.1f us / %.1f us)\n",
                    t["RepaintWindow1M"] / t["RepaintWindow1k"], t["RepaintWindow1M"] * 1e6, t["RepaintWindow1k"] * 1e6);
    benchmark::Shutdown();
    return 0;
}
