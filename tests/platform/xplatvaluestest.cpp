// Byte order, step conversions, and the float preferences that are not kept.
#include <gtest/gtest.h>

#include <cstring>
#include <limits>

#include "platform/xplatvalues.h"

namespace {

TEST(XPlatValues, SwapReversesFourBytes) {
  unsigned char bytes[] = {0xAA, 1, 2, 3, 4, 0xBB};
  mySwapBytes(bytes + 1);
  const unsigned char reversed[] = {0xAA, 4, 3, 2, 1, 0xBB};
  EXPECT_EQ(std::memcmp(bytes, reversed, sizeof bytes), 0);
}

TEST(XPlatValues, SwapTwiceGivesTheSameFloat) {
  float value = 0.1F;
  mySwapBytes(&value);
  EXPECT_NE(std::memcmp(&value, "\xCD\xCC\xCC\x3D", 4), 0);
  mySwapBytes(&value);
  EXPECT_EQ(value, 0.1F);
}

TEST(XPlatValues, StepOfAValue) {
  EXPECT_EQ(paramContToLong(0.0F, 4), 0);
  EXPECT_EQ(paramContToLong(0.25F, 4), 1);
  EXPECT_EQ(paramContToLong(0.7499F, 4), 2);
  EXPECT_EQ(paramContToLong(0.75F, 4), 3);
  EXPECT_EQ(paramContToLong(1.0F, 4), 3) << "1 belongs to the last bin";
  EXPECT_EQ(paramContToLong(2.0F, 4), 3);
  EXPECT_EQ(paramContToLong(1.0F, 1), 0);
}

TEST(XPlatValues, StepOfANegativeValueIsZeroOrNegative) {
  EXPECT_EQ(paramContToLong(-0.1F, 4), 0) << "truncated toward zero";
  EXPECT_EQ(paramContToLong(-0.5F, 4), -2);
}

TEST(XPlatValues, CentreOfAStep) {
  EXPECT_EQ(paramLongToCont(0, 4), 0.125F);
  EXPECT_EQ(paramLongToCont(3, 4), 0.875F);
  EXPECT_EQ(long2float(0, 4), 0.125F);
  EXPECT_EQ(long2float(3, 4), 0.875F);
}

TEST(XPlatValues, CentresAreSumsAndQuotientsInSinglePrecision) {
  for (int steps = 1; steps < 200; ++steps) {
    const auto count = static_cast<float>(steps);
    for (int step = 0; step < steps; ++step) {
      const volatile float half = 0.5F / count;  // volatile: each operation rounds to float
      const volatile float start = static_cast<float>(step) / count;
      const volatile float sum = half + start;
      EXPECT_EQ(paramLongToCont(step, steps), sum);
      const volatile float middle = static_cast<float>(step) + 0.5F;
      const volatile float quotient = middle / count;
      EXPECT_EQ(long2float(step, steps), quotient);
    }
  }
}

TEST(XPlatValues, StepsComeBackFromTheirCentres) {
  for (int steps = 1; steps < 200; ++steps) {
    for (int step = 0; step < steps; ++step) {
      EXPECT_EQ(paramContToLong(paramLongToCont(step, steps), steps), step) << steps;
      EXPECT_EQ(float2long(long2float(step, steps), steps), step) << steps;
    }
  }
}

TEST(XPlatValues, FloorStepOfAValue) {
  EXPECT_EQ(float2long(0.0F, 10), 0);
  EXPECT_EQ(float2long(0.05F, 10), 0);
  EXPECT_EQ(float2long(0.1F, 10), 1);
  EXPECT_EQ(float2long(0.95F, 10), 9);
  EXPECT_EQ(float2long(1.0F, 10), 9) << "1 belongs to the last bin";
  EXPECT_EQ(float2long(5.0F, 10), 9);
}

// floor, then a half, then toward zero: -0.05 * 10 floors to -1, and -0.5 is cut to 0.
TEST(XPlatValues, FloorStepOfANegativeValue) {
  EXPECT_EQ(float2long(-0.05F, 10), 0);
  EXPECT_EQ(float2long(-0.15F, 10), -1);
  EXPECT_EQ(float2long(-0.25F, 4), 0) << "-1 and a half, toward zero";
  EXPECT_EQ(float2long(-0.5F, 4), -1);
}

// Where a long has 64 bits, the steps are not those of an int. All of them powers of two, which a
// float holds.
TEST(XPlatValues, FloorStepsReachAsFarAsALong) {
  if (sizeof(long) < 8) GTEST_SKIP() << "a long of this system ends at 2^31";
  constexpr long kSteps = 1L << (sizeof(long) < 8 ? 30 : 40);
  EXPECT_EQ(float2long(0.5F, kSteps), kSteps / 2);
  EXPECT_EQ(float2long(0.25F, kSteps), kSteps / 4);
  EXPECT_EQ(float2long(1.0F, kSteps), kSteps - 1);
  EXPECT_EQ(float2long(-0.5F, kSteps), -kSteps / 2) << "a half is lost in a float of this size";
}

TEST(XPlatValues, EveryFloatHasAStep) {
  constexpr float kInfinity = std::numeric_limits<float>::infinity();
  EXPECT_EQ(paramContToLong(kInfinity, 4), 3);
  EXPECT_EQ(float2long(kInfinity, 4), 3);
  EXPECT_LT(paramContToLong(-kInfinity, 4), 0);
  EXPECT_LT(float2long(-kInfinity, 4), 0);
  const float notANumber = std::numeric_limits<float>::quiet_NaN();
  EXPECT_LT(paramContToLong(notANumber, 4), 4);
  EXPECT_LT(float2long(notANumber, 4), 4);
}

TEST(XPlatValues, FloatPreferencesAreNotKept) {
  setPrefValue("key", 0.25F);
  EXPECT_EQ(getPrefValue("key", 0.75F), 0.75F);
  EXPECT_EQ(getPrefValue("other", -1.0F), -1.0F);
}

}  // namespace
