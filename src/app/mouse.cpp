// Mouse, wheel and key events of the drawing surface Disegno: the view gestures (pan, orbit,
// zoom, keys), and the left-button rules shared with window selection and the direct pick.
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
constexpr int kShiftMask = 1;

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

} // namespace

void Disegno_MouseDown(Program &p, int button, int shift, double x, double y) {
    NavigationState &n = p.navigation;
    n.lastButton = button;
    if (button == kRightButton || (button == kMiddleButton && (shift & kShiftMask) != 0)) {
        StartOrbit(p, x, y);
    } else if (button == kMiddleButton) {
        Place(p.form.LineSposta, x, y, x, y);
        n.panStartWindow = p.view.zoomWindow;
        n.panStartScale = p.disegno.Scale();
    } else if (button == kLeftButton) {
        const bool cornerBefore = n.windowCornerSet;
        HoldPress(p, x, y);
        LeftPress(p, x, y);
        n.cornerPressed = !cornerBefore && n.windowCornerSet;
    }
}

void Disegno_MouseMove(Program &p, int buttons, int, double x, double y) {
    NavigationState &n = p.navigation;
    Control &line = p.form.LineSposta;
    if (n.orbitHeld && (buttons & (kRightButton | kMiddleButton)) != 0) {
        OrbitTo(p, x, y);
    } else if ((buttons & kMiddleButton) != 0 && n.lastButton == kMiddleButton) {
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
void Disegno_MouseUp(Program &p, int button, int, double x, double y) {
    NavigationState &n = p.navigation;
    if (n.orbitHeld && (button == kRightButton || button == kMiddleButton)) {
        n.orbitHeld = false;
        if (button == kRightButton && n.orbitTravel < kDragPixels)
            n.popupRequested = true;
    } else if (button == kLeftButton && n.cornerPressed) {
        n.cornerPressed = false;
        if (n.windowCornerSet && PixelsFromPress(p, x, y) >= kDragPixels)
            LeftPress(p, x, y);
    }
}

void Disegno_DblClick(Program &p, int button) {
    if (button == kMiddleButton)
        Ottimizza_Click(p);
}

void WheelZoom(Program &p, int steps) {
    if (WheelZoomWindow(p.view, steps))
        RedrawView(p);
}

void WheelZoomAt(Program &p, int steps, double x, double y) {
    if (WheelZoomWindowAbout(p.model, p.view, steps, x, y))
        RedrawView(p);
}

void Disegno_KeyDown(Program &p, DrawingKey key) {
    const std::array<double, 3> &a = p.view.lastAngles;
    switch (key) {
    case DrawingKey::Left:
    case DrawingKey::Right:
        SetAngle(p, 1, a[1] + (key == DrawingKey::Right ? kKeyTurnDegrees : -kKeyTurnDegrees));
        RedrawView(p);
        break;
    case DrawingKey::Up:
    case DrawingKey::Down:
        SetAngle(p, 0, a[0] + (key == DrawingKey::Up ? kKeyTurnDegrees : -kKeyTurnDegrees));
        RedrawView(p);
        break;
    case DrawingKey::PageUp:
        WheelZoom(p, 1);
        break;
    case DrawingKey::PageDown:
        WheelZoom(p, -1);
        break;
    case DrawingKey::Home:
        Ottimizza_Click(p);
        break;
    }
}

} // namespace vorna
