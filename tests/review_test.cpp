// The review of the list on joints made by hand: how each node matched the base joint in words,
// its deviations, and the row looked at first.
#include "app/review.h"
#include "connection_support.h"

#include <gtest/gtest.h>

#include <numbers>

namespace vorna {
namespace {

using namespace vorna::test;

constexpr double kDegree = std::numbers::pi / 180;

// A base joint of three bars of different lengths (one down), and the joints it is set
// against: turned 90° about z, mirrored in plan, one bar 0.4° off, one bar 2 % longer.
struct MadeJoints {
    Frame f;
    int turned, mirrored, off, longer;
    MadeJoints() {
        const std::vector<Vec3> base = {{1, 0, 0}, {0, 2, 0}, {0, 0, -3}};
        const int node = f.Joint(0, 0, 0, base, 1);
        std::vector<Vec3> turnedBars, mirroredBars;
        for (const Vec3 &v : base) {
            turnedBars.push_back(Turned(v, {0, 0, 1}, 90 * kDegree));
            mirroredBars.push_back(Mirror(v));
        }
        turned = f.Joint(10, 0, 0, turnedBars, 2);
        mirrored = f.Joint(20, 0, 0, mirroredBars, 3);
        off = f.Joint(30, 0, 0, {Turned(base[0], {0, 0, 1}, 0.4 * kDegree), base[1], base[2]}, 4);
        longer = f.Joint(40, 0, 0, {base[0], Scaled(base[1], 1.02), base[2]}, 5);
        f.Project();
        EXPECT_EQ(f.ChooseBase(node), BaseBarsResult::Gathered);
    }
    // The node's row after the test under these parameters took it, as the review shows it.
    ReviewRow Found(int node, const AnalogyParameters &params) {
        ResetAnalogousToBaseNode(f.s);
        EXPECT_EQ(f.Test(node, params), 1) << "node " << node;
        return {f.s.analogousNodes.back(), true};
    }
    std::string Cell(const ReviewRow &row, int column) {
        return ReviewCell(*f.m, f.s, row, column);
    }
};

double Figure(const std::string &cell) {
    return std::stod(cell);
}

TEST(Review, HowEachNodeMatchedAndHowFarItIs) {
    MadeJoints j;
    const ReviewRow turned = j.Found(j.turned, Params(AnalogyMethod::Rotated));
    EXPECT_EQ(j.Cell(turned, kHowColumn), "ruotato di 90\xC2\xB0 attorno a (0, 0, 1)");
    EXPECT_NEAR(Figure(j.Cell(turned, kAngleColumn)), 0, 0.01);
    // Each base bar's name, then its bar at the node: the turn sends x to y and y to -x.
    EXPECT_EQ(j.Cell(turned, kPairsColumn), "100\xE2\x86\x92"
                                            "103, 101\xE2\x86\x92"
                                            "104, 102\xE2\x86\x92"
                                            "105");

    // A mirror image in plan is a half turn to "ruotati"; "simmetrici" names the bars mirrored
    // (the one down is the same either way, and taken as it is).
    const ReviewRow half = j.Found(j.mirrored, Params(AnalogyMethod::Rotated));
    EXPECT_EQ(j.Cell(half, kHowColumn), "ruotato di 180\xC2\xB0 attorno a (0, 0, 1)");
    const ReviewRow mirrored = j.Found(j.mirrored, Params(AnalogyMethod::IdenticalOrMirrored));
    EXPECT_EQ(j.Cell(mirrored, kHowColumn), "simmetrico (aste 1, 2)");
    EXPECT_EQ(
        j.Cell(j.Found(j.longer, Params(AnalogyMethod::IdenticalOrMirrored, false)), kHowColumn),
        "identico");

    AnalogyParameters within = Params(AnalogyMethod::Identical);
    within.angleTolerance = 1;
    within.lengthTolerance = 3;
    const ReviewRow off = j.Found(j.off, within), longer = j.Found(j.longer, within);
    EXPECT_EQ(j.Cell(off, kHowColumn), "identico");
    EXPECT_NEAR(Figure(j.Cell(off, kAngleColumn)), 0.4, 0.01);
    EXPECT_NEAR(Figure(j.Cell(longer, kLengthColumn)), 2 / 1.02, 0.01);
    EXPECT_NEAR(Figure(j.Cell(longer, kAngleColumn)), 0, 0.01);
    // Turned within the tolerance, the joint 0.4° off is turned by a part of it.
    within.method = AnalogyMethod::Rotated;
    const ReviewRow offTurned = j.Found(j.off, within);
    EXPECT_TRUE(j.Cell(offTurned, kHowColumn).starts_with("ruotato di 0.")) << j.Cell(offTurned, 2);
    EXPECT_LT(Figure(j.Cell(offTurned, kAngleColumn)), 0.4);

    // Furthest first: the larger sum of the two deviations; at equal sums the freer match.
    const ReviewRow base{j.f.s.analogousNodes.front(), true};
    const std::vector<ReviewRow> rows = {base, off, mirrored, longer, half};
    EXPECT_EQ(FurthestRow(rows), 3);
    const std::vector<ReviewRow> exact = {base, mirrored, half, turned};
    EXPECT_EQ(FurthestRow(exact), 2);
    EXPECT_EQ(ReviewOrder(*j.f.m, exact, kHowColumn, true), (std::vector<int>{2, 3, 1, 0}));
}

} // namespace
} // namespace vorna
