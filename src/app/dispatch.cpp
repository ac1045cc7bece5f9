// How the front ends run what the user does: one command, event or start-up at a time, under the
// busy pointer from its start to its end.
#include "app/dispatch.h"

namespace vorna {

bool Dispatch(Program &p, const std::function<void(Program &)> &action) {
    if (p.exitRequested)
        return false;
    const BusyPointer busy(p.ui);
    action(p);
    return true;
}

} // namespace vorna
