// What the writers of the files handed back to the suite report, and where those files go.
#pragma once

#include <string>
#include <string_view>

namespace vorna {

enum class WriteResult {
    Written,
    NoBaseNode,  // nothing to describe: no file was written
    CannotWrite, // the file could not be created
};

// Writes the text to jobFolder + "\" + name, atomically.
WriteResult WriteJobFile(std::string_view jobFolder, std::string_view name, std::string_view text);

} // namespace vorna
