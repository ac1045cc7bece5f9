// How the front ends run what the user does: one command, event or start-up at a time, under the
// busy pointer from its start to its end.
#pragma once

#include "app/program.h"

#include <functional>
#include <optional>

namespace vorna {

// The busy pointer for as long as it lives. Its owner is the dispatch: a command never turns
// the pointer on or off itself, so none can leave it on.
class BusyPointer {
public:
    explicit BusyPointer(Ui &ui) : ui_(ui) { ui_.SetBusy(true); }
    ~BusyPointer() { ui_.SetBusy(false); }
    BusyPointer(const BusyPointer &) = delete;
    BusyPointer &operator=(const BusyPointer &) = delete;

private:
    Ui &ui_;
};

// Whether an event shows the busy pointer. Mouse moves do not: they come by the hundred, each
// gives its feedback at once, and a pointer switched at every one would flicker.
enum class BusyWhile { Event, Never };

// Runs action, under the busy pointer unless told otherwise; false, without running it, once
// the program is ending.
bool Dispatch(Program &program, const std::function<void(Program &)> &action,
              BusyWhile busyWhile = BusyWhile::Event);

} // namespace vorna
