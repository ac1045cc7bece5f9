// How an analogous node matched the base joint, read from its record.
#include "connection/review.h"

#include <cmath>

namespace vorna {
namespace {

// Below this the turn shows as 0.000 degrees: no turn at all to the reader.
constexpr double kSmallestTurn = 0.0005;

// Shown with three decimals, a component is 0 below this.
constexpr double kShownZero = 0.0005;

} // namespace

ReviewedMatch ReviewOf(const MatchSummary &match, int barCount) {
    ReviewedMatch r;
    switch (match.kind) {
    case MatchKind::Base:
        r.how = ReviewHow::Base;
        break;
    case MatchKind::Identical:
        r.how = ReviewHow::Identical;
        break;
    case MatchKind::Mirrored:
        for (int k = 0; k < barCount && k < kMaxBaseBars; ++k)
            if (match.mirrored[static_cast<std::size_t>(k)])
                r.mirroredBars.push_back(k);
        r.how = r.mirroredBars.empty() ? ReviewHow::Identical : ReviewHow::Mirrored;
        break;
    case MatchKind::Rotated:
        r.turn = AxisAngleOf(match.rotation);
        r.how = r.turn.degrees < kSmallestTurn ? ReviewHow::Identical : ReviewHow::Rotated;
        if (r.how == ReviewHow::Identical)
            r.turn = {};
        break;
    case MatchKind::Any:
        r.how = ReviewHow::Any;
        break;
    }
    if (r.how == ReviewHow::Rotated && 180 - r.turn.degrees < kSmallestTurn)
        for (double component : r.turn.axis)
            if (std::fabs(component) >= kShownZero) {
                if (component < 0)
                    r.turn.axis = Scaled(r.turn.axis, -1);
                break;
            }
    return r;
}

} // namespace vorna
