// "Collegamenti.txt" and "Dati_Coll_3D.txt": the connection handed to the suite's
// connection-design program, as key lines "value [KEY indices]".
#include "exchange/connection_file.h"

#include "platform/number_text.h"
#include "platform/text.h"
#include "platform/text_file.h"

#include <algorithm>

namespace vorna {
namespace {

constexpr int kValueField = 40;

int NodeName(const StructureModel &model, int node) {
    return node >= 0 && node < model.nodeCount ? model.nodes[node].name : 0;
}

int BarName(const StructureModel &model, int bar) {
    return bar >= 0 && bar < model.barCount ? model.bars[bar].name : 0;
}

// The key word followed by its indices, each with its leading blank: "ASTA_BASE 1 3".
std::string Key(std::string_view word, std::initializer_list<int> indices) {
    std::string key(word);
    for (int i : indices)
        key += NumberField(i);
    return key;
}

bool Describable(const StructureModel &model, const ConnectionState &state) {
    return HasUsableBaseNode(state) && state.baseNode < model.nodeCount;
}

} // namespace

std::string NumberField(int number) {
    return (number >= 0 ? " " : "") + IntText(number);
}

void WriteKeyLine(std::string &out, std::string_view value, std::string_view key,
                  std::string_view comment) {
    const int length = static_cast<int>(value.size());
    const int width = std::max(length + 1, kValueField);
    std::string line(value);
    line.append(static_cast<std::size_t>(width - length), ' ');
    line += "[" + Trim(key) + "] ";
    line += comment;
    AppendLine(out, Trim(line));
}

std::string ConnectionName(const StructureModel &model, const ConnectionState &state) {
    return "COLL" + IntText(NodeName(model, state.baseNode));
}

std::optional<std::string> ConnectionFileText(const StructureModel &model,
                                              const ConnectionState &state,
                                              const ConnectionInput &input) {
    if (!Describable(model, state))
        return std::nullopt;
    std::string out;
    WriteKeyLine(out, "1", "N_COLLEGAMENTI", "");
    WriteKeyLine(out, ConnectionName(model, state), Key("DESCRIZIONE_COLLEGAMENTO", {1}), "");
    WriteKeyLine(out, input.connectionTypeCode, Key("TIPO_COLLEGAMENTO", {1}), "");
    WriteKeyLine(out, NumberField(NodeName(model, state.baseNode)), Key("NODO_BASE", {1}), "");
    for (int k = 0; k < state.baseBarCount; ++k) {
        WriteKeyLine(out, NumberField(BarName(model, state.baseBars[k])),
                     Key("ASTA_BASE", {1, k + 1}), "");
        WriteKeyLine(out, BarTypeCode(input, state.baseBarTypes[k]),
                     Key("TIPOASTA_BASE", {1, k + 1}), "");
    }
    for (std::size_t r = 0; r < state.analogousNodes.size(); ++r) {
        const AnalogousNode &record = state.analogousNodes[r];
        const int position = static_cast<int>(r + 1);
        WriteKeyLine(out, NumberField(NodeName(model, record.node)),
                     Key("NODO_ANALOGO", {1, position}), "");
        for (int m = 0; m < std::clamp<int>(record.barCount, 0, kMaxBaseBars); ++m) {
            WriteKeyLine(out, NumberField(BarName(model, record.bars[m])),
                         Key("ASTA_NODO_ANALOGO", {1, position, m + 1}), "");
            WriteKeyLine(out, BarTypeCode(input, record.barTypes[m]),
                         Key("TIPOASTA_NODO_ANALOGO", {1, position, m + 1}), "");
        }
    }
    return out;
}

std::optional<std::string> ConnectionNameFileText(const StructureModel &model,
                                                  const ConnectionState &state) {
    if (!Describable(model, state))
        return std::nullopt;
    std::string out;
    AppendLine(out, ConnectionName(model, state));
    return out;
}

WriteResult WriteConnectionFile(std::string_view jobFolder, const StructureModel &model,
                                const ConnectionState &state, const ConnectionInput &input) {
    std::optional<std::string> text = ConnectionFileText(model, state, input);
    return text ? WriteJobFile(jobFolder, "Collegamenti.txt", *text) : WriteResult::NoBaseNode;
}

WriteResult WriteConnectionNameFile(std::string_view jobFolder, const StructureModel &model,
                                    const ConnectionState &state) {
    std::optional<std::string> text = ConnectionNameFileText(model, state);
    return text ? WriteJobFile(jobFolder, "Dati_Coll_3D.txt", *text) : WriteResult::NoBaseNode;
}

} // namespace vorna
