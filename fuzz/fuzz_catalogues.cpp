// Fuzz target: the section and thickness catalogue readers on arbitrary bytes.
#include "model/catalogues.h"

#include <memory>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    static auto model = std::make_unique<vorna::StructureModel>();
    std::string text(reinterpret_cast<const char *>(data), size);
    vorna::ParseSectionCards(text, *model);
    vorna::ParseThicknessCards(text, *model);
    return 0;
}
