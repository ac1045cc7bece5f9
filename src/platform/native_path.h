// The system's folder and file names ("folder\name", Windows-1252) turned into real paths.
#pragma once

#include <filesystem>
#include <string_view>

namespace vorna {

// On Windows the name is used as it is: drive letters, "\" and "/" and case-insensitive names
// are the file system's own rules. Elsewhere "\" becomes "/", and each component that does not
// exist with that exact spelling is matched case-insensitively in its folder, because the
// suite's names are case-insensitive and the root folder is lower-cased. Components that match
// nothing are kept as written (a file about to be created).
std::filesystem::path NativePath(std::string_view name);

// A path from UTF-8 text. On Windows a path made from a narrow string reads it in the ANSI code
// page, which loses every character that page lacks.
std::filesystem::path PathFromUtf8(std::string_view utf8);

} // namespace vorna
