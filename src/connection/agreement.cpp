// When a bar of a candidate joint counts as alike a base bar, exactly or within tolerances.
#include "connection/agreement.h"

#include "platform/portable_math.h"

#include <algorithm>
#include <cmath>

namespace vorna {

Agreement::Agreement(const AnalogyParameters &params)
    : tolerant_(params.Tolerant()), angle_(std::max(params.angleTolerance, 0.0)),
      length_(std::max(params.lengthTolerance, 0.0)) {
    chord_ = kAgreementNorm;
    if (angle_ <= 0)
        return; // components compared: no angle to bound
    const double radians = angle_ * kPi / 180;
    chord_ = 2 * Sin(radians / 2);
    cosineFloor_ = Cos(std::min(radians + 1e-6, kPi)) - 1e-9;
}

bool Agreement::Directions(const Vec3 &u, const Vec3 &w) const {
    return (angle_ <= 0 || Dot(u, w) >= cosineFloor_) && DirectionsAgree(u, w, angle_);
}

bool DirectionsAgree(const Vec3 &u, const Vec3 &w, double degrees) {
    return degrees > 0 ? AngleDegrees(u, w) <= degrees : AllBelow(Sub(u, w), kTolerance);
}

std::optional<double> Agreement::Within(const Vec3 &u, const Vec3 &w) const {
    if (angle_ <= 0)
        return AllBelow(Sub(u, w), kTolerance) ? std::optional(AngleDegrees(u, w)) : std::nullopt;
    if (Dot(u, w) < cosineFloor_)
        return std::nullopt;
    const double angle = AngleDegrees(u, w);
    return angle <= angle_ ? std::optional(angle) : std::nullopt;
}

bool Agreement::LengthsAgree(double a, double b) const {
    if (length_ <= 0)
        return std::fabs(a - b) < kTolerance;
    return std::fabs(a - b) <= length_ / 100 * std::max(a, b);
}

double LengthDeviation(double a, double b) {
    const double longer = std::max(std::fabs(a), std::fabs(b));
    return longer > 0 ? 100 * std::fabs(a - b) / longer : 0.0;
}

} // namespace vorna
