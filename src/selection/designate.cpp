// Selection by name, constraint card, colour, point type, window and inversion: which nodes or
// base bars a selection designates, and what the running function does with them.
#include "selection/designate.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace vorna {
namespace {

int NodeEnd(const StructureModel &m) {
    return std::clamp<int>(m.nodeCount, 0, static_cast<int>(m.nodes.size()));
}

bool IsShownNode(const SelectionContext &c, int node) {
    return node >= 0 && node < NodeEnd(c.model) && c.view.nodeShown[node];
}

void OfferNodes(SelectionContext &c, const auto &designated) {
    for (int i = 0, end = NodeEnd(c.model); i < end; ++i)
        if (c.view.nodeShown[i] && designated(i))
            c.testAnalogy(i);
}

// One pass over the list: the same records go as removing them node by node.
void RemoveNodes(SelectionContext &c, const auto &designated) {
    RemoveAnalogousNodesIf(c.connection,
                           [&](int node) { return IsShownNode(c, node) && designated(node); });
}

void ApplyToNodes(SelectionContext &c, const auto &designated) {
    if (c.function == ActiveFunction::AddNodes)
        OfferNodes(c, designated);
    else if (c.function == ActiveFunction::RemoveNodes)
        RemoveNodes(c, designated);
}

// Keeps the base bars that are not designated, in their order. A node with too many bars has
// no usable base bars, so nothing is removed from it.
void RemoveBaseBars(ConnectionState &s, const StructureModel &m, const auto &designated) {
    if (s.baseBarCount < 0 || s.baseBarCount > kMaxBaseBars)
        return;
    int kept = 0;
    for (int k = 0; k < s.baseBarCount; ++k) {
        int bar = s.baseBars[k];
        if (bar >= 0 && bar < std::min<int>(m.barCount, kBarCapacity) && designated(bar))
            continue;
        s.baseBars[kept] = s.baseBars[k];
        s.baseBarTypes[kept] = s.baseBarTypes[k];
        ++kept;
    }
    s.baseBarCount = static_cast<std::int16_t>(kept);
}

// Flags indexed by a 16-bit value; values outside 16 bits name nothing.
struct NameSet {
    std::vector<std::uint8_t> flags = std::vector<std::uint8_t>(65536);
    explicit NameSet(const std::vector<int> &values) {
        for (int v : values)
            if (v >= INT16_MIN && v <= INT16_MAX)
                flags[v - INT16_MIN] = 1;
    }
    bool operator()(int name) const { return flags[name - INT16_MIN] != 0; }
};

// Adding follows the order of the names, each name its nodes in table order.
void OfferNodesByName(SelectionContext &c, const std::vector<int> &names) {
    std::vector<std::int16_t> byName;
    for (int i = 0, end = NodeEnd(c.model); i < end; ++i)
        if (c.view.nodeShown[i])
            byName.push_back(static_cast<std::int16_t>(i));
    auto nameOf = [&](std::int16_t i) { return static_cast<int>(c.model.nodes[i].name); };
    std::stable_sort(byName.begin(), byName.end(),
                     [&](std::int16_t a, std::int16_t b) { return nameOf(a) < nameOf(b); });
    for (int name : names) {
        auto first = std::partition_point(byName.begin(), byName.end(),
                                          [&](std::int16_t i) { return nameOf(i) < name; });
        for (auto it = first; it != byName.end() && nameOf(*it) == name; ++it)
            c.testAnalogy(*it);
    }
}

} // namespace

bool SelectByNames(SelectionContext &c, const std::vector<int> &names) {
    if (c.function == ActiveFunction::AddNodes) {
        OfferNodesByName(c, names);
    } else if (c.function == ActiveFunction::RemoveNodes) {
        NameSet set(names);
        RemoveNodes(c, [&](int i) { return set(c.model.nodes[i].name); });
    } else if (c.function == ActiveFunction::RemoveBaseBars) {
        NameSet set(names);
        RemoveBaseBars(c.connection, c.model, [&](int bar) {
            return c.view.barShown[bar] && set(c.model.bars[bar].name);
        });
        // The schema and the types follow each name given; with none there is nothing to follow.
        return !names.empty();
    }
    return false;
}

void SelectByConstraintCards(SelectionContext &c, const std::vector<int> &cards) {
    for (int card : cards) {
        auto designated = [&](int i) { return c.model.nodes[i].constraintCard + 1 == card; };
        if (c.function == ActiveFunction::AddNodes)
            OfferNodes(c, designated);
        else
            RemoveNodes(c, designated);
    }
}

bool SelectByColour(SelectionContext &c, int code) {
    auto matches = [code](int colour) { return code == kAllCodes || colour == code; };
    if (c.function != ActiveFunction::RemoveBaseBars) {
        ApplyToNodes(c, [&](int i) { return matches(c.model.nodes[i].colour); });
        return false;
    }
    RemoveBaseBars(c.connection, c.model, [&](int bar) {
        return c.view.barShown[bar] && matches(c.model.bars[bar].colour);
    });
    return true;
}

void SelectByPointType(SelectionContext &c, int code) {
    ApplyToNodes(c, [&](int i) { return code == kAllCodes || c.model.nodes[i].pointType == code; });
}

bool SelectByWindow(SelectionContext &c, double left, double top, double width, double height) {
    const double w = std::fabs(width), h = std::fabs(height);
    const double right = left + width, bottom = top - height;
    auto inside = [&](int point) {
        double px = ProjectedXOf(c.view, point), py = ProjectedYOf(c.view, point);
        return std::fabs(px - left) - w <= 1.0 && std::fabs(py - top) - h <= 1.0 &&
               std::fabs(px - right) - w <= 1.0 && std::fabs(py - bottom) - h <= 1.0;
    };
    if (c.function != ActiveFunction::RemoveBaseBars) {
        ApplyToNodes(c, [&](int i) { return inside(c.model.nodes[i].pointIndex); });
        return false;
    }
    RemoveBaseBars(c.connection, c.model, [&](int bar) {
        return inside(c.model.bars[bar].pointI) && inside(c.model.bars[bar].pointJ);
    });
    return true;
}

void InvertSelection(SelectionContext &c) {
    std::vector<std::uint8_t> wasListed(c.model.nodes.size());
    for (const AnalogousNode &record : c.connection.analogousNodes)
        if (record.node >= 0 && record.node < static_cast<int>(wasListed.size()))
            wasListed[record.node] = 1;
    ClearAnalogous(c.connection);
    OfferNodes(c, [&](int i) { return !wasListed[i]; });
}

} // namespace vorna
