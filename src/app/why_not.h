// "Perché no?": why a node is or is not analogous, told in the status row, in the dialog
// FormPercheNo and in the script's dumps, and the near misses of the model.
#pragma once

#include "app/program.h"
#include "connection/why_not.h"

#include <ostream>
#include <string>
#include <string_view>

namespace vorna {

// The node a name designates for an explanation: the first live, shown node with that name,
// else the first live one; -1 with notLive set when the name has only nodes that are not live,
// -1 alone when it has none.
int NodeForExplanation(const StructureModel &model, const ViewState &view, int name, bool &notLive);

// The criterion in one or two Italian words ("direzione", "tipo linea").
std::string ReasonWord(WhyNotReason reason);

// The verdict in Italian words, as the label Esito shows it: "Nodo 12 analogo" or
// "Nodo 12 non analogo: asta base 3, direzione diversa di 5.0°" (Windows-1252).
std::string VerdictText(int name, const AnalogyExplanation &e);
// The reason alone, in Italian ("asta base 3, direzione diversa di 5.0°"); empty for none.
std::string ReasonText(const AnalogyExplanation &e);

// Esito after one node was offered by name: the verdict for the first shown node with it.
void ShowVerdictOfName(Program &program, int name);

// `dump whynot NAME` and `dump nearmisses`.
void DumpWhyNot(Program &program, std::string_view name, std::ostream &out);
void DumpNearMisses(Program &program, std::ostream &out);

} // namespace vorna
