// Puts an effect into the state that the command line asks for: with Trelvan, and with an effect
// that keeps programs.
#include "host/state/effectstate.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>

#include "host/base/failure.h"
#include "host/base/wholefile.h"
#include "host/state/trelvanbank.h"
#include "host/vst/pluginpath.h"
#include "tests/host/foldertest.h"
#include "tests/support/imageblocks.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

std::string pluginFile(const std::string& name) {
  return std::string(WIDEN_TEST_PLUGINS) + "/" + name + ".so";
}

class EffectStates : public FolderTest {
 protected:
  EffectStates() { useOwnPreferences(); }

  // An effect with all that it needs.
  struct Live {
    explicit Live(const std::filesystem::path& plugin)
        : module(pluginBinary(plugin)), effect(module, callback) {
      effect.setUp(44100, 64);
    }
    PluginModule module;
    HostCallback callback;
    Effect effect;

    std::vector<float> values() {
      std::vector<float> all;
      all.reserve(static_cast<std::size_t>(effect.parameterCount()));
      for (int i = 0; i < effect.parameterCount(); ++i) all.push_back(effect.parameter(i));
      return all;
    }
    std::string refusalOf(const StateArguments& arguments) {
      try {
        applyState(effect, arguments);
      } catch (const Failure& failure) {
        return failure.what();
      }
      return "accepted";
    }
  };

  static StateArguments preset(const std::string& name) {
    StateArguments arguments;
    arguments.preset = name;
    return arguments;
  }
  static StateArguments setting(const std::string& parameter, const std::string& value) {
    StateArguments arguments;
    arguments.settings = {{parameter, value}};
    return arguments;
  }
};

}  // namespace

TEST_F(EffectStates, SelectTrelvansPresetsByNameAndNumber) {
  Live trelvan(WIDEN_TRELVAN);
  EXPECT_EQ(presetsOf(trelvan.effect).names.size(), 32U);
  EXPECT_EQ(presetsOf(trelvan.effect).current, 0);
  applyState(trelvan.effect, preset("guitar 3"));
  EXPECT_THAT(trelvan.values(), ElementsAre(1.0F, 0.44F, 0.5F, 1.0F, 0.0F));
  EXPECT_EQ(presetsOf(trelvan.effect).current, 14);
  applyState(trelvan.effect, preset("23"));
  EXPECT_THAT(trelvan.values(), ElementsAre(0.9F, 0.38F, 0.6F, 1.0F, 0.0F));
  EXPECT_THAT(trelvan.refusalOf(preset("guitar 9")), HasSubstr("did you mean \"guitar 1\""));
  EXPECT_THAT(trelvan.refusalOf(preset("32")), HasSubstr("0 to 31"));
}

TEST_F(EffectStates, PutValuesOnTopOfThePreset) {
  Live trelvan(WIDEN_TRELVAN);
  StateArguments arguments = preset("guitar 3");
  arguments.values[1] = 0.5F;
  arguments.values[4] = 1.0F;
  arguments.settings = {{"emphasis", "25%"}};
  applyState(trelvan.effect, arguments);
  EXPECT_THAT(trelvan.values(), ElementsAre(1.0F, 0.5F, 0.25F, 1.0F, 1.0F));
}

TEST_F(EffectStates, UnderstandUnitsInSettingsOfTrelvan) {
  Live trelvan(WIDEN_TRELVAN);
  StateArguments arguments;
  arguments.settings = {
      {"width", "30%"}, {"baseFreq", "265Hz"}, {"2", "0.125"}, {"PROCESS", "off"}, {"phase", "on"}};
  applyState(trelvan.effect, arguments);
  EXPECT_THAT(trelvan.values(), ElementsAre(0.3F, 0.5F, 0.125F, 0.0F, 1.0F));
  EXPECT_THAT(trelvan.refusalOf(setting("width", "130%")), HasSubstr("--set width"));
  EXPECT_THAT(trelvan.refusalOf(setting("widht", "0.5")), HasSubstr("did you mean \"width\""));
  EXPECT_THAT(trelvan.refusalOf(setting("5", "0.5")), HasSubstr("0 to 4"));
}

TEST_F(EffectStates, LoadPresetAndBankFiles) {
  Live trelvan(WIDEN_TRELVAN);
  presetimage::Bank bank;
  bank[0].width = 0.25F;
  bank[3].width = 0.375F;
  std::snprintf(bank[3].name, sizeof bank[3].name, "third");
  presetimage::InvalidParameters none;
  const auto id = trelvan.effect.record().uniqueID;
  writeWholeFile(in("b.orb"), presetimage::writeBank(bank, id, 9, {}, none), false);
  StateArguments arguments;
  arguments.bank = in("b.orb").string();
  EXPECT_THAT(applyState(trelvan.effect, arguments), IsEmpty());
  EXPECT_EQ(trelvan.effect.parameter(0), 0.25F) << "a bank starts at its first preset";
  arguments.preset = "third";
  applyState(trelvan.effect, arguments);
  EXPECT_EQ(trelvan.effect.parameter(0), 0.375F)
      << "names are looked up in the bank that was loaded";

  ACombProgram single;
  single.width = 0.8125F;
  writeWholeFile(in("p.ORV"), presetimage::writePreset(single, id, {}), false);
  applyState(trelvan.effect, preset(in("p.ORV").string()));
  EXPECT_EQ(trelvan.effect.parameter(0), 0.8125F);
  EXPECT_THAT(trelvan.refusalOf(preset(in("missing.orv").string())), HasSubstr("no such file"));
}

