// The pruning behind the catalogue of joint types: what a node shares with every head it may be
// analogous to (its signature), and an index of the heads by a point each files itself under.
// Neither decides anything: MatchAnalogy does, for the heads they leave.
#include "connection/joint_type_index.h"

#include "connection/agreement.h"
#include "platform/portable_math.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>

namespace vorna {
namespace {

// Unit vectors each within kAgreementNorm of their partners: every angle between two of them
// changes by less than twice the angle such a residual can turn one (2 asin(r / 2)).
double AngleReach() {
    return 4 * Asin(kAgreementNorm / 2);
}

// Within tolerances: a z of unit vectors moves by at most the chord; the angle between two bars
// by at most twice the angle tolerance (each end by one); lengths within p percent have
// logarithms within -ln(1 - p / 100).
SignatureReach ReachOf(const AnalogyParameters &params) {
    SignatureReach r{kTolerance, kAgreementNorm, AngleReach(), false};
    if (!params.Tolerant()) {
        r.length = params.method == AnalogyMethod::Any ? kTolerance : kAgreementNorm;
        return r;
    }
    const Agreement rule(params);
    r.height = params.angleTolerance > 0 ? rule.Chord() : kTolerance;
    r.pair = params.angleTolerance > 0 ? 2 * params.angleTolerance * kPi / 180 : AngleReach();
    r.logLengths = params.lengthTolerance > 0;
    r.length = r.logLengths ? -std::log1p(-params.lengthTolerance / 100) : kTolerance;
    return r;
}

} // namespace

SignatureRules::SignatureRules(const AnalogyParameters &params)
    : params_(params), reach_(ReachOf(params)) {}

Signature SignatureRules::Of(const Joint &joint) const {
    Signature s;
    const bool lengths = params_.compareLengths;
    const AnalogyMethod method = params_.method;
    // Within tolerances every method compares directions, and lengths apart.
    const bool directions = method == AnalogyMethod::Any || params_.Tolerant();
    const bool logLengths = reach_.logLengths;
    std::vector<Vec3> vectors;
    for (const JointBar &bar : joint.bars) {
        const std::optional<Vec3> v = directions ? DirectionOf(bar) : ComparedVector(bar, lengths);
        if (!v) {
            s.complete = false;
            continue;
        }
        ++s.compared;
        if (lengths)
            s.lengths.push_back(!directions  ? Norm(*v)
                                : logLengths ? std::log(bar.length)
                                             : bar.length);
        if (method == AnalogyMethod::Any)
            continue;
        s.longest = std::max(s.longest, Norm(*v));
        if (method == AnalogyMethod::Rotated)
            vectors.push_back(*v);
        else
            s.heights.push_back((*v)[2]);
    }
    for (std::size_t i = 0; i < vectors.size(); ++i)
        for (std::size_t k = i + 1; k < vectors.size(); ++k)
            s.pairs.push_back(lengths && !directions ? Dot(vectors[i], vectors[k])
                                                     : AngleBetween(vectors[i], vectors[k]));
    for (std::vector<double> *values : {&s.lengths, &s.heights, &s.pairs}) {
        s.finite = s.finite && std::all_of(values->begin(), values->end(),
                                           [](double x) { return std::isfinite(x); });
        if (s.finite)
            std::sort(values->begin(), values->end());
    }
    return s;
}

namespace {

// Room for the rounding of the values compared below.
double Slack(double value) {
    return 1e-9 * (1 + std::fabs(value));
}

// Every value of a has a value of b within eps (sorted lists): its own one when oneToOne, else
// b's may be shared. Taking the smallest free value in reach is optimal: every value reaches
// equally far.
bool Reaches(const std::vector<double> &a, const std::vector<double> &b, double eps,
             bool oneToOne) {
    std::size_t j = 0;
    for (double x : a) {
        const double e = eps + Slack(x);
        while (j < b.size() && b[j] <= x - e)
            ++j;
        if (j == b.size() || b[j] >= x + e)
            return false;
        j += oneToOne ? 1 : 0;
    }
    return true;
}

} // namespace

// A necessary condition for the node to be analogous to the head: false only when the test
// could not pass. "Nodi identici" may give two base bars the same bar, so there the head's
// values need only be covered; the other methods pair bars one to one.
bool SignatureRules::MayMatch(const Signature &head, const Signature &node) const {
    if (!head.complete)
        return false; // a base bar with nothing to compare finds no counterpart
    if (!head.finite || !node.finite)
        return true;
    switch (params_.method) {
    case AnalogyMethod::Identical:
    case AnalogyMethod::IdenticalOrMirrored: {
        const bool oneToOne = params_.method == AnalogyMethod::IdenticalOrMirrored;
        return Reaches(head.lengths, node.lengths, reach_.length, oneToOne) &&
               Reaches(head.heights, node.heights, reach_.height, oneToOne);
    }
    case AnalogyMethod::Rotated: {
        // |bj.bk - vc.vd| <= |R bj - vc| |bk| + |vc| |R bk - vd|.
        const double pairReach = params_.compareLengths && !params_.Tolerant()
                                     ? kAgreementNorm * (head.longest + node.longest)
                                     : reach_.pair;
        return head.compared <= node.compared &&
               Reaches(head.lengths, node.lengths, reach_.length, true) &&
               Reaches(head.pairs, node.pairs, pairReach, true);
    }
    case AnalogyMethod::Any:
        return head.compared <= node.compared &&
               Reaches(head.lengths, node.lengths, reach_.length, true);
    }
    return true;
}

// Where a node looks for the heads it may join. Each head files itself under one key, a point
// in a grid of cells twice the reach wide, that every node analogous to it comes within the
// reach of (componentwise) from one of its own query points; heads without such a key are
// tried by every node with their bar count.
struct HeadIndex::Impl {
    explicit Impl(const AnalogyParameters &params)
        : params_(params), directions_(params.Tolerant()) {
        const AnalogyMethod m = params.method;
        const SignatureReach reach = ReachOf(params);
        logLengths_ = reach.logLengths;
        if (!directions_)
            reach_ = m != AnalogyMethod::Rotated ? kTolerance
                     : params.compareLengths     ? kAgreementNorm
                                                 : AngleReach();
        else
            reach_ = m == AnalogyMethod::Rotated ? reach.pair
                     : m == AnalogyMethod::Any   ? reach.length
                                                 : reach.height;
        keyed_ = m != AnalogyMethod::Any || params.compareLengths;
    }

