// The Canvas calls in drawing units turned into clipped pixel runs that share one pen.
#include "ui/qt/run_canvas.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <numbers>
#include <tuple>

namespace vorna::qt {

namespace {

// Beyond this a circle cannot be told from a line on any screen; it is not drawn.
constexpr double kLargestRadius = 1e5;

// A run this long is painted before it takes more: large enough that the per-run cost vanishes.
constexpr std::size_t kLongestRun = 8192;

// A shape wider than this is stroked line by line: a stamp would be mostly empty.
constexpr double kLargestShape = 512;

double Degrees16(double radians) {
    return radians * 180.0 / std::numbers::pi * 16.0;
}

} // namespace

bool ClipSegment(QLineF &segment, double left, double top, double right, double bottom) {
    const double x1 = segment.x1(), y1 = segment.y1();
    const double dx = segment.x2() - x1, dy = segment.y2() - y1;
    if (!std::isfinite(x1) || !std::isfinite(y1) || !std::isfinite(dx) || !std::isfinite(dy))
        return false;
    double t0 = 0, t1 = 1;
    // Each edge as p * t <= q.
    const double p[4] = {-dx, dx, -dy, dy};
    const double q[4] = {x1 - left, right - x1, y1 - top, bottom - y1};
    for (int i = 0; i < 4; ++i) {
        if (p[i] == 0) {
            if (q[i] < 0)
                return false;
            continue;
        }
        double t = q[i] / p[i];
        if (p[i] < 0) {
            if (t > t1)
                return false;
            t0 = std::max(t0, t);
        } else {
            if (t < t0)
                return false;
            t1 = std::min(t1, t);
        }
    }
    if (t0 > 0 || t1 < 1)
        segment = QLineF(x1 + t0 * dx, y1 + t0 * dy, x1 + t1 * dx, y1 + t1 * dy);
    return true;
}

RunCanvas::RunCanvas(QSize pixels, double dpiX, double dpiY)
    : pixels_(pixels), device_(pixels), dpiX_(dpiX > 0 ? dpiX : 96), dpiY_(dpiY > 0 ? dpiY : 96) {}

void RunCanvas::SetDpi(double dpiX, double dpiY) {
    if (dpiX > 0)
        dpiX_ = dpiX;
    if (dpiY > 0)
        dpiY_ = dpiY;
}

void RunCanvas::SetPixelSize(QSize pixels, double ratio) {
    Flush();
    pixels_ = pixels;
    ratio_ = ratio > 0 && std::isfinite(ratio) ? ratio : 1;
    device_ = QSize(static_cast<int>(std::lround(pixels.width() * ratio_)),
                    static_cast<int>(std::lround(pixels.height() * ratio_)));
}

int RunCanvas::DeviceWidth() const {
    return lineWidth_ <= 1 ? 1 : std::max(1, static_cast<int>(std::lround(lineWidth_ * ratio_)));
}

QPointF RunCanvas::ToPixel(double x, double y) const {
    return {(x - scale_.left) / scale_.width * pixels_.width(),
            (y - scale_.top) / scale_.height * pixels_.height()};
}

QPointF RunCanvas::ToUnits(QPointF pixel) const {
    double w = pixels_.width() > 0 ? pixels_.width() : 1;
    double h = pixels_.height() > 0 ? pixels_.height() : 1;
    return {scale_.left + pixel.x() * scale_.width / w, scale_.top + pixel.y() * scale_.height / h};
}

double RunCanvas::RadiusToPixels(double radius) const {
    return std::abs(radius / scale_.width * pixels_.width()) * ratio_;
}

void RunCanvas::Clear() {
    run_.Forget();
    Erase();
}

void RunCanvas::SetLineWidth(int pixels) {
    lineWidth_ = std::clamp(pixels, 1, 256);
}

void RunCanvas::Flush() {
    if (!run_.Empty())
        Paint(run_);
    run_.Forget();
}

void RunCanvas::Refresh() {
    Flush();
    Show();
}

bool RunCanvas::ShowsText(double xMin, double yMin, double xMax, double yMax,
                          double charSize) const {
    // The surface and its margin in drawing units, worked out once per grid: a large model asks
    // this for every label.
    TextWindow &w = textWindow_;
    if (w.grid != pixels_ || w.width != lineWidth_ || w.scale.left != scale_.left ||
        w.scale.top != scale_.top || w.scale.width != scale_.width ||
        w.scale.height != scale_.height) {
        const double margin = lineWidth_ + 2;
        const QPointF a = ToUnits({-margin, -margin});
        const QPointF b = ToUnits({pixels_.width() + margin, pixels_.height() + margin});
        w = {pixels_,
             lineWidth_,
             scale_,
             std::min(a.x(), b.x()),
             std::max(a.x(), b.x()),
             std::min(a.y(), b.y()),
             std::max(a.y(), b.y()),
             std::max(std::abs(pixels_.width() / scale_.width),
                      std::abs(pixels_.height() / scale_.height))};
    }
    // Characters under a pixel make a smear that reads as nothing.
    if (charSize * w.perUnit < 1)
        return false;
    return !(xMax < w.xMin || xMin > w.xMax || yMax < w.yMin || yMin > w.yMax);
}

PaintRun &RunCanvas::RunFor(PaintRun::Kind kind, Rgb colour, double radius) {
    const int width = DeviceWidth();
    if (run_.kind != kind || run_.colour != colour || run_.width != width ||
        run_.radius != radius || run_.Size() >= kLongestRun) {
        Flush();
        run_.kind = kind;
        run_.colour = colour;
        run_.width = width;
        run_.radius = radius;
    }
    return run_;
}

void RunCanvas::Line(double x1, double y1, double x2, double y2, const Pen &pen) {
    QLineF segment(ToDevice(x1, y1), ToDevice(x2, y2));
    const double margin = DeviceWidth() + 2;
    if (ClipSegment(segment, -margin, -margin, device_.width() + margin, device_.height() + margin))
        RunFor(PaintRun::Kind::Lines, pen.rgb, 0).lines.push_back(segment);
}

void RunCanvas::Round(PaintRun::Kind kind, double x, double y, double radius, Rgb colour) {
    const QPointF centre = ToDevice(x, y);
    const double r = RadiusToPixels(radius);
    const double reach = r + DeviceWidth() + 2;
    if (!std::isfinite(centre.x()) || !std::isfinite(centre.y()) || !(r <= kLargestRadius) ||
        centre.x() < -reach || centre.y() < -reach || centre.x() > device_.width() + reach ||
        centre.y() > device_.height() + reach)
        return;
    RunFor(kind, colour, r).centres.push_back(centre);
}

void RunCanvas::Arc(double x, double y, double radius, const Pen &pen, double startAngle,
                    double endAngle) {
    if (startAngle == endAngle) {
        Round(PaintRun::Kind::Circles, x, y, radius, pen.rgb);
        return;
    }
    const QPointF centre = ToDevice(x, y);
    const double r = RadiusToPixels(radius);
    double start = Degrees16(startAngle), span = Degrees16(endAngle) - start;
    if (!std::isfinite(centre.x()) || !std::isfinite(centre.y()) || !(r <= kLargestRadius) ||
        !std::isfinite(start) || !std::isfinite(span))
        return;
    // The arc runs counter-clockwise from the start to the end, across zero when it must.
    span = std::fmod(span, 5760.0);
    if (span <= 0)
        span += 5760.0;
    start = std::fmod(start, 5760.0);
    RunFor(PaintRun::Kind::Arcs, pen.rgb, 0)
        .arcs.push_back(
            {centre, r, static_cast<int>(std::lround(start)), static_cast<int>(std::lround(span))});
}

RunCanvas::ShapeSlot &RunCanvas::SlotOf(const ShapeName &name) {
    std::uint64_t h = 0;
    for (double v : name)
        h = (h ^ std::bit_cast<std::uint64_t>(v)) * 0x9E3779B97F4A7C15u;
    // The table is a power of two: its top bits pick the slot.
    const std::size_t mask = shapeSlots_.size() - 1;
    for (std::size_t i = static_cast<std::size_t>(h >> 51) & mask;; i = (i + 1) & mask) {
        ShapeSlot &slot = shapeSlots_[i];
        if (slot.shape < 0 || slot.name == name)
            return slot;
    }
}

bool RunCanvas::ShapesFitGrid() const {
    return shapeGrid_ == device_ && shapeWidth_ == lineWidth_ && shapeScale_.left == scale_.left &&
           shapeScale_.top == scale_.top && shapeScale_.width == scale_.width &&
           shapeScale_.height == scale_.height;
}

void RunCanvas::ForgetShapes() {
    Flush(); // the pending run may stamp them
    // Glyphs at a few sizes and angles are a few hundred shapes; past the most the cache restarts.
    if (!shapes_.empty())
        std::fill(shapeSlots_.begin(), shapeSlots_.end(), ShapeSlot{});
    shapes_.clear();
    shapeGrid_ = device_;
    shapeWidth_ = lineWidth_;
    shapeScale_ = scale_;
}

bool RunCanvas::Stamp(const ShapeName &name, double x, double y, const Pen &pen) {
    if (!ShapesFitGrid()) {
        ForgetShapes();
        return false;
    }
    const int shape = SlotOf(name).shape;
    if (shape < 0)
        return false;
    const int reach = shapes_[static_cast<std::size_t>(shape)].reach;
    const QPointF at = ToDevice(x, y);
    // Wholly outside (or nowhere): drawn, as far as anyone can see.
    if (!(at.x() >= -reach && at.y() >= -reach && at.x() <= device_.width() + reach &&
          at.y() <= device_.height() + reach))
        return true;
    RunFor(PaintRun::Kind::Stamps, pen.rgb, 0)
        .stamps.push_back({shape, QPoint(static_cast<int>(std::lround(at.x())),
                                         static_cast<int>(std::lround(at.y())))});
    return true;
}

bool RunCanvas::HoldShape(const ShapeName &name, std::span<const double> strokes) {
    if (!ShapesFitGrid() || shapes_.size() >= kMostShapes)
        ForgetShapes();
    const double kx = device_.width() / scale_.width, ky = device_.height() / scale_.height;
    HeldShape shape;
    for (std::size_t i = 0; i + 3 < strokes.size(); i += 4) {
        const double ends[4] = {strokes[i] * kx, strokes[i + 1] * ky, strokes[i + 2] * kx,
                                strokes[i + 3] * ky};
        for (double e : ends)
            if (!(std::abs(e) <= kLargestShape))
                return false;
        SmoothLine(ends[0], ends[1], ends[2], ends[3], DeviceWidth(),
                   [&shape](int px, int py, int cover) {
                       shape.pixels.push_back({QPoint(px, py), cover});
                   });
    }
    // Strokes that cross keep the larger cover of a pixel.
    auto before = [](const CoveredPixel &a, const CoveredPixel &b) {
        return std::tuple(a.at.y(), a.at.x(), b.cover) < std::tuple(b.at.y(), b.at.x(), a.cover);
    };
    std::sort(shape.pixels.begin(), shape.pixels.end(), before);
    shape.pixels.erase(
        std::unique(shape.pixels.begin(), shape.pixels.end(),
                    [](const CoveredPixel &a, const CoveredPixel &b) { return a.at == b.at; }),
        shape.pixels.end());
    for (const CoveredPixel &p : shape.pixels)
        shape.reach = std::max({shape.reach, std::abs(p.at.x()), std::abs(p.at.y())});
    ShapeSlot &slot = SlotOf(name);
    slot.name = name;
    slot.shape = static_cast<int>(shapes_.size());
    shapes_.push_back(std::move(shape));
    return true;
}

void RunCanvas::FilledCircle(double x, double y, double radius, Rgb colour) {
    Round(PaintRun::Kind::Discs, x, y, radius, colour);
}

} // namespace vorna::qt
