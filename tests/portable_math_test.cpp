// Tests of the portable mathematics: close to the C library's, and the same bits on every system.
#include "platform/portable_math.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>

namespace vorna {
namespace {

std::int64_t UlpsApart(double a, double b) {
    if (a == b || (std::isnan(a) && std::isnan(b)))
        return 0;
    if (std::signbit(a) != std::signbit(b))
        return std::numeric_limits<std::int64_t>::max();
    return std::abs(std::bit_cast<std::int64_t>(a) - std::bit_cast<std::int64_t>(b));
}

// A wrong digit in a coefficient or a slip in the reduction shows as many ulps somewhere.
TEST(PortableMath, WithinTwoUlpsOfTheCLibrary) {
#ifdef _WIN32
    GTEST_SKIP() << "Windows' C library is off by up to 30 ulps near multiples of pi: no reference";
#endif
    std::mt19937_64 rng(11);
    std::uniform_real_distribution<double> unit(-1, 1), angle(-40, 40), length(-3000, 3000);
    for (int i = 0; i < 200000; ++i) {
        const double u = unit(rng), a = angle(rng), x = length(rng), y = length(rng);
        ASSERT_LE(UlpsApart(Sin(a), std::sin(a)), 2) << a;
        ASSERT_LE(UlpsApart(Cos(a), std::cos(a)), 2) << a;
        ASSERT_LE(UlpsApart(Atan(x / (y + 0.5)), std::atan(x / (y + 0.5))), 2) << x / (y + 0.5);
        ASSERT_LE(UlpsApart(Atan2(x, y), std::atan2(x, y)), 2) << x << ',' << y;
        ASSERT_LE(UlpsApart(Asin(u), std::asin(u)), 2) << u;
        ASSERT_LE(UlpsApart(Acos(u), std::acos(u)), 2) << u;
        ASSERT_LE(UlpsApart(Hypot(x, y * 1e-3), std::hypot(x, y * 1e-3)), 1) << x << ',' << y;
    }
}

TEST(PortableMath, EdgesOfTheDomains) {
    const double inf = std::numeric_limits<double>::infinity(), nan = std::nan("");
    EXPECT_TRUE(std::signbit(Sin(-0.0)));
    EXPECT_EQ(Cos(0.0), 1.0);
    EXPECT_TRUE(std::isnan(Sin(inf)) && std::isnan(Cos(-inf)) && std::isnan(Sin(nan)));
    EXPECT_NEAR(Sin(1e9 * 3.14159265358979), std::sin(1e9 * 3.14159265358979), 1e-6);
    EXPECT_EQ(Atan(inf), std::atan(inf));
    EXPECT_EQ(Atan2(0.0, -1.0), std::atan2(0.0, -1.0));
    EXPECT_EQ(Atan2(-0.0, -1.0), -Atan2(0.0, -1.0));
    EXPECT_EQ(Atan2(-inf, inf), -Atan(1.0));
    EXPECT_EQ(Atan2(1.0, 0.0), 2 * Atan(1.0));
    EXPECT_EQ(Acos(-1.0), Atan2(0.0, -1.0));
    EXPECT_TRUE(std::isnan(Asin(1.0000001)) && std::isnan(Acos(nan)));
    EXPECT_EQ(Hypot(3, -4), 5);
    EXPECT_EQ(Hypot(-inf, nan), inf);
    EXPECT_TRUE(std::isnan(Hypot(nan, 1)));
    EXPECT_EQ(Hypot(1e300, 1e300), std::hypot(1e300, 1e300));
    EXPECT_EQ(Hypot(3e-320, 4e-320), std::hypot(3e-320, 4e-320));
}

// The same arguments give the same bits wherever the tests run (the Windows build runs this
// too): the checksum was taken on Linux.
TEST(PortableMath, SameBitsOnEverySystem) {
    std::mt19937_64 rng(5);
    std::uniform_real_distribution<double> angle(-1e3, 1e3), length(-1e4, 1e4);
    std::uint64_t sum = 1469598103934665603u;
    auto add = [&sum](double v) { sum = (sum ^ std::bit_cast<std::uint64_t>(v)) * 1099511628211u; };
    for (int i = 0; i < 20000; ++i) {
        const double a = angle(rng), x = length(rng), y = length(rng);
        add(Sin(a));
        add(Cos(a));
        add(Atan(x / y));
        add(Atan2(y, x));
        add(Asin(x / 1e4));
        add(Acos(y / 1e4));
        add(Hypot(x, y));
    }
    EXPECT_EQ(sum, 0xd6c89c8a94686c7au);
}

} // namespace
} // namespace vorna
