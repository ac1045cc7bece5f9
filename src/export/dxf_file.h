// The drawing buffers as an ASCII DXF file: HEADER with the extents, one layer, and LINE, TEXT,
// CIRCLE and ARC entities on layer "0".
#pragma once

#include "platform/user_message.h"
#include "view/draw_buffers.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace vorna {

// DXF colour number of a colour code: 0 18, 2 5, 3 1, 4 3, 5 2, 6 8, 7 6, others 7; always 7
// when monochrome.
std::int16_t DxfColour(int code, bool monochrome);
// 1 CENTER, 2 DASHED, 3 DIVIDE, 4 DASHED2, any other CONTINUOUS.
std::string DxfLineTypeName(int lineStyle);

// One LINE entity; the colour group only when the code is not 1, the line type only when the
// style is not 0.
void WriteDxfLine(std::string &out, double x1, double y1, double x2, double y2, int lineStyle,
                  int colour, bool monochrome);

// The whole file, CR LF line ends. Elements that refer outside the coordinates, texts of height
// 0 (no width factor) and arcs of radius below 0.0001 are left out.
std::string DxfFileText(const DrawBuffers &buffers, bool monochrome);

// Writes the file to the Windows-1252 name the save dialog returned; the message to show.
UserMessage WriteDxf(std::string_view fileName, const DrawBuffers &buffers, bool monochrome);

} // namespace vorna
