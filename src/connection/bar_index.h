// The bars at a projected position: a hash of the projected bar ends, so that finding the bars
// at a node does not scan every bar of the model.
#pragma once

#include "model/structure_model.h"
#include "platform/tolerance.h"
#include "projection/view_state.h"

#include <cstdint>
#include <vector>

namespace vorna {

struct ProjectedBarIndex {
    struct Entry {
        std::int64_t cellX = 0;
        std::int64_t cellY = 0;
        std::int16_t bar = 0;
    };
    std::vector<Entry> entries; // sorted by cell, then bar

    // What the index was built from: the same tables and the same projection.
    bool built = false;
    const StructureModel *model = nullptr;
    const ViewState *view = nullptr;
    int barCount = 0;
    int pointCount = 0;
    std::uint64_t projectionGeneration = 0;
};

void BuildBarIndex(ProjectedBarIndex &index, const StructureModel &model, const ViewState &view);
// Rebuilds the index unless it was built from this model and this projection.
void KeepBarIndexCurrent(ProjectedBarIndex &index, const StructureModel &model,
                         const ViewState &view);

// The bars, in ascending order, with an end whose projection coincides with that of the point.
// The bar's name and shown state play no part. Non-finite positions coincide with nothing.
void BarsAtProjectedPoint(const ProjectedBarIndex &index, const StructureModel &model,
                          const ViewState &view, int point, std::vector<std::int16_t> &bars);

} // namespace vorna
