// The system's folder and file names ("folder\name", Windows-1252) turned into real paths.
#pragma once

#include <filesystem>
#include <string_view>

namespace vorna {

// On Windows the name is used as it is. Elsewhere "\" becomes "/", and each component that does
// not exist with that exact spelling is matched case-insensitively in its folder, because the
// suite's names are case-insensitive and the root folder is lower-cased. Components that match
// nothing are kept as written (a file about to be created).
std::filesystem::path NativePath(std::string_view name);

} // namespace vorna
