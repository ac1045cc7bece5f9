// Tables as CSV files that a spreadsheet in an Italian locale opens directly: UTF-8 with a
// byte-order mark, ";" between fields, numbers with a decimal comma, CR LF line ends.
#pragma once

#include "platform/user_message.h"

#include <string>
#include <string_view>
#include <vector>

namespace vorna {

// What every file starts with: the byte-order mark that tells a spreadsheet it is UTF-8.
inline constexpr std::string_view kCsvStart = "\xEF\xBB\xBF";

// A number's text with a decimal comma for the decimal point.
std::string DecimalComma(std::string text);

// One row, its fields joined by ";", then CR LF; a field that holds ";", a quote or a line end
// is quoted, its quotes doubled.
void AppendCsvRow(std::string &out, const std::vector<std::string> &fields);

// Writes the text whole or not at all; the message says which.
UserMessage WriteCsv(std::string_view fileName, std::string_view text);

} // namespace vorna
