// The reader of STRUTTUR.STR, the structure file the suite writes into every job folder.
#include "model/load_structure.h"

#include "platform/native_path.h"
#include "platform/number_text.h"
#include "platform/text.h"
#include "platform/text_file.h"

#include <array>
#include <cmath>
#include <optional>
#include <span>
#include <string>

namespace vorna {
namespace {

// The numbers of a token line's first numbers.size() tokens; false when the file has ended (the
// fields then keep their values).
bool ReadTokenLine(TextCursor &cursor, std::span<double> numbers) {
    std::string_view line;
    if (!ReadLine(cursor, line))
        return false;
    ParseTokenNumbers(line, numbers);
    return true;
}

// A token's number rounded to 16 bits; a value out of range keeps the field as it was.
void SetInt16(std::int16_t &field, double number) {
    if (auto v = ToInt16(number))
        field = *v;
}

// The next field of a free-format group; nothing when it is missing or not a finite number.
std::optional<double> NextGroupField(TextCursor &cursor) {
    std::optional<double> value;
    if (!ReadLeadingNumber(cursor, value))
        return std::nullopt;
    if (value && !std::isfinite(*value))
        return std::nullopt;
    return value;
}

void NextGroupDouble(TextCursor &cursor, double &field) {
    if (auto v = NextGroupField(cursor))
        field = *v;
}

void NextGroupInt16(TextCursor &cursor, std::int16_t &field) {
    if (auto v = NextGroupField(cursor))
        if (auto i = ToInt16(*v))
            field = *i;
}

// A section count: 0 for a negative count, nothing when the table cannot hold it.
bool ReadCount(TextCursor &cursor, std::int16_t &count, int capacity) {
    std::array<double, 1> t;
    if (!ReadTokenLine(cursor, t))
        return true;
    SetInt16(count, t[0]);
    if (count < 0)
        count = 0;
    return count <= capacity;
}

void SkipLines(TextCursor &cursor, int linesPerRecord) {
    std::array<double, 1> t;
    std::int32_t count = 0;
    if (!ReadTokenLine(cursor, t))
        return;
    if (auto v = ToInt32(t[0]))
        count = *v;
    std::string_view line;
    for (long long i = 0; i < static_cast<long long>(count) * linesPerRecord; ++i)
        if (!ReadLine(cursor, line))
            return;
}

} // namespace

void ParseTokenNumbers(std::string_view line, std::span<double> numbers) {
    std::size_t i = 0;
    for (double &number : numbers) {
        while (i < line.size() && (line[i] == ' ' || line[i] == '\t'))
            ++i;
        const std::size_t start = i;
        // A short integer is read as the token is passed over; any other token is cut out first.
        const auto integer = LeadingShortInteger(line.substr(start));
        if (integer)
            i += integer->length;
        while (i < line.size() && line[i] != ' ' && line[i] != '\t')
            ++i;
        number = integer ? integer->value : LeadingNumber(line.substr(start, i - start));
    }
}

namespace {

LoadResult ParseTables(TextCursor &cursor, StructureModel &model) {
    std::string_view version;
    if (!ReadLine(cursor, version) || LowerCase(version).find("release") == std::string::npos)
        return LoadResult::OldVersion;
    std::array<double, 3> node;
    std::array<double, 2> nodeName;
    std::array<double, 4> bar;
    std::array<double, 5> shell;

    if (!ReadCount(cursor, model.pointCount, kPointCapacity))
        return LoadResult::NotRead;
    for (int i = 0; i < model.pointCount; ++i) {
        Point &p = model.points[i];
        NextGroupDouble(cursor, p.x);
        NextGroupDouble(cursor, p.y);
        NextGroupDouble(cursor, p.z);
    }

    if (!ReadCount(cursor, model.nodeCount, kNodeCapacity))
        return LoadResult::NotRead;
    for (int i = 0; i < model.nodeCount; ++i) {
        Node &n = model.nodes[i];
        if (ReadTokenLine(cursor, node)) {
            SetInt16(n.pointIndex, node[0]);
            SetInt16(n.pointType, node[1]);
            SetInt16(n.colour, node[2]);
        }
        if (ReadTokenLine(cursor, nodeName)) {
            if (RoundHalfEven(nodeName[0]) > 32000)
                return LoadResult::NodeNameTooLarge;
            SetInt16(n.name, nodeName[0]);
            SetInt16(n.constraintCard, nodeName[1]);
        }
    }

    if (!ReadCount(cursor, model.barCount, kBarCapacity))
        return LoadResult::NotRead;
    for (int i = 0; i < model.barCount; ++i) {
        Bar &b = model.bars[i];
        NextGroupInt16(cursor, b.pointI);
        NextGroupInt16(cursor, b.pointJ);
        NextGroupInt16(cursor, b.lineType);
        NextGroupInt16(cursor, b.colour);
        if (ReadTokenLine(cursor, bar)) {
            SetInt16(b.name, bar[0]);
            SetInt16(b.sectionCard, bar[1]);
            SetInt16(b.releaseCard, bar[2]);
            SetInt16(b.orientationCard, bar[3]);
        }
    }

    if (!ReadCount(cursor, model.shellCount, kShellCapacity))
        return LoadResult::NotRead;
    for (int i = 0; i < model.shellCount; ++i) {
        Shell &s = model.shells[i];
        for (auto &v : s.vertices)
            NextGroupInt16(cursor, v);
        if (ReadTokenLine(cursor, shell)) {
            SetInt16(s.name, shell[1]);
            SetInt16(s.thicknessCard, shell[2]);
            SetInt16(s.colour, shell[4]);
        }
    }

    for (int section = 0; section < 3; ++section)
        SkipLines(cursor, 1);
    SkipLines(cursor, 2);
    return LoadResult::Loaded;
}

LoadResult ParseRefusingWhole(TextCursor &cursor, StructureModel &model) {
    const LoadResult result =
        OrWhenOutOfMemory(LoadResult::NotRead, [&] { return ParseTables(cursor, model); });
    // A refused file leaves no table behind: a count above the capacity, or the half of a file
    // read so far, would be taken for a model by every command that follows.
    if (result != LoadResult::Loaded)
        model.pointCount = model.nodeCount = model.barCount = model.shellCount = 0;
    return result;
}

} // namespace

LoadResult LoadStructure(std::string_view jobFolder, StructureModel &model) {
    auto cursor = TextCursor::Open(NativePath(std::string(jobFolder) + "\\STRUTTUR.STR"));
    if (!cursor)
        return LoadResult::NotRead;
    return ParseRefusingWhole(*cursor, model);
}

LoadResult ParseStructure(std::string text, StructureModel &model) {
    TextCursor cursor(std::move(text));
    return ParseRefusingWhole(cursor, model);
}

std::optional<UserMessage> LoadMessage(LoadResult result) {
    switch (result) {
    case LoadResult::OldVersion:
        return UserMessage{
            "Versione 3.8 o precedente. Caricare e risalvare la struttura in 'Telaris'",
            "Attenzione", MsgIcon::Critical};
    case LoadResult::NodeNameTooLarge:
        return UserMessage{"Nome nodo maggiore di 32000.", "ERRORE IN STRUTTUR.STR",
                           MsgIcon::Exclamation};
    case LoadResult::Loaded:
    case LoadResult::NotRead:
        break;
    }
    return std::nullopt;
}

} // namespace vorna
