// The analogy test within tolerances: against the rules written out plainly on noisy frames, the
// turned pairing against enumeration, joints just within and just beyond the tolerances, and
// the reason a joint is turned away.
#include "connection/rotation_within.h"
#include "connection/why_not.h"
#include "connection_support.h"

#include <gtest/gtest.h>

namespace vorna {
namespace {

using namespace vorna::test;

AnalogyParameters Within(AnalogyMethod method, bool lengths, double degrees, double percent) {
    AnalogyParameters p = Params(method, lengths);
    p.angleTolerance = degrees;
    p.lengthTolerance = percent;
    return p;
}

namespace reference {

bool SameWay(const Vec3 &u, const Vec3 &w, double degrees) {
    return degrees > 0 ? AngleDegrees(u, w) <= degrees : AllBelow(Sub(u, w), 0.0001);
}

bool LengthsAgree(double a, double b, double percent) {
    return percent > 0 ? std::fabs(a - b) <= percent / 100 * std::max(a, b)
                       : std::fabs(a - b) < 0.0001;
}

// Whether candidate bar c may stand for base bar k, apart from its direction.
bool Usable(const Joint &base, const Joint &candidate, int k, int c, const AnalogyParameters &p) {
    return DirectionOf(base.bars[k]) && DirectionOf(candidate.bars[c]) &&
           (!p.compareLengths ||
            LengthsAgree(base.bars[k].length, candidate.bars[c].length, p.lengthTolerance));
}

// "identici" (each base bar its nearest agreeing bar, shared) and "simmetrici" (mirrors too,
// each bar once), as the rules say it.
std::optional<std::vector<int>> InTurn(const Joint &base, const Joint &candidate,
                                       const AnalogyParameters &p, bool mirrors) {
    std::vector<int> pairing;
    std::vector<bool> taken(candidate.bars.size());
    for (int k = 0; k < static_cast<int>(base.bars.size()); ++k) {
        int best = -1;
        double least = 1e9;
        for (int c = 0; c < static_cast<int>(candidate.bars.size()); ++c) {
            if ((mirrors && taken[c]) || !Usable(base, candidate, k, c, p))
                continue;
            const Vec3 u = *DirectionOf(base.bars[k]), w = *DirectionOf(candidate.bars[c]);
            for (const Vec3 &v : mirrors ? std::vector<Vec3>{w, Mirror(w)} : std::vector<Vec3>{w})
                if (SameWay(u, v, p.angleTolerance) && AngleDegrees(u, v) < least)
                    least = AngleDegrees(u, v), best = c;
        }
        if (best < 0)
            return std::nullopt;
        taken[best] = true;
        pairing.push_back(best);
    }
    return pairing;
}

// "ruotati": of every pairing whose least-squares rotation leaves each bar within the angle
// tolerance, the one with the smallest largest angle, the first of them in lexicographic order.
std::optional<std::vector<int>> Turned(const Joint &base, const Joint &candidate,
                                       const AnalogyParameters &p) {
    const int n = static_cast<int>(base.bars.size()), m = static_cast<int>(candidate.bars.size());
    std::optional<std::vector<int>> best;
    double bestWorst = 0;
    for (int k = 0; k < n; ++k)
        if (!DirectionOf(base.bars[k]))
            return best;
    EachPairing(n, m, [&](const std::vector<int> &pairing) {
        std::vector<Vec3> from, to;
        for (int k = 0; k < n; ++k) {
            if (!Usable(base, candidate, k, pairing[k], p))
                return true;
            from.push_back(*DirectionOf(base.bars[k]));
            to.push_back(*DirectionOf(candidate.bars[pairing[k]]));
        }
        const Rotation r = BestFitRotation(from, to);
        double worst = 0;
        for (int k = 0; k < n; ++k) {
            if (!SameWay(Rotate(r, from[k]), to[k], p.angleTolerance))
                return true;
            worst = std::max(worst, AngleDegrees(Rotate(r, from[k]), to[k]));
        }
        if (!best || worst < bestWorst)
            best = pairing, bestWorst = worst;
        return true;
    });
    return best;
}

// "qualsiasi": the smallest sum of angles over the usable pairings, the first among equal sums.
std::optional<std::vector<int>> Cheapest(const Joint &base, const Joint &candidate,
                                         const AnalogyParameters &p) {
    const int n = static_cast<int>(base.bars.size()), m = static_cast<int>(candidate.bars.size());
    std::optional<std::vector<int>> best;
    double bestSum = 0;
    EachPairing(n, m, [&](const std::vector<int> &pairing) {
        double sum = 0;
        for (int k = 0; k < n; ++k) {
            if (!Usable(base, candidate, k, pairing[k], p))
                return true;
            sum +=
                AngleBetween(*DirectionOf(base.bars[k]), *DirectionOf(candidate.bars[pairing[k]]));
        }
        if (!best || sum < bestSum - 1e-9)
            best = pairing, bestSum = sum;
        return true;
    });
    return best;
}

std::optional<std::vector<int>> Pairing(const Joint &base, const Joint &candidate,
                                        const AnalogyParameters &p) {
    if (candidate.bars.size() < base.bars.size())
        return std::nullopt;
    if (p.method == AnalogyMethod::Identical || candidate.node == base.node)
        return InTurn(base, candidate, p, false);
    if (p.method == AnalogyMethod::IdenticalOrMirrored)
        return InTurn(base, candidate, p, true);
    if (p.method == AnalogyMethod::Rotated)
        return Turned(base, candidate, p);
    return Cheapest(base, candidate, p);
}

} // namespace reference

TEST(TolerantMatch, EveryMethodFollowsTheRulesOnNoisyFrames) {
    std::mt19937 rng(20261125);
    const double degrees[] = {0, 0.5, 1, 3, 10};
    const double percents[] = {0, 0.5, 2, 10};
    int accepted = 0, rejected = 0;
    for (int round = 0; round < 24; ++round) {
        Frame f;
        RepeatedJointsFrame(f, rng, 0.004 * (1 + Roll(rng, 8)));
        f.ChooseBase(Roll(rng, f.m->nodeCount));
        if (f.s.baseBarCount == 0)
            continue;
        const Joint base = BaseJoint(*f.m, f.s);
        for (int trial = 0; trial < 8; ++trial) {
            AnalogyParameters p = Within(static_cast<AnalogyMethod>(Roll(rng, 4)), Roll(rng, 2),
                                         degrees[Roll(rng, 5)], percents[Roll(rng, 4)]);
            if (!p.Tolerant())
                p.lengthTolerance = 1;
            p.compareColours = Roll(rng, 3) == 0;
            for (int n = 0; n < f.m->nodeCount; ++n) {
                std::vector<std::int16_t> bars;
                BarsAtProjectedPoint(f.s.barIndex, *f.m, *f.view, f.m->nodes[n].pointIndex, bars);
                const Joint candidate = JointAt(*f.m, n, bars);
                std::optional<std::vector<int>> expected = reference::Pairing(base, candidate, p);
                for (int k = 0; expected && p.compareColours && k < f.s.baseBarCount; ++k)
                    if (f.m->bars[base.bars[k].bar].colour !=
                        f.m->bars[candidate.bars[(*expected)[k]].bar].colour)
                        expected.reset();
                const std::optional<AnalogousNode> found = Matched(*f.m, base, candidate, p);
                ASSERT_EQ(found.has_value(), expected.has_value()) << round << ' ' << n;
                if (!found) {
                    ++rejected;
                    continue;
                }
                ++accepted;
                for (int k = 0; k < f.s.baseBarCount; ++k)
                    ASSERT_EQ(found->bars[k], candidate.bars[(*expected)[k]].bar)
                        << round << ' ' << n;
            }
        }
    }
    EXPECT_GT(accepted, 300);
    EXPECT_GT(rejected, 300);
}

// Turned joints of up to four bars among up to six, each bar off by up to one and a half times
// the tolerance: the search finds exactly the pairing that enumeration finds.
TEST(TolerantMatch, TurnedPairingAgainstEnumeration) {
    std::mt19937 rng(23);
    std::uniform_real_distribution<double> any(-1, 1);
    int found = 0;
    for (int round = 0; round < 500; ++round) {
        const double degrees = std::array<double, 5>{0, 0.5, 2, 10, 30}[Roll(rng, 5)];
        const Agreement rule(Within(AnalogyMethod::Rotated, false, degrees, degrees > 0 ? 0 : 1));
        const int n = 1 + Roll(rng, 4), m = n + Roll(rng, 3);
        std::vector<Vec3> base;
        for (int k = 0; k < n; ++k)
            base.push_back(UnitOf(Roll(rng, 3) ? Vec3{any(rng), any(rng), any(rng)}
                                               : Vec3{Roll(rng, 3) - 1.0, Roll(rng, 3) - 1.0, 1}));
        const Vec3 axis = UnitOf({any(rng), any(rng), any(rng)});
        const double turn = 3 * any(rng);
        std::vector<Vec3> candidates;
        for (const Vec3 &b : base) {
            const double off = (degrees > 0 ? degrees : 0.005) * 1.5 * std::abs(any(rng));
            const Vec3 t = Turned(b, axis, turn);
            candidates.push_back(
                Turned(t, UnitOf(Cross(t, {any(rng), any(rng), any(rng)})), off * kPi / 180));
        }
        while (static_cast<int>(candidates.size()) < m)
            candidates.push_back(UnitOf({any(rng), any(rng), any(rng)}));
        std::shuffle(candidates.begin(), candidates.end(), rng);
        const std::vector<std::optional<Vec3>> offered(candidates.begin(), candidates.end());
        const BipartiteGraph all{n, m, std::vector<std::uint8_t>(n * m, 1)};
        const auto searched = MatchRotatedWithin(base, offered, all, rule);

        Joint b{0, {}}, c{1, {}};
        for (int k = 0; k < n; ++k)
            b.bars.push_back(JointBarOf(static_cast<std::int16_t>(k), base[k], 1));
        for (int e = 0; e < m; ++e)
            c.bars.push_back(JointBarOf(static_cast<std::int16_t>(e), candidates[e], 1));
        const auto expected = reference::Turned(
            b, c, Within(AnalogyMethod::Rotated, false, degrees, degrees > 0 ? 0 : 1));
        ASSERT_EQ(searched.has_value(), expected.has_value()) << round;
        if (searched) {
            ASSERT_EQ(searched->pairing, *expected) << round;
            ++found;
        }
    }
    EXPECT_GT(found, 200);
    EXPECT_LT(found, 480);
}

// A tower joint of nine bars (legs, horizontals, diagonals) turned a quarter about z, under the
// widest angle tolerance: of the many pairings that pass, an exact one.
TEST(TolerantMatch, AWideToleranceStillFindsTheExactPairingOfACrowdedJoint) {
    const std::vector<Vec3> joint = {{0, 0, 1}, {0, 0, -1}, {1, 0, 0},  {0, 1, 0}, {1, 0, 1},
                                     {0, 1, 1}, {1, 1, 0},  {1, 0, -1}, {0, 1, -1}};
    std::vector<Vec3> base, turned;
    for (const Vec3 &b : joint) {
        base.push_back(UnitOf(b));
        turned.push_back(UnitOf(Turned(b, {0, 0, 1}, kPi / 2)));
    }
    std::reverse(turned.begin(), turned.end());
    const std::vector<std::optional<Vec3>> offered(turned.begin(), turned.end());
    const BipartiteGraph all{9, 9, std::vector<std::uint8_t>(81, 1)};
    const auto found = MatchRotatedWithin(base, offered, all,
                                          Agreement(Within(AnalogyMethod::Rotated, false, 45, 0)));
    ASSERT_TRUE(found);
    EXPECT_LT(found->worst, 1e-6); // the quarter turn, or the half turn the joint also allows
}

// Joints of a frame whose every bar is turned and stretched by a fraction of the tolerances:
// within them (0.3) every method finds every copy, beyond them (3) none.
TEST(TolerantMatch, CopiesWithinTheTolerancesAreFoundAndBeyondThemNot) {
    const std::vector<Vec3> joint = {
        {300, 0, 0}, {-450, 0, 0}, {0, 500, 0}, {0, 0, -350}, {0, 0, 350}};
    const double degrees = 1, percent = 1;
    for (double fraction : {0.3, 3.0}) {
        Frame f;
        std::mt19937 rng(3);
        std::uniform_real_distribution<double> any(-1, 1);
        const int base = f.Joint(0, 0, 0, joint, 1);
        std::vector<int> copies;
        for (int copy = 0; copy < 12; ++copy) {
            std::vector<Vec3> moved;
            for (const Vec3 &b : joint) {
                const Vec3 across = UnitOf(Cross(b, {any(rng), any(rng), any(rng)}));
                const double stretch = 1 + (copy % 2 ? 1 : -1) * fraction * percent / 100;
                moved.push_back(Scaled(Turned(b, across, fraction * degrees * kPi / 180), stretch));
            }
            copies.push_back(f.Joint(2000.0 * (copy + 1), 0, 0, moved, 2 + copy));
        }
        f.Project();
        f.ChooseBase(base);
        for (int method = 0; method < 4; ++method) {
            const AnalogyParameters p =
                Within(static_cast<AnalogyMethod>(method), true, degrees, percent);
            int found = 0;
            for (int n : copies)
                found += f.Test(n, p);
            // "Nodi qualsiasi" bounds no angle: beyond the tolerances only lengths keep it out.
            EXPECT_EQ(found, fraction < 1 ? 12 : 0) << method << ' ' << fraction;
            EXPECT_EQ(f.Test(copies[0], Params(static_cast<AnalogyMethod>(method))), 0);
            ClearAnalogous(f.s);
        }
    }
}

// One bar turned half a degree beyond the angle tolerance: turned away for that bar's
// direction, with the angle it has.
TEST(TolerantMatch, ABarTurnedBeyondTheToleranceIsNamedWithItsAngle) {
    Frame f;
    const std::vector<Vec3> joint = {{3, 0, 0}, {-2, 0, 0}, {0, 2.5, 0}, {0, 0, -3}};
    std::vector<Vec3> bent = joint;
    const double degrees = 2;
    bent[2] = Turned(joint[2], {1, 0, 0}, (degrees + 0.5) * kPi / 180);
    const int base = f.Joint(0, 0, 0, joint, 1), node = f.Joint(20, 0, 0, bent, 2);
    f.Project();
    f.ChooseBase(base);
    for (int method = 0; method < 2; ++method) {
        const AnalogyParameters p = Within(static_cast<AnalogyMethod>(method), true, degrees, 1);
        const AnalogyExplanation e = ExplainNodeAnalogy(*f.m, *f.view, f.s, p, node);
        EXPECT_FALSE(e.analogous);
        EXPECT_EQ(e.reason, WhyNotReason::Direction);
        EXPECT_EQ(e.failingBar, 2);
        ASSERT_TRUE(e.angle);
        EXPECT_NEAR(*e.angle, degrees + 0.5, 0.01);
        EXPECT_NEAR(*e.pairs[0].angle, 0, 0.01);
        EXPECT_EQ(f.Test(node, p), 0);
    }
    const AnalogyParameters wider = Within(AnalogyMethod::Identical, true, degrees + 0.6, 1);
    EXPECT_EQ(f.Test(node, wider), 1);
    EXPECT_NEAR(f.s.analogousNodes.back().match.largestAngle, degrees + 0.5, 0.01);
}

} // namespace
} // namespace vorna
