// "Nodi identici e ruotati": one rotation of space takes every base bar onto its own bar of the
// candidate, exactly (every component within 0.0001) or within the tolerances.
#include "connection/best_rotation.h"
#include "connection/compare_steps.h"
#include "connection/rotation_match.h"
#include "connection/rotation_within.h"

namespace vorna {
namespace {

// The figures of a pairing under rotation r: each base bar's bar (paired, or only nearest when
// the candidate is rejected), the angle left between the turned direction and its bar's, and
// the largest of them. Returns the base bar with the largest.
int TakeTurned(const ComparedJoints &j, Verdict &v, const std::vector<int> &pairing,
               const Rotation &r, bool paired) {
    v.rotation = r;
    v.rotationResidual = 0;
    int worst = 0;
    for (int k = 0; k < static_cast<int>(pairing.size()); ++k) {
        const int c = pairing[k];
        const std::optional<Vec3> &w = j.CandidateDirection(c);
        const Vec3 from = j.BaseDirection(k).value_or(Vec3{0, 0, 0});
        const double residual = w && Norm(from) > 0 ? AngleDegrees(Rotate(r, from), *w) : 180.0;
        j.Take(v, k, c, residual);
        if (!paired) {
            v.pairs[k].candidate = -1;
            v.pairs[k].nearest = c;
        }
        if (residual > v.rotationResidual)
            v.rotationResidual = residual, worst = k;
    }
    return worst;
}

std::vector<Vec3> BaseDirections(const ComparedJoints &j) {
    std::vector<Vec3> from;
    for (const JointBar &b : j.base.bars)
        from.push_back(DirectionOf(b).value_or(Vec3{0, 0, 0}));
    return from;
}

std::vector<std::optional<Vec3>> CandidateDirections(const ComparedJoints &j) {
    std::vector<std::optional<Vec3>> directions;
    for (const JointBar &c : j.candidate.bars)
        directions.push_back(DirectionOf(c));
    return directions;
}

// No pairing fits: explained, the best rotation of the directions alone names the base bar it
// leaves furthest from its bar.
void NoRotation(const ComparedJoints &j, Verdict &v) {
    if (!j.Explained()) {
        Fail(v, WhyNotReason::NoRotation, -1);
        return;
    }
    const std::optional<RotationTry> fit = BestRotation(BaseDirections(j), CandidateDirections(j));
    if (!fit) {
        Fail(v, WhyNotReason::NoRotation, 0);
        return;
    }
    const int worst = TakeTurned(j, v, fit->pairing, fit->rotation, false);
    Fail(v, WhyNotReason::NoRotation, worst, v.rotationResidual);
}

void PairTurnedExactly(const ComparedJoints &j, Verdict &v) {
    const bool lengths = j.params.compareLengths;
    std::vector<Vec3> b;
    for (std::size_t k = 0; k < j.base.bars.size(); ++k) {
        const std::optional<Vec3> compared = ComparedVector(j.base.bars[k], lengths);
        if (!compared) {
            Fail(v, WhyNotReason::NoRotation, static_cast<int>(k));
            return;
        }
        b.push_back(*compared);
    }
    std::vector<std::optional<Vec3>> vectors;
    vectors.reserve(j.candidate.bars.size());
    for (const JointBar &c : j.candidate.bars)
        vectors.push_back(ComparedVector(c, lengths));
    const std::optional<std::vector<int>> found = MatchRotated(b, vectors);
    if (!found) {
        NoRotation(j, v);
        return;
    }
    if (!j.Figures()) {
        for (int k = 0; k < static_cast<int>(found->size()); ++k)
            j.Take(v, k, (*found)[k], std::nullopt);
        return;
    }
    // The figures are of directions: the rotation the pairing found fits them too.
    std::vector<Vec3> to;
    for (int c : *found)
        to.push_back(j.CandidateDirection(c).value_or(Vec3{0, 0, 0}));
    TakeTurned(j, v, *found, BestFitRotation(BaseDirections(j), to), true);
}

void PairTurnedWithin(const ComparedJoints &j, Verdict &v) {
    const int n = static_cast<int>(j.base.bars.size());
    const int m = static_cast<int>(j.candidate.bars.size());
    for (int k = 0; k < n; ++k)
        if (!j.BaseDirection(k)) {
            Fail(v, WhyNotReason::NoRotation, k);
            return;
        }
    const bool lengths = j.params.compareLengths;
    const std::vector<std::optional<Vec3>> directions = CandidateDirections(j);
    BipartiteGraph allowed{n, m, std::vector<std::uint8_t>(static_cast<std::size_t>(n) * m)};
    for (int k = 0; k < n; ++k)
        for (int c = 0; c < m; ++c)
            allowed.edges[k * m + c] =
                directions[c] &&
                (!lengths || j.rule.LengthsAgree(j.BaseLength(k), j.CandidateLength(c)));
    const std::vector<Vec3> from = BaseDirections(j);
    if (const auto found = MatchRotatedWithin(from, directions, allowed, j.rule)) {
        TakeTurned(j, v, found->pairing, found->rotation, true);
        return;
    }
    if (lengths && j.Explained()) {
        // A pairing that the lengths alone keep out: the first base bar whose length differs.
        for (int e = 0; e < n * m; ++e)
            allowed.edges[e] = directions[e % m].has_value();
        if (const auto turned = MatchRotatedWithin(from, directions, allowed, j.rule)) {
            TakeTurned(j, v, turned->pairing, turned->rotation, false);
            for (int k = 0; k < n; ++k)
                if (!j.rule.LengthsAgree(j.BaseLength(k), j.CandidateLength(turned->pairing[k]))) {
                    Fail(v, WhyNotReason::Length, k);
                    return;
                }
        }
    }
    NoRotation(j, v);
}

} // namespace

void PairTurned(const ComparedJoints &j, Verdict &v) {
    if (j.rule.Tolerant())
        PairTurnedWithin(j, v);
    else
        PairTurnedExactly(j, v);
}

} // namespace vorna
