// The suite's drawing file (.dis): the whole text from the drawing buffers, and the save.
#pragma once

#include "export/clean_drawing.h"
#include "platform/user_message.h"

#include <string>
#include <string_view>

namespace vorna {

// The file as written: version line (4 when formatFlag is 4, else 3), extents, then the points,
// an always empty section, lines, texts and arcs, each with its count; CR LF line ends.
std::string DisFileText(const DrawBuffers &buffers, const DrawingExtent &extent, int formatFlag);

// Takes the extents, cleans the buffers and writes the file; fileName is the Windows-1252 name
// the save dialog returned. The message to show tells whether it was written.
UserMessage SaveDisDrawing(std::string_view fileName, DrawBuffers &buffers, int formatFlag);

} // namespace vorna
