// The rotation that comes closest to taking a joint's base directions onto bars of another, for
// explaining a turned joint that no rotation fits.
#pragma once

#include "connection/rotation.h"

#include <optional>
#include <vector>

namespace vorna {

struct RotationTry {
    Rotation rotation;
    std::vector<int> pairing;
    double worst = 0; // the largest angle between a turned base direction and its bar's, degrees
};

// The rotation that leaves the smallest largest angle among those found from the identity and
// from every rotation taking the two anchor directions (the first base bar and the one most
// across it) onto two bars of the node: a local search, not a proof of the best. Bars without a
// direction cost the most.
std::optional<RotationTry> BestRotation(const std::vector<Vec3> &base,
                                        const std::vector<std::optional<Vec3>> &bars);

} // namespace vorna
