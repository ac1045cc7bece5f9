// Bar types: the automatic typing of the base bars from the connection type code, the labels
// that change them by hand, and the classification of the bars of every analogous node.
#include "connection/bar_types.h"

#include "connection/agreement.h"
#include "connection/base_node.h"
#include "platform/number_text.h"
#include "platform/portable_math.h"
#include "platform/tolerance.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace vorna {
namespace {

// Near-vertical and right-angle tests allow this much (model units for the horizontal offset of
// a vertical bar, a cosine for a right angle, radians for the angle to the vertical).
constexpr double kLoose = 0.1;
constexpr Vec3 kUp{0, 0, 1};

double Cosine(const Vec3 &a, const Vec3 &b) {
    const double product = Norm(a) * Norm(b);
    return product <= kTolerance ? 0 : Dot(a, b) / product;
}

// Parallel or opposite: the cross product does not tell them apart.
bool Collinear(const Vec3 &a, const Vec3 &b) {
    return AllBelow(Cross(a, b), kTolerance);
}

bool VerticalDownward(const Vec3 &d) {
    return AllBelow(Cross(d, kUp), kLoose) && d[2] < 0;
}

// The acute angle between two directions, in radians.
double AcuteAngle(const Vec3 &a, const Vec3 &b) {
    const double c = Cosine(a, b);
    if (std::fabs(1 - std::fabs(c)) < kTolerance)
        return 0;
    const double angle = Acos(std::clamp(c, -1.0, 1.0));
    return angle > kPi / 2 ? kPi - angle : angle;
}

std::optional<int> WholeNumber(const std::string &text) {
    std::optional<double> v = StrictNumber(text);
    if (!v || *v != std::floor(*v) || std::fabs(*v) > 1e6)
        return std::nullopt;
    return static_cast<int>(*v);
}

// One run of the automatic typing: the base bars' directions and which bars it has typed.
struct Typing {
    ConnectionState &state;
    std::vector<Vec3> d;
    std::vector<std::uint8_t> typed;

