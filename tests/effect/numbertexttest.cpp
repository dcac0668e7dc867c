// Numbers as the parameter displays show them, with the peculiarities that they have always had.
#include "effect/numbertext.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <string>

#include "tests/support/hostsettings.h"

namespace {

std::string shown(float value, int digits) {
  char text[64];
  std::memset(text, '#', sizeof text);
  float2string2(value, digits, text);
  return text;
}

// The text of a value that is too large, or no number, is what it was.
bool leavesTheText(float value) {
  char text[64] = "before";
  float2string2(value, 1, text);
  return std::strcmp(text, "before") == 0;
}

TEST(Round, AddsOneToTheLastDigitKeptAndLeavesTheRestOfTheFraction) {
  EXPECT_DOUBLE_EQ(round(2.5, 0), 3.5);
  EXPECT_DOUBLE_EQ(round(2.75, 0), 3.75);
  EXPECT_DOUBLE_EQ(round(81.25, 1), 81.35);
  EXPECT_DOUBLE_EQ(round(1.237, 2), 1.247);
}

TEST(Round, TakesOneFromANegativeNumber) {
  EXPECT_DOUBLE_EQ(round(-2.5, 0), -3.5);
  EXPECT_DOUBLE_EQ(round(-81.25, 1), -81.35);
}

TEST(Round, LeavesANumberBelowHalfUnchanged) {
  for (const double x : {0.0, 2.0, 2.25, 2.4999, -2.25, 1234.5624}) {
    EXPECT_EQ(round(x, 0) == x, std::fabs(x - std::trunc(x)) < 0.49999) << x;
  }
  EXPECT_EQ(round(1.2345, 3 - 1), 1.2345);
}

TEST(Round, CountsAHairBelowOneHalfAsHalf) {
  EXPECT_DOUBLE_EQ(round(0.499995, 0), 1.499995);
  EXPECT_EQ(round(0.49998, 0), 0.49998);
  EXPECT_DOUBLE_EQ(round(-0.499995, 0), -1.499995);
  EXPECT_EQ(round(-0.49998, 0), -0.49998);
}

TEST(Float2String2, ShowsDisplaysWithOneDigit) {
  EXPECT_EQ(shown(50.0F, 1), "50.0");
  EXPECT_EQ(shown(1000.0F, 1), "1000.0");
  EXPECT_EQ(shown(20.0F, 1), "20.0");
  EXPECT_EQ(shown(0.0F, 1), "0.0");
  EXPECT_EQ(shown(-0.0F, 1), "0.0") << "zero has no sign";
  EXPECT_EQ(shown(100.0F, 1), "100.0");
}

TEST(Float2String2, RoundsTheLastDigitShown) {
  EXPECT_EQ(shown(81.25F, 1), "81.3");
  EXPECT_EQ(shown(81.2F, 1), "81.2");
  EXPECT_EQ(shown(0.05F, 1), "0.1");
  EXPECT_EQ(shown(9.95F, 1), "10.0") << "carried over the point";
  EXPECT_EQ(shown(0.949F, 1), "0.9");
  EXPECT_EQ(shown(3.14159F, 2), "3.14");
  EXPECT_EQ(shown(3.14659F, 2), "3.15");
}

TEST(Float2String2, ShowsNegativeNumbersWithTheirSignInFront) {
  EXPECT_EQ(shown(-0.25F, 1), "-0.3");
  EXPECT_EQ(shown(-0.24F, 1), "-0.2");
  EXPECT_EQ(shown(-12.5F, 1), "-12.5");
  EXPECT_EQ(shown(-0.04F, 1), "-0.0") << "below zero all the same";
}

TEST(Float2String2, FillsTheFractionWithZeros) {
  EXPECT_EQ(shown(1.03125F, 4), "1.0313");
  EXPECT_EQ(shown(2.0009765625F, 5), "2.00098");
  EXPECT_EQ(shown(2.0F, 5), "2.00000");
}

TEST(Float2String2, EndsWithThePointWhereNoDigitIsWanted) {
  EXPECT_EQ(shown(2.25F, 0), "2.");
  EXPECT_EQ(shown(2.5F, 0), "3.");
}

// Eight characters are counted, the point and the sign among them.
TEST(Float2String2, HasFewerPlacesTheLongerTheWholePartIs) {
  EXPECT_EQ(shown(1.5F, 9), "1.500000");
  EXPECT_EQ(shown(12345.5F, 9), "12345.50");
  EXPECT_EQ(shown(123456.5F, 9), "123456.5");
  EXPECT_EQ(shown(-1.5F, 9), "-1.50000");
  EXPECT_EQ(shown(-12345.5F, 9), "-12345.5");
}

TEST(Float2String2, HasNoPlacesWhenTheWholePartFillsTheText) {
  EXPECT_EQ(shown(1234567.0F, 1), "1234567.");
  EXPECT_EQ(shown(-123456.0F, 1), "-123456.");
}

TEST(Float2String2, LosesTheLeadingDigitsOfAnEvenLongerWholePart) {
  EXPECT_EQ(shown(12345678.0F, 1), "2345678.");
  EXPECT_EQ(shown(99999992.0F, 1), "9999992.");
  EXPECT_EQ(shown(-9999999.0F, 1), "-999999.");
}

TEST(Float2String2, LeavesTheTextWhereTheNumberIsTooLarge) {
  EXPECT_TRUE(leavesTheText(100000000.0F)) << "the float after 99999992";
  EXPECT_TRUE(leavesTheText(-10000000.0F)) << "the float after -9999999";
  EXPECT_TRUE(leavesTheText(3e38F));
  EXPECT_TRUE(leavesTheText(-3e38F));
  EXPECT_TRUE(leavesTheText(std::numeric_limits<float>::infinity()));
  EXPECT_TRUE(leavesTheText(-std::numeric_limits<float>::infinity()));
  EXPECT_FALSE(leavesTheText(99999992.0F));
  EXPECT_FALSE(leavesTheText(-9999999.0F));
}

TEST(Float2String2, LeavesTheTextOfANaN) {
  EXPECT_TRUE(leavesTheText(std::numeric_limits<float>::quiet_NaN()));
}

TEST(Float2String2, WritesAtMostSixteenBytes) {
  for (float value = -9999999.0F; value < 99999992.0F; value += 71234.567F) {
    for (int digits = 0; digits < 10; ++digits) {
      char text[64];
      std::memset(text, '#', sizeof text);
      float2string2(value, digits, text);
      EXPECT_LT(std::strlen(text), 16U);
      EXPECT_EQ(text[16], '#');
    }
  }
}

// Every value that a display can hold, against the exact decimal: the text is the value rounded
// half up to one place, where a hair below the half counts as the half.
TEST(Float2String2, ShowsEveryPercentageToTheNearestTenth) {
  for (int i = 0; i <= 100000; ++i) {
    const float value = static_cast<float>(i) / 1000.0F;
    const double tenths = static_cast<double>(value) * 10.0;
    auto whole = static_cast<long>(tenths);
    if (tenths - static_cast<double>(whole) >= 0.49999) ++whole;
    EXPECT_EQ(shown(value, 1), std::to_string(whole / 10) + "." + std::to_string(whole % 10))
        << value;
  }
}

TEST(Float2String2, ShowsTheSameUnderEveryRounding) {
  for (int i = -3000; i <= 3000; ++i) {
    const float value = static_cast<float>(i) * 0.037F;
    for (const int digits : {0, 1, 3}) {
      const std::string expected = shown(value, digits);
      for (const int rounding : kRoundings) {
        const ScopedRounding hosts(rounding);
        EXPECT_EQ(shown(value, digits), expected) << value;
      }
    }
  }
}

}  // namespace
