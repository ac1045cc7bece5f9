// "VornaNIn.txt", written by the suite before the start: the connection's description, its
// type code and the bar types the user may give to the base bars.
#include "exchange/connection_input.h"

#include "platform/native_path.h"
#include "platform/number_text.h"
#include "platform/text.h"
#include "platform/text_file.h"

#include <algorithm>

namespace vorna {
namespace {

// "CO  Colonna" gives the code CO and the description Colonna; tabs count as blanks.
void SplitBarType(std::string_view field, std::string &code, std::string &description) {
    std::string text(field);
    std::replace(text.begin(), text.end(), '\t', ' ');
    text = Trim(text);
    const std::size_t blank = text.find(' ');
    code = Trim(text.substr(0, blank));
    description = blank == std::string::npos ? std::string() : Trim(text.substr(blank));
}

InputResult ConnectionInputOf(TextCursor &cursor, ConnectionInput &input) {
    std::string_view field;
    if (ReadLine(cursor, field))
        input.connectionDescription = std::string(field);
    if (ReadTextField(cursor, field))
        input.connectionTypeCode = std::string(field);
    if (!ReadTextField(cursor, field))
        return InputResult::Read;
    const std::optional<double> count = StrictNumber(field);
    if (!count)
        return InputResult::Read;
    const double types = RoundHalfEven(*count);
    if (types >= kMaxBarTypes + 1)
        return InputResult::TooManyTypes;
    if (!(types >= 1))
        return InputResult::Read;
    input.barTypeCount = static_cast<int>(types);
    for (int t = 1; t <= input.barTypeCount && ReadTextField(cursor, field); ++t)
        SplitBarType(field, input.barTypeCodes[t], input.barTypeDescriptions[t]);
    return InputResult::Read;
}

} // namespace

InputResult ParseConnectionInput(std::string text, ConnectionInput &input) {
    TextCursor cursor(std::move(text));
    return ConnectionInputOf(cursor, input);
}

InputResult ReadConnectionInput(std::string_view jobFolder, ConnectionInput &input) {
    auto cursor = TextCursor::Open(NativePath(std::string(jobFolder) + "\\VornaNIn.txt"));
    if (!cursor) {
        input.connectionDescription.clear();
        return InputResult::Missing;
    }
    return OrWhenOutOfMemory(InputResult::Missing,
                             [&] { return ConnectionInputOf(*cursor, input); });
}

} // namespace vorna
