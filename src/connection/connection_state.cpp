// The connection being defined: lookups and changes of the analogous-node list, kept in step
// with the per-node and per-bar tables, and the list shown as range text.
#include "connection/connection_state.h"

#include "platform/colour.h"
#include "platform/invariant.h"
#include "platform/number_text.h"

#include <algorithm>

namespace vorna {
namespace {

bool NodeInTable(int node) {
    return node >= 0 && node < kNodeCapacity;
}
bool BarInTable(int bar) {
    return bar >= 0 && bar < kBarCapacity;
}

int RecordBars(const AnalogousNode &record) {
    return std::clamp<int>(record.barCount, 0, kMaxBaseBars);
}

} // namespace

std::uint32_t BarTypeColour(int type) {
    static constexpr std::array<std::uint32_t, kMaxBarTypes> kColours = {
        PackRgb(0, 255, 255), PackRgb(128, 0, 255), PackRgb(255, 128, 0), PackRgb(0, 0, 255),
        PackRgb(0, 128, 255), PackRgb(0, 255, 0),   PackRgb(0, 255, 128), PackRgb(0, 0, 128),
        PackRgb(0, 128, 0),   PackRgb(255, 0, 128)};
    return type >= 1 && type <= kMaxBarTypes ? kColours[type - 1] : 0;
}

const std::string &BarTypeCode(const ConnectionInput &input, int type) {
    static const std::string none;
    return type >= 1 && type <= kMaxBarTypes ? input.barTypeCodes[type] : none;
}

int FindInAnalogous(const ConnectionState &state, int node) {
    return NodeInTable(node) ? state.nodePosition[node] : 0;
}

void AppendAnalogous(ConnectionState &state, const AnalogousNode &record) {
    if (!NodeInTable(record.node) || state.nodeListed[record.node])
        return;
    VORNA_INVARIANT(state.analogousNodes.size() < static_cast<std::size_t>(kAnalogousCapacity));
    state.analogousNodes.push_back(record);
    state.nodeListed[record.node] = 1;
    state.nodePosition[record.node] = static_cast<std::int32_t>(state.analogousNodes.size());
    for (int m = 0; m < RecordBars(record); ++m)
        if (BarInTable(record.bars[m]))
            ++state.barUses[record.bars[m]];
}

void detail::ForgetRecord(ConnectionState &state, const AnalogousNode &record) {
    if (NodeInTable(record.node)) {
        state.nodeListed[record.node] = 0;
        state.nodePosition[record.node] = 0;
    }
    for (int m = 0; m < RecordBars(record); ++m)
        if (BarInTable(record.bars[m]))
            --state.barUses[record.bars[m]];
}

void detail::RenumberRecords(ConnectionState &state, std::size_t from) {
    for (std::size_t r = from; r < state.analogousNodes.size(); ++r) {
        const int node = state.analogousNodes[r].node;
        if (NodeInTable(node))
            state.nodePosition[node] = static_cast<std::int32_t>(r + 1);
    }
}

void RemoveAnalogousRecord(ConnectionState &state, int position) {
    if (position < 1 || position > static_cast<int>(state.analogousNodes.size()))
        return;
    auto at = state.analogousNodes.begin() + (position - 1);
    detail::ForgetRecord(state, *at);
    state.analogousNodes.erase(at);
    detail::RenumberRecords(state, static_cast<std::size_t>(position - 1));
}

void ClearAnalogous(ConnectionState &state) {
    for (const AnalogousNode &record : state.analogousNodes)
        detail::ForgetRecord(state, record);
    state.analogousNodes.clear();
}

void ResetAnalogousToBaseNode(ConnectionState &state) {
    ClearAnalogous(state);
    AnalogousNode record;
    record.node = state.baseNode;
    record.barCount = static_cast<std::int16_t>(BaseBarsInTable(state));
    record.bars = state.baseBars;
    AppendAnalogous(state, record);
}

std::string RangeText(const std::vector<int> &numbers) {
    std::string text;
    bool inRun = false;
    int first = 0, last = 0;
    auto close = [&] {
        if (!text.empty())
            text += ',';
        text += IntText(first);
        if (last != first)
            text += '-' + IntText(last);
    };
    for (int n : numbers) {
        if (n <= 0)
            continue;
        if (inRun && static_cast<long long>(n) == static_cast<long long>(last) + 1) {
            last = n;
            continue;
        }
        if (inRun)
            close();
        first = last = n;
        inRun = true;
    }
    if (inRun)
        close();
    return text;
}

// The names of the listed nodes in ascending order. The suite's way (every node's name, negated
// for the unlisted ones, sorted by absolute value, the negative ones skipped) keeps exactly
// these; a name of 0 or below never shows, listed or not: the text names analogous nodes only.
void BuildAnalogousListText(const StructureModel &model, ConnectionState &state) {
    std::vector<int> names;
    names.reserve(state.analogousNodes.size());
    const int nodes = std::clamp<int>(model.nodeCount, 0, kNodeCapacity);
    for (const AnalogousNode &record : state.analogousNodes)
        if (record.node >= 0 && record.node < nodes && model.nodes[record.node].name > 0)
            names.push_back(model.nodes[record.node].name);
    std::sort(names.begin(), names.end());
    state.analogousListText = RangeText(names);
}

} // namespace vorna
