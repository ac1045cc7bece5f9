// Selection by name, constraint card, colour, point type, window and inversion: which nodes or
// base bars a selection designates, and what the running function does with them.
#pragma once

#include "connection/connection_state.h"
#include "model/structure_model.h"
#include "projection/view_state.h"
#include "selection/command_state.h"

#include <functional>
#include <vector>

namespace vorna {

struct SelectionContext {
    const StructureModel &model;
    const ViewState &view;
    ConnectionState &connection;
    ActiveFunction function;
    // The analogy test, which appends the node when it qualifies ("Aggiungi nodi").
    std::function<void(int node)> testAnalogy;
};

// Adding offers every designated shown node to the analogy test, in node order; removing takes
// the records of the designated shown nodes out of the list; "Rimuovi aste base" drops the
// designated base bars. The selections that can drop base bars return true when they looked at
// them, removed or not: the caller then rebuilds the base node's schema and types.

// SelectByName for each value in the order given; a name repeated is offered again.
bool SelectByNames(SelectionContext &context, const std::vector<int> &names);
// Card c designates the nodes whose stored card index is c - 1. Adding tests them; every other
// function removes them from the list.
void SelectByConstraintCards(SelectionContext &context, const std::vector<int> &cards);
// kAllCodes designates every colour.
bool SelectByColour(SelectionContext &context, int code);
// Nodes only: there is no base-bar branch.
void SelectByPointType(SelectionContext &context, int code);
// The rectangle from (left, top) with signed width and height (y up), enlarged by one drawing
// unit on every side; base bars need both ends inside.
bool SelectByWindow(SelectionContext &context, double left, double top, double width,
                    double height);
// The listed nodes leave the list; every other shown node is offered to the analogy test.
void InvertSelection(SelectionContext &context);

} // namespace vorna
