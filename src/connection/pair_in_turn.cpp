// "Nodi identici" and "Nodi identici e simmetrici": the base bars in order, each taking a bar of
// the candidate that leaves it the same way (or, under "simmetrici", mirrored in plan).
#include "connection/compare_steps.h"

#include <array>
#include <limits>

namespace vorna {
namespace {

struct Choice {
    int c = -1;
    std::optional<double> angle;
    bool mirrored = false;
};

// Under "simmetrici" a bar taken once is not taken again; under "identici" every bar stays.
using Free = std::array<std::uint8_t, kMaxBaseBars>;

// Exact: the first bar whose compared vector agrees component by component, identically
// (tested first) or mirrored.
Choice FirstAgreeing(const ComparedJoints &j, int k, bool mirrors, const Free &free) {
    const bool lengths = j.params.compareLengths;
    const std::optional<Vec3> &b = ComparedVector(j.base.bars[k], lengths);
    for (int c = 0; b && c < static_cast<int>(j.candidate.bars.size()); ++c) {
        const std::optional<Vec3> &v = ComparedVector(j.candidate.bars[c], lengths);
        if (!v || (mirrors && !free[c]))
            continue;
        const bool same = SameDirection(*b, *v);
        if (!same && !(mirrors && MirroredDirection(*b, *v)))
            continue;
        Choice choice{c, std::nullopt, !same};
        const std::optional<Vec3> &u = j.BaseDirection(k), &w = j.CandidateDirection(c);
        if (u && w && j.Figures())
            choice.angle = AngleDegrees(*u, choice.mirrored ? Mirror(*w) : *w);
        return choice;
    }
    return {};
}

// Within tolerances: of the bars whose direction (or mirror) and length agree, the one at the
// smallest angle, the first on a tie; a mirror counts when its angle is the smaller. The bar is
// taken mirrored only when its own direction does not agree: a bar that its mirror leaves as it
// is (a column) is no mirror image, whatever the rounding of the coordinates.
Choice NearestAgreeing(const ComparedJoints &j, int k, bool mirrors, const Free &free) {
    Choice best;
    const std::optional<Vec3> &u = j.BaseDirection(k);
    if (!u)
        return best;
    double least = std::numeric_limits<double>::infinity();
    for (int c = 0; c < static_cast<int>(j.candidate.bars.size()); ++c) {
        const std::optional<Vec3> &w = j.CandidateDirection(c);
        if (!w || (mirrors && !free[c]) ||
            (j.params.compareLengths &&
             !j.rule.LengthsAgree(j.BaseLength(k), j.CandidateLength(c))))
            continue;
        const std::optional<double> direct = j.rule.Within(*u, *w);
        const std::optional<double> mirror =
            mirrors ? j.rule.Within(*u, Mirror(*w)) : std::optional<double>{};
        const std::optional<double> nearer =
            mirror && (!direct || *mirror < *direct) ? mirror : direct;
        if (nearer && *nearer < least) {
            least = *nearer;
            best = {c, direct ? direct : mirror, !direct};
        }
    }
    return best;
}

// Whether a bar among the free ones (all under "identici") has base bar k's direction (or its
// mirror): then only the length kept them apart.
bool DirectionElsewhere(const ComparedJoints &j, int k, bool mirrors, const Free &free) {
    const std::optional<Vec3> &u = j.BaseDirection(k);
    for (int c = 0; u && c < static_cast<int>(j.candidate.bars.size()); ++c) {
        const std::optional<Vec3> &w = j.CandidateDirection(c);
        if (w && (!mirrors || free[c]) &&
            (j.rule.Directions(*u, *w) || (mirrors && j.rule.Directions(*u, Mirror(*w)))))
            return true;
    }
    return false;
}

} // namespace

void PairInTurn(const ComparedJoints &j, bool mirrors, Verdict &v) {
    const bool tolerant = j.rule.Tolerant();
    Free free;
    free.fill(1);
    for (int k = 0; k < static_cast<int>(j.base.bars.size()); ++k) {
        const Choice choice =
            tolerant ? NearestAgreeing(j, k, mirrors, free) : FirstAgreeing(j, k, mirrors, free);
        if (choice.c >= 0) {
            j.Take(v, k, choice.c, choice.angle, choice.mirrored);
            if (mirrors)
                free[choice.c] = 0;
            continue;
        }
        if (j.Explained())
            j.Nearest(v, k, mirrors,
                      mirrors ? std::span<const std::uint8_t>(free.data(), j.candidate.bars.size())
                              : std::span<const std::uint8_t>());
        if (j.params.compareLengths && DirectionElsewhere(j, k, mirrors, free))
            Fail(v, WhyNotReason::Length, k);
        else
            Fail(v, WhyNotReason::Direction, k, v.pairs[k].angle);
        // The verdict is known; only an explanation wants the figures of the bars after it.
        if (!j.Explained())
            return;
    }
}

} // namespace vorna
