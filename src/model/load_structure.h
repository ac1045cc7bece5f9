// The reader of STRUTTUR.STR, the structure file the suite writes into every job folder.
#pragma once

#include "model/structure_model.h"
#include "platform/user_message.h"

#include <array>
#include <optional>
#include <string_view>

namespace vorna {

enum class LoadResult {
    Loaded,           // read to the end
    NotRead,          // missing file or counts beyond the tables
    NodeNameTooLarge, // a node number above 32000: not read either
    OldVersion,       // a file of version 3.8 or older: the program must end
};

// Reads jobFolder + "\STRUTTUR.STR" into model. A bad value keeps the field's previous value and
// reading goes on; only the version line, a node number above 32000 and counts beyond the
// tables' capacities interrupt the load, and leave the tables empty.
LoadResult LoadStructure(std::string_view jobFolder, StructureModel &model);

// Same, over the file's bytes.
LoadResult ParseStructure(std::string text, StructureModel &model);

// What the user is told of an outcome of the reader, when anything.
std::optional<UserMessage> LoadMessage(LoadResult result);

// Splits a line into blank- or tab-separated tokens, as repeated NextToken calls with a single
// blank do; at most tokens.size() are kept. Returns how many were found (and kept).
std::size_t SplitTokens(std::string_view line, std::array<std::string_view, 6> &tokens);

} // namespace vorna
