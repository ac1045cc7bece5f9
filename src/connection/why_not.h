// Why a node is or is not analogous to the base node: the analogy test's verdict with the first
// criterion that fails and the figures of every base bar, and the near misses of the model.
#pragma once

#include "connection/verdict.h"

#include <optional>
#include <string_view>
#include <vector>

namespace vorna {

// "not-live", "too-many-bars", ...; empty for None.
std::string_view ReasonCode(WhyNotReason reason);

// One base bar against the node's bar paired with it.
struct BarPairFigures {
    int baseBar = -1;
    int candidateBar = -1; // -1: the test paired none with this base bar
    // The node's bar nearest in direction when none is paired (-1 when no bar has a direction).
    int nearestBar = -1;
    // Degrees between the directions as the method compares them (mirrored under "simmetrici",
    // after the rotation under "ruotati"); to the nearest bar when none is paired. Nothing when
    // a bar has no direction.
    std::optional<double> angle;
    bool mirrored = false;
    std::optional<double> lengthDeviation; // percent of the longer, of the paired or nearest bar
    double baseLength = 0;
    double candidateLength = 0; // of the paired bar, else of the nearest one, else 0
    int baseSection = 0, candidateSection = 0;
    int baseColour = 0, candidateColour = 0;
    int baseLineType = 0, candidateLineType = 0;
};

struct AnalogyExplanation {
    bool analogous = false; // exactly what TestAnalogy decides for the node now
    WhyNotReason reason = WhyNotReason::None;
    int failingBar = -1;         // 0-based position of the base bar concerned, -1 for none
    std::optional<double> angle; // degrees, for Direction and Rotation
    int candidateBarCount = 0;
    std::vector<BarPairFigures> pairs; // one per base bar, in order
    // "Nodi identici e ruotati": the rotation found (or the best one tried), its axis, angle in
    // degrees and largest residual angle between a turned base bar and its bar.
    bool hasRotation = false;
    Vec3 rotationAxis{0, 0, 1};
    double rotationAngle = 0;
    double rotationResidual = 0;
    // "Nodi qualsiasi": the sum of the angles of the pairing, in degrees.
    std::optional<double> totalAngle;
    // The tolerances in force (degrees, percent); none: the exact test.
    std::optional<std::pair<double, double>> tolerances;
};

// The explanation of a candidate joint against a base joint: the comparison's verdict, explained,
// with the bars' properties beside it.
AnalogyExplanation ExplainAnalogy(const StructureModel &model, const Joint &base,
                                  const Joint &candidate, const AnalogyParameters &params);

// The explanation for a node of the model against the current base node, with the bars the
// analogy test would take at it. Changes nothing but the projected bar index kept in the state.
AnalogyExplanation ExplainNodeAnalogy(const StructureModel &model, const ViewState &view,
                                      ConnectionState &state, const AnalogyParameters &params,
                                      int node);

struct NearMiss {
    int node = -1;
    WhyNotReason reason = WhyNotReason::None;
    int failingBar = -1;
    double score = 0;
};

// How far a joint is from the base: the pairing of base bars with distinct bars of the node
// that makes the sum, over the base bars, of the angle in degrees plus 100 times the relative
// length difference |L1 - L2| / max(L1, L2) smallest; that sum. Angles are compared mirrored
// when that is smaller under "simmetrici". A bar without a direction costs 180 + 100.
double NearMissScore(const Joint &base, const Joint &candidate, const AnalogyParameters &params);

// The live, shown nodes with at least as many bars as base bars that the test rejects now,
// closest first (smallest score, then table order), at most limit of them.
std::vector<NearMiss> FindNearMisses(const StructureModel &model, const ViewState &view,
                                     ConnectionState &state, const AnalogyParameters &params,
                                     int limit = 20);

} // namespace vorna
