// The row window: a scroll step (one TopRow write and its repaint, model side) over a short and
// a long list, and ListaIndiciSel over a long list with many picked records.
#include <malloc.h>

#include <cstdio>
#include <memory>

#include "bench_support.h"
#include "control_rig.h"

using namespace TabulonLib12;
using namespace TabulonBench;

namespace {

template <int64_t kRecords>
void ScrollStep(benchmark::State& state) {
    ControlRig rig(kRecords, 30);
    rig.control->Carica();
    const int32_t a = static_cast<int32_t>(kRecords / 3), b = a + 17;
    bool flip = false;
    for (auto _ : state) {
        rig.control->setTopRow(flip ? a : b);
        flip = !flip;
    }
    state.counters["rows"] = rig.control->MinRows();
}

void ListaIndiciSel(benchmark::State& state) {
    ControlRig rig(1000000, 30);
    rig.control->Carica();
    auto& s = Tabulon12Probe::Of(*rig.control);
    rig.control->setMultiSel(true);
    // Ten thousand picks spread over the list, as SelezionaIndice leaves them.
    for (int32_t i = 0; i < 1000000; i += 100) s.MatriceRighe.SetCell(i, s.Cols, "1");
    size_t length = 0;
    for (auto _ : state) {
        const std::string list = rig.control->ListaIndiciSel();
        length = list.size();
        benchmark::DoNotOptimize(list.data());
    }
    state.counters["text_bytes"] = static_cast<double>(length);
}

}  // namespace

int main(int argc, char** argv) {
    mallopt(M_MMAP_THRESHOLD, 1 << 20);
    benchmark::Initialize(&argc, argv);
    benchmark::RegisterBenchmark("ScrollStep1k", ScrollStep<1000>)->Unit(benchmark::kMicrosecond)->Repetitions(5);
    benchmark::RegisterBenchmark("ScrollStep1M", ScrollStep<1000000>)->Unit(benchmark::kMicrosecond)->Repetitions(5);
    benchmark::RegisterBenchmark("ListaIndiciSel1M", ListaIndiciSel)->Unit(benchmark::kMillisecond)->Repetitions(5);
    KeepingReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    auto& t = reporter.seconds;
    std::printf("\n--- same-run ratios (medians) ---\n");
    if (t.count("ScrollStep1k") && t.count("ScrollStep1M"))
        std::printf("scroll step, 1M / 1k records: %.2f (%.1f us / %.1f us)\n", t["ScrollStep1M"] / t["ScrollStep1k"],
                    t["ScrollStep1M"] * 1e6, t["ScrollStep1k"] * 1e6);
    if (t.count("ListaIndiciSel1M"))
        std::printf("ListaIndiciSel over 1,000,000 records with 10,000 picked: %.2f ms\n", t["ListaIndiciSel1M"] * 1e3);
    benchmark::Shutdown();
    return 0;
}
