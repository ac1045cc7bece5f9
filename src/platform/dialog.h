// A modal dialog as data: its controls by name and the events that a front end forwards to it
// while it is open.
#pragma once

#include "platform/control.h"

#include <functional>
#include <ostream>
#include <string>
#include <string_view>

namespace vorna {

class Dialog {
public:
    virtual ~Dialog() = default;
    // The form's name ("FormOpt") and its caption.
    virtual std::string_view Name() const = 0;
    virtual std::string_view Caption() const = 0;
    // Every control in a fixed order with its name ("LabelCol(3)").
    virtual void ForEachControl(const std::function<void(std::string_view, Control &)> &fn) = 0;
    // A user's click on an enabled control: a button, a swatch, or a check box or option button
    // whose state the front end has just changed.
    virtual void Click(std::string_view control) = 0;
    // The mouse button released on a control.
    virtual void MouseUp(std::string_view /*control*/) {}
    // Esc released: the dialog closes without taking anything over.
    virtual void Escape() { closed = true; }
    // A dialog that one typed line answers (the pick-box size) takes a text queued by a script
    // and closes with it; false for the others, which take the script's lines one by one.
    virtual bool AnswerWith(std::string_view /*text*/) { return false; }
    // Draws the dialog's picture of that name on a surface of the front end.
    virtual void Paint(std::string_view /*picture*/, Canvas & /*canvas*/) {}
    // A text dump of what the dialog shows beyond its controls; false when it has none of that
    // name.
    virtual bool Dump(std::string_view /*what*/, std::ostream & /*out*/) { return false; }

    Control *Find(std::string_view name) {
        Control *found = nullptr;
        ForEachControl([&](std::string_view n, Control &c) {
            if (!found && n == name)
                found = &c;
        });
        return found;
    }

    bool closed = false;
};

} // namespace vorna
