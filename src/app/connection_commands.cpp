// Commands of the connection: base node, base bars and bar types.
#include "app/commands.h"

namespace vorna {

void NodoBase_Click(Program &) {}
void RimNodoBase_Click(Program &) {}
void AsteNodoBase_Click(Program &) {}
void EvidTipo_Click(Program &) {}
void LabelTipo_Click(Program &, int) {}

} // namespace vorna
