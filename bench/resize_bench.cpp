// A step of dragging the edge of a form with a 40-column list on Qt's offscreen platform: the
// control's widget made 4 pixels wider or narrower, which lays the control out again (columns
// scaled, band rebuilt, lines, bar, totals) and paints it once, against two QTableViews of 40
// columns resized the same way and repainted in the same run: one whose header stretches its
// sections, one whose 40 sections are given the control's new widths.
#include <QApplication>
#include <QHeaderView>
#include <QStandardItemModel>
#include <QTableView>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "bench_support.h"
#include "control_rig.h"
#include "platform/qt/qt_text_metrics.h"
#include "platform/qt/qt_timer_service.h"
#include "platform/qt/surface_widget.h"

using namespace TabulonLib12;
using namespace TabulonBench;

namespace {

constexpr int kColumns = 40;
constexpr int kRows = 30;
constexpr int64_t kRecords = 1000;
constexpr int kWidth = 1040, kStep = 4;
constexpr int kHeight = 560;  // every widget of the run: room for 30 rows and the band

// Forty columns over the mixed table, its ten fields four times, the numbers totalled.
void DefineFortyColumns(Tabulon12& control) {
    const char* fields[] = {"id", "code", "city", "day", "price", "rate", "qty", "paid", "note", "colour"};
    const char* formats[] = {"Nessuno", "Nessuno", "Nessuno", "Data", "Valuta", "Single", "Numerico", "Nessuno",
                             "Nessuno", "Nessuno"};
    control.setCols(kColumns);
    for (int16_t c = 0; c < kColumns; ++c) {
        control.setCampoQuery(c, fields[c % 10]);
        control.setFormato(c, formats[c % 10]);
        control.setColsWidth(c, 390);
        control.setIntestazione(c, std::string("Col ") + std::to_string(c));
        if (c % 10 >= 4 && c % 10 <= 6) control.setMostraTotCol(c, 1);
    }
}

void ControlResizeStep(benchmark::State& state) {
    QtTextMetrics metrics;
    QtTimerService timers;
    ControlRig rig(kRecords, kRows, &metrics, &timers);
    DefineFortyColumns(*rig.control);
    SurfaceWidget widget(rig.control->Superficie());
    const int height = kHeight;
    widget.resize(kWidth, height);
    widget.show();
    rig.control->Carica();
    QApplication::processEvents();
    bool narrow = false;
    for (auto _ : state) {
        narrow = !narrow;
        widget.resize(narrow ? kWidth - kStep : kWidth, height);
        widget.repaint();
    }
    state.counters["cols"] = rig.control->Cols();
    state.counters["rows"] = rig.control->MinRows();
}

// The peer: a table view without row headings over a model of the texts of the control's loaded
// rows, its rows as high as the control's. `Show` puts it on screen at the drag's full width.
struct PeerTable {
    PeerTable() : rig(kRecords, kRows, &metrics, &timers), model(kRows, kColumns) {
        DefineFortyColumns(*rig.control);
        rig.control->Carica();
        const auto& store = Tabulon12Probe::Of(*rig.control).MatriceRighe;
        for (int r = 0; r < kRows; ++r)
            for (int c = 0; c < kColumns; ++c)
                model.setItem(r, c, new QStandardItem(QString::fromUtf8(store.Cell(r, c).data(),
                                                                        static_cast<int>(store.Cell(r, c).size()))));
        view.setModel(&model);
        view.verticalHeader()->hide();
        view.verticalHeader()->setDefaultSectionSize(Tabulon12Probe::Of(*rig.control).FG1.RowHeight(0) / TwipsPerPixel);
    }
    void Show() {
        view.resize(kWidth, kHeight);
        view.show();
        QApplication::processEvents();
    }

    QtTextMetrics metrics;
    QtTimerService timers;
    ControlRig rig;
    QStandardItemModel model;
    QTableView view;
};

void TableViewResizeStep(benchmark::State& state) {
    PeerTable peer;
    peer.view.horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    peer.Show();
    bool narrow = false;
    for (auto _ : state) {
        narrow = !narrow;
        peer.view.resize(narrow ? kWidth - kStep : kWidth, kHeight);
        peer.view.repaint();
    }
    state.counters["cols"] = kColumns;
}

// The control's column widths in pixels at the two widths of the drag.
std::vector<int> ControlWidthsAt(int width) {
    QtTextMetrics metrics;
    QtTimerService timers;
    ControlRig rig(kRecords, kRows, &metrics, &timers);
    DefineFortyColumns(*rig.control);
    SurfaceWidget widget(rig.control->Superficie());
    widget.resize(kWidth, kHeight);
    widget.show();
    QApplication::processEvents();
    widget.resize(width, kHeight);
    QApplication::processEvents();
    std::vector<int> widths;
    for (int c = 0; c < kColumns; ++c) widths.push_back(Tabulon12Probe::Of(*rig.control).FG1.ColWidth(c) / TwipsPerPixel);
    return widths;
}

void TableViewSectionsStep(benchmark::State& state) {
    const std::vector<int> wide = ControlWidthsAt(kWidth), narrow = ControlWidthsAt(kWidth - kStep);
    PeerTable peer;
    peer.Show();
    bool isNarrow = false;
    for (auto _ : state) {
        isNarrow = !isNarrow;
        const std::vector<int>& widths = isNarrow ? narrow : wide;
        peer.view.resize(isNarrow ? kWidth - kStep : kWidth, kHeight);
        for (int c = 0; c < kColumns; ++c) peer.view.horizontalHeader()->resizeSection(c, widths[static_cast<size_t>(c)]);
        peer.view.repaint();
    }
    state.counters["cols"] = kColumns;
}

}  // namespace

int main(int argc, char** argv) {
    if (!std::getenv("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RegisterBenchmark("ControlResizeStep", ControlResizeStep)->Unit(benchmark::kMicrosecond)->Repetitions(5);
    benchmark::RegisterBenchmark("TableViewResizeStep", TableViewResizeStep)->Unit(benchmark::kMicrosecond)->Repetitions(5);
    benchmark::RegisterBenchmark("TableViewSectionsStep", TableViewSectionsStep)->Unit(benchmark::kMicrosecond)->Repetitions(5);
    KeepingReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    auto& t = reporter.seconds;
    if (t.count("ControlResizeStep") && t.count("TableViewResizeStep"))
        std::printf("\nresize-drag step of 40 columns, control / QTableView: %.2f (%.1f us / %.1f us)\n",
                    t["ControlResizeStep"] / t["TableViewResizeStep"], t["ControlResizeStep"] * 1e6,
                    t["TableViewResizeStep"] * 1e6);
    if (t.count("ControlResizeStep") && t.count("TableViewSectionsStep"))
        std::printf("width change of 40 columns, control / QTableView given the same widths: %.2f (%.1f us / %.1f us)\n",
                    t["ControlResizeStep"] / t["TableViewSectionsStep"], t["ControlResizeStep"] * 1e6,
                    t["TableViewSectionsStep"] * 1e6);
    benchmark::Shutdown();
    return 0;
}
