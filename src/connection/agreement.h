// When a bar of a candidate joint counts as alike a base bar: in exact mode their compared
// vectors agree component by component within 0.0001; within tolerances the engineer set,
// direction and length are judged apart, each against its own tolerance.
#pragma once

#include "connection/analogy.h"

#include <optional>

namespace vorna {

class Agreement {
public:
    explicit Agreement(const AnalogyParameters &params);

    bool Tolerant() const { return tolerant_; }

    // Two unit vectors have the same direction: within the angle tolerance, or, when it is 0,
    // component by component within 0.0001.
    bool Directions(const Vec3 &u, const Vec3 &w) const;
    // The angle in degrees between two unit vectors whose directions agree; nothing otherwise.
    std::optional<double> Within(const Vec3 &u, const Vec3 &w) const;
    // Two lengths agree: within the length tolerance in percent of the longer one, or, when it
    // is 0, within 0.0001.
    bool LengthsAgree(double a, double b) const;
    // The largest distance between two unit vectors whose directions agree.
    double Chord() const { return chord_; }
    // The angle tolerance as the engineer typed it, in degrees.
    double AngleTolerance() const { return angle_; }

private:
    bool tolerant_ = false;
    double angle_ = 0;  // degrees
    double length_ = 0; // percent
    double chord_ = 0;
    // Unit vectors whose dot product is below this are further apart than the tolerance
    // allows, whatever the rounding: they need no angle computed.
    double cosineFloor_ = -2;
};

// Two unit vectors have the same direction within degrees, or, when it is 0, component by
// component within 0.0001.
bool DirectionsAgree(const Vec3 &u, const Vec3 &w, double degrees);
// |a - b| in percent of the longer of the two; 0 when both are 0.
double LengthDeviation(double a, double b);

} // namespace vorna
