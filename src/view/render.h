// The rendering traversal: axis triad, shells, bars, nodes and labels, with the highlights of
// the base node, the base bars and the analogous nodes. One traversal serves the screen and the
// export into the drawing buffers.
#pragma once

#include "connection/connection_state.h"
#include "model/structure_model.h"
#include "options/options.h"
#include "platform/canvas.h"
#include "view/draw_buffers.h"
#include "view/view_state.h"

namespace vorna {

struct DrawInput {
    const StructureModel &model;
    const ViewState &view;
    const DisplayOptions &display;
    const InternalOptions &internal;
    const ConnectionState &connection;
    const StrokeFont &font;
    bool showAxes = true; // VisAssi
};

// Clears the surface and paints the view on it, highlights and line widths included.
void DrawStructure(const DrawInput &in, Canvas &surface);

// The export pass: the same traversal into the drawing buffers in drawing mode "gendis", every
// element in its own colour code, texts kept whole. The surface is only measured: its scale
// places the triad and turns pixel sizes into drawing units.
void ExportDrawing(const DrawInput &in, const Canvas &surface, DrawBuffers &buffers);

} // namespace vorna
