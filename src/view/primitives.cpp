// The drawing primitives over any Canvas, the colours of the suite's colour codes, and the
// drawing buffers as one more Canvas: the export pass draws into them.
#include "view/primitives.h"

#include "platform/number_text.h"
#include "platform/portable_math.h"
#include "platform/tolerance.h"

#include <algorithm>
#include <cmath>

namespace vorna {
namespace {

constexpr const char *kTooManyCoordinates = " Numero eccessivo di coordinate ";
constexpr const char *kTooManyElements = " Numero eccessivo di elementi di disegno ";
constexpr const char *kTooManyTexts = " Numero eccessivo di testi ";

// The last free place of a buffer warns; a full buffer drops silently.
bool Room(DrawBuffers &b, std::size_t count, int capacity, const char *warning) {
    if (count == static_cast<std::size_t>(capacity - 1))
        b.warnings.emplace_back(warning);
    return count < static_cast<std::size_t>(capacity);
}

std::int16_t Code16(int colour) {
    return static_cast<std::int16_t>(std::clamp(colour, -32768, 32767));
}

// Arcs and texts store colour 0 as 1, as the suite's drawing files hold them.
std::int16_t StoredColour(int colour) {
    return colour == 0 ? 1 : Code16(colour);
}

std::int16_t Tenths(double size) {
    const double t = RoundHalfEven(size * 10);
    return static_cast<std::int16_t>(std::isfinite(t) ? std::clamp(t, -32768.0, 32767.0) : 0.0);
}

} // namespace

Pen PenOfCode(int code) {
    return Pen{ColourOfCode(code), code};
}

void DrawLine(Canvas &canvas, double x1, double y1, double x2, double y2, const Pen &pen) {
    if (std::abs(x1 - x2) <= kTolerance && std::abs(y1 - y2) <= kTolerance)
        return;
    canvas.Line(x1, y1, x2, y2, pen);
}

void DrawArc(Canvas &canvas, double x, double y, double diameter, const Pen &pen, double startAngle,
             double endAngle) {
    if (diameter > kTolerance)
        canvas.Arc(x, y, diameter / 2, pen, startAngle, endAngle);
}

std::int32_t AddCoordinate(DrawBuffers &b, double x, double y) {
    const auto count = static_cast<std::int32_t>(b.coordX.size());
    for (std::int32_t i = count - 1; i >= 0 && i >= count - 31; --i)
        if (std::abs(b.coordX[i] - x) < kTolerance && std::abs(b.coordY[i] - y) < kTolerance)
            return i;
    if (!Room(b, b.coordX.size(), kCoordCapacity, kTooManyCoordinates))
        return -1;
    b.coordX.push_back(x);
    b.coordY.push_back(y);
    return count;
}

void AddLineElement(DrawBuffers &b, double x1, double y1, double x2, double y2, int colour) {
    if (!Room(b, b.lines.size(), kLineCapacity, kTooManyElements))
        return;
    LineElement e;
    e.start = AddCoordinate(b, x1, y1);
    e.end = AddCoordinate(b, x2, y2);
    e.colour = Code16(colour);
    // An end that found no room drops the line; a start that did not either (the end may have
    // been found among the newest), so no element points outside the coordinates.
    if (e.start >= 0 && e.end >= 0)
        b.lines.push_back(e);
}

void AddArcElement(DrawBuffers &b, double x, double y, double radius, int colour, double startAngle,
                   double endAngle) {
    if (!Room(b, b.arcs.size(), kArcCapacity, kTooManyElements))
        return;
    ArcElement e;
    e.centre = AddCoordinate(b, x, y);
    e.start = AddCoordinate(b, x + radius * Cos(startAngle), y + radius * Sin(startAngle));
    e.centre2 = e.centre;
    e.end = AddCoordinate(b, x + radius * Cos(endAngle), y + radius * Sin(endAngle));
    e.colour = StoredColour(colour);
    if (e.centre >= 0 && e.start >= 0 && e.end >= 0)
        b.arcs.push_back(e);
}

void AddTextElement(DrawBuffers &b, std::string_view text, double x, double y, int angle,
                    double charWidth, double charHeight, int colour) {
    if (!Room(b, b.texts.size(), kTextCapacity, kTooManyTexts))
        return;
    TextElement e;
    e.point = AddCoordinate(b, x, y);
    if (e.point < 0)
        return;
    e.width = Tenths(charWidth);
    e.height = Tenths(charHeight);
    e.angle = Code16(angle);
    e.colour = StoredColour(colour);
    e.text = std::string(text);
    b.texts.push_back(std::move(e));
}

bool BufferCanvas::KeepText(std::string_view text, double x, double y, int angle, double charWidth,
                            double charHeight, int colour) {
    if (!gendis_)
        return false;
    AddTextElement(buffers_, text, x, y, angle, charWidth, charHeight, colour);
    return true;
}

} // namespace vorna
