// Bar types: the automatic typing of the base bars from the connection type code, the labels
// that change them by hand, and the classification of the bars of every analogous node.
#pragma once

#include "connection/analogy.h"
#include "connection/connection_state.h"
#include "projection/view_state.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace vorna {

// Each type's list of analogous bars holds at most this many names.
constexpr std::size_t kTypeListCapacity = 20000;

// Every base bar gets type 1, then the rule of the connection type code picks out the bars
// with a role (the continuous beam, the column below, ...). Nothing with more than 100 bars.
void AssignTypesByConnectionCode(const StructureModel &model, ConnectionState &state,
                                 const ConnectionInput &input);

// Captions of LabelTipo(1..30), index 0 unused.
using LabelCaptions = std::array<std::string, 31>;

// baseBarTypes from the label captions: the first type whose code's first two characters equal
// the whole caption. A caption that matches no type leaves the bar's type; with more than 30
// base bars every bar first gets type 1, so those beyond the 30th keep it.
void ReadTypesFromLabels(const LabelCaptions &captions, ConnectionState &state,
                         const ConnectionInput &input);

// The caption a click on a label shows next: the code of the following type, after the last
// (or from an unknown caption) the first. With no types the caption stays.
std::string NextTypeCaption(const std::string &caption, const ConnectionInput &input);

// For each type 1..10, the names of the analogous bars classified as that type, in the order
// found (index 0 unused); a bar is listed once for every base bar it matches.
struct TypeBarLists {
    std::array<std::vector<std::int16_t>, kMaxBarTypes + 1> names;
};

// Gives every bar of every record the type of the base bar whose direction it shares (mirrored
// too under "Nodi identici e simmetrici"; within the angle tolerance in a record found within
// tolerances), or under "Nodi identici e ruotati" and "Nodi qualsiasi" the type of the base bar
// it was paired with; bars that match none get type 1.
TypeBarLists ClassifyAnalogousBars(const StructureModel &model, ConnectionState &state,
                                   AnalogyMethod method);

// A bar to show in its type's colour.
struct TypedBar {
    int bar = 0;
    std::uint32_t colour = 0;
};

// The bars of the first record whose node is named nodeName that belong to a type, in the
// record's order, with their types' colours; nothing when no listed node has that name.
std::optional<std::vector<TypedBar>> NodeBarTypes(const StructureModel &model,
                                                  ConnectionState &state, AnalogyMethod method,
                                                  int nodeName);

} // namespace vorna
