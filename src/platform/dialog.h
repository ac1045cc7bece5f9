// A modal dialog as data: its controls by name and the events that a front end forwards to it
// while it is open.
#pragma once

#include "platform/control.h"

#include <functional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace vorna {

// A table with more rows than a control each could bear (thousands): the front end shows it
// through a view that asks only for the cells it draws. Rows are the table's own, 0-based,
// whatever order they are shown in.
class DialogTable {
public:
    virtual ~DialogTable() = default;
    virtual int Rows() const = 0;
    // Titles and cells are UTF-8: a cell may hold what Windows-1252 has not, such as an arrow.
    virtual std::vector<std::string> Titles() const = 0;
    virtual std::string Cell(int row, int column) const = 0;
    // A column of figures, which line up on the right.
    virtual bool Figures(int /*column*/) const { return false; }
    // The name of the row's check box in the first column ("Tenuto(3)"), which the dialog's
    // Find knows; empty when the rows have none.
    virtual std::string CheckName(int /*row*/) const { return {}; }
    // The rows in the order shown, sorted by a column (stably, so equal rows keep their order);
    // column -1 is the table's own order.
    virtual void SortBy(int column, bool descending) = 0;
    virtual const std::vector<int> &Order() const = 0;
};

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
    // The long table shown in the control of that name (whose text is then the 1-based table row
    // selected); nothing for other names.
    virtual DialogTable *Table(std::string_view /*control*/) { return nullptr; }

    Control *Find(std::string_view name) {
        Control *found = nullptr;
        ForEachControl([&](std::string_view n, Control &c) {
            if (!found && n == name)
                found = &c;
        });
        return found ? found : RowControl(name);
    }

    bool closed = false;

protected:
    // A control that ForEachControl leaves out, made up when asked for by name: the check box of
    // a row of a DialogTable. Nothing for a name that is none.
    virtual Control *RowControl(std::string_view /*name*/) { return nullptr; }
};

} // namespace vorna
