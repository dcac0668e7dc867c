// One effect, driven as a careful host drives it.
#include "host/vst/effect.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <sstream>

#include "host/base/failure.h"
#include "host/vst/blockrunner.h"
#include "tests/host/foldertest.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

std::string pluginFile(const std::string& name) {
  return std::string(WIDEN_TEST_PLUGINS) + "/" + name + ".so";
}

class Effects : public FolderTest {
 protected:
  // What the recording plug-in wrote down.
  std::vector<std::string> log() const {
    std::istringstream lines(textOf(in("log")));
    std::vector<std::string> all;
    for (std::string line; std::getline(lines, line);) all.push_back(line);
    return all;
  }
  void startLog() const { setenv("WIDEN_TEST_LOG", in("log").c_str(), 1); }

  static std::string refusalOf(const std::string& plugin) {
    try {
      PluginModule module(pluginFile(plugin));
      HostCallback callback;
      const Effect effect(module, callback);
      effect.checkCanProcess(false);
    } catch (const Failure& failure) {
      return failure.what();
    }
    return "accepted";
  }
};

}  // namespace

TEST_F(Effects, AreCalledInTheOrderThatCarefulHostsKeep) {
  startLog();
  PluginModule module(pluginFile("recorder"));
  {
    HostCallback callback;
    Effect effect(module, callback);
    effect.setUp(48000, 256);
    effect.start(false);
    const auto runner = BlockRunner::make(effect, 256, false);
    std::vector<double> left(256);
    std::vector<double> right(256);
    runner->run(left.data(), right.data(), left.data(), right.data(), 256);
    runner->run(left.data(), right.data(), left.data(), right.data(), 17);
    effect.stop();
  }
  std::vector<std::string> calls;
  for (const std::string& line : log()) {
    if (!line.starts_with(' ')) calls.push_back(line);
  }
  EXPECT_THAT(
      calls,
      ElementsAre("main", "open", "setSampleRate 48000", "setBlockSize 256",
                  "setProcessPrecision 0", "mainsChanged 1", "startProcess",
                  "process 256 at 0 of 48000 aligned own buffers silent side chain level 4 single",
                  "process 17 at 256 of 48000 aligned own buffers silent side chain level 4 single",
                  "stopProcess", "mainsChanged 0", "close"));
}

TEST_F(Effects, LearnTheTruthFromTheHost) {
  startLog();
  PluginModule module(pluginFile("recorder"));
  HostCallback callback;
  Effect effect(module, callback);
  effect.setUp(48000, 256);
  effect.start(true);
  std::vector<std::string> answers;
  for (const std::string& line : log()) {
    if (line.starts_with(' ')) answers.push_back(line);
  }
  const std::string id = std::to_string(effect.record().uniqueID);
  EXPECT_THAT(
      answers,
      ElementsAre(" version 2400", " currentId 0", " sampleRate 0", " blockSize 0", " pins 00",
                  // while being made
                  " vendor 1 Orv", " product 1 widen", " level 1", " unknown 0", " version 2400",
                  " currentId " + id, " sampleRate 48000", " blockSize 256", " pins 00",
                  " vendor 1 Orv", " product 1 widen", " level 1", " unknown 0"));
}

TEST_F(Effects, ProcessInDoublePrecisionWhenTheyCan) {
  startLog();
  PluginModule module(pluginFile("recorder"));
  HostCallback callback;
  Effect effect(module, callback);
  effect.checkCanProcess(true);
  effect.setUp(44100, 8);
  effect.start(true);
  const auto runner = BlockRunner::make(effect, 8, true);
  std::vector<double> left(8, 1.0 / 3.0);  // no float holds it
  std::vector<double> right(8, -1.0 / 3.0);
  runner->run(left.data(), right.data(), left.data(), right.data(), 8);
  EXPECT_EQ(left[7], 1.0 / 3.0);
  EXPECT_EQ(right[7], -1.0 / 3.0);
  EXPECT_THAT(log().back(), HasSubstr("double"));
}

TEST_F(Effects, AreStoppedWhenTheyEndEarly) {
  startLog();
  PluginModule module(pluginFile("recorder"));
  {
    HostCallback callback;
    Effect effect(module, callback);
    effect.setUp(44100, 8);
    effect.start(false);
  }
  const auto calls = log();
  EXPECT_THAT(std::vector<std::string>(calls.end() - 3, calls.end()),
              ElementsAre("stopProcess", "mainsChanged 0", "close"));
}

