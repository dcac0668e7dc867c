// The document of a run: that it is one, for whatever becomes of the files.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sndfile.h>
#include <unistd.h>

#include <filesystem>

#include "tests/host/documentfixture.h"
#include "tests/host/sounds.h"

namespace {

using testing::HasSubstr;

constexpr int kWav16 = SF_FORMAT_WAV | SF_FORMAT_PCM_16;

class RunDocuments : public DocumentTest {
 protected:
  static const std::vector<std::string>& wide() {
    static const std::vector<std::string> kOptions = {"--width", "80%", "--base-freq", "200Hz"};
    return kOptions;
  }
};

}  // namespace

TEST_F(RunDocuments, HaveTheStandardOutputForThemselves) {
  writeSound(in("a.wav"), noise(100, 1, 5), kWav16);
  writeSound(in("b.wav"), noise(100, 1, 6), kWav16);
  document({"a.wav", "b.wav", "-o", "out"});
  EXPECT_THAT(said, HasSubstr("a.wav: mono, 44100 Hz, 100 frames"));
  EXPECT_THAT(said, HasSubstr("2 files: 2 done\n"));
  document({"a.wav", "b.wav", "-o", "quiet", "-q"});
  EXPECT_EQ(said, "");
}

TEST_F(RunDocuments, SayWhatWasSkipped) {
  writeSound(in("a.wav"), noise(100, 1, 7), kWav16);
  writeText(in("there.wav"), "precious");
  const Json all = document({"a.wav", "-o", "there.wav", "--skip-existing"});
  EXPECT_EQ(all.at("files").at(0), Json({{"input", {{"file", "a.wav"}}},
                                         {"output", {{"file", "there.wav"}}},
                                         {"skipped", true}}));
  expectRefusal(widen({"a.wav", "-o", "b.wav", "--dry-run", "--json"}), 2, "leave --json out");
  EXPECT_EQ(all.at("summary"),
            Json({{"files", 1}, {"done", 0}, {"skipped", 1}, {"failed", 0}, {"warned", 0}}));
}

TEST_F(RunDocuments, AreNotSpoiltByAnEffectThatPrints) {
  writeSound(in("a.wav"), noise(100, 2, 13), kWav16);
  document({"a.wav", "-o", "b.wav", "--plugin", plugin("talks")});
  EXPECT_THAT(said, HasSubstr("asked "));
  document({"a.wav", "-o", "c.wav", "--plugin", plugin("talks"), "--isolate"});
  EXPECT_TRUE(document({"--info", "--plugin", plugin("talks")}).contains("effect"));
}

TEST_F(RunDocuments, HoldWhatFailedWithItsReason) {
  writeSound(in("a.wav"), noise(100, 1, 7), kWav16);
  const Json all = document({"missing.wav", "a.wav", "-o", "out"}, 1);
  ASSERT_EQ(all.at("files").size(), 2U);
  EXPECT_EQ(all.at("files").at(0),
            Json({{"input", {{"file", "missing.wav"}}}, {"error", "missing.wav: no such file"}}));
  EXPECT_EQ(all.at("files").at(1).at("input").at("file"), "a.wav");
  EXPECT_EQ(all.at("summary"),
            Json({{"files", 2}, {"done", 1}, {"skipped", 0}, {"failed", 1}, {"warned", 0}}));
  EXPECT_THAT(said, HasSubstr("widen: missing.wav: no such file\n"));
}

TEST_F(RunDocuments, AreNotThereForARunThatASignalEnded) {
  writeSound(in("a.wav"), noise(100, 2, 14), kWav16);
  writeSound(in("b.wav"), noise(100, 2, 15), kWav16);
  const std::filesystem::path started = root / "started";
  const int process =
      startProgram(folder, {"a.wav", "b.wav", "-o", "out", "--json", "--plugin", plugin("waits")},
                   {{{"WIDEN_TEST_FILE", started.string()}}});
  for (int i = 0; i < 1000 && !std::filesystem::exists(started); ++i) usleep(10000);
  kill(process, SIGTERM);
  const Outcome outcome = waitForProgram(process, folder);
  EXPECT_EQ(outcome.status, -SIGTERM);
  EXPECT_EQ(outcome.out, "");
}

TEST_F(RunDocuments, DoNotDependOnBlocksAndThreads) {
  std::vector<std::string> words;
  for (const char* name : {"a.wav", "b.wav", "c.wav"}) {
    writeSound(in(name), noise(40000, 2, static_cast<unsigned>(name[0])), kWav16);
    words.emplace_back(name);
  }
  words.insert(words.end(), {"-o", "out", "--force"});
  words.insert(words.end(), wide().begin(), wide().end());
  const Json whole = document(words);
  for (const std::vector<std::string>& others :
       std::vector<std::vector<std::string>>{{"--block", "1"},
                                             {"--block", "777", "-j", "3"},
                                             {"--isolate", "-j", "2"},
                                             {"--block", "100000"}}) {
    std::vector<std::string> all = words;
    all.insert(all.end(), others.begin(), others.end());
    EXPECT_EQ(document(all), whole);
  }
}

TEST_F(RunDocuments, LeaveTheSoundAsItIs) {
  writeSound(in("in.wav"), noise(20000, 2, 8), kWav16);
  std::vector<std::string> words = {"in.wav", "-o", "plain.wav"};
  words.insert(words.end(), wide().begin(), wide().end());
  EXPECT_EQ(widen(words).status, 0);
  words[2] = "told.wav";
  document(words);
  EXPECT_EQ(textOf(in("told.wav")), textOf(in("plain.wav")));
}

TEST_F(RunDocuments, AreSaidToBeLostWhereTheyAre) {
  if (!std::filesystem::exists("/dev/full")) GTEST_SKIP() << "needs the device that is always full";
  writeSound(in("in.wav"), noise(100, 1, 10), kWav16);
  Surroundings full;
  full.standardOutput = "/dev/full";
  expectRefusal(widen({"in.wav", "-o", "out.wav", "--json", "-q"}, full), 1,
                "the standard output cannot be written");
  Surroundings closed;
  closed.standardOutput = "closed";
  expectRefusal(widen({"--list-presets", "--json"}, closed), 1,
                "the standard output cannot be written");
}

TEST_F(RunDocuments, ShareTheStandardOutputWithNoSound) {
  writeSound(in("in.wav"), noise(100, 1, 11), kWav16);
  expectRefusal(widen({"in.wav", "-o", "-", "--json"}), 2, "both want the standard output");
}
