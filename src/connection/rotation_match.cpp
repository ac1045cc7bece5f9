// The pairing of "Nodi identici e ruotati": base bars onto distinct candidate bars by one
// rotation of space, every component within the tolerance.
#include "connection/rotation_match.h"

#include "connection/rotation.h"

#include "connection/assignment.h"
#include "platform/portable_math.h"

#include <algorithm>
#include <cmath>

namespace vorna {
namespace {

constexpr double kSqrt2 = 1.4142135623730951;
// Room for rounding in the bounds below, which only prune.
constexpr double kSlack = 1e-9;
// Weighted fits tried before a pairing of anchors is given up.
constexpr int kRefinements = 8;

class Search {
public:
    Search(const std::vector<Vec3> &base, const std::vector<std::optional<Vec3>> &candidates)
        : base_(base), candidates_(candidates), n_(static_cast<int>(base.size())),
          m_(static_cast<int>(candidates.size())), graph_{n_, m_,
                                                          std::vector<std::uint8_t>(
                                                              static_cast<std::size_t>(n_) * m_)} {
        for (const Vec3 &b : base)
            baseNorm_.push_back(Norm(b));
        for (const std::optional<Vec3> &v : candidates)
            candidateNorm_.push_back(v ? Norm(*v) : -1.0);
    }

    std::optional<std::vector<int>> Run() {
        Offer(Strict(kIdentity, {}));
        Offer(Strict(kHalfTurnZ, {}));
        // The first anchor is the longest base bar; with no length anywhere every rotation
        // maps the base alike and the identity has answered.
        const int a = static_cast<int>(std::max_element(baseNorm_.begin(), baseNorm_.end()) -
                                       baseNorm_.begin());
        if (baseNorm_[a] <= 0)
            return best_;
        const Vec3 along = Unit(base_[a]);
        int j = -1;
        double across = kTolerance;
        for (int k = 0; k < n_; ++k) {
            const double d = Norm(Sub(base_[k], Scaled(along, Dot(base_[k], along))));
            if (d >= across)
                j = k, across = d;
        }
        for (int c = 0; c < m_; ++c) {
            // Every pairing from here on gives base bar a a later candidate.
            if (a == 0 && best_ && (*best_)[0] < c)
                break;
            if (candidateNorm_[c] <= 0 || !LengthsAgree(a, c))
                continue;
            if (j < 0) {
                TryAnchors({a, c, -1, -1});
                continue;
            }
            // A rotation keeps the anchors' dot product, up to
            // |ba.bj - vc.vd| <= |R ba - vc| |bj| + |vc| |R bj - vd|.
            const double dot = Dot(base_[a], base_[j]);
            for (int d = 0; d < m_; ++d)
                if (d != c && candidateNorm_[d] >= 0 && LengthsAgree(j, d) &&
                    std::fabs(dot - Dot(*candidates_[c], *candidates_[d])) <
                        kAgreementNorm * (baseNorm_[j] + candidateNorm_[c]) +
                            kSlack * (1 + std::fabs(dot)))
                    TryAnchors({a, c, j, d});
        }
        return best_;
    }

private:
    // Base bar a paired with candidate c, and base bar j (when >= 0) with candidate d.
    struct Anchors {
        int a, c, j, d;
    };

    // |R b| = |b|: a pair can only agree when the lengths nearly do.
    bool LengthsAgree(int k, int c) const {
        return std::fabs(baseNorm_[k] - candidateNorm_[c]) < kAgreementNorm + kSlack * baseNorm_[k];
    }

    void Offer(const std::optional<std::vector<int>> &pairing) {
        if (pairing && (!best_ || *pairing < *best_))
            best_ = pairing;
    }

    // The anchor rows keep only their anchor's column.
    void Restrict(const Anchors &anchors) {
        for (auto [row, column] : {std::pair{anchors.a, anchors.c}, {anchors.j, anchors.d}})
            if (row >= 0)
                for (int c = 0; c < m_; ++c)
                    graph_.edges[row * m_ + c] &= static_cast<std::uint8_t>(c == column);
    }

