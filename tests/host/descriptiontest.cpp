// What an effect says of itself.
#include "host/state/description.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>

#include "host/cli/effectinfo.h"
#include "host/vst/pluginpath.h"
#include "tests/host/foldertest.h"

namespace {

using testing::HasSubstr;

class Descriptions : public FolderTest {
 protected:
  Descriptions() { useOwnPreferences(); }

  struct Live {
    explicit Live(const std::filesystem::path& plugin)
        : module(pluginBinary(plugin)), effect(module, callback) {
      effect.setUp(44100, 64);
    }
    PluginModule module;
    HostCallback callback;
    Effect effect;
  };
  static std::string pluginFile(const std::string& name) {
    return std::string(WIDEN_TEST_PLUGINS) + "/" + name + ".so";
  }
};

}  // namespace

TEST_F(Descriptions, TellEverythingOfTrelvan) {
  Live trelvan(WIDEN_TRELVAN);
  const std::string text = describeEffect(trelvan.effect);
  for (const char* part :
       {"Orv Trelvan", "Orv Trelvan - Trelvan processor", "1990", "2400", "'Tlvn'", "'NvEf'",
        "mastering", "has editor", "can replacing", "program chunks", "can double replacing",
        "1 (current 0, \"init\")", "My 1 In", "My 2 Out", "10545 bytes", "2in2out", "offline"}) {
    EXPECT_THAT(text, HasSubstr(part));
  }
}

// A line of 16384 frames is 16383 late at most, and 20 Hz, the lowest base frequency, has a period
// of these at 327,660 Hz (`Impulse` of the effect's tests shows it).
TEST_F(Descriptions, TellUpToWhichSampleRateTrelvansDelayIsAWholePeriod) {
  Live trelvan(WIDEN_TRELVAN);
  EXPECT_THAT(describeEffect(trelvan.effect),
              HasSubstr("up to 327660 Hz; above, base frequencies below RATE/16383 Hz are delayed "
                        "by 16384 frames less than a period, or twice that\n"));
  Live quiet(pluginFile("echo"));
  EXPECT_THAT(describeEffect(quiet.effect), testing::Not(HasSubstr("sample rates")));
}

TEST_F(Descriptions, ListTrelvansParameters) {
  Live trelvan(WIDEN_TRELVAN);
  const std::string text = describeParameters(trelvan.effect);
  for (const char* part : {"width", "baseFreq  0.500000  265.0 Hz", "emphasis",
                           "process   1.000000  On", "switch", "automatable"}) {
    EXPECT_THAT(text, HasSubstr(part));
  }
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 5);
}

TEST_F(Descriptions, ListPresetsAndMarkTheCurrentOne) {
  Live trelvan(WIDEN_TRELVAN);
  const std::string text = describePresets(trelvan.effect);
  EXPECT_THAT(text, HasSubstr("*  0  init\n   1  mix 1\n"));
  EXPECT_THAT(text, HasSubstr("  23  over heads 2\n"));
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 32);
}

TEST_F(Descriptions, SummariseValuesAndPreset) {
  Live trelvan(WIDEN_TRELVAN);
  EXPECT_EQ(describeValues(trelvan.effect),
            "width 0.0 %, baseFreq 265.0 Hz, emphasis 0.0 %, process On, phase Off");
  EXPECT_EQ(describeCurrentPreset(trelvan.effect), "preset 0 \"init\"");
}

// "displays" gives its level's unit with the value and once more by itself.
TEST_F(Descriptions, SayAUnitOnce) {
  Live live(pluginFile("displays"));
  EXPECT_THAT(describeParameters(live.effect), HasSubstr("  -15.000 dB\n"));
  EXPECT_THAT(describeValues(live.effect), HasSubstr("Level -15.000 dB, "));
}

TEST_F(Descriptions, ManageWithEffectsThatSayNothing) {
  Live quiet(pluginFile("echo"));
  EXPECT_THAT(describeEffect(quiet.effect), HasSubstr("nothing that was asked"));
  EXPECT_EQ(describeParameters(quiet.effect), "no parameters\n");
  EXPECT_EQ(describePresets(quiet.effect), "no presets\n");
  EXPECT_EQ(describeValues(quiet.effect), "");
  EXPECT_EQ(describeCurrentPreset(quiet.effect), "");
}

TEST_F(Descriptions, ListTheProgramsOfOtherEffects) {
  Live other(pluginFile("programs"));
  other.effect.selectProgram(1);
  EXPECT_EQ(describePresets(other.effect), "   0  Plain\n*  1  Half\n   2  Quiet\n");
  EXPECT_EQ(describeCurrentPreset(other.effect), "preset 1 \"Half\"");
  EXPECT_EQ(describeValues(other.effect), "Gain 0.500, Balance 1.000");
}
