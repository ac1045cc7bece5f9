// FormVorna, the main window as data: its table of controls, menus and commands, and the form
// as it is created.
#include "app/form_vorna.h"

#include "app/commands.h"
#include "app/joint_types_dialog.h"
#include "app/review_dialog.h"
#include "app/why_not_dialog.h"

namespace vorna {
namespace {

// Design-time positions in client twips; the layout rule then fits them to the window size.
void PlaceControls(FormVorna &f) {
    Place(f.Toolbar1, 0, 0, f.width, 400);
    Place(f.FrameInput, 60, 400, 0, 560);
    Place(f.Domanda, 180, 600, 7000, 300);
    Place(f.Risposta, 0, 560, 2600, 315);
    Place(f.Disegno, 60, 990, 0, 0);
    Place(f.FrameSel, 0, 990, 4440, 4050);
    Place(f.FrameAtt, 0, 5100, 4440, 3700);
    Place(f.Label7, 0, 8860, 2100, 250);
    Place(f.Picture1, 0, 9130, 2100, 1500);
    for (int i = 0; i < 3; ++i) {
        Place(f.Label1[i], 120 + 840.0 * i, 0, 200, 280);
        Place(f.Label2[i], 300 + 840.0 * i, 0, 120, 200);
        Place(f.Angolo[i], 420 + 840.0 * i, 0, 480, 260);
    }
    Place(f.Label5, 2640, 0, 2300, 280);
    Place(f.StringaSel, 5000, 0, 0, 280);
    Place(f.Frame2[0], 60, 0, 2600, 420);
    Place(f.Frame2[1], 2700, 0, 2600, 420);
    Place(f.FunAttiva, 120, 0, 2480, 280);
    Place(f.SottoFunAttiva, 2760, 0, 2480, 280);
    Place(f.FrameCoord, 5400, 0, 0, 420);
    Place(f.Label6, 0, 0, 1000, 280);
    Place(f.LabCoord, 0, 0, 5000, 280);
    Place(f.Esito, 5520, 0, 0, 280);
}

} // namespace

std::span<const FormRow> FormVornaRows() {
    using Form = FormVorna;
    static constexpr FormRow kRows[] = {
#define VORNA_CONTROL VORNA_CONTROL_ROW
#define VORNA_ARRAY VORNA_ARRAY_ROW
#define VORNA_ELEMENT VORNA_ELEMENT_ROW
#define VORNA_MENU(id, label) VORNA_SUBMENU(id, , label)
#define VORNA_SUBMENU(id, menu, label)                                                             \
    {.kind = RowKind::Menu,                                                                        \
     .name = #id,                                                                                  \
     .controls = ControlsOf<&Form::id>,                                                            \
     .start = {.caption = (label)},                                                                \
     .parent = #menu},
#define VORNA_MENU_ITEM(id, menu, label, key, command, ...)                                        \
    {.kind = RowKind::MenuItem,                                                                    \
     .name = #id,                                                                                  \
     .controls = ControlsOf<&Form::id>,                                                            \
     .start = {.caption = (label)__VA_OPT__(, ) __VA_ARGS__},                                      \
     .parent = #menu,                                                                              \
     .shortcut = (key),                                                                            \
     .run = (command)},
#define VORNA_BUTTON(key, bar, tip, command)                                                       \
    {.kind = RowKind::Button,                                                                      \
     .name = #key,                                                                                 \
     .controls = ControlsOf<&Form::btn##key>,                                                      \
     .start = {.tooltip = (tip)},                                                                  \
     .parent = #bar,                                                                               \
     .run = (command)},
#define VORNA_COMMAND(id, label, command)                                                          \
    {.kind = RowKind::Command,                                                                     \
     .name = #id,                                                                                  \
     .controls = ControlsOf<&Form::id>,                                                            \
     .start = {.caption = (label)},                                                                \
     .run = (command)},
#define VORNA_BUTTON_GAP(bar) {.kind = RowKind::Gap, .name = "", .parent = #bar},
#include "app/form_vorna_controls.h"
    };
    return kRows;
}

void Place(Control &c, double left, double top, double width, double height) {
    c.left = left;
    c.top = top;
    c.width = width;
    c.height = height;
}

FormVorna InitialForm() {
    FormVorna f;
    StartControls(FormVornaRows(), f);
    PlaceControls(f);
    return f;
}

void ForEachControl(FormVorna &f, const std::function<void(std::string_view, Control &)> &fn) {
    ForEachControlOfRows(FormVornaRows(), f, fn);
}

Control *FindControl(FormVorna &form, std::string_view name) {
    Control *found = nullptr;
    ForEachControl(form, [&](std::string_view n, Control &c) {
        if (!found && n == name)
            found = &c;
    });
    return found;
}

} // namespace vorna
