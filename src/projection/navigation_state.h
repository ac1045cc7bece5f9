// The state of the view gestures (zoom rectangle, move, pan) shared with window selection.
#pragma once

#include "platform/canvas.h"
#include "projection/view_state.h"

namespace vorna {

struct NavigationState {
    bool zoomWindowPending = false;
    bool movePending = false;
    bool moveLineActive = false;
    bool windowCornerSet = false; // shared with window selection
    double cornerX = 0;
    double cornerY = 0;
    ViewWindow panStartWindow;
    // Disegno's scale when the middle button went down: the pan measures every move in it, as
    // each redraw of the drag changes the scale the surface reports positions in.
    ScaleRect panStartScale;
    int lastButton = 0; // 1 left, 2 right, 4 middle
    double pickRadius = 0;
    // A right click asks the front end to pop up the "Visualizza" menu at the cursor.
    bool popupRequested = false;
    // The four view offsets that start-up clears.
    std::array<double, 4> offsets{};
};

} // namespace vorna
