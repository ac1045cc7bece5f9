// FormVorna, the main window as data: every control, menu item and icon-bar button with the
// properties that commands read and write. The Qt window mirrors it.
#pragma once

#include "platform/control.h"

#include <functional>
#include <span>
#include <string>
#include <string_view>

namespace vorna {

struct Program;
using CommandHandler = void (*)(Program &);

// System colours the answer line switches between.
constexpr Rgb kWindowColour = 0xFFFFFF;     // &H80000005
constexpr Rgb kButtonFaceColour = 0xF0F0F0; // &H8000000F

struct FormVorna {
    std::string caption;
    double width = 15360, height = 10800; // outer size, twips
    double screenWidth = 28800;
    bool minimised = false;
    // A control that should take the keyboard focus the next time the window shows the form
    // (empty when none); the window clears it once done.
    std::string focusRequest;

    // Every control, menu and item by its name; the icon-bar buttons by their keys (btnZoom).
#define VORNA_CONTROL VORNA_CONTROL_FIELD
#define VORNA_ARRAY VORNA_ARRAY_FIELD
#define VORNA_MENU VORNA_CONTROL_FIELD
#define VORNA_SUBMENU VORNA_CONTROL_FIELD
#define VORNA_MENU_ITEM VORNA_CONTROL_FIELD
#define VORNA_COMMAND VORNA_CONTROL_FIELD
#define VORNA_BUTTON(key, ...) Control btn##key;
#include "app/form_vorna_controls.h"
};

// The table of the form: its controls in dump order, the menus, and the commands of the menu
// items and icon-bar buttons with their shortcuts.
using FormRow = ControlRow<FormVorna, CommandHandler>;
std::span<const FormRow> FormVornaRows();

// Sets a control's left, top, width and height.
void Place(Control &c, double left, double top, double width, double height);

// The form as it is created, before start-up runs: captions, checks, enabling and places.
FormVorna InitialForm();

// Every control, menu item and button in the table's order, with its name as the program knows
// it ("Angolo(1)", "LabelTipo(3)", "Toolbar1.Interrompi").
void ForEachControl(FormVorna &form, const std::function<void(std::string_view, Control &)> &fn);
// The control of that name, or nothing.
Control *FindControl(FormVorna &form, std::string_view name);

} // namespace vorna
