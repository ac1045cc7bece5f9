// The review of the list on the full-capacity suite with every node in the list: the rows in the
// order of each column, as a click on its header asks for.
#include "app/review.h"
#include "platform/plain_canvas.h"
#include "review_support.h"

#include <benchmark/benchmark.h>

namespace {

using namespace vorna;

struct Shared {
    PlainCanvas disegno{24000, 15000}, picture{3600, 2550};
    bench::FullList list{disegno, picture};
};

void BM_ReviewSort(benchmark::State &state) {
    static Shared shared;
    const bench::FullList &list = shared.list;
    if (!list.ready) {
        state.SkipWithError("the large suite did not start");
        return;
    }
    const Program &p = *list.program;
    std::vector<ReviewRow> rows;
    for (const AnalogousNode &r : p.connection.analogousNodes)
        rows.push_back({r, true});
    const int column = static_cast<int>(state.range(0));
    for (auto _ : state) {
        std::vector<int> order = ReviewOrder(p.model, rows, column, true);
        benchmark::DoNotOptimize(order.data());
    }
    state.counters["rows"] = static_cast<double>(rows.size());
}
BENCHMARK(BM_ReviewSort)
    ->ArgName("column")
    ->DenseRange(0, kReviewColumns - 1)
    ->Unit(benchmark::kMillisecond);

} // namespace
