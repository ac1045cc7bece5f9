// The vector stroke font "font.001" that writes every label, and the text primitive over it.
#pragma once

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

// Writes text from (x, y), the start of its baseline, at angle degrees counter-clockwise; each
// character advances charWidth. In drawing mode "gendis" (target without a surface, buffers
// flagged) the text is stored whole instead of as strokes.
void DrawText(const StrokeFont &font, std::string_view text, double x, double y, int angle,
              double charWidth, double charHeight, int colour, const DrawTarget &target);

} // namespace vorna
