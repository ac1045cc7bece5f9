// The base node and its base bars: choosing the node, gathering the bars that meet there, and
// the schema of the node drawn beside the view with the bar-type labels.
#pragma once

#include "connection/connection_state.h"
#include "connection/vec3.h"
#include "platform/canvas.h"
#include "projection/view_state.h"

#include <array>
#include <string>

namespace vorna {

constexpr int kTypeLabels = 30;

// The first shown node, in ascending index order, with that name becomes the base node;
// nothing changes when there is none.
void SetBaseNodeByName(const StructureModel &model, const ViewState &view, ConnectionState &state,
                       int name);

enum class BaseBarsResult { NoBaseNode, TooMany, Gathered };

// The named bars (name > 0) with an end on the base node in the projection become the base
// bars, in ascending order, and the list becomes the base node's own record. More than 100 such
// bars: TooMany, which the user is told of, with baseBarCount 101 and the list untouched.
BaseBarsResult GatherBaseBars(const StructureModel &model, const ViewState &view,
                              ConnectionState &state);

// Far end of base bar k (0-based) minus the base node's point, in space: the second end when
// the first lies on the node, otherwise the first.
Vec3 BaseBarDirection(const StructureModel &model, const ConnectionState &state, int k);

// One label LabelTipo(k) of the schema: position in the schema canvas's drawing units.
struct TypeLabel {
    bool visible = false;
    std::string caption; // the code of the base bar's type
    std::string tooltip; // its description
    double x = 0;
    double y = 0;
};

struct BaseNodeSchema {
    bool showsBaseNode = false; // a usable base node was drawn: the schema's title is then enabled
    std::array<TypeLabel, kTypeLabels + 1> labels; // 1..30; every label hidden unless drawn
};

// Clears the schema canvas and draws the base bars that lie in the plane of the first two
// directions that span one, all with the same length, in the colours of their types, and the node;
// with automaticTyping the bar types are first assigned from the connection type code.
BaseNodeSchema DrawBaseNodeSchema(const StructureModel &model, ConnectionState &state,
                                  const ConnectionInput &input, Canvas &canvas,
                                  bool automaticTyping);

} // namespace vorna
