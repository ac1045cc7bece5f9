// The start-up sequence: folders, options, messages, catalogues and the structure file.
#pragma once

#include "app/program.h"

#include <string_view>

namespace vorna {

// Runs once when the main window loads. A fatal message ends the program (exitRequested);
// a structure that cannot be read leaves the program running with nothing loaded.
void RunStartUp(Program &program, std::string_view commandLine);

} // namespace vorna
