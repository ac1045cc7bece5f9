// FormRevisione on the full-capacity suite with every node in the list, as the window shows it:
// the dialog built (the rows, the furthest looked at, the view centred and drawn on a 1600 x
// 1000 picture), laid out and painted; and a click on a header sorting the table in it.
#include "app/review_dialog.h"
#include "review_support.h"
#include "ui/qt/dialog_window.h"
#include "ui/qt/qt_canvas.h"

#include <QApplication>
#include <QHeaderView>
#include <QTableView>

#include <benchmark/benchmark.h>

namespace {

using namespace vorna;

// The widgets need an application; without a display, the offscreen one.
void StartApplication() {
    static int argc = 1;
    static char name[] = "vorna_bench";
    static char *argv[] = {name, nullptr};
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    static QApplication application(argc, argv);
}

struct Shared {
    qt::QtCanvas disegno{QSize(1600, 1000), Qt::black};
    qt::QtCanvas picture{QSize(240, 170), Qt::black};
    bench::FullList list{disegno, picture};
};

Shared &Started() {
    StartApplication();
    static Shared shared;
    return shared;
}

void BM_RevisioneOpen(benchmark::State &state) {
    Shared &s = Started();
    if (!s.list.ready) {
        state.SkipWithError("the large suite did not start");
        return;
    }
    for (auto _ : state) {
        ReviewDialog dialog(*s.list.program);
        qt::DialogWindow window(dialog, nullptr);
        window.setAttribute(Qt::WA_DontShowOnScreen);
        window.show();
        QApplication::processEvents();
        benchmark::DoNotOptimize(window.grab().cacheKey());
    }
    state.counters["rows"] = static_cast<double>(s.list.program->connection.analogousNodes.size());
}
BENCHMARK(BM_RevisioneOpen)->Unit(benchmark::kMillisecond);

// The header's click as Qt passes it on: the rows sorted, the view laid out and painted again.
void BM_RevisioneHeaderSort(benchmark::State &state) {
    Shared &s = Started();
    if (!s.list.ready) {
        state.SkipWithError("the large suite did not start");
        return;
    }
    ReviewDialog dialog(*s.list.program);
    qt::DialogWindow window(dialog, nullptr);
    window.setAttribute(Qt::WA_DontShowOnScreen);
    window.show();
    QApplication::processEvents();
    auto *table = window.findChild<QTableView *>();
    const int column = static_cast<int>(state.range(0));
    bool descending = false;
    for (auto _ : state) {
        descending = !descending;
        table->sortByColumn(column, descending ? Qt::DescendingOrder : Qt::AscendingOrder);
        QApplication::processEvents();
        benchmark::DoNotOptimize(window.grab().cacheKey());
    }
}
BENCHMARK(BM_RevisioneHeaderSort)
    ->ArgName("column")
    ->DenseRange(0, kReviewColumns - 1)
    ->Unit(benchmark::kMillisecond);

} // namespace
