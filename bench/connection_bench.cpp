// The analogy search on the full-capacity model: every shown node offered to the test, then the
// list text, as "Aggiungi" then "Tutto" does; and the choice of a base node with its bar index.
#include "connection/analogy.h"
#include "connection/base_node.h"
#include "large_model.h"
#include "model/load_structure.h"
#include "platform/silent_ui.h"
#include "view/projection.h"

#include <benchmark/benchmark.h>

#include <memory>

namespace {

using namespace vorna;

// The large model projected at the start-up angles, every node shown, and a base node with
// four bars (a facade node between two floors: two columns, two beams).
struct Search {
    std::unique_ptr<StructureModel> model = std::make_unique<StructureModel>();
    std::unique_ptr<ViewState> view = std::make_unique<ViewState>();
    ConnectionState state;
    SilentUi ui;
    MessageCatalogue messages;
    bool ready = false;

    Search() {
        FillMessageCatalogue(messages);
        if (LoadStructure(bench::LargeModelFolder().string(), *model, ui) != LoadResult::Loaded)
            return;
        ProjectStructure(*model, *view, 30, 30, 0);
        std::fill(view->nodeShown.begin(), view->nodeShown.end(), 1);
        for (int n = 0; n < model->nodeCount && !ready; ++n) {
            state.baseNode = static_cast<std::int16_t>(n);
            ready = GatherBaseBars(*model, *view, state, ui, messages) && state.baseBarCount == 4;
        }
    }
};

Search &Shared() {
    static Search search;
    return search;
}

void BM_OfferNodes(benchmark::State &bm) {
    Search &s = Shared();
    if (!s.ready) {
        bm.SkipWithError("no large model or no node with four bars");
        return;
    }
    const int nodes = std::min<int>(static_cast<int>(bm.range(0)), s.model->nodeCount);
    const AnalogyParameters params;
    for (auto _ : bm) {
        ResetAnalogousToBaseNode(s.state);
        for (int n = 0; n < nodes; ++n)
            if (s.view->nodeShown[n])
                TestAnalogy(*s.model, *s.view, s.state, params, n, s.ui, s.messages);
        BuildAnalogousListText(*s.model, s.state);
        benchmark::DoNotOptimize(s.state.analogousListText.data());
    }
    bm.counters["analogous"] = static_cast<double>(s.state.analogousNodes.size());
    bm.SetComplexityN(nodes);
}
BENCHMARK(BM_OfferNodes)
    ->Arg(5000)
    ->Arg(10000)
    ->Arg(20001)
    ->Unit(benchmark::kMillisecond)
    ->Complexity(benchmark::oN);

// The first base node chosen after a rotation: the index of projected bar ends is rebuilt.
void BM_ChooseBaseNodeAfterRotation(benchmark::State &bm) {
    Search &s = Shared();
    if (!s.ready) {
        bm.SkipWithError("no large model or no node with four bars");
        return;
    }
    for (auto _ : bm) {
        s.state.barIndex.built = false;
        GatherBaseBars(*s.model, *s.view, s.state, s.ui, s.messages);
        benchmark::DoNotOptimize(s.state.baseBars.data());
    }
}
BENCHMARK(BM_ChooseBaseNodeAfterRotation)->Unit(benchmark::kMillisecond);

} // namespace
