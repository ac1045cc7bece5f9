// The catalogue of joint types ("Tipi di nodo"): the shown nodes grouped by analogy, each group
// headed by its first node taken as base node with all its bars.
#include "connection/joint_types.h"

#include "connection/joint_type_index.h"

#include <algorithm>

namespace vorna {
namespace {

struct Head {
    Joint base;
    Signature signature;
};

} // namespace

JointTypeCatalogue CatalogueJointTypes(const StructureModel &model, const ViewState &view,
                                       ProjectedBarIndex &barIndex,
                                       const AnalogyParameters &params) {
    JointTypeCatalogue catalogue;
    catalogue.withinTolerances = params.Tolerant();
    KeepBarIndexCurrent(barIndex, model, view);
    std::vector<Head> heads; // heads[t] heads catalogue.types[t] until the final sort
    HeadIndex index(params);
    const SignatureRules rules(params);
    std::vector<std::int16_t> bars;
    const int nodes = std::clamp<int>(model.nodeCount, 0, kNodeCapacity);
    for (int n = 0; n < nodes; ++n) {
        if (!IsLive(model.nodes[n]) || !view.nodeShown[n])
            continue;
        BarsAtProjectedPoint(barIndex, model, view, model.nodes[n].pointIndex, bars);
        if (bars.empty())
            continue;
        if (bars.size() > static_cast<std::size_t>(kMaxBaseBars)) {
            catalogue.overcrowded.push_back(n);
            continue;
        }
        const int count = static_cast<int>(bars.size());
        Joint joint = JointAt(model, n, bars);
        const Signature signature = rules.Of(joint);
        const std::vector<std::size_t> &candidates = index.Candidates(count, joint);
        Verdict verdict;
        auto joins = [&](std::size_t t) {
            const Head &head = heads[t];
            if (head.base.bars.empty() || !rules.MayMatch(head.signature, signature))
                return false;
            // Exact, the catalogue shows no deviations: the verdict alone will do.
            verdict = CompareJoints(model, head.base, joint, params,
                                    params.Tolerant() ? Scrutiny::Figures : Scrutiny::Verdict);
            return verdict.Analogous();
        };
        if (auto t = std::find_if(candidates.begin(), candidates.end(), joins);
            t != candidates.end()) {
            JointType &type = catalogue.types[*t];
            type.nodes.push_back(n);
            type.largestAngle = std::max(type.largestAngle, verdict.largestAngle);
            type.largestLength = std::max(type.largestLength, verdict.largestLength);
            continue;
        }
        // The bars choosing it as base node gives: the named ones, in the same order.
        std::erase_if(joint.bars, [&](const JointBar &b) { return model.bars[b.bar].name <= 0; });
        index.Add(heads.size(), count, joint);
        heads.push_back({joint, rules.Of(joint)});
        catalogue.types.push_back({count, {n}});
    }
    std::stable_sort(
        catalogue.types.begin(), catalogue.types.end(),
        [](const JointType &a, const JointType &b) { return a.nodes.size() > b.nodes.size(); });
    return catalogue;
}

std::uint32_t JointTypeColour(int k) {
    static constexpr std::uint8_t kPalette[kJointTypeColours][3] = {
        {128, 0, 0},     {170, 110, 40},  {128, 128, 0},   {0, 128, 128},
        {145, 30, 180},  {250, 190, 212}, {210, 245, 60},  {220, 190, 255},
        {255, 215, 180}, {170, 255, 195}, {128, 128, 128}, {60, 100, 170}};
    if (k < 1 || k > kJointTypeColours)
        return 0;
    const std::uint8_t *c = kPalette[k - 1];
    return c[0] | (std::uint32_t{c[1]} << 8) | (std::uint32_t{c[2]} << 16);
}

std::vector<std::uint32_t> JointTypeFills(const JointTypeCatalogue &catalogue, int nodeCount) {
    std::vector<std::uint32_t> fills(static_cast<std::size_t>(std::max(nodeCount, 0)));
    const std::size_t coloured =
        std::min(catalogue.types.size(), static_cast<std::size_t>(kJointTypeColours));
    for (std::size_t k = 0; k < coloured; ++k)
        for (int node : catalogue.types[k].nodes)
            if (node >= 0 && static_cast<std::size_t>(node) < fills.size())
                fills[node] = JointTypeColour(static_cast<int>(k) + 1);
    return fills;
}

} // namespace vorna
