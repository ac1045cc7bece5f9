// The analogy search on the full-capacity model: every shown node offered to the test, then the
// list text, as "Aggiungi" then "Tutto" does, under three methods; the catalogue of joint types
// under each method, on the model and on a copy where no two joints agree; and the choice of a
// base node with its bar index.
#include "connection/analogy.h"
#include "connection/base_node.h"
#include "connection/joint_types.h"
#include "large_model.h"
#include "model/load_structure.h"
#include "projection/projection.h"

#include <benchmark/benchmark.h>

#include <memory>
#include <random>

namespace {

using namespace vorna;

// The large model projected at the start-up angles, every node shown, and a base node with
// four bars (a facade node between two floors: two columns, two beams).
struct Search {
    std::unique_ptr<StructureModel> model = std::make_unique<StructureModel>();
    std::unique_ptr<ViewState> view = std::make_unique<ViewState>();
    ConnectionState state;
    bool ready = false;

    explicit Search(const std::filesystem::path &folder) {
        if (LoadStructure(folder.string(), *model) != LoadResult::Loaded)
            return;
        ProjectStructure(*model, *view, 30, 30, 0);
        std::fill(view->nodeShown.begin(), view->nodeShown.end(), 1);
        for (int n = 0; n < model->nodeCount && !ready; ++n) {
            state.baseNode = static_cast<std::int16_t>(n);
            ready = GatherBaseBars(*model, *view, state) == BaseBarsResult::Gathered &&
                    state.baseBarCount == 4;
        }
    }
};

Search &Shared() {
    static Search search(bench::LargeModelFolder());
    return search;
}

Search &SharedRounded() {
    static Search search(bench::RoundedLargeModelFolder());
    return search;
}

// The tolerances of a run: none (the exact test), or 1 degree and 1 % on the model as it is or
// rounded by up to half a millimetre.
enum class Run { Exact, Within, RoundedWithin };

AnalogyParameters ParamsOf(AnalogyMethod method, bool lengths, Run run) {
    AnalogyParameters params;
    params.method = method;
    params.compareLengths = lengths;
    if (run != Run::Exact)
        params.angleTolerance = params.lengthTolerance = 1;
    return params;
}

void BM_OfferNodes(benchmark::State &bm, AnalogyMethod method, bool lengths, Run run) {
    Search &s = run == Run::RoundedWithin ? SharedRounded() : Shared();
    if (!s.ready) {
        bm.SkipWithError("no large model or no node with four bars");
        return;
    }
    const int nodes = std::min<int>(static_cast<int>(bm.range(0)), s.model->nodeCount);
    const AnalogyParameters params = ParamsOf(method, lengths, run);
    for (auto _ : bm) {
        ResetAnalogousToBaseNode(s.state);
        for (int n = 0; n < nodes; ++n)
            if (s.view->nodeShown[n])
                TestAnalogy(*s.model, *s.view, s.state, params, n);
        BuildAnalogousListText(*s.model, s.state);
        benchmark::DoNotOptimize(s.state.analogousListText.data());
    }
    bm.counters["analogous"] = static_cast<double>(s.state.analogousNodes.size());
    bm.SetComplexityN(nodes);
}
#define VORNA_OFFER_NODES(name, method, lengths)                                                   \
    BENCHMARK_CAPTURE(BM_OfferNodes, name, method, lengths, Run::Exact)                            \
        ->Arg(5000)                                                                                \
        ->Arg(10000)                                                                               \
        ->Arg(20001)                                                                               \
        ->Unit(benchmark::kMillisecond)                                                            \
        ->Complexity(benchmark::oN)
VORNA_OFFER_NODES(identical, AnalogyMethod::Identical, true);
VORNA_OFFER_NODES(rotated, AnalogyMethod::Rotated, true);
VORNA_OFFER_NODES(rotated_directions, AnalogyMethod::Rotated, false);
VORNA_OFFER_NODES(any, AnalogyMethod::Any, true);
VORNA_OFFER_NODES(any_directions, AnalogyMethod::Any, false);
// Within 1 degree and 1 %, on the model and on its rounded copy.
#define VORNA_OFFER_WITHIN(name, method)                                                           \
    BENCHMARK_CAPTURE(BM_OfferNodes, within_##name, method, true, Run::Within)                     \
        ->Arg(20001)                                                                               \
        ->Unit(benchmark::kMillisecond);                                                           \
    BENCHMARK_CAPTURE(BM_OfferNodes, rounded_within_##name, method, true, Run::RoundedWithin)      \
        ->Arg(20001)                                                                               \
        ->Unit(benchmark::kMillisecond)
VORNA_OFFER_WITHIN(identical, AnalogyMethod::Identical);
VORNA_OFFER_WITHIN(mirrored, AnalogyMethod::IdenticalOrMirrored);
VORNA_OFFER_WITHIN(rotated, AnalogyMethod::Rotated);
VORNA_OFFER_WITHIN(any, AnalogyMethod::Any);

// The catalogue of joint types over the first nodes of the model (the others hidden), under
// one method with bar lengths compared or not.
void BM_CatalogueJointTypes(benchmark::State &bm, AnalogyMethod method, bool lengths, Run run) {
    Search &s = run == Run::RoundedWithin ? SharedRounded() : Shared();
    if (!s.ready) {
        bm.SkipWithError("no large model");
        return;
    }
    const int nodes = std::min<int>(static_cast<int>(bm.range(0)), s.model->nodeCount);
    std::fill(s.view->nodeShown.begin(), s.view->nodeShown.end(), 0);
    std::fill(s.view->nodeShown.begin(), s.view->nodeShown.begin() + nodes, 1);
    const AnalogyParameters params = ParamsOf(method, lengths, run);
    JointTypeCatalogue catalogue;
    for (auto _ : bm) {
        catalogue = CatalogueJointTypes(*s.model, *s.view, s.state.barIndex, params);
        benchmark::DoNotOptimize(catalogue.types.data());
    }
    std::fill(s.view->nodeShown.begin(), s.view->nodeShown.end(), 1);
    bm.counters["types"] = static_cast<double>(catalogue.types.size());
    bm.SetComplexityN(nodes);
}
#define VORNA_CATALOGUE(name, method, lengths)                                                     \
    BENCHMARK_CAPTURE(BM_CatalogueJointTypes, name, method, lengths, Run::Exact)                   \
        ->Arg(5000)                                                                                \
        ->Arg(10000)                                                                               \
        ->Arg(20001)                                                                               \
        ->Unit(benchmark::kMillisecond)                                                            \
        ->Complexity(benchmark::oN)
VORNA_CATALOGUE(identical, AnalogyMethod::Identical, true);
VORNA_CATALOGUE(identical_directions, AnalogyMethod::Identical, false);
VORNA_CATALOGUE(mirrored, AnalogyMethod::IdenticalOrMirrored, true);
VORNA_CATALOGUE(mirrored_directions, AnalogyMethod::IdenticalOrMirrored, false);
VORNA_CATALOGUE(rotated, AnalogyMethod::Rotated, true);
VORNA_CATALOGUE(rotated_directions, AnalogyMethod::Rotated, false);
VORNA_CATALOGUE(any, AnalogyMethod::Any, true);
VORNA_CATALOGUE(any_directions, AnalogyMethod::Any, false);
#define VORNA_CATALOGUE_WITHIN(name, method)                                                       \
    BENCHMARK_CAPTURE(BM_CatalogueJointTypes, within_##name, method, true, Run::Within)            \
        ->Arg(20001)                                                                               \
        ->Unit(benchmark::kMillisecond);                                                           \
    BENCHMARK_CAPTURE(BM_CatalogueJointTypes, rounded_within_##name, method, true,                 \
                      Run::RoundedWithin)                                                          \
        ->Arg(20001)                                                                               \
        ->Unit(benchmark::kMillisecond)
VORNA_CATALOGUE_WITHIN(identical, AnalogyMethod::Identical);
VORNA_CATALOGUE_WITHIN(mirrored, AnalogyMethod::IdenticalOrMirrored);
VORNA_CATALOGUE_WITHIN(rotated, AnalogyMethod::Rotated);
VORNA_CATALOGUE_WITHIN(any, AnalogyMethod::Any);

// The same model with every point moved by up to half a unit at random: no two joints agree,
// every node heads a type of its own and each is tried against the heads near it.
struct Distinct {
    std::unique_ptr<StructureModel> model = std::make_unique<StructureModel>();
    std::unique_ptr<ViewState> view = std::make_unique<ViewState>();
    ProjectedBarIndex index;
    bool ready = false;

    Distinct() {
        const Search &s = Shared();
        if (!s.ready)
            return;
        *model = *s.model;
        std::mt19937 rng(1);
        std::uniform_real_distribution<double> offset(-0.5, 0.5);
        for (int p = 0; p < model->pointCount; ++p) {
            model->points[p].x += offset(rng);
            model->points[p].y += offset(rng);
            model->points[p].z += offset(rng);
        }
        ProjectStructure(*model, *view, 30, 30, 0);
        std::fill(view->nodeShown.begin(), view->nodeShown.end(), 1);
        ready = true;
    }
};

void BM_CatalogueDistinctJoints(benchmark::State &bm, AnalogyMethod method, bool lengths) {
    static Distinct d;
    if (!d.ready) {
        bm.SkipWithError("no large model");
        return;
    }
    AnalogyParameters params;
    params.method = method;
    params.compareLengths = lengths;
    JointTypeCatalogue catalogue;
    for (auto _ : bm) {
        catalogue = CatalogueJointTypes(*d.model, *d.view, d.index, params);
        benchmark::DoNotOptimize(catalogue.types.data());
    }
    bm.counters["types"] = static_cast<double>(catalogue.types.size());
}
#define VORNA_DISTINCT(name, method, lengths)                                                      \
    BENCHMARK_CAPTURE(BM_CatalogueDistinctJoints, name, method, lengths)                           \
        ->Unit(benchmark::kMillisecond)
VORNA_DISTINCT(identical, AnalogyMethod::Identical, true);
VORNA_DISTINCT(identical_directions, AnalogyMethod::Identical, false);
VORNA_DISTINCT(mirrored, AnalogyMethod::IdenticalOrMirrored, true);
VORNA_DISTINCT(mirrored_directions, AnalogyMethod::IdenticalOrMirrored, false);
VORNA_DISTINCT(rotated, AnalogyMethod::Rotated, true);
VORNA_DISTINCT(rotated_directions, AnalogyMethod::Rotated, false);
VORNA_DISTINCT(any, AnalogyMethod::Any, true);
VORNA_DISTINCT(any_directions, AnalogyMethod::Any, false);

// The first base node chosen after a rotation: the index of projected bar ends is rebuilt.
void BM_ChooseBaseNodeAfterRotation(benchmark::State &bm) {
    Search &s = Shared();
    if (!s.ready) {
        bm.SkipWithError("no large model or no node with four bars");
        return;
    }
    for (auto _ : bm) {
        s.state.barIndex.built = false;
        GatherBaseBars(*s.model, *s.view, s.state);
        benchmark::DoNotOptimize(s.state.baseBars.data());
    }
}
BENCHMARK(BM_ChooseBaseNodeAfterRotation)->Unit(benchmark::kMillisecond);

} // namespace
