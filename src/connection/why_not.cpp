// Why a node is or is not analogous to the base node, told from the comparison's verdict with
// the figures of every pair of bars, and which rejected nodes come closest.
#include "connection/why_not.h"

#include "connection/assignment.h"

#include <algorithm>
#include <cmath>

namespace vorna {
namespace {

// Cost of a base bar paired with a bar without a direction, or of a missing one, in the score.
constexpr double kNoDirectionCost = 180.0 + 100.0;

const Bar &BarOf(const StructureModel &m, int bar) {
    static const Bar none{};
    return bar >= 0 && bar < m.barCount ? m.bars[bar] : none;
}

// The angle between a base direction and a candidate's, mirrored too when allowed.
double CompareAngle(const Vec3 &b, const Vec3 &v, bool mirrored) {
    const double direct = AngleDegrees(b, v);
    return mirrored ? std::min(direct, AngleDegrees(b, Mirror(v))) : direct;
}

void SetCandidate(const StructureModel &m, BarPairFigures &pair, const JointBar &bar) {
    const Bar &b = BarOf(m, bar.bar);
    pair.candidateLength = bar.length;
    pair.candidateSection = b.sectionCard;
    pair.candidateColour = b.colour;
    pair.candidateLineType = b.lineType;
}

} // namespace

std::string_view ReasonCode(WhyNotReason reason) {
    switch (reason) {
    case WhyNotReason::None:
        return "";
    case WhyNotReason::NotLive:
        return "not-live";
    case WhyNotReason::TooManyBars:
        return "too-many-bars";
    case WhyNotReason::BarCount:
        return "bar-count";
    case WhyNotReason::Direction:
        return "direction";
    case WhyNotReason::Length:
        return "length";
    case WhyNotReason::NoRotation:
        return "rotation";
    case WhyNotReason::Colour:
        return "colour";
    case WhyNotReason::LineType:
        return "linetype";
    case WhyNotReason::Section:
        return "section";
    }
    return "";
}

AnalogyExplanation ExplainAnalogy(const StructureModel &m, const Joint &base,
                                  const Joint &candidate, const AnalogyParameters &params) {
    const Verdict v = CompareJoints(m, base, candidate, params, Scrutiny::Explain);
    AnalogyExplanation e;
    e.analogous = v.Analogous();
    e.reason = v.reason;
    e.failingBar = v.failingBar;
    e.angle = v.angle;
    e.candidateBarCount = static_cast<int>(candidate.bars.size());
    for (std::size_t k = 0; k < base.bars.size(); ++k) {
        const PairVerdict verdict = k < v.pairs.size() ? v.pairs[k] : PairVerdict{};
        BarPairFigures pair;
        const Bar &bar = BarOf(m, base.bars[k].bar);
        pair.baseBar = base.bars[k].bar;
        pair.baseLength = base.bars[k].length;
        pair.baseSection = bar.sectionCard;
        pair.baseColour = bar.colour;
        pair.baseLineType = bar.lineType;
        pair.angle = verdict.angle;
        pair.mirrored = verdict.mirrored;
        pair.lengthDeviation = verdict.lengthDeviation;
        if (verdict.candidate >= 0) {
            pair.candidateBar = candidate.bars[verdict.candidate].bar;
            SetCandidate(m, pair, candidate.bars[verdict.candidate]);
        } else if (verdict.nearest >= 0) {
            pair.nearestBar = candidate.bars[verdict.nearest].bar;
            SetCandidate(m, pair, candidate.bars[verdict.nearest]);
        }
        e.pairs.push_back(pair);
    }
    if (v.rotation) {
        e.hasRotation = true;
        const RotationAxisAngle turn = AxisAngleOf(*v.rotation);
        e.rotationAxis = turn.axis;
        e.rotationAngle = turn.degrees;
        e.rotationResidual = v.rotationResidual;
    }
    e.totalAngle = v.totalAngle;
    if (params.Tolerant())
        e.tolerances = {params.angleTolerance, params.lengthTolerance};
    return e;
}

AnalogyExplanation ExplainNodeAnalogy(const StructureModel &model, const ViewState &view,
                                      ConnectionState &state, const AnalogyParameters &params,
                                      int node) {
    if (state.baseNode >= 0 && state.baseNode < model.nodeCount && !HasUsableBaseNode(state)) {
        AnalogyExplanation e;
        e.reason = WhyNotReason::TooManyBars;
        return e;
    }
    if (state.baseNode < 0 || state.baseNode >= model.nodeCount || node < 0 ||
        node >= model.nodeCount)
        return ExplainAnalogy(model, Joint{state.baseNode, {}}, Joint{node, {}}, params);
    KeepBarIndexCurrent(state.barIndex, model, view);
    std::vector<std::int16_t> bars;
    BarsAtProjectedPoint(state.barIndex, model, view, model.nodes[node].pointIndex, bars);
    return ExplainAnalogy(model, BaseJoint(model, state), JointAt(model, node, bars), params);
}

double NearMissScore(const Joint &base, const Joint &candidate, const AnalogyParameters &params) {
    const int rows = static_cast<int>(base.bars.size());
    const int columns = static_cast<int>(candidate.bars.size());
    if (rows > columns)
        return kNoDirectionCost * rows;
    const bool mirrored = params.method == AnalogyMethod::IdenticalOrMirrored;
    std::vector<std::optional<Vec3>> directions;
    directions.reserve(candidate.bars.size());
    for (const JointBar &v : candidate.bars)
        directions.push_back(DirectionOf(v));
    // Every pair is allowed: a bar without a direction only costs the most.
    std::vector<double> cost(static_cast<std::size_t>(rows) * columns, kNoDirectionCost);
    const std::vector<std::uint8_t> allowed(cost.size(), 1);
    for (int k = 0; k < rows; ++k) {
        const std::optional<Vec3> u = DirectionOf(base.bars[k]);
        for (int c = 0; c < columns && u; ++c) {
            const double l1 = base.bars[k].length, l2 = candidate.bars[c].length;
            if (directions[c])
                cost[k * columns + c] = CompareAngle(*u, *directions[c], mirrored) +
                                        100.0 * std::fabs(l1 - l2) / std::max(l1, l2);
        }
    }
    const std::optional<std::vector<int>> pairing =
        LexFirstCheapestAssignment(rows, columns, cost, allowed);
    if (!pairing)
        return kNoDirectionCost * rows;
    double score = 0;
    for (int k = 0; k < rows; ++k)
        score += cost[k * columns + (*pairing)[k]];
    return score;
}

std::vector<NearMiss> FindNearMisses(const StructureModel &model, const ViewState &view,
                                     ConnectionState &state, const AnalogyParameters &params,
                                     int limit) {
    std::vector<NearMiss> misses;
    if (!HasUsableBaseNode(state) || state.baseNode >= model.nodeCount)
        return misses;
    KeepBarIndexCurrent(state.barIndex, model, view);
    const Joint base = BaseJoint(model, state);
    std::vector<std::int16_t> bars;
    for (int n = 0; n < model.nodeCount; ++n) {
        if (!IsLive(model.nodes[n]) || !view.nodeShown[n])
            continue;
        BarsAtProjectedPoint(state.barIndex, model, view, model.nodes[n].pointIndex, bars);
        if (bars.size() < base.bars.size() || bars.size() > static_cast<std::size_t>(kMaxBaseBars))
            continue;
        const Joint candidate = JointAt(model, n, bars);
        if (CompareJoints(model, base, candidate, params, Scrutiny::Verdict).Analogous())
            continue;
        misses.push_back({n, WhyNotReason::None, -1, NearMissScore(base, candidate, params)});
    }
    // Table order breaks ties: the sort is stable and the nodes came in that order.
    std::stable_sort(misses.begin(), misses.end(),
                     [](const NearMiss &a, const NearMiss &b) { return a.score < b.score; });
    if (misses.size() > static_cast<std::size_t>(std::max(limit, 0)))
        misses.resize(static_cast<std::size_t>(std::max(limit, 0)));
    // Only the closest are explained: under "ruotati" an explanation searches for a rotation.
    for (NearMiss &miss : misses) {
        BarsAtProjectedPoint(state.barIndex, model, view, model.nodes[miss.node].pointIndex, bars);
        const AnalogyExplanation e =
            ExplainAnalogy(model, base, JointAt(model, miss.node, bars), params);
        miss.reason = e.reason;
        miss.failingBar = e.failingBar;
    }
    return misses;
}

} // namespace vorna
