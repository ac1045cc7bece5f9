// Fuzz target: the section and thickness catalogue readers on arbitrary bytes.
#include "model/catalogues.h"
#include "platform/silent_ui.h"

#include <memory>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    static auto model = std::make_unique<vorna::StructureModel>();
    vorna::SilentUi ui;
    std::string text(reinterpret_cast<const char *>(data), size);
    vorna::ParseSectionCards(text, *model, ui);
    vorna::ParseThicknessCards(text, *model, ui);
    return 0;
}
