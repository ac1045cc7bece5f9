// Builds the stroke font "font.001" from a Hershey font in the .jhf format.
//
// The glyphs derive from the Hershey fonts (Futura Light, "futural.jhf", from Debian's
// hershey-fonts-data). Their licence asks that these acknowledgements travel with the data:
// the Hershey Fonts were originally created by Dr. A. V. Hershey while working at the U. S.
// National Bureau of Standards; the format of the font data was originally created by James
// Hurt, Cognition, Inc.
#pragma once

#include <array>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace vorna::tools {

inline constexpr std::string_view kHersheyFont = "/usr/share/hershey-fonts/futural.jhf";

// At most this many strokes per glyph: the font file holds 100 points, two per stroke.
inline constexpr int kMaxStrokes = 50;

// One glyph in the font file's cell: x 0..99, y 0..99 with the baseline at 30.
struct StrokeGlyph {
    unsigned char code = 0;
    std::vector<std::array<int, 4>> strokes; // x1, y1, x2, y2
};

// The glyphs of printable ASCII 32..126 from the .jhf text (records in code order), "]" drawn
// as the diameter sign. Empty with an error text when the text is not a usable .jhf font.
std::vector<StrokeGlyph> BuildGlyphs(std::string_view jhf, std::string &error);

// The font file's bytes: the narrowing 0, then one line per glyph with strokes, CR LF ended.
std::string StrokeFontText(const std::vector<StrokeGlyph> &glyphs);

// Reads the .jhf file and writes the font file. Returns an error text, empty on success.
std::string WriteStrokeFont(const std::filesystem::path &out,
                            const std::filesystem::path &jhf = std::filesystem::path(kHersheyFont));

} // namespace vorna::tools
