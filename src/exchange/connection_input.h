// "VornaNIn.txt", written by the suite before the start: the connection's description, its
// type code and the bar types the user may give to the base bars.
#pragma once

#include "connection/connection_state.h"

#include <string>
#include <string_view>

namespace vorna {

enum class InputResult {
    Read,
    Missing,      // no file: no description and no bar types, which is not an error
    TooManyTypes, // more than 10 bar types: the program must end
};

// Fields that cannot be read keep their values (empty text, 0 types).
InputResult ReadConnectionInput(std::string_view jobFolder, ConnectionInput &input);
InputResult ParseConnectionInput(std::string text, ConnectionInput &input);

} // namespace vorna
