// The pictures the connection's values make: the schema of the base node in its own surface,
// and a node's bars over the view in their types' colours.
#pragma once

#include "platform/canvas.h"

#include <span>

namespace vorna {

struct ColouredLine {
    double x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    Rgb colour = 0;
};

// Clears the schema's surface; with a planar schema, scales it so that the node sits in the
// middle with room for the labels around bars of the given length, and draws the bars and the
// node.
void DrawBaseNodeSchema(Canvas &canvas, bool planar, double length,
                        std::span<const ColouredLine> bars);

// Bars drawn over the view at the selected width, which then goes back to the normal one.
void DrawTypedBars(Canvas &canvas, std::span<const ColouredLine> bars, int selectedWidth,
                   int normalWidth);

} // namespace vorna
