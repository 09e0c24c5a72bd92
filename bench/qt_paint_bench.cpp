// The paint of one scroll step of a 30 by 10 window on Qt's offscreen platform: the control's
// widget repainted whole after a TopRow write, against a QTableView showing the same cells,
// scrolled by one step with its whole viewport repainted, in the same run.
#include <QApplication>
#include <QHeaderView>
#include <QScrollBar>
#include <QStandardItemModel>
#include <QTableView>
#include <cstdio>
#include <cstdlib>

#include "bench_support.h"
#include "control_rig.h"
#include "platform/qt/qt_text_metrics.h"
#include "platform/qt/qt_timer_service.h"
#include "platform/qt/surface_widget.h"

using namespace TabulonLib12;
using namespace TabulonBench;

namespace {

constexpr int kRows = 30;
constexpr int64_t kRecords = 1000;

void ControlScrollPaint(benchmark::State& state) {
    QtTextMetrics metrics;
    QtTimerService timers;
    ControlRig rig(kRecords, kRows, &metrics, &timers);
    SurfaceWidget widget(rig.control->Superficie());
    const int rowPx = Tabulon12Probe::Of(*rig.control).FG1.RowHeight(0) / TwipsPerPixel;
    widget.resize(1040, 23 + (kRows + 2) * rowPx + 4);
    widget.show();
    rig.control->Carica();
    QApplication::processEvents();
    int32_t top = 0;
    for (auto _ : state) {
        top = top == 0 ? 1 : 0;
        rig.control->setTopRow(top);
        widget.repaint();
    }
    state.counters["rows"] = rig.control->MinRows();
    state.counters["cols"] = rig.control->Cols();
}

void TableViewScrollPaint(benchmark::State& state) {
    QtTextMetrics metrics;
    QtTimerService timers;
    ControlRig rig(kRecords, kRows, &metrics, &timers);
    rig.control->Carica();
    const auto& store = Tabulon12Probe::Of(*rig.control).MatriceRighe;
    QStandardItemModel model(static_cast<int>(kRecords), 10);
    for (int r = 0; r < kRecords; ++r)
        for (int c = 0; c < 10; ++c)
            model.setItem(r, c, new QStandardItem(QString::fromUtf8(store.Cell(r, c).data(),
                                                                    static_cast<int>(store.Cell(r, c).size()))));
    QTableView view;
    view.setModel(&model);
    view.horizontalHeader()->hide();
    view.verticalHeader()->hide();
    view.verticalHeader()->setDefaultSectionSize(Tabulon12Probe::Of(*rig.control).FG1.RowHeight(0) / TwipsPerPixel);
    view.verticalScrollBar()->setSingleStep(1);
    view.setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    for (int c = 0; c < 10; ++c) view.setColumnWidth(c, 100);
    view.resize(1040, kRows * view.verticalHeader()->defaultSectionSize() + 4);
    view.show();
    QApplication::processEvents();
    int top = 0;
    for (auto _ : state) {
        top = top == 0 ? 1 : 0;
        view.verticalScrollBar()->setValue(top);
        view.viewport()->repaint();
    }
    state.counters["rows"] = kRows;
}

}  // namespace

int main(int argc, char** argv) {
    if (!std::getenv("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RegisterBenchmark("ControlScrollPaint", ControlScrollPaint)->Unit(benchmark::kMicrosecond)->Repetitions(5);
    benchmark::RegisterBenchmark("TableViewScrollPaint", TableViewScrollPaint)->Unit(benchmark::kMicrosecond)->Repetitions(5);
    KeepingReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    auto& t = reporter.seconds;
    if (t.count("ControlScrollPaint") && t.count("TableViewScrollPaint"))
        std::printf("\nscroll step paint, control / QTableView: %.2f (%.1f us / %.1f us)\n",
                    t["ControlScrollPaint"] / t["TableViewScrollPaint"], t["ControlScrollPaint"] * 1e6,
                    t["TableViewScrollPaint"] * 1e6);
    benchmark::Shutdown();
    return 0;
}
