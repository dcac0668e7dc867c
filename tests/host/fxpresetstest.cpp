// Preset and bank files of the interface, with effects that keep values, chunks, and with Trelvan.
#include "host/state/fxpresets.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>

#include "host/base/failure.h"
#include "host/base/wholefile.h"
#include "host/state/effectstate.h"
#include "host/state/fxfile.h"
#include "host/state/statefiles.h"
#include "host/vst/pluginpath.h"
#include "tests/host/foldertest.h"
#include "tests/support/imageblocks.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class FxPresets : public FolderTest {
 protected:
  FxPresets() { useOwnPreferences(); }
  ~FxPresets() override { unsetenv("WIDEN_TEST_CHUNKS"); }

  struct Live {
    explicit Live(const std::string& plugin)
        : module(pluginBinary(plugin)), effect(module, callback) {
      effect.setUp(44100, 64);
    }
    PluginModule module;
    HostCallback callback;
    Effect effect;

    std::vector<float> values() {
      std::vector<float> all;
      for (int i = 0; i < effect.parameterCount(); ++i) all.push_back(effect.parameter(i));
      return all;
    }
    // Of all programs, one after the other.
    std::vector<float> bank() {
      std::vector<float> all;
      const auto current = static_cast<int>(effect.dispatch(effGetProgram));
      for (int program = 0; program < effect.record().numPrograms; ++program) {
        effect.selectProgram(program);
        for (const float value : values()) all.push_back(value);
      }
      effect.selectProgram(current);
      return all;
    }
    void set(int program, std::vector<float> to) {
      effect.selectProgram(program);
      for (std::size_t i = 0; i < to.size(); ++i) effect.setParameter(static_cast<int>(i), to[i]);
    }
  };

  static std::string plugin(const std::string& name) {
    return std::string(WIDEN_TEST_PLUGINS) + "/" + name + ".so";
  }
  std::string path(const std::string& name) const { return in(name).string(); }

  void save(Live& live, const std::string& preset, const std::string& bank) const {
    StateFiles files;
    if (!preset.empty()) files.preset = path(preset);
    if (!bank.empty()) files.bank = path(bank);
    writeStateFiles(live.effect, files, false);
  }
  StateArguments preset(const std::string& name) const {
    StateArguments arguments;
    arguments.preset = path(name);
    return arguments;
  }
  StateArguments bank(const std::string& name) const {
    StateArguments arguments;
    arguments.bank = path(name);
    return arguments;
  }
  static std::string refusalOf(Live& live, const StateArguments& arguments) {
    const auto before = live.bank();
    try {
      applyState(live.effect, arguments);
    } catch (const Failure& failure) {
      EXPECT_EQ(live.bank(), before) << failure.what();
      return failure.what();
    }
    return "accepted";
  }
};

}  // namespace

TEST_F(FxPresets, GoIntoTheCurrentProgram) {
  for (const bool chunks : {false, true}) {
    if (chunks) setenv("WIDEN_TEST_CHUNKS", "1", 1);
    Live first(plugin("bank"));
    first.set(1, {0.0625F, 1.0F});
    first.effect.nameProgram("Mine");
    const std::string name = chunks ? "c.fxp" : "v.fxp";
    save(first, name, "");
    EXPECT_EQ(FxFile::read(readWholeFile(in(name)), name).programs[0].chunk.has_value(), chunks);
    EXPECT_EQ(FxFile::read(readWholeFile(in(name)), name).effectVersion, 1234);
    Live second(plugin("bank"));
    second.effect.selectProgram(2);
    applyState(second.effect, preset(name));
    EXPECT_EQ(second.effect.dispatch(effGetProgram), 2);
    EXPECT_THAT(second.bank(), ElementsAre(0.125F, 0.25F, 0.375F, 0.5F, 0.0625F, 1.0F)) << chunks;
    EXPECT_EQ(second.effect.text(effGetProgramName), chunks ? "Three" : "Mine");
  }
}

TEST_F(FxPresets, OfABankRestoreEveryProgramAndTheCurrentOne) {
  for (const bool chunks : {false, true}) {
    if (chunks) setenv("WIDEN_TEST_CHUNKS", "1", 1);
    Live first(plugin("bank"));
    first.set(2, {0.875F, 0.0F});
    first.effect.nameProgram("Mine");
    first.set(1, {1.0F, 0.5F});
    const std::string name = chunks ? "c.fxb" : "v.fxb";
    save(first, "", name);
    EXPECT_EQ(first.effect.dispatch(effGetProgram), 1) << "as it was";
    EXPECT_EQ(FxFile::read(readWholeFile(in(name)), name).chunk.has_value(), chunks);
    Live second(plugin("bank"));
    applyState(second.effect, bank(name));
    EXPECT_THAT(second.bank(), ElementsAre(0.125F, 0.25F, 1.0F, 0.5F, 0.875F, 0.0F)) << chunks;
    EXPECT_EQ(second.effect.dispatch(effGetProgram), 1);
    second.effect.selectProgram(2);
    EXPECT_EQ(second.effect.text(effGetProgramName), chunks ? "Three" : "Mine");
  }
}

// "programs" forgets its values when a program is selected.
TEST_F(FxPresets, AreSavedWithoutAChangeOfWhatIsHeard) {
  Live live(plugin("programs"));
  live.effect.selectProgram(1);
  live.effect.setParameter(0, 0.3125F);
  save(live, "", "b.fxb");
  EXPECT_EQ(live.effect.dispatch(effGetProgram), 1);
  EXPECT_EQ(live.effect.parameter(0), 0.3125F);
  const FxFile read = FxFile::read(readWholeFile(in("b.fxb")), "b.fxb");
  EXPECT_EQ(read.programs.at(0).values[0], 1.0F);
  EXPECT_EQ(read.programs.at(1).values[0], 0.3125F) << "what is heard, not what is selected anew";
  EXPECT_EQ(read.programs.at(2).values[0], 0.125F);
}

