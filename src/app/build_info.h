// What the build knows of itself, for "Informazioni su vorna": the version, the date, the runtime.
#pragma once

#include <string_view>

namespace vorna {

// `git describe` of the sources at the build ("1.0.0-g4023520-dirty" before the first tag), or
// the project's version where the sources were no git clone.
std::string_view VornaVersion();
// The day of the build, dd/mm/yyyy.
std::string_view VornaBuildDate();
// True where the C++ runtime (libstdc++, libgcc, MinGW-w64's) is linked into the programs.
bool RuntimeLinkedIn();

} // namespace vorna
