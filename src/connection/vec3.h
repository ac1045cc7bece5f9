// Three-component vectors for the connection's geometry: bar directions at a node.
#pragma once

#include "model/structure_model.h"
#include "platform/portable_math.h"
#include "platform/tolerance.h"

#include <array>
#include <cmath>

namespace vorna {

using Vec3 = std::array<double, 3>;

// Vectors whose components all agree differ by less than this in length (sqrt(3) kTolerance),
// and so do their lengths.
constexpr double kAgreementNorm = 1.7320508075688772 * kTolerance;

inline Vec3 ToVec(const Point &p) {
    return {p.x, p.y, p.z};
}
inline Vec3 Sub(const Vec3 &a, const Vec3 &b) {
    return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}
inline Vec3 Scaled(const Vec3 &a, double s) {
    return {a[0] * s, a[1] * s, a[2] * s};
}
inline double Dot(const Vec3 &a, const Vec3 &b) {
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}
inline double Norm(const Vec3 &a) {
    return std::sqrt(Dot(a, a));
}
inline Vec3 Cross(const Vec3 &a, const Vec3 &b) {
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}
// The angle between two vectors in radians; atan2 keeps it exact near 0 and pi, where the
// cosine is flat.
inline double AngleBetween(const Vec3 &a, const Vec3 &b) {
    return Atan2(Norm(Cross(a, b)), Dot(a, b));
}
// Radians to degrees with the program's pi.
inline double Degrees(double radians) {
    return radians * 180.0 / kPi;
}
inline double AngleDegrees(const Vec3 &a, const Vec3 &b) {
    return Degrees(AngleBetween(a, b));
}
// The mirror image in plan of "Nodi identici e simmetrici": x and y reversed, z kept.
inline Vec3 Mirror(const Vec3 &v) {
    return {-v[0], -v[1], v[2]};
}
// Every component below the tolerance in magnitude.
inline bool AllBelow(const Vec3 &a, double tolerance) {
    return std::fabs(a[0]) < tolerance && std::fabs(a[1]) < tolerance &&
           std::fabs(a[2]) < tolerance;
}

} // namespace vorna
