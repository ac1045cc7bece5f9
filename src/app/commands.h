// Running the commands of menu items and icon-bar keys, and the handlers of the window's events.
// The form's table serves the menus, the icon bar, the shortcuts and the script runner.
#pragma once

#include "app/program.h"
#include "platform/input.h"
#include "connection/analogy.h"

#include <string_view>
#include <vector>

namespace vorna {

// The menu items, icon-bar buttons and push buttons come from the form's table (FormVornaRows).
bool IsMenuItem(std::string_view name);
bool IsToolbarButton(std::string_view key);
bool IsCommandButton(std::string_view name);
// Runs the command of a menu item by name, when it exists and is enabled. False otherwise.
bool RunMenuItem(Program &program, std::string_view menuItem);
// Runs the command of an icon-bar key, when the button is enabled; unknown keys do nothing.
bool RunToolbarButton(Program &program, std::string_view key);
// Runs the command of a push button on the form (TuttoX), when it is enabled.
bool RunCommandButton(Program &program, std::string_view name);

// Menu and button handlers, grouped by the file that implements them.
// view_commands.cpp
// Projection from the angles, filters and fit, then the drawing (what every change of view,
// filter, selection or search ends in).
void RedrawView(Program &);
// The drawing alone, on the current projection, filters and scale.
void DrawStructureNow(Program &);
void Ottimizza_Click(Program &);
void ZoomIn_Click(Program &);
void Sposta_Click(Program &);
void Ridis_Click(Program &);
// The standard views: each sets the three angles and fits.
void VistaPianta_Click(Program &);
void VistaFronte_Click(Program &);
void VistaLato_Click(Program &);
void VistaAssonometria_Click(Program &);
// Zooms onto the live, shown node of that name and rings it until the next command.
void ZoomToNode(Program &, const std::string &name);
void VisAssi_Click(Program &);
void VisCoord_Click(Program &);
void TuttoX_Click(Program &);
void TuttoY_Click(Program &);
void TuttoZ_Click(Program &);
// Start-up steps of the view: the stroke font, then projection, intervals, fit and first drawing.
void LoadFont(Program &);
void BuildFirstView(Program &);
// window_commands.cpp
void Esci_Click(Program &);
void BarraLat_Click(Program &);
void BarraIcone_Click(Program &);
void UpdateBaseNodeCommands(Program &);
void LayOutForm(Program &);
// selection_commands.cpp
void Aggiungi_Click(Program &);
void Rimuovi_Click(Program &);
void RimTutto_Click(Program &);
void Inverti_Click(Program &);
void Interrompi_Click(Program &);
void Finestra_Click(Program &);
void Nome_Click(Program &);
void TrovaNodo_Click(Program &);
void SchVincolo_Click(Program &);
void Tutto_Click(Program &);
void ColourCommand(Program &, int code);
void PointTypeCommand(Program &, int code);
// A node with more bars than a connection can have, met while looking for analogous nodes.
void WarnTooManyBars(Program &);
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
// connection_commands.cpp
void NodoBase_Click(Program &);
void RimNodoBase_Click(Program &);
void AsteNodoBase_Click(Program &);
void EvidTipo_Click(Program &);
// The whole choice of the base node after a pick of a node named name in "Scegli nodo base".
void ChooseBaseNodeByPick(Program &, int name);
// After base bars were removed: drops the base node without bars, redraws its schema and reads
// the bar types back from the labels.
void AfterBaseBarsRemoved(Program &);
// The list of analogous nodes as range text into StringaSel.
void RefreshListText(Program &);
AnalogyParameters AnalogyParametersOf(const FormVorna &form);
// A pick in "Evidenzia tipo aste": the bars of the analogous node named name in their types'
// colours.
void HighlightNodeBarTypes(Program &, int name);
// options_commands.cpp: the two options dialogs.
void Trappola_Click(Program &);
void Rappresentazione_Click(Program &);
// drawing_commands.cpp: the current view saved as a drawing (.dis or DXF).
void SalvaDisegno_Click(Program &);
// file_commands.cpp
// Start-up step: "VornaNIn.txt"; may end the program (too many bar types).
void LoadConnectionInput(Program &);
void ScriColl_Click(Program &);
void Salva_Click(Program &);
void SalvaGeom_Click(Program &);
void SalvaSoll_Click(Program &);

// Events of the window's controls.
// mouse.cpp: the mouse on Disegno (positions in its drawing units), and the keys that move the
// view while the drawing has the focus.
void Disegno_Mouse(Program &, const MouseEvent &event);
void Disegno_KeyDown(Program &, Key key);
// selection_commands.cpp: the left-button parts that belong to selection.
void FinishWindowSelection(Program &);
void PickAt(Program &, double x, double y);
void Risposta_KeyDown(Program &, Key key);
// connection_commands.cpp
void LabelTipo_Click(Program &, int index);

} // namespace vorna
