// The drawing primitives over any Canvas, the colours of the suite's colour codes, and the
// drawing buffers as one more Canvas: the export pass draws into them.
#pragma once

#include "platform/canvas.h"
#include "view/draw_buffers.h"

#include <cstdint>
#include <string_view>

namespace vorna {

// An element drawn in the colour of its own code.
Pen PenOfCode(int code);

// Lines shorter than 0.0001 on both axes are not drawn.
void DrawLine(Canvas &canvas, double x1, double y1, double x2, double y2, const Pen &pen);
// A circle (equal angles) or an arc between two angles in radians; diameters of 0.0001 or less
// are not drawn.
void DrawArc(Canvas &canvas, double x, double y, double diameter, const Pen &pen,
             double startAngle = 0, double endAngle = 0);

// Index of a stored coordinate, reusing one of the 31 newest when it lies within 0.0001;
// -1 when the buffer is full. The warnings about the limits go to buffers.warnings.
std::int32_t AddCoordinate(DrawBuffers &buffers, double x, double y);
void AddLineElement(DrawBuffers &buffers, double x1, double y1, double x2, double y2, int colour);
void AddArcElement(DrawBuffers &buffers, double x, double y, double radius, int colour,
                   double startAngle, double endAngle);
// A text stored whole; sizes in drawing units.
void AddTextElement(DrawBuffers &buffers, std::string_view text, double x, double y, int angle,
                    double charWidth, double charHeight, int colour);

// The drawing buffers as a surface. Every element keeps its own colour code, whatever colour a
// screen would show it in; line widths do not exist; circles become arc elements; texts are kept
// whole in drawing mode "gendis", stroked into lines otherwise. Scale and size are those of the
// surface measured, so that pixel sizes mean the same as on screen.
class BufferCanvas : public Canvas {
public:
    BufferCanvas(const Canvas &measured, DrawBuffers &buffers, bool gendis)
        : measured_(measured), buffers_(buffers), gendis_(gendis) {}

    void Clear() override {}
    void SetLineWidth(int) override {}
    void Line(double x1, double y1, double x2, double y2, const Pen &pen) override {
        AddLineElement(buffers_, x1, y1, x2, y2, pen.code);
    }
    void Arc(double x, double y, double radius, const Pen &pen, double startAngle,
             double endAngle) override {
        AddArcElement(buffers_, x, y, radius, pen.code, startAngle, endAngle);
    }
    void FilledCircle(double, double, double, Rgb) override {}
    void SetScale(const ScaleRect &) override {}
    ScaleRect Scale() const override { return measured_.Scale(); }
    double WidthTwips() const override { return measured_.WidthTwips(); }
    double HeightTwips() const override { return measured_.HeightTwips(); }
    double TwipsPerPixelX() const override { return measured_.TwipsPerPixelX(); }
    double TwipsPerPixelY() const override { return measured_.TwipsPerPixelY(); }
    void Refresh() override {}
    bool KeepText(std::string_view text, double x, double y, int angle, double charWidth,
                  double charHeight, int colour) override;

private:
    const Canvas &measured_;
    DrawBuffers &buffers_;
    bool gendis_;
};

} // namespace vorna
