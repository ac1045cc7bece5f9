// The analogy test: does a candidate node have, for every base bar, a bar leaving it the same way?
#include "connection/analogy.h"

#include <algorithm>

namespace vorna {
namespace {

constexpr double kTolerance = 0.0001;

bool NodeInModel(const StructureModel &m, int node) {
    return node >= 0 && node < m.nodeCount;
}
bool BarInModel(const StructureModel &m, int bar) {
    return bar >= 0 && bar < m.barCount;
}

const Bar &BarOf(const StructureModel &m, int bar) {
    static const Bar none{};
    return BarInModel(m, bar) ? m.bars[bar] : none;
}

// The vector the test compares: raw when lengths must agree, of unit length otherwise.
std::optional<Vec3> Compared(const StructureModel &m, int bar, int node, bool lengths) {
    return lengths ? BarVectorAtNode(m, bar, node) : UnitBarVector(m, bar, node);
}

// Step 4 (identical directions) or step 5 (identical or mirrored, each candidate bar taken at
// most once): the record gets one bar per base bar that found a counterpart.
void MatchBars(const StructureModel &m, const ConnectionState &s, bool mirrored, bool lengths,
               const std::vector<std::optional<Vec3>> &candidates,
               const std::vector<std::int16_t> &candidateBars, AnalogousNode &record) {
    std::vector<std::uint8_t> taken(candidates.size());
    for (int k = 0; k < s.baseBarCount; ++k) {
        const std::optional<Vec3> b = Compared(m, s.baseBars[k], s.baseNode, lengths);
        if (!b)
            continue;
        for (std::size_t c = 0; c < candidates.size(); ++c) {
            if (!candidates[c] || (mirrored && taken[c]))
                continue;
            const Vec3 &v = *candidates[c];
            if (SameDirection(*b, v) || (mirrored && MirroredDirection(*b, v))) {
                record.bars[record.barCount++] = candidateBars[c];
                taken[c] = 1;
                break;
            }
        }
    }
}

bool PropertiesAgree(const StructureModel &m, const ConnectionState &s,
                     const AnalogyParameters &params, const AnalogousNode &record) {
    auto agree = [&](std::int16_t Bar::*field) {
        for (int k = 0; k < s.baseBarCount; ++k)
            if (BarOf(m, s.baseBars[k]).*field != BarOf(m, record.bars[k]).*field)
                return false;
        return true;
    };
    return (!params.compareColours || agree(&Bar::colour)) &&
           (!params.compareLineTypes || agree(&Bar::lineType)) &&
           (!params.compareSections || agree(&Bar::sectionCard));
}

} // namespace

double BarLength(const StructureModel &model, int bar) {
    const Bar &b = BarOf(model, bar);
    return Norm(Sub(ToVec(PointAt(model, b.pointI)), ToVec(PointAt(model, b.pointJ))));
}

std::optional<Vec3> BarVectorAtNode(const StructureModel &model, int bar, int node) {
    if (!BarInModel(model, bar) || !NodeInModel(model, node))
        return std::nullopt;
    if (BarLength(model, bar) <= kTolerance)
        return Vec3{0, 0, 0};
    const Bar &b = model.bars[bar];
    const Vec3 p = ToVec(PointAt(model, model.nodes[node].pointIndex));
    const Vec3 i = ToVec(PointAt(model, b.pointI)), j = ToVec(PointAt(model, b.pointJ));
    if (AllBelow(Sub(i, p), kTolerance))
        return Sub(j, i);
    if (AllBelow(Sub(j, p), kTolerance))
        return Sub(i, j);
    return std::nullopt;
}

std::array<double, 3> BarVector(const StructureModel &model, int bar, int node) {
    return BarVectorAtNode(model, bar, node).value_or(Vec3{0, 0, 0});
}

std::optional<Vec3> UnitBarVector(const StructureModel &model, int bar, int node) {
    const double length = BarLength(model, bar);
    if (length <= kTolerance)
        return std::nullopt;
    std::optional<Vec3> v = BarVectorAtNode(model, bar, node);
    if (!v)
        return std::nullopt;
    return Scaled(*v, 1 / length);
}

bool SameDirection(const Vec3 &a, const Vec3 &b) {
    return AllBelow(Sub(a, b), kTolerance);
}

bool MirroredDirection(const Vec3 &a, const Vec3 &b) {
    return AllBelow({a[0] + b[0], a[1] + b[1], a[2] - b[2]}, kTolerance);
}

int TestAnalogy(const StructureModel &model, const ViewState &view, ConnectionState &state,
                const AnalogyParameters &params, int candidate, Ui &ui,
                const MessageCatalogue &messages) {
    if (!HasUsableBaseNode(state) || !NodeInModel(model, candidate))
        return 0;
    KeepBarIndexCurrent(state.barIndex, model, view);
    std::vector<std::int16_t> candidateBars;
    BarsAtProjectedPoint(state.barIndex, model, view, model.nodes[candidate].pointIndex,
                         candidateBars);
    if (candidateBars.size() > static_cast<std::size_t>(kMaxBaseBars)) {
        ui.MessageBox(messages[25], "Problema", MsgIcon::Exclamation, MsgButtons::Ok);
        return 0;
    }
    if (static_cast<int>(candidateBars.size()) < state.baseBarCount)
        return 0;

    const bool identical = params.method == AnalogyMethod::Identical || candidate == state.baseNode;
    if (!identical && params.method != AnalogyMethod::IdenticalOrMirrored)
        return 0;
    std::vector<std::optional<Vec3>> candidates;
    candidates.reserve(candidateBars.size());
    for (std::int16_t c : candidateBars)
        candidates.push_back(Compared(model, c, candidate, params.compareLengths));

    AnalogousNode record;
    record.node = static_cast<std::int16_t>(candidate);
    MatchBars(model, state, !identical, params.compareLengths, candidates, candidateBars, record);
    if (record.barCount < state.baseBarCount || !PropertiesAgree(model, state, params, record))
        return 0;
    AppendAnalogous(state, record);
    return 1;
}

} // namespace vorna
