// Entry point: the Qt window, or the headless script runner with --script.
#include "app/script_runner.h"
#include "platform/text.h"

#include <iostream>
#include <string>

namespace {

// The suite passes one argument; like the command line of the original platform, every
// argument joined by blanks is the text the program reads.
std::string CommandLine(int argc, char **argv, int first) {
    std::string line;
    for (int i = first; i < argc; ++i) {
        if (i > first)
            line += ' ';
        line += argv[i];
    }
    return vorna::Utf8ToCp1252(line);
}

} // namespace

int main(int argc, char **argv) {
    if (argc >= 3 && std::string(argv[1]) == "--script")
        return vorna::RunScript(argv[2], CommandLine(argc, argv, 3), std::cout);
    std::cerr << "usage: vorna --script FILE \"|diroot=ROOT|\"\n";
    return 2;
}
