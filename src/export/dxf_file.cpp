// The drawing buffers as an ASCII DXF file: HEADER with the extents, one layer, and LINE, TEXT,
// CIRCLE and ARC entities on layer "0".
#include "export/dxf_file.h"

#include "export/clean_drawing.h"
#include "platform/native_path.h"
#include "platform/number_text.h"
#include "platform/portable_math.h"
#include "platform/text_file.h"
#include "platform/tolerance.h"

#include <cmath>

namespace vorna {
namespace {

// Group codes are written right-aligned as the readers of the suite's files expect (" 10").
void Group(std::string &out, std::string_view code, std::string_view value) {
    AppendLine(out, code);
    AppendLine(out, value);
}

void Real(std::string &out, std::string_view code, double value) {
    Group(out, code, PrintedNumber(value));
}

void Point(std::string &out, double x, double y) {
    Real(out, " 10", x);
    Real(out, " 20", y);
    Group(out, " 30", "0.0");
}

void ColourAndLineType(std::string &out, int colour, int lineStyle, bool monochrome) {
    if (colour != 1)
        Real(out, " 62", DxfColour(colour, monochrome));
    if (lineStyle != 0)
        Group(out, " 6", DxfLineTypeName(lineStyle));
}

bool IsCoordinate(const DrawBuffers &b, std::int32_t i) {
    return i >= 0 && i < static_cast<std::int32_t>(b.coordX.size());
}

// Direction in degrees from the centre to a point, with the fixed value of pi of the suite's
// DXF files so that the angles come out digit for digit the same.
double DxfAngle(double dx, double dy) {
    if (std::abs(dx) < kTolerance)
        return dy > 0 ? 90 : 270;
    const double a = std::abs(Atan(dy / dx) * 180 / kPi);
    double angle = 0;
    if (dx >= 0)
        angle = dy >= 0 ? a : 360 - a;
    else
        angle = dy >= 0 ? 180 - a : 180 + a;
    return angle >= 360 ? angle - 360 : angle;
}

void WriteText(std::string &out, const DrawBuffers &b, const TextElement &t, bool monochrome) {
    if (!IsCoordinate(b, t.point) || t.height == 0)
        return;
    // The stroke font draws the diameter sign for "]"; DXF spells it "%%c".
    std::string text = t.text;
    if (const auto bracket = text.find(']'); bracket != std::string::npos)
        text.replace(bracket, 1, "%%c");
    Group(out, " 0", "TEXT");
    Group(out, " 8", "0");
    Point(out, b.coordX[t.point], b.coordY[t.point]);
    Real(out, " 40", t.height / 10.0);
    Group(out, " 1", text);
    Real(out, " 50", t.angle);
    Real(out, " 41", static_cast<double>(t.width) / t.height);
    ColourAndLineType(out, t.colour, 0, monochrome);
}

void WriteArc(std::string &out, const DrawBuffers &b, const ArcElement &a, bool monochrome) {
    if (!IsCoordinate(b, a.centre) || !IsCoordinate(b, a.start) || !IsCoordinate(b, a.end))
        return;
    const double cx = b.coordX[a.centre], cy = b.coordY[a.centre];
    const double sx = b.coordX[a.start] - cx, sy = b.coordY[a.start] - cy;
    const double ex = b.coordX[a.end] - cx, ey = b.coordY[a.end] - cy;
    const double radius = std::sqrt(sx * sx + sy * sy);
    if (!(radius >= kTolerance))
        return;
    const bool circle = std::abs(b.coordX[a.start] - b.coordX[a.end]) < kTolerance &&
                        std::abs(b.coordY[a.start] - b.coordY[a.end]) < kTolerance;
    Group(out, " 0", circle ? "CIRCLE" : "ARC");
    Group(out, " 8", "0");
    Point(out, cx, cy);
    Real(out, " 40", radius);
    if (!circle) {
        Real(out, " 50", DxfAngle(sx, sy));
        Real(out, " 51", DxfAngle(ex, ey));
    }
    ColourAndLineType(out, a.colour, a.kind, monochrome);
}

} // namespace

std::int16_t DxfColour(int code, bool monochrome) {
    if (monochrome)
        return 7;
    switch (code) {
    case 0:
        return 18;
    case 2:
        return 5;
    case 3:
        return 1;
    case 4:
        return 3;
    case 5:
        return 2;
    case 6:
        return 8;
    case 7:
        return 6;
    default:
        return 7;
    }
}

std::string DxfLineTypeName(int lineStyle) {
    switch (lineStyle) {
    case 1:
        return "CENTER";
    case 2:
        return "DASHED";
    case 3:
        return "DIVIDE";
    case 4:
        return "DASHED2";
    default:
        return "CONTINUOUS";
    }
}

void WriteDxfLine(std::string &out, double x1, double y1, double x2, double y2, int lineStyle,
                  int colour, bool monochrome) {
    Group(out, " 0", "LINE");
    Group(out, " 8", "0");
    Point(out, x1, y1);
    Real(out, " 11", x2);
    Real(out, " 21", y2);
    Group(out, " 31", "0.0");
    ColourAndLineType(out, colour, lineStyle, monochrome);
}

std::string DxfFileText(const DrawBuffers &b, bool monochrome) {
    std::string out;
    out.reserve(512 + 140 * b.lines.size() + 160 * b.texts.size() + 160 * b.arcs.size());
    const DrawingExtent e = DrawingExtents(b);
    Group(out, " 0", "SECTION");
    Group(out, " 2", "HEADER");
    Group(out, " 9", "$EXTMIN");
    Point(out, e.minX, e.minY);
    Group(out, " 9", "$EXTMAX");
    Point(out, e.maxX, e.maxY);
    Group(out, " 0", "ENDSEC");

    Group(out, " 0", "SECTION");
    Group(out, " 2", "TABLES");
    Group(out, " 0", "TABLE");
    Group(out, " 2", "LAYER");
    Group(out, " 70", "1");
    Group(out, " 0", "LAYER");
    Group(out, " 2", "0");
    Group(out, " 70", "0");
    Group(out, " 62", "7");
    Group(out, " 6", "CONTINUOUS");
    Group(out, " 0", "ENDTAB");
    Group(out, " 0", "ENDSEC");

    Group(out, " 0", "SECTION");
    Group(out, " 2", "ENTITIES");
    for (const LineElement &l : b.lines)
        if (IsCoordinate(b, l.start) && IsCoordinate(b, l.end))
            WriteDxfLine(out, b.coordX[l.start], b.coordY[l.start], b.coordX[l.end],
                         b.coordY[l.end], l.type, l.colour, monochrome);
    for (const TextElement &t : b.texts)
        WriteText(out, b, t, monochrome);
    for (const ArcElement &a : b.arcs)
        WriteArc(out, b, a, monochrome);
    Group(out, " 0", "ENDSEC");
    Group(out, " 0", "EOF");
    return out;
}

UserMessage WriteDxf(std::string_view fileName, const DrawBuffers &buffers, bool monochrome) {
    const std::string name(fileName);
    if (!WriteFileAtomic(NativePath(fileName), DxfFileText(buffers, monochrome)))
        return {"ERRORE: non riesco ad aprire il file " + name, "ERRORE", MsgIcon::Critical};
    return {"File " + name + " salvato.", "SALVA FILE DXF", MsgIcon::Information};
}

} // namespace vorna
