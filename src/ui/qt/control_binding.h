// One control of FormVorna bound to its widget: showing the control's state on the widget and
// taking the user's edits back.
#pragma once

#include "platform/control.h"

#include <QPoint>
#include <QRect>
#include <QString>

#include <optional>
#include <string>
#include <vector>

class QWidget;

namespace vorna::qt {

// How a control's caption and place reach its widget.
enum class BindingStyle {
    Plain,
    Placed,       // absolutely placed in the client area from the form's twips
    SymbolPlaced, // placed, and the caption is in the symbol font ("a" is alpha)
    Swatch,       // a colour: the back colour fills the widget
};

struct Binding {
    std::string name; // as FindControl knows it, e.g. "Angolo(1)"
    QWidget *widget = nullptr;
    BindingStyle style = BindingStyle::Plain;
    Control *control = nullptr;   // resolved when the window is attached to a program
    std::optional<Control> shown; // what the widget shows now
    // Where the widget's parent starts in the client area, pixels: placed controls inside a
    // container (the scrolling side bar) are placed relative to it.
    QPoint origin;
};

// Adds a binding of the control of that name to the widget; returns the widget.
QWidget *AddBinding(std::vector<Binding> &bindings, const std::string &name, QWidget *widget,
                    BindingStyle style);
// Shows the control on the widget; only what changed since the last call is touched.
void ApplyBinding(Binding &binding, double twipsPerPixel);
// Copies what the user can change on the widget (text, check, option) into the control.
void ReadBinding(Binding &binding);

// The Greek letters that the symbol font draws for Latin ones.
QString SymbolFontText(const std::string &caption);
// A length in twips as whole pixels (0 for what is not a number).
int Pixels(double twips, double twipsPerPixel);
// A rectangle in twips as pixels.
QRect TwipsToPixels(const Control &control, double twipsPerPixel);

} // namespace vorna::qt
