// What the writers of the files handed back to the suite report, and where those files go.
#include "exchange/output_file.h"

#include "platform/native_path.h"
#include "platform/text_file.h"

namespace vorna {

WriteResult WriteJobFile(std::string_view jobFolder, std::string_view name, std::string_view text) {
    std::string file = std::string(jobFolder) + "\\" + std::string(name);
    return WriteFileAtomic(NativePath(file), text) ? WriteResult::Written
                                                   : WriteResult::CannotWrite;
}

} // namespace vorna
