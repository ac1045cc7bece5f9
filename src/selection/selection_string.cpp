// The selection string typed on the answer line: numbers and ranges such as "1,2,5-8".
#include "selection/selection_string.h"

#include "platform/number_text.h"

#include <cmath>
#include <cstdint>
#include <limits>

namespace vorna {
namespace {

int TokenValue(std::string_view token) {
    double value = std::floor(LeadingNumber(token));
    if (std::isnan(value))
        return 0;
    constexpr double kLo = std::numeric_limits<int>::min();
    constexpr double kHi = std::numeric_limits<int>::max();
    return static_cast<int>(value < kLo ? kLo : value > kHi ? kHi : value);
}

// Appends one value; false when the list would outgrow its capacity.
bool Append(std::vector<int> &values, std::size_t capacity, int value) {
    if (values.size() >= capacity)
        return false;
    values.push_back(value);
    return true;
}

} // namespace

std::optional<std::vector<int>> ParseSelectionString(std::string_view text, std::size_t capacity) {
    std::vector<int> values;
    if (text.empty())
        return values;
    bool rangeOpen = false;
    int rangeStart = 0;
    std::size_t tokenStart = 0;
    for (std::size_t i = 0; i <= text.size(); ++i) {
        char c = i < text.size() ? text[i] : ','; // the end closes the last token like a comma
        if (c != ',' && c != '-')
            continue;
        int value = TokenValue(text.substr(tokenStart, i - tokenStart));
        tokenStart = i + 1;
        if (c == '-') {
            rangeOpen = true;
            rangeStart = value;
        } else if (rangeOpen) {
            rangeOpen = false;
            // 64-bit counter: a range reaching the top of the type must still end.
            for (std::int64_t v = rangeStart; v <= value; ++v)
                if (!Append(values, capacity, static_cast<int>(v)))
                    return std::nullopt;
        } else if (!Append(values, capacity, value)) {
            return std::nullopt;
        }
    }
    return values;
}

} // namespace vorna
