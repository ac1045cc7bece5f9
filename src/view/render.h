// The rendering traversal: axis triad, shells, bars, nodes and labels, with the highlights of
// the base node, the base bars and the analogous nodes. One traversal serves the screen and the
// export into the drawing buffers.
#pragma once

#include "model/structure_model.h"
#include "options/options.h"
#include "platform/canvas.h"
#include "projection/listed_elements.h"
#include "projection/view_state.h"
#include "view/draw_buffers.h"

#include <cstdint>
#include <span>
#include <vector>

namespace vorna {

// A bar drawn in a colour of its own.
struct ColouredBar {
    int bar = 0;
    Rgb colour = 0;
};

// The joint being looked at in the review of the list: its node ringed and its bars drawn
// thick, each in its colour, over the picture whatever the filters hide. The screen only.
struct LookedAtJoint {
    int node = -1;
    std::vector<ColouredBar> bars;
};

// What the connection highlights: the base node, its bars, the listed nodes and bars, and the
// joint looked at (none when its node is -1).
struct Highlights {
    int baseNode = -1;
    std::span<const std::int16_t> baseBars;
    ListedElements listed;
    const LookedAtJoint *lookedAt = nullptr;
};

struct DrawInput {
    const StructureModel &model;
    const ViewState &view;
    const DisplayOptions &display;
    const InternalOptions &internal;
    Highlights highlights;
    const StrokeFont &font;
    bool showAxes = true; // VisAssi
    // The fill of each node's circle by its joint type ("Colora i tipi nel disegno"), indexed
    // by node; 0 for none, and empty when the types are not coloured. The screen only.
    std::span<const Rgb> nodeFills = {};
};

// The colour a shown node is drawn in now: its fill when it has one, else its circle's.
Rgb NodeDrawnColour(const DrawInput &in, int node);

// Clears the surface and paints the view on it, highlights and line widths included.
void DrawStructure(const DrawInput &in, Canvas &surface);

// The export pass: the same traversal into the drawing buffers in drawing mode "gendis", every
// element in its own colour code, texts kept whole. The surface is only measured: its scale
// places the triad and turns pixel sizes into drawing units.
void ExportDrawing(const DrawInput &in, const Canvas &surface, DrawBuffers &buffers);

} // namespace vorna
