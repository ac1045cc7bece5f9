// Which elements are shown (coordinate intervals, element check boxes, thin shells), the window
// they span, and the fit of that window onto the drawing surface.
#include "projection/visibility.h"
#include "platform/tolerance.h"

#include <algorithm>
#include <cmath>

namespace vorna {
namespace {

// The closed interval widened by one drawing unit, so the rounded ends that the "Tutto"
// buttons write never cut an element off.
struct Interval {
    double a, b, width;
    Interval(double from, double to) : a(from), b(to), width(std::abs(from - to)) {}
    bool Holds(double v) const {
        return std::abs(v - a) - width <= 1.0 && std::abs(v - b) - width <= 1.0;
    }
};

struct Box {
    Interval x, y, z;
    bool Holds(const Point &p) const { return x.Holds(p.x) && y.Holds(p.y) && z.Holds(p.z); }
};

void Widen(ViewWindow &w, const ViewState &view, int point) {
    const double x = ProjectedXOf(view, point), y = ProjectedYOf(view, point);
    w.xMax = std::max(w.xMax, x);
    w.xMin = std::min(w.xMin, x);
    w.yMax = std::max(w.yMax, y);
    w.yMin = std::min(w.yMin, y);
}

} // namespace

void ApplyVisibilityFilter(const StructureModel &model, ListedElements listed,
                           const VisibilityFilter &f, ViewState &view) {
    const Box box{{f.x0, f.x1}, {f.y0, f.y1}, {f.z0, f.z1}};
    auto inside = [&](int point) { return box.Holds(PointAt(model, point)); };
    for (int i = 0; i < model.nodeCount; ++i) {
        bool shown = inside(model.nodes[i].pointIndex) && f.nodes;
        shown = shown && (listed.Node(i) ? f.analogous : f.nonAnalogous);
        view.nodeShown[i] = shown;
    }
    for (int i = 0; i < model.barCount; ++i) {
        const Bar &b = model.bars[i];
        bool shown = inside(b.pointI) && inside(b.pointJ) && f.bars;
        shown = shown && (listed.Bar(i) ? f.analogous : f.nonAnalogous);
        view.barShown[i] = shown;
    }
    for (int i = 0; i < model.shellCount; ++i) {
        const Shell &s = model.shells[i];
        const auto &v = s.vertices;
        bool shown = inside(v[0]) && inside(v[1]) && inside(v[2]) && (v[3] < 0 || inside(v[3]));
        shown = shown && f.shells;
        if (f.hideThinShells && ThicknessOf(model, s.thicknessCard) < f.minShellThickness)
            shown = false;
        view.shellShown[i] = shown;
    }
}

void ShownExtents(const StructureModel &model, const ViewState &view, ViewWindow &w) {
    if (model.nodes[0].colour < 10)
        w = {view.projectedX[0], view.projectedX[0], view.projectedY[0], view.projectedY[0]};
    for (int i = 0; i < model.nodeCount; ++i)
        if (view.nodeShown[i] && IsLive(model.nodes[i]))
            Widen(w, view, model.nodes[i].pointIndex);
    for (int i = 0; i < model.barCount; ++i)
        if (view.barShown[i] && IsLive(model.bars[i])) {
            Widen(w, view, model.bars[i].pointI);
            Widen(w, view, model.bars[i].pointJ);
        }
    for (int i = 0; i < model.shellCount; ++i)
        if (view.shellShown[i] && IsLive(model.shells[i])) {
            const auto &v = model.shells[i].vertices;
            for (int k = 0; k < 4; ++k)
                if (k < 3 || v[3] >= 0)
                    Widen(w, view, v[k]);
        }
}

bool SetViewScale(const StructureModel &model, ListedElements listed,
                  const VisibilityFilter &filter, ViewState &view, Canvas &surface) {
    ApplyVisibilityFilter(model, listed, filter, view);
    const ViewWindow &zoom = view.zoomWindow;
    ViewWindow &w = view.shownWindow;
    if (std::abs(zoom.xMax - zoom.xMin) > kTolerance &&
        std::abs(zoom.yMax - zoom.yMin) > kTolerance)
        w = zoom;
    else
        ShownExtents(model, view, w);
    if (std::abs((w.xMax - w.xMin) * (w.yMax - w.yMin)) < kTolerance)
        return false;
    // The margin of the minimum side is taken from the already enlarged window: 10 % on one
    // side, 11 % on the other, as the suite draws it.
    w.xMax += std::abs(w.xMax - w.xMin) * 0.1;
    w.xMin -= std::abs(w.xMax - w.xMin) * 0.1;
    w.yMax += std::abs(w.yMax - w.yMin) * 0.1;
    w.yMin -= std::abs(w.yMax - w.yMin) * 0.1;

    const double width = surface.WidthTwips(), height = surface.HeightTwips();
    const double k =
        std::min(width / std::abs(w.xMax - w.xMin), height / std::abs(w.yMax - w.yMin));
    if (!(std::abs(k) > 0) || !std::isfinite(k))
        return false; // a surface without size has no scale to set
    view.viewScale = std::abs(k);
    const double visibleW = width / k, visibleH = height / k;
    const double xc = (w.xMax + w.xMin) / 2, yc = (w.yMax + w.yMin) / 2;
    surface.SetScale({xc - visibleW / 2, yc + visibleH / 2, visibleW, -visibleH});
    return true;
}

double PixelsToUnits(const Canvas &surface, double pixels) {
    const ScaleRect s = surface.Scale();
    const double w = surface.WidthTwips(), h = surface.HeightTwips();
    if (!(w > 0) || !(h > 0))
        return 0;
    const double pxX = s.width / w * surface.TwipsPerPixelX();
    const double pxY = s.height / h * surface.TwipsPerPixelY();
    return std::min(std::abs(pixels * pxX), std::abs(pixels * pxY));
}

} // namespace vorna
