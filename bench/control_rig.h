#pragma once
// A control on the headless elements over the benchmark's mixed table.
#include <memory>

#include "bench_support.h"
#include "control/tabulon12.h"
#include "platform/sqlite/sqlite_engine.h"
#include "platform/ui/text_metrics.h"
#include "tests/support/probe.h"
#include "tests/support/test_doubles.h"

namespace TabulonBench {

// The ten columns of the mixed table on a control sized for `rows` surface rows, with the
// query of the benchmarks.
inline void DefineMixedList(TabulonLib12::Tabulon12& control, int rows) {
    const float rowHeight = static_cast<float>(TabulonLib12::Tabulon12Probe::Of(control).FG1.RowHeight(0));
    control.Superficie().Resize(15600, 345 + (rows + 2) * rowHeight);
    const char* fields[] = {"id", "code", "city", "day", "price", "rate", "qty", "paid", "note", "colour"};
    const char* formats[] = {"Nessuno", "Nessuno", "Nessuno", "Data", "Valuta", "Single", "Numerico", "Nessuno",
                             "Nessuno", "Nessuno"};
    control.setCols(10);
    for (int16_t c = 0; c < 10; ++c) {
        control.setCampoQuery(c, fields[c]);
        control.setFormato(c, formats[c]);
        control.setColsWidth(c, 1500);
    }
    control.setColonnaColore(9);
    control.setQueryString(kMixedQuery);
}

struct ControlRig {
    TabulonLib12::HeadlessTextMetrics metrics;
    TabulonLib12::ManualTimerService timers;
    TabulonLib12::RecordingMessageBox messages;
    TabulonLib12::RecordingScreenPointer screen;
    TabulonLib12::SqliteEngine engine;
    TabulonLib12::HostServices host;
    std::unique_ptr<TabulonLib12::Tabulon12> control;

    // A control of `rows` surface rows over the mixed table of `records` records, with the
    // given metrics (the headless ones when null).
    ControlRig(int64_t records, int rows, const TabulonLib12::TextMetrics* useMetrics = nullptr,
               TabulonLib12::TimerService* useTimers = nullptr) {
        host.messages = &messages;
        host.screen = &screen;
        host.engine = &engine;
        control = std::make_unique<TabulonLib12::Tabulon12>(host, useMetrics ? *useMetrics : metrics,
                                                            useTimers ? *useTimers : timers);
        DefineMixedList(*control, rows);
        control->setDataBaseName(MixedDatabase(records));
    }
};

}  // namespace TabulonBench
