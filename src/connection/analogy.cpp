// The analogy test: does a candidate node have, for every base bar, a bar leaving it the same way?
#include "connection/analogy.h"

#include "connection/verdict.h"

#include <algorithm>
#include <cmath>

namespace vorna {
namespace {

bool NodeInModel(const StructureModel &m, int node) {
    return node >= 0 && node < m.nodeCount;
}
bool BarInModel(const StructureModel &m, int bar) {
    return bar >= 0 && bar < m.barCount;
}

const Bar &BarOf(const StructureModel &m, int bar) {
    static const Bar none{};
    return BarInModel(m, bar) ? m.bars[bar] : none;
}

} // namespace

double BarLength(const StructureModel &model, int bar) {
    const Bar &b = BarOf(model, bar);
    return Norm(Sub(ToVec(PointAt(model, b.pointI)), ToVec(PointAt(model, b.pointJ))));
}

std::optional<Vec3> BarVectorAtNode(const StructureModel &model, int bar, int node) {
    if (!BarInModel(model, bar) || !NodeInModel(model, node))
        return std::nullopt;
    if (BarLength(model, bar) <= kTolerance)
        return Vec3{0, 0, 0};
    const Bar &b = model.bars[bar];
    const Vec3 p = ToVec(PointAt(model, model.nodes[node].pointIndex));
    const Vec3 i = ToVec(PointAt(model, b.pointI)), j = ToVec(PointAt(model, b.pointJ));
    if (AllBelow(Sub(i, p), kTolerance))
        return Sub(j, i);
    if (AllBelow(Sub(j, p), kTolerance))
        return Sub(i, j);
    return std::nullopt;
}

std::array<double, 3> BarVector(const StructureModel &model, int bar, int node) {
    return BarVectorAtNode(model, bar, node).value_or(Vec3{0, 0, 0});
}

std::optional<Vec3> UnitBarVector(const StructureModel &model, int bar, int node) {
    const double length = BarLength(model, bar);
    if (length <= kTolerance)
        return std::nullopt;
    std::optional<Vec3> v = BarVectorAtNode(model, bar, node);
    if (!v)
        return std::nullopt;
    return Scaled(*v, 1 / length);
}

bool SameDirection(const Vec3 &a, const Vec3 &b) {
    return AllBelow(Sub(a, b), kTolerance);
}

bool MirroredDirection(const Vec3 &a, const Vec3 &b) {
    return AllBelow({a[0] + b[0], a[1] + b[1], a[2] - b[2]}, kTolerance);
}

Joint JointAt(const StructureModel &model, int node, const std::vector<std::int16_t> &bars) {
    Joint joint;
    joint.node = node;
    joint.bars.reserve(bars.size());
    for (std::int16_t b : bars)
        joint.bars.push_back({b, BarVectorAtNode(model, b, node), BarLength(model, b)});
    return joint;
}

// The same numbers as UnitBarVector, from the vector and length already at hand.
std::optional<Vec3> DirectionOf(const JointBar &bar) {
    if (bar.length <= kTolerance || !bar.vector)
        return std::nullopt;
    return Scaled(*bar.vector, 1 / bar.length);
}

std::optional<Vec3> ComparedVector(const JointBar &bar, bool lengths) {
    return lengths ? bar.vector : DirectionOf(bar);
}

Joint BaseJoint(const StructureModel &model, const ConnectionState &state) {
    const std::vector<std::int16_t> bars(state.baseBars.begin(),
                                         state.baseBars.begin() + BaseBarsInTable(state));
    return JointAt(model, state.baseNode, bars);
}

AnalogyOutcome TestAnalogy(const StructureModel &model, const ViewState &view,
                           ConnectionState &state, const AnalogyParameters &params, int candidate) {
    if (!HasUsableBaseNode(state) || !NodeInModel(model, candidate))
        return AnalogyOutcome::Rejected;
    KeepBarIndexCurrent(state.barIndex, model, view);
    std::vector<std::int16_t> candidateBars;
    BarsAtProjectedPoint(state.barIndex, model, view, model.nodes[candidate].pointIndex,
                         candidateBars);
    const Joint base = BaseJoint(model, state);
    const Joint joint = JointAt(model, candidate, candidateBars);
    const Verdict verdict = CompareJoints(model, base, joint, params);
    if (verdict.Analogous())
        AppendAnalogous(state, RecordOf(base, joint, verdict, params));
    return verdict.outcome;
}

} // namespace vorna
