// Pairings of rows with distinct columns: the lexicographically first complete matching of a
// bipartite graph, and the cheapest assignment with its ties broken the same way.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

namespace vorna {

// A rows x columns table of which row may take which column, row by row.
struct BipartiteGraph {
    int rows = 0;
    int columns = 0;
    std::vector<std::uint8_t> edges; // edges[row * columns + column] != 0: allowed

    bool Has(int row, int column) const { return edges[row * columns + column] != 0; }
};

// The column of every row, distinct columns for distinct rows, lexicographically first (row 0's
// column as small as possible, then row 1's, ...) among the first orderedRows rows; the later
// rows only need some column. Nothing when no such matching exists.
std::optional<std::vector<int>> LexFirstMatching(const BipartiteGraph &graph, int orderedRows);
inline std::optional<std::vector<int>> LexFirstMatching(const BipartiteGraph &graph) {
    return LexFirstMatching(graph, graph.rows);
}

// The assignment of every row to a distinct allowed column (rows <= columns) whose cost sum is
// smallest, the lexicographically first among equal sums. cost and allowed are rows x columns,
// row by row; a cost that is not finite counts as not allowed. Nothing when the allowed pairs
// admit no complete assignment.
std::optional<std::vector<int>>
LexFirstCheapestAssignment(int rows, int columns, const std::vector<double> &cost,
                           const std::vector<std::uint8_t> &allowed);

} // namespace vorna
