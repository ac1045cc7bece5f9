// The Canvas calls in drawing units turned into clipped pixel runs that share one pen, so that a
// painter can draw each run with one call.
#pragma once

#include "platform/canvas.h"

#include <QLineF>
#include <QPoint>
#include <QPointF>
#include <QSize>

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <utility>
#include <vector>

namespace vorna::qt {

// An arc in pixels: angles in sixteenths of a degree, counter-clockwise as seen on the screen.
struct PixelArc {
    QPointF centre;
    double radius = 0;
    int start16 = 0;
    int span16 = 0;
};

// A pixel of a mask and how much of it the pen covers, out of 256.
struct CoveredPixel {
    QPoint at;
    int cover = 256;
    bool operator==(const CoveredPixel &) const = default;
};

// A held shape stamped with its origin at a pixel.
struct PixelStamp {
    int shape = 0;
    QPoint at;
};

// Consecutive primitives of one kind, colour and line width (and, for circles, one radius).
struct PaintRun {
    enum class Kind { None, Lines, Circles, Discs, Arcs, Stamps };
    Kind kind = Kind::None;
    Rgb colour = 0;
    int width = 1;
    double radius = 0; // pixels, Circles and Discs
    std::vector<QLineF> lines;
    std::vector<QPointF> centres;
    std::vector<PixelArc> arcs;
    std::vector<PixelStamp> stamps;

    bool Empty() const {
        return lines.empty() && centres.empty() && arcs.empty() && stamps.empty();
    }
    std::size_t Size() const { return lines.size() + centres.size() + arcs.size() + stamps.size(); }
    void Forget() {
        lines.clear();
        centres.clear();
        arcs.clear();
        stamps.clear();
        kind = Kind::None;
    }
};

// Maps the user scale onto a pixel grid, drops what cannot be seen (or is not a number) and
// hands each finished run to Paint. The core sees logical pixels and twips; runs are in device
// pixels (logical times the device pixel ratio), so a screen at a scale of 2 gets lines one
// device pixel wide rather than doubled ones. Painting order is kept: a run ends as soon as the
// next primitive needs another pen, or when it has grown long enough that holding more would only
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
    bool Stamp(const ShapeName &name, double x, double y, const Pen &pen) override;
    bool HoldShape(const ShapeName &name, std::span<const double> strokes) override;

    QSize PixelSize() const { return pixels_; }
    double DeviceRatio() const { return ratio_; }
    // The grid the runs are painted on.
    QSize DeviceSize() const { return device_; }
    void SetDpi(double dpiX, double dpiY);
    // Logical pixel position of a point in drawing units, and back.
    QPointF ToPixel(double x, double y) const;
    QPointF ToUnits(QPointF pixel) const;

protected:
    // Primitives wait in the pending run.
    bool Pending() const { return !run_.Empty(); }
    // The grid changes size or ratio; the pending run is painted first.
    void SetPixelSize(QSize pixels, double ratio = 1);
    // Paints the pending run now.
    void Flush();
    // The pixels of a held shape, as offsets from its origin's pixel.
    const std::vector<CoveredPixel> &ShapePixels(int shape) const {
        return shapes_[static_cast<std::size_t>(shape)].pixels;
    }
    virtual void Paint(const PaintRun &run) = 0;
    virtual void Erase() = 0;
    virtual void Show() = 0;

private:
    // Makes the pending run one of this pen, painting the previous one when it differs.
    PaintRun &RunFor(PaintRun::Kind kind, Rgb colour, double radius);
    void Round(PaintRun::Kind kind, double x, double y, double radius, Rgb colour);
    double RadiusToPixels(double radius) const;
    QPointF ToDevice(double x, double y) const { return ToPixel(x, y) * ratio_; }
    // A one-pixel pen stays a hairline at any ratio; wider ones grow with it.
    int DeviceWidth() const;
    // Held shapes are rasterised for one grid and pen width; another one drops them.
    bool ShapesFitGrid() const;
    void ForgetShapes();

    struct HeldShape {
        std::vector<CoveredPixel> pixels;
        int reach = 0; // the farthest pixel from the origin, along x or y
    };
    // Open addressing over a table twice the most shapes held: a glyph is looked up for every
    // character drawn.
    struct ShapeSlot {
        ShapeName name{};
        int shape = -1;
    };
    static constexpr std::size_t kMostShapes = 4096;
    ShapeSlot &SlotOf(const ShapeName &name);

    struct TextWindow {
        QSize grid;
        int width = 0;
        ScaleRect scale;
        double xMin = 0, xMax = 0, yMin = 0, yMax = 0, perUnit = 0;
    };

    QSize pixels_;
    double ratio_ = 1;
    QSize device_;
    double dpiX_, dpiY_;
    ScaleRect scale_;
    int lineWidth_ = 1;
    PaintRun run_;
    std::vector<ShapeSlot> shapeSlots_ = std::vector<ShapeSlot>(2 * kMostShapes);
    std::vector<HeldShape> shapes_;
    ScaleRect shapeScale_;
    QSize shapeGrid_;
    int shapeWidth_ = 0;
    mutable TextWindow textWindow_;
};

// The pixels of a line between two points, each with how much of it the pen covers (out of 256):
// one pixel per step along the line, the pen's width across it, the two edges blended (Wu's
// antialiasing, widened to any width). Always walked from the same end so that a line drawn over
// another covers it pixel for pixel.
template <typename Plot>
void SmoothLine(double x1, double y1, double x2, double y2, int width, Plot plot) {
    const bool flat = std::abs(x2 - x1) >= std::abs(y2 - y1);
    if (!flat) {
        std::swap(x1, y1);
        std::swap(x2, y2);
    }
    if (x1 > x2 || (x1 == x2 && y1 > y2)) {
        std::swap(x1, x2);
        std::swap(y1, y2);
    }
    const double slope = x2 > x1 ? (y2 - y1) / (x2 - x1) : 0;
    // Clipped ends are well inside int; the casts spare a call to the maths library per line.
    const auto first = static_cast<int>(x1 + 0.5 + (x1 + 0.5 < 0 ? -1 : 0));
    const auto last = static_cast<int>(x2 + 0.5 + (x2 + 0.5 < 0 ? -1 : 0));
    // Pixel j spans [j, j + 1) across the line and the pen [low, low + width), low in 1/65536ths
    // of a pixel: a large model has millions of these steps, and whole numbers keep them cheap.
    constexpr double kOne = 65536;
    auto low = static_cast<std::int64_t>((y1 + 0.5 - width / 2.0 + (first - x1) * slope) * kOne);
    const auto step = static_cast<std::int64_t>(slope * kOne);
    auto walk = [&](auto put) {
        for (int i = first; i <= last; ++i, low += step) {
            const auto j0 = static_cast<int>(low >> 16);
            const auto part = static_cast<int>((low & 0xFFFF) >> 8); // of j0 left uncovered
            put(i, j0, 256 - part);
            for (int j = j0 + 1; j < j0 + width; ++j)
                put(i, j, 256);
            if (part > 0)
                put(i, j0 + width, part);
        }
    };
    if (flat)
        walk([plot](int i, int j, int cover) { plot(i, j, cover); });
    else
        walk([plot](int i, int j, int cover) { plot(j, i, cover); });
}

// Clips a pixel segment to a rectangle (Liang-Barsky); false when nothing of it is inside.
bool ClipSegment(QLineF &segment, double left, double top, double right, double bottom);

} // namespace vorna::qt
