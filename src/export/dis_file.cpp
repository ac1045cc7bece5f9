// The suite's drawing file (.dis): the whole text from the drawing buffers, and the save.
#include "export/dis_file.h"

#include "platform/native_path.h"
#include "platform/number_text.h"
#include "platform/text_file.h"

#include <initializer_list>

namespace vorna {
namespace {

// One line as the suite's "print" of numbers writes it: each number followed by a blank.
void PrintLine(std::string &out, std::initializer_list<double> values) {
    for (double v : values) {
        out += PrintedNumber(v);
        out += ' ';
    }
    out += "\r\n";
}

void PrintCount(std::string &out, std::size_t count) {
    PrintLine(out, {static_cast<double>(count)});
}

} // namespace

std::string DisFileText(const DrawBuffers &b, const DrawingExtent &extent, int formatFlag) {
    std::string out;
    out.reserve(64 + 32 * b.coordX.size() + 24 * b.lines.size() + 64 * b.texts.size() +
                40 * b.arcs.size());
    AppendLine(out, formatFlag == 4 ? "                   4" : "                   3");
    PrintLine(out, {extent.minX, extent.maxX});
    PrintLine(out, {extent.minY, extent.maxY});
    AppendLine(out, "-10000.000000        10000.000000");
    PrintCount(out, b.coordX.size());
    for (std::size_t i = 0; i < b.coordX.size(); ++i)
        PrintLine(out, {b.coordX[i], b.coordY[i], 0});
    PrintCount(out, 0); // the second section is never filled
    PrintCount(out, b.lines.size());
    for (const LineElement &l : b.lines)
        PrintLine(out, {double(l.start), double(l.end), double(l.colour), double(l.type)});
    PrintCount(out, b.texts.size());
    for (const TextElement &t : b.texts) {
        PrintLine(out, {double(t.point), 1, double(t.angle)});
        PrintLine(out, {t.width / 10.0, t.height / 10.0, double(t.colour)});
        AppendLine(out, t.text);
    }
    PrintCount(out, b.arcs.size());
    for (const ArcElement &a : b.arcs) {
        PrintLine(out, {double(a.centre), double(a.start), double(a.centre2), double(a.end)});
        PrintLine(out, {double(a.colour), double(a.kind)});
    }
    return out;
}

UserMessage SaveDisDrawing(std::string_view fileName, DrawBuffers &buffers, int formatFlag) {
    const DrawingExtent extent = DrawingExtents(buffers);
    CleanDrawing(buffers);
    const std::string name(fileName);
    if (!WriteFileAtomic(NativePath(fileName), DisFileText(buffers, extent, formatFlag)))
        return {"Errore durante la scrittura sul file" + name, "ERRORE", MsgIcon::None};
    return {"File " + name + " salvato.", "SALVA FILE DISEGNO", MsgIcon::Information};
}

} // namespace vorna
