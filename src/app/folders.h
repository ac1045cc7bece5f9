// The suite's folders, found from the command-line argument and the two settings files.
#pragma once

#include "platform/ui.h"

#include <optional>
#include <string>
#include <string_view>

namespace vorna {

// Windows-1252 folder names as the program builds them ("folder\name").
struct Folders {
    std::string rootFolder;
    std::string jobsFolder;
    std::string jobName;
    std::string jobFolder;
    std::string programsFolder;
    std::string customFolder;
    // The job, programs and custom folders as the command line and the settings files spell
    // them, which is how their files are found: lower-cased (as the suite shows them) they could
    // name another folder of the same letters.
    std::string jobPath;
    std::string programsPath;
    std::string customPath;
};

// Fills the folders from the command line, or shows the fatal message and returns nothing: the
// caller then ends the program.
std::optional<Folders> SetUpFolders(std::string_view commandLine, Ui &ui);

} // namespace vorna
