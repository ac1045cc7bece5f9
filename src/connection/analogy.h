// The analogy test: does a candidate node have, for every base bar, a bar leaving it the same way?
#pragma once

#include "connection/connection_state.h"
#include "connection/vec3.h"
#include "projection/view_state.h"

#include <array>
#include <optional>
#include <span>
#include <vector>

namespace vorna {

enum class AnalogyMethod { Identical = 0, IdenticalOrMirrored = 1, Rotated = 2, Any = 3 };

// The analogy parameters as the side bar holds them at the moment of the test.
struct AnalogyParameters {
    AnalogyMethod method = AnalogyMethod::Identical;
    bool compareLengths = true;    // analLun
    bool compareColours = false;   // AnalColAste
    bool compareLineTypes = false; // analLinAste
    bool compareSections = false;  // AnalSezAste
    // TolAngoli in degrees and TolLunghezze in percent of the longer bar; with both at 0 the test
    // is exact (components within 0.0001).
    double angleTolerance = 0;
    double lengthTolerance = 0;

    bool Tolerant() const { return angleTolerance > 0 || lengthTolerance > 0; }
};

// One bar of a joint as the test sees it from the joint's node.
struct JointBar {
    std::int16_t bar = 0;
    std::optional<Vec3> vector; // BarVectorAtNode
    double length = 0;          // BarLength
    // The vector divided by the length; nothing for a bar of no length (0.0001 or less) or one
    // that meets the node only in the projection: they have no direction.
    std::optional<Vec3> direction;
};

// The bar with its direction worked out from its vector and length.
JointBar JointBarOf(std::int16_t bar, std::optional<Vec3> vector, double length);

// A node with the bars that take part in a test, in order: the base bars of a base node, or
// every candidate bar of a candidate node.
struct Joint {
    int node = -1;
    std::vector<JointBar> bars;
};

Joint JointAt(const StructureModel &model, int node, std::span<const std::int16_t> bars);

// The vector a test compares: the bar's own when lengths must agree, else divided by the length.
inline const std::optional<Vec3> &ComparedVector(const JointBar &bar, bool lengths) {
    return lengths ? bar.vector : bar.direction;
}
inline const std::optional<Vec3> &DirectionOf(const JointBar &bar) {
    return bar.direction;
}
// The base node with its base bars (at most 100 of them).
Joint BaseJoint(const StructureModel &model, const ConnectionState &state);

enum class AnalogyOutcome { TooManyBars, Rejected, Analogous };

// Analogous when the candidate was found so and appended (also when it was listed already).
// Without a usable base node (none chosen, or one with more than 100 bars) nothing is analogous.
// A candidate with more than 100 bars is TooManyBars, which the user is told of.
AnalogyOutcome TestAnalogy(const StructureModel &model, const ViewState &view,
                           ConnectionState &state, const AnalogyParameters &params, int candidate);

// The vector from the node along the bar to its far end; (0, 0, 0) for a bar of no length and,
// here, also for a bar that has neither end on the node in space.
std::array<double, 3> BarVector(const StructureModel &model, int bar, int node);
double BarLength(const StructureModel &model, int bar);

// The same vector, or nothing when the bar touches the node only in the projection: such a bar
// has no direction at the node, so it matches nothing.
std::optional<Vec3> BarVectorAtNode(const StructureModel &model, int bar, int node);
// The vector divided by the bar's length; nothing also for a bar of no length (0.0001 or less),
// which has no direction to compare.
std::optional<Vec3> UnitBarVector(const StructureModel &model, int bar, int node);

// Component by component within 0.0001: identical, or mirrored (x and y negated, z kept).
bool SameDirection(const Vec3 &a, const Vec3 &b);
bool MirroredDirection(const Vec3 &a, const Vec3 &b);

} // namespace vorna
