// Text helpers of the readers: NextToken cuts blank-separated tokens off a line, ReplaceAll.
#pragma once

#include <string>
#include <string_view>

namespace vorna {

// Tabs become blanks, the line is trimmed, and the text before the first separator is cut off
// and returned trimmed; the line keeps the trimmed rest. An exhausted line yields "".
std::string NextToken(std::string &line, std::string_view separator);

// Replaces every occurrence left to right, going on after each inserted replacement. Returns the
// 1-based position of the last replacement, 0 when nothing was replaced.
std::size_t ReplaceAll(std::string &text, std::string_view find, std::string_view replacement,
                       bool ignoreCase);

} // namespace vorna
