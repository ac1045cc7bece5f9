// The analogous list as the filters and the highlights see it: which nodes have a record and how
// many records use each bar. A view of tables that the connection keeps.
#pragma once

#include <cstdint>
#include <span>

namespace vorna {

struct ListedElements {
    std::span<const std::uint8_t> nodes;   // non-zero: the node has a record
    std::span<const std::int32_t> barUses; // records that hold the bar

    // Indices outside the tables are not listed.
    bool Node(int node) const {
        return node >= 0 && static_cast<std::size_t>(node) < nodes.size() && nodes[node] != 0;
    }
    bool Bar(int bar) const {
        return bar >= 0 && static_cast<std::size_t>(bar) < barUses.size() && barUses[bar] > 0;
    }
};

} // namespace vorna
