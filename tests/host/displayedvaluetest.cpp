// Values typed as an effect shows them, with a plug-in that shows units.
#include "host/state/displayedvalue.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "host/base/failure.h"
#include "host/state/effectstate.h"

namespace {

using testing::HasSubstr;

class DisplayedValues : public testing::Test {
 protected:
  // In the plug-in's order.
  enum Index { kDistance, kCutoff, kWave, kDrive, kLevel, kVoices, kFixed, kWet, kWetLevel, kMode };

  DisplayedValues() : module(WIDEN_TEST_PLUGINS "/displays.so"), effect(module, callback) {}

  // By name, through --set.
  float set(const std::string& name, int index, const std::string& typed) {
    StateArguments arguments;
    arguments.settings = {{name, typed}};
    applyState(effect, arguments);
    return effect.parameter(index);
  }
  std::string refusalOf(const std::string& name, const std::string& typed) {
    try {
      set(name, 0, typed);
    } catch (const Failure& failure) {
      return failure.what();
    }
    return "accepted";
  }

  PluginModule module;
  HostCallback callback;
  Effect effect;
};

}  // namespace

// "24.0" is shown from 23.95 to 24.05 m.
TEST_F(DisplayedValues, AreFoundWithAndWithoutTheirUnit) {
  for (const char* typed : {"24 m", "24m", "24.0 M", "24"}) {
    EXPECT_NEAR(set("Distance", kDistance, typed), 24.0F / 48.0F, 1e-4F) << typed;
  }
  EXPECT_NEAR(set("Distance", kDistance, "7.3 m"), 7.3F / 48.0F, 1e-4F);
}

TEST_F(DisplayedValues, AtAnEndAreTheEnd) {
  EXPECT_EQ(set("Distance", kDistance, "48 m"), 1.0F);
  EXPECT_EQ(set("Distance", kDistance, "0 m"), 0.0F);
  EXPECT_EQ(set("Wave", kWave, "sine"), 0.0F);
  EXPECT_EQ(set("Wave", kWave, "Square"), 1.0F);
}

TEST_F(DisplayedValues, OfAListAreInTheMiddleOfTheirPlace) {
  EXPECT_NEAR(set("Wave", kWave, "triangle"), 1.5F / 3.999F, 1e-4F);
  EXPECT_NEAR(set("Wave", kWave, "Saw up"), 2.5F / 3.999F, 1e-4F);
}

TEST_F(DisplayedValues, OfASwitchAreTheEffectsOwnWhereItShowsThem) {
  EXPECT_NEAR(set("Mode", kMode, "on"), 1.5F / 2.999F, 1e-4F) << "at 1 it shows Off";
  EXPECT_EQ(set("Mode", kMode, "Off"), 1.0F);
  EXPECT_EQ(set("Mode", kMode, "1"), 1.0F) << "a number is the raw value";
  EXPECT_EQ(set("Wet", kWet, "on"), 1.0F) << "it shows neither";
  EXPECT_EQ(set("Wet", kWet, "off"), 0.0F);
}

TEST_F(DisplayedValues, AreComparedInOneUnit) {
  const auto valueOf = [](double hertz) {
    return static_cast<float>(std::log10(hertz / 20.0) / 3.0);
  };
  EXPECT_NEAR(set("Cutoff", kCutoff, "440 Hz"), valueOf(440), 1e-4F);
  EXPECT_NEAR(set("Cutoff", kCutoff, "0.44 kHz"), valueOf(440), 1e-4F);
  EXPECT_NEAR(set("Cutoff", kCutoff, "2.5kHz"), valueOf(2500), 1e-4F);
  EXPECT_NEAR(set("Cutoff", kCutoff, "2500 Hz"), valueOf(2500), 1e-4F);
}

TEST_F(DisplayedValues, MayFallWhileTheValueRises) {
  EXPECT_NEAR(set("Level", kLevel, "-12 dB"), 12.0F / 60.0F, 1e-5F);
  EXPECT_NEAR(set("Level", kLevel, "-12.345"), 12.345F / 60.0F, 1e-5F);
}

// To half of what the last digit counts, on the side that shows or types fewer of them.
TEST_F(DisplayedValues, AreTakenAsExactlyAsTheyAreShown) {
  EXPECT_NEAR(set("Distance", kDistance, "24.04 m"), 24.05F / 48.0F, 1.1e-3F);
  EXPECT_THAT(refusalOf("Voices", "3 x"), HasSubstr("does not understand"));
  EXPECT_THAT(refusalOf("Voices", "6"), HasSubstr("now it shows \"2\"")) << "4 and 8 are there";
  EXPECT_NEAR(set("Voices", kVoices, "4"), 2.0F / 3.0F, 1e-3F);
  EXPECT_EQ(effect.text(effGetParamDisplay, kVoices), "4");
}

TEST_F(DisplayedValues, InPerCentAreTheEffectsOwnWhereItShowsThem) {
  EXPECT_NEAR(set("Drive", kDrive, "40%"), 0.2F, 3e-3F);
  EXPECT_NEAR(set("Drive", kDrive, "150 %"), 0.75F, 3e-3F);
  EXPECT_EQ(set("Distance", kDistance, "40%"), 0.4F) << "of the range, where none are shown";
  EXPECT_EQ(set("Drive", kDrive, "0.4"), 0.4F) << "the raw value";
}

TEST_F(DisplayedValues, AreRefusedWhereTheyAreNotShown) {
  EXPECT_THAT(refusalOf("Distance", "49 m"),
              HasSubstr("--set Distance: \"49 m\" is not 0 to 1, 0% to 100%, on or off, and the "
                        "effect does not understand or show it either (now it shows \"12.0 m\")"));
  EXPECT_THAT(refusalOf("Distance", "24 Hz"), HasSubstr("does not understand"));
  EXPECT_THAT(refusalOf("Wave", "Noise"), HasSubstr("now it shows \"Sine\""));
}

TEST_F(DisplayedValues, LeaveTheParameterAsItWas) {
  EXPECT_TRUE(findDisplayed(effect, kDistance, "24 m").has_value());
  EXPECT_FALSE(findDisplayed(effect, kDistance, "24 Hz").has_value());
  EXPECT_TRUE(showsFor(effect, kDistance, 0.5F, "24 m"));
  EXPECT_EQ(effect.parameter(kDistance), 0.25F);
  EXPECT_EQ(findDisplayed(effect, kFixed, "3 dB"), 0.25F) << "it shows nothing else";
}
