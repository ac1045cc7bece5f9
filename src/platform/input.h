// The user's input on the drawing and the answer line as the core receives it: typed mouse
// events and keys, whichever front end (the window, a script) delivers them.
#pragma once

namespace vorna {

// Button codes as the program has always counted them; a mask of them while moving.
enum MouseButton : int { kNoButton = 0, kLeftButton = 1, kRightButton = 2, kMiddleButton = 4 };

struct Modifiers {
    bool shift = false;
    bool control = false;
    bool alt = false;
    // From the program's shift-state code: 1 shift, 2 ctrl, 4 alt, summed.
    static Modifiers FromCode(int code) {
        return {(code & 1) != 0, (code & 2) != 0, (code & 4) != 0};
    }
};

struct MouseEvent {
    enum class Kind { Press, Release, Move, DoubleClick, Wheel };
    Kind kind = Kind::Move;
    MouseButton button = kNoButton; // pressed, released or double-clicked
    int held = kNoButton;           // the buttons held during a move
    Modifiers modifiers{};
    double x = 0, y = 0; // drawing units of the surface
    int wheelSteps = 0;  // whole notches, positive away from the user (zoom in)
};

enum class Key { Enter, Escape, Left, Right, Up, Down, PageUp, PageDown, Home };

} // namespace vorna
