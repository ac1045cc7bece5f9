// Why a node is or is not analogous to the base node, and which rejected nodes come closest.
//
// Sections: the figures of one pair of bars (SetCandidate, Pair); the first failing criterion
// of the direction methods (Fail, the nearest bar); the best rotation of "Nodi identici e
// ruotati" (AxisAngle, RotationTry, the best pairing); the bars' properties
// (ExplainProperties); the explanation itself (ExplainAnalogy, ExplainNodeAnalogy); the near
// misses (NearMissScore, FindNearMisses).
#include "connection/why_not.h"

#include "connection/assignment.h"
#include "connection/rotation_match.h"

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

Vec3 Mirror(const Vec3 &v) {
    return {-v[0], -v[1], v[2]};
}

double AngleDegrees(const Vec3 &a, const Vec3 &b) {
    return Degrees(AngleBetween(a, b));
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

void Fail(AnalogyExplanation &e, WhyNotReason reason, int k, std::optional<double> angle = {}) {
    if (e.reason != WhyNotReason::None)
        return;
    e.reason = reason;
    e.failingBar = k;
    e.angle = angle;
}

// The node's bar nearest in direction to base bar k among those usable[c], for a bar that found
// no partner.
void Nearest(const StructureModel &m, const Joint &base, const Joint &candidate, int k,
             bool mirrored, const std::vector<std::uint8_t> *usable, AnalogyExplanation &e) {
    BarPairFigures &pair = e.pairs[k];
    const std::optional<Vec3> b = DirectionOf(base.bars[k]);
    if (!b)
        return;
    for (std::size_t c = 0; c < candidate.bars.size(); ++c) {
        const std::optional<Vec3> v = DirectionOf(candidate.bars[c]);
        if (!v || (usable && !(*usable)[c]))
            continue;
        const double angle = CompareAngle(*b, *v, mirrored);
        if (!pair.angle || angle < *pair.angle) {
            pair.angle = angle;
            pair.nearestBar = candidate.bars[c].bar;
            SetCandidate(m, pair, candidate.bars[c]);
        }
    }
}

// Whether some bar among usable has base bar k's direction (mirrored too when allowed): then
// only the length can have kept them apart.
bool SameDirectionElsewhere(const Joint &base, const Joint &candidate, int k, bool mirrored,
                            const std::vector<std::uint8_t> *usable) {
    const std::optional<Vec3> b = DirectionOf(base.bars[k]);
    if (!b)
        return false;
    for (std::size_t c = 0; c < candidate.bars.size(); ++c) {
        const std::optional<Vec3> v = DirectionOf(candidate.bars[c]);
        if (v && (!usable || (*usable)[c]) &&
            (SameDirection(*b, *v) || (mirrored && MirroredDirection(*b, *v))))
            return true;
    }
    return false;
}

void Pair(const StructureModel &m, const Joint &candidate, int c, BarPairFigures &pair) {
    pair.candidateBar = candidate.bars[c].bar;
    SetCandidate(m, pair, candidate.bars[c]);
}

// "Nodi identici" and "simmetrici", as the test walks them: each base bar takes the first bar
// that agrees; under "simmetrici" a bar taken once is not taken again.
void ExplainInTurn(const StructureModel &m, const Joint &base, const Joint &candidate,
                   bool mirrored, bool lengths, AnalogyExplanation &e) {
    std::vector<std::optional<Vec3>> vectors;
    for (const JointBar &c : candidate.bars)
        vectors.push_back(ComparedVector(c, lengths));
    std::vector<std::uint8_t> free(candidate.bars.size(), 1);
    for (std::size_t k = 0; k < base.bars.size(); ++k) {
        const std::optional<Vec3> b = ComparedVector(base.bars[k], lengths);
        BarPairFigures &pair = e.pairs[k];
        std::size_t paired = vectors.size();
        for (std::size_t c = 0; b && c < vectors.size(); ++c) {
            if (!vectors[c] || (mirrored && !free[c]))
                continue;
            const bool same = SameDirection(*b, *vectors[c]);
            if (same || (mirrored && MirroredDirection(*b, *vectors[c]))) {
                Pair(m, candidate, static_cast<int>(c), pair);
                pair.mirrored = !same;
                free[c] = 0;
                paired = c;
                break;
            }
        }
        const int kk = static_cast<int>(k);
        if (paired < vectors.size()) {
            const std::optional<Vec3> u = DirectionOf(base.bars[k]);
            const std::optional<Vec3> w = DirectionOf(candidate.bars[paired]);
            if (u && w)
                pair.angle = AngleDegrees(*u, pair.mirrored ? Mirror(*w) : *w);
            continue;
        }
        const std::vector<std::uint8_t> *usable = mirrored ? &free : nullptr;
        Nearest(m, base, candidate, kk, mirrored, usable, e);
        if (lengths && SameDirectionElsewhere(base, candidate, kk, mirrored, usable))
            Fail(e, WhyNotReason::Length, kk);
        else
            Fail(e, WhyNotReason::Direction, kk, pair.angle);
    }
}

// Axis and angle of a rotation matrix; the axis is any when the angle is 0.
void AxisAngle(const Rotation &r, AnalogyExplanation &e) {
    const Vec3 w{r[2][1] - r[1][2], r[0][2] - r[2][0], r[1][0] - r[0][1]};
    const double trace = r[0][0] + r[1][1] + r[2][2];
    e.rotationAngle = Degrees(Atan2(Norm(w), trace - 1));
    if (Norm(w) > 1e-9) {
        e.rotationAxis = Scaled(w, 1 / Norm(w));
        return;
    }
    // A half turn (or none): the axis is the longest column of R + I.
    Vec3 best{0, 0, 1};
    double longest = 0;
    for (std::size_t c = 0; c < 3; ++c) {
        Vec3 column{r[0][c], r[1][c], r[2][c]};
        column[c] += 1;
        if (Norm(column) > longest)
            longest = Norm(column), best = column;
    }
    e.rotationAxis = longest > 1e-9 ? Scaled(best, 1 / longest) : Vec3{0, 0, 1};
}

// Above this many bars at the node the search for the best rotation starts from the identity
// only: each start costs an assignment, and there is one start per pair of the node's bars.
constexpr std::size_t kRotationStartsUpTo = 12;

// Directions, with nothing for a bar that has none.
std::vector<std::optional<Vec3>> DirectionsOf(const Joint &joint) {
    std::vector<std::optional<Vec3>> d;
    d.reserve(joint.bars.size());
    for (const JointBar &b : joint.bars)
        d.push_back(DirectionOf(b));
    return d;
}

struct RotationTry {
    Rotation rotation;
    std::vector<int> pairing;
    double worst = 0; // the largest angle between a turned base direction and its bar's, degrees
};

// The pairing that makes the angles between the turned base directions and their bars' sum
// least, with the rotation fitted to it again, a few times over: a local search from r.
std::optional<RotationTry> FitFrom(Rotation r, const std::vector<Vec3> &base,
                                   const std::vector<std::optional<Vec3>> &bars) {
    const int rows = static_cast<int>(base.size()), columns = static_cast<int>(bars.size());
    std::vector<double> cost(static_cast<std::size_t>(rows) * columns);
    const std::vector<std::uint8_t> allowed(cost.size(), 1);
    std::optional<RotationTry> best;
    for (int round = 0; round < 3; ++round) {
        for (int k = 0; k < rows; ++k)
            for (int c = 0; c < columns; ++c)
                cost[k * columns + c] =
                    bars[c] ? AngleDegrees(Rotate(r, base[k]), *bars[c]) : kNoDirectionCost;
        std::optional<std::vector<int>> pairing =
            LexFirstCheapestAssignment(rows, columns, cost, allowed);
        if (!pairing)
            return best;
        std::vector<Vec3> to;
        to.reserve(base.size());
        for (int k = 0; k < rows; ++k)
            to.push_back(bars[(*pairing)[k]].value_or(Vec3{0, 0, 0}));
        r = BestFitRotation(base, to);
        double worst = 0;
        for (int k = 0; k < rows; ++k) {
            const std::optional<Vec3> &v = bars[(*pairing)[k]];
            worst = std::max(worst, v ? AngleDegrees(Rotate(r, base[k]), *v) : 180.0);
        }
        if (!best || worst < best->worst)
            best = RotationTry{r, *pairing, worst};
    }
    return best;
}

// The rotation that leaves the smallest largest angle among those found from the identity and
// from every rotation taking the two anchor directions (the first base bar and the one most
// across it) onto two bars of the node.
std::optional<RotationTry> BestRotation(const std::vector<Vec3> &base,
                                        const std::vector<std::optional<Vec3>> &bars) {
    std::optional<RotationTry> best = FitFrom(kIdentity, base, bars);
    auto offer = [&](const std::optional<RotationTry> &t) {
        if (t && (!best || t->worst < best->worst))
            best = t;
    };
    if (base.empty() || bars.size() > kRotationStartsUpTo)
        return best;
    std::size_t across = 0;
    double most = 0;
    for (std::size_t k = 1; k < base.size(); ++k)
        if (const double s = Norm(Cross(base[0], base[k])); s > most)
            most = s, across = k;
    for (std::size_t c = 0; c < bars.size(); ++c)
        for (std::size_t d = 0; d < bars.size(); ++d) {
            if (!bars[c] || (across > 0 && (d == c || !bars[d])) || (across == 0 && d > 0))
                continue;
            std::vector<Vec3> from{base[0]}, to{*bars[c]};
            if (across > 0) {
                from.push_back(base[across]);
                to.push_back(*bars[d]);
            }
            offer(FitFrom(BestFitRotation(from, to), base, bars));
        }
    return best;
}

// "Nodi identici e ruotati": the pairing the rotation search finds, or else the best rotation
// found of the directions alone, with its largest residual.
void ExplainRotated(const StructureModel &m, const Joint &base, const Joint &candidate,
                    bool lengths, AnalogyExplanation &e) {
    std::vector<Vec3> b;
    for (std::size_t k = 0; k < base.bars.size(); ++k) {
        const std::optional<Vec3> v = ComparedVector(base.bars[k], lengths);
        if (!v) {
            Fail(e, WhyNotReason::NoRotation, static_cast<int>(k));
            return;
        }
        b.push_back(*v);
    }
    std::vector<std::optional<Vec3>> vectors;
    for (const JointBar &c : candidate.bars)
        vectors.push_back(ComparedVector(c, lengths));
    const std::optional<std::vector<int>> found = MatchRotated(b, vectors);
    // The figures are of directions: the rotation the pairing found fits them too.
    std::vector<Vec3> from;
    for (const JointBar &bar : base.bars)
        from.push_back(DirectionOf(bar).value_or(Vec3{0, 0, 0}));
    const std::vector<std::optional<Vec3>> directions = DirectionsOf(candidate);
    std::optional<RotationTry> fit;
    if (found) {
        std::vector<Vec3> to;
        for (int c : *found)
            to.push_back(directions[c].value_or(Vec3{0, 0, 0}));
        fit = RotationTry{BestFitRotation(from, to), *found, 0};
    } else {
        fit = BestRotation(from, directions);
    }
    if (!fit) {
        Fail(e, WhyNotReason::NoRotation, 0);
        return;
    }
    e.hasRotation = true;
    AxisAngle(fit->rotation, e);
    int worst = 0;
    for (std::size_t k = 0; k < from.size(); ++k) {
        const int c = fit->pairing[k];
        BarPairFigures &pair = e.pairs[k];
        if (found)
            Pair(m, candidate, c, pair);
        else {
            pair.nearestBar = candidate.bars[c].bar;
            SetCandidate(m, pair, candidate.bars[c]);
        }
        const std::optional<Vec3> &w = directions[c];
        const double residual =
            w && Norm(from[k]) > 0 ? AngleDegrees(Rotate(fit->rotation, from[k]), *w) : 180.0;
        pair.angle = residual;
        if (residual > e.rotationResidual)
            e.rotationResidual = residual, worst = static_cast<int>(k);
    }
    if (!found)
        Fail(e, WhyNotReason::NoRotation, worst, e.rotationResidual);
}

// "Nodi qualsiasi": the cheapest pairing; without one, the first base bar that no bar can take.
void ExplainAny(const StructureModel &m, const Joint &base, const Joint &candidate, bool lengths,
                AnalogyExplanation &e) {
    std::vector<double> angles;
    const std::optional<std::vector<int>> pairing =
        CheapestDirectionPairing(base, candidate, lengths, &angles);
    const int columns = static_cast<int>(candidate.bars.size());
    if (pairing) {
        double total = 0;
        for (std::size_t k = 0; k < pairing->size(); ++k) {
            const int c = (*pairing)[k];
            Pair(m, candidate, c, e.pairs[k]);
            e.pairs[k].angle = Degrees(angles[k * columns + c]);
            total += *e.pairs[k].angle;
        }
        e.totalAngle = total;
        return;
    }
    const int rows = static_cast<int>(base.bars.size());
    for (int k = 0; k < rows; ++k)
        Nearest(m, base, candidate, k, false, nullptr, e);
    // The first base bar that, with those before it, leaves no bar of its own: it has no
    // direction to pair, or only lengths keep the bars it could take.
    BipartiteGraph graph{0, columns, {}};
    for (int k = 0; k < rows; ++k) {
        const bool direction = DirectionOf(base.bars[k]).has_value();
        for (int c = 0; c < columns; ++c)
            graph.edges.push_back(direction && DirectionOf(candidate.bars[c]) &&
                                  (!lengths || std::fabs(base.bars[k].length -
                                                         candidate.bars[c].length) < kTolerance));
        graph.rows = k + 1;
        if (LexFirstMatching(graph, 0))
            continue;
        if (lengths && direction && e.pairs[k].nearestBar >= 0)
            Fail(e, WhyNotReason::Length, k);
        else
            Fail(e, WhyNotReason::Direction, k, e.pairs[k].angle);
        return;
    }
    // Every prefix pairs: only a figure that is not a number kept the whole apart.
    Fail(e, WhyNotReason::Direction, rows - 1);
}

void ExplainProperties(const AnalogyParameters &params, AnalogyExplanation &e) {
    auto first = [&](int BarPairFigures::*a, int BarPairFigures::*b) {
        for (std::size_t k = 0; k < e.pairs.size(); ++k)
            if (e.pairs[k].*a != e.pairs[k].*b)
                return static_cast<int>(k);
        return -1;
    };
    int k = -1;
    if (params.compareColours &&
        (k = first(&BarPairFigures::baseColour, &BarPairFigures::candidateColour)) >= 0)
        Fail(e, WhyNotReason::Colour, k);
    else if (params.compareLineTypes &&
             (k = first(&BarPairFigures::baseLineType, &BarPairFigures::candidateLineType)) >= 0)
        Fail(e, WhyNotReason::LineType, k);
    else if (params.compareSections &&
             (k = first(&BarPairFigures::baseSection, &BarPairFigures::candidateSection)) >= 0)
        Fail(e, WhyNotReason::Section, k);
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
    AnalogyExplanation e;
    e.candidateBarCount = static_cast<int>(candidate.bars.size());
    for (const JointBar &b : base.bars) {
        BarPairFigures pair;
        const Bar &bar = BarOf(m, b.bar);
        pair.baseBar = b.bar;
        pair.baseLength = b.length;
        pair.baseSection = bar.sectionCard;
        pair.baseColour = bar.colour;
        pair.baseLineType = bar.lineType;
        e.pairs.push_back(pair);
    }
    if (base.node < 0 || base.node >= m.nodeCount || candidate.node < 0 ||
        candidate.node >= m.nodeCount) {
        Fail(e, WhyNotReason::NotLive, -1);
        return e;
    }
    const auto limit = static_cast<std::size_t>(kMaxBaseBars);
    if (candidate.bars.size() > limit || base.bars.size() > limit) {
        Fail(e, WhyNotReason::TooManyBars, -1);
        return e;
    }
    if (candidate.bars.size() < base.bars.size()) {
        Fail(e, WhyNotReason::BarCount, -1);
        return e;
    }
    const AnalogyMatch match = MatchAnalogy(m, base, candidate, params);
    e.analogous = match.outcome == AnalogyOutcome::Analogous;
    const bool lengths = params.compareLengths;
    if (params.method == AnalogyMethod::Identical || candidate.node == base.node)
        ExplainInTurn(m, base, candidate, false, lengths, e);
    else if (params.method == AnalogyMethod::IdenticalOrMirrored)
        ExplainInTurn(m, base, candidate, true, lengths, e);
    else if (params.method == AnalogyMethod::Rotated)
        ExplainRotated(m, base, candidate, lengths, e);
    else
        ExplainAny(m, base, candidate, lengths, e);
    if (e.reason == WhyNotReason::None)
        ExplainProperties(params, e);
    if (e.analogous) {
        // The test's own record is the pairing; the walk above only found the same one.
        for (std::size_t k = 0; k < e.pairs.size(); ++k)
            e.pairs[k].candidateBar = match.record.bars[k];
        e.reason = WhyNotReason::None;
        e.failingBar = -1;
        e.angle.reset();
    }
    return e;
}

AnalogyExplanation ExplainNodeAnalogy(const StructureModel &model, const ViewState &view,
                                      ConnectionState &state, const AnalogyParameters &params,
                                      int node) {
    if (state.baseNode >= 0 && state.baseNode < model.nodeCount && !HasUsableBaseNode(state)) {
        AnalogyExplanation e;
        Fail(e, WhyNotReason::TooManyBars, -1);
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
        if (MatchAnalogy(model, base, candidate, params).outcome == AnalogyOutcome::Analogous)
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
