// "Nodi identici" and "Nodi identici e simmetrici": the base bars in order, each taking a bar of
// the candidate that leaves it the same way (or, under "simmetrici", mirrored in plan).
#include "connection/compare_steps.h"

#include <limits>

namespace vorna {
namespace {

struct Choice {
    int c = -1;
    std::optional<double> angle;
    bool mirrored = false;
};

// Exact: the first bar whose compared vector agrees component by component, identically
// (tested first) or mirrored.
Choice FirstAgreeing(const ComparedJoints &j, int k, bool mirrors,
                     const std::vector<std::optional<Vec3>> &compared,
                     const std::vector<std::uint8_t> &free) {
    const std::optional<Vec3> b = ComparedVector(j.base.bars[k], j.params.compareLengths);
    for (std::size_t c = 0; b && c < compared.size(); ++c) {
        if (!compared[c] || (mirrors && !free[c]))
            continue;
        const bool same = SameDirection(*b, *compared[c]);
        if (!same && !(mirrors && MirroredDirection(*b, *compared[c])))
            continue;
        Choice choice{static_cast<int>(c), std::nullopt, !same};
        const std::optional<Vec3> &u = j.baseDirections[k], &w = j.candidateDirections[c];
        if (u && w)
            choice.angle = AngleDegrees(*u, choice.mirrored ? Mirror(*w) : *w);
        return choice;
    }
    return {};
}

// Within tolerances: of the bars whose direction (or mirror) and length agree, the one at the
// smallest angle, the first on a tie; a mirror counts when its angle is the smaller.
Choice NearestAgreeing(const ComparedJoints &j, int k, bool mirrors,
                       const std::vector<std::uint8_t> &free) {
    Choice best;
    const std::optional<Vec3> &u = j.baseDirections[k];
    if (!u)
        return best;
    double least = std::numeric_limits<double>::infinity();
    for (std::size_t c = 0; c < j.candidateDirections.size(); ++c) {
        const std::optional<Vec3> &w = j.candidateDirections[c];
        if (!w || (mirrors && !free[c]) ||
            (j.params.compareLengths &&
             !j.rule.LengthsAgree(j.BaseLength(k), j.CandidateLength(static_cast<int>(c)))))
            continue;
        const std::optional<double> direct = j.rule.Within(*u, *w);
        const std::optional<double> mirror =
            mirrors ? j.rule.Within(*u, Mirror(*w)) : std::optional<double>{};
        const bool mirrored = mirror && (!direct || *mirror < *direct);
        const std::optional<double> angle = mirrored ? mirror : direct;
        if (angle && *angle < least) {
            least = *angle;
            best = {static_cast<int>(c), angle, mirrored};
        }
    }
    return best;
}

// Whether a bar among the free ones has base bar k's direction (or its mirror): then only the
// length kept them apart.
bool DirectionElsewhere(const ComparedJoints &j, int k, bool mirrors,
                        const std::vector<std::uint8_t> &free) {
    const std::optional<Vec3> &u = j.baseDirections[k];
    for (std::size_t c = 0; u && c < j.candidateDirections.size(); ++c) {
        const std::optional<Vec3> &w = j.candidateDirections[c];
        if (w && free[c] &&
            (j.rule.Directions(*u, *w) || (mirrors && j.rule.Directions(*u, Mirror(*w)))))
            return true;
    }
    return false;
}

} // namespace

void PairInTurn(const ComparedJoints &j, bool mirrors, Verdict &v) {
    const bool tolerant = j.rule.Tolerant();
    std::vector<std::optional<Vec3>> compared;
    if (!tolerant)
        for (const JointBar &c : j.candidate.bars)
            compared.push_back(ComparedVector(c, j.params.compareLengths));
    // Under "simmetrici" a bar taken once is not taken again; under "identici" every bar stays.
    std::vector<std::uint8_t> free(j.candidate.bars.size(), 1);
    const std::vector<std::uint8_t> all(free);
    for (int k = 0; k < static_cast<int>(j.base.bars.size()); ++k) {
        const Choice choice = tolerant ? NearestAgreeing(j, k, mirrors, free)
                                       : FirstAgreeing(j, k, mirrors, compared, free);
        if (choice.c >= 0) {
            j.Take(v, k, choice.c, choice.angle, choice.mirrored);
            if (mirrors)
                free[choice.c] = 0;
            continue;
        }
        const std::vector<std::uint8_t> &usable = mirrors ? free : all;
        if (j.Explained())
            j.Nearest(v, k, mirrors, &usable);
        if (j.params.compareLengths && DirectionElsewhere(j, k, mirrors, usable))
            Fail(v, WhyNotReason::Length, k);
        else
            Fail(v, WhyNotReason::Direction, k, v.pairs[k].angle);
        // The verdict is known; only an explanation wants the figures of the bars after it.
        if (!j.Explained())
            return;
    }
}

} // namespace vorna
