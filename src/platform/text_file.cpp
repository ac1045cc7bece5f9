// Reading the suite's text files: line and field cursors (CR LF, CR or LF ends a line).
#include "platform/text_file.h"

#include <fstream>
#include <system_error>

namespace vorna {
namespace {

bool IsLineEnd(char c) {
    return c == '\r' || c == '\n';
}
bool IsSpace(char c) {
    return c == ' ' || c == '\t';
}

void SkipLineEnd(TextCursor &c) {
    if (c.pos < c.text.size() && c.text[c.pos] == '\r')
        ++c.pos;
    if (c.pos < c.text.size() && c.text[c.pos] == '\n')
        ++c.pos;
}

void SkipSpaces(TextCursor &c) {
    while (c.pos < c.text.size() && IsSpace(c.text[c.pos]))
        ++c.pos;
}

// After a field: blanks, then one comma or one line end belong to it.
void SkipDelimiter(TextCursor &c) {
    SkipSpaces(c);
    if (c.pos < c.text.size() && c.text[c.pos] == ',')
        ++c.pos;
    else
        SkipLineEnd(c);
}

// A quoted field: the text up to the closing quote (or the line end).
std::string_view ReadQuoted(TextCursor &c) {
    ++c.pos;
    std::size_t start = c.pos;
    while (c.pos < c.text.size() && c.text[c.pos] != '"' && !IsLineEnd(c.text[c.pos]))
        ++c.pos;
    std::string_view field = std::string_view(c.text).substr(start, c.pos - start);
    if (c.pos < c.text.size() && c.text[c.pos] == '"')
        ++c.pos;
    return field;
}

} // namespace

std::optional<std::string> ReadWholeFile(const std::filesystem::path &path) {
    // A folder or a pipe by that name is not the file: opening a pipe would wait for a writer.
    std::error_code ec;
    if (!std::filesystem::is_regular_file(path, ec))
        return std::nullopt;
    std::ifstream in(path, std::ios::binary);
    if (!in)
        return std::nullopt;
    std::string data;
    in.seekg(0, std::ios::end);
    auto size = in.tellg();
    if (size > 0) {
        data.resize(static_cast<std::size_t>(size));
        in.seekg(0);
        in.read(data.data(), size);
        if (!in)
            return std::nullopt;
    }
    return data;
}

bool FileExists(const std::filesystem::path &path) {
    std::error_code ec;
    return std::filesystem::is_regular_file(path, ec);
}

void AppendLine(std::string &out, std::string_view line) {
    out += line;
    out += "\r\n";
}

bool AtEnd(const TextCursor &cursor) {
    return cursor.pos >= cursor.text.size();
}

bool ReadLine(TextCursor &c, std::string_view &line) {
    if (AtEnd(c))
        return false;
    std::size_t start = c.pos;
    while (c.pos < c.text.size() && !IsLineEnd(c.text[c.pos]))
        ++c.pos;
    line = std::string_view(c.text).substr(start, c.pos - start);
    SkipLineEnd(c);
    return true;
}

bool ReadTextField(TextCursor &c, std::string_view &field) {
    if (AtEnd(c))
        return false;
    SkipSpaces(c);
    if (c.pos < c.text.size() && c.text[c.pos] == '"') {
        field = ReadQuoted(c);
        while (c.pos < c.text.size() && c.text[c.pos] != ',' && !IsLineEnd(c.text[c.pos]))
            ++c.pos;
    } else {
        std::size_t start = c.pos;
        while (c.pos < c.text.size() && c.text[c.pos] != ',' && !IsLineEnd(c.text[c.pos]))
            ++c.pos;
        std::size_t end = c.pos;
        while (end > start && IsSpace(c.text[end - 1]))
            --end;
        field = std::string_view(c.text).substr(start, end - start);
    }
    if (c.pos < c.text.size() && c.text[c.pos] == ',')
        ++c.pos;
    else
        SkipLineEnd(c);
    return true;
}

bool ReadNumberField(TextCursor &c, std::string_view &field) {
    while (c.pos < c.text.size() && (IsSpace(c.text[c.pos]) || IsLineEnd(c.text[c.pos])))
        ++c.pos;
    if (AtEnd(c))
        return false;
    if (c.text[c.pos] == '"') {
        field = ReadQuoted(c);
    } else {
        std::size_t start = c.pos;
        while (c.pos < c.text.size() && c.text[c.pos] != ',' && !IsSpace(c.text[c.pos]) &&
               !IsLineEnd(c.text[c.pos]))
            ++c.pos;
        field = std::string_view(c.text).substr(start, c.pos - start);
    }
    SkipDelimiter(c);
    return true;
}

} // namespace vorna
