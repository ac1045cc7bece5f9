// Fuzz target: the display and internal options readers on arbitrary bytes.
#include "options/options.h"

#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    std::string text(reinterpret_cast<const char *>(data), size);
    vorna::DisplayOptions display;
    vorna::ParseDisplayOptions(text, display);
    vorna::DisplayOptionsText(display);
    vorna::InternalOptions internal;
    vorna::ParseInternalOptions(text, internal);
    return 0;
}
