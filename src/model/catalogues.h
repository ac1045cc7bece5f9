// Readers of the job's section catalogue "sezioni_" and thickness catalogue "spessori".
#pragma once

#include "model/structure_model.h"
#include "platform/ui.h"

#include <string>
#include <string_view>

namespace vorna {

struct CatalogueResult {
    std::string message;     // shown by start-up when not empty; start-up goes on
    bool endProgram = false; // too many cards: the message was shown and the program must end
};

CatalogueResult ReadThicknessCards(std::string_view jobFolder, StructureModel &model, Ui &ui);
CatalogueResult ReadSectionCards(std::string_view jobFolder, StructureModel &model, Ui &ui);

// The same over the files' bytes.
CatalogueResult ParseThicknessCards(std::string text, StructureModel &model, Ui &ui);
CatalogueResult ParseSectionCards(std::string text, StructureModel &model, Ui &ui);

} // namespace vorna
