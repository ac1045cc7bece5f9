// Text helpers of the readers: NextToken cuts blank-separated tokens off a line, ReplaceAll.
#include "model/tokens.h"

#include "platform/text.h"

namespace vorna {

std::string NextToken(std::string &line, std::string_view separator) {
    ReplaceAll(line, "\t", " ", false);
    line = Trim(line);
    std::size_t p = separator.empty() ? std::string::npos : line.find(separator);
    if (p == std::string::npos) {
        std::string token = std::move(line);
        line.clear();
        return token;
    }
    std::string token = Trim(std::string_view(line).substr(0, p));
    line = Trim(std::string_view(line).substr(p + separator.size()));
    return token;
}

std::size_t ReplaceAll(std::string &text, std::string_view find, std::string_view replacement,
                       bool ignoreCase) {
    if (find.empty())
        return 0;
    std::string wanted = ignoreCase ? LowerCase(find) : std::string(find);
    std::size_t last = 0;
    std::size_t from = 0;
    while (true) {
        std::size_t p = ignoreCase ? LowerCase(text).find(wanted, from) : text.find(wanted, from);
        if (p == std::string::npos)
            return last;
        text.replace(p, find.size(), replacement);
        last = p + 1;
        from = p + replacement.size();
    }
}

} // namespace vorna