TEST_F(Effects, AreRefusedWhenTheyAnswerNonsense) {
  EXPECT_THAT(refusalOf("nulleffect"), HasSubstr("nulleffect.so: no effect was made"));
  EXPECT_THAT(refusalOf("wrongmagic"), HasSubstr("not a VST effect"));
  EXPECT_THAT(refusalOf("noentry"), HasSubstr("exports neither VSTPluginMain nor main"));
  EXPECT_THAT(refusalOf("borrowedmain"), HasSubstr("exports neither VSTPluginMain nor main"));
  EXPECT_THAT(refusalOf("absurdchannels"), HasSubstr("1000000 outputs"));
  EXPECT_THAT(refusalOf("negativecounts"), HasSubstr("-3 parameters"));
  EXPECT_THAT(refusalOf("negativelatency"), HasSubstr("-64 frames of latency"));
  EXPECT_THAT(refusalOf("noreplacing"), HasSubstr("no processReplacing"));
  EXPECT_THAT(refusalOf("nooutput"), HasSubstr("gives no sound out"));
  EXPECT_THAT(refusalOf("noinput"), HasSubstr("takes no sound in"));
  EXPECT_EQ(refusalOf("latency"), "accepted");
  EXPECT_EQ(refusalOf("oldmain"), "accepted") << "with the entry point's older name";
}

TEST_F(Effects, CannotBeLoadedFromJustAnyFile) {
  writeText(in("text.so"), "no library");
  try {
    PluginModule module(in("text.so"));
    FAIL() << "loaded";
  } catch (const Failure& failure) {
    EXPECT_THAT(failure.what(), HasSubstr("text.so: cannot be loaded"));
  }
}

TEST_F(Effects, GiveNoChunkOfASizeThatCannotBe) {
  PluginModule module(pluginFile("badchunk"));
  HostCallback callback;
  Effect effect(module, callback);
  const std::array<std::pair<const char*, const char*>, 4> cases = {{{"negative", "-7 bytes"},
                                                                     {"huge", "which cannot be"},
                                                                     {"empty", "gives no state"},
                                                                     {"null", "gives no state"}}};
  for (const auto& [kind, text] : cases) {
    setenv("WIDEN_TEST_CHUNK", kind, 1);
    try {
      effect.chunk();
      FAIL() << kind;
    } catch (const Failure& failure) {
      EXPECT_THAT(failure.what(), HasSubstr(text)) << kind;
    }
  }
  setenv("WIDEN_TEST_CHUNK", "", 1);
  EXPECT_EQ(effect.chunk(), (Effect::Bytes{1, 2, 3, 4}));
  setenv("WIDEN_TEST_CHUNK", "refuses", 1);
  EXPECT_THROW(effect.setChunk(Effect::Bytes{1}), Failure);
}

TEST_F(Effects, WithoutChunksSaySo) {
  PluginModule module(pluginFile("programs"));
  HostCallback callback;
  Effect effect(module, callback);
  EXPECT_THROW(effect.chunk(), Failure);
  EXPECT_THROW(effect.setChunk(Effect::Bytes{1}), Failure);
}

TEST_F(Effects, TellTheirProgramsByIndexOrOneByOne) {
  PluginModule module(pluginFile("programs"));
  HostCallback callback;
  Effect effect(module, callback);
  EXPECT_THAT(effect.programNames(), ElementsAre("Plain", "Half", "Quiet"));
  effect.selectProgram(1);
  setenv("WIDEN_TEST_UNINDEXED", "1", 1);
  EXPECT_THAT(effect.programNames(), ElementsAre("Plain", "Half", "Quiet"));
  unsetenv("WIDEN_TEST_UNINDEXED");
  EXPECT_EQ(effect.dispatch(effGetProgram), 1) << "the program that was current is current again";
}

TEST_F(Effects, OfOneModuleLiveSideBySide) {
  PluginModule module(pluginFile("programs"));
  HostCallback first;
  HostCallback second;
  Effect a(module, first);
  Effect b(module, second);
  a.setParameter(0, 0.25F);
  EXPECT_EQ(b.parameter(0), 1.0F);
  EXPECT_EQ(a.parameter(0), 0.25F);
}
