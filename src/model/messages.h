// The fixed message texts that several parts of the program show, named by what they say.
#pragma once

#include <string_view>

namespace vorna {

// The suite's documents number these texts; the numbers are kept beside each entry.
enum class Msg {
    TooManyThicknessCards,  // 1
    TooManySectionCards,    // 2
    CannotReadFile,         // 3, followed by the file's name
    OptionsNotSaved,        // 5
    OptionsSaved,           // 6
    CannotWriteOutput,      // 7
    NoDirectPickWithoutBox, // 18
    SelectionTooLong,       // 19
    DropsAnalogousNodes,    // 24
    TooManyBaseBars,        // 25
    TooManyBarTypes,        // 26
};

std::string_view MessageText(Msg message);

} // namespace vorna
