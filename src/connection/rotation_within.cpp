// "Nodi identici e ruotati" within tolerances: the anchors' rotations bound where every bar of a
// passing pairing can be; the pairings within those bounds are fitted and judged one by one.
#include "connection/rotation_within.h"

#include "platform/portable_math.h"

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
          distance_(loose_.edges.size()), baseDots_(static_cast<std::size_t>(n_) * n_),
          candidateDots_(static_cast<std::size_t>(m_) * m_), pairing_(n_, -1), used_(m_), to_(n_) {
        for (int k = 0; k < n_; ++k)
            for (int l = 0; l < n_; ++l)
                baseDots_[k * n_ + l] = Dot(base_[k], base_[l]);
        for (int e = 0; e < m_; ++e)
            for (int f = 0; f < m_; ++f)
                candidateDots_[e * m_ + f] =
                    candidates_[e] && candidates_[f] ? Dot(*candidates_[e], *candidates_[f]) : 0;
    }

    std::optional<TurnedPairing> Run() {
        if (n_ == 0)
            return TurnedPairing{{}, kIdentity, 0};
        const int a = 0;
        int j = -1;
        double across = kLeastAcross;
        for (int k = 1; k < n_; ++k)
            if (const double s = Norm(Cross(base_[a], base_[k])); s > across)
                j = k, across = s;
        // The anchors' partners, those whose own angle is nearest the base anchors' first: the
        // likeliest rotation is judged early, and the pairing it gives narrows the rest.
        struct Partners {
            double mismatch;
            int c, d;
        };
        std::vector<Partners> partners;
        for (int c = 0; c < m_; ++c) {
            if (!allowed_.Has(a, c) || !candidates_[c])
                continue;
            if (j < 0) {
                partners.push_back({0, c, -1});
                continue;
            }
            // A rotation keeps the anchors' dot product: each end moves by at most the reach.
            const double dot = Dot(base_[a], base_[j]);
            for (int d = 0; d < m_; ++d)
                if (d != c && allowed_.Has(j, d) && candidates_[d]) {
                    const double mismatch = std::fabs(dot - Dot(*candidates_[c], *candidates_[d]));
                    if (mismatch <= 2 * reach_)
                        partners.push_back({mismatch, c, d});
                }
        }
        std::stable_sort(
            partners.begin(), partners.end(),
            [](const Partners &x, const Partners &y) { return x.mismatch < y.mismatch; });
        for (const Partners &p : partners) {
            if (fits_ >= kMaxFits || steps_ > kMaxSteps)
                break;
            if (p.mismatch <= 2 * reach_)
                TryAnchors(a, p.c, j, p.d);
        }
        return best_;
    }