    void Add(std::size_t head, int barCount, const Joint &base) {
        every_[barCount].push_back(head);
        const std::optional<Vec3> key = KeyOf(base);
        if (!key || !Finite(*key)) {
            unkeyed_[barCount].push_back(head);
            return;
        }
        cells_[CellOf(barCount, *key)].push_back(head);
    }

    // The heads with that bar count that the node may join, in head order.
    const std::vector<std::size_t> &Candidates(int barCount, const Joint &node) {
        found_ = unkeyed_[barCount];
        Queries(node);
        for (const Vec3 &q : queries_) {
            if (!Finite(q))
                continue;
            // Room for the rounding of the compared values.
            const double r = reach_ + 1e-12 * (1 + Norm(q));
            const Cell low = CellOf(barCount, Sub(q, {r, r, r}));
            const Cell high = CellOf(barCount, Sub(q, {-r, -r, -r}));
            // Only far beyond any structure's size is the room wider than a cell: there every
            // head is tried.
            if (high.x - low.x > 2 || high.y - low.y > 2 || high.z - low.z > 2) {
                found_ = every_[barCount];
                break;
            }
            for (std::int64_t x = low.x; x <= high.x; ++x)
                for (std::int64_t y = low.y; y <= high.y; ++y)
                    for (std::int64_t z = low.z; z <= high.z; ++z)
                        if (auto it = cells_.find({barCount, x, y, z}); it != cells_.end())
                            found_.insert(found_.end(), it->second.begin(), it->second.end());
        }
        std::sort(found_.begin(), found_.end());
        found_.erase(std::unique(found_.begin(), found_.end()), found_.end());
        return found_;
    }

    struct Cell {
        int barCount;
        std::int64_t x, y, z;
        bool operator==(const Cell &) const = default;
    };
    struct CellHash {
        std::size_t operator()(const Cell &c) const {
            std::uint64_t h = static_cast<std::uint64_t>(c.barCount);
            for (std::int64_t v : {c.x, c.y, c.z})
                h = (h ^ static_cast<std::uint64_t>(v)) * 1099511628211ull;
            return static_cast<std::size_t>(h);
        }
    };

    static bool Finite(const Vec3 &v) {
        return std::isfinite(v[0]) && std::isfinite(v[1]) && std::isfinite(v[2]);
    }

