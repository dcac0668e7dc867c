// The parameters: raw and derived values, texts with their exact padding, and properties.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "effect/parameters.h"
#include "effect/trelvan.h"
#include "tests/support/hostsettings.h"
#include "tests/support/recordingeditor.h"
#include "tests/support/recordinghost.h"

namespace {

using testing::ElementsAre;
using testing::Pair;

class TrelvanParameters : public testing::Test {
 protected:
  TrelvanParameters() { effect.setEditor(editor); }

  using TextOperation = void (Trelvan::*)(VstInt32, char*);
  // The operation's text, or "untouched".
  std::string text(TextOperation operation, VstInt32 index) {
    char buffer[64] = "untouched";
    (effect.*operation)(index, buffer);
    return buffer;
  }
  std::string display(VstInt32 index, float value) {
    effect.setParameter(index, value);
    return text(&Trelvan::getParameterDisplay, index);
  }

  RecordingHost host;
  Trelvan effect{RecordingHost::callback};
  RecordingEditor* editor = new RecordingEditor(&effect);  // the effect's
};

TEST_F(TrelvanParameters, HaveNames) {
  EXPECT_EQ(text(&Trelvan::getParameterName, 0), "width");
  EXPECT_EQ(text(&Trelvan::getParameterName, 1), "baseFreq");
  EXPECT_EQ(text(&Trelvan::getParameterName, 2), "emphasis");
  EXPECT_EQ(text(&Trelvan::getParameterName, 3), "process");
  EXPECT_EQ(text(&Trelvan::getParameterName, 4), "phase");
  EXPECT_EQ(text(&Trelvan::getParameterName, 6), "  ");
}

TEST_F(TrelvanParameters, HaveLabelsPaddedToTheirOwnWidths) {
  EXPECT_EQ(text(&Trelvan::getParameterLabel, 0), "    %   ") << "8 characters";
  EXPECT_EQ(text(&Trelvan::getParameterLabel, 1), "    Hz   ") << "9 characters";
  EXPECT_EQ(text(&Trelvan::getParameterLabel, 2), "    %    ") << "9 characters";
  EXPECT_EQ(text(&Trelvan::getParameterLabel, 3), std::string(9, ' '));
  EXPECT_EQ(text(&Trelvan::getParameterLabel, 4), std::string(9, ' '));
  EXPECT_EQ(text(&Trelvan::getParameterLabel, 6), "  ");
}

TEST_F(TrelvanParameters, LeaveTheBufferWhereThereIsNoName) {
  for (const VstInt32 index : {5, 7, 100, -1, 2147483647, -2147483647 - 1}) {
    EXPECT_EQ(text(&Trelvan::getParameterName, index), "untouched") << index;
    EXPECT_EQ(text(&Trelvan::getParameterLabel, index), "untouched") << index;
  }
}

TEST_F(TrelvanParameters, DisplayUndefWhereThereIsNoValue) {
  for (const VstInt32 index : {5, 7, 100, 2147483647}) {
    EXPECT_EQ(text(&Trelvan::getParameterDisplay, index), "UNDEF") << index;
  }
}

TEST_F(TrelvanParameters, DisplayNothingForTheInternalValue) {
  EXPECT_EQ(display(6, 0.5F), "");
}

TEST_F(TrelvanParameters, DisplayPercentagesWithOneDecimal) {
  EXPECT_EQ(display(0, 0.5F), "50.0");
  EXPECT_EQ(display(0, 0.75F), "75.0");
  EXPECT_EQ(display(0, 0.0F), "0.0");
  EXPECT_EQ(display(0, 1.0F), "100.0");
  EXPECT_EQ(display(2, 0.12F), "12.0");
  EXPECT_EQ(display(2, 0.333F), "33.3");
}

TEST_F(TrelvanParameters, DisplayTheBaseFrequencyInHertz) {
  EXPECT_EQ(display(1, 0.0F), "20.0");
  EXPECT_EQ(display(1, 1.0F), "1000.0");
  EXPECT_EQ(display(1, 0.5F), "265.0");
  EXPECT_EQ(display(1, 0.25F), "81.3") << "81.25";
}

TEST_F(TrelvanParameters, DisplaySwitchesAsOnAndOff) {
  for (const VstInt32 index : {3, 4}) {
    EXPECT_EQ(display(index, 0.0F), "Off");
    EXPECT_EQ(display(index, 0.49F), "Off");
    EXPECT_EQ(display(index, 0.5F), "On");
    EXPECT_EQ(display(index, 1.0F), "On");
  }
}

TEST_F(TrelvanParameters, KeepADisplayThatAValueIsTooLargeFor) {
  EXPECT_EQ(display(0, 1e9F), "untouched");
}

TEST_F(TrelvanParameters, SetTheSideGainToTwiceTheSquare) {
  const float raws[] = {0.0F, 0.25F, 0.5F, 0.75F, 1.0F};
  const float gains[] = {0.0F, 0.125F, 0.5F, 1.125F, 2.0F};
  for (int i = 0; i < 5; ++i) {
    effect.setParameter(0, raws[i]);
    EXPECT_EQ(effect.getParameter(0), raws[i]);
    EXPECT_EQ(effect.getParameterValue(0), gains[i]);
  }
}

TEST_F(TrelvanParameters, SetTheBaseFrequencyBetween20And1000Hertz) {
  const float raws[] = {0.0F, 0.25F, 0.5F, 1.0F};
  const float hertz[] = {20.0F, 81.25F, 265.0F, 1000.0F};
  for (int i = 0; i < 4; ++i) {
    effect.setParameter(1, raws[i]);
    EXPECT_EQ(effect.getParameter(1), raws[i]);
    EXPECT_EQ(effect.getParameterValue(1), hertz[i]);
  }
}

TEST_F(TrelvanParameters, TakeTheEmphasisAsItIs) {
  effect.setParameter(2, 0.37F);
  EXPECT_EQ(effect.getParameter(2), 0.37F);
  EXPECT_EQ(effect.getParameterValue(2), 0.37F);
}

TEST_F(TrelvanParameters, SwitchAtOneHalfAndKeepTheRawValue) {
  for (const VstInt32 index : {3, 4}) {
    effect.setParameter(index, 0.49F);
    EXPECT_EQ(effect.getParameter(index), 0.49F);
    EXPECT_EQ(effect.getParameterValue(index), 0.0F);
    effect.setParameter(index, 0.5F);
    EXPECT_EQ(effect.getParameter(index), 0.5F);
    EXPECT_EQ(effect.getParameterValue(index), 1.0F);
  }
}

// Where float has no number between one half less and one, the sum of the value and one half is
// one.
TEST_F(TrelvanParameters, SwitchByTruncatingTheValueAndOneHalf) {
  const float raws[] = {0.49999997F, 0.49999991F, 1.49F, 1.5F, -0.25F, -1.0F, -1.5F};
  const float positions[] = {1.0F, 0.0F, 1.0F, 2.0F, 0.0F, 0.0F, -1.0F};
  ASSERT_LT(raws[0], 0.5F);
  for (const VstInt32 index : {3, 4}) {
    for (int i = 0; i < 7; ++i) {
      EXPECT_EQ(display(index, raws[i]), positions[i] >= 0.5F ? "On" : "Off") << raws[i];
      EXPECT_EQ(effect.getParameterValue(index), positions[i]) << raws[i];
      EXPECT_EQ(effect.getParameter(index), raws[i]);
    }
  }
}

TEST_F(TrelvanParameters, KeepTheInternalValueUntilTheNextReset) {
  effect.setParameter(6, 0.625F);
  EXPECT_EQ(effect.getParameter(6), 0.625F);
  EXPECT_EQ(effect.getParameterValue(6), 0.625F);
  effect.resume();
  EXPECT_EQ(effect.getParameter(6), 0.0F);
  effect.setParameter(6, 0.625F);
  effect.suspend();
  EXPECT_EQ(effect.getParameter(6), 0.0F);
}

TEST_F(TrelvanParameters, AreZeroWhereThereIsNone) {
  for (const VstInt32 index : {5, 7, -1, 100, 2147483647, -2147483647 - 1}) {
    EXPECT_EQ(effect.getParameter(index), 0.0F) << index;
    EXPECT_EQ(effect.getParameterValue(index), 0.0F) << index;
  }
}

TEST_F(TrelvanParameters, StoreInTheCurrentPreset) {
  effect.setPresetNo(9);
  for (VstInt32 index = 0; index < 5; ++index)
    effect.setParameter(index, 0.1F * static_cast<float>(index + 1));
  for (VstInt32 index = 0; index < 5; ++index) {
    EXPECT_EQ(effect.preset(9).parameter(index), 0.1F * static_cast<float>(index + 1));
  }
}

TEST_F(TrelvanParameters, OutsideTheFiveAreNotStored) {
  const ACombProgram before = effect.preset(0);
  for (const VstInt32 index : {-1, 5, 6, 7}) effect.setParameter(index, 0.75F);
  for (VstInt32 index = 0; index < 5; ++index)
    EXPECT_EQ(effect.preset(0).parameter(index), before.parameter(index));
}

TEST_F(TrelvanParameters, FiveChangesNothingButReachesTheEditor) {
  float raw[8];
  float derived[8];
  for (VstInt32 index = 0; index < 8; ++index) {
    raw[index] = effect.getParameter(index);
    derived[index] = effect.getParameterValue(index);
  }
  editor->parameters.clear();
  effect.setParameter(5, 0.75F);
  for (VstInt32 index = 0; index < 8; ++index) {
    EXPECT_EQ(effect.getParameter(index), raw[index]) << index;
    EXPECT_EQ(effect.getParameterValue(index), derived[index]) << index;
  }
  EXPECT_THAT(editor->parameters, ElementsAre(Pair(5, 0.75F)));
}

TEST_F(TrelvanParameters, ReachTheEditorOneByOne) {
  for (VstInt32 index = 0; index < 7; ++index) {
    editor->parameters.clear();
    effect.setParameter(index, 0.25F);
    EXPECT_THAT(editor->parameters, ElementsAre(Pair(index, 0.25F)));
  }
}

TEST_F(TrelvanParameters, CanDoWithoutAnEditor) {
  effect.setEditor(nullptr);
  for (VstInt32 index = -1; index < 8; ++index) effect.setParameter(index, 0.25F);
  EXPECT_EQ(effect.getParameterValue(0), 0.125F);
}

TEST_F(TrelvanParameters, TakeValuesOutsideTheirRangeAsGiven) {
  effect.setParameter(2, -3.0F);
  EXPECT_EQ(effect.getParameter(2), -3.0F);
  EXPECT_EQ(effect.preset(0).parameter(2), -3.0F);
}

TEST_F(TrelvanParameters, CanBeAutomatedFromZeroToFour) {
  for (VstInt32 index = 0; index < 5; ++index)
    EXPECT_TRUE(effect.canParameterBeAutomated(index)) << index;
  for (const VstInt32 index : {-1, 5, 6, 7})
    EXPECT_FALSE(effect.canParameterBeAutomated(index)) << index;
}

TEST_F(TrelvanParameters, AreTakenAsPlaceholdersOnlyBehindTheFive) {
  for (int index = 0; index < 5; ++index) {
    EXPECT_FALSE(effect.isDummy(index));
    EXPECT_FALSE(effect.isDummyOld(index));
  }
  EXPECT_TRUE(effect.isDummy(5));
  EXPECT_TRUE(effect.isDummyOld(5));
}

TEST_F(TrelvanParameters, HaveFloatStepsForTheSliders) {
  for (const VstInt32 index : {0, 1, 2}) {
    VstParameterProperties properties;
    ASSERT_TRUE(effect.getParameterProperties(index, &properties));
    EXPECT_EQ(properties.flags, 4);
    EXPECT_EQ(properties.stepFloat, 1.0F / 256.0F);
    EXPECT_EQ(properties.smallStepFloat, 1.0F / 1024.0F);
    EXPECT_EQ(properties.largeStepFloat, 1.0F / 64.0F);
  }
}

TEST_F(TrelvanParameters, HaveWholeStepsForTheSwitches) {
  for (const VstInt32 index : {3, 4}) {
    VstParameterProperties properties;
    ASSERT_TRUE(effect.getParameterProperties(index, &properties));
    EXPECT_EQ(properties.flags, 5);
    EXPECT_EQ(properties.stepFloat, 1.0F);
    EXPECT_EQ(properties.smallStepFloat, 1.0F);
    EXPECT_EQ(properties.largeStepFloat, 1.0F);
  }
}

TEST_F(TrelvanParameters, HaveTheirNameAsLabelAndSevenCharactersOfItAsShortLabel) {
  const char* const names[] = {"width", "baseFreq", "emphasis", "process", "phase"};
  const char* const shortNames[] = {"width", "baseFre", "emphasi", "process", "phase"};
  for (VstInt32 index = 0; index < 5; ++index) {
    VstParameterProperties properties;
    std::memset(&properties, 0x5A, sizeof properties);
    ASSERT_TRUE(effect.getParameterProperties(index, &properties));
    EXPECT_STREQ(properties.label, names[index]);
    EXPECT_STREQ(properties.shortLabel, shortNames[index]);
  }
}

TEST_F(TrelvanParameters, HaveNoPropertiesOutsideTheFive) {
  for (const VstInt32 index : {-1, 5, 6, 7}) {
    VstParameterProperties properties;
    std::memset(&properties, 0x5A, sizeof properties);
    VstParameterProperties before = properties;
    EXPECT_FALSE(effect.getParameterProperties(index, &properties)) << index;
    EXPECT_EQ(std::memcmp(&properties, &before, sizeof before), 0) << "nothing is filled";
  }
}

TEST(ParameterTable, HasAnInverseThatTurnsEachCurveBack) {
  for (const Parameter& parameter : kParameters) {
    const bool isSwitch = parameter.unit == Parameter::Unit::onOff;
    for (const float raw : {0.0F, 0.25F, 0.5F, 0.875F, 1.0F}) {
      const float expected = isSwitch ? (raw >= 0.5F ? 1.0F : 0.0F) : raw;
      const auto derived = static_cast<double>(parameter.derived(raw));
      EXPECT_NEAR(parameter.raw(derived), expected, 1e-6) << parameter.name << " at " << raw;
    }
  }
}

// Set and shown under each of them, as a host does that has never heard of it.
TEST_F(TrelvanParameters, HaveTheSameDisplaysUnderEveryRounding) {
  for (VstInt32 index = 0; index < kParameterCount; ++index) {
    for (int i = 0; i <= 1000; ++i) {
      const float value = static_cast<float>(i) / 1000.0F;
      const std::string expected = display(index, value);
      for (const int rounding : kRoundings) {
        const ScopedRounding hosts(rounding);
        EXPECT_EQ(display(index, value), expected) << index << " at " << value;
      }
    }
  }
  const ScopedRounding hosts(FE_DOWNWARD);
  EXPECT_EQ(display(0, 0.3F), "30.0");
}

}  // namespace
