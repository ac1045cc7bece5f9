// The Canvas calls in drawing units turned into clipped pixel runs that share one pen.
#include "ui/qt/run_canvas.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace vorna::qt {

namespace {

// Beyond this a circle cannot be told from a line on any screen; it is not drawn.
constexpr double kLargestRadius = 1e5;

// A run this long is painted before it takes more: large enough that the per-run cost vanishes.
constexpr std::size_t kLongestRun = 8192;

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
    : pixels_(pixels), dpiX_(dpiX > 0 ? dpiX : 96), dpiY_(dpiY > 0 ? dpiY : 96) {}

void RunCanvas::SetDpi(double dpiX, double dpiY) {
    if (dpiX > 0)
        dpiX_ = dpiX;
    if (dpiY > 0)
        dpiY_ = dpiY;
}

void RunCanvas::SetPixelSize(QSize pixels) {
    Flush();
    pixels_ = pixels;
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
    return std::abs(radius / scale_.width * pixels_.width());
}

void RunCanvas::Clear() {
    run_.lines.clear();
    run_.centres.clear();
    run_.arcs.clear();
    run_.kind = PaintRun::Kind::None;
    Erase();
}

void RunCanvas::SetLineWidth(int pixels) {
    lineWidth_ = std::clamp(pixels, 1, 256);
}

void RunCanvas::Flush() {
    if (!run_.Empty())
        Paint(run_);
    run_.lines.clear();
    run_.centres.clear();
    run_.arcs.clear();
    run_.kind = PaintRun::Kind::None;
}

void RunCanvas::Refresh() {
    Flush();
    Show();
}

bool RunCanvas::ShowsText(double xMin, double yMin, double xMax, double yMax,
                          double charSize) const {
    const QPointF a = ToPixel(xMin, yMin), b = ToPixel(xMax, yMax);
    const double margin = lineWidth_ + 2;
    if (std::max(a.x(), b.x()) < -margin || std::min(a.x(), b.x()) > pixels_.width() + margin ||
        std::max(a.y(), b.y()) < -margin || std::min(a.y(), b.y()) > pixels_.height() + margin)
        return false;
    // Characters under a pixel make a smear that reads as nothing.
    const double perUnit = std::max(std::abs(pixels_.width() / scale_.width),
                                    std::abs(pixels_.height() / scale_.height));
    return !(charSize * perUnit < 1);
}

PaintRun &RunCanvas::RunFor(PaintRun::Kind kind, Rgb colour, double radius) {
    if (run_.kind != kind || run_.colour != colour || run_.width != lineWidth_ ||
        run_.radius != radius ||
        run_.lines.size() + run_.centres.size() + run_.arcs.size() >= kLongestRun) {
        Flush();
        run_.kind = kind;
        run_.colour = colour;
        run_.width = lineWidth_;
        run_.radius = radius;
    }
    return run_;
}

void RunCanvas::Line(double x1, double y1, double x2, double y2, const Pen &pen) {
    QLineF segment(ToPixel(x1, y1), ToPixel(x2, y2));
    const double margin = lineWidth_ + 2;
    if (ClipSegment(segment, -margin, -margin, pixels_.width() + margin, pixels_.height() + margin))
        RunFor(PaintRun::Kind::Lines, pen.rgb, 0).lines.push_back(segment);
}

void RunCanvas::Round(PaintRun::Kind kind, double x, double y, double radius, Rgb colour) {
    const QPointF centre = ToPixel(x, y);
    const double r = RadiusToPixels(radius);
    const double reach = r + lineWidth_ + 2;
    if (!std::isfinite(centre.x()) || !std::isfinite(centre.y()) || !(r <= kLargestRadius) ||
        centre.x() < -reach || centre.y() < -reach || centre.x() > pixels_.width() + reach ||
        centre.y() > pixels_.height() + reach)
        return;
    RunFor(kind, colour, r).centres.push_back(centre);
}

void RunCanvas::Arc(double x, double y, double radius, const Pen &pen, double startAngle,
                    double endAngle) {
    if (startAngle == endAngle) {
        Round(PaintRun::Kind::Circles, x, y, radius, pen.rgb);
        return;
    }
    const QPointF centre = ToPixel(x, y);
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

void RunCanvas::FilledCircle(double x, double y, double radius, Rgb colour) {
    Round(PaintRun::Kind::Discs, x, y, radius, colour);
}

} // namespace vorna::qt
