// The vector stroke font "font.001" that writes every label, and the text primitive over it.
#pragma once

#include "platform/canvas.h"
#include "platform/user_message.h"
#include "view/draw_buffers.h"
#include "view/primitives.h"

#include <optional>
#include <string>
#include <string_view>

namespace vorna {

// Reads programsFolder + "\font.001" into font (found in programsPath, the folder as spelled,
// when given). A missing or unreadable file leaves the glyphs read so far (none when missing) and
// gives the message to show.
std::optional<UserMessage> LoadStrokeFont(std::string_view programsFolder, StrokeFont &font,
                                          std::string_view programsPath = {});
// The file's bytes into font. False on a read error (the glyphs read so far stay).
bool ParseStrokeFont(std::string text, StrokeFont &font);

// Whether a text of that many characters, starting anywhere within spread of (x, y) at any
// angle, can be seen on the canvas: a screen skips the strokes of one that cannot.
bool TextMayShow(const StrokeFont &font, const Canvas &canvas, std::size_t chars, double x,
                 double y, double spread, double charWidth, double charHeight);

// Writes text from (x, y), the start of its baseline, at angle degrees counter-clockwise, in the
// colour of a colour code; each character advances charWidth. A canvas that keeps texts whole
// (the drawing buffers in drawing mode "gendis") gets the text instead of its strokes; a screen
// leaves out a text it cannot show.
void DrawText(const StrokeFont &font, std::string_view text, double x, double y, int angle,
              double charWidth, double charHeight, int colour, Canvas &canvas);

} // namespace vorna
