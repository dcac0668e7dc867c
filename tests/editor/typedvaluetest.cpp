// What people type into a value's display.
#include "editor/controls/typedvalue.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "editor/controls/stringconvert.h"
#include "effect/parameters.h"
#include "tests/support/hostsettings.h"

namespace {

const Parameter& width = parameterAt(kWidthIndex);
const Parameter& frequency = parameterAt(kBaseFreqIndex);
const Parameter& emphasis = parameterAt(kEmphasisIndex);

std::optional<float> percent(const std::string& text) {
  const auto typed = typedValue(width, text);
  EXPECT_EQ(typed, typedValue(emphasis, text));
  return typed;
}

// The curve once more: 20 Hz and 980 Hz times the square.
double hertzOf(std::optional<float> raw) {
  return raw ? 20.0 + 980.0 * static_cast<double>(*raw) * static_cast<double>(*raw) : NAN;
}
double hertz(const std::string& text) {
  return hertzOf(typedValue(frequency, text));
}

constexpr double kNear = 0.001;  // Hz, less than any text tells

TEST(TypedValue, APercentageWithOrWithoutItsSign) {
  EXPECT_EQ(percent("35"), 0.35F);
  EXPECT_EQ(percent("35%"), 0.35F);
  EXPECT_EQ(percent(" 35 % "), 0.35F);
  EXPECT_EQ(percent("+35"), 0.35F);
  EXPECT_EQ(percent("0"), 0.0F);
  EXPECT_EQ(percent("100%"), 1.0F);
  EXPECT_EQ(percent("12.5"), 0.125F);
  EXPECT_EQ(percent(".5"), 0.005F);
  EXPECT_EQ(percent("5."), 0.05F);
}

TEST(TypedValue, HertzWithOrWithoutTheirUnit) {
  for (const char* text : {"265", "265Hz", "265 Hz", "265hz", " 265HZ ", "0.265k", "0.265 kHz",
                           ".265KHz", "0,265 k", "265.0"}) {
    EXPECT_NEAR(hertz(text), 265, kNear) << text;
  }
  EXPECT_EQ(typedValue(frequency, "1k"), 1.0F);
  EXPECT_EQ(typedValue(frequency, "1000"), 1.0F);
  EXPECT_EQ(typedValue(frequency, "20"), 0.0F);
}

TEST(TypedValue, ACommaIsAPoint) {
  EXPECT_EQ(percent("0,4"), 0.004F);
  EXPECT_EQ(percent("33,3%"), 0.333F);
  EXPECT_NEAR(hertz("265,5"), 265.5, kNear);
}

TEST(TypedValue, WhatLiesBeyondTheRangeIsItsEnd) {
  for (const std::string& text :
       {std::string("101"), std::string("1000%"), "9" + std::string(400, '9')}) {
    EXPECT_EQ(percent(text), 1.0F) << text;
    EXPECT_EQ(percent("-" + text), 0.0F) << text;
  }
  EXPECT_EQ(percent("-0"), 0.0F);
  EXPECT_EQ(percent("0." + std::string(400, '0') + "1"), 0.0F);
  EXPECT_EQ(percent("50." + std::string(400, '9')), percent("51"));
  EXPECT_EQ(typedValue(frequency, "1.5 kHz"), 1.0F);
  EXPECT_EQ(typedValue(frequency, std::string(400, '9') + "k"), 1.0F);
  EXPECT_EQ(typedValue(frequency, "0,4"), 0.0F);
  EXPECT_EQ(typedValue(frequency, "0"), 0.0F);
  EXPECT_EQ(typedValue(frequency, "-265"), 0.0F);
}

TEST(TypedValue, WhatIsNoSuchNumberIsNone) {
  for (const std::string text : {"",
                                 " ",
                                 "%",
                                 ".",
                                 ",",
                                 "-",
                                 "+",
                                 "Hz",
                                 "k",
                                 "nan",
                                 "NaN",
                                 "inf",
                                 "-inf",
                                 "infinity",
                                 "x",
                                 "3x",
                                 "35%%",
                                 "3 5",
                                 "1,234.5",
                                 "1.2.3",
                                 "--5",
                                 "+-5",
                                 "- 5",
                                 "1e2",
                                 "0x10",
                                 "35%Hz",
                                 "5 k%",
                                 "\xD9\xA3",
                                 "\xE2\x88\x92 5"}) {
    EXPECT_EQ(percent(text), std::nullopt) << text;
    EXPECT_EQ(typedValue(frequency, text), std::nullopt) << text;
  }
  EXPECT_EQ(percent(std::string("35\0", 3)), std::nullopt);
  EXPECT_EQ(percent("265Hz"), std::nullopt);
  EXPECT_EQ(percent("1k"), std::nullopt);
  EXPECT_EQ(typedValue(frequency, "35%"), std::nullopt);
  EXPECT_EQ(typedValue(frequency, "265 H"), std::nullopt);
  EXPECT_EQ(typedValue(frequency, "265 kkHz"), std::nullopt);
}

// Displays cut what they show: a value that is a hair less would be another number.
TEST(TypedValue, TheDisplayShowsWhatWasTyped) {
  for (const int rounding : kRoundings) {
    const ScopedRounding hosts(rounding);
    const ScopedPoint comma(",");
    char text[32];
    for (int typed = 0; typed <= 100; ++typed) {
      percentStringConvert(percent(std::to_string(typed)).value_or(-1.0F), text);
      ASSERT_EQ(text, std::to_string(typed) + "%");
    }
    for (int typed = 20; typed < 1000; ++typed) {
      const float raw = typedValue(frequency, std::to_string(typed)).value_or(-1.0F);
      const int before = std::fegetround();
      std::fesetround(FE_TONEAREST);  // as the window calculates it
      const float shown = frequency.derived(raw);
      std::fesetround(before);
      frequencyStringConvert(shown, text);
      ASSERT_EQ(text, std::to_string(typed) + "Hz");
    }
  }
}

TEST(TypedValue, IsTheSameInEveryLanguageAndRounding) {
  const ScopedPoint comma(",");
  for (const int rounding : kRoundings) {
    const ScopedRounding hosts(rounding);
    EXPECT_EQ(percent("33.3"), 0.333F);
    EXPECT_EQ(percent("33,3"), 0.333F);
    EXPECT_EQ(typedValue(frequency, "265.5"), typedValue(frequency, "0,2655k"));
  }
}

}  // namespace
