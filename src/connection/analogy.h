// The analogy test: does a candidate node have, for every base bar, a bar leaving it the same way?
#pragma once

#include "connection/connection_state.h"
#include "model/messages.h"
#include "platform/ui.h"
#include "view/view_state.h"

#include <array>

namespace vorna {

enum class AnalogyMethod { Identical = 0, IdenticalOrMirrored = 1, Rotated = 2, Any = 3 };

// The analogy parameters as the side bar holds them at the moment of the test.
struct AnalogyParameters {
    AnalogyMethod method = AnalogyMethod::Identical;
    bool compareLengths = true; // analLun
    bool compareColours = false; // AnalColAste
    bool compareLineTypes = false; // analLinAste
    bool compareSections = false;  // AnalSezAste
};

// 1 when the candidate was found analogous and appended (also when it was listed already).
int TestAnalogy(const StructureModel &model, const ViewState &view, ConnectionState &state,
                const AnalogyParameters &params, int candidate, Ui &ui,
                const MessageCatalogue &messages);

std::array<double, 3> BarVector(const StructureModel &model, int bar, int node);
double BarLength(const StructureModel &model, int bar);

} // namespace vorna
