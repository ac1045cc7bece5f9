// One control, menu item or button of a window as data: the properties that behaviour reads
// and writes, which each front end shows; and the tables that declare a form's controls.
#pragma once

#include "platform/canvas.h"
#include "platform/ui.h"

#include <array>
#include <cstddef>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace vorna {

// Sizes are twips; texts are Windows-1252.
struct Control {
    std::string caption;
    std::string text;
    std::string tooltip;
    bool checked = false;
    bool enabled = true;
    bool visible = true;
    Rgb backColour = 0;
    Pointer pointer = Pointer::Default;
    double left = 0, top = 0, width = 0, height = 0;
    // The rows of a list; its text is then the 1-based row selected ("" for none). Columns of a
    // row are separated by tabs.
    std::vector<std::string> items;
};

// A control as its form is created.
struct ControlStart {
    const char *caption = "";
    const char *text = "";
    const char *tooltip = "";
    bool checked = false;
    bool enabled = true;
    bool visible = true;
    Rgb backColour = 0;
};

// What a row of a form's table declares.
enum class RowKind {
    Control,  // one control
    Array,    // the controls name(first)..name(last), each starting alike
    Element,  // one element of an array that starts otherwise (its index in first)
    Menu,     // a menu of the menu bar (no parent) or a submenu of its parent
    MenuItem, // an item of its parent menu, running a command
    Button,   // an icon-bar button of its parent bar, named by its key, running a command
    Command,  // a push button on the form, running a command
    Gap,      // the end of a group of buttons in its parent bar
};

// One row of a form's table: the rows in order are the form's controls in the order its dump
// lists them. Command is what menu items and buttons run, for forms that have them.
template <typename Form, typename Command = std::nullptr_t> struct ControlRow {
    RowKind kind;
    const char *name;
    std::span<Control> (*controls)(Form &) = nullptr; // one control, or the whole array
    int first = 0, last = 0;
    ControlStart start = {};
    const char *parent = "";
    const char *shortcut = ""; // e.g. "Ctrl+O"
    Command run = {};
};

// The controls of a member of a form, one or an array, for a row.
template <auto member, typename Form> std::span<Control> ControlsOf(Form &form) {
    auto &controls = form.*member;
    if constexpr (std::is_same_v<std::remove_cvref_t<decltype(controls)>, Control>)
        return {&controls, 1};
    else
        return controls;
}

inline Control StartedControl(const ControlStart &s) {
    Control c;
    c.caption = s.caption;
    c.text = s.text;
    c.tooltip = s.tooltip;
    c.checked = s.checked;
    c.enabled = s.enabled;
    c.visible = s.visible;
    c.backColour = s.backColour;
    return c;
}

// Gives every control of the form its start.
template <typename Form, typename Command>
void StartControls(std::span<const ControlRow<Form, Command>> rows, Form &form) {
    for (const auto &row : rows) {
        if (row.kind == RowKind::Gap)
            continue;
        std::span<Control> controls = row.controls(form);
        if (row.kind == RowKind::Element)
            controls[row.first] = StartedControl(row.start);
        else
            for (Control &c : controls)
                c = StartedControl(row.start);
    }
}

// Every control of the form in table order with its name as the program knows it:
// "Angolo(1)" in an array, "Toolbar1.Zoom" for a button.
template <typename Form, typename Command>
void ForEachControlOfRows(std::span<const ControlRow<Form, Command>> rows, Form &form,
                          const std::function<void(std::string_view, Control &)> &fn) {
    for (const auto &row : rows) {
        if (row.kind == RowKind::Array) {
            std::span<Control> controls = row.controls(form);
            for (int i = row.first; i <= row.last; ++i)
                fn(std::string(row.name) + "(" + std::to_string(i) + ")", controls[i]);
        } else if (row.kind == RowKind::Button) {
            fn(std::string(row.parent) + "." + row.name, row.controls(form)[0]);
        } else if (row.kind != RowKind::Element && row.kind != RowKind::Gap) {
            fn(row.name, row.controls(form)[0]);
        }
    }
}

// The row of that kind and name, or nothing.
template <typename Row>
const Row *FindRow(std::span<const Row> rows, RowKind kind, std::string_view name) {
    for (const Row &row : rows)
        if (row.kind == kind && name == row.name)
            return &row;
    return nullptr;
}

} // namespace vorna

// A form's control list is a file of rows, VORNA_CONTROL(name, start...),
// VORNA_ARRAY(name, first, last, start...) and VORNA_ELEMENT(name, index, start...), the start
// in designated initialisers of ControlStart. Included with these expanders it makes the form's
// members, and its table inside a scope where Form names the form.
#define VORNA_CONTROL_FIELD(id, ...) Control id;
#define VORNA_ARRAY_FIELD(id, from, to, ...) std::array<Control, (to) + 1> id;
#define VORNA_CONTROL_ROW(id, ...)                                                                 \
    {.kind = RowKind::Control,                                                                     \
     .name = #id,                                                                                  \
     .controls = ControlsOf<&Form::id>,                                                            \
     .start = {__VA_ARGS__}},
#define VORNA_ARRAY_ROW(id, from, to, ...)                                                         \
    {.kind = RowKind::Array,                                                                       \
     .name = #id,                                                                                  \
     .controls = ControlsOf<&Form::id>,                                                            \
     .first = (from),                                                                              \
     .last = (to),                                                                                 \
     .start = {__VA_ARGS__}},
#define VORNA_ELEMENT_ROW(id, at, ...)                                                             \
    {.kind = RowKind::Element,                                                                     \
     .name = #id,                                                                                  \
     .controls = ControlsOf<&Form::id>,                                                            \
     .first = (at),                                                                                \
     .start = {__VA_ARGS__}},
