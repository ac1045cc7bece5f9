// The connection being defined: base node, base bars with their types, and the list of
// analogous nodes with the bars that correspond to the base bars.
#pragma once

#include "connection/bar_index.h"
#include "connection/rotation.h"
#include "model/structure_model.h"
#include "projection/listed_elements.h"

#include <array>
#include <bitset>
#include <cstdint>
#include <string>
#include <vector>

namespace vorna {

constexpr int kMaxBaseBars = 100;
// A base bar count of 101 marks a node with too many bars: no usable base node.
constexpr int kTooManyBaseBars = kMaxBaseBars + 1;
constexpr int kAnalogousCapacity = 20001;
constexpr int kMaxBarTypes = 10;

// How an analogous node's bars were matched with the base bars: the base node itself, or under
// the method in force when it was found.
enum class MatchKind : std::uint8_t { Base, Identical, Mirrored, Rotated, Any };

// What the comparison that accepted a node found, kept with its record for the review.
struct MatchSummary {
    MatchKind kind = MatchKind::Base;
    // Found within tolerances: its bars share the base bars' directions within this angle in
    // degrees (0: components within 0.0001), which is how they take their types.
    bool withinTolerances = false;
    double angleTolerance = 0;
    std::bitset<kMaxBaseBars> mirrored; // the base bars taken mirrored ("simmetrici")
    Rotation rotation = kIdentity;      // "ruotati": base directions onto the node's
    double largestAngle = 0;            // degrees
    double largestLength = 0;           // percent of the longer bar
};

// One analogous node. Position k (0-based here, k+1 to the user) of bars corresponds to base
// bar k.
struct AnalogousNode {
    std::int16_t node = 0;
    std::int16_t barCount = 0;
    std::array<std::int16_t, kMaxBaseBars> bars{};
    std::array<std::int16_t, kMaxBaseBars> barTypes{}; // valid right after the classification
    MatchSummary match;
};

struct ConnectionState {
    std::int16_t baseNode = -1;
    std::int16_t baseBarCount = 0;
    std::array<std::int16_t, kMaxBaseBars> baseBars{};     // bar indices, 0-based positions
    std::array<std::int16_t, kMaxBaseBars> baseBarTypes{}; // type numbers 1..barTypeCount

    // The list never holds a node twice (every append drops a repeated node), which lets the
    // lookups below answer from per-node and per-bar tables kept in step with it.
    std::vector<AnalogousNode> analogousNodes; // position p (1-based) is analogousNodes[p - 1]
    std::vector<std::uint8_t> nodeListed = std::vector<std::uint8_t>(kNodeCapacity);
    std::vector<std::int32_t> barUses = std::vector<std::int32_t>(kBarCapacity);
    // 1-based position of each node's record, 0 when it has none.
    std::vector<std::int32_t> nodePosition = std::vector<std::int32_t>(kNodeCapacity);

    std::string analogousListText;

    // The bars at each projected position, rebuilt when the projection changes.
    ProjectedBarIndex barIndex;
};

// The suite's description of the connection, read from "VornaNIn.txt" at start-up.
struct ConnectionInput {
    std::string connectionDescription;
    std::string connectionTypeCode;
    int barTypeCount = 0;
    std::array<std::string, kMaxBarTypes + 1> barTypeCodes;        // 1..barTypeCount
    std::array<std::string, kMaxBarTypes + 1> barTypeDescriptions; // 1..barTypeCount
};

// Fixed colours of the bar types 1..10, packed red + 256 green + 65536 blue; 0 for any other.
std::uint32_t BarTypeColour(int type);
// The code of type t, empty for a type outside 1..10.
const std::string &BarTypeCode(const ConnectionInput &input, int type);

// A base node whose bars the search and the typing can use: chosen, with at most 100 bars.
inline bool HasUsableBaseNode(const ConnectionState &state) {
    return state.baseNode >= 0 && state.baseBarCount >= 0 && state.baseBarCount <= kMaxBaseBars;
}
// baseBarCount limited to the table, for loops over the base bars.
inline int BaseBarsInTable(const ConnectionState &state) {
    return state.baseBarCount < 0              ? 0
           : state.baseBarCount > kMaxBaseBars ? kMaxBaseBars
                                               : state.baseBarCount;
}

// 1-based position of the node's record, 0 when it is not listed.
int FindInAnalogous(const ConnectionState &state, int node);
// Which nodes and bars the list holds, answered from the tables kept in step with it.
inline ListedElements ListedOf(const ConnectionState &state) {
    return {state.nodeListed, state.barUses};
}
// Appends a record unless its node is listed already (the list keeps the first occurrence).
void AppendAnalogous(ConnectionState &state, const AnalogousNode &record);
void RemoveAnalogousRecord(ConnectionState &state, int position);
// Removes the record of every listed node for which remove(node) is true, in one pass: the
// same result as removing them one by one.
template <typename Pred> void RemoveAnalogousNodesIf(ConnectionState &state, Pred remove);
void ClearAnalogous(ConnectionState &state);
// The list becomes the base node's own record with the base bars in order.
void ResetAnalogousToBaseNode(ConnectionState &state);

// Numbers as runs: 3, 4, 5, 9, 12, 13 gives "3-5,9,12-13"; numbers <= 0 are skipped.
std::string RangeText(const std::vector<int> &numbers);
// The names of the listed nodes as range text, into state.analogousListText.
void BuildAnalogousListText(const StructureModel &model, ConnectionState &state);

namespace detail {
// The per-node and per-bar tables forget a record that leaves the list.
void ForgetRecord(ConnectionState &state, const AnalogousNode &record);
// Positions from the 0-based record `from` on are written again after records moved.
void RenumberRecords(ConnectionState &state, std::size_t from);
} // namespace detail

template <typename Pred> void RemoveAnalogousNodesIf(ConnectionState &state, Pred remove) {
    std::vector<AnalogousNode> &list = state.analogousNodes;
    std::size_t kept = 0;
    for (std::size_t r = 0; r < list.size(); ++r) {
        if (remove(static_cast<int>(list[r].node))) {
            detail::ForgetRecord(state, list[r]);
            continue;
        }
        if (kept != r)
            list[kept] = list[r];
        ++kept;
    }
    list.resize(kept);
    detail::RenumberRecords(state, 0);
}

} // namespace vorna
