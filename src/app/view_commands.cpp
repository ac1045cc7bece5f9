// Commands of the view: fit, zoom, move, redraw, axes and coordinates, interval refills.
#include "app/commands.h"

namespace vorna {

void RedrawView(Program &) {}
void DrawStructureNow(Program &) {}
void Ottimizza_Click(Program &) {}
void ZoomIn_Click(Program &) {}
void Sposta_Click(Program &) {}
void Ridis_Click(Program &) {}
void VisAssi_Click(Program &) {}
void VisCoord_Click(Program &) {}
void TuttoX_Click(Program &) {}
void TuttoY_Click(Program &) {}
void TuttoZ_Click(Program &) {}
void LoadFont(Program &) {}
void BuildFirstView(Program &) {}

} // namespace vorna
