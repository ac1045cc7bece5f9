// Tests of the drawing export: the printed numbers of its files.
#include "platform/number_text.h"

#include <gtest/gtest.h>

#include <limits>

namespace vorna {
namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

TEST(PrintedNumber, ShortestDigitsSignBlankAndExponent) {
  std::string all;
  for (double v :
       {0.0, -0.0, 0.5, -0.25, 0.1 + 0.2, 1e16, 1.5e-5, -2.5e20, 1e15,
        999999999999999.0, 0.0001, -9.999e-5, 5e-324, kNaN, -kInf})
    all += PrintedNumber(v) + "|";
  EXPECT_EQ(
      all, " 0| 0| .5|-.25| .30000000000000004| 1E+16| 1.5E-05|-2.5E+20| 1E+15|"
           " 999999999999999| .0001|-9.999E-05| 5E-324| 0| 0|");
}

} // namespace
} // namespace vorna
