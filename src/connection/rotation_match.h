// The pairing of "Nodi identici e ruotati": base bars onto distinct candidate bars by one
// rotation of space, every component within the tolerance.
#pragma once

#include "connection/rotation.h"
#include "connection/vec3.h"

#include <optional>
#include <vector>

namespace vorna {

// For each base vector the position of its candidate: distinct candidates, one rotation R with
// R(base k) agreeing with candidate k's vector component by component within 0.0001, and among
// such pairings the lexicographically first. A candidate without a vector pairs with nothing.
// Nothing when no pairing is found.
//
// The rotations tried are the identity, the half turn about Z, and for each pairing of two
// anchor bars (the longest base bar and the one most across it) the rotation that takes the
// anchors onto their partners, refined by least-squares fits over all the pairs when that alone
// falls short of the tolerance. A rotation found this way is always a true witness; a pairing
// that only some other rotation fits, every bar within the last tenth of the tolerance, can be
// missed (1 in 200 random joints whose rotation leaves components off by 0.00009).
std::optional<std::vector<int>> MatchRotated(const std::vector<Vec3> &base,
                                             const std::vector<std::optional<Vec3>> &candidates);

} // namespace vorna