    int Count() const { return static_cast<int>(d.size()); }
    void Give(int k, int type) {
        state.baseBarTypes[k] = static_cast<std::int16_t>(type);
        typed[k] = 1;
    }
    std::optional<std::pair<int, int>> FirstCollinearPair() const {
        for (int i = 0; i < Count(); ++i)
            for (int j = i + 1; j < Count(); ++j)
                if (Collinear(d[i], d[j]))
                    return std::pair{i, j};
        return std::nullopt;
    }
    // The first bar other than the excluded ones at a right angle to bar `to`.
    std::optional<int> FirstPerpendicular(int to, int exclude1, int exclude2) const {
        for (int k = 0; k < Count(); ++k)
            if (k != exclude1 && k != exclude2 && std::fabs(Cosine(d[k], d[to])) < kLoose)
                return k;
        return std::nullopt;
    }
    // Codes 5, 6 and 12: with three bars or more, the first collinear pair gets 4 and 4.
    std::optional<std::pair<int, int>> GiveChordPair() {
        if (Count() < 3)
            return std::nullopt;
        auto pair = FirstCollinearPair();
        if (pair) {
            Give(pair->first, 4);
            Give(pair->second, 4);
        }
        return pair;
    }
    // The first untyped bar running vertically down from the node gets type 1.
    std::optional<int> GiveColumnBelow() {
        auto column = FirstUntyped([&](int k) { return VerticalDownward(d[k]); });
        if (column)
            Give(*column, 1);
        return column;
    }
    std::optional<int> FirstUntyped(auto &&wanted) const {
        for (int k = 0; k < Count(); ++k)
            if (!typed[k] && wanted(k))
                return k;
        return std::nullopt;
    }
};

// Codes 1 and 7: the continuous beam (the first collinear pair) 1 and 2, the bar framing in at
// a right angle 3. With fewer than three bars the first gets 1 and a second 3.
void ThroughBeam(Typing &t) {
    if (t.Count() < 3) {
        if (t.Count() >= 1)
            t.Give(0, 1);
        if (t.Count() >= 2)
            t.Give(1, 3);
        return;
    }
    auto pair = t.FirstCollinearPair();
    if (!pair)
        return;
    t.Give(pair->first, 1);
    t.Give(pair->second, 2);
    if (auto k = t.FirstPerpendicular(pair->first, pair->first, pair->second))
        t.Give(*k, 3);
}

// Codes 2, 10 and 11: the column below 1, the first bar at a right angle to it 2.
void ColumnBelow(Typing &t) {
    auto column = t.GiveColumnBelow();
    if (!column)
        return;
    if (auto k = t.FirstPerpendicular(*column, *column, *column))
        t.Give(*k, 2);
}

// Codes 5 and 6: the collinear pair 4 and 4, the bar nearest the vertical 2 when within 0.1
// radian of it, and 3 for the first bar left that lies between the pair and that bar: its
// acute angles with both do not exceed the angle between them. When the bar nearest the
// vertical is too far from it to take 2 it is still the reference, and may itself take 3.
void BracedChord(Typing &t) {
    auto pair = t.GiveChordPair();
    if (!pair)
        return;
    int nearest = -1;
    double nearestAngle = 0;
    for (int k = 0; k < t.Count(); ++k) {
        if (t.typed[k])
            continue;
        const double angle = AcuteAngle(t.d[k], kUp);
        if (nearest < 0 || angle < nearestAngle)
            nearest = k, nearestAngle = angle;
    }
    if (nearestAngle < kLoose)
        t.Give(nearest, 2);
    const Vec3 &chord = t.d[pair->first], &upright = t.d[nearest];
    const double reference = AcuteAngle(chord, upright);
    auto between = t.FirstUntyped([&](int k) {
        return AcuteAngle(t.d[k], chord) <= reference && AcuteAngle(t.d[k], upright) <= reference;
    });
    if (between)
        t.Give(*between, 3);
}

// Code 18 with three bars (and code 12 after its pair): of the bars not typed yet, the column
// below 1, the lowest of the rest 2, the others 3. In code 12 the pair keeps 4 and 4 even when
// the column is one of them: the column is then looked for among the other bars only, and a
// bar left without a role keeps 1.
void ColumnAndLowest(Typing &t) {
    if (!t.GiveColumnBelow())
        return;
    std::optional<int> lowest;
    for (int k = 0; k < t.Count(); ++k)
        if (!t.typed[k] && (!lowest || t.d[k][2] < t.d[*lowest][2]))
            lowest = k;
    if (!lowest)
        return;
    t.Give(*lowest, 2);
    for (int k = 0; k < t.Count(); ++k)
        if (!t.typed[k])
            t.Give(k, 3);
}

void ContinuousMember(Typing &t) {
    if (!t.GiveChordPair())
        return;
    if (t.Count() == 3)
        ColumnAndLowest(t);
}

int TypeCount(const ConnectionInput &input) {
    return std::clamp(input.barTypeCount, 0, kMaxBarTypes);
}

// A base bar's direction and one of the record's agree, exactly or within the tolerance the
// record was found with; mirrored: the record's bar mirrored in plan.
bool Agree(const AnalogousNode &record, const Vec3 &b, const Vec3 &v, bool mirrored) {
    const double degrees = record.match.withinTolerances ? record.match.angleTolerance : 0.0;
    return DirectionsAgree(b, mirrored ? Mirror(v) : v, degrees);
}

// Under "Nodi identici e simmetrici" the first of the record's bars that agrees with a base
// bar, identically (tested first) or mirrored, decides how the whole record is compared.
bool IsMirroredRecord(const StructureModel &model, const ConnectionState &state,
                      const AnalogousNode &record) {
    for (int m = 0; m < std::clamp<int>(record.barCount, 0, kMaxBaseBars); ++m) {
        const std::optional<Vec3> v = UnitBarVector(model, record.bars[m], record.node);
        if (!v)
            continue;
        for (int k = 0; k < state.baseBarCount; ++k) {
            const std::optional<Vec3> b = UnitBarVector(model, state.baseBars[k], state.baseNode);
            if (b && Agree(record, *b, *v, false))
                return false;
            if (b && Agree(record, *b, *v, true))
                return true;
        }
    }
    return true;
}

} // namespace

void AssignTypesByConnectionCode(const StructureModel &model, ConnectionState &state,
                                 const ConnectionInput &input) {
    if (!HasUsableBaseNode(state))
        return;
    Typing t{state, {}, std::vector<std::uint8_t>(state.baseBarCount)};
    for (int k = 0; k < state.baseBarCount; ++k) {
        state.baseBarTypes[k] = 1;
        t.d.push_back(BaseBarDirection(model, state, k));
    }
    switch (WholeNumber(input.connectionTypeCode).value_or(0)) {
    case 1:
    case 7:
        ThroughBeam(t);
        break;
    case 2:
    case 10:
    case 11:
        ColumnBelow(t);
        break;
    case 5:
    case 6:
        BracedChord(t);
        break;
    case 12:
        ContinuousMember(t);
        break;
    case 18:
        if (t.Count() == 3)
            ColumnAndLowest(t);
        break;
    default: // 3, 9, 13..17 (one bar, type 1), 4, 8 and any other: every bar keeps type 1
        break;
    }
}

