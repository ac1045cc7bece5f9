// "Perché no?" on the full-capacity model: the explanation of one rejected node, and the near
// misses over every node as `dump nearmisses` and the dialog's second tab compute them, under
// each method.
#include "app/program.h"
#include "app/why_not_dialog.h"
#include "connection/base_node.h"
#include "connection/why_not.h"
#include "large_model.h"
#include "model/load_structure.h"
#include "platform/plain_canvas.h"
#include "platform/silent_ui.h"
#include "projection/projection.h"

#include <benchmark/benchmark.h>

#include <memory>

namespace {

using namespace vorna;

// The large model at the start-up angles, every node shown, a base node with four bars and the
// first node with as many bars that the test rejects.
struct Model {
    std::unique_ptr<StructureModel> model = std::make_unique<StructureModel>();
    std::unique_ptr<ViewState> view = std::make_unique<ViewState>();
    ConnectionState state;
    int rejected = -1;

    Model() {
        if (LoadStructure(bench::LargeModelFolder().string(), *model) != LoadResult::Loaded)
            return;
        ProjectStructure(*model, *view, 30, 30, 0);
        std::fill(view->nodeShown.begin(), view->nodeShown.end(), 1);
        for (int n = 0; n < model->nodeCount; ++n) {
            state.baseNode = static_cast<std::int16_t>(n);
            if (GatherBaseBars(*model, *view, state) == BaseBarsResult::Gathered &&
                state.baseBarCount == 4)
                break;
        }
        for (int n = 0; n < model->nodeCount && rejected < 0; ++n) {
            const AnalogyExplanation e = ExplainNodeAnalogy(*model, *view, state, {}, n);
            if (e.reason == WhyNotReason::Direction || e.reason == WhyNotReason::Length)
                rejected = n;
        }
    }
};

Model &Shared() {
    static Model m;
    return m;
}

AnalogyParameters Method(AnalogyMethod method) {
    AnalogyParameters params;
    params.method = method;
    return params;
}

void BM_WhyNotOneNode(benchmark::State &bm, AnalogyMethod method) {
    Model &m = Shared();
    if (m.rejected < 0) {
        bm.SkipWithError("no large model or no rejected node");
        return;
    }
    for (auto _ : bm) {
        AnalogyExplanation e =
            ExplainNodeAnalogy(*m.model, *m.view, m.state, Method(method), m.rejected);
        benchmark::DoNotOptimize(e.pairs.data());
    }
}
BENCHMARK_CAPTURE(BM_WhyNotOneNode, identical, AnalogyMethod::Identical)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(BM_WhyNotOneNode, rotated, AnalogyMethod::Rotated)->Unit(benchmark::kMicrosecond);

void BM_NearMisses(benchmark::State &bm, AnalogyMethod method) {
    Model &m = Shared();
    if (m.rejected < 0) {
        bm.SkipWithError("no large model or no rejected node");
        return;
    }
    std::vector<NearMiss> misses;
    for (auto _ : bm) {
        misses = FindNearMisses(*m.model, *m.view, m.state, Method(method));
        benchmark::DoNotOptimize(misses.data());
    }
    bm.counters["misses"] = static_cast<double>(misses.size());
}
BENCHMARK_CAPTURE(BM_NearMisses, identical, AnalogyMethod::Identical)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_NearMisses, mirrored, AnalogyMethod::IdenticalOrMirrored)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_NearMisses, rotated, AnalogyMethod::Rotated)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_NearMisses, any, AnalogyMethod::Any)->Unit(benchmark::kMillisecond);

// The whole command on a node named: its explanation, the near misses and the dialog built
// from them (which the silent front end closes at once).
void BM_PercheNoCommand(benchmark::State &bm, AnalogyMethod method) {
    Model &m = Shared();
    if (m.rejected < 0) {
        bm.SkipWithError("no large model or no rejected node");
        return;
    }
    SilentUi ui;
    PlainCanvas disegno(15000, 10000), picture1(2100, 1500);
    auto p = std::make_unique<Program>(ui, disegno, picture1);
    p->model = *m.model;
    p->view = *m.view;
    p->connection.baseNode = m.state.baseNode;
    GatherBaseBars(p->model, p->view, p->connection);
    p->structureLoaded = true;
    for (std::size_t k = 0; k < p->form.OpzMetodo.size(); ++k)
        p->form.OpzMetodo[k].checked = k == static_cast<std::size_t>(method);
    const int name = p->model.nodes[m.rejected].name;
    for (auto _ : bm)
        ExplainNodeInDialog(*p, name);
}
BENCHMARK_CAPTURE(BM_PercheNoCommand, identical, AnalogyMethod::Identical)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_PercheNoCommand, rotated, AnalogyMethod::Rotated)
    ->Unit(benchmark::kMillisecond);

} // namespace
