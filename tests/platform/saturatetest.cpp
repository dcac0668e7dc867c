// Conversion to an integer that is defined for every number.
#include "platform/saturate.h"

#include <gtest/gtest.h>

#include <cstdint>
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

TEST(Saturate, ReachesTheEndsOf64Bits) {
  using Limits = std::numeric_limits<std::int64_t>;
  EXPECT_EQ(truncatedTo<std::int64_t>(2147483648.5), 2147483648);
  EXPECT_EQ(truncatedTo<std::int64_t>(-4294967296.5), -4294967296);
  EXPECT_EQ(truncatedTo<std::int64_t>(9223372036854774784.0), 9223372036854774784)
      << "the double below 2^63";
  EXPECT_EQ(truncatedTo<std::int64_t>(9223372036854775808.0), Limits::max());
  EXPECT_EQ(truncatedTo<std::int64_t>(-9223372036854775808.0), Limits::min());
  EXPECT_EQ(truncatedTo<std::int64_t>(std::numeric_limits<double>::infinity()), Limits::max());
  EXPECT_EQ(truncatedTo<std::int64_t>(-std::numeric_limits<double>::infinity()), Limits::min());
  EXPECT_EQ(truncatedTo<std::int64_t>(std::numeric_limits<double>::quiet_NaN()), 0);
}

}  // namespace
