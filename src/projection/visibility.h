// Which elements are shown (coordinate intervals, element check boxes, thin shells), the window
// they span, and the fit of that window onto the drawing surface.
#pragma once

#include "model/structure_model.h"
#include "platform/canvas.h"
#include "projection/listed_elements.h"
#include "projection/view_state.h"

namespace vorna {

// The side bar's filters as plain values. Interval ends may come in either order.
struct VisibilityFilter {
    double x0 = 0, x1 = 0, y0 = 0, y1 = 0, z0 = 0, z1 = 0;
    bool nodes = true, bars = true, shells = true;
    bool analogous = true, nonAnalogous = true;
    bool hideThinShells = false;  // display option 1
    double minShellThickness = 0; // display option 2
};

// Recomputes every shown flag. Liveness is not looked at: drawing and fitting skip dead
// elements themselves.
void ApplyVisibilityFilter(const StructureModel &model, ListedElements listed,
                           const VisibilityFilter &filter, ViewState &view);

// Widens the window to the projected extent of the live shown elements; starts from point 0
// when node 0 is live, otherwise from the window passed in.
void ShownExtents(const StructureModel &model, const ViewState &view, ViewWindow &window);

// Filters, fits the zoom window (or the shown elements) with its margin and sets the surface's
// user scale. False when the shown elements have no extent: the scale is left as it was.
bool SetViewScale(const StructureModel &model, ListedElements listed,
                  const VisibilityFilter &filter, ViewState &view, Canvas &surface);

// n pixels in drawing units on the surface's current scale (the smaller of the two axes).
double PixelsToUnits(const Canvas &surface, double pixels);

} // namespace vorna
