// How the front ends run what the user does: one command, event or start-up at a time, under the
// busy pointer from its start to its end.
#include "app/dispatch.h"

#include "app/command_steps.h"

namespace vorna {

bool Dispatch(Program &p, const std::function<void(Program &)> &action, BusyWhile busyWhile) {
    if (p.exitRequested)
        return false;
    std::optional<BusyPointer> busy;
    if (busyWhile == BusyWhile::Event) {
        busy.emplace(p.ui);
        // The ring of a found node lasts until the next command; moves of the mouse keep it.
        p.navigation.markedNode = -1;
    }
    action(p);
    UpdateListCommands(p);
    return true;
}

} // namespace vorna
