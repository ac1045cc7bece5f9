// The drawing primitives: each paints on a surface or, without one, appends to the drawing
// buffers that the export writers read; and the colours of the suite's colour codes.
#pragma once

#include "platform/canvas.h"
#include "platform/ui.h"
#include "view/draw_buffers.h"

#include <cstdint>

namespace vorna {

// RGB of a colour code: 0 black, 1 white, 2 blue ... 9 orange; any other code white.
Rgb ColourOfCode(int code);

// Where the primitives draw: on the surface when there is one, otherwise into the buffers
// (warnings about their limits go to ui).
struct DrawTarget {
    Canvas *surface = nullptr;
    DrawBuffers *buffers = nullptr;
    Ui *ui = nullptr;
};

// Index of a stored coordinate, reusing one of the 31 newest when it lies within 0.0001;
// -1 when the buffer is full.
std::int32_t AddCoordinate(DrawBuffers &buffers, Ui &ui, double x, double y);
void AddLineElement(DrawBuffers &buffers, Ui &ui, double x1, double y1, double x2, double y2,
                    int colour);
// A text stored whole (drawing mode "gendis"); sizes in drawing units.
void AddTextElement(DrawBuffers &buffers, Ui &ui, std::string_view text, double x, double y,
                    int angle, double charWidth, double charHeight, int colour);

// Lines shorter than 0.0001 on both axes are not drawn.
void DrawLine(const DrawTarget &target, double x1, double y1, double x2, double y2, int colour);
// A circle (equal angles) or an arc between two angles in radians; diameters of 0.0001 or less
// are not drawn.
void DrawArc(const DrawTarget &target, double x, double y, double diameter, int colour,
             double startAngle = 0, double endAngle = 0);

} // namespace vorna
