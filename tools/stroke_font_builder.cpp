// Builds the stroke font "font.001" from a Hershey font in the .jhf format.
#include "stroke_font_builder.h"

#include "suite_files.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <sstream>

namespace vorna::tools {
namespace {

using Polyline = std::vector<std::array<int, 2>>; // Hershey units: x right, y down

constexpr int kFirstCode = 32, kLastCode = 126;

// Hershey's Futura Light: baseline at y = 9, capitals up to y = -12, widest ink 22 units.
constexpr double kHersheyBaseline = 9, kHersheyCapHeight = 21, kHersheyWidest = 22;
// Into the cell: capitals span the 69 units above the baseline at 30; ink is centred across the
// 99-unit advance and at most 80 wide, leaving the gap between neighbours.
constexpr double kScaleY = 69 / kHersheyCapHeight, kScaleX = 80 / kHersheyWidest;
constexpr double kCentreX = 49.5, kBaseline = 30;

struct Record {
    std::vector<Polyline> polylines;
};

bool GetLine(std::istream &in, std::string &line) {
    if (!std::getline(in, line))
        return false;
    if (!line.empty() && line.back() == '\r')
        line.pop_back();
    return true;
}

// One record: 5-character number, 3-character vertex count (the bounds pair included), then
// the pairs as letters offset by 'R'; " R" lifts the pen. Long records may wrap onto
// following lines. False at the end of the text (error stays empty) or on a broken record.
bool ReadRecord(std::istream &in, Record &record, std::string &error) {
    std::string line;
    do {
        if (!GetLine(in, line))
            return false;
    } while (line.find_first_not_of(' ') == std::string::npos);
    if (line.size() < 8) {
        error = "record too short: " + line;
        return false;
    }
    const int count = std::atoi(line.substr(5, 3).c_str());
    std::string pairs = line.substr(8);
    std::string more;
    while (static_cast<int>(pairs.size()) < 2 * count && GetLine(in, more))
        pairs += more;
    if (count < 1 || static_cast<int>(pairs.size()) < 2 * count) {
        error = "record with a wrong vertex count: " + line.substr(0, 8);
        return false;
    }
    record.polylines.assign(1, {});
    for (int k = 1; k < count; ++k) { // pair 0 holds the left and right bounds
        const char a = pairs[2 * k], b = pairs[2 * k + 1];
        if (a == ' ' && b == 'R')
            record.polylines.emplace_back();
        else
            record.polylines.back().push_back({a - 'R', b - 'R'});
    }
    return true;
}

std::array<int, 2> ToCell(const std::array<int, 2> &h) {
    const double x = kCentreX + h[0] * kScaleX;
    const double y = kBaseline + (kHersheyBaseline - h[1]) * kScaleY;
    // Brackets and the like reach above the capitals; they are cut at the cell's top.
    return {static_cast<int>(std::clamp(std::lround(x), 0L, 99L)),
            static_cast<int>(std::clamp(std::lround(y), 0L, 99L))};
}

// Every polyline keeps its ends and every stride-th point between them; consecutive equal
// cell points are merged so no stroke has zero length.
std::vector<std::array<int, 4>> Strokes(const std::vector<Polyline> &polylines,
                                        std::size_t stride) {
    std::vector<std::array<int, 4>> strokes;
    for (const Polyline &line : polylines) {
        Polyline kept;
        for (std::size_t i = 0; i < line.size(); ++i)
            if (i % stride == 0 || i + 1 == line.size())
                kept.push_back(ToCell(line[i]));
        kept.erase(std::unique(kept.begin(), kept.end()), kept.end());
        for (std::size_t i = 1; i < kept.size(); ++i)
            strokes.push_back({kept[i - 1][0], kept[i - 1][1], kept[i][0], kept[i][1]});
    }
    return strokes;
}

// Long curves are thinned by skipping points, never cut off; only a glyph of more than 50
// separate lines would still be too long, and loses its last ones.
std::vector<std::array<int, 4>> GlyphStrokes(const std::vector<Polyline> &polylines) {
    std::size_t longest = 0;
    for (const Polyline &line : polylines)
        longest = std::max(longest, line.size());
    for (std::size_t stride = 1;; ++stride) {
        auto strokes = Strokes(polylines, stride);
        if (strokes.size() <= kMaxStrokes || stride >= longest) {
            strokes.resize(std::min<std::size_t>(strokes.size(), kMaxStrokes));
            return strokes;
        }
    }
}

// The diameter sign: a circle (round when the text's width and height are equal) crossed by a
// slash from lower left to upper right.
std::vector<std::array<int, 4>> DiameterSign() {
    constexpr int kSides = 16;
    constexpr double kCx = 49, kCy = 64, kRx = 36, kRy = 25;
    const double pi = 4 * std::atan(1.0);
    std::vector<std::array<int, 4>> strokes;
    auto at = [&](int k) {
        const double a = 2 * pi * k / kSides;
        return std::array<int, 2>{static_cast<int>(std::lround(kCx + kRx * std::cos(a))),
                                  static_cast<int>(std::lround(kCy + kRy * std::sin(a)))};
    };
    for (int k = 0; k < kSides; ++k) {
        const auto a = at(k), b = at(k + 1);
        strokes.push_back({a[0], a[1], b[0], b[1]});
    }
    strokes.push_back({12, 30, 86, 98});
    return strokes;
}

std::string TwoDigits(int v) {
    return std::string(1, static_cast<char>('0' + v / 10)) + static_cast<char>('0' + v % 10);
}

} // namespace

std::vector<StrokeGlyph> BuildGlyphs(std::string_view jhf, std::string &error) {
    std::istringstream in{std::string(jhf)};
    std::vector<StrokeGlyph> glyphs;
    for (int code = kFirstCode; code <= kLastCode; ++code) {
        Record record;
        if (!ReadRecord(in, record, error)) {
            if (error.empty())
                error = "the font ends before character " + std::to_string(code);
            return {};
        }
        StrokeGlyph g;
        g.code = static_cast<unsigned char>(code);
        g.strokes = code == ']' ? DiameterSign() : GlyphStrokes(record.polylines);
        glyphs.push_back(std::move(g));
    }
    return glyphs;
}

std::string StrokeFontText(const std::vector<StrokeGlyph> &glyphs) {
    std::string text = "0\r\n";
    for (const StrokeGlyph &g : glyphs) {
        if (g.strokes.empty())
            continue; // no line: the character only advances
        text += static_cast<char>(g.code);
        for (const auto &s : g.strokes)
            for (int v : s)
                text += TwoDigits(v);
        text += "\r\n";
    }
    return text;
}

std::string WriteStrokeFont(const std::filesystem::path &out, const std::filesystem::path &jhf) {
    std::ifstream in(jhf, std::ios::binary);
    if (!in)
        return "cannot read the Hershey font " + jhf.string() +
               " (Debian package hershey-fonts-data)";
    std::ostringstream bytes;
    bytes << in.rdbuf();
    std::string error;
    const auto glyphs = BuildGlyphs(bytes.str(), error);
    if (glyphs.empty())
        return jhf.string() + ": " + error;
    return WriteBytes(out, StrokeFontText(glyphs));
}

} // namespace vorna::tools
