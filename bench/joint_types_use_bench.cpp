// "Usa" in "Tipi di nodo" on the full-capacity suite, as the window runs it: the catalogue, the
// choice of the largest type (14,592 nodes), its base node and analogous nodes, and the redraws
// these make on a 1600 x 1000 picture, with every label off and on.
#include "app/joint_types_dialog.h"
#include "app/program.h"
#include "app/startup.h"
#include "large_model.h"
#include "test_support.h"
#include "ui/qt/qt_canvas.h"

#include <benchmark/benchmark.h>

#include <memory>

namespace {

using namespace vorna;

void BM_TipiNodoUsa(benchmark::State &state) {
    test::RecordingUi ui;
    qt::QtCanvas disegno(QSize(1600, 1000), Qt::black);
    qt::QtCanvas picture(QSize(240, 170), Qt::black);
    auto program = std::make_unique<Program>(ui, disegno, picture);
    Program &p = *program;
    RunStartUp(p, "|diroot=" + bench::LargeSuiteFolder().string() + "|");
    if (!p.structureLoaded || !ui.messages.empty()) {
        state.SkipWithError("the large suite did not start");
        return;
    }
    const auto labels = OptionValue::Of(state.range(0) != 0 ? 1 : 0);
    p.displayOptions.values[opt::kNodeLabels] = labels;
    p.displayOptions.values[opt::kBarLabels] = labels;
    for (auto _ : state) {
        // The first row, the largest type, is the one selected when the dialog opens.
        ui.dialogUsers.emplace_back([](Dialog &dialog) { dialog.Click("Usa"); });
        TipiNodo_Click(p);
        benchmark::DoNotOptimize(disegno.Image().constBits());
    }
    state.counters["analogous"] = static_cast<double>(p.connection.analogousNodes.size());
}
BENCHMARK(BM_TipiNodoUsa)->ArgName("labels")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

} // namespace
