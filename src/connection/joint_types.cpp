// The catalogue of joint types ("Tipi di nodo"): the shown nodes grouped by analogy, each group
// headed by its first node taken as base node with all its bars.
#include "connection/joint_types.h"

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

// What a node shares with every head it is analogous to, under the method in force. The numbers
// agree only within the tolerance (which chains: a ~ b and b ~ c but not a ~ c), so they are
// compared pairwise with it, never hashed; only the bar count is an exact key.
struct Signature {
    bool finite = true;   // false: a coordinate is not a number, nothing is pruned
    bool complete = true; // every bar has what the method compares
    int compared = 0;     // bars that have it
    double longest = 0;
    std::vector<double> lengths; // of the compared vectors when lengths count, sorted
    std::vector<double> heights; // z of the compared vectors, sorted ("simmetrici" keeps z)
    // Of every two compared vectors, sorted (a rotation keeps them): dot products of raw
    // vectors, angles between directions.
    std::vector<double> pairs;
};

Signature SignatureOf(const Joint &joint, const AnalogyParameters &params) {
    Signature s;
    const bool lengths = params.compareLengths;
    const AnalogyMethod method = params.method;
    std::vector<Vec3> vectors;
    for (const JointBar &bar : joint.bars) {
        if (method == AnalogyMethod::Any) {
            // Pairs need a direction each and, when lengths count, lengths that agree.
            if (!DirectionOf(bar)) {
                s.complete = false;
                continue;
            }
            if (lengths)
                s.lengths.push_back(bar.length);
            ++s.compared;
            continue;
        }
        const std::optional<Vec3> v = ComparedVector(bar, lengths);
        if (!v) {
            s.complete = false;
            continue;
        }
        ++s.compared;
        s.longest = std::max(s.longest, Norm(*v));
        if (lengths)
            s.lengths.push_back(Norm(*v));
        if (method == AnalogyMethod::Rotated)
            vectors.push_back(*v);
        else
            s.heights.push_back((*v)[2]);
    }
    for (std::size_t i = 0; i < vectors.size(); ++i)
        for (std::size_t k = i + 1; k < vectors.size(); ++k)
            s.pairs.push_back(lengths ? Dot(vectors[i], vectors[k])
                                      : AngleBetween(vectors[i], vectors[k]));
    for (std::vector<double> *values : {&s.lengths, &s.heights, &s.pairs}) {
        s.finite = s.finite && std::all_of(values->begin(), values->end(),
                                           [](double x) { return std::isfinite(x); });
        if (s.finite)
            std::sort(values->begin(), values->end());
    }
    return s;
}

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

// A necessary condition for the node to be analogous to the head: false only when the test
// could not pass. "Nodi identici" may give two base bars the same bar, so there the head's
// values need only be covered; the other methods pair bars one to one.
bool MayMatch(const Signature &head, const Signature &node, const AnalogyParameters &params) {
    if (!head.complete)
        return false; // a base bar with nothing to compare finds no counterpart
    if (!head.finite || !node.finite)
        return true;
    switch (params.method) {
    case AnalogyMethod::Identical:
    case AnalogyMethod::IdenticalOrMirrored: {
        const bool oneToOne = params.method == AnalogyMethod::IdenticalOrMirrored;
        return Reaches(head.lengths, node.lengths, kAgreementNorm, oneToOne) &&
               Reaches(head.heights, node.heights, kTolerance, oneToOne);
    }
    case AnalogyMethod::Rotated: {
        // |bj.bk - vc.vd| <= |R bj - vc| |bk| + |vc| |R bk - vd|.
        const double pairReach =
            params.compareLengths ? kAgreementNorm * (head.longest + node.longest) : AngleReach();
        return head.compared <= node.compared &&
               Reaches(head.lengths, node.lengths, kAgreementNorm, true) &&
               Reaches(head.pairs, node.pairs, pairReach, true);
    }
    case AnalogyMethod::Any:
        return head.compared <= node.compared &&
               Reaches(head.lengths, node.lengths, kTolerance, true);
    }
    return true;
}

struct Head {
    Joint base;
    Signature signature;
};

