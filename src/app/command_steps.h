// The steps that several commands share: the redraw, the start-up steps of the view, the
// layout and enabling rules, the selection input and the connection's bookkeeping. The menu
// and event handlers themselves are in commands.h.
#pragma once

#include "app/program.h"
#include "connection/analogy.h"

#include <functional>
#include <string>
#include <vector>

namespace vorna {

// view_commands.cpp
// Projection from the angles, filters and fit, then the drawing (what every change of view,
// filter, selection or search ends in).
void RedrawView(Program &);
// The drawing alone, on the current projection, filters and scale.
void DrawStructureNow(Program &);
// Zooms onto the live, shown node of that name and rings it until the next command.
void ZoomToNode(Program &, const std::string &name);
// Moves the view so that the node (an index) lies at the centre of the window, at the same
// scale, and draws it.
void CentreViewOnNode(Program &, int node);
// Start-up steps of the view: the stroke font, then projection, intervals, fit and first drawing.
void LoadFont(Program &);
void BuildFirstView(Program &);
// window_commands.cpp
void UpdateBaseNodeCommands(Program &);
// The commands that need more in the list than the base node; after every event.
void UpdateListCommands(Program &);
void LayOutForm(Program &);
// selection_commands.cpp
// A node with more bars than a connection can have, met while looking for analogous nodes.
void WarnTooManyBars(Program &);
// After nodes came into the list or left it, by name, pick or window: the drawing, the list
// text and the commands that follow the base node.
void ShowListChange(Program &);
// Every shown node with one of these names offered in turn, as picks of each would.
void OfferNodesByName(Program &, const std::vector<int> &names);
// The answer line closed and no way of selecting: the start of every selection command.
void ResetSelectionInput(Program &);
// The Selezioni items the running function offers; DisableSelectionMenus turns all six off.
void EnableSelectionMenus(Program &);
void DisableSelectionMenus(Program &);
// Starts a function of Operazioni in direct selection, with Interrompi enabled; the functions
// without selection menus (base node, bar types) turn them off.
void StartFunction(Program &, ActiveFunction function);
// The left-button parts that belong to selection: the second corner of a window, a pick.
void FinishWindowSelection(Program &);
void PickAt(Program &, double x, double y);
// connection_commands.cpp
// The whole choice of the base node after a pick of a node named name in "Scegli nodo base".
void ChooseBaseNodeByPick(Program &, int name);
// After base bars were removed: drops the base node without bars, redraws its schema and reads
// the bar types back from the labels.
void AfterBaseBarsRemoved(Program &);
// The list of analogous nodes as range text into StringaSel.
void RefreshListText(Program &);
// tolerance_commands.cpp
// The analogy parameters as the side bar holds them now, the tolerance boxes taken first.
AnalogyParameters AnalogyParametersOf(Program &);
// Start-up step: the tolerances kept in the job's "VornaTolleranze.txt".
void LoadTolerances(Program &);
// The tolerance boxes taken when their texts changed: a text that is no tolerance is told once
// and the last valid value stays; new values are kept in the job's file.
void ReadToleranceBoxes(Program &);
// A pick in "Evidenzia tipo aste": the bars of the analogous node named name in their types'
// colours.
void HighlightNodeBarTypes(Program &, int name);
// csv_export.cpp
// Asks where to save a table as CSV (in the job folder, ".csv" added to a name without an
// extension), then writes the text made only then, and tells how that went.
void ExportCsv(Program &, const std::function<std::string()> &text);
// file_commands.cpp
// Start-up step: "VornaNIn.txt"; may end the program (too many bar types).
void LoadConnectionInput(Program &);

} // namespace vorna
