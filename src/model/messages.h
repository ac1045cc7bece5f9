// The fixed message catalogue: texts that other parts show by number.
#pragma once

#include <array>
#include <string>

namespace vorna {

struct MessageCatalogue {
    std::array<std::string, 27> texts; // 1..26; unused numbers stay empty
    const std::string &operator[](int number) const { return texts.at(number); }
};

void FillMessageCatalogue(MessageCatalogue &catalogue);

} // namespace vorna
