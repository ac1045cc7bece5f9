// "Nodi identici e ruotati" within tolerances: the anchors' rotations bound where every bar of a
// passing pairing can be; the pairings within those bounds are fitted and judged one by one.
#include "connection/rotation_within.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace vorna {
namespace {

constexpr double kSqrt2 = 1.4142135623730951;
// Room for rounding in the bounds below, which only prune.
constexpr double kSlack = 1e-9;
// Base bars closer than this to parallel span no plane for the second anchor.
constexpr double kLeastAcross = 1e-9;
// Partial pairings tried per candidate: the fits' limit, with room for dead ends.
constexpr long kMaxSteps = 50L * kMaxFits;

class Search {
public:
    Search(const std::vector<Vec3> &base, const std::vector<std::optional<Vec3>> &candidates,
           const BipartiteGraph &allowed, const Agreement &rule)
        : base_(base), candidates_(candidates), allowed_(allowed), rule_(rule),
          n_(static_cast<int>(base.size())), m_(static_cast<int>(candidates.size())),
          reach_(rule.Chord() + kSlack), loose_{n_, m_,
                                                std::vector<std::uint8_t>(
                                                    static_cast<std::size_t>(n_) * m_)},
          pairing_(n_, -1), used_(m_), to_(n_) {}

    std::optional<TurnedPairing> Run() {
        if (n_ == 0)
            return TurnedPairing{{}, kIdentity, 0};
        const int a = 0;
        int j = -1;
        double across = kLeastAcross;
        for (int k = 1; k < n_; ++k)
            if (const double s = Norm(Cross(base_[a], base_[k])); s > across)
                j = k, across = s;
        for (int c = 0; c < m_ && fits_ < kMaxFits && steps_ <= kMaxSteps; ++c) {
            if (!allowed_.Has(a, c) || !candidates_[c])
                continue;
            if (j < 0) {
                TryAnchors(a, c, -1, -1);
                continue;
            }
            // A rotation keeps the anchors' dot product: each end moves by at most the reach.
            const double dot = Dot(base_[a], base_[j]);
            for (int d = 0; d < m_ && fits_ < kMaxFits; ++d)
                if (d != c && allowed_.Has(j, d) && candidates_[d] &&
                    std::fabs(dot - Dot(*candidates_[c], *candidates_[d])) <= 2 * reach_)
                    TryAnchors(a, c, j, d);
        }
        return best_;
    }

private:
    // Every rotation R that keeps the anchors within the reach of their bars differs from the
    // anchors' own rotation r0 by at most d1 on the first anchor's axis and d1 + d2 across it
    // (chords), so |r0 b - v| stays below a bound for every pair of a passing pairing.
    void TryAnchors(int a, int c, int j, int d) {
        const OrthonormalFrame from = FrameOf(base_[a], j >= 0 ? &base_[j] : nullptr);
        const Rotation r0 =
            Between(from, FrameOf(*candidates_[c], d >= 0 ? &*candidates_[d] : nullptr));
        const double d1 = std::min(2.0, reach_);
        const double d2 =
            j >= 0 ? std::min(2.0, 4 * reach_ / Norm(Cross(base_[a], base_[j]))) : 2.0;
        for (int k = 0; k < n_; ++k) {
            const Vec3 image = Rotate(r0, base_[k]);
            const double onAxis = std::fabs(Dot(base_[k], from.along));
            const double offAxis =
                Norm(Sub(base_[k], Scaled(from.along, Dot(base_[k], from.along))));
            const double bound = reach_ + onAxis * d1 + kSqrt2 * offAxis * (d1 + d2) + kSlack;
            for (int e = 0; e < m_; ++e) {
                const bool anchor = k == a || k == j;
                const bool anchorColumn = (k == a && e == c) || (k == j && e == d);
                loose_.edges[k * m_ + e] = allowed_.Has(k, e) && candidates_[e] &&
                                           (anchor ? anchorColumn : true) &&
                                           Norm(Sub(image, *candidates_[e])) <= bound;
            }
        }
        if (!LexFirstMatching(loose_, 0))
            return;
        // The rows with the fewest bars first: the enumeration branches least.
        order_.resize(n_);
        std::iota(order_.begin(), order_.end(), 0);
        std::vector<int> degree(n_);
        for (int k = 0; k < n_; ++k)
            for (int e = 0; e < m_; ++e)
                degree[k] += loose_.Has(k, e);
        std::stable_sort(order_.begin(), order_.end(),
                         [&](int x, int y) { return degree[x] < degree[y]; });
        Enumerate(0);
    }

    void Enumerate(int depth) {
        if (fits_ >= kMaxFits || ++steps_ > kMaxSteps)
            return;
        if (depth == n_) {
            Judge();
            return;
        }
        const int k = order_[depth];
        for (int e = 0; e < m_; ++e) {
            if (!loose_.Has(k, e) || used_[e])
                continue;
            used_[e] = 1;
            pairing_[k] = e;
            Enumerate(depth + 1);
            used_[e] = 0;
        }
    }

    // The pairing's least-squares rotation, and whether it leaves every pair within the
    // tolerance; the best so far has the smallest largest residual.
    void Judge() {
        ++fits_;
        for (int k = 0; k < n_; ++k)
            to_[k] = *candidates_[pairing_[k]];
        const Rotation r = BestFitRotation(base_, to_);
        double worst = 0;
        for (int k = 0; k < n_; ++k) {
            const Vec3 image = Rotate(r, base_[k]);
            if (!rule_.Directions(image, to_[k]))
                return;
            worst = std::max(worst, AngleDegrees(image, to_[k]));
        }
        if (best_ &&
            (worst > best_->worst || (worst == best_->worst && pairing_ >= best_->pairing)))
            return;
        best_ = TurnedPairing{pairing_, r, worst};
    }

    const std::vector<Vec3> &base_;
    const std::vector<std::optional<Vec3>> &candidates_;
    const BipartiteGraph &allowed_;
    const Agreement &rule_;
    int n_, m_;
    double reach_;
    BipartiteGraph loose_;
    std::vector<int> pairing_, order_;
    std::vector<std::uint8_t> used_;
    std::vector<Vec3> to_;
    int fits_ = 0;
    long steps_ = 0;
    std::optional<TurnedPairing> best_;
};

} // namespace

std::optional<TurnedPairing> MatchRotatedWithin(const std::vector<Vec3> &base,
                                                const std::vector<std::optional<Vec3>> &candidates,
                                                const BipartiteGraph &allowed,
                                                const Agreement &rule) {
    if (base.size() > candidates.size())
        return std::nullopt;
    return Search(base, candidates, allowed, rule).Run();
}

} // namespace vorna