void ReadTypesFromLabels(const LabelCaptions &captions, ConnectionState &state,
                         const ConnectionInput &input) {
    const int count = BaseBarsInTable(state);
    if (count > kTypeLabels)
        std::fill_n(state.baseBarTypes.begin(), count, std::int16_t{1});
    for (int k = 0; k < std::min(count, kTypeLabels); ++k)
        for (int t = 1; t <= TypeCount(input); ++t)
            if (BarTypeCode(input, t).substr(0, 2) == captions[k + 1]) {
                state.baseBarTypes[k] = static_cast<std::int16_t>(t);
                break;
            }
}

std::string NextTypeCaption(const std::string &caption, const ConnectionInput &input) {
    const int types = TypeCount(input);
    if (types == 0)
        return caption;
    for (int t = 1; t < types; ++t)
        if (BarTypeCode(input, t) == caption)
            return BarTypeCode(input, t + 1);
    return BarTypeCode(input, 1);
}

TypeBarLists ClassifyAnalogousBars(const StructureModel &model, ConnectionState &state,
                                   AnalogyMethod method) {
    TypeBarLists lists;
    std::vector<AnalogousNode> &records = state.analogousNodes;
    // Types left from an earlier classification, or from a record that was there before,
    // must not survive: a bar that matches nothing ends with type 1.
    for (AnalogousNode &r : records)
        r.barTypes.fill(0);
    const bool mirroredMethod = method == AnalogyMethod::IdenticalOrMirrored;
    const bool byDirection = method == AnalogyMethod::Identical || mirroredMethod;
    std::vector<std::uint8_t> mirrored(records.size());
    if (HasUsableBaseNode(state) && mirroredMethod)
        for (std::size_t r = 0; r < records.size(); ++r)
            mirrored[r] = IsMirroredRecord(model, state, records[r]);
    auto list = [&](int type, int bar) {
        if (type >= 1 && type <= kMaxBarTypes && lists.names[type].size() < kTypeListCapacity)
            lists.names[type].push_back(model.bars[bar].name);
    };
    for (int k = 0; k < state.baseBarCount && HasUsableBaseNode(state); ++k) {
        const std::optional<Vec3> b = UnitBarVector(model, state.baseBars[k], state.baseNode);
        const int type = state.baseBarTypes[k];
        for (std::size_t r = 0; r < records.size(); ++r) {
            AnalogousNode &record = records[r];
            // Turned and free joints pair their bars with the base bars when they are found:
            // position k of a record is base bar k's.
            if (!byDirection) {
                if (k >= record.barCount || record.bars[k] < 0 || record.bars[k] >= model.barCount)
                    continue;
                record.barTypes[k] = static_cast<std::int16_t>(type);
                list(type, record.bars[k]);
                continue;
            }
            for (int m = 0; b && m < std::clamp<int>(record.barCount, 0, kMaxBaseBars); ++m) {
                const std::optional<Vec3> v = UnitBarVector(model, record.bars[m], record.node);
                if (!v || !Agree(record, *b, *v, mirrored[r]))
                    continue;
                record.barTypes[m] = static_cast<std::int16_t>(type);
                list(type, record.bars[m]);
                break;
            }
        }
    }
    for (AnalogousNode &r : records)
        for (std::int16_t &type : r.barTypes)
            if (type == 0)
                type = 1;
    return lists;
}

std::optional<std::vector<TypedBar>> NodeBarTypes(const StructureModel &model,
                                                  ConnectionState &state, AnalogyMethod method,
                                                  int nodeName) {
    auto named = std::find_if(
        state.analogousNodes.begin(), state.analogousNodes.end(), [&](const AnalogousNode &r) {
            return r.node >= 0 && r.node < model.nodeCount && model.nodes[r.node].name == nodeName;
        });
    if (named == state.analogousNodes.end())
        return std::nullopt;
    const std::size_t position = named - state.analogousNodes.begin();
    const TypeBarLists lists = ClassifyAnalogousBars(model, state, method);
    // The first type whose list holds a name, for every 16-bit name.
    std::vector<std::uint8_t> firstType(65536);
    for (int t = kMaxBarTypes; t >= 1; --t)
        for (std::int16_t name : lists.names[t])
            firstType[static_cast<std::uint16_t>(name)] = static_cast<std::uint8_t>(t);
    const AnalogousNode &record = state.analogousNodes[position];
    std::vector<TypedBar> typed;
    for (int m = 0; m < std::clamp<int>(record.barCount, 0, kMaxBaseBars); ++m) {
        const int bar = record.bars[m];
        if (bar < 0 || bar >= model.barCount)
            continue;
        if (const int t = firstType[static_cast<std::uint16_t>(model.bars[bar].name)])
            typed.push_back({bar, BarTypeColour(t)});
    }
    return typed;
}

} // namespace vorna
