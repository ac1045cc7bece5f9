// Readers of the job's section catalogue "sezioni_" and thickness catalogue "spessori".
#pragma once

#include "model/structure_model.h"

#include <string>
#include <string_view>

namespace vorna {

struct CatalogueResult {
    std::string message;     // shown by start-up when not empty
    bool endProgram = false; // too many cards: after the message the program must end
};

// The files are found in jobPath (the folder as spelled, when that differs from jobFolder, the
// name the messages give).
CatalogueResult ReadThicknessCards(std::string_view jobFolder, StructureModel &model,
                                   std::string_view jobPath = {});
CatalogueResult ReadSectionCards(std::string_view jobFolder, StructureModel &model,
                                 std::string_view jobPath = {});

// The same over the files' bytes.
CatalogueResult ParseThicknessCards(std::string text, StructureModel &model);
CatalogueResult ParseSectionCards(std::string text, StructureModel &model);

} // namespace vorna
