// Mouse and wheel events of the drawing surface Disegno.
#include "app/commands.h"

namespace vorna {

void Disegno_MouseDown(Program &, int, int, double, double) {}
void Disegno_MouseMove(Program &, int, int, double, double) {}
void Disegno_MouseUp(Program &, int, int, double, double) {}
void Disegno_DblClick(Program &, int) {}
void WheelZoom(Program &, int) {}

} // namespace vorna
