// The drawing primitives: each paints on a surface or, without one, appends to the drawing
// buffers that the export writers read; and the colours of the suite's colour codes.
#include "view/primitives.h"

#include "platform/number_text.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace vorna {
namespace {

constexpr const char *kTitle = "Problema";

void Warn(Ui &ui, const char *text) {
    ui.MessageBox(text, kTitle, MsgIcon::Exclamation, MsgButtons::Ok);
}

// Arcs and texts store colour 0 as 1, as the suite's drawing files hold them.
std::int16_t StoredColour(int colour) {
    return static_cast<std::int16_t>(colour == 0 ? 1 : std::clamp(colour, -32768, 32767));
}

std::int16_t Tenths(double size) {
    const double t = RoundHalfEven(size * 10);
    return static_cast<std::int16_t>(std::isfinite(t) ? std::clamp(t, -32768.0, 32767.0) : 0.0);
}

} // namespace

Rgb ColourOfCode(int code) {
    static constexpr std::array<Rgb, 10> kColours = {
        PackRgb(0, 0, 0),       PackRgb(255, 255, 255), PackRgb(0, 0, 192), PackRgb(255, 0, 0),
        PackRgb(0, 255, 0),     PackRgb(255, 255, 0),   PackRgb(0, 128, 0), PackRgb(255, 0, 255),
        PackRgb(160, 197, 250), PackRgb(255, 163, 70)};
    return code >= 0 && code < 10 ? kColours[code] : PackRgb(255, 255, 255);
}

std::int32_t AddCoordinate(DrawBuffers &b, Ui &ui, double x, double y) {
    const auto count = static_cast<std::int32_t>(b.coordX.size());
    for (std::int32_t i = count - 1; i >= 0 && i >= count - 31; --i)
        if (std::abs(b.coordX[i] - x) < 0.0001 && std::abs(b.coordY[i] - y) < 0.0001)
            return i;
    if (count == kCoordCapacity - 1)
        Warn(ui, " Numero eccessivo di coordinate ");
    if (count >= kCoordCapacity)
        return -1;
    b.coordX.push_back(x);
    b.coordY.push_back(y);
    return count;
}

void AddLineElement(DrawBuffers &b, Ui &ui, double x1, double y1, double x2, double y2,
                    int colour) {
    const auto count = static_cast<std::int32_t>(b.lines.size());
    if (count == kLineCapacity - 1)
        Warn(ui, " Numero eccessivo di elementi di disegno ");
    if (count >= kLineCapacity)
        return;
    LineElement e;
    e.start = AddCoordinate(b, ui, x1, y1);
    e.end = AddCoordinate(b, ui, x2, y2);
    e.colour = static_cast<std::int16_t>(std::clamp(colour, -32768, 32767));
    // An end that found no room drops the line; a start that did not either (the end may have
    // been found among the newest), so no element points outside the coordinates.
    if (e.start >= 0 && e.end >= 0)
        b.lines.push_back(e);
}

void AddTextElement(DrawBuffers &b, Ui &ui, std::string_view text, double x, double y, int angle,
                    double charWidth, double charHeight, int colour) {
    const auto count = static_cast<std::int32_t>(b.texts.size());
    if (count == kTextCapacity - 1)
        Warn(ui, " Numero eccessivo di testi ");
    if (count >= kTextCapacity)
        return;
    TextElement e;
    e.point = AddCoordinate(b, ui, x, y);
    if (e.point < 0)
        return;
    e.width = Tenths(charWidth);
    e.height = Tenths(charHeight);
    e.angle = static_cast<std::int16_t>(std::clamp(angle, -32768, 32767));
    e.colour = StoredColour(colour);
    e.text = std::string(text);
    b.texts.push_back(std::move(e));
}

void DrawLine(const DrawTarget &t, double x1, double y1, double x2, double y2, int colour) {
    if (std::abs(x1 - x2) <= 0.0001 && std::abs(y1 - y2) <= 0.0001)
        return;
    if (t.surface)
        t.surface->Line(x1, y1, x2, y2, ColourOfCode(colour));
    else if (t.buffers && t.ui)
        AddLineElement(*t.buffers, *t.ui, x1, y1, x2, y2, colour);
}

void DrawArc(const DrawTarget &t, double x, double y, double diameter, int colour,
             double startAngle, double endAngle) {
    if (!(diameter > 0.0001))
        return;
    const double r = diameter / 2;
    if (t.surface) {
        t.surface->Arc(x, y, r, ColourOfCode(colour), startAngle, endAngle);
        return;
    }
    if (!t.buffers || !t.ui)
        return;
    DrawBuffers &b = *t.buffers;
    const auto count = static_cast<std::int32_t>(b.arcs.size());
    if (count == kArcCapacity - 1)
        Warn(*t.ui, " Numero eccessivo di elementi di disegno ");
    if (count >= kArcCapacity)
        return;
    ArcElement e;
    e.centre = AddCoordinate(b, *t.ui, x, y);
    e.start = AddCoordinate(b, *t.ui, x + r * std::cos(startAngle), y + r * std::sin(startAngle));
    e.centre2 = e.centre;
    e.end = AddCoordinate(b, *t.ui, x + r * std::cos(endAngle), y + r * std::sin(endAngle));
    e.colour = StoredColour(colour);
    if (e.centre >= 0 && e.start >= 0 && e.end >= 0)
        b.arcs.push_back(e);
}

} // namespace vorna
