// The reader of STRUTTUR.STR, the structure file the suite writes into every job folder.
#pragma once

#include "model/structure_model.h"
#include "platform/user_message.h"

#include <optional>
#include <span>
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

// The leading numbers of a line's first numbers.size() blank- or tab-separated tokens, each as
// LeadingNumber reads it, the tokens cut as repeated NextToken calls with a single blank cut them;
// 0 for a token the line lacks.
void ParseTokenNumbers(std::string_view line, std::span<double> numbers);

} // namespace vorna