private:
    // Every rotation R that keeps the anchors within the reach of their bars differs from the
    // anchors' own rotation r0 by at most d1 on the first anchor's axis and d1 + d2 across it
    // (chords), so |r0 b - v| stays below a bound for every pair of a passing pairing. The
    // reach is the tolerance's chord until a pairing passes, then the chord of its largest
    // residual: only pairings as good can still replace it.
    void TryAnchors(int a, int c, int j, int d) {
        const OrthonormalFrame from = FrameOf(base_[a], j >= 0 ? &base_[j] : nullptr);
        const Rotation r0 =
            Between(from, FrameOf(*candidates_[c], d >= 0 ? &*candidates_[d] : nullptr));
        plane_ = j >= 0 ? Norm(Cross(base_[a], base_[j])) : 0;
        onAxis_.resize(n_);
        offAxis_.resize(n_);
        for (int k = 0; k < n_; ++k) {
            const Vec3 image = Rotate(r0, base_[k]);
            onAxis_[k] = std::fabs(Dot(base_[k], from.along));
            offAxis_[k] = Norm(Sub(base_[k], Scaled(from.along, Dot(base_[k], from.along))));
            for (int e = 0; e < m_; ++e) {
                const bool anchor = k == a || k == j;
                const bool anchorColumn = (k == a && e == c) || (k == j && e == d);
                const int edge = k * m_ + e;
                distance_[edge] = candidates_[e] ? Norm(Sub(image, *candidates_[e])) : 0;
                loose_.edges[edge] = allowed_.Has(k, e) && candidates_[e] &&
                                     (anchor ? anchorColumn : true) && distance_[edge] <= Bound(k);
            }
        }
        if (!LexFirstMatching(loose_, 0))
            return;
        // The rows with the fewest bars first, each trying its nearest bars first: the
        // enumeration branches least and meets the likeliest pairing first.
        order_.resize(n_);
        std::iota(order_.begin(), order_.end(), 0);
        std::vector<int> degree(n_);
        for (int k = 0; k < n_; ++k)
            for (int e = 0; e < m_; ++e)
                degree[k] += loose_.Has(k, e);
        std::stable_sort(order_.begin(), order_.end(),
                         [&](int x, int y) { return degree[x] < degree[y]; });
        columns_.assign(static_cast<std::size_t>(n_) * m_, 0);
        for (int k = 0; k < n_; ++k) {
            const auto row = columns_.begin() + static_cast<std::ptrdiff_t>(k) * m_;
            std::iota(row, row + m_, 0);
            std::stable_sort(row, row + m_, [&](int x, int y) {
                return distance_[k * m_ + x] < distance_[k * m_ + y];
            });
        }
        Enumerate(0);
    }

    // How far r0 b_k may lie from its bar in a pairing within the reach.
    double Bound(int k) const {
        const double d1 = std::min(2.0, reach_);
        const double d2 = plane_ > 0 ? std::min(2.0, 4 * reach_ / plane_) : 2.0;
        return reach_ + onAxis_[k] * d1 + kSqrt2 * offAxis_[k] * (d1 + d2) + kSlack;
    }

    void Enumerate(int depth) {
        if (fits_ >= kMaxFits || ++steps_ > kMaxSteps)
            return;
        if (depth == n_) {
            Judge();
            return;
        }
        const int k = order_[depth];
        for (int i = 0; i < m_; ++i) {
            const int e = columns_[k * m_ + i];
            if (!loose_.Has(k, e) || used_[e])
                continue;
            // Nearest first: once one is beyond the bound, so are the rest.
            if (distance_[k * m_ + e] > Bound(k))
                break;
            if (!KeepsAngles(depth, k, e))
                continue;
            used_[e] = 1;
            pairing_[k] = e;
            Enumerate(depth + 1);
            used_[e] = 0;
        }
    }

    // A rotation keeps the dot product of any two bars: with both ends within the reach of
    // their bars, |b_k . b_l - v . v'| is at most twice the reach. Row k taking bar e must keep
    // it with every row paired before it.
    bool KeepsAngles(int depth, int k, int e) const {
        for (int i = 0; i < depth; ++i) {
            const int l = order_[i];
            if (std::fabs(baseDots_[k * n_ + l] - candidateDots_[e * m_ + pairing_[l]]) >
                2 * reach_ + kSlack)
                return false;
        }
        return true;
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
        // Residuals compared exactly (0 tolerance) keep the components' reach.
        if (rule_.AngleTolerance() > 0)
            reach_ = std::min(reach_, 2 * Sin(worst * kPi / 360) + kSlack);
    }

    const std::vector<Vec3> &base_;
    const std::vector<std::optional<Vec3>> &candidates_;
    const BipartiteGraph &allowed_;
    const Agreement &rule_;
    int n_, m_;
    double reach_;
    double plane_ = 0; // |b_a x b_j| of the anchors, 0 with one anchor
    BipartiteGraph loose_;
    std::vector<double> distance_, onAxis_, offAxis_; // |r0 b_k - v_e|, and b_k about the axis
    std::vector<double> baseDots_, candidateDots_;    // of every two base bars, candidate bars
    std::vector<int> columns_;                        // each row's bars, nearest first
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
