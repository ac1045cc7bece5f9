// The Canvas calls in drawing units turned into clipped pixel runs that share one pen, so that a
// painter can draw each run with one call.
#pragma once

#include "platform/canvas.h"

#include <QLineF>
#include <QPointF>
#include <QSize>

#include <vector>

namespace vorna::qt {

// An arc in pixels: angles in sixteenths of a degree, counter-clockwise as seen on the screen.
struct PixelArc {
    QPointF centre;
    double radius = 0;
    int start16 = 0;
    int span16 = 0;
};

// Consecutive primitives of one kind, colour and line width (and, for circles, one radius).
struct PaintRun {
    enum class Kind { None, Lines, Circles, Discs, Arcs };
    Kind kind = Kind::None;
    Rgb colour = 0;
    int width = 1;
    double radius = 0; // pixels, Circles and Discs
    std::vector<QLineF> lines;
    std::vector<QPointF> centres;
    std::vector<PixelArc> arcs;

    bool Empty() const { return lines.empty() && centres.empty() && arcs.empty(); }
};

// Maps the user scale onto a pixel grid, drops what cannot be seen (or is not a number) and
// hands each finished run to Paint. Painting order is kept: a run ends as soon as the next
// primitive needs another pen, or when it has grown long enough that holding more would only
// cost memory (every label of a large model is millions of strokes of one pen).
class RunCanvas : public Canvas {
public:
    explicit RunCanvas(QSize pixels, double dpiX = 96, double dpiY = 96);

    void Clear() override;
    void SetLineWidth(int pixels) override;
    void Line(double x1, double y1, double x2, double y2, const Pen &pen) override;
    void Arc(double x, double y, double radius, const Pen &pen, double startAngle,
             double endAngle) override;
    void FilledCircle(double x, double y, double radius, Rgb colour) override;
    void SetScale(const ScaleRect &scale) override { scale_ = scale; }
    ScaleRect Scale() const override { return scale_; }
    double WidthTwips() const override { return pixels_.width() * TwipsPerPixelX(); }
    double HeightTwips() const override { return pixels_.height() * TwipsPerPixelY(); }
    double TwipsPerPixelX() const override { return 1440.0 / dpiX_; }
    double TwipsPerPixelY() const override { return 1440.0 / dpiY_; }
    void Refresh() override;
    bool ShowsText(double xMin, double yMin, double xMax, double yMax,
                   double charSize) const override;

    QSize PixelSize() const { return pixels_; }
    void SetDpi(double dpiX, double dpiY);
    // Pixel position of a point in drawing units, and back.
    QPointF ToPixel(double x, double y) const;
    QPointF ToUnits(QPointF pixel) const;

protected:
    // Primitives wait in the pending run.
    bool Pending() const { return !run_.Empty(); }
    // The grid changes size; the pending run is painted first.
    void SetPixelSize(QSize pixels);
    // Paints the pending run now.
    void Flush();
    virtual void Paint(const PaintRun &run) = 0;
    virtual void Erase() = 0;
    virtual void Show() = 0;

private:
    // Makes the pending run one of this pen, painting the previous one when it differs.
    PaintRun &RunFor(PaintRun::Kind kind, Rgb colour, double radius);
    void Round(PaintRun::Kind kind, double x, double y, double radius, Rgb colour);
    double RadiusToPixels(double radius) const;

    QSize pixels_;
    double dpiX_, dpiY_;
    ScaleRect scale_;
    int lineWidth_ = 1;
    PaintRun run_;
};

// Clips a pixel segment to a rectangle (Liang-Barsky); false when nothing of it is inside.
bool ClipSegment(QLineF &segment, double left, double top, double right, double bottom);

} // namespace vorna::qt
