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

namespace {

// The vector of a bar whose length is known.
std::optional<Vec3> VectorAtNode(const StructureModel &model, int bar, int node, double length) {
    if (!BarInModel(model, bar) || !NodeInModel(model, node))
        return std::nullopt;
    if (length <= kTolerance)
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

} // namespace

std::optional<Vec3> BarVectorAtNode(const StructureModel &model, int bar, int node) {
    return VectorAtNode(model, bar, node, BarLength(model, bar));
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

Joint JointAt(const StructureModel &model, int node, std::span<const std::int16_t> bars) {
    Joint joint;
    joint.node = node;
    joint.bars.reserve(bars.size());
    for (std::int16_t b : bars) {
        const double length = BarLength(model, b);
        joint.bars.push_back(JointBarOf(b, VectorAtNode(model, b, node, length), length));
    }
    return joint;
}

// The same numbers as UnitBarVector, from the vector and length already at hand.
JointBar JointBarOf(std::int16_t bar, std::optional<Vec3> vector, double length) {
    JointBar b{bar, vector, length, std::nullopt};
    if (length > kTolerance && vector)
        b.direction = Scaled(*vector, 1 / length);
    return b;
}

Joint BaseJoint(const StructureModel &model, const ConnectionState &state) {
    return JointAt(
        model, state.baseNode,
        std::span(state.baseBars.data(), static_cast<std::size_t>(BaseBarsInTable(state))));
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
