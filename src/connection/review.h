// How an analogous node matched the base joint, as the review of the list reads it from the
// node's record: never by comparing the joints again.
#pragma once

#include "connection/connection_state.h"

#include <vector>

namespace vorna {

// In the order of how far each may take a joint from the base joint.
enum class ReviewHow { Base, Identical, Mirrored, Rotated, Any };

struct ReviewedMatch {
    ReviewHow how = ReviewHow::Base;
    // Rotated: the turn, its axis with three decimals' worth of sign fixed (below).
    RotationAxisAngle turn;
    std::vector<int> mirroredBars; // Mirrored: the 0-based base bars taken mirrored
};

// What the record says: a node found under "simmetrici" with no bar mirrored, or under
// "ruotati" turned by less than 0.0005 degrees, is identical. A half turn's axis (either sign
// describes it) points along its first component that is not 0 to three decimals.
ReviewedMatch ReviewOf(const MatchSummary &match, int barCount);

} // namespace vorna
