// Fuzz target: the stroke-font reader on arbitrary bytes, and text written with what it read.
#include "view/stroke_font.h"

#include "platform/plain_canvas.h"

#include <memory>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    static auto font = std::make_unique<vorna::StrokeFont>();
    *font = vorna::StrokeFont{};
    std::string text(reinterpret_cast<const char *>(data), size);
    vorna::ParseStrokeFont(text, *font);
    // Every glyph read must draw within its tables: write all 256 codes once.
    std::string all;
    for (int c = 1; c < 256; ++c)
        all += static_cast<char>(c);
    vorna::PlainCanvas surface(1500, 1500);
    vorna::DrawBuffers buffers;
    vorna::BufferCanvas strokes(surface, buffers, false);
    vorna::DrawText(*font, all, 0, 0, 30, 5, 5, 1, surface);
    vorna::DrawText(*font, all, 0, 0, 90, 5, 5, 0, strokes);
    return 0;
}
