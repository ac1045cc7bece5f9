// Running a menu item or an icon-bar button by name, as the form's table says.
#include "app/commands.h"

namespace vorna {
namespace {

const FormRow *Find(RowKind kind, std::string_view name) {
    return FindRow(FormVornaRows(), kind, name);
}

// An item runs only when it and every menu it lies in are enabled.
bool Enabled(FormVorna &form, const FormRow &row) {
    if (!row.controls(form)[0].enabled)
        return false;
    const FormRow *menu = Find(RowKind::Menu, row.parent);
    return menu == nullptr || Enabled(form, *menu);
}

// Nothing runs once the program is ending.
bool Run(Program &p, const FormRow *row) {
    if (row == nullptr || !Enabled(p.form, *row) || p.exitRequested)
        return false;
    row->run(p);
    return true;
}

} // namespace

bool IsMenuItem(std::string_view name) {
    return Find(RowKind::MenuItem, name) != nullptr;
}

bool IsToolbarButton(std::string_view key) {
    return Find(RowKind::Button, key) != nullptr;
}

bool IsCommandButton(std::string_view name) {
    return Find(RowKind::Command, name) != nullptr;
}

bool RunCommandButton(Program &p, std::string_view name) {
    return Run(p, Find(RowKind::Command, name));
}

bool RunMenuItem(Program &p, std::string_view menuItem) {
    return Run(p, Find(RowKind::MenuItem, menuItem));
}

bool RunToolbarButton(Program &p, std::string_view key) {
    return Run(p, Find(RowKind::Button, key));
}

} // namespace vorna
