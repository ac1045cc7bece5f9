// Tests of the connection: the analogous list, the base node, the analogy test, the bar types,
// the schema and the connection commands, with differential tests of the fast structures
// against the procedures as written on random frames.
#include "app/command_steps.h"
#include "app/commands.h"
#include "app/why_not_dialog.h"
#include "connection/assignment.h"
#include "connection/bar_types.h"
#include "connection/base_node.h"
#include "connection/joint_types.h"
#include "connection/rotation_match.h"
#include "connection/why_not.h"
#include "connection_support.h"
#include "exchange/result_file.h"
#include "projection/projection.h"
#include "recording_canvas.h"
#include "test_support.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <numbers>
#include <numeric>
#include <random>

namespace vorna {
namespace {

using namespace vorna::test;

AnalogousNode Record(int node, std::vector<int> bars) {
    AnalogousNode r;
    r.node = static_cast<std::int16_t>(node);
    for (int b : bars)
        r.bars[r.barCount++] = static_cast<std::int16_t>(b);
    return r;
}

const std::vector<Vec3> kBeamColumn = {{-2, 0, 0}, {3, 0, 0}, {0, 0, -3}};

TEST(BaseNode, NamedBarsAtTheProjectedNodeUpToAHundred) {
    Frame f;
    int p = f.Point(0, 0, 0);
    f.Node(p, 1);
    int base = f.Node(p, 1);
    f.view->nodeShown[0] = 0; // the first node of that name is hidden
    for (int k = 0; k < 99; ++k)
        f.Bar(p, f.Point(k + 1, 0, 1), k + 1);
    f.Bar(p, f.Point(0, 0, -1), 0);                 // no name: never a base bar
    f.Bar(f.Point(0, 5, 0), f.Point(0, 9, 9), 200); // on the node in the projection only
    f.Project(0, 0, 0);
    SetBaseNodeByName(*f.m, *f.view, f.s, 1);
    ASSERT_EQ(f.s.baseNode, base);
    EXPECT_EQ(f.ChooseBase(base), BaseBarsResult::Gathered);
    EXPECT_EQ(f.s.baseBarCount, 100);
    EXPECT_EQ(f.s.baseBars[99], 100);
    EXPECT_EQ(f.Listed(), std::vector<int>{base});

    f.Bar(p, f.Point(0, 0, 7), 300);
    ClearAnalogous(f.s);
    EXPECT_EQ(f.ChooseBase(base), BaseBarsResult::TooMany);
    EXPECT_EQ(f.s.baseBarCount, kTooManyBaseBars);
    EXPECT_TRUE(f.s.analogousNodes.empty()); // untouched
    EXPECT_EQ(f.Test(base), 0);              // no usable base node: nothing is analogous
    EXPECT_EQ(f.tooMany, 0);
    EXPECT_EQ(f.ChooseBase(-1), BaseBarsResult::NoBaseNode);
}

TEST(Analogy, SharedBarsZeroLengthsPropertiesAndTheHundredBarLimit) {
    Frame f;
    // Two base bars the same way, one of no length, and a colour that differs.
    int base = f.Joint(0, 0, 0, {{1, 0, 0}, {1, 0, 0}, {0, 0, 0}}, 1);
    int shared = f.Joint(10, 0, 0, {{1, 0, 0}, {0, 1, 0}, {0, 0, 0}}, 2);
    int flat = f.Joint(20, 0, 0, {{1, 0, 0}, {0, 0, 1}, {0, 0, 0}}, 3);
    f.m->bars[f.m->barCount - 3].colour = 5;
    // A bar that meets a node only in the projection (0, 0, 0) matches nothing.
    int p = f.Point(30, 0, 0), ghost = f.Node(p, 4);
    for (int k = 0; k < 3; ++k)
        f.Bar(f.Point(30, 5, 0), f.Point(31, 5, 0), 50 + k);
    std::vector<Vec3> hundred(99, Vec3{1, 0, 0});
    hundred.push_back({0, 0, 0});
    int crowded = f.Joint(40, 0, 0, hundred, 5);
    f.Project(0, 0, 0);
    f.ChooseBase(base);
    AnalogyParameters colours;
    colours.compareColours = true;
    EXPECT_EQ(f.Test(shared, Params(AnalogyMethod::IdenticalOrMirrored)), 0);
    EXPECT_EQ(f.Test(shared, Params(AnalogyMethod::Identical, false)), 0); // no direction
    EXPECT_EQ(f.Test(shared, colours), 1);
    EXPECT_EQ(f.Test(flat, colours), 0);
    EXPECT_EQ(f.Test(flat, Params(AnalogyMethod::Identical)), 1);
    EXPECT_EQ(f.Test(ghost), 0);
    EXPECT_EQ(f.Test(crowded), 1);
    f.Bar(f.m->nodes[crowded].pointIndex, f.Point(40, 0, 1), 999);
    EXPECT_EQ(f.Test(crowded), 0);
    EXPECT_EQ(f.Listed(), (std::vector<int>{base, shared, flat, crowded}));
    EXPECT_EQ(f.s.analogousNodes[1].bars[0], f.s.analogousNodes[1].bars[1]);
    EXPECT_EQ(f.tooMany, 1);
}

TEST(Analogy, RotatedJointsAreFoundMirrorImagesAndBentOnesAreNot) {
    std::mt19937 rng(7);
    std::uniform_real_distribution<double> any(-1, 1), angle(0.1, 6.2);
    for (int round = 0; round < 20; ++round) {
        Frame f;
        std::vector<Vec3> bars;
        for (int k = 0; k < 5; ++k)
            bars.push_back(Scaled({any(rng), any(rng), any(rng)}, 3));
        const Vec3 axis = UnitOf({any(rng), any(rng), any(rng)});
        const Vec3 normal = UnitOf({any(rng), any(rng), any(rng)});
        const double turn = angle(rng);
        // Turned about an oblique axis, listed in another order after an extra bar.
        std::vector<int> order = {3, 0, 4, 1, 2};
        std::vector<Vec3> turned = {{0, 0, 2}}, mirror, bent;
        for (int k : order)
            turned.push_back(Turned(bars[k], axis, turn));
        for (const Vec3 &b : bars) {
            mirror.push_back(Sub(b, Scaled(normal, 2 * Dot(b, normal))));
            bent.push_back(Turned(b, axis, turn));
        }
        bent[2] = Turned(bent[2], UnitOf(Cross(bent[2], axis)), 0.05); // three degrees off
        const int base = f.Joint(0, 0, 0, bars, 1), firstTurned = f.m->barCount;
        const int t = f.Joint(20, 0, 0, turned, 2), m = f.Joint(40, 0, 0, mirror, 3),
                  b = f.Joint(60, 0, 0, bent, 4);
        f.Project();
        f.ChooseBase(base);
        for (bool lengths : {true, false}) {
            ASSERT_EQ(f.Test(t, Params(AnalogyMethod::Rotated, lengths)), 1);
            const AnalogousNode &r = f.s.analogousNodes.back();
            for (int k = 0; k < 5; ++k) // after the extra bar, in the order they were turned
                EXPECT_EQ(r.bars[k],
                          firstTurned + 1 +
                              (std::find(order.begin(), order.end(), k) - order.begin()));
            EXPECT_EQ(f.Test(m, Params(AnalogyMethod::Rotated, lengths)), 0);
            EXPECT_EQ(f.Test(b, Params(AnalogyMethod::Rotated, lengths)), 0);
            EXPECT_EQ(f.Test(m, Params(AnalogyMethod::Any, lengths)), 1);
            EXPECT_EQ(f.Test(b, Params(AnalogyMethod::Any, lengths)), 1);
            ClearAnalogous(f.s);
        }
    }
}

// The first pairing, in lexicographic order, whose least-squares rotation fits every pair.
std::optional<std::vector<int>> RotatedByEnumeration(const std::vector<Vec3> &base,
                                                     const std::vector<Vec3> &candidates) {
    const int n = static_cast<int>(base.size()), m = static_cast<int>(candidates.size());
    std::optional<std::vector<int>> found;
    if (n > m)
        return found;
    EachPairing(n, m, [&](const std::vector<int> &p) {
        std::vector<Vec3> to;
        for (int c : p)
            to.push_back(candidates[c]);
        const Rotation r = BestFitRotation(base, to);
        bool fits = true;
        for (int k = 0; k < n; ++k)
            fits = fits && AllBelow(Sub(Rotate(r, base[k]), to[k]), 0.0001);
        if (fits)
            found = p;
        return !fits;
    });
    return found;
}

TEST(RotatedMatch, BestFitCollinearBasesAndTheFirstPairingAgainstEnumeration) {
    std::mt19937 rng(11);
    std::uniform_real_distribution<double> any(-1, 1);
    const Vec3 axis = UnitOf({0.3, -0.5, 0.8});
    std::vector<Vec3> from, to;
    for (int k = 0; k < 4; ++k) {
        from.push_back({any(rng), any(rng), any(rng)});
        to.push_back(Turned(from.back(), axis, 2.5));
    }
    const Rotation r = BestFitRotation(from, to);
    for (int k = 0; k < 4; ++k)
        EXPECT_TRUE(AllBelow(Sub(Rotate(r, from[k]), to[k]), 1e-12));

    // Collinear base bars: any rotation onto the candidates' line does.
    const Vec3 w = UnitOf({1, 2, 2});
    const std::vector<std::optional<Vec3>> line = {Vec3{0, 3, 0}, Scaled(w, -1), Scaled(w, 2),
                                                   std::nullopt, Vec3{0, 0, -2}};
    EXPECT_EQ(MatchRotated({{2, 0, 0}, {-1, 0, 0}}, line), (std::vector<int>{2, 1}));
    EXPECT_EQ(MatchRotated({{0, 0, 1}, {0, 0, -2}}, line), (std::vector<int>{1, 2}));
    EXPECT_EQ(MatchRotated({{0, 0, 1}, {0, 0, 1}}, line), std::nullopt);
    // Base bar 1 takes the earliest candidate a rotation allows, not the identity's.
    EXPECT_EQ(MatchRotated({{1, 0, 0}, {0, 1, 0}},
                           {Vec3{0, 0, 1}, Vec3{1, 0, 0}, Vec3{0, 1, 0}, Vec3{0, 0, -1}}),
              (std::vector<int>{0, 1}));

    // Turned joints whose every component is off by up to 0.00009: the turn fits them all, and
    // the search may miss only the odd one at that edge of the tolerance.
    int found = 0;
    for (int round = 0; round < 300; ++round) {
        std::vector<Vec3> base;
        std::vector<std::optional<Vec3>> turned;
        const Vec3 about = UnitOf({any(rng), any(rng), any(rng)});
        const double angle = 3 * any(rng);
        for (int k = 2 + Roll(rng, 5); k > 0; --k) {
            base.push_back(Scaled({any(rng), any(rng), any(rng)}, 300));
            Vec3 t = Turned(base.back(), about, angle);
            for (double &x : t)
                x += 9e-5 * any(rng);
            turned.push_back(t);
        }
        found += MatchRotated(base, turned).has_value();
    }
    EXPECT_GE(found, 297);

    // Lattice joints, often symmetric, against a cube rotation of them with extra bars.
    auto lattice = [&] {
        Vec3 v{0, 0, 0};
        while (Norm(v) == 0)
            v = {Roll(rng, 3) - 1.0, Roll(rng, 3) - 1.0, Roll(rng, 3) - 1.0};
        return Scaled(v, 1.0 + Roll(rng, 2));
    };
    for (int round = 0; round < 400; ++round) {
        const int n = 1 + Roll(rng, 4);
        std::vector<Vec3> base, candidates;
        for (int k = 0; k < n; ++k)
            base.push_back(lattice());
        const Vec3 cube =
            std::array<Vec3, 4>{{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}, {1, 1, 1}}}[Roll(rng, 4)];
        const double quarter = std::numbers::pi / 2 * Roll(rng, 4);
        for (const Vec3 &b : base)
            candidates.push_back(Roll(rng, 5) ? Turned(b, UnitOf(cube), quarter) : lattice());
        for (int extra = Roll(rng, 3); extra > 0; --extra)
            candidates.push_back(lattice());
        std::shuffle(candidates.begin(), candidates.end(), rng);
        if (Roll(rng, 2)) {
            for (Vec3 &b : base)
                b = UnitOf(b);
            for (Vec3 &c : candidates)
                c = UnitOf(c);
        }
        const std::vector<std::optional<Vec3>> offered(candidates.begin(), candidates.end());
        ASSERT_EQ(MatchRotated(base, offered), RotatedByEnumeration(base, candidates))
            << "round " << round;
    }
}

// "Nodi qualsiasi" by enumeration: the smallest sum of angles over the allowed pairings, the
// first in lexicographic order among sums that tie.
std::optional<std::vector<int>> AnyByEnumeration(const Joint &base, const Joint &candidate,
                                                 bool lengths) {
    const int n = static_cast<int>(base.bars.size()), m = static_cast<int>(candidate.bars.size());
    if (n > m)
        return std::nullopt;
    std::optional<std::vector<int>> best;
    double bestSum = 0;
    EachPairing(n, m, [&](const std::vector<int> &p) {
        double sum = 0;
        bool allowed = true;
        for (int k = 0; k < n && allowed; ++k) {
            const JointBar &b = base.bars[k], &c = candidate.bars[p[k]];
            const auto u = DirectionOf(b), v = DirectionOf(c);
            allowed = u && v && (!lengths || std::fabs(b.length - c.length) < 0.0001);
            if (allowed)
                sum += std::acos(std::clamp(Dot(*u, *v), -1.0, 1.0));
        }
        if (allowed && (!best || sum < bestSum - 1e-7))
            best = p, bestSum = sum;
        return true;
    });
    return best;
}

TEST(AnyMatch, PairingAgainstEnumerationOnSmallJoints) {
    std::mt19937 rng(5);
    std::uniform_real_distribution<double> any(-1, 1);
    auto model = std::make_unique<StructureModel>();
    model->nodeCount = 2; // the two joints' nodes
    auto bar = [&](int index) {
        JointBar b;
        b.bar = static_cast<std::int16_t>(index);
        const int kind = Roll(rng, 12);
        if (kind == 0) // meets the node only in the projection
            return b;
        Vec3 v = kind < 6 ? Vec3{any(rng), any(rng), any(rng)}
                          : Vec3{Roll(rng, 3) - 1.0, Roll(rng, 3) - 1.0, 1.0};
        v = kind == 1 ? Vec3{0, 0, 0} : Scaled(v, 1.0 + Roll(rng, 2));
        return JointBarOf(b.bar, v, Norm(v));
    };
    int accepted = 0;
    for (int round = 0; round < 600; ++round) {
        Joint base{0, {}}, candidate{1, {}};
        const int n = 1 + Roll(rng, 4), m = n + Roll(rng, 3);
        for (int k = 0; k < n; ++k)
            base.bars.push_back(bar(k));
        for (int c = 0; c < m; ++c)
            candidate.bars.push_back(bar(10 + c));
        AnalogyParameters params = Params(AnalogyMethod::Any, Roll(rng, 2) == 1);
        const std::optional<AnalogousNode> match = Matched(*model, base, candidate, params);
        const auto expected = AnyByEnumeration(base, candidate, params.compareLengths);
        ASSERT_EQ(match.has_value(), expected.has_value());
        if (!expected)
            continue;
        ++accepted;
        for (int k = 0; k < n; ++k)
            ASSERT_EQ(match->bars[k], 10 + (*expected)[k]) << "round " << round;
    }
    EXPECT_GT(accepted, 150);
}

TEST(AnyMatch, LargeJointsTakeTheAssignmentNotEnumeration) {
    // A hundred bars fanned out, the base the same fan turned a little: every bar finds its
    // own neighbour, in a time enumeration could never take.
    auto model = std::make_unique<StructureModel>();
    model->nodeCount = 2;
    Joint base{0, {}}, candidate{1, {}};
    for (int k = 0; k < 100; ++k) {
        const double a = 2 * std::numbers::pi * k / 100;
        const Vec3 v{std::cos(a), std::sin(a), 0.1 * (k % 7)};
        candidate.bars.push_back(JointBarOf(static_cast<std::int16_t>(k), v, Norm(v)));
        const Vec3 w = Turned(v, {0, 0, 1}, 0.01);
        base.bars.push_back(JointBarOf(static_cast<std::int16_t>(k), w, Norm(w)));
    }
    std::rotate(candidate.bars.begin(), candidate.bars.begin() + 37, candidate.bars.end());
    const auto match = Matched(*model, base, candidate, Params(AnalogyMethod::Any));
    ASSERT_TRUE(match);
    for (int k = 0; k < 100; ++k)
        EXPECT_EQ(match->bars[k], k);
}

ConnectionInput ThreeTypes(const std::string &code) {
    ConnectionInput in;
    in.connectionTypeCode = code;
    in.barTypeCount = 3;
    in.barTypeCodes = {"", "CO", "TR", "DI"};
    in.barTypeDescriptions = {"", "Colonna", "Trave", "Diagonale"};
    return in;
}

std::vector<int> TypesAfter(const std::string &code, const std::vector<Vec3> &bars) {
    Frame f;
    const int base = f.Joint(0, 0, 0, bars, 1);
    f.Project();
    f.ChooseBase(base);
    AssignTypesByConnectionCode(*f.m, f.s, ThreeTypes(code));
    return std::vector<int>(f.s.baseBarTypes.begin(), f.s.baseBarTypes.begin() + bars.size());
}

TEST(BarTypes, AutomaticTypingByConnectionCode) {
    const std::vector<Vec3> columnAndBeams = {{3, 0, 0}, {0, 0, -3}, {-3, 0, 0}, {0, 3, 0}};
    EXPECT_EQ(TypesAfter("2", columnAndBeams), (std::vector<int>{2, 1, 1, 1}));
    EXPECT_EQ(TypesAfter("1", {{0, 0, 3}, {-3, 0, 0}, {0, 0, -3}}), (std::vector<int>{1, 3, 2}));
    EXPECT_EQ(TypesAfter("7", {{1, 0, 0}}), std::vector<int>{1});
    EXPECT_EQ(TypesAfter("1", {{1, 0, 0}, {0, 1, 0}}), (std::vector<int>{1, 3}));
    for (const char *other : {"4", "8", "19", "x", ""})
        EXPECT_EQ(TypesAfter(other, columnAndBeams), (std::vector<int>{1, 1, 1, 1})) << other;
    // Chord pair 4 4, vertical 2, the diagonal between them 3; without a vertical bar the one
    // nearest the vertical is the reference and takes 3 itself.
    EXPECT_EQ(TypesAfter("5", {{-3, 0, 0}, {1, 0, 1}, {3, 0, 0}, {0, 0.05, 2}}),
              (std::vector<int>{4, 3, 4, 2}));
    EXPECT_EQ(TypesAfter("6", {{-3, 0, 0}, {3, 0, 0}, {1, 0, 1}}), (std::vector<int>{4, 4, 3}));
    EXPECT_EQ(TypesAfter("18", {{3, 0, 0}, {0, 0, -3}, {0, 3, -1}}), (std::vector<int>{3, 1, 2}));
    // Code 12: the pair keeps 4 4 even when the column is one of them.
    EXPECT_EQ(TypesAfter("12", {{0, 0, 3}, {0, 0, -3}, {3, 0, 0}}), (std::vector<int>{4, 4, 1}));
    EXPECT_EQ(TypesAfter("12", {{3, 0, 0}, {-3, 0, 0}, {0, 0, -3}}), (std::vector<int>{4, 4, 1}));
}

TEST(BarTypes, LabelsCycleAndAreReadBack) {
    const ConnectionInput in = ThreeTypes("2");
    std::string caption = "TR";
    for (const char *next : {"DI", "CO", "TR"})
        EXPECT_EQ(caption = NextTypeCaption(caption, in), next);
    EXPECT_EQ(NextTypeCaption("??", in), "CO");
    EXPECT_EQ(NextTypeCaption("??", ConnectionInput{}), "??");
    ConnectionState s;
    s.baseNode = 0;
    LabelCaptions captions;
    captions[1] = "TR";
    captions[2] = "XX";
    for (int count : {2, 40}) {
        s.baseBarCount = static_cast<std::int16_t>(count);
        s.baseBarTypes.fill(3);
        ReadTypesFromLabels(captions, s, in);
        EXPECT_EQ(s.baseBarTypes[0], 2);
        // No match keeps the type; with more than 30 bars every bar starts from 1.
        EXPECT_EQ(s.baseBarTypes[1], count == 2 ? 3 : 1);
        EXPECT_EQ(s.baseBarTypes[39], count == 2 ? 3 : 1);
    }
}

TEST(BarTypes, SchemaDrawsTheBarsInThePlaneAndLabelsThirty) {
    Frame f;
    std::vector<Vec3> bars = {{3, 0, 0}, {0, 0, -3}, {0, 2, 0}, {-1, 0, 0}};
    for (int k = 0; k < 30; ++k)
        bars.push_back({1, 0, 1.0 + k});
    const int base = f.Joint(0, 0, 0, bars, 1);
    f.Project();
    f.ChooseBase(base);
    BaseNodeSchema schema = BaseNodeSchemaOf(*f.m, f.s, ThreeTypes("2"), true);
    EXPECT_TRUE(schema.showsBaseNode && schema.planar);
    // Every bar but the one along y lies in the plane x-z, all as long as the farthest reach in
    // the plane (30); only 30 carry a label.
    ASSERT_EQ(schema.bars.size(), bars.size() - 1);
    EXPECT_EQ(schema.bars[0].colour, BarTypeColour(2));
    EXPECT_DOUBLE_EQ(std::hypot(schema.bars[0].x, schema.bars[0].y), 30);
    EXPECT_DOUBLE_EQ(std::hypot(schema.bars[5].x, schema.bars[5].y), 30);
    EXPECT_FALSE(schema.labels[3].visible);
    EXPECT_EQ(schema.labels[3].caption, "CO");
    EXPECT_TRUE(schema.labels[30].visible);
    EXPECT_EQ(schema.labels[1].tooltip, "Trave");

    f.s.baseBarCount = kTooManyBaseBars;
    EXPECT_FALSE(BaseNodeSchemaOf(*f.m, f.s, ThreeTypes("2"), true).showsBaseNode);
}

TEST(BarTypes, MirroredClassificationAndHighlight) {
    Frame f;
    int base = f.Joint(0, 0, 0, {{3, 0, 0}, {0, 0, -3}}, 1);
    int mirror = f.Joint(20, 0, 0, {{-3, 0, 0}, {0, 0, -3}, {0, 5, 0}}, 2);
    f.Project();
    f.ChooseBase(base);
    f.s.baseBarTypes[0] = 2;
    f.s.baseBarTypes[1] = 3;
    AppendAnalogous(f.s, Record(mirror, {2, 3, 4})); // the y bar 4 matches no base bar
    const auto &types = f.s.analogousNodes[1].barTypes;
    EXPECT_FALSE(NodeBarTypes(*f.m, f.s, AnalogyMethod::Identical, 7));
    const auto typed = NodeBarTypes(*f.m, f.s, AnalogyMethod::IdenticalOrMirrored, 2);
    EXPECT_EQ(std::vector<int>(types.begin(), types.begin() + 3), (std::vector<int>{2, 3, 1}));
    ASSERT_TRUE(typed);
    ASSERT_EQ(typed->size(), 2u); // the y bar is in no type's list: not shown
    EXPECT_EQ((*typed)[0].bar, 2);
    EXPECT_EQ((*typed)[0].colour, BarTypeColour(2));
}

// The procedures as written: a scan of every bar, linear lookups, bubble sorts and the
// classification base bar by base bar, record by record.
namespace reference {

std::vector<int> BarsAt(const StructureModel &m, const ViewState &v, int node) {
    const int q = m.nodes[node].pointIndex;
    auto on = [&](int point) {
        return std::fabs(ProjectedXOf(v, point) - ProjectedXOf(v, q)) < 0.0001 &&
               std::fabs(ProjectedYOf(v, point) - ProjectedYOf(v, q)) < 0.0001;
    };
    std::vector<int> bars;
    for (int b = 0; b < m.barCount; ++b)
        if (on(m.bars[b].pointI) || on(m.bars[b].pointJ))
            bars.push_back(b);
    return bars;
}

std::optional<Vec3> Compared(const StructureModel &m, int bar, int node, bool lengths) {
    return lengths ? BarVectorAtNode(m, bar, node) : UnitBarVector(m, bar, node);
}

int TestAnalogy(const StructureModel &m, const ViewState &v, const ConnectionState &s,
                std::vector<AnalogousNode> &list, const AnalogyParameters &params, int n,
                int &messages) {
    std::vector<int> candidates = BarsAt(m, v, n);
    if (!HasUsableBaseNode(s) || candidates.size() > 100)
        return HasUsableBaseNode(s) ? (++messages, 0) : 0;
    if (static_cast<int>(candidates.size()) < s.baseBarCount)
        return 0;
    const bool identical = params.method == AnalogyMethod::Identical || n == s.baseNode;
    const bool mirrored = !identical && params.method == AnalogyMethod::IdenticalOrMirrored;
    AnalogousNode record = Record(n, {});
    if (!identical && !mirrored) { // the pairings, checked against enumeration above
        std::vector<std::int16_t> bars(candidates.begin(), candidates.end());
        std::vector<std::int16_t> baseBars(s.baseBars.begin(), s.baseBars.begin() + s.baseBarCount);
        if (const auto match =
                Matched(m, JointAt(m, s.baseNode, baseBars), JointAt(m, n, bars), params))
            record = *match;
    }
    std::vector<bool> used(candidates.size());
    for (int k = 0; k < s.baseBarCount && (identical || mirrored); ++k) {
        auto b = Compared(m, s.baseBars[k], s.baseNode, params.compareLengths);
        for (std::size_t c = 0; b && c < candidates.size(); ++c) {
            auto w = Compared(m, candidates[c], n, params.compareLengths);
            if (w && !(mirrored && used[c]) &&
                (SameDirection(*b, *w) || (mirrored && MirroredDirection(*b, *w)))) {
                record.bars[record.barCount++] = static_cast<std::int16_t>(candidates[c]);
                used[c] = true;
                break;
            }
        }
    }
    if (record.barCount < s.baseBarCount)
        return 0;
    for (int k = 0; k < s.baseBarCount; ++k)
        if (params.compareColours && m.bars[s.baseBars[k]].colour != m.bars[record.bars[k]].colour)
            return 0;
    // Appended, then the later copy of a node dropped: a node listed already keeps its record.
    if (std::none_of(list.begin(), list.end(), [&](const AnalogousNode &r) { return r.node == n; }))
        list.push_back(record);
    return 1;
}

void BubbleSort(std::vector<int> &values, bool byMagnitude) {
    auto key = [&](int v) { return byMagnitude ? std::abs(v) : v; };
    for (bool swapped = true; swapped;) {
        swapped = false;
        for (std::size_t i = 0; i + 1 < values.size(); ++i)
            if (key(values[i]) > key(values[i + 1])) {
                std::swap(values[i], values[i + 1]);
                swapped = true;
            }
    }
}

std::string ListText(const StructureModel &m, const std::vector<AnalogousNode> &list) {
    std::vector<int> values;
    for (int i = 0; i < m.nodeCount; ++i) {
        bool listed = std::any_of(list.begin(), list.end(),
                                  [&](const AnalogousNode &r) { return r.node == i; });
        int name = std::max<int>(m.nodes[i].name, 0);
        values.push_back(listed ? name : -name);
    }
    BubbleSort(values, true);
    return RangeText(values);
}

TypeBarLists Classify(const StructureModel &m, ConnectionState &s, AnalogyMethod method) {
    TypeBarLists lists;
    auto unit = [&](int bar, int node) { return UnitBarVector(m, bar, node); };
    auto agree = [&](const AnalogousNode &rec, int mm, int k, bool mirror) {
        auto b = unit(s.baseBars[k], s.baseNode), v = unit(rec.bars[mm], rec.node);
        return b && v && (mirror ? MirroredDirection(*b, *v) : SameDirection(*b, *v));
    };
    std::vector<bool> mirrored(s.analogousNodes.size(), true);
    for (std::size_t r = 0; r < s.analogousNodes.size(); ++r) {
        s.analogousNodes[r].barTypes.fill(0);
        for (int mm = 0, done = 0; mm < s.analogousNodes[r].barCount && !done; ++mm)
            for (int k = 0; k < s.baseBarCount && !done; ++k)
                if ((done = agree(s.analogousNodes[r], mm, k, false)))
                    mirrored[r] = false;
                else if ((done = agree(s.analogousNodes[r], mm, k, true)))
                    mirrored[r] = true;
    }
    for (int k = 0; k < s.baseBarCount && method <= AnalogyMethod::IdenticalOrMirrored; ++k)
        for (std::size_t r = 0; r < s.analogousNodes.size(); ++r) {
            AnalogousNode &rec = s.analogousNodes[r];
            const bool mirror = method == AnalogyMethod::IdenticalOrMirrored && mirrored[r];
            for (int mm = 0; mm < rec.barCount; ++mm)
                if (agree(rec, mm, k, mirror)) {
                    rec.barTypes[mm] = s.baseBarTypes[k];
                    lists.names[s.baseBarTypes[k]].push_back(m.bars[rec.bars[mm]].name);
                    break;
                }
        }
    for (AnalogousNode &rec : s.analogousNodes)
        for (auto &t : rec.barTypes)
            t = t ? t : 1;
    return lists;
}

// Every shown live node with bars tried against every head in order, each head chosen as base
// node as the command does it and the node offered to the analogy test.
JointTypeCatalogue Catalogue(const StructureModel &m, const ViewState &v,
                             const AnalogyParameters &params) {
    JointTypeCatalogue catalogue;
    auto s = std::make_unique<ConnectionState>();
    for (int n = 0; n < m.nodeCount; ++n) {
        const std::vector<int> bars = BarsAt(m, v, n);
        if (!IsLive(m.nodes[n]) || !v.nodeShown[n] || bars.empty())
            continue;
        if (bars.size() > 100) {
            catalogue.overcrowded.push_back(n);
            continue;
        }
        bool joined = false;
        for (JointType &t : catalogue.types) {
            if (BarsAt(m, v, t.nodes[0]).size() != bars.size())
                continue;
            s->baseNode = static_cast<std::int16_t>(t.nodes[0]);
            GatherBaseBars(m, v, *s);
            if (s->baseBarCount > 0 &&
                TestAnalogy(m, v, *s, params, n) == AnalogyOutcome::Analogous) {
                t.nodes.push_back(n);
                joined = true;
                break;
            }
        }
        if (!joined)
            catalogue.types.push_back({static_cast<int>(bars.size()), {n}});
    }
    std::stable_sort(
        catalogue.types.begin(), catalogue.types.end(),
        [](const JointType &a, const JointType &b) { return a.nodes.size() > b.nodes.size(); });
    return catalogue;
}

} // namespace reference

// A small random frame on a lattice: repeated points, some moved by less than the tolerance
// across a hash cell's edge, repeated nodes, bars along a few directions (some of no length,
// some unnamed) and projections that make points coincide.
void RandomFrame(Frame &f, std::mt19937 &rng) {
    for (int p = 0; p < 36; ++p)
        f.Point(p % 4, p / 4 % 3, p / 12);
    auto jitter = [&] { return (Roll(rng, 3) - 1) * 0.00006; };
    for (int i = 0; i < 6; ++i) {
        const Point q = f.m->points[Roll(rng, 36)];
        f.Point(q.x + jitter(), q.y + jitter(), q.z + jitter());
    }
    for (int p = 0; p < f.m->pointCount; ++p)
        f.Node(p, Roll(rng, 10) == 0 ? -p : p + 1);
    for (int i = 0; i < 6; ++i)
        f.Node(Roll(rng, f.m->pointCount), 60 + i);
    auto at = [](int x, int y, int z) { return x < 4 && y < 3 && z < 3 ? x + 4 * y + 12 * z : -1; };
    for (int p = 0; p < 36; ++p) {
        const int x = p % 4, y = p / 4 % 3, z = p / 12;
        for (int to : {Roll(rng, 2) ? at(x + 1, y, z) : -1, Roll(rng, 2) ? at(x, y, z + 1) : -1,
                       Roll(rng, 4) ? -1 : at(x, y + 1, z), Roll(rng, 5) ? -1 : at(x + 1, y, z + 1),
                       Roll(rng, 20) ? -1 : p, Roll(rng, 3) ? -1 : 36 + Roll(rng, 6)})
            if (to >= 0)
                f.Bar(Roll(rng, 2) ? p : to, Roll(rng, 2) ? to : p,
                      Roll(rng, 12) ? f.m->barCount + 1 : 0, 1 + Roll(rng, 2));
    }
    const double angles[3][3] = {{0, 0, 0}, {30, 30, 0}, {90, 0, 0}};
    const auto &a = angles[Roll(rng, 3)];
    f.Project(a[0], a[1], a[2]);
}

void ExpectSameList(const ConnectionState &s, const std::vector<AnalogousNode> &list,
                    const StructureModel &m) {
    ASSERT_EQ(s.analogousNodes.size(), list.size());
    for (std::size_t r = 0; r < list.size(); ++r) {
        ASSERT_EQ(s.analogousNodes[r].node, list[r].node);
        ASSERT_EQ(s.analogousNodes[r].barCount, list[r].barCount);
        ASSERT_EQ(s.analogousNodes[r].bars, list[r].bars);
    }
    for (int n = 0; n < m.nodeCount; ++n) {
        auto it = std::find_if(list.begin(), list.end(),
                               [&](const AnalogousNode &r) { return r.node == n; });
        ASSERT_EQ(FindInAnalogous(s, n), it == list.end() ? 0 : it - list.begin() + 1);
    }
    for (int b = 0; b < m.barCount; ++b)
        ASSERT_EQ(ListedOf(s).Bar(b), std::any_of(list.begin(), list.end(), [&](auto &r) {
                      return std::count(r.bars.begin(), r.bars.begin() + r.barCount, b) > 0;
                  }));
}

TEST(ConnectionDifferential, RandomFramesAndCommandsMatchTheWrittenProcedures) {
    std::mt19937 rng(20261122);
    for (int round = 0; round < 60; ++round) {
        Frame f;
        RandomFrame(f, rng);
        const int base = Roll(rng, f.m->nodeCount);
        f.ChooseBase(base);
        std::vector<int> gathered = reference::BarsAt(*f.m, *f.view, base);
        std::erase_if(gathered, [&](int b) { return f.m->bars[b].name <= 0; });
        ASSERT_EQ(f.s.baseBarCount, static_cast<int>(gathered.size()));
        ASSERT_TRUE(std::equal(gathered.begin(), gathered.end(), f.s.baseBars.begin()));
        std::vector<AnalogousNode> list = f.s.analogousNodes;
        int messages = 0;
        for (int step = 0; step < 40; ++step) {
            AnalogyParameters params =
                Params(static_cast<AnalogyMethod>(Roll(rng, 5) % 4), Roll(rng, 2));
            params.compareColours = Roll(rng, 4) == 0;
            auto offer = [&](int n) {
                ASSERT_EQ(f.Test(n, params),
                          reference::TestAnalogy(*f.m, *f.view, f.s, list, params, n, messages));
            };
            const int op = Roll(rng, 10);
            if (op < 6) {
                offer(Roll(rng, f.m->nodeCount));
            } else if (op == 6) { // every node in order, as "Tutto" offers them
                for (int n = 0; n < f.m->nodeCount; ++n)
                    offer(n);
            } else if (op == 7 && !list.empty()) {
                const int position = 1 + Roll(rng, static_cast<int>(list.size()));
                RemoveAnalogousRecord(f.s, position);
                list.erase(list.begin() + position - 1);
            } else if (op == 8) { // in one pass, against node by node as the selection did
                auto hit = [&](int n) { return f.m->nodes[n].pointIndex % 3 == 1 + step % 2; };
                RemoveAnalogousNodesIf(f.s, hit);
                for (int n = 0; n < f.m->nodeCount; ++n)
                    std::erase_if(list,
                                  [&](const AnalogousNode &r) { return hit(n) && r.node == n; });
            } else if (Roll(rng, 4) == 0) {
                ClearAnalogous(f.s);
                list.clear();
            }
            ExpectSameList(f.s, list, *f.m);
            BuildAnalogousListText(*f.m, f.s);
            ASSERT_EQ(f.s.analogousListText, reference::ListText(*f.m, list));
        }
        ASSERT_EQ(f.tooMany, messages);

        // The classification and the per-type texts of the result file.
        for (int k = 0; k < f.s.baseBarCount; ++k)
            f.s.baseBarTypes[k] = static_cast<std::int16_t>(1 + Roll(rng, 3));
        const auto method = static_cast<AnalogyMethod>(Roll(rng, 2));
        ConnectionState copy = f.s;
        TypeBarLists slow = reference::Classify(*f.m, copy, method);
        TypeBarTexts texts = BuildTypeBarLists(*f.m, f.s, method);
        for (std::size_t r = 0; r < list.size(); ++r)
            ASSERT_EQ(f.s.analogousNodes[r].barTypes, copy.analogousNodes[r].barTypes);
        for (int t = 1; t <= 3; ++t) {
            std::vector<int> names(slow.names[t].begin(), slow.names[t].end());
            ASSERT_EQ(ClassifyAnalogousBars(*f.m, copy, method).names[t], slow.names[t]);
            reference::BubbleSort(names, false);
            ASSERT_EQ(texts[t], RangeText(names));
        }
    }
}

std::vector<std::vector<int>> NodesOf(const JointTypeCatalogue &catalogue) {
    std::vector<std::vector<int>> nodes;
    for (const JointType &t : catalogue.types)
        nodes.push_back(t.nodes);
    return nodes;
}

// What the random frames below seldom or never hold: a crowded node, a head whose bars are all
// unnamed (it takes no members) and lengths that agree only within the tolerance.
TEST(JointTypes, CrowdedNodesUnnamedHeadsAndTheTolerance) {
    Frame f;
    const std::vector<Vec3> corner = {{1, 0, 0}, {0, 0, 1}};
    const int a = f.Joint(0, 0, 0, kBeamColumn, 1), nameless = f.Joint(20, 0, 0, corner, 2);
    f.m->bars[f.m->barCount - 1].name = f.m->bars[f.m->barCount - 2].name = 0;
    const int c = f.Joint(40, 0, 0, corner, 3);
    const int crowded = f.Joint(60, 0, 0, std::vector<Vec3>(101, Vec3{0, 1, 0}), 4);
    // Every component within the tolerance, the lengths 0.00014 apart.
    const int d = f.Joint(80, 0, 0, {{1, 1, 1}, {0, 0, -1}}, 5);
    const int e = f.Joint(100, 0, 0, {{1.00008, 1.00008, 1.00008}, {0, 0, -1}}, 6);
    f.Project();
    for (int method = 0; method < 3; ++method) {
        const JointTypeCatalogue catalogue = CatalogueJointTypes(
            *f.m, *f.view, f.s.barIndex, Params(static_cast<AnalogyMethod>(method)));
        EXPECT_EQ(NodesOf(catalogue), (std::vector<std::vector<int>>{{d, e}, {a}, {nameless}, {c}}))
            << method;
        EXPECT_EQ(catalogue.overcrowded, std::vector<int>{crowded});
    }
}

// Every fourth round a rounded frame under tolerances, where the index reaches as far as they do.
TEST(JointTypes, FastCatalogueEqualsTheLiteralGroupingOnRandomFrames) {
    std::mt19937 rng(4242);
    int types = 0, nodes = 0;
    for (int round = 0; round < 40; ++round) {
        Frame f;
        const bool rounded = round % 4 == 1;
        if (round % 4 == 0)
            RandomFrame(f, rng);
        else
            RepeatedJointsFrame(f, rng, rounded ? 0.002 * (1 + Roll(rng, 6)) : 0);
        for (int n = 0; n < f.m->nodeCount; ++n) {
            f.view->nodeShown[n] = Roll(rng, 8) != 0;
            if (Roll(rng, 10) == 0)
                f.m->nodes[n].colour = 12;
        }
        for (int method = 0; method < 4; ++method)
            for (bool lengths : {true, false}) {
                AnalogyParameters params = Params(static_cast<AnalogyMethod>(method), lengths);
                params.compareColours = Roll(rng, 3) == 0;
                params.compareSections = Roll(rng, 3) == 0;
                if (rounded) {
                    params.angleTolerance = std::array{0.0, 0.5, 1.0, 4.0}[Roll(rng, 4)];
                    params.lengthTolerance = std::array{0.0, 0.5, 2.0}[Roll(rng, 3)];
                    params.lengthTolerance += params.Tolerant() ? 0 : 1;
                }
                const JointTypeCatalogue fast =
                    CatalogueJointTypes(*f.m, *f.view, f.s.barIndex, params);
                const JointTypeCatalogue literal = reference::Catalogue(*f.m, *f.view, params);
                ASSERT_EQ(NodesOf(fast), NodesOf(literal)) << round << " " << method;
                ASSERT_EQ(fast.overcrowded, literal.overcrowded);
                for (std::size_t t = 0; t < fast.types.size(); ++t)
                    ASSERT_EQ(fast.types[t].barCount, literal.types[t].barCount);
                types += static_cast<int>(fast.types.size());
                for (const JointType &t : fast.types)
                    nodes += static_cast<int>(t.nodes.size());
            }
    }
    EXPECT_GT(nodes - types, 320 * 10); // on average ten nodes join a type in each catalogue
}

TEST(JointTypes, FarAndBrokenCoordinatesNeitherHangNorChangeTheGrouping) {
    Frame f;
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double inf = std::numeric_limits<double>::infinity();
    std::vector<int> joints;
    for (double x : {1e13, 1e13 + 20, 3e14, -3e14, 0.0})
        joints.push_back(f.Joint(x, 0, 0, kBeamColumn, 1 + static_cast<int>(joints.size())));
    joints.push_back(f.Joint(40, 0, 0, {{nan, 0, 0}, {1, 0, 0}, {0, 0, -3}}, 8));
    joints.push_back(f.Joint(60, 0, 0, {{inf, 0, 0}, {3, 0, 0}, {0, 0, -3}}, 9));
    // Bars so long that the rounding of their lengths exceeds the tolerance.
    for (int k = 0; k < 2; ++k)
        joints.push_back(f.Joint(80 + 20 * k, 0, 0, {{3e14, 0, 0}, {0, 2e13, 0}}, 10 + k));
    f.Project();
    const auto &j = joints;
    EXPECT_EQ(
        NodesOf(CatalogueJointTypes(*f.m, *f.view, f.s.barIndex, Params(AnalogyMethod::Identical))),
        (std::vector<std::vector<int>>{
            {j[0], j[1], j[2], j[3], j[4]}, {j[7], j[8]}, {j[5]}, {j[6]}}));
    for (int method = 0; method < 4; ++method)
        for (bool lengths : {true, false}) {
            const AnalogyParameters params = Params(static_cast<AnalogyMethod>(method), lengths);
            EXPECT_EQ(NodesOf(CatalogueJointTypes(*f.m, *f.view, f.s.barIndex, params)),
                      NodesOf(reference::Catalogue(*f.m, *f.view, params)));
            for (int base : joints) {
                f.ChooseBase(base);
                for (int n : joints)
                    f.Test(n, params);
            }
        }
}

// The connection commands as the window runs them, on a beam-column joint named 11 and a second
// joint named 12; the base node is chosen by picking one of them.
struct Window {
    test::RecordingUi ui;
    test::RecordingCanvas disegno, picture1{2100, 1500};
    std::unique_ptr<Program> p = std::make_unique<Program>(ui, disegno, picture1);
    Frame f;
    int base = f.Joint(0, 0, 0, kBeamColumn, 11);
    int other;
    explicit Window(const std::vector<Vec3> &second = kBeamColumn, int picked = 11)
        : other(f.Joint(20, 0, 0, second, 12)) {
        std::swap(p->model, *f.m);
        p->input = ThreeTypes("2");
        BuildFirstView(*p);
        NodoBase_Click(*p);
        ChooseBaseNodeByPick(*p, picked);
    }
};

TEST(ConnectionCommands, ChoosingTypingAndDroppingTheBaseNode) {
    Window w;
    Program &p = *w.p;
    EXPECT_EQ(p.connection.baseNode, w.base);
    EXPECT_EQ(p.form.StringaSel.caption, "11");
    EXPECT_FALSE(p.form.NodoBase.enabled);
    EXPECT_TRUE(p.form.RimNodoBase.enabled && p.form.Label7.enabled);
    EXPECT_EQ(p.command.activeFunction, ActiveFunction::None);
    EXPECT_EQ(p.form.LabelTipo[1].caption, "TR");
    EXPECT_EQ(p.form.LabelTipo[3].caption, "CO"); // the column below
    LabelTipo_Click(p, 3);
    EXPECT_EQ(p.form.LabelTipo[3].caption, "TR");
    EXPECT_EQ(p.connection.baseBarTypes[2], 2);
    LabelTipo_Click(p, 4); // hidden: nothing
    EXPECT_EQ(p.form.LabelTipo[4].caption, "");

    TestAnalogy(p.model, p.view, p.connection, AnalogyParametersOf(p), w.other);
    w.ui.answers.push_back(MsgAnswer::Cancel);
    RimNodoBase_Click(p);
    EXPECT_EQ(p.connection.analogousNodes.size(), 2u);
    ASSERT_EQ(w.ui.messages.size(), 1u);
    EXPECT_EQ(w.ui.messages[0].title, "INFORMAZIONE");

    AsteNodoBase_Click(p); // OK: the list goes, the function starts
    EXPECT_EQ(p.form.StringaSel.caption, "");
    EXPECT_EQ(p.command.activeFunction, ActiveFunction::RemoveBaseBars);
    p.connection.baseBarCount = 0;
    AfterBaseBarsRemoved(p); // the last base bar went: so does the base node
    EXPECT_EQ(p.connection.baseNode, -1);
    EXPECT_FALSE(p.form.Label7.enabled || p.form.LabelTipo[1].visible);
    EXPECT_TRUE(p.form.NodoBase.enabled);
    EXPECT_EQ(w.ui.messages.size(), 2u);
}

// A node with more bars than a connection can have, met as the base node and as a candidate:
// the user is told each time, in the words of each command.
TEST(ConnectionCommands, TooManyBarsAreToldAsBaseNodeAndAsCandidate) {
    Window w(std::vector<Vec3>(kTooManyBaseBars, Vec3{1, 0, 0}), 12);
    Program &p = *w.p;
    const auto &messages = w.ui.messages;
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_EQ(messages[0].title, "INFORMAZIONE");
    EXPECT_EQ(messages[0].icon, MsgIcon::Exclamation);
    EXPECT_EQ(messages[0].text, " Numero eccessivo di potenziali aste base ");

    RimNodoBase_Click(p);
    NodoBase_Click(p);
    ChooseBaseNodeByPick(p, 11);
    Aggiungi_Click(p);
    OfferNodesByName(p, {12, 11});
    ASSERT_EQ(messages.size(), 2u);
    EXPECT_EQ(messages[1].title, "Problema");
    EXPECT_EQ(messages[1].icon, MsgIcon::Exclamation);
    EXPECT_EQ(messages[1].text, messages[0].text);
}

// ---- "Perché no?": the explanation of a verdict and the near misses

// Every node of random frames, under every method and check-box combination: the explanation's
// verdict is the test's, a rejection always names its criterion, an acceptance none, and an
// accepted pairing is the test's record.
TEST(WhyNot, VerdictIsTheTestsOnRandomFramesUnderEveryParameter) {
    std::mt19937 rng(20261125);
    for (int round = 0; round < 16; ++round) {
        Frame f;
        const bool rounded = round % 4 == 2; // then under tolerances
        if (round % 2)
            RandomFrame(f, rng);
        else
            RepeatedJointsFrame(f, rng, rounded ? 0.01 : 0);
        for (int b = 0; b < f.m->barCount; ++b) {
            f.m->bars[b].sectionCard = static_cast<std::int16_t>(Roll(rng, 8) == 0);
            f.m->bars[b].lineType = static_cast<std::int16_t>(Roll(rng, 8) == 0);
        }
        f.ChooseBase(Roll(rng, f.m->nodeCount));
        if (f.s.baseBarCount == 0)
            f.ChooseBase(f.m->bars[0].pointI);
        for (int combination = 0; combination < 64; ++combination) {
            AnalogyParameters params =
                Params(static_cast<AnalogyMethod>(combination % 4), (combination >> 2 & 1) != 0);
            params.compareColours = (combination >> 3 & 1) != 0;
            params.compareLineTypes = (combination >> 4 & 1) != 0;
            params.compareSections = (combination >> 5 & 1) != 0;
            if (rounded) {
                params.angleTolerance = combination % 3;
                params.lengthTolerance = 1 + combination % 2;
            }
            for (int n = 0; n < f.m->nodeCount; ++n) {
                const AnalogyExplanation e = ExplainNodeAnalogy(*f.m, *f.view, f.s, params, n);
                const AnalogyOutcome outcome = TestAnalogy(*f.m, *f.view, f.s, params, n);
                ASSERT_EQ(e.analogous, outcome == AnalogyOutcome::Analogous) << round << ' ' << n;
                ASSERT_EQ(e.reason == WhyNotReason::None, e.analogous) << round << ' ' << n;
                ASSERT_EQ(e.reason == WhyNotReason::TooManyBars,
                          outcome == AnalogyOutcome::TooManyBars);
                ASSERT_EQ(e.pairs.size(), static_cast<std::size_t>(f.s.baseBarCount));
                if (e.analogous) {
                    const AnalogousNode &r = f.s.analogousNodes[FindInAnalogous(f.s, n) - 1];
                    for (int k = 0; k < f.s.baseBarCount; ++k)
                        ASSERT_EQ(e.pairs[k].candidateBar, r.bars[k]);
                } else if (e.reason == WhyNotReason::Direction ||
                           e.reason == WhyNotReason::Length) {
                    ASSERT_LT(e.failingBar, f.s.baseBarCount);
                    ASSERT_EQ(e.pairs[e.failingBar].candidateBar, -1);
                }
            }
            ClearAnalogous(f.s);
        }
    }
}

// A base joint and copies of it with one change each, side by side along x.
struct ChangedCopies {
    Frame f;
    std::vector<Vec3> bars = {{3, 0, 0}, {-2, 0, 0}, {0, 2.5, 0}, {0, 0, -3}};
    int base = f.Joint(0, 0, 0, bars, 1);
    int Copy(std::vector<Vec3> changed, int name) {
        return f.Joint(20.0 * name, 0, 0, changed, name);
    }
    // Base bar 3 (along y) turned about x by the angle in degrees.
    int Turned(double degrees, int name) {
        std::vector<Vec3> changed = bars;
        changed[2] = vorna::Turned(bars[2], {1, 0, 0}, degrees * std::numbers::pi / 180);
        return Copy(changed, name);
    }
};

TEST(WhyNot, EachChangeGivesItsReasonBaseBarAndAngleAndNearMissesRankThem) {
    ChangedCopies c;
    Frame &f = c.f;
    std::vector<Vec3> longer = c.bars, missing = c.bars;
    longer[1] = {-3, 0, 0};
    missing.pop_back();
    const int lengthNode = c.Copy(longer, 2), one = c.Turned(1, 3), five = c.Turned(5, 4),
              twenty = c.Turned(20, 5), missingNode = c.Copy(missing, 6);
    const int colour = c.Copy(c.bars, 7), lineType = c.Copy(c.bars, 8), section = c.Copy(c.bars, 9);
    // The copies' bars follow their nodes' points: bar k of the copy of node n.
    auto copyBar = [&](int node, int k) {
        for (int b = 0; b < f.m->barCount; ++b)
            if (f.m->bars[b].pointI == f.m->nodes[node].pointIndex && k-- == 0)
                return b;
        return -1;
    };
    f.m->bars[copyBar(colour, 0)].colour = 3;
    f.m->bars[copyBar(lineType, 1)].lineType = 2;
    f.m->bars[copyBar(section, 3)].sectionCard = 4;
    f.Project();
    f.ChooseBase(c.base);
    AnalogyParameters all = Params(AnalogyMethod::Identical);
    all.compareColours = all.compareLineTypes = all.compareSections = true;
    auto explain = [&](int node, const AnalogyParameters &params) {
        return ExplainNodeAnalogy(*f.m, *f.view, f.s, params, node);
    };
    struct Expected {
        int node;
        WhyNotReason reason;
        int bar;
        double angle; // < 0: none given
    };
    for (const Expected &x : {Expected{lengthNode, WhyNotReason::Length, 1, -1},
                              {one, WhyNotReason::Direction, 2, 1},
                              {five, WhyNotReason::Direction, 2, 5},
                              {twenty, WhyNotReason::Direction, 2, 20},
                              {missingNode, WhyNotReason::BarCount, -1, -1},
                              {colour, WhyNotReason::Colour, 0, -1},
                              {lineType, WhyNotReason::LineType, 1, -1},
                              {section, WhyNotReason::Section, 3, -1}}) {
        const AnalogyExplanation e = explain(x.node, all);
        SCOPED_TRACE(x.node);
        EXPECT_FALSE(e.analogous);
        EXPECT_EQ(e.reason, x.reason);
        EXPECT_EQ(e.failingBar, x.bar);
        EXPECT_EQ(e.angle.has_value(), x.angle >= 0);
        if (x.angle >= 0) {
            EXPECT_NEAR(*e.angle, x.angle, 0.1);
        }
        ASSERT_EQ(e.pairs.size(), 4u);
        for (int k = 0; k < 4 && x.reason != WhyNotReason::BarCount; ++k) {
            EXPECT_EQ(e.pairs[k].baseBar, f.s.baseBars[k]);
            EXPECT_NEAR(*e.pairs[k].angle, k == x.bar ? std::max(x.angle, 0.0) : 0, 0.1);
            const bool unpaired =
                x.reason == WhyNotReason::Direction || x.reason == WhyNotReason::Length;
            EXPECT_EQ(e.pairs[k].candidateBar < 0, k == x.bar && unpaired);
        }
    }
    // Without the check boxes the same property copies pass, and the longer bar too.
    EXPECT_TRUE(explain(colour, Params(AnalogyMethod::Identical)).analogous);
    EXPECT_TRUE(explain(lengthNode, Params(AnalogyMethod::Identical, false)).analogous);

    // Closest first: the properties (no figure apart), then 1, 5 and 20 degrees, then the
    // length; never the base node, never a node with fewer bars.
    std::vector<int> order;
    for (const NearMiss &m : FindNearMisses(*f.m, *f.view, f.s, all))
        order.push_back(m.node);
    EXPECT_EQ(order, (std::vector<int>{colour, lineType, section, one, five, twenty, lengthNode}));
    const std::vector<NearMiss> misses = FindNearMisses(*f.m, *f.view, f.s, all, 5);
    ASSERT_EQ(misses.size(), 5u);
    EXPECT_NEAR(misses[3].score, 1, 0.01);
    EXPECT_EQ(misses[4].reason, WhyNotReason::Direction);
    EXPECT_EQ(misses[4].failingBar, 2);

    // The other methods: "qualsiasi" takes the turned bar and sums the angles; "ruotati" finds
    // no rotation for a bent joint but one for the joint turned whole, and names it.
    const AnalogyExplanation any = explain(five, Params(AnalogyMethod::Any));
    EXPECT_TRUE(any.analogous);
    EXPECT_NEAR(*any.totalAngle, 5, 0.1);
    const AnalogyExplanation bent = explain(twenty, Params(AnalogyMethod::Rotated));
    EXPECT_EQ(bent.reason, WhyNotReason::NoRotation);
    EXPECT_GT(*bent.angle, 1);
    std::vector<Vec3> quarter;
    for (const Vec3 &b : c.bars)
        quarter.push_back({-b[1], b[0], b[2]});
    const int turnedWhole = c.Copy(quarter, 10);
    // Turned whole and one bar bent by 5 degrees: the best rotation found leaves about that
    // much at the bent bar, the least-squares fit spreading some of it over the others.
    std::vector<Vec3> bentQuarter = quarter;
    bentQuarter[2] = Turned(quarter[2], {0, 0, 1}, 5 * std::numbers::pi / 180);
    const int turnedBent = c.Copy(bentQuarter, 11);
    f.Project();
    const AnalogyExplanation off = explain(turnedBent, Params(AnalogyMethod::Rotated));
    EXPECT_EQ(off.reason, WhyNotReason::NoRotation);
    EXPECT_EQ(off.failingBar, 2);
    EXPECT_GT(*off.angle, 2.5);
    EXPECT_LE(*off.angle, 5.0);
    EXPECT_NEAR(off.rotationAngle, 90, 2);
    const AnalogyExplanation rotated = explain(turnedWhole, Params(AnalogyMethod::Rotated));
    EXPECT_TRUE(rotated.analogous && rotated.hasRotation);
    EXPECT_NEAR(rotated.rotationAngle, 90, 0.1);
    EXPECT_NEAR(std::fabs(rotated.rotationAxis[2]), 1, 1e-6);
    EXPECT_LT(rotated.rotationResidual, 0.01);
    const AnalogyExplanation mirrored =
        explain(turnedWhole, Params(AnalogyMethod::IdenticalOrMirrored));
    // Under "simmetrici" the first base bar finds its mirror image, but a shorter one.
    EXPECT_EQ(mirrored.reason, WhyNotReason::Length);
    EXPECT_EQ(mirrored.failingBar, 0);
    EXPECT_EQ(explain(-1, all).reason, WhyNotReason::NotLive);
}

// "Perché no?" as the user meets it: the function, the dialog with the failing cell and the
// near misses (a row centres the view on its node), and Esito after one node offered by name.
TEST(ConnectionCommands, WhyNotOpensTheComparisonAndEsitoTellsTheVerdict) {
    const std::vector<Vec3> turned = {
        kBeamColumn[0], kBeamColumn[1],
        Turned(kBeamColumn[2], {1, 0, 0}, 5 * std::numbers::pi / 180)};
    Window w(turned);
    Program &p = *w.p;
    ASSERT_TRUE(p.form.PercheNo.enabled);
    PercheNo_Click(p);
    EXPECT_EQ(p.command.activeFunction, ActiveFunction::WhyNot);
    EXPECT_EQ(p.form.FunAttiva.caption, "Perch\xE9 no?");
    EXPECT_TRUE(p.form.Nome.enabled);
    EXPECT_FALSE(p.form.Finestra.enabled || p.form.Tutto.enabled);
    std::string verdict, failing, firstMiss;
    w.ui.dialogUsers.push_back([&](Dialog &d) {
        verdict = d.Find("Verdetto")->caption;
        failing = d.Find("Confronto")->items.at(2);
        firstMiss = d.Find("ListaQuasi")->items.at(0);
        d.Find("ListaQuasi")->text = "1";
        d.Click("ListaQuasi");
        d.Click("Chiudi");
        EXPECT_TRUE(d.closed);
    });
    Nome_Click(p);
    p.form.Risposta.text = "12";
    Risposta_KeyDown(p, Key::Enter);
    ASSERT_EQ(w.ui.dialogsShown, std::vector<std::string>{"FormPercheNo"});
    EXPECT_EQ(verdict, "Nodo 12 non analogo: asta base 3, direzione diversa di 5.0\xB0");
    EXPECT_NE(failing.find("\t\xBB 5.0\xB0\t"), std::string::npos) << failing;
    EXPECT_EQ(firstMiss, "1\t12\tdirezione\t3\t5.000");
    // The node now lies at the centre of the window.
    const ViewWindow &z = p.view.zoomWindow;
    const int point = p.model.nodes[w.other].pointIndex;
    EXPECT_NEAR((z.xMax + z.xMin) / 2, ProjectedXOf(p.view, point), 1e-3);
    EXPECT_NEAR((z.yMax + z.yMin) / 2, ProjectedYOf(p.view, point), 1e-3);

    Aggiungi_Click(p);
    Nome_Click(p);
    p.form.Risposta.text = "12";
    Risposta_KeyDown(p, Key::Enter);
    EXPECT_EQ(p.form.Esito.caption, verdict);
    p.form.Risposta.text = "11";
    Risposta_KeyDown(p, Key::Enter);
    EXPECT_EQ(p.form.Esito.caption, "Nodo 11 analogo");
    Interrompi_Click(p);
    EXPECT_EQ(p.form.Esito.caption, "");
}

} // namespace
} // namespace vorna
