// The display options ("VorNOpzi.txt", read and written) and the internal options
// ("VorOpInt.txt", read only) of the suite's custom folder.
#include "options/options.h"

#include "model/messages.h"
#include "platform/native_path.h"
#include "platform/number_text.h"
#include "platform/text.h"
#include "platform/text_file.h"

#include <algorithm>

namespace vorna {
namespace {

std::string FileName(std::string_view folder, std::string_view name) {
    return std::string(folder) + "\\" + std::string(name);
}

} // namespace

double OptionValue::Number() const {
    switch (kind) {
    case Kind::Number:
        return number;
    case Kind::Text:
        return LeadingNumber(text);
    case Kind::Unset:
        break;
    }
    return 0;
}

std::string OptionValue::Text() const {
    switch (kind) {
    case Kind::Number:
        return NumberText(number);
    case Kind::Text:
        return Trim(text);
    case Kind::Unset:
        break;
    }
    return "";
}

void SetDefaultDisplayOptions(DisplayOptions &options) {
    static constexpr std::array<double, kDisplayOptionCount + 1> kDefaults = {
        0, 1, 1, 1, 4, -1, 1, 5,  0,  0,  -1, 5,     5,        1,     5,       1,
        1, 1, 1, 1, 1, 1,  1, -1, -1, -1, -1, 65280, 16776960, 65535, 16711680};
    for (int k = 1; k <= kDisplayOptionCount; ++k)
        options.values[k] = kDefaults[k] < 0 ? OptionValue{} : OptionValue::Of(kDefaults[k]);
}

namespace {

void DisplayOptionsOf(TextCursor &cursor, DisplayOptions &options) {
    for (int k = 1; k <= kDisplayOptionCount; ++k) {
        std::string_view field;
        OptionValue &value = options.values[k];
        value = {};
        if (!ReadTextField(cursor, field) || field.empty())
            continue;
        if (auto number = StrictNumber(field))
            value = OptionValue::Of(*number);
        else
            value = {OptionValue::Kind::Text, 0, std::string(field)};
    }
}

void InternalOptionsOf(TextCursor &cursor, InternalOptions &options) {
    std::string_view line;
    for (int i = 0; i < kInternalOptionCount && ReadLine(cursor, line); ++i) {
        std::size_t first = line.find('|');
        if (first == std::string_view::npos || line.find('|', first + 1) == std::string_view::npos)
            continue;
        if (UpperCase(line.substr(first + 1, 2)) != "PC")
            continue;
        std::size_t digits = first + 3;
        int k = 0;
        while (digits < line.size() && line[digits] >= '0' && line[digits] <= '9' && k < 100)
            k = k * 10 + (line[digits++] - '0');
        if (k < 1 || k > kInternalOptionCount)
            continue;
        std::string value(line.substr(0, first));
        std::replace(value.begin(), value.end(), ',', '.');
        if (auto number = StrictNumber(value))
            options.values[k] = *number;
    }
}

} // namespace

void ReadDisplayOptions(std::string_view customFolder, DisplayOptions &options) {
    auto cursor = TextCursor::Open(NativePath(FileName(customFolder, "VorNOpzi.txt")));
    if (!cursor) {
        SetDefaultDisplayOptions(options);
        return;
    }
    if (!OrWhenOutOfMemory(false, [&] {
            DisplayOptionsOf(*cursor, options);
            return true;
        }))
        SetDefaultDisplayOptions(options);
}

void ParseDisplayOptions(std::string text, DisplayOptions &options) {
    TextCursor cursor(std::move(text));
    DisplayOptionsOf(cursor, options);
}

void ReadInternalOptions(std::string_view customFolder, InternalOptions &options) {
    options = InternalOptions{};
    auto cursor = TextCursor::Open(NativePath(FileName(customFolder, "VorOpInt.txt")));
    if (cursor && !OrWhenOutOfMemory(false, [&] {
            InternalOptionsOf(*cursor, options);
            return true;
        }))
        options = InternalOptions{};
}

void ParseInternalOptions(std::string_view text, InternalOptions &options) {
    TextCursor cursor{std::string(text)};
    InternalOptionsOf(cursor, options);
}

std::string DisplayOptionsText(const DisplayOptions &options) {
    std::string out;
    for (int k = 1; k <= kDisplayOptionCount; ++k)
        AppendLine(out, options.values[k].Text());
    return out;
}

std::string_view WriteDisplayOptions(std::string_view customFolder, const DisplayOptions &options) {
    bool ok = WriteFileAtomic(NativePath(FileName(customFolder, "VorNOpzi.txt")),
                              DisplayOptionsText(options));
    return MessageText(ok ? Msg::OptionsSaved : Msg::OptionsNotSaved);
}

} // namespace vorna