TEST_F(FxPresets, OfABankAreHeardAsTheyWereSaved) {
  Live live(plugin("programs"));
  live.effect.selectProgram(1);
  live.effect.setParameter(0, 0.3125F);
  save(live, "", "b.fxb");
  Live other(plugin("programs"));
  applyState(other.effect, bank("b.fxb"));
  EXPECT_EQ(other.effect.dispatch(effGetProgram), 1);
  EXPECT_EQ(other.effect.parameter(0), 0.3125F) << "not what it forgot it for";
}

TEST_F(FxPresets, AreRefusedWhereTheyCannotBeTaken) {
  Live live(plugin("bank"));
  Live other(plugin("programs"));
  save(other, "other.fxp", "other.fxb");
  EXPECT_THAT(refusalOf(live, preset("other.fxp")), HasSubstr("was saved from another effect"));
  EXPECT_THAT(refusalOf(live, bank("other.fxb")), HasSubstr("was saved from another effect"));
  save(live, "own.fxp", "own.fxb");
  EXPECT_THAT(refusalOf(live, bank("own.fxp")), HasSubstr("holds a single preset (use --preset)"));
  EXPECT_THAT(refusalOf(live, preset("own.fxb")), HasSubstr("holds a bank (use --bank)"));
  EXPECT_THAT(refusalOf(live, preset("none.fxp")), HasSubstr("no such file"));

  FxFile file = FxFile::read(readWholeFile(in("own.fxb")), "");
  file.programs.push_back(file.programs[0]);
  writeWholeFile(in("four.fxb"), file.bytes(), false);
  EXPECT_THAT(refusalOf(live, bank("four.fxb")), HasSubstr("holds 4 programs, and bank.so has 3"));
  file.programs.resize(3);
  file.programs[2].values.assign(3, 0.0F);
  writeWholeFile(in("wide.fxb"), file.bytes(), false);
  EXPECT_THAT(refusalOf(live, bank("wide.fxb")),
              HasSubstr("holds 3 parameters, and bank.so has 2"));
  file.kind = FxFile::Kind::program;
  file.programs[0].chunk = FxChunk{{1, 2, 3}, 2};
  writeWholeFile(in("chunk.fxp"), file.bytes(), false);
  EXPECT_THAT(refusalOf(live, preset("chunk.fxp")), HasSubstr("holds a chunk"));
  setenv("WIDEN_TEST_CHUNKS", "1", 1);
  Live chunks(plugin("bank"));
  EXPECT_THAT(refusalOf(chunks, preset("chunk.fxp")), HasSubstr("refuses the state"));
}

TEST_F(FxPresets, OfAnOlderVersionLeaveTheParametersThatItHadNot) {
  Live live(plugin("bank"));
  save(live, "p.fxp", "");
  FxFile file = FxFile::read(readWholeFile(in("p.fxp")), "");
  file.programs[0].values = {1.0F};
  writeWholeFile(in("old.fxp"), file.bytes(), false);
  applyState(live.effect, preset("old.fxp"));
  EXPECT_THAT(live.values(), ElementsAre(1.0F, 0.25F));
}

TEST_F(FxPresets, CarryTrelvansWholeState) {
  Live first(WIDEN_TRELVAN);
  StateArguments arguments;
  arguments.preset = "guitar 3";
  arguments.values[0] = 0.375F;
  applyState(first.effect, arguments);
  save(first, "t.fxp", "t.fxb");
  for (const StateArguments& restored : {preset("t.fxp"), bank("t.fxb")}) {
    Live second(WIDEN_TRELVAN);
    applyState(second.effect, restored);
    EXPECT_EQ(second.effect.chunk(), first.effect.chunk());
  }
  FxFile file = FxFile::read(readWholeFile(in("t.fxp")), "");
  file.programs[0].chunk->bytes.resize(2000);
  writeWholeFile(in("cut.fxp"), file.bytes(), false);
  EXPECT_THAT(refusalOf(first, preset("cut.fxp")), HasSubstr("cut.fxp: is cut short"));
}

TEST_F(FxPresets, OfTrelvansOwnKindAreWhatThePluginSaves) {
  Live live(WIDEN_TRELVAN);
  StateArguments arguments;
  arguments.preset = "guitar 3";
  arguments.values[0] = 0.375F;
  applyState(live.effect, arguments);
  save(live, "p.ORV", "b.orb");
  ACombProgram record;  // "guitar 3" is 1, 0.44, 0.5, on, off
  record.rename("guitar 3");
  const float values[] = {0.375F, 0.44F, 0.5F, 1.0F, 0.0F};
  for (int index = 0; index < 5; ++index) record.setParameter(index, values[index]);
  const auto id = live.effect.record().uniqueID;
  EXPECT_EQ(readWholeFile(in("p.ORV")), presetimage::writePreset(record, id, {}));
  // The chunk is a tag, the ID and the bank as it is saved.
  const Effect::Bytes chunk = live.effect.chunk();
  EXPECT_EQ(readWholeFile(in("b.orb")), Effect::Bytes(chunk.begin() + 8, chunk.end()));
}

TEST_F(FxPresets, OfTrelvansOwnKindAreNotWrittenForOthers) {
  Live live(plugin("bank"));
  EXPECT_THROW(save(live, "p.orv", ""), Failure);
  EXPECT_THROW(save(live, "p.fxp", "b.orb"), Failure);
  Live empty(plugin("latency"));  // neither parameters nor programs
  EXPECT_THROW(save(empty, "p.fxp", ""), Failure);
  EXPECT_THAT(names(), ElementsAre()) << "none is left of several either";
}