    // Beyond 1e14 no two different doubles agree within the reach; clamping keeps the cell in
    // 64 bits and only merges cells.
    Cell CellOf(int barCount, const Vec3 &v) const {
        auto cell = [&](double x) {
            return static_cast<std::int64_t>(std::floor(std::clamp(x, -1e14, 1e14) / (2 * reach_)));
        };
        return {barCount, cell(v[0]), cell(v[1]), cell(v[2])};
    }

    // What the methods compare of a bar: its compared vector, or within tolerances its
    // direction.
    std::optional<Vec3> Compared(const JointBar &bar) const {
        return directions_ ? DirectionOf(bar) : ComparedVector(bar, params_.compareLengths);
    }
    // A length as the index compares it: within a length tolerance its logarithm.
    double LengthKey(double length) const { return logLengths_ ? std::log(length) : length; }

    // "Nodi identici" and "simmetrici": the first base bar's compared vector, which some bar of
    // the node (or its mirror) must match. Turned: exactly with lengths its length, else the
    // angle between the first two, which two of the node's bars keep. "Nodi qualsiasi" with
    // lengths: the first base bar's length.
    std::optional<Vec3> KeyOf(const Joint &base) const {
        const bool lengths = params_.compareLengths;
        if (base.bars.empty())
            return std::nullopt;
        switch (params_.method) {
        case AnalogyMethod::Identical:
        case AnalogyMethod::IdenticalOrMirrored:
            return Compared(base.bars[0]);
        case AnalogyMethod::Rotated: {
            const std::optional<Vec3> first = Compared(base.bars[0]);
            if (!first)
                return std::nullopt;
            if (lengths && !directions_)
                return Vec3{Norm(*first), 0, 0};
            if (base.bars.size() < 2)
                return std::nullopt;
            const std::optional<Vec3> second = Compared(base.bars[1]);
            return second ? std::optional(Vec3{AngleBetween(*first, *second), 0, 0}) : std::nullopt;
        }
        case AnalogyMethod::Any:
            if (!keyed_ || !DirectionOf(base.bars[0]))
                return std::nullopt;
            return Vec3{LengthKey(base.bars[0].length), 0, 0};
        }
        return std::nullopt;
    }

    void Queries(const Joint &node) {
        queries_.clear();
        if (!keyed_)
            return;
        const bool lengths = params_.compareLengths;
        const AnalogyMethod method = params_.method;
        if (method == AnalogyMethod::Any) {
            for (const JointBar &b : node.bars)
                if (DirectionOf(b))
                    queries_.push_back({LengthKey(b.length), 0, 0});
            return;
        }
        vectors_.clear();
        for (const JointBar &b : node.bars)
            if (const std::optional<Vec3> v = Compared(b))
                vectors_.push_back(*v);
        for (std::size_t i = 0; i < vectors_.size(); ++i) {
            const Vec3 &v = vectors_[i];
            if (method == AnalogyMethod::Identical) {
                queries_.push_back(v);
            } else if (method == AnalogyMethod::IdenticalOrMirrored) {
                queries_.push_back(v);
                queries_.push_back({-v[0], -v[1], v[2]});
            } else if (lengths && !directions_) {
                queries_.push_back({Norm(v), 0, 0});
            } else {
                for (std::size_t k = i + 1; k < vectors_.size(); ++k)
                    queries_.push_back({AngleBetween(v, vectors_[k]), 0, 0});
            }
        }
    }

    const AnalogyParameters &params_;
    bool directions_ = false; // within tolerances: directions and lengths apart
    bool logLengths_ = false;
    double reach_ = kTolerance;
    bool keyed_ = true;
    std::unordered_map<Cell, std::vector<std::size_t>, CellHash> cells_;
    std::array<std::vector<std::size_t>, kMaxBaseBars + 1> unkeyed_, every_;
    std::vector<Vec3> queries_, vectors_;
    std::vector<std::size_t> found_;
};

HeadIndex::HeadIndex(const AnalogyParameters &params) : impl_(std::make_unique<Impl>(params)) {}
HeadIndex::~HeadIndex() = default;

void HeadIndex::Add(std::size_t head, int barCount, const Joint &base) {
    impl_->Add(head, barCount, base);
}

const std::vector<std::size_t> &HeadIndex::Candidates(int barCount, const Joint &node) {
    return impl_->Candidates(barCount, node);
}

} // namespace vorna
