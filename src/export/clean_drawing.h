// The extents of the drawing buffers and their clean-up before a .dis file is written.
#pragma once

#include "view/draw_buffers.h"

namespace vorna {

struct DrawingExtent {
    double minX = 0;
    double minY = 0;
    double maxX = 0;
    double maxY = 0;
};

// Smallest and largest x and y over every coordinate; all 0 when there is none.
DrawingExtent DrawingExtents(const DrawBuffers &buffers);

// In this order: styled lines lying on another line go, later copies of an arc go, texts
// without width or height go, and each coordinate within 0.0001 (on both axes) of an earlier
// kept one is merged into the earliest such, every reference following it.
void CleanDrawing(DrawBuffers &buffers);

} // namespace vorna
