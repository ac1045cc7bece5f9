// The catalogue of joint types ("Tipi di nodo"): the shown nodes grouped by analogy, each group
// headed by its first node taken as base node with all its bars.
#pragma once

#include "connection/bar_index.h"
#include "connection/verdict.h"

#include <vector>

namespace vorna {

struct JointType {
    int barCount = 0;       // candidate bars at every node of the type
    std::vector<int> nodes; // node indices: the head first, then the members in table order
    // The largest angle (degrees) and length deviation (percent) of a member from its head.
    double largestAngle = 0;
    double largestLength = 0;
};

struct JointTypeCatalogue {
    std::vector<JointType> types; // most nodes first; equal counts in the order of their heads
    // Live shown nodes with more than 100 bars, in table order. No test can take them, as
    // candidate or as head, so they belong to no type; the caller may say so once.
    std::vector<int> overcrowded;
    bool withinTolerances = false; // grouped within the engineer's tolerances
};

// The palette of the joint types drawn in colour: type k = 1..12 in the list's order, packed
// red + 256 green + 65536 blue, apart from the nine colour codes and the highlights; 0 for any
// other k.
constexpr int kJointTypeColours = 12;
std::uint32_t JointTypeColour(int k);
// Each node's fill: the colour of its type when that is one of the first twelve, else 0.
std::vector<std::uint32_t> JointTypeFills(const JointTypeCatalogue &catalogue, int nodeCount);

// Every live, shown node with at least one bar, in table order, joins the first type whose head
// it is analogous to under params (the head as base node with the bars choosing it would give,
// the node as candidate) and whose head has as many bars at its point; otherwise it heads a new
// type. A head without named bars has no pattern to compare: it takes no members.
JointTypeCatalogue CatalogueJointTypes(const StructureModel &model, const ViewState &view,
                                       ProjectedBarIndex &index, const AnalogyParameters &params);

} // namespace vorna
