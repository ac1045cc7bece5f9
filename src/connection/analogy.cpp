// The analogy test: does a candidate node have, for every base bar, a bar leaving it the same way?
#include "connection/analogy.h"

#include "connection/assignment.h"
#include "connection/rotation_match.h"

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

std::vector<std::optional<Vec3>> ComparedVectors(const Joint &joint, bool lengths) {
    std::vector<std::optional<Vec3>> vectors;
    vectors.reserve(joint.bars.size());
    for (const JointBar &b : joint.bars)
        vectors.push_back(ComparedVector(b, lengths));
    return vectors;
}

// "Nodi identici" (each base bar takes the first candidate bar that agrees, taken or not) or
// "Nodi identici e simmetrici" (identical or mirrored, each candidate bar taken at most once):
// the record gets one bar per base bar that found a counterpart.
void MatchInTurn(const Joint &base, const Joint &candidate, bool mirrored, bool lengths,
                 AnalogousNode &record) {
    const std::vector<std::optional<Vec3>> candidates = ComparedVectors(candidate, lengths);
    std::vector<std::uint8_t> taken(candidates.size());
    for (const JointBar &baseBar : base.bars) {
        const std::optional<Vec3> b = ComparedVector(baseBar, lengths);
        if (!b)
            continue;
        for (std::size_t c = 0; c < candidates.size(); ++c) {
            if (!candidates[c] || (mirrored && taken[c]))
                continue;
            const Vec3 &v = *candidates[c];
            if (SameDirection(*b, v) || (mirrored && MirroredDirection(*b, v))) {
                record.bars[record.barCount++] = candidate.bars[c].bar;
                taken[c] = 1;
                break;
            }
        }
    }
}

void RecordPairing(const Joint &candidate, const std::vector<int> &pairing, AnalogousNode &record) {
    for (int c : pairing)
        record.bars[record.barCount++] = candidate.bars[c].bar;
}

// "Nodi identici e ruotati": one rotation for all the bars, distinct candidate bars.
void MatchRotatedBars(const Joint &base, const Joint &candidate, bool lengths,
                      AnalogousNode &record) {
    std::vector<Vec3> b;
    b.reserve(base.bars.size());
    for (const JointBar &baseBar : base.bars) {
        const std::optional<Vec3> v = ComparedVector(baseBar, lengths);
        if (!v)
            return;
        b.push_back(*v);
    }
    if (auto pairing = MatchRotated(b, ComparedVectors(candidate, lengths)))
        RecordPairing(candidate, *pairing, record);
}

// "Nodi qualsiasi": the pairing with the smallest sum of angles between paired directions.
void MatchAnyBars(const Joint &base, const Joint &candidate, bool lengths, AnalogousNode &record) {
    if (auto pairing = CheapestDirectionPairing(base, candidate, lengths))
        RecordPairing(candidate, *pairing, record);
}

bool PropertiesAgree(const StructureModel &m, const Joint &base, const AnalogyParameters &params,
                     const AnalogousNode &record) {
    auto agree = [&](std::int16_t Bar::*field) {
        for (std::size_t k = 0; k < base.bars.size(); ++k)
            if (BarOf(m, base.bars[k].bar).*field != BarOf(m, record.bars[k]).*field)
                return false;
        return true;
    };
    return (!params.compareColours || agree(&Bar::colour)) &&
           (!params.compareLineTypes || agree(&Bar::lineType)) &&
           (!params.compareSections || agree(&Bar::sectionCard));
}

} // namespace

std::optional<std::vector<int>> CheapestDirectionPairing(const Joint &base, const Joint &candidate,
                                                         bool lengths,
                                                         std::vector<double> *angles) {
    const int rows = static_cast<int>(base.bars.size());
    const int columns = static_cast<int>(candidate.bars.size());
    std::vector<double> angle(static_cast<std::size_t>(rows) * columns);
    std::vector<std::uint8_t> allowed(angle.size());
    for (int k = 0; k < rows; ++k) {
        const JointBar &b = base.bars[k];
        const std::optional<Vec3> u = DirectionOf(b);
        for (int c = 0; c < columns && u; ++c) {
            const JointBar &v = candidate.bars[c];
            const std::optional<Vec3> w = DirectionOf(v);
            if (!w || (lengths && std::fabs(b.length - v.length) >= kTolerance))
                continue;
            angle[k * columns + c] = AngleBetween(*u, *w);
            allowed[k * columns + c] = 1;
        }
    }
    std::optional<std::vector<int>> pairing =
        LexFirstCheapestAssignment(rows, columns, angle, allowed);
    if (angles)
        *angles = std::move(angle);
    return pairing;
}

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

AnalogyMatch MatchAnalogy(const StructureModel &model, const Joint &base, const Joint &candidate,
                          const AnalogyParameters &params) {
    AnalogyMatch match;
    if (candidate.bars.size() > static_cast<std::size_t>(kMaxBaseBars)) {
        match.outcome = AnalogyOutcome::TooManyBars;
        return match;
    }
    if (base.bars.size() > static_cast<std::size_t>(kMaxBaseBars) ||
        candidate.bars.size() < base.bars.size())
        return match;
    AnalogousNode &record = match.record;
    record.node = static_cast<std::int16_t>(candidate.node);
    const bool lengths = params.compareLengths;
    if (params.method == AnalogyMethod::Identical || candidate.node == base.node)
        MatchInTurn(base, candidate, false, lengths, record);
    else if (params.method == AnalogyMethod::IdenticalOrMirrored)
        MatchInTurn(base, candidate, true, lengths, record);
    else if (params.method == AnalogyMethod::Rotated)
        MatchRotatedBars(base, candidate, lengths, record);
    else
        MatchAnyBars(base, candidate, lengths, record);
    if (static_cast<std::size_t>(record.barCount) == base.bars.size() &&
        PropertiesAgree(model, base, params, record))
        match.outcome = AnalogyOutcome::Analogous;
    return match;
}

AnalogyOutcome TestAnalogy(const StructureModel &model, const ViewState &view,
                           ConnectionState &state, const AnalogyParameters &params, int candidate) {
    if (!HasUsableBaseNode(state) || !NodeInModel(model, candidate))
        return AnalogyOutcome::Rejected;
    KeepBarIndexCurrent(state.barIndex, model, view);
    std::vector<std::int16_t> candidateBars;
    BarsAtProjectedPoint(state.barIndex, model, view, model.nodes[candidate].pointIndex,
                         candidateBars);
    const AnalogyMatch match = MatchAnalogy(model, BaseJoint(model, state),
                                            JointAt(model, candidate, candidateBars), params);
    if (match.outcome == AnalogyOutcome::Analogous)
        AppendAnalogous(state, match.record);
    return match.outcome;
}

} // namespace vorna
