// A drawing surface with a user scale in drawing units (y grows upwards), as the core sees it.
#pragma once

#include "platform/colour.h"

#include <span>
#include <string_view>

namespace vorna {

// How an element is drawn: the screen paints its RGB (a highlight colour, or the colour of its
// code), a drawing file keeps the element's own colour code.
struct Pen {
    Rgb rgb = 0;
    int code = 0;
};

// The user scale: drawing-unit coordinates of the top-left corner and the signed extent
// (height negative when y grows upwards).
struct ScaleRect {
    double left = 0;
    double top = 0;
    double width = 1;
    double height = 1;
    friend bool operator==(const ScaleRect &, const ScaleRect &) = default;
};

// Names a shape drawn many times over (a glyph at one size and angle): equal names, equal strokes.
using ShapeName = std::array<double, 4>;

class Canvas {
public:
    virtual ~Canvas() = default;
    virtual void Clear() = 0;
    virtual void SetLineWidth(int pixels) = 0;
    virtual void Line(double x1, double y1, double x2, double y2, const Pen &pen) = 0;
    // A circle outline, or the arc between two angles (radians, counter-clockwise) when they
    // differ.
    virtual void Arc(double x, double y, double radius, const Pen &pen, double startAngle,
                     double endAngle) = 0;
    virtual void FilledCircle(double x, double y, double radius, Rgb colour) = 0;
    virtual void SetScale(const ScaleRect &scale) = 0;
    virtual ScaleRect Scale() const = 0;
    // Outer size of the surface in twips, and the screen's twips per pixel.
    virtual double WidthTwips() const = 0;
    virtual double HeightTwips() const = 0;
    virtual double TwipsPerPixelX() const = 0;
    virtual double TwipsPerPixelY() const = 0;
    // The drawing is complete: show it.
    virtual void Refresh() = 0;
    // A drawing file keeps a text whole (true); a screen wants its strokes instead (false).
    // Sizes in drawing units, the angle in whole degrees, the colour a colour code.
    virtual bool KeepText(std::string_view /*text*/, double /*x*/, double /*y*/, int /*angle*/,
                          double /*charWidth*/, double /*charHeight*/, int /*colour*/) {
        return false;
    }
    // Whether a text lying inside the box (drawing units), its characters charSize across, can
    // be seen. A screen leaves out one wholly outside it or with characters under a pixel; a
    // drawing file keeps every text.
    virtual bool ShowsText(double /*xMin*/, double /*yMin*/, double /*xMax*/, double /*yMax*/,
                           double /*charSize*/) const {
        return true;
    }
    // A shape drawn many times over: a screen may rasterise it once and stamp it wherever it
    // comes again. Stamp draws a shape the surface holds, with its origin at (x, y), and says
    // whether it did; HoldShape hands it the shape's strokes (x1, y1, x2, y2 in drawing units
    // from the origin) and says whether it keeps them. A drawing file keeps none.
    virtual bool Stamp(const ShapeName & /*name*/, double /*x*/, double /*y*/,
                       const Pen & /*pen*/) {
        return false;
    }
    virtual bool HoldShape(const ShapeName & /*name*/, std::span<const double> /*strokes*/) {
        return false;
    }
};

} // namespace vorna
