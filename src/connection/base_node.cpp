// The base node and its base bars: choosing the node, gathering the bars that meet there, and
// the schema of the node drawn beside the view with the bar-type labels.
#include "connection/base_node.h"

#include "connection/bar_types.h"
#include "platform/portable_math.h"
#include "platform/tolerance.h"

#include <algorithm>
#include <cmath>

namespace vorna {
namespace {

Vec3 NodePoint(const StructureModel &model, int node) {
    return node >= 0 && node < model.nodeCount ? ToVec(PointAt(model, model.nodes[node].pointIndex))
                                               : Vec3{0, 0, 0};
}

std::optional<Vec3> Unit(const Vec3 &v) {
    if (AllBelow(v, kTolerance))
        return std::nullopt;
    return Scaled(v, 1 / Norm(v));
}

// The schema's plane: axis u along base bar 1, v beside it in the plane of bar 1 and the first
// later bar not parallel to it, w normal to both. With one bar, or all bars parallel, the plane
// is the vertical one through bar 1 (or, for a vertical bar 1, the one through model X), which
// shows them all. Nothing when bar 1 has no direction.
struct SchemaAxes {
    Vec3 u, v, w;
};

std::optional<SchemaAxes> SchemaFrame(const std::vector<Vec3> &directions) {
    if (directions.empty())
        return std::nullopt;
    std::optional<Vec3> u = Unit(directions[0]);
    if (!u)
        return std::nullopt;
    std::optional<Vec3> w;
    for (std::size_t k = 1; k < directions.size() && !w; ++k) {
        Vec3 normal = Cross(directions[0], directions[k]);
        if (!AllBelow(normal, kTolerance))
            w = Unit(normal);
    }
    if (!w)
        w = Unit(Cross(*u, {0, 0, 1}));
    if (!w)
        w = Unit(Cross(*u, {1, 0, 0}));
    if (!w)
        return std::nullopt;
    return SchemaAxes{*u, Cross(*w, *u), *w};
}

} // namespace

void SetBaseNodeByName(const StructureModel &model, const ViewState &view, ConnectionState &state,
                       int name) {
    const int nodes = std::clamp<int>(model.nodeCount, 0, kNodeCapacity);
    for (int i = 0; i < nodes; ++i)
        if (model.nodes[i].name == name && view.nodeShown[i]) {
            state.baseNode = static_cast<std::int16_t>(i);
            return;
        }
}

BaseBarsResult GatherBaseBars(const StructureModel &model, const ViewState &view,
                              ConnectionState &state) {
    state.baseBarCount = 0;
    if (state.baseNode < 0 || state.baseNode >= model.nodeCount)
        return BaseBarsResult::NoBaseNode;
    KeepBarIndexCurrent(state.barIndex, model, view);
    std::vector<std::int16_t> bars;
    BarsAtProjectedPoint(state.barIndex, model, view, model.nodes[state.baseNode].pointIndex, bars);
    for (std::int16_t b : bars) {
        if (model.bars[b].name <= 0)
            continue;
        if (state.baseBarCount == kMaxBaseBars) {
            state.baseBarCount = kTooManyBaseBars;
            return BaseBarsResult::TooMany;
        }
        state.baseBars[state.baseBarCount++] = b;
    }
    ResetAnalogousToBaseNode(state);
    return BaseBarsResult::Gathered;
}

Vec3 BaseBarDirection(const StructureModel &model, const ConnectionState &state, int k) {
    const int bar = state.baseBars[k];
    if (bar < 0 || bar >= model.barCount)
        return {0, 0, 0};
    const Vec3 p = NodePoint(model, state.baseNode);
    const Vec3 i = ToVec(PointAt(model, model.bars[bar].pointI));
    const Vec3 j = ToVec(PointAt(model, model.bars[bar].pointJ));
    return Sub(AllBelow(Sub(i, p), kTolerance) ? j : i, p);
}

BaseNodeSchema BaseNodeSchemaOf(const StructureModel &model, ConnectionState &state,
                                const ConnectionInput &input, bool automaticTyping) {
    BaseNodeSchema schema;
    if (!HasUsableBaseNode(state))
        return schema;
    schema.showsBaseNode = true;
    const int count = state.baseBarCount;
    std::vector<Vec3> directions;
    directions.reserve(count);
    for (int k = 0; k < count; ++k)
        directions.push_back(BaseBarDirection(model, state, k));
    const std::optional<SchemaAxes> frame = SchemaFrame(directions);
    // A degenerate frame stops the schema before the automatic typing, which comes once the
    // schema's scale is known. The labels carry the types either way, for the reading back.
    if (frame && automaticTyping)
        AssignTypesByConnectionCode(model, state, input);
    for (int k = 0; k < std::min(count, kTypeLabels); ++k) {
        schema.labels[k + 1].caption = BarTypeCode(input, state.baseBarTypes[k]);
        schema.labels[k + 1].tooltip =
            state.baseBarTypes[k] >= 1 && state.baseBarTypes[k] <= kMaxBarTypes
                ? input.barTypeDescriptions[state.baseBarTypes[k]]
                : std::string();
    }
    if (!frame)
        return schema;
    schema.planar = true;
    std::vector<std::array<double, 2>> inPlane(count);
    std::vector<std::uint8_t> drawn(count);
    double extent = 0;
    for (int k = 0; k < count; ++k) {
        const Vec3 &d = directions[k];
        inPlane[k] = {Dot(d, frame->u), Dot(d, frame->v)};
        drawn[k] = std::fabs(Dot(d, frame->w)) < kTolerance;
        if (drawn[k])
            extent = std::max({extent, std::fabs(inPlane[k][0]), std::fabs(inPlane[k][1])});
    }
    schema.length = extent > kTolerance ? extent : 1.0;
    for (int k = 0; k < count; ++k) {
        const double planar = Hypot(inPlane[k][0], inPlane[k][1]);
        if (!drawn[k] || planar <= kTolerance)
            continue;
        const double x = inPlane[k][0] / planar * schema.length;
        const double y = inPlane[k][1] / planar * schema.length;
        schema.bars.push_back({x, y, BarTypeColour(state.baseBarTypes[k])});
        if (k < kTypeLabels) {
            TypeLabel &label = schema.labels[k + 1];
            label.visible = true;
            label.x = x;
            label.y = y;
        }
    }
    return schema;
}

} // namespace vorna
