// The catalogue of joint types as a spreadsheet: a CSV file that a spreadsheet in an Italian
// locale opens directly (UTF-8 with a byte-order mark, ";" between fields, decimal comma, CR LF).
#pragma once

#include "connection/joint_types.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace vorna {

// The bars at a node, in ascending order, as the catalogue counted them.
using BarsOfNode = std::function<void(int node, std::vector<std::int16_t> &bars)>;

// The header "Tipo;Nodi del tipo;Capo;Nodo;X;Y;Z;Aste", then one row per node of every type:
// types in the list's order, nodes in ascending name order (table order between equal names);
// Aste holds the names of the node's named bars, separated by blanks. A catalogue made within
// tolerances has two more columns, "Scarto angoli (°)" and "Scarto lunghezze (%)": the largest
// deviation of any member of the type from its head, with three decimals.
std::string JointTypesCsvText(const StructureModel &model, const JointTypeCatalogue &catalogue,
                              const BarsOfNode &barsOf);

} // namespace vorna
