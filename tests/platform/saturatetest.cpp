// Conversion to an integer that is defined for every number.
#include "platform/saturate.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

TEST(Saturate, TruncatesTowardZero) {
  EXPECT_EQ(truncatedToInt32(1.999), 1);
  EXPECT_EQ(truncatedToInt32(-1.999), -1);
  EXPECT_EQ(truncatedToInt32(-0.5), 0);
}

TEST(Saturate, KeepsTheEndsOfTheRange) {
  EXPECT_EQ(truncatedToInt32(2147483647.0), 2147483647);
  EXPECT_EQ(truncatedToInt32(2147483647.9), 2147483647);
  EXPECT_EQ(truncatedToInt32(2147483648.0), 2147483647);
  EXPECT_EQ(truncatedToInt32(-2147483648.0), -2147483647 - 1);
  EXPECT_EQ(truncatedToInt32(-2147483648.9), -2147483647 - 1);
  EXPECT_EQ(truncatedToInt32(-2147483649.0), -2147483647 - 1);
  EXPECT_EQ(truncatedToInt32(std::numeric_limits<double>::infinity()), 2147483647);
  EXPECT_EQ(truncatedToInt32(-std::numeric_limits<double>::infinity()), -2147483647 - 1);
}

TEST(Saturate, MakesZeroOfANaN) {
  EXPECT_EQ(truncatedToInt32(std::numeric_limits<double>::quiet_NaN()), 0);
}

}  // namespace
