// The base node and its base bars: choosing the node, gathering the bars that meet there, and
// the schema of the node beside the view with the bar-type labels, as values view/ draws.
#pragma once

#include "connection/connection_state.h"
#include "connection/vec3.h"
#include "projection/view_state.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

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

// One bar of the schema: from the node at the origin to (x, y), in its type's colour.
struct SchemaBar {
    double x = 0;
    double y = 0;
    std::uint32_t colour = 0;
};

struct BaseNodeSchema {
    bool showsBaseNode = false; // a usable base node: the schema's title is then enabled
    bool planar = false;        // the base bars span a plane: the schema has a picture
    double length = 1;          // every bar's length in the picture
    std::vector<SchemaBar> bars;
    std::array<TypeLabel, kTypeLabels + 1> labels; // 1..30; every label hidden unless drawn
};

// The schema: the base bars that lie in the plane of the first two directions that span one,
// all with the same length, in the colours of their types, with a label at each bar's end;
// with automaticTyping the bar types are first assigned from the connection type code.
BaseNodeSchema BaseNodeSchemaOf(const StructureModel &model, ConnectionState &state,
                                const ConnectionInput &input, bool automaticTyping);

} // namespace vorna
