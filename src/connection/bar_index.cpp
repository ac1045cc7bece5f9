// The bars at a projected position: a hash of the projected bar ends, so that finding the bars
// at a node does not scan every bar of the model.
#include "connection/bar_index.h"

#include <algorithm>
#include <cmath>
#include <tuple>

namespace vorna {
namespace {

// Cells twice the tolerance wide: two coinciding positions always fall in the same or in
// neighbouring cells, even after the rounding of the division.
constexpr double kCellSize = 2 * kTolerance;
// Beyond this no two different doubles coincide; clamping keeps the cell inside 64 bits and
// only ever merges cells, which the exact test afterwards sorts out.
constexpr double kFarAway = 1e14;

std::int64_t CellOf(double v) {
    return static_cast<std::int64_t>(std::floor(std::clamp(v, -kFarAway, kFarAway) / kCellSize));
}

bool Finite(double x, double y) {
    return std::isfinite(x) && std::isfinite(y);
}

bool Coincide(const ViewState &view, int point, double x, double y) {
    return std::fabs(ProjectedXOf(view, point) - x) < kTolerance &&
           std::fabs(ProjectedYOf(view, point) - y) < kTolerance;
}

int Bars(const StructureModel &model) {
    return std::clamp<int>(model.barCount, 0, kBarCapacity);
}

// A function object rather than a function, so that the sort and the searches inline it.
struct Before {
    bool operator()(const ProjectedBarIndex::Entry &a, const ProjectedBarIndex::Entry &b) const {
        return std::tie(a.cellX, a.cellY, a.bar) < std::tie(b.cellX, b.cellY, b.bar);
    }
};

} // namespace

void BuildBarIndex(ProjectedBarIndex &index, const StructureModel &model, const ViewState &view) {
    index.entries.clear();
    const int bars = Bars(model);
    for (int b = 0; b < bars; ++b) {
        const Bar &bar = model.bars[b];
        for (int end : {static_cast<int>(bar.pointI), static_cast<int>(bar.pointJ)}) {
            const double x = ProjectedXOf(view, end), y = ProjectedYOf(view, end);
            if (Finite(x, y))
                index.entries.push_back({CellOf(x), CellOf(y), static_cast<std::int16_t>(b)});
        }
    }
    std::sort(index.entries.begin(), index.entries.end(), Before{});
    index.built = true;
    index.model = &model;
    index.view = &view;
    index.barCount = bars;
    index.pointCount = model.pointCount;
    index.projectionGeneration = view.projectionGeneration;
}

void KeepBarIndexCurrent(ProjectedBarIndex &index, const StructureModel &model,
                         const ViewState &view) {
    const bool current = index.built && index.model == &model && index.view == &view &&
                         index.barCount == Bars(model) && index.pointCount == model.pointCount &&
                         index.projectionGeneration == view.projectionGeneration;
    if (!current)
        BuildBarIndex(index, model, view);
}

void BarsAtProjectedPoint(const ProjectedBarIndex &index, const StructureModel &model,
                          const ViewState &view, int point, std::vector<std::int16_t> &bars) {
    bars.clear();
    const double x = ProjectedXOf(view, point), y = ProjectedYOf(view, point);
    if (!Finite(x, y))
        return;
    const std::int64_t cx = CellOf(x), cy = CellOf(y);
    for (std::int64_t column = cx - 1; column <= cx + 1; ++column) {
        auto first =
            std::lower_bound(index.entries.begin(), index.entries.end(),
                             ProjectedBarIndex::Entry{column, cy - 1, INT16_MIN}, Before{});
        for (auto it = first;
             it != index.entries.end() && it->cellX == column && it->cellY <= cy + 1; ++it) {
            const Bar &bar = model.bars[it->bar];
            if (Coincide(view, bar.pointI, x, y) || Coincide(view, bar.pointJ, x, y))
                bars.push_back(it->bar);
        }
    }
    std::sort(bars.begin(), bars.end());
    bars.erase(std::unique(bars.begin(), bars.end()), bars.end());
}

} // namespace vorna
