// The reader of STRUTTUR.STR, the structure file the suite writes into every job folder.
#pragma once

#include "model/structure_model.h"
#include "platform/ui.h"

#include <array>
#include <string_view>

namespace vorna {

enum class LoadResult {
    Loaded,     // read to the end
    NotRead,    // missing file, a refused node number or counts beyond the tables
    EndProgram, // old file version: the message was shown and the program must end
};

// Reads jobFolder + "\STRUTTUR.STR" into model. A bad value keeps the field's previous value and
// reading goes on; only the version line, a node number above 32000 and counts beyond the
// tables' capacities interrupt the load.
LoadResult LoadStructure(std::string_view jobFolder, StructureModel &model, Ui &ui);

// Same, over the file's bytes.
LoadResult ParseStructure(std::string text, StructureModel &model, Ui &ui);

// Splits a line into blank- or tab-separated tokens, as repeated NextToken calls with a single
// blank do; at most tokens.size() are kept. Returns how many were found (and kept).
std::size_t SplitTokens(std::string_view line, std::array<std::string_view, 6> &tokens);

} // namespace vorna
