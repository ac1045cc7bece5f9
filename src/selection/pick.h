// Direct selection: the distance of bars from the cursor, the choice among the elements under it,
// and the size of the pick box.
#pragma once

#include "connection/connection_state.h"
#include "model/structure_model.h"
#include "projection/view_state.h"
#include "selection/command_state.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace vorna {

// More elements than this inside the pick box pick nothing: the user must zoom in.
constexpr std::size_t kMaxPickCandidates = 50;

enum class PickKind { None, Nodes, Bars };

struct PickCandidate {
    std::int16_t index = 0; // into the node or bar table
    double distance = 0;    // in the drawing plane
};

// Nodes for every function but "Rimuovi aste base", which picks bars; nothing with no function.
PickKind PickKindOf(ActiveFunction function);

// NodePickDistance, shared with the coordinate read-out, is in projection/navigation.h.
// True when (x, y) is within the radius of the projected bar and not beyond its ends. A bar
// seen end-on is never inside.
bool BarPickDistance(const StructureModel &model, const ViewState &view, int bar, double x,
                     double y, double radius, double &distance);

// The name of the element chosen among the candidates (in scan order): the nearest, equal
// distances going to the earlier one; for nodes the nearest one not yet listed when adding and
// the nearest listed one when removing, if any.
int ChoosePickCandidate(std::vector<PickCandidate> candidates, PickKind kind,
                        ActiveFunction function, const StructureModel &model,
                        const ConnectionState &connection);

// The name of the live, shown element picked at (x, y), or 0.
int PickElement(const StructureModel &model, const ViewState &view,
                const ConnectionState &connection, ActiveFunction function, double x, double y,
                double radius);

} // namespace vorna
