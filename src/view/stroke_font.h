// The vector stroke font "font.001" that writes every label, and the text primitive over it.
#pragma once

#include "platform/canvas.h"
#include "platform/ui.h"
#include "view/draw_buffers.h"
#include "view/primitives.h"

#include <string>
#include <string_view>

namespace vorna {

// Reads programsFolder + "\font.001" into font; a missing or unreadable file is reported
// through ui and leaves the glyphs read so far (none when missing).
void LoadStrokeFont(std::string_view programsFolder, StrokeFont &font, Ui &ui);
// The file's bytes into font. False on a read error (the glyphs read so far stay).
bool ParseStrokeFont(std::string text, StrokeFont &font);

// Writes text from (x, y), the start of its baseline, at angle degrees counter-clockwise, in the
// colour of a colour code; each character advances charWidth. A canvas that keeps texts whole
// (the drawing buffers in drawing mode "gendis") gets the text instead of its strokes.
void DrawText(const StrokeFont &font, std::string_view text, double x, double y, int angle,
              double charWidth, double charHeight, int colour, Canvas &canvas);

} // namespace vorna
