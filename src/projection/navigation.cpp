// The view gestures as pure functions over the view and navigation state: zoom rectangle, move,
// live pan, wheel zoom, fit, and the coordinate read-out under the cursor.
#include "projection/navigation.h"

#include "platform/number_text.h"
#include "platform/tolerance.h"
#include "projection/visibility.h"

#include <algorithm>
#include <cmath>

namespace vorna {
namespace {

bool HasSize(const ViewWindow &w) {
    return std::abs(w.xMax - w.xMin) >= kTolerance || std::abs(w.yMax - w.yMin) >= kTolerance;
}

ViewWindow Shifted(const ViewWindow &w, double dx, double dy) {
    return {w.xMax - dx, w.xMin - dx, w.yMax - dy, w.yMin - dy};
}

// The gestures measure in single precision, as the overlay controls hold their positions.
double Single(double v) {
    return static_cast<double>(static_cast<float>(v));
}

} // namespace

std::optional<BandRect> StretchBand(double cornerX, double cornerY, double x, double y,
                                    const ScaleRect &s) {
    const bool insideX = s.left <= x && x <= s.left + s.width;
    const bool insideY = s.top + s.height <= y && y <= s.top;
    if (!insideX || !insideY)
        return std::nullopt;
    return BandRect{std::min(cornerX, x), std::max(cornerY, y), std::abs(cornerX - x),
                    std::abs(cornerY - y)};
}

ViewWindow ZoomWindowOf(const BandRect &band) {
    const float left = static_cast<float>(band.left), top = static_cast<float>(band.top);
    const float width = static_cast<float>(band.width), height = static_cast<float>(band.height);
    return {left + width, left, top, top - height};
}

void MoveView(ViewState &view, double dx, double dy) {
    dx = Single(dx);
    dy = Single(dy);
    view.zoomWindow =
        Shifted(HasSize(view.zoomWindow) ? view.zoomWindow : view.shownWindow, dx, dy);
}

std::pair<double, double> InScaleOf(const ScaleRect &then, const ScaleRect &now, double x,
                                    double y) {
    return {then.left + (x - now.left) / now.width * then.width,
            then.top + (y - now.top) / now.height * then.height};
}

void PanView(const StructureModel &model, ViewState &view, const ViewWindow &panStart, double dx,
             double dy) {
    dx = Single(dx);
    dy = Single(dy);
    if (HasSize(panStart)) {
        view.zoomWindow = Shifted(panStart, dx, dy);
        return;
    }
    ShownExtents(model, view, view.shownWindow);
    view.zoomWindow = Shifted(view.shownWindow, dx, dy);
}

bool WheelZoomWindow(ViewState &view, int steps) {
    ViewWindow &z = view.zoomWindow;
    if (std::abs(z.xMax - z.xMin) < 0.1 || std::abs(z.yMax - z.yMin) < 0.1)
        z = view.shownWindow;
    const double dx = z.xMax - z.xMin, dy = z.yMax - z.yMin;
    z.xMax -= 0.1 * steps * dx;
    z.xMin += 0.1 * steps * dx;
    z.yMax -= 0.1 * steps * dy;
    z.yMin += 0.1 * steps * dy;
    const double w = std::abs(z.xMax - z.xMin), h = std::abs(z.yMax - z.yMin);
    return w < 1000000 && h < 1000000 && w > 0.1 && h > 0.1;
}

bool WheelZoomWindowAbout(const StructureModel &model, ViewState &view, int steps, double x,
                          double y) {
    ViewWindow &z = view.zoomWindow;
    if (std::abs(z.xMax - z.xMin) < 0.1 || std::abs(z.yMax - z.yMin) < 0.1)
        ShownExtents(model, view, z);
    const double keep = 1 - 0.2 * steps;
    z = {x + (z.xMax - x) * keep, x + (z.xMin - x) * keep, y + (z.yMax - y) * keep,
         y + (z.yMin - y) * keep};
    const double w = std::abs(z.xMax - z.xMin), h = std::abs(z.yMax - z.yMin);
    return w < 1000000 && h < 1000000 && w > 0.1 && h > 0.1;
}

bool NodePickDistance(const StructureModel &model, const ViewState &view, int node, double x,
                      double y, double pickRadius, double &distance) {
    const int point = node >= 0 && node < kNodeCapacity ? model.nodes[node].pointIndex : -1;
    const double dx = ProjectedXOf(view, point) - x, dy = ProjectedYOf(view, point) - y;
    distance = std::sqrt(dx * dx + dy * dy);
    return distance < pickRadius;
}

int NodeUnderCursor(const StructureModel &model, const ViewState &view, double x, double y,
                    double pickRadius) {
    for (int i = 0; i < model.nodeCount; ++i) {
        const Node &n = model.nodes[i];
        double distance = 0;
        if (n.name >= 1 && n.colour >= 1 && view.nodeShown[i] &&
            NodePickDistance(model, view, i, x, y, pickRadius, distance))
            return i;
    }
    return -1;
}

std::string CoordinateReadout(const StructureModel &model, const ViewState &view, double x,
                              double y, double pickRadius) {
    const int i = NodeUnderCursor(model, view, x, y, pickRadius);
    if (i < 0)
        return {};
    const Node &n = model.nodes[i];
    const Point &p = PointAt(model, n.pointIndex);
    auto whole = [](double v) { return NumberText(std::floor(v)); };
    return whole(p.x) + ", " + whole(p.y) + ", " + whole(p.z) + " [N" + IntText(n.name) + "]";
}

} // namespace vorna