// Where a node looks for the heads it may join. Each head files itself under one key, a point
// in a grid of cells twice the reach wide, that every node analogous to it comes within the
// reach of (componentwise) from one of its own query points; heads without such a key are
// tried by every node with their bar count.
class HeadIndex {
public:
    explicit HeadIndex(const AnalogyParameters &params) : params_(params) {
        const AnalogyMethod m = params.method;
        reach_ = m != AnalogyMethod::Rotated ? kTolerance
                 : params.compareLengths     ? kAgreementNorm
                                             : AngleReach();
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

private:
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

    // "Nodi identici" and "simmetrici": the first base bar's vector, which some bar of the node
    // (or its mirror) must match. Turned: its length, or on directions alone the angle between
    // the first two, which two of the node's bars keep. "Nodi qualsiasi" with lengths: the first
    // base bar's length.
    std::optional<Vec3> KeyOf(const Joint &base) const {
        const bool lengths = params_.compareLengths;
        if (base.bars.empty())
            return std::nullopt;
        switch (params_.method) {
        case AnalogyMethod::Identical:
        case AnalogyMethod::IdenticalOrMirrored:
            return ComparedVector(base.bars[0], lengths);
        case AnalogyMethod::Rotated: {
            const std::optional<Vec3> first = ComparedVector(base.bars[0], lengths);
            if (!first)
                return std::nullopt;
            if (lengths)
                return Vec3{Norm(*first), 0, 0};
            if (base.bars.size() < 2)
                return std::nullopt;
            const std::optional<Vec3> second = ComparedVector(base.bars[1], lengths);
            return second ? std::optional(Vec3{AngleBetween(*first, *second), 0, 0}) : std::nullopt;
        }
        case AnalogyMethod::Any:
            if (!keyed_ || !DirectionOf(base.bars[0]))
                return std::nullopt;
            return Vec3{base.bars[0].length, 0, 0};
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
                    queries_.push_back({b.length, 0, 0});
            return;
        }
        vectors_.clear();
        for (const JointBar &b : node.bars)
            if (const std::optional<Vec3> v = ComparedVector(b, lengths))
                vectors_.push_back(*v);
        for (std::size_t i = 0; i < vectors_.size(); ++i) {
            const Vec3 &v = vectors_[i];
            if (method == AnalogyMethod::Identical) {
                queries_.push_back(v);
            } else if (method == AnalogyMethod::IdenticalOrMirrored) {
                queries_.push_back(v);
                queries_.push_back({-v[0], -v[1], v[2]});
            } else if (lengths) {
                queries_.push_back({Norm(v), 0, 0});
            } else {
                for (std::size_t k = i + 1; k < vectors_.size(); ++k)
                    queries_.push_back({AngleBetween(v, vectors_[k]), 0, 0});
            }
        }
    }

    const AnalogyParameters &params_;
    double reach_ = kTolerance;
    bool keyed_ = true;
    std::unordered_map<Cell, std::vector<std::size_t>, CellHash> cells_;
    std::array<std::vector<std::size_t>, kMaxBaseBars + 1> unkeyed_, every_;
    std::vector<Vec3> queries_, vectors_;
    std::vector<std::size_t> found_;
};

} // namespace

JointTypeCatalogue CatalogueJointTypes(const StructureModel &model, const ViewState &view,
                                       ProjectedBarIndex &barIndex,
                                       const AnalogyParameters &params) {
    JointTypeCatalogue catalogue;
    KeepBarIndexCurrent(barIndex, model, view);
    std::vector<Head> heads; // heads[t] heads catalogue.types[t] until the final sort
    HeadIndex index(params);
    std::vector<std::int16_t> bars;
    const int nodes = std::clamp<int>(model.nodeCount, 0, kNodeCapacity);
    for (int n = 0; n < nodes; ++n) {
        if (!IsLive(model.nodes[n]) || !view.nodeShown[n])
            continue;
        BarsAtProjectedPoint(barIndex, model, view, model.nodes[n].pointIndex, bars);
        if (bars.empty())
            continue;
        if (bars.size() > static_cast<std::size_t>(kMaxBaseBars)) {
            catalogue.overcrowded.push_back(n);
            continue;
        }
        const int count = static_cast<int>(bars.size());
        Joint joint = JointAt(model, n, bars);
        const Signature signature = SignatureOf(joint, params);
        const std::vector<std::size_t> &candidates = index.Candidates(count, joint);
        auto joins = [&](std::size_t t) {
            const Head &head = heads[t];
            return !head.base.bars.empty() && MayMatch(head.signature, signature, params) &&
                   MatchAnalogy(model, head.base, joint, params).outcome ==
                       AnalogyOutcome::Analogous;
        };
        if (auto t = std::find_if(candidates.begin(), candidates.end(), joins);
            t != candidates.end()) {
            catalogue.types[*t].nodes.push_back(n);
            continue;
        }
        // The bars choosing it as base node gives: the named ones, in the same order.
        std::erase_if(joint.bars, [&](const JointBar &b) { return model.bars[b.bar].name <= 0; });
        index.Add(heads.size(), count, joint);
        heads.push_back({joint, SignatureOf(joint, params)});
        catalogue.types.push_back({count, {n}});
    }
    std::stable_sort(
        catalogue.types.begin(), catalogue.types.end(),
        [](const JointType &a, const JointType &b) { return a.nodes.size() > b.nodes.size(); });
    return catalogue;
}

std::uint32_t JointTypeColour(int k) {
    static constexpr std::uint8_t palette[kJointTypeColours][3] = {
        {128, 0, 0},     {170, 110, 40},  {128, 128, 0},   {0, 128, 128},
        {145, 30, 180},  {250, 190, 212}, {210, 245, 60},  {220, 190, 255},
        {255, 215, 180}, {170, 255, 195}, {128, 128, 128}, {60, 100, 170}};
    if (k < 1 || k > kJointTypeColours)
        return 0;
    const std::uint8_t *c = palette[k - 1];
    return c[0] | (std::uint32_t{c[1]} << 8) | (std::uint32_t{c[2]} << 16);
}

std::vector<std::uint32_t> JointTypeFills(const JointTypeCatalogue &catalogue, int nodeCount) {
    std::vector<std::uint32_t> fills(static_cast<std::size_t>(std::max(nodeCount, 0)));
    const std::size_t coloured =
        std::min(catalogue.types.size(), static_cast<std::size_t>(kJointTypeColours));
    for (std::size_t k = 0; k < coloured; ++k)
        for (int node : catalogue.types[k].nodes)
            if (node >= 0 && static_cast<std::size_t>(node) < fills.size())
                fills[node] = JointTypeColour(static_cast<int>(k) + 1);
    return fills;
}

} // namespace vorna
