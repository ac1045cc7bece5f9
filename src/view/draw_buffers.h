// The stroke font and the drawing buffers that the export pass fills.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace vorna {

constexpr int kGlyphPoints = 100;

struct StrokeFont {
    std::int16_t glyphNarrowing = 0;
    std::array<std::int16_t, 256> glyphPointCount{}; // -1: no glyph
    // Point k (0-based here) of character c: glyphX[c][k], glyphY[c][k], in glyph units 0..99.
    std::array<std::array<std::int16_t, kGlyphPoints>, 256> glyphX{};
    std::array<std::array<std::int16_t, kGlyphPoints>, 256> glyphY{};
};

constexpr int kCoordCapacity = 50000;
constexpr int kLineCapacity = 50000;
constexpr int kArcCapacity = 15000;
constexpr int kTextCapacity = 15000;

struct LineElement {
    std::int32_t start = 0; // coordinate indices
    std::int32_t end = 0;
    std::int16_t type = 0;
    std::int16_t colour = 0;
};

struct ArcElement {
    std::int32_t centre = 0;
    std::int32_t start = 0;
    std::int32_t centre2 = 0;
    std::int32_t end = 0;
    std::int16_t kind = 0;
    std::int16_t colour = 0;
};

struct TextElement {
    std::int32_t point = 0;
    std::int16_t width = 0;  // tenths of a drawing unit
    std::int16_t height = 0; // tenths of a drawing unit
    std::int16_t angle = 0;  // whole degrees
    std::int16_t colour = 0;
    std::string text;
};

// Filled by the export pass, emptied by each save; the vectors grow up to their capacities.
struct DrawBuffers {
    std::vector<double> coordX, coordY;
    std::vector<LineElement> lines;
    std::vector<ArcElement> arcs;
    std::vector<TextElement> texts;
    // The messages about full buffers, in the order they arose, for the command to show.
    std::vector<std::string> warnings;
};

} // namespace vorna
