// The reader of STRUTTUR.STR, the structure file the suite writes into every job folder.
#include "model/load_structure.h"

#include "platform/native_path.h"
#include "platform/number_text.h"
#include "platform/text.h"
#include "platform/text_file.h"

#include <cmath>
#include <optional>
#include <string>

namespace vorna {
namespace {

using Tokens = std::array<std::string_view, 6>;

// One token line; false when the file has ended (the fields then keep their values).
bool ReadTokenLine(TextCursor &cursor, Tokens &tokens) {
    std::string_view line;
    if (!ReadLine(cursor, line))
        return false;
    SplitTokens(line, tokens);
    return true;
}

// A token's leading number rounded to 16 bits; a value out of range keeps the field as it was.
void SetInt16(std::int16_t &field, std::string_view token) {
    if (auto v = ToInt16(LeadingNumber(token)))
        field = *v;
}

// The next field of a free-format group; nothing when it is missing or not a finite number.
std::optional<double> NextGroupField(TextCursor &cursor) {
    std::string_view field;
    if (!ReadNumberField(cursor, field))
        return std::nullopt;
    auto value = LeadingNumberIfAny(field);
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
    Tokens t;
    if (!ReadTokenLine(cursor, t))
        return true;
    SetInt16(count, t[0]);
    if (count < 0)
        count = 0;
    return count <= capacity;
}

void SkipLines(TextCursor &cursor, int linesPerRecord) {
    Tokens t;
    std::int32_t count = 0;
    if (!ReadTokenLine(cursor, t))
        return;
    if (auto v = ToInt32(LeadingNumber(t[0])))
        count = *v;
    std::string_view line;
    for (long long i = 0; i < static_cast<long long>(count) * linesPerRecord; ++i)
        if (!ReadLine(cursor, line))
            return;
}

} // namespace

std::size_t SplitTokens(std::string_view line, Tokens &tokens) {
    tokens.fill(std::string_view());
    std::size_t n = 0, i = 0;
    while (n < tokens.size()) {
        while (i < line.size() && (line[i] == ' ' || line[i] == '\t'))
            ++i;
        if (i >= line.size())
            break;
        std::size_t start = i;
        while (i < line.size() && line[i] != ' ' && line[i] != '\t')
            ++i;
        tokens[n++] = line.substr(start, i - start);
    }
    return n;
}

namespace {

LoadResult ParseTables(TextCursor &cursor, StructureModel &model) {
    std::string_view version;
    if (!ReadLine(cursor, version) || LowerCase(version).find("release") == std::string::npos)
        return LoadResult::OldVersion;
    Tokens t;

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
        if (ReadTokenLine(cursor, t)) {
            SetInt16(n.pointIndex, t[0]);
            SetInt16(n.pointType, t[1]);
            SetInt16(n.colour, t[2]);
        }
        if (ReadTokenLine(cursor, t)) {
            double name = RoundHalfEven(LeadingNumber(t[0]));
            if (name > 32000)
                return LoadResult::NodeNameTooLarge;
            SetInt16(n.name, t[0]);
            SetInt16(n.constraintCard, t[1]);
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
        if (ReadTokenLine(cursor, t)) {
            SetInt16(b.name, t[0]);
            SetInt16(b.sectionCard, t[1]);
            SetInt16(b.releaseCard, t[2]);
            SetInt16(b.orientationCard, t[3]);
        }
    }

    if (!ReadCount(cursor, model.shellCount, kShellCapacity))
        return LoadResult::NotRead;
    for (int i = 0; i < model.shellCount; ++i) {
        Shell &s = model.shells[i];
        for (auto &v : s.vertices)
            NextGroupInt16(cursor, v);
        if (ReadTokenLine(cursor, t)) {
            SetInt16(s.name, t[1]);
            SetInt16(s.thicknessCard, t[2]);
            SetInt16(s.colour, t[4]);
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
