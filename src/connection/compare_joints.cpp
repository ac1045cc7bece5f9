// One comparison of a base joint with a candidate joint: the checks every method shares (the
// nodes, the bar counts, the bars' properties), the pairing of "Nodi qualsiasi", and the verdict
// record with its deviations.
#include "connection/compare_steps.h"

#include "connection/assignment.h"

#include <algorithm>
#include <cmath>

namespace vorna {
namespace {

const Bar &BarOf(const StructureModel &m, int bar) {
    static const Bar none{};
    return bar >= 0 && bar < m.barCount ? m.bars[bar] : none;
}

// Colours, line types and sections, in this order, for every base bar and its bar.
void CheckProperties(const StructureModel &m, const ComparedJoints &j, Verdict &v) {
    const AnalogyParameters &params = j.params;
    const std::pair<bool, std::int16_t Bar::*> checks[] = {
        {params.compareColours, &Bar::colour},
        {params.compareLineTypes, &Bar::lineType},
        {params.compareSections, &Bar::sectionCard}};
    const WhyNotReason reasons[] = {WhyNotReason::Colour, WhyNotReason::LineType,
                                    WhyNotReason::Section};
    for (std::size_t check = 0; check < 3; ++check) {
        if (!checks[check].first)
            continue;
        for (std::size_t k = 0; k < v.pairs.size(); ++k) {
            const int c = v.pairs[k].candidate;
            const auto field = checks[check].second;
            if (BarOf(m, j.base.bars[k].bar).*field != BarOf(m, j.candidate.bars[c].bar).*field) {
                Fail(v, reasons[check], static_cast<int>(k));
                return;
            }
        }
    }
}

} // namespace

ComparedJoints::ComparedJoints(const Joint &baseJoint, const Joint &candidateJoint,
                               const AnalogyParameters &parameters, Scrutiny asked)
    : base(baseJoint), candidate(candidateJoint), params(parameters), rule(parameters),
      scrutiny(asked) {}

void ComparedJoints::Take(Verdict &v, int k, int c, std::optional<double> angle,
                          bool mirrored) const {
    PairVerdict &pair = v.pairs[k];
    pair.candidate = c;
    pair.mirrored = mirrored;
    if (!Figures())
        return;
    pair.angle = angle;
    pair.lengthDeviation = LengthDeviation(BaseLength(k), CandidateLength(c));
}

void ComparedJoints::Nearest(Verdict &v, int k, bool mirrors,
                             std::span<const std::uint8_t> allowed) const {
    PairVerdict &pair = v.pairs[k];
    const std::optional<Vec3> &b = BaseDirection(k);
    if (!b)
        return;
    for (int c = 0; c < static_cast<int>(candidate.bars.size()); ++c) {
        const std::optional<Vec3> &w = CandidateDirection(c);
        if (!w || (!allowed.empty() && !allowed[c]))
            continue;
        double angle = AngleDegrees(*b, *w);
        if (mirrors)
            angle = std::min(angle, AngleDegrees(*b, Mirror(*w)));
        if (!pair.angle || angle < *pair.angle) {
            pair.angle = angle;
            pair.nearest = c;
            pair.lengthDeviation = LengthDeviation(BaseLength(k), CandidateLength(pair.nearest));
        }
    }
}

void Fail(Verdict &v, WhyNotReason reason, int k, std::optional<double> angle) {
    if (v.reason != WhyNotReason::None)
        return;
    v.reason = reason;
    v.failingBar = k;
    v.angle = angle;
}

// Each base bar with a distinct bar of the candidate, the sum of the angles between their
// directions as small as it can be, the lexicographically first among equal sums; only bars with
// a direction pair, and when lengths count only bars whose lengths agree.
void PairCheapest(const ComparedJoints &j, Verdict &v) {
    const int rows = static_cast<int>(j.base.bars.size());
    const int columns = static_cast<int>(j.candidate.bars.size());
    std::vector<double> angle(static_cast<std::size_t>(rows) * columns);
    std::vector<std::uint8_t> allowed(angle.size());
    const bool lengths = j.params.compareLengths;
    for (int k = 0; k < rows; ++k) {
        const std::optional<Vec3> &u = j.BaseDirection(k);
        for (int c = 0; c < columns && u; ++c) {
            const std::optional<Vec3> &w = j.CandidateDirection(c);
            if (!w || (lengths && !j.rule.LengthsAgree(j.BaseLength(k), j.CandidateLength(c))))
                continue;
            angle[k * columns + c] = AngleBetween(*u, *w);
            allowed[k * columns + c] = 1;
        }
    }
    if (const auto pairing = LexFirstCheapestAssignment(rows, columns, angle, allowed)) {
        double total = 0;
        for (int k = 0; k < rows; ++k) {
            const int c = (*pairing)[k];
            j.Take(v, k, c, Degrees(angle[k * columns + c]));
            total += *v.pairs[k].angle;
        }
        v.totalAngle = total;
        return;
    }
    if (j.Explained())
        for (int k = 0; k < rows; ++k)
            j.Nearest(v, k, false, {});
    // The first base bar that, with those before it, leaves no bar of its own: it has no
    // direction to pair, or only lengths keep the bars it could take.
    BipartiteGraph graph{0, columns, {}};
    for (int k = 0; k < rows; ++k) {
        const bool direction = j.BaseDirection(k).has_value();
        bool directionAnywhere = false;
        for (int c = 0; c < columns; ++c) {
            graph.edges.push_back(allowed[k * columns + c]);
            directionAnywhere = directionAnywhere || (direction && j.CandidateDirection(c));
        }
        graph.rows = k + 1;
        if (LexFirstMatching(graph, 0))
            continue;
        if (lengths && directionAnywhere)
            Fail(v, WhyNotReason::Length, k);
        else
            Fail(v, WhyNotReason::Direction, k, v.pairs[k].angle);
        return;
    }
    // Every prefix pairs: only a figure that is not a number kept the whole apart.
    Fail(v, WhyNotReason::Direction, rows - 1);
}

Verdict CompareJoints(const StructureModel &model, const Joint &base, const Joint &candidate,
                      const AnalogyParameters &params, Scrutiny scrutiny) {
    Verdict v;
    const auto inModel = [&](int node) { return node >= 0 && node < model.nodeCount; };
    if (!inModel(base.node) || !inModel(candidate.node)) {
        Fail(v, WhyNotReason::NotLive, -1);
        return v;
    }
    const auto limit = static_cast<std::size_t>(kMaxBaseBars);
    if (candidate.bars.size() > limit || base.bars.size() > limit) {
        if (candidate.bars.size() > limit)
            v.outcome = AnalogyOutcome::TooManyBars;
        Fail(v, WhyNotReason::TooManyBars, -1);
        return v;
    }
    if (candidate.bars.size() < base.bars.size()) {
        Fail(v, WhyNotReason::BarCount, -1);
        return v;
    }
    v.pairs.resize(base.bars.size());
    const ComparedJoints j(base, candidate, params, scrutiny);
    if (params.method == AnalogyMethod::Identical || candidate.node == base.node)
        PairInTurn(j, false, v);
    else if (params.method == AnalogyMethod::IdenticalOrMirrored)
        PairInTurn(j, true, v);
    else if (params.method == AnalogyMethod::Rotated)
        PairTurned(j, v);
    else
        PairCheapest(j, v);
    if (v.reason == WhyNotReason::None)
        CheckProperties(model, j, v);
    if (v.reason != WhyNotReason::None)
        return v;
    v.outcome = AnalogyOutcome::Analogous;
    for (const PairVerdict &pair : v.pairs) {
        v.largestAngle = std::max(v.largestAngle, pair.angle.value_or(0));
        v.largestLength = std::max(v.largestLength, pair.lengthDeviation.value_or(0));
    }
    return v;
}

AnalogousNode RecordOf(const Joint &base, const Joint &candidate, const Verdict &verdict,
                       const AnalogyParameters &params) {
    AnalogousNode record;
    record.node = static_cast<std::int16_t>(candidate.node);
    MatchSummary &match = record.match;
    match.kind = candidate.node == base.node                           ? MatchKind::Base
                 : params.method == AnalogyMethod::IdenticalOrMirrored ? MatchKind::Mirrored
                 : params.method == AnalogyMethod::Rotated             ? MatchKind::Rotated
                 : params.method == AnalogyMethod::Any                 ? MatchKind::Any
                                                                       : MatchKind::Identical;
    match.withinTolerances = params.Tolerant();
    match.angleTolerance = params.angleTolerance;
    for (std::size_t k = 0; k < verdict.pairs.size(); ++k) {
        const PairVerdict &pair = verdict.pairs[k];
        record.bars[record.barCount++] = candidate.bars[pair.candidate].bar;
        match.mirrored[k] = pair.mirrored;
    }
    if (verdict.rotation)
        match.rotation = *verdict.rotation;
    match.largestAngle = verdict.largestAngle;
    match.largestLength = verdict.largestLength;
    return record;
}

} // namespace vorna
