// Mouse and wheel events of the drawing surface Disegno: the view gestures, and the left-button
// rules shared with window selection and the direct pick.
#include "app/commands.h"

#include "projection/navigation.h"
#include "projection/visibility.h"
#include "selection/selection_modes.h"

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

} // namespace

void Disegno_MouseDown(Program &p, int button, int, double x, double y) {
    NavigationState &n = p.navigation;
    n.lastButton = button;
    if (button == kRightButton) {
        n.popupRequested = true;
    } else if (button == kMiddleButton) {
        Place(p.form.LineSposta, x, y, x, y);
        n.panStartWindow = p.view.zoomWindow;
        n.panStartScale = p.disegno.Scale();
    } else if (button == kLeftButton) {
        LeftPress(p, x, y);
    }
}

void Disegno_MouseMove(Program &p, int buttons, int, double x, double y) {
    NavigationState &n = p.navigation;
    Control &line = p.form.LineSposta;
    if ((buttons & kMiddleButton) != 0 && n.lastButton == kMiddleButton) {
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
    if (p.form.VisCoord.checked)
        p.form.LabCoord.caption = CoordinateReadout(p.model, p.view, x, y, n.pickRadius);
}

// Every gesture completes on presses; a release ends nothing.
void Disegno_MouseUp(Program &, int, int, double, double) {}

void Disegno_DblClick(Program &p, int button) {
    if (button == kMiddleButton)
        Ottimizza_Click(p);
}

void WheelZoom(Program &p, int steps) {
    if (WheelZoomWindow(p.view, steps))
        RedrawView(p);
}

} // namespace vorna
