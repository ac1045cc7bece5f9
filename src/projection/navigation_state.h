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
    // The left press now held set a rectangle's first corner: its release, far enough away,
    // is the second corner.
    bool cornerPressed = false;
    // A right drag (or shift + middle drag) turns the model: where it started, in drawing units
    // of panStartScale, with the angles then, and the farthest it has gone, pixels.
    bool orbitHeld = false;
    double orbitX = 0, orbitY = 0;
    double orbitStartAx = 0, orbitStartAy = 0;
    double orbitTravel = 0;
    double pressUnitsPerPixel = 1;
    // The node under the resting cursor, and the node "Trova nodo" found: rings drawn over the
    // picture (-1 for none).
    int hoverNode = -1;
    int markedNode = -1;
    double pickRadius = 0;
    // The four view offsets that start-up clears.
    std::array<double, 4> offsets{};
};

} // namespace vorna
