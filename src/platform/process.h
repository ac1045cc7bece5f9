// The process's command line and standard output, alike on every system.
#pragma once

#include <string>
#include <vector>

namespace vorna {

// The arguments after the program's name, in UTF-8. Windows hands main() its arguments in the
// ANSI code page; its wide command line holds every character.
std::vector<std::string> ProgramArguments(int argc, char **argv);

// The script runner's lines leave as written: Windows' text mode would turn each "\n" into CR LF.
// A Windows program without a console of its own (the window) whose output is not redirected
// writes to the console of the program that started it, when there is one.
void UseBinaryStandardOutput();

} // namespace vorna