TEST_F(EffectStates, NoteWhatABankFileHeldOutOfRange) {
  Live trelvan(WIDEN_TRELVAN);
  presetimage::InvalidParameters none;
  auto file = presetimage::writeBank({}, trelvan.effect.record().uniqueID, 0, {}, none);
  const float wrong = -2.0F;
  std::memcpy(&file[41 + 168 + 24], &wrong, sizeof wrong);  // preset 0, parameter 0
  writeWholeFile(in("b.orb"), file, false);
  StateArguments arguments;
  arguments.bank = in("b.orb").string();
  EXPECT_THAT(applyState(trelvan.effect, arguments),
              ElementsAre(HasSubstr("b.orb: parameter 0 of preset 0")));
}

TEST_F(EffectStates, SaveAndRestoreTheWholeState) {
  Live first(WIDEN_TRELVAN);
  StateArguments arguments = preset("bas 2");
  arguments.values[0] = 0.375F;
  applyState(first.effect, arguments);
  writeWholeFile(in("s"), first.effect.chunk(), false);
  Live second(WIDEN_TRELVAN);
  StateArguments restored;
  restored.state = in("s").string();
  applyState(second.effect, restored);
  EXPECT_EQ(second.values(), first.values());
  EXPECT_EQ(presetsOf(second.effect).current, 16);
  EXPECT_EQ(second.effect.chunk(), first.effect.chunk());
}

TEST_F(EffectStates, RefuseAStateThatIsNotTrelvans) {
  Live trelvan(WIDEN_TRELVAN);
  writeText(in("s"), "something else altogether");
  StateArguments arguments;
  arguments.state = in("s").string();
  EXPECT_THAT(trelvan.refusalOf(arguments), HasSubstr("another plug-in's"));
}

TEST_F(EffectStates, SelectProgramsOfOtherEffects) {
  Live other(pluginFile("programs"));
  applyState(other.effect, preset("Half"));
  EXPECT_EQ(other.effect.parameter(0), 0.5F);
  applyState(other.effect, preset("2"));
  EXPECT_EQ(other.effect.parameter(0), 0.125F);
  EXPECT_THAT(other.refusalOf(preset("Hafl")), HasSubstr("did you mean \"Half\""));
  EXPECT_THAT(other.refusalOf(preset("3")), HasSubstr("0 to 2"));
  EXPECT_THAT(other.refusalOf(preset("x.orv")), HasSubstr("takes no preset files"));
}

TEST_F(EffectStates, SetParametersOfOtherEffects) {
  Live other(pluginFile("programs"));
  StateArguments arguments;
  arguments.settings = {{"balance", "25%"}, {"0", "0.75"}};
  applyState(other.effect, arguments);
  EXPECT_THAT(other.values(), ElementsAre(0.75F, 0.25F));
  applyState(other.effect, setting("Gain", "quarter"));
  EXPECT_EQ(other.effect.parameter(0), 0.25F) << "in the effect's own words";
  EXPECT_THAT(other.refusalOf(setting("Gain", "loud")), HasSubstr("does not understand"));
  EXPECT_THAT(other.refusalOf(setting("Gian", "1")), HasSubstr("did you mean \"Gain\""));
}

TEST_F(EffectStates, RefuseTrelvansOwnOptionsForOtherEffects) {
  Live other(pluginFile("programs"));
  StateArguments values;
  values.values[0] = 0.5F;
  EXPECT_THAT(other.refusalOf(values), HasSubstr("--set NAME=VALUE"));
  StateArguments bank;
  bank.bank = "x.orb";
  EXPECT_THAT(other.refusalOf(bank), HasSubstr("--bank"));
  StateArguments state;
  writeText(in("s"), "x");
  state.state = in("s").string();
  EXPECT_THAT(other.refusalOf(state), HasSubstr("keeps no state"));
}

TEST_F(EffectStates, LeaveAnEffectWithoutParametersAlone) {
  Live other(pluginFile("latency"));
  EXPECT_THAT(other.refusalOf(setting("0", "1")), HasSubstr("has no parameters"));
  EXPECT_THAT(other.refusalOf(preset("0")), HasSubstr("has no presets"));
}
