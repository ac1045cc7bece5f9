// How the running function and the way of selecting are shown: the captions of FunAttiva and
// SottoFunAttiva, the pointer over Disegno, and which Selezioni items a function offers.
#include "selection/selection_modes.h"

namespace vorna {

const char *FunctionCaption(ActiveFunction function) {
    switch (function) {
    case ActiveFunction::AddNodes:
        return "Aggiungi nodi";
    case ActiveFunction::RemoveNodes:
        return "Rimuovi nodi";
    case ActiveFunction::ChooseBaseNode:
        return "Nodo base";
    case ActiveFunction::RemoveBaseBars:
        return "Rimuovi aste base";
    case ActiveFunction::ShowBarTypes:
        return "Evidenzia tipo aste";
    case ActiveFunction::WhyNot:
        return "Perch\xE9 no?";
    case ActiveFunction::None:
        break;
    }
    return "";
}

const char *ModeCaption(SelectionMode mode) {
    switch (mode) {
    case SelectionMode::Window:
        return "Seleziona per finestra";
    case SelectionMode::Material:
        return "Seleziona per materiale";
    case SelectionMode::Name:
        return "Seleziona per nome elemento";
    case SelectionMode::Direct:
        return "Selezione diretta";
    case SelectionMode::ConstraintCard:
        return "Seleziona per vincolo";
    case SelectionMode::FindNode:
        return "Trova nodo";
    case SelectionMode::None:
        break;
    }
    return "";
}

Pointer ModePointer(SelectionMode mode) {
    return mode == SelectionMode::Window ? Pointer::Cross : Pointer::Default;
}

std::optional<SelectionMenus> SelectionMenusFor(ActiveFunction function) {
    switch (function) {
    case ActiveFunction::AddNodes:
    case ActiveFunction::RemoveNodes:
        return SelectionMenus{true, true, true, true, true, true};
    case ActiveFunction::RemoveBaseBars:
        return SelectionMenus{true, true, false, true, true, false};
    case ActiveFunction::WhyNot: // one node, by pick or by name
        return SelectionMenus{false, false, false, true, false, false};
    default:
        return std::nullopt;
    }
}

} // namespace vorna
