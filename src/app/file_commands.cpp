// Commands of the File menu that hand the connection back to the suite and end the program.
#include "app/commands.h"

namespace vorna {

void ScriColl_Click(Program &) {}
void Salva_Click(Program &) {}
void SalvaGeom_Click(Program &) {}
void SalvaSoll_Click(Program &) {}
void LoadConnectionInput(Program &) {}

} // namespace vorna
