// "Nodi identici e ruotati" within tolerances: a one-to-one pairing of the base bars with bars of
// the candidate whose least-squares rotation leaves every pair within the angle tolerance.
#pragma once

#include "connection/agreement.h"
#include "connection/assignment.h"
#include "connection/rotation.h"

#include <optional>
#include <vector>

namespace vorna {

struct TurnedPairing {
    std::vector<int> pairing; // the candidate's position for each base bar
    Rotation rotation;        // the least-squares fit of the base directions onto theirs
    double worst = 0; // the largest angle between a turned base direction and its bar's, degrees
};

// Of the pairings that pass (distinct bars allowed by allowed, the base directions' fit R with
// every R b within the tolerance of its bar: the angle tolerance, or components within 0.0001
// when it is 0), the one with the smallest largest residual, the lexicographically first on a
// tie. base holds unit vectors, candidates unit vectors or nothing.
//
// Every pairing that passes keeps the first base bar and the one most across it (the anchors)
// within the tolerance's chord of their bars, so the rotation of the anchors onto their bars
// lies within a bound of its fit; each pairing is therefore among the pairings of the bars
// within that bound of the anchors' rotation, which are tried all, up to kMaxFits fits per
// candidate (only wide tolerances on crowded joints come near it: beyond it the best found
// stands).
std::optional<TurnedPairing> MatchRotatedWithin(const std::vector<Vec3> &base,
                                                const std::vector<std::optional<Vec3>> &candidates,
                                                const BipartiteGraph &allowed,
                                                const Agreement &rule);

constexpr int kMaxFits = 20000;

} // namespace vorna
