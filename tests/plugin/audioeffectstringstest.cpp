// The effect base's texts for displays.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <string>

#include "tests/support/hostsettings.h"
#include "tests/support/mockeffect.h"

namespace {

class EffectStrings : public testing::Test {
 protected:
  // What `write` leaves in a buffer of `size` bytes, after which nothing may be touched.
  template <typename Write>
  std::string text(Write&& write, VstInt32 size = kVstMaxParamStrLen) {
    char buffer[32];
    std::memset(buffer, '#', sizeof buffer);
    write(buffer, size);
    EXPECT_EQ(buffer[size], '#') << "past the end";
    return buffer;
  }
  std::string decibels(float amplitude) {
    return text([&](char* to, VstInt32 size) { effect.dB2string(amplitude, to, size); });
  }
  std::string number(float value, VstInt32 size = kVstMaxParamStrLen) {
    return text([&](char* to, VstInt32 most) { effect.float2string(value, to, most); }, size);
  }
  std::string whole(VstInt32 value, VstInt32 size = kVstMaxParamStrLen) {
    return text([&](char* to, VstInt32 most) { effect.int2string(value, to, most); }, size);
  }

  testing::NiceMock<MockEffect> effect;
};

TEST_F(EffectStrings, TellDecibelsOfAnAmplitude) {
  EXPECT_EQ(decibels(1.0F), "0.00");
  EXPECT_EQ(decibels(10.0F), "20.00");
  EXPECT_EQ(decibels(0.5F), "-6.02") << "20 log10(1/2) = -6.0206";
  EXPECT_EQ(decibels(0.0F), "-oo");
  EXPECT_EQ(decibels(-1.0F), "-oo");
  EXPECT_EQ(decibels(std::nanf("")), "-oo");
}

TEST_F(EffectStrings, TellTheFrequencyAndTheTimeOfAPeriod) {
  effect.setSampleRate(48000.0F);
  const auto hertz = [&](float frames) {
    return text([&](char* to, VstInt32 size) { effect.Hz2string(frames, to, size); });
  };
  EXPECT_EQ(hertz(480.0F), "100.00");
  EXPECT_EQ(hertz(0.0F), "0.00") << "no period, no frequency";
  EXPECT_EQ(text([&](char* to, VstInt32 size) { effect.ms2string(480.0F, to, size); }), "10.00");
}

TEST_F(EffectStrings, AreCutAfterThePointAndNeverBeforeIt) {
  EXPECT_EQ(number(1234.5F), "1234.50");
  EXPECT_EQ(number(123456.0F), "123456.");
  EXPECT_EQ(number(1234567.0F), "1234567");
  EXPECT_EQ(number(12345678.0F), "Huge!");
  EXPECT_EQ(number(-1234567.0F), "Huge!");
  EXPECT_EQ(number(std::numeric_limits<float>::max()), "Huge!");
  EXPECT_EQ(number(std::numeric_limits<float>::infinity()), "inf");
}

TEST_F(EffectStrings, TellWholeNumbers) {
  EXPECT_EQ(whole(-42), "-42");
  EXPECT_EQ(whole(9999999), "9999999");
  EXPECT_EQ(whole(10000000), "Huge!");
  EXPECT_EQ(whole(std::numeric_limits<VstInt32>::min(), 16), "-2147483648");
}

TEST_F(EffectStrings, KeepToTheRoomThatThereIs) {
  EXPECT_EQ(whole(12, 3), "12");
  EXPECT_EQ(whole(123, 3), "Hu");
  EXPECT_EQ(whole(1, 1), "");
  char untouched = '#';
  effect.int2string(1, &untouched, 0);
  EXPECT_EQ(untouched, '#');
}

TEST_F(EffectStrings, AreTheSameUnderEveryRounding) {
  effect.setSampleRate(44100.0F);
  const auto all = [&](float value) {
    return number(value) + " " + decibels(value) + " " +
           text([&](char* to, VstInt32 size) { effect.Hz2string(value, to, size); }) + " " +
           text([&](char* to, VstInt32 size) { effect.ms2string(value, to, size); });
  };
  int rounded = 0;  // texts that would be others
  for (int i = -1000; i <= 1000; ++i) {
    const float value = static_cast<float>(i) * 0.0137F;
    const std::string expected = all(value);
    for (const int rounding : kRoundings) {
      const ScopedRounding hosts(rounding);
      EXPECT_EQ(all(value), expected) << value;
      char formatted[64];
      std::snprintf(formatted, sizeof formatted, "%.2f", static_cast<double>(value));
      if (number(value) != formatted) ++rounded;
    }
  }
  EXPECT_GT(rounded, 1000);
}

TEST_F(EffectStrings, HaveAPointInEveryLanguage) {
  for (const char* point : {",", "\u066b"}) {  // the Arabic one takes two bytes
    const ScopedPoint hosts(point);
    if (!hosts.isSet()) GTEST_SKIP() << "locales are kept in another way here";
    ASSERT_EQ(ScopedPoint::quarter(), std::string("1") + point + "25");
    EXPECT_EQ(number(1234.5F), "1234.50");
    EXPECT_EQ(number(-0.25F), "-0.25");
    EXPECT_EQ(number(123456.0F), "123456.");
    EXPECT_EQ(number(12345678.0F), "Huge!");
    EXPECT_EQ(number(std::numeric_limits<float>::infinity()), "inf");
    EXPECT_EQ(decibels(0.5F), "-6.02");
  }
}

}  // namespace
