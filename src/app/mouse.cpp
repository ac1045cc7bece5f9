// Mouse, wheel and key events of the drawing surface Disegno: the view gestures (pan, orbit,
// zoom, keys), and the left-button rules shared with window selection and the direct pick.
#include "app/command_steps.h"
#include "app/commands.h"

#include "projection/navigation.h"
#include "projection/visibility.h"
#include "selection/selection_modes.h"

#include "platform/number_text.h"

#include <algorithm>
#include <cmath>
#include <tuple>

namespace vorna {
namespace {

// After a gesture the status line and the pointer show the selection mode again.
void RestoreSelectionModeDisplay(Program &p) {
    if (p.command.selectionMode == SelectionMode::None) {
        ResetSelectionInput(p);
        return;
    }
    p.form.SottoFunAttiva.caption = ModeCaption(p.command.selectionMode);
    p.form.Disegno.pointer = ModePointer(p.command.selectionMode);
}

void MovePress(Program &p, double x, double y) {
    NavigationState &n = p.navigation;
    Control &line = p.form.LineSposta;
    if (!n.moveLineActive) {
        n.moveLineActive = true;
        Place(line, x, y, x, y);
        line.visible = true;
        return;
    }
    MoveView(p.view, line.width - line.left, line.height - line.top);
    n.movePending = false;
    n.moveLineActive = false;
    line.visible = false;
    RestoreSelectionModeDisplay(p);
    RedrawView(p);
}

void FinishZoomRectangle(Program &p) {
    NavigationState &n = p.navigation;
    Control &shape = p.form.Shape;
    shape.visible = false;
    n.windowCornerSet = false;
    // A rectangle without width is ignored; the zoom stays pending for another one.
    if (!(shape.width > 0))
        return;
    p.view.zoomWindow = ZoomWindowOf({shape.left, shape.top, shape.width, shape.height});
    n.zoomWindowPending = false;
    RestoreSelectionModeDisplay(p);
    RedrawView(p);
}

void LeftPress(Program &p, double x, double y) {
    NavigationState &n = p.navigation;
    const CommandState &c = p.command;
    if (n.movePending) {
        MovePress(p, x, y);
        return;
    }
    const bool windowMode = c.selectionMode == SelectionMode::Window &&
                            c.activeFunction != ActiveFunction::ChooseBaseNode;
    if ((windowMode || n.zoomWindowPending) && !n.windowCornerSet) {
        Place(p.form.Shape, x, y, 0, 0);
        p.form.Shape.visible = true;
        n.cornerX = x;
        n.cornerY = y;
        n.windowCornerSet = true;
    } else if (n.zoomWindowPending) {
        FinishZoomRectangle(p);
    } else if (windowMode) {
        FinishWindowSelection(p);
    } else if (c.selectionMode == SelectionMode::Direct) {
        PickAt(p, x, y);
    }
}

// A press and release closer than this, pixels, is a click; farther, a drag.
constexpr double kDragPixels = 4;
constexpr double kOrbitDegreesPerPixel = 0.5;
constexpr double kKeyTurnDegrees = 15;

// An angle in its box: whole degrees as whole numbers, otherwise one decimal.
void SetAngle(Program &p, int k, double degrees) {
    p.form.Angolo[k].text = NumberText(std::round(degrees * 10) / 10);
}

// Remembers where a gesture that measures in pixels started, and the scale it measures in.
void HoldPress(Program &p, double x, double y) {
    NavigationState &n = p.navigation;
    n.panStartScale = p.disegno.Scale();
    n.pressUnitsPerPixel = PixelsToUnits(p.disegno, 1);
    n.orbitX = x;
    n.orbitY = y;
    n.orbitTravel = 0;
}

void StartOrbit(Program &p, double x, double y) {
    NavigationState &n = p.navigation;
    HoldPress(p, x, y);
    n.orbitHeld = true;
    n.orbitStartAx = p.view.lastAngles[0];
    n.orbitStartAy = p.view.lastAngles[1];
}

// The model turns with the mouse once it has gone farther than a click: right is +αy, up +αx.
void OrbitTo(Program &p, double x, double y) {
    NavigationState &n = p.navigation;
    const auto [px, py] = InScaleOf(n.panStartScale, p.disegno.Scale(), x, y);
    if (!(n.pressUnitsPerPixel > 0))
        return;
    const double dx = (px - n.orbitX) / n.pressUnitsPerPixel;
    const double dy = (py - n.orbitY) / n.pressUnitsPerPixel;
    n.orbitTravel = std::max(n.orbitTravel, std::hypot(dx, dy));
    if (n.orbitTravel < kDragPixels)
        return;
    SetAngle(p, 0, n.orbitStartAx + kOrbitDegreesPerPixel * dy);
    SetAngle(p, 1, n.orbitStartAy + kOrbitDegreesPerPixel * dx);
    RedrawView(p);
}

// Pixels between the press and (x, y), for gestures that do not redraw while they last.
double PixelsFromPress(const Program &p, double x, double y) {
    const NavigationState &n = p.navigation;
    return n.pressUnitsPerPixel > 0 ? std::hypot(x - n.orbitX, y - n.orbitY) / n.pressUnitsPerPixel
                                    : 0;
}

void Press(Program &p, const MouseEvent &e) {
    NavigationState &n = p.navigation;
    n.lastButton = e.button;
    if (e.button == kRightButton || (e.button == kMiddleButton && e.modifiers.shift)) {
        StartOrbit(p, e.x, e.y);
    } else if (e.button == kMiddleButton) {
        Place(p.form.LineSposta, e.x, e.y, e.x, e.y);
        n.panStartWindow = p.view.zoomWindow;
        n.panStartScale = p.disegno.Scale();
    } else if (e.button == kLeftButton) {
        const bool cornerBefore = n.windowCornerSet;
        HoldPress(p, e.x, e.y);
        LeftPress(p, e.x, e.y);
        n.cornerPressed = !cornerBefore && n.windowCornerSet;
    }
}

void Move(Program &p, const MouseEvent &e) {
    NavigationState &n = p.navigation;
    Control &line = p.form.LineSposta;
    const double x = e.x, y = e.y;
    if (n.orbitHeld && (e.held & (kRightButton | kMiddleButton)) != 0) {
        OrbitTo(p, x, y);
    } else if ((e.held & kMiddleButton) != 0 && n.lastButton == kMiddleButton) {
        std::tie(line.width, line.height) = InScaleOf(n.panStartScale, p.disegno.Scale(), x, y);
        PanView(p.model, p.view, n.panStartWindow, line.width - line.left, line.height - line.top);
        RedrawView(p);
    }
    const bool banding = n.zoomWindowPending || p.command.selectionMode == SelectionMode::Window;
    if (n.windowCornerSet && banding) {
        if (auto band = StretchBand(n.cornerX, n.cornerY, x, y, p.disegno.Scale())) {
            Place(p.form.Shape, band->left, band->top, band->width, band->height);
        }
    }
    if (n.movePending && n.moveLineActive) {
        line.width = x;
        line.height = y;
    }
    n.pickRadius = PixelsToUnits(p.disegno, p.internalOptions(opt::kPickBoxSize));
    n.hoverNode = NodeUnderCursor(p.model, p.view, x, y, n.pickRadius);
    if (p.form.VisCoord.checked)
        p.form.LabCoord.caption = CoordinateReadout(p.model, p.view, x, y, n.pickRadius);
}

// A release ends the two drags: the orbit (a right click that did not move is the pop-up of
// the view menu), and a rectangle dragged out from its first corner.
void Release(Program &p, const MouseEvent &e) {
    NavigationState &n = p.navigation;
    if (n.orbitHeld && (e.button == kRightButton || e.button == kMiddleButton)) {
        n.orbitHeld = false;
        if (e.button == kRightButton && n.orbitTravel < kDragPixels)
            p.ui.PopUpMenu("Visualizza");
    } else if (e.button == kLeftButton && n.cornerPressed) {
        n.cornerPressed = false;
        if (n.windowCornerSet && PixelsFromPress(p, e.x, e.y) >= kDragPixels)
            LeftPress(p, e.x, e.y);
    }
}

// The wheel zooms about the centre; with Ctrl about the cursor, which stays over its point.
void Wheel(Program &p, const MouseEvent &e) {
    const bool zoomed = e.modifiers.control
                            ? WheelZoomWindowAbout(p.model, p.view, e.wheelSteps, e.x, e.y)
                            : WheelZoomWindow(p.view, e.wheelSteps);
    if (zoomed)
        RedrawView(p);
}

} // namespace

void Disegno_Mouse(Program &p, const MouseEvent &e) {
    switch (e.kind) {
    case MouseEvent::Kind::Press:
        Press(p, e);
        break;
    case MouseEvent::Kind::Move:
        Move(p, e);
        break;
    case MouseEvent::Kind::Release:
        Release(p, e);
        break;
    case MouseEvent::Kind::DoubleClick:
        if (e.button == kMiddleButton)
            Ottimizza_Click(p);
        break;
    case MouseEvent::Kind::Wheel:
        Wheel(p, e);
        break;
    }
}

void Disegno_KeyDown(Program &p, Key key) {
    const std::array<double, 3> &a = p.view.lastAngles;
    switch (key) {
    case Key::Left:
    case Key::Right:
        SetAngle(p, 1, a[1] + (key == Key::Right ? kKeyTurnDegrees : -kKeyTurnDegrees));
        RedrawView(p);
        break;
    case Key::Up:
    case Key::Down:
        SetAngle(p, 0, a[0] + (key == Key::Up ? kKeyTurnDegrees : -kKeyTurnDegrees));
        RedrawView(p);
        break;
    case Key::PageUp:
    case Key::PageDown:
        Disegno_Mouse(p,
                      {.kind = MouseEvent::Kind::Wheel, .wheelSteps = key == Key::PageUp ? 1 : -1});
        break;
    case Key::Home:
        Ottimizza_Click(p);
        break;
    case Key::Enter:
    case Key::Escape:
        break;
    }
}

} // namespace vorna
