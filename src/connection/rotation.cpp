// Rotations of space: frames, the rotation between two of them, and the least-squares fit.
#include "connection/rotation.h"

#include "platform/portable_math.h"

#include <algorithm>
#include <cmath>

namespace vorna {
namespace {

// A unit vector across the unit vector u.
Vec3 Across(const Vec3 &u) {
    const std::size_t least = static_cast<std::size_t>(
        std::min_element(u.begin(), u.end(),
                         [](double x, double y) { return std::fabs(x) < std::fabs(y); }) -
        u.begin());
    Vec3 axis{0, 0, 0};
    axis[least] = 1;
    return Unit(Cross(u, axis));
}

// The eigenvector of the largest eigenvalue of a symmetric 4 x 4 matrix (cyclic Jacobi).
std::array<double, 4> LargestEigenvector(std::array<std::array<double, 4>, 4> m) {
    std::array<std::array<double, 4>, 4> v{};
    for (std::size_t i = 0; i < 4; ++i)
        v[i][i] = 1;
    for (int sweep = 0; sweep < 64; ++sweep) {
        double off = 0, diagonal = 0;
        for (std::size_t p = 0; p < 4; ++p) {
            diagonal += m[p][p] * m[p][p];
            for (std::size_t q = p + 1; q < 4; ++q)
                off += m[p][q] * m[p][q];
        }
        if (off <= 1e-30 * diagonal || off == 0)
            break;
        for (std::size_t p = 0; p < 4; ++p)
            for (std::size_t q = p + 1; q < 4; ++q) {
                if (m[p][q] == 0)
                    continue;
                const double theta = (m[q][q] - m[p][p]) / (2 * m[p][q]);
                const double t = (theta >= 0 ? 1 : -1) / (std::fabs(theta) + Hypot(theta, 1));
                const double c = 1 / Hypot(t, 1), s = t * c;
                for (std::size_t k = 0; k < 4; ++k) {
                    const double kp = m[k][p], kq = m[k][q];
                    m[k][p] = c * kp - s * kq;
                    m[k][q] = s * kp + c * kq;
                }
                for (std::size_t k = 0; k < 4; ++k) {
                    const double pk = m[p][k], qk = m[q][k];
                    m[p][k] = c * pk - s * qk;
                    m[q][k] = s * pk + c * qk;
                }
                for (std::size_t k = 0; k < 4; ++k) {
                    const double kp = v[k][p], kq = v[k][q];
                    v[k][p] = c * kp - s * kq;
                    v[k][q] = s * kp + c * kq;
                }
            }
    }
    std::size_t largest = 0;
    for (std::size_t i = 1; i < 4; ++i)
        if (m[i][i] > m[largest][largest])
            largest = i;
    return {v[0][largest], v[1][largest], v[2][largest], v[3][largest]};
}

} // namespace

Vec3 Unit(const Vec3 &v) {
    return Scaled(v, 1 / Norm(v));
}

OrthonormalFrame FrameOf(const Vec3 &first, const Vec3 *second) {
    OrthonormalFrame f;
    f.along = Unit(first);
    const Vec3 n = second ? Cross(first, *second) : Vec3{0, 0, 0};
    f.normal = Norm(n) > 0 ? Unit(n) : Across(f.along);
    f.third = Cross(f.along, f.normal);
    return f;
}

// The rotation that takes frame f onto frame g.
Rotation Between(const OrthonormalFrame &f, const OrthonormalFrame &g) {
    Rotation r;
    for (std::size_t i = 0; i < 3; ++i)
        for (std::size_t k = 0; k < 3; ++k)
            r[i][k] = g.along[i] * f.along[k] + g.normal[i] * f.normal[k] + g.third[i] * f.third[k];
    return r;
}

RotationAxisAngle AxisAngleOf(const Rotation &r) {
    RotationAxisAngle turn;
    const Vec3 w{r[2][1] - r[1][2], r[0][2] - r[2][0], r[1][0] - r[0][1]};
    const double trace = r[0][0] + r[1][1] + r[2][2];
    turn.degrees = Degrees(Atan2(Norm(w), trace - 1));
    if (Norm(w) > 1e-9) {
        turn.axis = Scaled(w, 1 / Norm(w));
        return turn;
    }
    // A half turn (or none): the axis is the longest column of R + I.
    Vec3 best{0, 0, 1};
    double longest = 0;
    for (std::size_t c = 0; c < 3; ++c) {
        Vec3 column{r[0][c], r[1][c], r[2][c]};
        column[c] += 1;
        if (Norm(column) > longest)
            longest = Norm(column), best = column;
    }
    turn.axis = longest > 1e-9 ? Scaled(best, 1 / longest) : Vec3{0, 0, 1};
    return turn;
}

Rotation BestFitRotation(const std::vector<Vec3> &from, const std::vector<Vec3> &to,
                         const std::vector<double> &weights) {
    // s[a][b]: the weighted sum of from's component a times to's component b.
    std::array<Vec3, 3> s{};
    for (std::size_t k = 0; k < from.size() && k < to.size(); ++k) {
        const double weight = k < weights.size() ? weights[k] : 1.0;
        for (std::size_t a = 0; a < 3; ++a)
            for (std::size_t b = 0; b < 3; ++b)
                s[a][b] += weight * from[k][a] * to[k][b];
    }
    const double xx = s[0][0], xy = s[0][1], xz = s[0][2], yx = s[1][0], yy = s[1][1], yz = s[1][2],
                 zx = s[2][0], zy = s[2][1], zz = s[2][2];
    const auto q = LargestEigenvector({{{xx + yy + zz, yz - zy, zx - xz, xy - yx},
                                        {yz - zy, xx - yy - zz, xy + yx, zx + xz},
                                        {zx - xz, xy + yx, -xx + yy - zz, yz + zy},
                                        {xy - yx, zx + xz, yz + zy, -xx - yy + zz}}});
    const double length = std::sqrt(q[0] * q[0] + q[1] * q[1] + q[2] * q[2] + q[3] * q[3]);
    const double w = q[0] / length, x = q[1] / length, y = q[2] / length, z = q[3] / length;
    return {Vec3{1 - 2 * (y * y + z * z), 2 * (x * y - w * z), 2 * (x * z + w * y)},
            Vec3{2 * (x * y + w * z), 1 - 2 * (x * x + z * z), 2 * (y * z - w * x)},
            Vec3{2 * (x * z - w * y), 2 * (y * z + w * x), 1 - 2 * (x * x + y * y)}};
}

} // namespace vorna
