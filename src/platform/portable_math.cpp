// Sine, cosine, arc tangents and hypotenuse from additions, multiplications, divisions and square
// roots only, which IEEE 754 rounds alike on every system. The polynomials, the parts of pi/2
// and the steps of the argument reduction are those of fdlibm, whose notice reads: "Copyright (C)
// 1993 by Sun Microsystems, Inc. All rights reserved. Developed at SunPro, a Sun Microsystems,
// Inc. business. Permission to use, copy, modify, and distribute this software is freely
// granted, provided that this notice is preserved."
#include "platform/portable_math.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <utility>

namespace vorna {
namespace {

constexpr double kPi = 3.1415926535897931160e+00, kPiLo = 1.2246467991473531772e-16;
constexpr double kPio2 = 1.5707963267948965580e+00, kPio4 = 7.8539816339744827900e-01;
// Where fdlibm stops reducing: its high word 0x3fe921fb, just above pi/4.
constexpr double kKernelLimit = 0x1.921fcp-1;

// The biased binary exponent, 0 for zero.
int Exponent(double v) {
    return static_cast<int>((std::bit_cast<std::uint64_t>(v) >> 52) & 0x7ff);
}

// sin(x + y) for |x + y| <= pi/4, y the small tail of x.
double KernelSin(double x, double y) {
    constexpr double kS1 = -1.66666666666666324348e-01, kS2 = 8.33333333332248946124e-03,
                     kS3 = -1.98412698298579493134e-04, kS4 = 2.75573137070700676789e-06,
                     kS5 = -2.50507602534068634195e-08, kS6 = 1.58969099521155010221e-10;
    if (std::fabs(x) < 0x1p-27)
        return x;
    const double z = x * x, v = z * x;
    const double r = kS2 + z * (kS3 + z * (kS4 + z * (kS5 + z * kS6)));
    if (y == 0.0)
        return x + v * (kS1 + z * r);
    return x - ((z * (0.5 * y - v * r) - y) - v * kS1);
}

// cos(x + y) for |x + y| <= pi/4.
double KernelCos(double x, double y) {
    constexpr double kC1 = 4.16666666666666019037e-02, kC2 = -1.38888888888741095749e-03,
                     kC3 = 2.48015872894767294178e-05, kC4 = -2.75573143513906633035e-07,
                     kC5 = 2.08757232129817482790e-09, kC6 = -1.13596475577881948265e-11;
    const double z = x * x, w = z * z;
    const double r = z * (kC1 + z * (kC2 + z * kC3)) + w * w * (kC4 + z * (kC5 + z * kC6));
    const double hz = 0.5 * z, u = 1.0 - hz;
    return u + (((1.0 - u) - hz) + (z * r - x * y));
}

// x = n * pi/2 + y0 + y1 with |y0 + y1| about pi/4 at most; returns n. The parts of pi/2 have 33
// bits each, so that n times a part is exact.
int ReducePio2(double x, double &y0, double &y1) {
    constexpr double kInvPio2 = 6.36619772367581382433e-01;
    constexpr double kPio2_1 = 1.57079632673412561417e+00, kPio2_1t = 6.07710050650619224932e-11;
    constexpr double kPio2_2 = 6.07710050630396597660e-11, kPio2_2t = 2.02226624879595063154e-21;
    constexpr double kPio2_3 = 2.02226624871116645580e-21, kPio2_3t = 8.47842766036889956997e-32;
    // Past a million radians an angle means nothing to a drawing; folding it by 2 pi (exact, as
    // fmod is) keeps the result the same everywhere.
    const double t =
        std::fabs(x) < 0x1p20 * kPio2 ? std::fabs(x) : std::fmod(std::fabs(x), 2 * kPi);
    const double fn = std::floor(t * kInvPio2 + 0.5);
    double r = t - fn * kPio2_1;
    double w = fn * kPio2_1t;
    y0 = r - w;
    // A first step that cancels many bits takes in the next part of pi/2, and the one after.
    if (Exponent(t) - Exponent(y0) > 16) {
        double u = r;
        w = fn * kPio2_2;
        r = u - w;
        w = fn * kPio2_2t - ((u - r) - w);
        y0 = r - w;
        if (Exponent(t) - Exponent(y0) > 49) {
            u = r;
            w = fn * kPio2_3;
            r = u - w;
            w = fn * kPio2_3t - ((u - r) - w);
            y0 = r - w;
        }
    }
    y1 = (r - y0) - w;
    int n = static_cast<int>(fn);
    if (x < 0) {
        y0 = -y0;
        y1 = -y1;
        n = -n;
    }
    return n;
}

// a * a to twice the precision of a double: {head, tail}.
std::pair<double, double> Square(double a) {
    const double p = a * a;
    const double t = 134217729.0 * a; // 2^27 + 1 splits a into two halves of 26 bits
    const double high = t - (t - a), low = a - high;
    return {p, ((high * high - p) + 2.0 * high * low) + low * low};
}

} // namespace

double Sin(double x) {
    if (std::fabs(x) < kKernelLimit)
        return KernelSin(x, 0.0);
    if (!std::isfinite(x))
        return x - x;
    double y0 = 0, y1 = 0;
    switch (ReducePio2(x, y0, y1) & 3) {
    case 0:
        return KernelSin(y0, y1);
    case 1:
        return KernelCos(y0, y1);
    case 2:
        return -KernelSin(y0, y1);
    default:
        return -KernelCos(y0, y1);
    }
}

double Cos(double x) {
    if (std::fabs(x) < kKernelLimit)
        return KernelCos(x, 0.0);
    if (!std::isfinite(x))
        return x - x;
    double y0 = 0, y1 = 0;
    switch (ReducePio2(x, y0, y1) & 3) {
    case 0:
        return KernelCos(y0, y1);
    case 1:
        return -KernelSin(y0, y1);
    case 2:
        return -KernelCos(y0, y1);
    default:
        return KernelSin(y0, y1);
    }
}

double Atan(double x) {
    constexpr double kHi[] = {4.63647609000806093515e-01, 7.85398163397448278999e-01,
                              9.82793723247329054082e-01, 1.57079632679489655800e+00};
    constexpr double kLo[] = {2.26987774529616870924e-17, 3.06161699786838301793e-17,
                              1.39033110312309984516e-17, 6.12323399573676603587e-17};
    constexpr double kT[] = {
        3.33333333333329318027e-01,  -1.99999999998764832476e-01, 1.42857142725034663711e-01,
        -1.11111104054623557880e-01, 9.09088713343650656196e-02,  -7.69187620504482999495e-02,
        6.66107313738753120669e-02,  -5.83357013379057348645e-02, 4.97687799461593236017e-02,
        -3.65315727442169155270e-02, 1.62858201153657823623e-02};
    if (std::isnan(x))
        return x + x;
    double a = std::fabs(x);
    if (a >= 0x1p66)
        return x > 0 ? kHi[3] + kLo[3] : -kHi[3] - kLo[3];
    // atan(a) = atan(c) + atan((a - c) / (1 + a c)) about the nearest of 1/2, 1, 3/2, infinity.
    int id = -1;
    if (a < 0.4375) {
        if (a < 0x1p-29)
            return x;
    } else if (a < 0.6875) {
        id = 0;
        a = (2.0 * a - 1.0) / (2.0 + a);
    } else if (a < 1.1875) {
        id = 1;
        a = (a - 1.0) / (a + 1.0);
    } else if (a < 2.4375) {
        id = 2;
        a = (a - 1.5) / (1.0 + 1.5 * a);
    } else {
        id = 3;
        a = -1.0 / a;
    }
    const double z = a * a, w = z * z;
    const double s1 =
        z * (kT[0] + w * (kT[2] + w * (kT[4] + w * (kT[6] + w * (kT[8] + w * kT[10])))));
    const double s2 = w * (kT[1] + w * (kT[3] + w * (kT[5] + w * (kT[7] + w * kT[9]))));
    if (id < 0)
        return x - x * (s1 + s2);
    const double r = kHi[id] - ((a * (s1 + s2) - kLo[id]) - a);
    return x < 0 ? -r : r;
}

double Atan2(double y, double x) {
    if (std::isnan(x) || std::isnan(y))
        return x + y;
    if (x == 1.0)
        return Atan(y);
    // Bit 0: y negative, bit 1: x negative (zeros by their sign).
    int m = (std::signbit(y) ? 1 : 0) | (std::signbit(x) ? 2 : 0);
    if (y == 0.0)
        return m < 2 ? y : m == 2 ? kPi : -kPi;
    if (x == 0.0)
        return y < 0 ? -kPio2 : kPio2;
    if (std::isinf(x)) {
        static constexpr double kBothInfinite[] = {kPio4, -kPio4, 3.0 * kPio4, -3.0 * kPio4};
        static constexpr double kOnlyX[] = {0.0, -0.0, kPi, -kPi};
        return std::isinf(y) ? kBothInfinite[m] : kOnlyX[m];
    }
    if (std::isinf(y))
        return y < 0 ? -kPio2 : kPio2;
    const int k = Exponent(y) - Exponent(x);
    double z;
    if (k > 60) {
        z = kPio2 + 0.5 * kPiLo;
        m &= 1;
    } else if (x < 0 && k < -60) {
        z = 0.0;
    } else {
        z = Atan(std::fabs(y / x));
    }
    switch (m) {
    case 0:
        return z;
    case 1:
        return -z;
    case 2:
        return kPi - (z - kPiLo);
    default:
        return (z - kPiLo) - kPi;
    }
}

double Asin(double x) {
    if (!(std::fabs(x) <= 1.0))
        return std::numeric_limits<double>::quiet_NaN();
    return Atan2(x, std::sqrt((1.0 - x) * (1.0 + x)));
}

double Acos(double x) {
    if (!(std::fabs(x) <= 1.0))
        return std::numeric_limits<double>::quiet_NaN();
    return Atan2(std::sqrt((1.0 - x) * (1.0 + x)), x);
}

double Hypot(double x, double y) {
    x = std::fabs(x);
    y = std::fabs(y);
    if (std::isinf(x) || std::isinf(y))
        return std::numeric_limits<double>::infinity();
    if (std::isnan(x) || std::isnan(y))
        return x + y;
    if (x < y)
        std::swap(x, y);
    // y too small to move x, even in its last bit.
    if (y == 0.0 || x > y * 0x1p60)
        return x;
    // Scaled by a power of two into a range where no square overflows or underflows.
    double scale = 1.0;
    if (x > 0x1p500) {
        x *= 0x1p-600;
        y *= 0x1p-600;
        scale = 0x1p600;
    } else if (x < 0x1p-450) {
        x *= 0x1p600;
        y *= 0x1p600;
        scale = 0x1p-600;
    }
    const auto [xx, xxTail] = Square(x);
    const auto [yy, yyTail] = Square(y);
    const double s = xx + yy;
    const double low = ((xx - s) + yy) + xxTail + yyTail;
    const double sum = s + low, sumTail = low - (sum - s);
    // The square root of the double-length sum, corrected by one Newton step.
    const double r = std::sqrt(sum);
    const auto [rr, rrTail] = Square(r);
    return (r + (((sum - rr) - rrTail) + sumTail) / (2.0 * r)) * scale;
}

} // namespace vorna
