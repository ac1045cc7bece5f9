// The best rotation found for a turned joint that no rotation fits: least-squares fits of the
// directions, each refined a few times, from no turn and from the turns of two anchor bars.
#include "connection/best_rotation.h"

#include "connection/assignment.h"

#include <algorithm>

namespace vorna {
namespace {

// Cost of a base bar paired with a bar without a direction.
constexpr double kNoDirectionCost = 180.0 + 100.0;

// Above this many bars at the node the search for the best rotation starts from the identity
// only: each start costs an assignment, and there is one start per pair of the node's bars.
constexpr std::size_t kRotationStartsUpTo = 12;

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

} // namespace

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

} // namespace vorna
