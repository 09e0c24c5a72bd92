// A click on a sortable heading of a list of 1,000,000 records: the control reloads with ORDER BY
// on an unindexed text column (the 60-character note), against the raw SQLite C API stepping the
// same ordered query and copying every column's text, in the same run. Also the same user action
// in a peer: a QSortFilterProxyModel over a QSqlQueryModel that has fetched every record, sorted
// on the same column.
#include <QApplication>
#include <QSortFilterProxyModel>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QSqlQueryModel>
#include <cstdio>
#include <cstdlib>

#include "bench_support.h"
#include "control_rig.h"

using namespace TabulonLib12;
using namespace TabulonBench;

namespace {

constexpr const char* kUnsorted = "SELECT id, code, city, day, price, rate, qty, paid, note, colour FROM mixed";
constexpr int16_t kNoteColumn = 8;

void RawSqliteOrdered(benchmark::State& state) {
    const std::string path = MixedDatabase(BenchRecords());
    const std::string query = std::string(kUnsorted) + " ORDER BY note";
    for (auto _ : state) RawSqliteCopy(path, query);
}

void ControlHeadingClick(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        auto rig = std::make_unique<ControlRig>(BenchRecords(), 30);
        rig->control->setQueryString(kUnsorted);
        rig->control->setOrdinamento(kNoteColumn, "note");
        rig->control->Carica();
        state.ResumeTiming();
        rig->control->OrdinaColonna(kNoteColumn);
        state.PauseTiming();
        if (rig->control->RighePiene() != BenchRecords()) state.SkipWithError("the sorted load lost records");
        rig.reset();
        state.ResumeTiming();
    }
}

void ProxyModelSort(benchmark::State& state) {
    QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("peer"));
    db.setDatabaseName(QString::fromStdString(MixedDatabase(BenchRecords())));
    db.setConnectOptions(QStringLiteral("QSQLITE_OPEN_READONLY"));
    if (!db.open()) {
        state.SkipWithError("the Qt SQLite driver is missing");
        return;
    }
    {
        QSqlQueryModel model;
        model.setQuery(QSqlQuery(QString::fromUtf8(kUnsorted), db));
        while (model.canFetchMore()) model.fetchMore();
        for (auto _ : state) {
            state.PauseTiming();
            QSortFilterProxyModel proxy;
            proxy.setSourceModel(&model);
            state.ResumeTiming();
            proxy.sort(kNoteColumn);
            benchmark::DoNotOptimize(proxy.rowCount());
        }
        state.counters["rows"] = model.rowCount();
    }
    db.close();
    db = QSqlDatabase();
    QSqlDatabase::removeDatabase(QStringLiteral("peer"));
}

}  // namespace

int main(int argc, char** argv) {
    if (!std::getenv("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RegisterBenchmark("RawSqliteOrdered", RawSqliteOrdered)->Unit(benchmark::kMillisecond)->Iterations(1)->Repetitions(3);
    benchmark::RegisterBenchmark("ControlHeadingClick", ControlHeadingClick)->Unit(benchmark::kMillisecond)->Iterations(1)->Repetitions(3);
    benchmark::RegisterBenchmark("ProxyModelSort", ProxyModelSort)->Unit(benchmark::kMillisecond)->Iterations(1)->Repetitions(1);
    KeepingReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    auto& t = reporter.seconds;
    std::printf("\n--- same-run ratios (medians) ---\n");
    if (t.count("ControlHeadingClick") && t.count("RawSqliteOrdered"))
        std::printf("heading click / raw SQLite ordered copy: %.2f (%.3f s / %.3f s)\n",
                    t["ControlHeadingClick"] / t["RawSqliteOrdered"], t["ControlHeadingClick"], t["RawSqliteOrdered"]);
    if (t.count("ProxyModelSort"))
        std::printf("peer: QSortFilterProxyModel over a fetched QSqlQueryModel, sort of the same column: %.3f s\n",
                    t["ProxyModelSort"]);
    benchmark::Shutdown();
    return 0;
}
