// Rotations of space as the rotated joints need them: the matrix, the rotation between two
// frames, and the least-squares rotation that takes one set of vectors closest to another.
#pragma once

#include "connection/vec3.h"

#include <vector>

namespace vorna {

// A rotation as the rows of its matrix.
using Rotation = std::array<Vec3, 3>;

inline Vec3 Rotate(const Rotation &r, const Vec3 &v) {
    return {Dot(r[0], v), Dot(r[1], v), Dot(r[2], v)};
}

constexpr Rotation kIdentity{Vec3{1, 0, 0}, Vec3{0, 1, 0}, Vec3{0, 0, 1}};
// The half turn about Z: the mirror of "Nodi identici e simmetrici" applied to every bar.
constexpr Rotation kHalfTurnZ{Vec3{-1, 0, 0}, Vec3{0, -1, 0}, Vec3{0, 0, 1}};

Vec3 Unit(const Vec3 &v);

// A right-handed orthonormal frame: along first, then across the plane of first and second
// (any way across when there is no second or no plane).
struct OrthonormalFrame {
    Vec3 along, normal, third;
};

// The frame along first and across the plane of first and second (second may be missing).
OrthonormalFrame FrameOf(const Vec3 &first, const Vec3 *second);
// The rotation that takes frame f onto frame g.
Rotation Between(const OrthonormalFrame &f, const OrthonormalFrame &g);

// A rotation as a turn about an axis: the unit axis and the angle in degrees (0 to 180).
struct RotationAxisAngle {
    Vec3 axis{0, 0, 1};
    double degrees = 0;
};
// The axis is any when the angle is 0.
RotationAxisAngle AxisAngleOf(const Rotation &r);

// The proper rotation that takes the from vectors closest to the to vectors in the weighted
// least-squares sense (Horn's quaternion method); any such rotation when the vectors leave it
// free. Pairs beyond the weights given weigh 1.
Rotation BestFitRotation(const std::vector<Vec3> &from, const std::vector<Vec3> &to,
                         const std::vector<double> &weights = {});

} // namespace vorna
