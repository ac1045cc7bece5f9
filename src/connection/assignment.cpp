// Pairings of rows with distinct columns: the lexicographically first complete matching of a
// bipartite graph, and the cheapest assignment with its ties broken the same way.
#include "connection/assignment.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <span>

namespace vorna {
namespace {

// Two reduced costs closer than this count as equal: sums of angles computed along different
// paths differ by a few ulps, and such assignments are meant to tie.
constexpr double kTight = 1e-9;

// The rotated joints' search asks for many small matchings: the matcher keeps both sides of the
// matching in one buffer and its flags in another, and a move's copy to go back to in a third.
struct Matcher {
    explicit Matcher(const BipartiteGraph &g)
        : graph(g), sides(static_cast<std::size_t>(g.rows + g.columns), -1),
          flags(static_cast<std::size_t>(g.rows + g.columns)), columnOf(sides.data(), g.rows),
          rowOf(sides.data() + g.rows, g.columns), fixed(flags.data(), g.rows),
          seen(flags.data() + g.rows, g.columns) {}
    Matcher(const Matcher &) = delete;
    Matcher &operator=(const Matcher &) = delete;

    const BipartiteGraph &graph;
    std::vector<int> sides;
    std::vector<std::uint8_t> flags;
    std::vector<int> before;
    std::span<int> columnOf, rowOf;
    std::span<std::uint8_t> fixed, seen;

    // An augmenting path from row r (Kuhn's method) that never moves a fixed row. The depth is
    // at most the number of rows: every step takes a column not seen before.
    bool Augment(int r) {
        for (int c = 0; c < graph.columns; ++c) {
            if (!graph.Has(r, c) || seen[c])
                continue;
            seen[c] = 1;
            const int holder = rowOf[c];
            if (holder < 0 || (!fixed[holder] && Augment(holder))) {
                rowOf[c] = r;
                columnOf[r] = c;
                return true;
            }
        }
        return false;
    }

    // Row k moves to column c when the row holding c can be matched elsewhere.
    bool MoveTo(int k, int c) {
        const int holder = rowOf[c];
        if (holder >= 0 && fixed[holder])
            return false;
        before = sides;
        rowOf[columnOf[k]] = -1;
        columnOf[k] = c;
        rowOf[c] = k;
        if (holder < 0)
            return true;
        columnOf[holder] = -1;
        fixed[k] = 1;
        std::fill(seen.begin(), seen.end(), 0);
        seen[c] = 1;
        if (Augment(holder))
            return true;
        fixed[k] = 0;
        std::copy(before.begin(), before.end(), sides.begin());
        return false;
    }
};

} // namespace

std::optional<std::vector<int>> LexFirstMatching(const BipartiteGraph &graph, int orderedRows) {
    if (graph.rows > graph.columns)
        return std::nullopt;
    Matcher m(graph);
    for (int r = 0; r < graph.rows; ++r) {
        std::fill(m.seen.begin(), m.seen.end(), 0);
        if (!m.Augment(r))
            return std::nullopt;
    }
    // Some complete matching exists; now each row in turn takes the smallest column that still
    // leaves one for every later row.
    for (int k = 0; k < std::min(orderedRows, graph.rows); ++k) {
        for (int c = 0; c < graph.columns; ++c)
            if (graph.Has(k, c) && (c == m.columnOf[k] || m.MoveTo(k, c)))
                break;
        m.fixed[k] = 1;
    }
    return std::vector<int>(m.columnOf.begin(), m.columnOf.end());
}

std::optional<std::vector<int>>
LexFirstCheapestAssignment(int rows, int columns, const std::vector<double> &cost,
                           const std::vector<std::uint8_t> &allowed) {
    if (rows > columns || rows < 0)
        return std::nullopt;
    if (rows == 0)
        return std::vector<int>{};
    // Rows of cost 0 fill the table to a square: then the optimal assignments are exactly the
    // complete matchings of the edges that the final potentials make tight.
    const int n = columns;
    // A cost that is not a number could never be compared: such a pair is not allowed.
    std::vector<std::uint8_t> usable(allowed.begin(),
                                     allowed.begin() + static_cast<std::ptrdiff_t>(rows) * columns);
    double largest = 0;
    for (int e = 0; e < rows * columns; ++e) {
        usable[e] = usable[e] && std::isfinite(cost[e]);
        if (usable[e])
            largest = std::max(largest, std::fabs(cost[e]));
    }
    // Dearer than any assignment of allowed pairs alone.
    const double forbidden = (largest + 1) * (rows + 1);
    auto at = [&](int i, int j) {
        if (i >= rows)
            return 0.0;
        const int e = i * columns + j;
        return usable[e] ? cost[e] : forbidden;
    };

    // The Hungarian method with potentials, 1-based as it is usually written: row p[j] holds
    // column j, u and v are the row and column potentials.
    const double infinity = std::numeric_limits<double>::infinity();
    std::vector<double> u(n + 1), v(n + 1), minv(n + 1);
    std::vector<int> p(n + 1), way(n + 1);
    std::vector<std::uint8_t> used(n + 1);
    for (int i = 1; i <= n; ++i) {
        p[0] = i;
        int j0 = 0;
        std::fill(minv.begin(), minv.end(), infinity);
        std::fill(used.begin(), used.end(), 0);
        do {
            used[j0] = 1;
            const int i0 = p[j0];
            double delta = infinity;
            int j1 = 0;
            for (int j = 1; j <= n; ++j) {
                if (used[j])
                    continue;
                const double reduced = at(i0 - 1, j - 1) - u[i0] - v[j];
                if (reduced < minv[j]) {
                    minv[j] = reduced;
                    way[j] = j0;
                }
                if (minv[j] < delta) {
                    delta = minv[j];
                    j1 = j;
                }
            }
            for (int j = 0; j <= n; ++j) {
                if (used[j]) {
                    u[p[j]] += delta;
                    v[j] -= delta;
                } else {
                    minv[j] -= delta;
                }
            }
            j0 = j1;
        } while (p[j0] != 0);
        do {
            const int j1 = way[j0];
            p[j0] = p[j1];
            j0 = j1;
        } while (j0 != 0);
    }
    for (int j = 1; j <= n; ++j)
        if (p[j] <= rows && !usable[(p[j] - 1) * columns + (j - 1)])
            return std::nullopt;

    BipartiteGraph tight{n, n, std::vector<std::uint8_t>(static_cast<std::size_t>(n) * n)};
    for (int i = 0; i < n; ++i)
        for (int j = 0; j < n; ++j)
            tight.edges[i * n + j] =
                (i >= rows || usable[i * columns + j]) && at(i, j) - u[i + 1] - v[j + 1] < kTight;
    std::optional<std::vector<int>> matching = LexFirstMatching(tight, rows);
    if (matching)
        matching->resize(rows);
    return matching;
}

} // namespace vorna
