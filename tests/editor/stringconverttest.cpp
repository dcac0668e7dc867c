// The displays' texts.
#include "editor/controls/stringconvert.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <iterator>
#include <limits>
#include <string>

#include "tests/support/hostsettings.h"

namespace {

using Converter = void (*)(float, char*);

std::string text(Converter convert, float value) {
  char buffer[64];
  std::memset(buffer, '#', sizeof buffer);
  convert(value, buffer);
  return buffer;
}

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();

TEST(StrictStringConvert, TruncatesTowardZero) {
  EXPECT_EQ(text(strictStringConvert, 0.0F), "0");
  EXPECT_EQ(text(strictStringConvert, 1.999F), "1");
  EXPECT_EQ(text(strictStringConvert, -1.999F), "-1");
  EXPECT_EQ(text(strictStringConvert, -0.9F), "0") << "no sign for zero";
  EXPECT_EQ(text(strictStringConvert, 16777216.0F), "16777216");
}

TEST(StepStringConvert, SaysTheSame) {
  for (const float value : {-3.7F, -0.2F, 0.0F, 0.99F, 1.0F, 127.5F, 1e6F}) {
    EXPECT_EQ(text(stepStringConvert, value), text(strictStringConvert, value));
  }
}

TEST(PercentStringConvert, TruncatesAndNeverRoundsUp) {
  EXPECT_EQ(text(percentStringConvert, 0.0F), "0%");
  EXPECT_EQ(text(percentStringConvert, 0.5F), "50%");
  EXPECT_EQ(text(percentStringConvert, 0.999F), "99%");
  EXPECT_EQ(text(percentStringConvert, 1.0F), "100%");
}

// 0.29 is 0.28999999165... as a float; a hundred times that is nearer to 29 than to the float below
// it, which is 28.9999981. In double precision the text would be 28%.
TEST(PercentStringConvert, FormsTheProductInSinglePrecision) {
  EXPECT_EQ(text(percentStringConvert, 0.29F), "29%");
  EXPECT_LT(static_cast<double>(0.29F) * 100.0, 29.0);
}

TEST(DampStringConvert, IsClosedUpToATenThousandth) {
  EXPECT_EQ(text(dampStringConvert, 0.0F), "closed");
  EXPECT_EQ(text(dampStringConvert, -5.0F), "closed");
  EXPECT_EQ(text(dampStringConvert, 0.0001F), "closed") << "as a float a little below";
}

TEST(DampStringConvert, IsAPercentageInBetween) {
  EXPECT_EQ(text(dampStringConvert, 0.00011F), "0%");
  EXPECT_EQ(text(dampStringConvert, 0.5F), "50%");
  EXPECT_EQ(text(dampStringConvert, 0.999999F), "99%");
}

TEST(DampStringConvert, FormsTheProductInDoublePrecision) {
  EXPECT_EQ(text(dampStringConvert, 0.29F), "28%");
}

TEST(DampStringConvert, IsThruFromOneOnAndForNaN) {
  EXPECT_EQ(text(dampStringConvert, 1.0F), "thru");
  EXPECT_EQ(text(dampStringConvert, 7.0F), "thru");
  EXPECT_EQ(text(dampStringConvert, kNaN), "thru");
}

TEST(ParameterNameStringConvert, SelectsOneOfFiveCaptions) {
  EXPECT_EQ(text(parameterNameStringConvert, 0.0F), "S");
  EXPECT_EQ(text(parameterNameStringConvert, 0.1F), "M");
  EXPECT_EQ(text(parameterNameStringConvert, 0.2F), "depth");
  EXPECT_EQ(text(parameterNameStringConvert, 0.3F), "freq");
  EXPECT_EQ(text(parameterNameStringConvert, 0.4F), "emph");
}

// The float before each selector still belongs to the caption before: nothing is rounded on
// the way, neither the product nor the index.
TEST(ParameterNameStringConvert, ChangesTheCaptionAtTheSelectorAndNotBefore) {
  const char* const captions[] = {"S", "M", "depth", "freq", "emph", ""};
  const float selectors[] = {0.0F, 0.1F, 0.2F, 0.3F, 0.4F, 0.5F};
  for (std::size_t next = 1; next < std::size(selectors); ++next) {
    const float before = std::nextafter(selectors[next], 0.0F);
    EXPECT_EQ(text(parameterNameStringConvert, before), captions[next - 1]) << before;
    EXPECT_EQ(text(parameterNameStringConvert, selectors[next]), captions[next]);
  }
}

TEST(ParameterNameStringConvert, IsEmptyForEveryOtherSelector) {
  EXPECT_EQ(text(parameterNameStringConvert, 0.5F), "");
  EXPECT_EQ(text(parameterNameStringConvert, 1.0F), "");
  EXPECT_EQ(text(parameterNameStringConvert, -0.1F), "");
}

TEST(FrequencyStringConvert, HasThreePlacesBelowAFifthOfAHertz) {
  EXPECT_EQ(text(frequencyStringConvert, 0.15F), "0.150Hz");
  EXPECT_EQ(text(frequencyStringConvert, 0.0F), "0.0Hz");
  EXPECT_EQ(text(frequencyStringConvert, 0.199F), "0.199Hz");
}

TEST(FrequencyStringConvert, DoesNotPadTheDigitsBehindThePoint) {
  EXPECT_EQ(text(frequencyStringConvert, 0.05F), "0.50Hz");
  EXPECT_EQ(text(frequencyStringConvert, 0.004F), "0.4Hz");
}

// 0.2 as a float is a little above 0.2 as a double.
TEST(FrequencyStringConvert, HasTwoPlacesBelowOneHertz) {
  EXPECT_EQ(text(frequencyStringConvert, 0.2F), "0.20Hz");
  EXPECT_EQ(text(frequencyStringConvert, 0.25F), "0.25Hz");
  EXPECT_EQ(text(frequencyStringConvert, 0.999F), "0.99Hz");
}

TEST(FrequencyStringConvert, HasOnePlaceBelowTenHertz) {
  EXPECT_EQ(text(frequencyStringConvert, 1.0F), "1.0Hz");
  EXPECT_EQ(text(frequencyStringConvert, 2.5F), "2.5Hz");
  EXPECT_EQ(text(frequencyStringConvert, 9.99F), "9.9Hz");
}

TEST(FrequencyStringConvert, TruncatesTheFractionInSinglePrecision) {
  EXPECT_EQ(text(frequencyStringConvert, 2.3F), "2.2Hz");
}

TEST(FrequencyStringConvert, HasNoPlacesBelowAThousandHertz) {
  EXPECT_EQ(text(frequencyStringConvert, 10.0F), "10Hz");
  EXPECT_EQ(text(frequencyStringConvert, 440.7F), "440Hz");
  EXPECT_EQ(text(frequencyStringConvert, 999.9F), "999Hz");
}

TEST(FrequencyStringConvert, CountsKilohertzFromAThousandOn) {
  EXPECT_EQ(text(frequencyStringConvert, 1000.0F), "1.0kHz");
  EXPECT_EQ(text(frequencyStringConvert, 1500.0F), "1.5kHz");
  EXPECT_EQ(text(frequencyStringConvert, 2050.0F), "2.0kHz");
  EXPECT_EQ(text(frequencyStringConvert, 12345.0F), "12.3kHz");
  EXPECT_EQ(text(frequencyStringConvert, 20000.0F), "20.0kHz");
}

// The floats before 2, 3, 4 and 6 kHz: in single precision a thousandth of them is a whole number.
TEST(FrequencyStringConvert, CountsKilohertzInDoublePrecision) {
  for (const int kilohertz : {2, 3, 4, 6}) {
    const float before = std::nextafter(static_cast<float>(kilohertz) * 1000.0F, 0.0F);
    const volatile float inSinglePrecision = before * 0.001F;
    EXPECT_EQ(inSinglePrecision, static_cast<float>(kilohertz));
    EXPECT_EQ(text(frequencyStringConvert, before), std::to_string(kilohertz - 1) + ".9kHz");
  }
}

TEST(DBStringConvert, TakesAPowerRatio) {
  EXPECT_EQ(text(dBStringConvert, 1.0F), "0 dB");
  EXPECT_EQ(text(dBStringConvert, 0.5F), "-3 dB");
  EXPECT_EQ(text(dBStringConvert, 2.0F), "3 dB");
  EXPECT_EQ(text(dBStringConvert, 100.0F), "20 dB");
}

TEST(DBStringConvert, IsMinusInfinityUpToAHundredMillionth) {
  EXPECT_EQ(text(dBStringConvert, 1e-8F), "-oo dB");
  EXPECT_EQ(text(dBStringConvert, 2e-8F), "-76 dB");
  EXPECT_EQ(text(dBStringConvert, 0.0F), "-oo dB");
  EXPECT_EQ(text(dBStringConvert, -1.0F), "-oo dB");
  EXPECT_EQ(text(dBStringConvert, kNaN), "-oo dB");
}

TEST(ConvertCC, NamesControllersByTheirShareOf130) {
  EXPECT_EQ(text(convertCC, 0.0F), "bank sel MSB");
  EXPECT_EQ(text(convertCC, 3.5F / 130.0F), "control 3");
  EXPECT_EQ(text(convertCC, 64.5F / 130.0F), "sustain");
  EXPECT_EQ(text(convertCC, 127.5F / 130.0F), "poly mode on");
  EXPECT_EQ(text(convertCC, 128.5F / 130.0F), "not assigned");
  EXPECT_EQ(text(convertCC, 129.5F / 130.0F), "");
  EXPECT_EQ(text(convertCC, 1.0F), "");
}

TEST(ConvertCC, StaysInsideItsTable) {
  EXPECT_EQ(text(convertCC, 5.0F), "");
  EXPECT_EQ(text(convertCC, -5.0F), "bank sel MSB");
}

TEST(StringConvert, NeverWritesMoreThanSixteenBytesInRange) {
  for (const Converter convert :
       {percentStringConvert, dampStringConvert, parameterNameStringConvert, convertCC}) {
    for (int i = 0; i <= 10000; ++i)
      EXPECT_LT(text(convert, static_cast<float>(i) / 10000.0F).size(), 16U);
  }
  for (int i = 0; i <= 200000; ++i)
    EXPECT_LT(text(frequencyStringConvert, static_cast<float>(i) / 10.0F).size(), 16U);
  for (float ratio = 1e-9F; ratio < 1e9F; ratio *= 1.1F)
    EXPECT_LT(text(dBStringConvert, ratio).size(), 16U);
}

// The bytes after the 32nd stay the caller's, whatever the value.
TEST(StringConvert, NeverWritesMoreThanThirtyTwoBytes) {
  const Converter all[] = {
      strictStringConvert,        stepStringConvert,      percentStringConvert, dampStringConvert,
      parameterNameStringConvert, frequencyStringConvert, dBStringConvert,      convertCC};
  for (const Converter convert : all) {
    for (const float value :
         {kNaN, kInfinity, -kInfinity, 3e38F, -3e38F, 1e-45F, -1e-45F, 2147483648.0F}) {
      char buffer[64];
      std::memset(buffer, '#', sizeof buffer);
      convert(value, buffer);
      EXPECT_NE(std::memchr(buffer, 0, 32), nullptr);
      for (int i = 32; i < 64; ++i) EXPECT_EQ(buffer[i], '#');
    }
  }
}

TEST(StringConvert, GivesTheSameTextsUnderEveryRounding) {
  const Converter all[] = {
      strictStringConvert,        stepStringConvert,      percentStringConvert, dampStringConvert,
      parameterNameStringConvert, frequencyStringConvert, dBStringConvert,      convertCC};
  for (const Converter convert : all) {
    for (int i = 0; i <= 2000; ++i) {
      const float share = static_cast<float>(i) / 2000.0F;
      for (const float value : {share, share * 130.0F, share * 20000.0F}) {
        const std::string expected = text(convert, value);
        for (const int rounding : kRoundings) {
          const ScopedRounding hosts(rounding);
          EXPECT_EQ(text(convert, value), expected) << value;
        }
      }
    }
  }
}

}  // namespace
