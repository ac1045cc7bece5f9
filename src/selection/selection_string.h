// The selection string typed on the answer line: numbers and ranges such as "1,2,5-8".
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace vorna {

constexpr std::size_t kNameSelectionCapacity = 20000;
constexpr std::size_t kCardSelectionCapacity = 100;

// The values in the order typed, ranges expanded; nothing when they would be more than capacity.
// Each token counts by its leading number rounded down, so letters read as 0 and a trailing
// separator appends a 0. Values beyond 16 bits are kept (clamped to 32 bits): they name no
// element but still count, so a short range such as 1-99999 is refused rather than cut.
std::optional<std::vector<int>> ParseSelectionString(std::string_view text, std::size_t capacity);

} // namespace vorna
