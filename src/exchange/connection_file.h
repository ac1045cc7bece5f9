// "Collegamenti.txt" and "Dati_Coll_3D.txt": the connection handed to the suite's
// connection-design program, as key lines "value [KEY indices]".
#pragma once

#include "connection/connection_state.h"
#include "exchange/output_file.h"

#include <optional>
#include <string>
#include <string_view>

namespace vorna {

// The value in a field of 40 characters (a longer one followed by one blank), the key in
// square brackets, then the comment; the whole line trimmed and ended with CR LF.
void WriteKeyLine(std::string &out, std::string_view value, std::string_view key,
                  std::string_view comment);
// A number as a value or a key index: a leading blank when not negative.
std::string NumberField(int number);

// "COLL" and the base node's name, e.g. COLL12: the connection's name.
std::string ConnectionName(const StructureModel &model, const ConnectionState &state);

// The files' contents; nothing without a usable base node. The records' barTypes must come
// from the classification.
std::optional<std::string> ConnectionFileText(const StructureModel &model,
                                              const ConnectionState &state,
                                              const ConnectionInput &input);
std::optional<std::string> ConnectionNameFileText(const StructureModel &model,
                                                  const ConnectionState &state);

WriteResult WriteConnectionFile(std::string_view jobFolder, const StructureModel &model,
                                const ConnectionState &state, const ConnectionInput &input);
WriteResult WriteConnectionNameFile(std::string_view jobFolder, const StructureModel &model,
                                    const ConnectionState &state);

} // namespace vorna
