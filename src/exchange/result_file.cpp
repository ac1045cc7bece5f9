// "VornaOut.txt", the result handed back to the suite: the base node, its bars with their types,
// the analogous nodes, the bars of each type and the kind of import asked for.
#include "exchange/result_file.h"

#include "connection/bar_types.h"
#include "platform/number_text.h"
#include "platform/text.h"
#include "platform/text_file.h"

#include <algorithm>

namespace vorna {

TypeBarTexts BuildTypeBarLists(const StructureModel &model, ConnectionState &state,
                               AnalogyMethod method) {
    const TypeBarLists lists = ClassifyAnalogousBars(model, state, method);
    TypeBarTexts texts;
    for (int t = 1; t <= kMaxBarTypes; ++t) {
        std::vector<int> names(lists.names[t].begin(), lists.names[t].end());
        std::sort(names.begin(), names.end());
        texts[t] = RangeText(names);
    }
    return texts;
}

std::optional<std::string> ResultFileText(const StructureModel &model, const ConnectionState &state,
                                          const ConnectionInput &input, const TypeBarTexts &texts,
                                          ImportMode mode) {
    if (!HasUsableBaseNode(state) || state.baseNode >= model.nodeCount)
        return std::nullopt;
    std::string out;
    AppendLine(out, IntText(model.nodes[state.baseNode].name));
    AppendLine(out, IntText(static_cast<int>(mode)));
    AppendLine(out, IntText(state.baseBarCount));
    for (int k = 0; k < state.baseBarCount; ++k) {
        const int bar = state.baseBars[k];
        const int name = bar >= 0 && bar < model.barCount ? model.bars[bar].name : 0;
        AppendLine(out, IntText(name) + IntText(state.baseBarTypes[k]));
    }
    AppendLine(out, Trim(state.analogousListText));
    for (int t = 1; t <= std::clamp(input.barTypeCount, 0, kMaxBarTypes); ++t) {
        const std::string text = Trim(texts[t]);
        AppendLine(out, text.empty() ? " " : text);
    }
    return out;
}

WriteResult WriteResultFile(std::string_view jobFolder, const StructureModel &model,
                            const ConnectionState &state, const ConnectionInput &input,
                            const TypeBarTexts &texts, ImportMode mode) {
    std::optional<std::string> text = ResultFileText(model, state, input, texts, mode);
    return text ? WriteJobFile(jobFolder, "VornaOut.txt", *text) : WriteResult::NoBaseNode;
}

} // namespace vorna
