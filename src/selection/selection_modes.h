// How the running function and the way of selecting are shown: the captions of FunAttiva and
// SottoFunAttiva, the pointer over Disegno, and which Selezioni items a function offers.
#pragma once

#include "platform/ui.h"
#include "selection/command_state.h"

#include <optional>

namespace vorna {

const char *FunctionCaption(ActiveFunction function);
const char *ModeCaption(SelectionMode mode);
Pointer ModePointer(SelectionMode mode);

// The enabled state of the Selezioni items Finestra, Colore, TipoPunto, Nome, Tutto and
// SchVincolo.
struct SelectionMenus {
    bool finestra = false;
    bool colore = false;
    bool tipoPunto = false;
    bool nome = false;
    bool tutto = false;
    bool schVincolo = false;
};

// What adding, removing and removing base bars offer; nothing for the other functions, which
// leave the items as they are.
std::optional<SelectionMenus> SelectionMenusFor(ActiveFunction function);

} // namespace vorna
