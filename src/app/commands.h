// Running the commands of menu items and icon-bar keys, and the handlers of the window's events.
// The form's table serves the menus, the icon bar, the shortcuts and the script runner. The
// steps that several handlers share are in command_steps.h.
#pragma once

#include "app/program.h"
#include "platform/input.h"

#include <string_view>

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
void Ottimizza_Click(Program &);
void ZoomIn_Click(Program &);
void Sposta_Click(Program &);
void Ridis_Click(Program &);
// The standard views: each sets the three angles and fits.
void VistaPianta_Click(Program &);
void VistaFronte_Click(Program &);
void VistaLato_Click(Program &);
void VistaAssonometria_Click(Program &);
void VisAssi_Click(Program &);
void VisCoord_Click(Program &);
void TuttoX_Click(Program &);
void TuttoY_Click(Program &);
void TuttoZ_Click(Program &);
// window_commands.cpp
void Esci_Click(Program &);
void BarraLat_Click(Program &);
void BarraIcone_Click(Program &);
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
// connection_commands.cpp
void NodoBase_Click(Program &);
void RimNodoBase_Click(Program &);
void AsteNodoBase_Click(Program &);
void EvidTipo_Click(Program &);
// options_commands.cpp: the two options dialogs.
void Trappola_Click(Program &);
void Rappresentazione_Click(Program &);
// drawing_commands.cpp: the current view saved as a drawing (.dis or DXF).
void SalvaDisegno_Click(Program &);
// help_dialogs.cpp: the menu "?", the gestures and keys, and the version and licences.
void Comandi_Click(Program &);
void Informazioni_Click(Program &);
// file_commands.cpp: the hand-back commands, each ending the program.
void ScriColl_Click(Program &);
void Salva_Click(Program &);
void SalvaGeom_Click(Program &);
void SalvaSoll_Click(Program &);

// Events of the window's controls.
// mouse.cpp: the mouse on Disegno (positions in its drawing units), and the keys that move the
// view while the drawing has the focus.
void Disegno_Mouse(Program &, const MouseEvent &event);
void Disegno_KeyDown(Program &, Key key);
// selection_commands.cpp: Enter in the answer line.
void Risposta_KeyDown(Program &, Key key);
// connection_commands.cpp
void LabelTipo_Click(Program &, int index);
// tolerance_commands.cpp: a tolerance box (TolAngoli, TolLunghezze) left or confirmed with Enter
// in the window, or set by a script.
void Tolleranza_Change(Program &);

} // namespace vorna
