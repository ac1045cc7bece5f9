// One comparison of a base joint with a candidate joint, and the verdict record that the analogy
// test, the explanation, the near misses, the catalogue of joint types and the review all read.
#pragma once

#include "connection/analogy.h"
#include "connection/rotation.h"

#include <optional>
#include <vector>

namespace vorna {

// The criteria in the order the analogy test checks them.
enum class WhyNotReason {
    None,
    NotLive,     // the node (or the base node) is not a node of the model
    TooManyBars, // more than 100 candidate bars (at the node, or at the base node)
    BarCount,    // fewer bars at the node than base bars
    Direction,   // no bar leaves the node in a base bar's direction
    Length,      // a bar has the base bar's direction but not its length
    NoRotation,  // "Nodi identici e ruotati": no rotation takes the base bars onto bars of the node
    Colour,
    LineType,
    Section,
};

// How much is asked of a comparison: the verdict and the pairing alone (the catalogue of joint
// types, which shows no figures when exact); also the figures of the pairs (each angle and
// length deviation, the rotation): the record of an analogous node keeps them; also the figures
// of the base bars that found no partner, with the bar nearest in direction, and for a turned
// joint that fits no rotation the best rotation found (the explanation).
enum class Scrutiny { Verdict, Figures, Explain };

// One base bar against the candidate's bar paired with it.
struct PairVerdict {
    int candidate = -1; // position among the candidate's bars; -1: none paired
    // Explained, none paired: the position of the bar nearest in direction (-1: none has one);
    // under "ruotati" the bar the best rotation found pairs it with.
    int nearest = -1;
    bool mirrored = false; // "simmetrici": paired with the mirror image
    // With figures: degrees between the directions as the method compares them (mirrored under
    // "simmetrici", after the rotation under "ruotati"), to the nearest bar when none is paired;
    // nothing when a bar has no direction.
    std::optional<double> angle;
    // With figures: the lengths' difference in percent of the longer bar, of the paired or
    // nearest bar.
    std::optional<double> lengthDeviation;
};

struct Verdict {
    AnalogyOutcome outcome = AnalogyOutcome::Rejected;
    WhyNotReason reason = WhyNotReason::None;
    int failingBar = -1;         // 0-based base bar the reason names, -1 for none
    std::optional<double> angle; // degrees, for Direction and NoRotation when explained
    // One per base bar, in order; none when the nodes or the bar counts turned the candidate
    // away.
    std::vector<PairVerdict> pairs;
    // "Nodi identici e ruotati", with figures: the least-squares rotation of the base directions
    // onto their bars' (explained and rejected: the best one tried), and its largest residual in
    // degrees.
    std::optional<Rotation> rotation;
    double rotationResidual = 0;
    std::optional<double> totalAngle; // "Nodi qualsiasi": the pairing's sum of angles, degrees
    // With figures, over the pairs of an analogous candidate: the largest angle and length
    // deviation.
    double largestAngle = 0;
    double largestLength = 0;

    bool Analogous() const { return outcome == AnalogyOutcome::Analogous; }
};

// The analogy test of a candidate against a base, touching no state and showing nothing. More
// than 100 candidate bars: TooManyBars. A base of more than 100 bars matches nothing. The base
// node offered as its own candidate is tested with identical directions under every method.
// Nodes outside the model are NotLive.
Verdict CompareJoints(const StructureModel &model, const Joint &base, const Joint &candidate,
                      const AnalogyParameters &params, Scrutiny scrutiny = Scrutiny::Figures);

// The record an analogous candidate is listed with: its node, and its bar for each base bar
// with how the pair was matched.
AnalogousNode RecordOf(const Joint &base, const Joint &candidate, const Verdict &verdict,
                       const AnalogyParameters &params);

} // namespace vorna
