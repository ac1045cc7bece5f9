// "VornaOut.txt", the result handed back to the suite: the base node, its bars with their types,
// the analogous nodes, the bars of each type and the kind of import asked for.
#pragma once

#include "connection/analogy.h"
#include "connection/connection_state.h"
#include "exchange/output_file.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace vorna {

// What the suite imports: 0 geometry and internal forces, 1 geometry, 2 internal forces.
enum class ImportMode { All = 0, Geometry = 1, Forces = 2 };

// typeBarListText of each type 1..10 (index 0 unused): the names of the bars classified as that
// type, ascending, as range text. Classifies the analogous bars first.
using TypeBarTexts = std::array<std::string, kMaxBarTypes + 1>;
TypeBarTexts BuildTypeBarLists(const StructureModel &model, ConnectionState &state,
                               AnalogyMethod method);

// The file's contents; nothing without a usable base node.
std::optional<std::string> ResultFileText(const StructureModel &model, const ConnectionState &state,
                                          const ConnectionInput &input, const TypeBarTexts &texts,
                                          ImportMode mode);
WriteResult WriteResultFile(std::string_view jobFolder, const StructureModel &model,
                            const ConnectionState &state, const ConnectionInput &input,
                            const TypeBarTexts &texts, ImportMode mode);

} // namespace vorna