    // The first pairing that the rotation r fits exactly as the test asks.
    std::optional<std::vector<int>> Strict(const Rotation &r, const Anchors &anchors) {
        for (int k = 0; k < n_; ++k) {
            const Vec3 image = Rotate(r, base_[k]);
            for (int c = 0; c < m_; ++c)
                graph_.edges[k * m_ + c] =
                    candidates_[c] && AllBelow(Sub(image, *candidates_[c]), kTolerance);
        }
        Restrict(anchors);
        return LexFirstMatching(graph_);
    }

    // Every rotation R that fits a pairing holding the anchors differs from the anchor rotation
    // r0 by at most d1 on the first anchor's axis and d1 + d2 across it (chord lengths, from
    // the residuals of the anchors); so |r0 b - v| stays below a bound for each pair of that
    // pairing. Pairs beyond it are left out: the pruning never loses a fitting pairing.
    void TryAnchors(const Anchors &anchors) {
        const auto [a, c, j, d] = anchors;
        const Vec3 &va = *candidates_[c];
        const OrthonormalFrame from = FrameOf(base_[a], j >= 0 ? &base_[j] : nullptr);
        const Rotation r0 = Between(from, FrameOf(va, d >= 0 ? &*candidates_[d] : nullptr));
        const double d1 = std::min(2.0, 2 * kAgreementNorm / baseNorm_[a]);
        double d2 = 2;
        if (j >= 0) {
            const double plane = Norm(Cross(base_[a], base_[j]));
            d2 = std::min(2.0, 2 * kAgreementNorm * (baseNorm_[j] + candidateNorm_[c]) / plane);
        }
        for (int k = 0; k < n_; ++k) {
            const Vec3 image = Rotate(r0, base_[k]);
            const double onAxis = std::fabs(Dot(base_[k], from.along));
            const double offAxis =
                Norm(Sub(base_[k], Scaled(from.along, Dot(base_[k], from.along))));
            const double bound = kAgreementNorm + onAxis * d1 + kSqrt2 * offAxis * (d1 + d2) +
                                 kSlack * (1 + baseNorm_[k]);
            for (int e = 0; e < m_; ++e)
                graph_.edges[k * m_ + e] =
                    candidates_[e] && Norm(Sub(image, *candidates_[e])) < bound;
        }
        Restrict(anchors);
        const std::optional<std::vector<int>> loose = LexFirstMatching(graph_);
        if (!loose)
            return;
        if (std::optional<std::vector<int>> exact = Strict(r0, anchors)) {
            Offer(exact);
            return;
        }
        // The anchors alone may carry their residuals to the other bars; the fit over all the
        // pairs spreads them. Least squares can still leave one component just beyond the
        // tolerance where some rotation keeps them all within: weighing the worst pairs more,
        // a few times, moves the fit towards that rotation.
        std::vector<Vec3> to;
        to.reserve(n_);
        for (int k = 0; k < n_; ++k)
            to.push_back(*candidates_[(*loose)[k]]);
        std::vector<double> weights(n_, 1.0);
        for (int round = 0; round < kRefinements; ++round) {
            const Rotation r = BestFitRotation(base_, to, weights);
            if (std::optional<std::vector<int>> exact = Strict(r, anchors)) {
                Offer(exact);
                return;
            }
            for (int k = 0; k < n_; ++k) {
                const Vec3 miss = Sub(Rotate(r, base_[k]), to[k]);
                const double worst =
                    std::max({std::fabs(miss[0]), std::fabs(miss[1]), std::fabs(miss[2])}) /
                    kTolerance;
                weights[k] *= 1 + worst * worst * worst * worst;
            }
        }
    }

    const std::vector<Vec3> &base_;
    const std::vector<std::optional<Vec3>> &candidates_;
    int n_, m_;
    BipartiteGraph graph_;
    std::vector<double> baseNorm_, candidateNorm_;
    std::optional<std::vector<int>> best_;
};

} // namespace

std::optional<std::vector<int>> MatchRotated(const std::vector<Vec3> &base,
                                             const std::vector<std::optional<Vec3>> &candidates) {
    if (base.empty())
        return std::vector<int>{};
    if (base.size() > candidates.size())
        return std::nullopt;
    return Search(base, candidates).Run();
}

} // namespace vorna
