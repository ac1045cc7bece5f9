// Joints and frames built by hand for the connection's tests, with the helpers that turn,
// roll and pair them.
#pragma once

#include "connection/analogy.h"
#include "connection/base_node.h"
#include "connection/verdict.h"
#include "projection/projection.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <numeric>
#include <optional>
#include <random>
#include <vector>

namespace vorna::test {

// A hand-built frame with its projection; every node shown.
struct Frame {
    std::unique_ptr<StructureModel> m = std::make_unique<StructureModel>();
    std::unique_ptr<ViewState> view = std::make_unique<ViewState>();
    ConnectionState s;
    int tooMany = 0; // candidates found with more bars than a connection can have

    int Point(double x, double y, double z) {
        m->points[m->pointCount] = {x, y, z};
        return m->pointCount++;
    }
    int Node(int point, int name) {
        m->nodes[m->nodeCount] = {static_cast<std::int16_t>(point), 0, 1,
                                  static_cast<std::int16_t>(name), 0};
        view->nodeShown[m->nodeCount] = 1;
        return m->nodeCount++;
    }
    int Bar(int i, int j, int name, int colour = 1) {
        m->bars[m->barCount] = {static_cast<std::int16_t>(i), static_cast<std::int16_t>(j), 0,
                                static_cast<std::int16_t>(colour), static_cast<std::int16_t>(name)};
        return m->barCount++;
    }
    // A node at (x, y, z) with bars to each offset, named 100 + their index.
    int Joint(double x, double y, double z, const std::vector<Vec3> &offsets, int name) {
        int p = Point(x, y, z), n = Node(p, name);
        for (const Vec3 &d : offsets)
            Bar(p, Point(x + d[0], y + d[1], z + d[2]), 100 + m->barCount);
        return n;
    }
    void Project(double a = 30, double b = 30, double c = 0) {
        ProjectStructure(*m, *view, a, b, c);
    }
    BaseBarsResult ChooseBase(int node) {
        s.baseNode = static_cast<std::int16_t>(node);
        return GatherBaseBars(*m, *view, s);
    }
    // 1 when found analogous.
    int Test(int node, AnalogyParameters params = {}) {
        const AnalogyOutcome outcome = TestAnalogy(*m, *view, s, params, node);
        tooMany += outcome == AnalogyOutcome::TooManyBars;
        return outcome == AnalogyOutcome::Analogous;
    }
    std::vector<int> Listed() const {
        std::vector<int> nodes;
        for (const AnalogousNode &r : s.analogousNodes)
            nodes.push_back(r.node);
        return nodes;
    }
};

inline AnalogyParameters Params(AnalogyMethod method, bool lengths = true) {
    AnalogyParameters p;
    p.method = method;
    p.compareLengths = lengths;
    return p;
}

// The test's verdict on two joints and, when analogous, the record it lists.
inline std::optional<AnalogousNode> Matched(const StructureModel &m, const Joint &base,
                                            const Joint &candidate,
                                            const AnalogyParameters &params) {
    const Verdict v = CompareJoints(m, base, candidate, params);
    if (!v.Analogous())
        return std::nullopt;
    return RecordOf(base, candidate, v, params);
}

inline int Roll(std::mt19937 &rng, int n) {
    return static_cast<int>(rng() % static_cast<unsigned>(n));
}

// v turned by angle about the unit axis (Rodrigues).
inline Vec3 Turned(const Vec3 &v, const Vec3 &axis, double angle) {
    const Vec3 across = Cross(axis, v);
    const double along = Dot(axis, v) * (1 - std::cos(angle));
    return {v[0] * std::cos(angle) + across[0] * std::sin(angle) + axis[0] * along,
            v[1] * std::cos(angle) + across[1] * std::sin(angle) + axis[1] * along,
            v[2] * std::cos(angle) + across[2] * std::sin(angle) + axis[2] * along};
}

inline Vec3 UnitOf(const Vec3 &v) {
    return Scaled(v, 1 / Norm(v));
}

// Every pairing of n base bars with distinct candidates out of m, in lexicographic order (the
// first n places of the permutations, each seen m - n factorial times), until visit says stop.
template <typename Visit> void EachPairing(int n, int m, Visit visit) {
    std::vector<int> order(m);
    std::iota(order.begin(), order.end(), 0);
    do {
        if (!visit(std::vector<int>(order.begin(), order.begin() + n)))
            return;
    } while (std::next_permutation(order.begin(), order.end()));
}

// A regular lattice where most joints repeat, turned or not: bars along the axes, now and then
// a diagonal, an unnamed bar or another colour; some points moved by less than the tolerance
// so that lengths agree in chains (a ~ b, b ~ c, not a ~ c). With noise every coordinate moves by
// up to that much, as a CAD export's rounding leaves a model.
inline void RepeatedJointsFrame(Frame &f, std::mt19937 &rng, double noise = 0) {
    constexpr int nx = 5, ny = 4, nz = 3;
    std::uniform_real_distribution<double> rounding(-noise, noise);
    for (int p = 0; p < nx * ny * nz; ++p) {
        auto jitter = [&] {
            return noise > 0            ? rounding(rng)
                   : Roll(rng, 12) == 0 ? (Roll(rng, 2) * 2 - 1) * 0.00007
                                        : 0.0;
        };
        f.Point(p % nx + jitter(), p / nx % ny + jitter(), p / (nx * ny) + jitter());
        f.Node(p, p + 1);
    }
    auto at = [&](int x, int y, int z) {
        return x < nx && y < ny && z < nz ? x + nx * (y + ny * z) : -1;
    };
    for (int p = 0; p < nx * ny * nz; ++p) {
        const int x = p % nx, y = p / nx % ny, z = p / (nx * ny);
        for (int to : {at(x + 1, y, z), at(x, y + 1, z), at(x, y, z + 1),
                       Roll(rng, 6) ? -1 : at(x + 1, y, z + 1)})
            if (to >= 0 && Roll(rng, 20) != 0)
                f.Bar(p, to, Roll(rng, 20) ? f.m->barCount + 1 : 0, Roll(rng, 20) ? 1 : 2);
    }
    f.Project(Roll(rng, 4) ? 30 : 0, Roll(rng, 4) ? 30 : 0, 0);
}

} // namespace vorna::test
