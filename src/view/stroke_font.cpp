// The vector stroke font "font.001" that writes every label, and the text primitive over it.
#include "view/stroke_font.h"

#include "platform/native_path.h"
#include "platform/number_text.h"
#include "platform/portable_math.h"
#include "platform/text_file.h"
#include "platform/tolerance.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace vorna {
namespace {

// Glyph cells are 99 units wide; the baseline sits at 30 and 69 units span the capitals.
constexpr double kCellWidth = 99, kBaseline = 30, kCapHeight = 69;

// A two-character coordinate field, blank or missing text counting 0.
std::int16_t Field(std::string_view line, std::size_t pos) {
    if (pos >= line.size())
        return 0;
    const double v = RoundHalfEven(LeadingNumber(line.substr(pos, 2)));
    return static_cast<std::int16_t>(std::clamp(v, -99.0, 99.0));
}

void ReadGlyph(std::string_view line, StrokeFont &font) {
    while (!line.empty() && line.back() == ' ')
        line.remove_suffix(1);
    if (line.empty())
        return;
    const auto code = static_cast<unsigned char>(line[0]);
    const double strokes = RoundHalfEven(static_cast<double>(line.size() - 1) / 8);
    const int points = std::min(2 * static_cast<int>(strokes), kGlyphPoints);
    font.glyphPointCount[code] = static_cast<std::int16_t>(points);
    for (int k = 0; k < points; ++k) {
        font.glyphX[code][k] = Field(line, 1 + 4 * static_cast<std::size_t>(k));
        font.glyphY[code][k] = Field(line, 3 + 4 * static_cast<std::size_t>(k));
    }
}

bool StrokeFontOf(TextCursor &cursor, StrokeFont &font) {
    std::fill(font.glyphPointCount.begin(), font.glyphPointCount.end() - 1, std::int16_t{-1});
    std::string_view field;
    if (!ReadTextField(cursor, field))
        return true; // an empty file: no glyphs, nothing unreadable
    const auto narrowing = ToInt16(LeadingNumber(field));
    if (!narrowing)
        return false;
    font.glyphNarrowing = *narrowing;
    std::string_view line;
    while (ReadLine(cursor, line))
        ReadGlyph(line, font);
    return true;
}

} // namespace

bool ParseStrokeFont(std::string text, StrokeFont &font) {
    TextCursor cursor(std::move(text));
    return StrokeFontOf(cursor, font);
}

std::optional<UserMessage> LoadStrokeFont(std::string_view programsFolder, StrokeFont &font,
                                          std::string_view programsPath) {
    std::fill(font.glyphPointCount.begin(), font.glyphPointCount.end() - 1, std::int16_t{-1});
    const std::string name = std::string(programsFolder) + "\\font.001";
    const auto path = NativePath(std::string(programsPath.empty() ? programsFolder : programsPath) +
                                 "\\font.001");
    if (!FileExists(path))
        return UserMessage{"File " + name + " inesistente!", "ERRORE", MsgIcon::Critical};
    auto cursor = TextCursor::Open(path);
    if (!cursor || !OrWhenOutOfMemory(false, [&] { return StrokeFontOf(*cursor, font); }))
        return UserMessage{"Errore in lettura del file " + name + " !", "ERRORE",
                           MsgIcon::Critical};
    return std::nullopt;
}

namespace {

double GlyphScaleX(const StrokeFont &font, double charWidth) {
    return charWidth / kCellWidth * (1 - font.glyphNarrowing / 100.0);
}

} // namespace

bool TextMayShow(const StrokeFont &font, const Canvas &canvas, std::size_t chars, double x,
                 double y, double spread, double charWidth, double charHeight) {
    // Glyph points lie within 99 units of the cell's origin across and 99 + the baseline along
    // the height; each further character moves the origin by charWidth.
    constexpr double kBelowAndAbove = (99 + kBaseline) / kCapHeight;
    const double glyph =
        std::abs(GlyphScaleX(font, charWidth) * 99) + std::abs(charHeight) * kBelowAndAbove;
    const double reach = spread + static_cast<double>(chars) * std::abs(charWidth) + glyph;
    return canvas.ShowsText(x - reach, y - reach, x + reach, y + reach,
                            std::max(std::abs(charWidth), std::abs(charHeight)));
}

void DrawText(const StrokeFont &font, std::string_view text, double x, double y, int angle,
              double charWidth, double charHeight, int colour, Canvas &canvas) {
    if (charWidth == 0 || charHeight == 0)
        return;
    if (canvas.KeepText(text, x, y, angle, charWidth, charHeight, colour))
        return;
    if (!TextMayShow(font, canvas, text.size(), x, y, 0, charWidth, charHeight))
        return;
    const Pen pen = PenOfCode(colour);
    const double a = angle * (4 * Atan(1.0)) / 180;
    const double cosA = Cos(a), sinA = Sin(a);
    const double sx = GlyphScaleX(font, charWidth);
    const double sy = charHeight / kCapHeight;
    std::vector<double> strokes;
    for (std::size_t k = 0; k < text.size(); ++k) {
        const auto code = static_cast<unsigned char>(text[k]);
        const double ox = x + static_cast<double>(k) * charWidth * cosA;
        const double oy = y + static_cast<double>(k) * charWidth * sinA;
        const int points = std::min<int>(font.glyphPointCount[code], kGlyphPoints);
        if (points < 2)
            continue;
        // A screen stamps each glyph it has seen at this size and angle.
        const ShapeName name{static_cast<double>(code), static_cast<double>(angle), sx, sy};
        if (canvas.Stamp(name, ox, oy, pen))
            continue;
        strokes.clear();
        for (int j = 0; j + 1 < points; j += 2) {
            double ends[4];
            for (std::size_t e = 0; e < 2; ++e) {
                const double u = font.glyphX[code][j + e] * sx;
                const double v = (font.glyphY[code][j + e] - kBaseline) * sy;
                ends[2 * e] = u * cosA - v * sinA;
                ends[2 * e + 1] = u * sinA + v * cosA;
            }
            if (std::abs(ends[0] - ends[2]) > kTolerance ||
                std::abs(ends[1] - ends[3]) > kTolerance)
                strokes.insert(strokes.end(), ends, ends + 4);
        }
        if (canvas.HoldShape(name, strokes) && canvas.Stamp(name, ox, oy, pen))
            continue;
        for (int j = 0; j + 1 < points; j += 2) {
            double ends[4];
            for (std::size_t e = 0; e < 2; ++e) {
                const double u = font.glyphX[code][j + e] * sx;
                const double v = (font.glyphY[code][j + e] - kBaseline) * sy;
                ends[2 * e] = ox + u * cosA - v * sinA;
                ends[2 * e + 1] = oy + u * sinA + v * cosA;
            }
            DrawLine(canvas, ends[0], ends[1], ends[2], ends[3], pen);
        }
    }
}

} // namespace vorna
