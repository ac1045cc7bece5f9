// The view gestures as pure functions over the view and navigation state: zoom rectangle, move,
// live pan, wheel zoom, fit, and the coordinate read-out under the cursor.
#pragma once

#include "model/structure_model.h"
#include "platform/canvas.h"
#include "projection/navigation_state.h"
#include "projection/view_state.h"

#include <optional>
#include <string>
#include <utility>

namespace vorna {

// A rectangle in drawing units as the rubber band holds it: top is the upper edge.
struct BandRect {
    double left = 0, top = 0, width = 0, height = 0;
};

// The rubber band from the first corner to the cursor; nothing while the cursor is outside the
// surface's scale, where the band stays as it was.
std::optional<BandRect> StretchBand(double cornerX, double cornerY, double x, double y,
                                    const ScaleRect &scale);

// The zoom window of a completed rectangle, in single precision as the rectangle holds it.
ViewWindow ZoomWindowOf(const BandRect &band);

// Moves the window by (dx, dy) in single precision: the current zoom window when it has a size,
// otherwise the window on screen. The point under the first click lands under the second.
void MoveView(ViewState &view, double dx, double dy);

// Live pan: the window the middle button started from, or the shown extent (no margin) when
// that was the fit state, moved by (dx, dy).
// A position in drawing units of the scale `now`, in those of `then`: the same spot of the
// surface under both.
std::pair<double, double> InScaleOf(const ScaleRect &then, const ScaleRect &now, double x,
                                    double y);
void PanView(const StructureModel &model, ViewState &view, const ViewWindow &panStart, double dx,
             double dy);

// n steps narrow (n > 0) or widen the window by a tenth on each side about its centre. True
// when the new window is worth a redraw (both sides between 0.1 and 1,000,000).
bool WheelZoomWindow(ViewState &view, int steps);

// True when the node is strictly within the pick radius of (x, y); distance is always written.
// Narrows (steps > 0) or widens the window by a tenth of its size on each side per step, about
// (x, y) rather than its centre: what lies at (x, y) stays there. A fitted view starts from
// the shown extent, which the redraw widens by the same margin as the fit did.
bool WheelZoomWindowAbout(const StructureModel &model, ViewState &view, int steps, double x,
                          double y);
bool NodePickDistance(const StructureModel &model, const ViewState &view, int node, double x,
                      double y, double pickRadius, double &distance);

// The read-out "x, y, z [Nname]" of the first live shown node near (x, y) with a colour of 1 or
// more, coordinates rounded down; empty when no node is near.
// The first live, shown node within the pick radius of (x, y), in table order; -1 for none.
int NodeUnderCursor(const StructureModel &model, const ViewState &view, double x, double y,
                    double pickRadius);
std::string CoordinateReadout(const StructureModel &model, const ViewState &view, double x,
                              double y, double pickRadius);

} // namespace vorna
