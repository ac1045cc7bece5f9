// Direct selection: the distance of bars from the cursor, the choice among the elements under it,
// and the size of the pick box.
#include "selection/pick.h"

#include "platform/number_text.h"
#include "platform/tolerance.h"
#include "projection/navigation.h"

#include <algorithm>
#include <cmath>

namespace vorna {

PickKind PickKindOf(ActiveFunction function) {
    switch (function) {
    case ActiveFunction::None:
        return PickKind::None;
    case ActiveFunction::RemoveBaseBars:
        return PickKind::Bars;
    default:
        return PickKind::Nodes;
    }
}

bool BarPickDistance(const StructureModel &model, const ViewState &view, int bar, double x,
                     double y, double radius, double &distance) {
    if (bar < 0 || bar >= kBarCapacity)
        return false;
    const Bar &b = model.bars[bar];
    double xi = ProjectedXOf(view, b.pointI), yi = ProjectedYOf(view, b.pointI);
    double xj = ProjectedXOf(view, b.pointJ), yj = ProjectedYOf(view, b.pointJ);
    double dy = yj - yi, dx = xi - xj;
    double length = std::sqrt(dx * dx + dy * dy);
    if (!(length > kTolerance))
        return false;
    distance = std::fabs(dy * (x - xi) + dx * (y - yi)) / length;
    // The box around the segment, enlarged by the radius, keeps the line's prolongation out.
    return distance < radius && std::fabs(x - xi) - std::fabs(dx) <= radius &&
           std::fabs(x - xj) - std::fabs(dx) <= radius &&
           std::fabs(y - yi) - std::fabs(dy) <= radius &&
           std::fabs(y - yj) - std::fabs(dy) <= radius;
}

int ChoosePickCandidate(std::vector<PickCandidate> candidates, PickKind kind,
                        ActiveFunction function, const StructureModel &model,
                        const ConnectionState &connection) {
    if (candidates.empty() || kind == PickKind::None)
        return 0;
    // Stable: equal distances keep their scan order, as the exchange sort this replaces did.
    std::stable_sort(
        candidates.begin(), candidates.end(),
        [](const PickCandidate &a, const PickCandidate &b) { return a.distance < b.distance; });
    if (kind == PickKind::Bars)
        return model.bars[candidates.front().index].name;
    const PickCandidate *chosen = &candidates.front();
    for (const PickCandidate &c : candidates) {
        bool listed = ListedOf(connection).Node(c.index);
        if ((function == ActiveFunction::AddNodes && !listed) ||
            (function == ActiveFunction::RemoveNodes && listed)) {
            chosen = &c;
            break;
        }
    }
    return model.nodes[chosen->index].name;
}

namespace {

// Scans one table; false when more elements than the candidate list holds are inside.
template <typename Element, typename Distance>
bool GatherCandidates(const std::vector<Element> &table, int count,
                      const std::vector<std::uint8_t> &shown, Distance distanceOf,
                      std::vector<PickCandidate> &candidates) {
    int end = std::min({count, static_cast<int>(table.size()), static_cast<int>(shown.size())});
    for (int i = 0; i < end; ++i) {
        const Element &e = table[i];
        double distance = 0;
        if (e.name < 1 || e.colour < 1 || !shown[i] || !distanceOf(i, distance))
            continue;
        if (candidates.size() == kMaxPickCandidates)
            return false;
        candidates.push_back({static_cast<std::int16_t>(i), distance});
    }
    return true;
}

} // namespace

int PickElement(const StructureModel &model, const ViewState &view,
                const ConnectionState &connection, ActiveFunction function, double x, double y,
                double radius) {
    PickKind kind = PickKindOf(function);
    std::vector<PickCandidate> candidates;
    candidates.reserve(kMaxPickCandidates);
    bool fits = true;
    if (kind == PickKind::Nodes)
        fits = GatherCandidates(
            model.nodes, model.nodeCount, view.nodeShown,
            [&](int i, double &d) { return NodePickDistance(model, view, i, x, y, radius, d); },
            candidates);
    else if (kind == PickKind::Bars)
        fits = GatherCandidates(
            model.bars, model.barCount, view.barShown,
            [&](int i, double &d) { return BarPickDistance(model, view, i, x, y, radius, d); },
            candidates);
    if (!fits)
        return 0;
    return ChoosePickCandidate(std::move(candidates), kind, function, model, connection);
}

} // namespace vorna
