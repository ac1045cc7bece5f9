// Commands of the selection: functions, ways of selecting, the answer line and the pick.
#include "app/commands.h"

namespace vorna {

void Aggiungi_Click(Program &) {}
void Rimuovi_Click(Program &) {}
void RimTutto_Click(Program &) {}
void Inverti_Click(Program &) {}
void Interrompi_Click(Program &) {}
void Finestra_Click(Program &) {}
void Nome_Click(Program &) {}
void SchVincolo_Click(Program &) {}
void Tutto_Click(Program &) {}
void Trappola_Click(Program &) {}
void ColourCommand(Program &, int) {}
void PointTypeCommand(Program &, int) {}
void FinishWindowSelection(Program &) {}
void PickAt(Program &, double, double) {}
void Risposta_KeyDown(Program &, int) {}

} // namespace vorna
