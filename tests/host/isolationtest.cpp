// Effects in processes of their own.
#include "host/cli/isolation.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sndfile.h>
#include <unistd.h>

#include <algorithm>
#include <map>

#include "tests/host/program.h"
#include "tests/host/sounds.h"
#include "tests/support/sanitized.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr int kFloatWav = SF_FORMAT_WAV | SF_FORMAT_FLOAT;

class Isolation : public ProgramTest {
 protected:
  // The one in the middle breaks the effect.
  Isolation() {
    for (const auto& [name, rate] :
         {std::pair{"a.wav", 44100}, {"b.wav", 22050}, {"c.wav", 44100}, {"d.wav", 48000}}) {
      Sound sound = noise(20000, 2, static_cast<unsigned>(name[0]));
      sound.rate = rate;
      writeSound(in(name), sound, kFloatWav);
    }
  }

  Outcome all(const std::vector<std::string>& more, const Surroundings& surroundings = {}) {
    std::vector<std::string> words = {"a.wav", "b.wav", "c.wav", "d.wav", "-o", "out"};
    words.insert(words.end(), more.begin(), more.end());
    return widen(words, surroundings);
  }

  std::vector<std::string> results() const {
    std::vector<std::string> all;
    for (const auto& entry : std::filesystem::directory_iterator(in("out")))
      all.push_back(entry.path().filename().string());
    std::sort(all.begin(), all.end());
    return all;
  }
};

}  // namespace

TEST_F(Isolation, IsNotToBeSeenInTheResults) {
  std::map<std::string, std::string> alone;
  for (const char* name : {"a.wav", "c.wav", "d.wav"}) {
    ASSERT_EQ(
        widen({name, "-o", "out.wav", "-f", "--isolate", "--plugin", plugin("brittle")}).status, 0);
    alone[name] = textOf(in("out.wav"));
  }
  std::filesystem::remove(in("b.wav"));
  for (const char* jobs : {"1", "3"}) {
    const Outcome outcome = widen(
        {"a.wav", "c.wav", "d.wav", "-o", "out", "-f", "-j", jobs, "--plugin", plugin("brittle")});
    EXPECT_EQ(outcome.status, 0) << outcome.error;
    for (const auto& [name, bytes] : alone) EXPECT_EQ(textOf(in("out") / name), bytes) << name;
  }
  widen({"a.wav", "c.wav", "d.wav", "-o", "out", "-f", "--no-isolate", "--plugin",
         plugin("brittle")});
  EXPECT_NE(textOf(in("out/d.wav")), alone["d.wav"]) << "that effect's instances share something";
}

TEST_F(Isolation, GivesTrelvansResultsToTheBit) {
  ASSERT_EQ(all({"--preset", "room 1", "--tail", "auto", "--no-isolate"}).status, 0);
  std::map<std::string, std::string> expected;
  for (const std::string& name : results()) expected[name] = textOf(in("out") / name);
  ASSERT_EQ(expected.size(), 4U);
  const Outcome isolated =
      all({"--preset", "room 1", "--tail", "auto", "--isolate", "-j", "2", "-f"});
  EXPECT_EQ(isolated.status, 0) << isolated.error;
  for (const auto& [name, bytes] : expected) EXPECT_EQ(textOf(in("out") / name), bytes) << name;
}

TEST_F(Isolation, MakesOneFilesCrashOneFailedFile) {
#ifdef TRELVAN_SANITIZED
  GTEST_SKIP() << "the sanitizer handles crashes itself";
#endif
  const std::pair<const char*, const char*> kinds[] = {
      {"fault", "crashed (Segmentation fault)"},
      {"abort", "crashed (Aborted)"},
      {"exit", "exited (status 1)"},
      {"killed", "was ended (Killed)"},
  };
  for (const auto& [how, text] : kinds) {
    for (const char* jobs : {"1", "4"}) {
      const Outcome outcome = all({"--plugin", plugin("brittle"), "-j", jobs, "--plot", "out"},
                                  {{{"WIDEN_TEST_END", how}}});
      EXPECT_EQ(outcome.status, 1) << how;
      EXPECT_EQ(outcome.error, std::string("widen: b.wav: the effect's process ") + text + "\n");
      const std::size_t b = outcome.out.find("c.wav: ");
      EXPECT_LT(outcome.out.find("a.wav: "), b) << "in the order of the inputs";
      EXPECT_LT(b, outcome.out.find("d.wav: "));
      EXPECT_THAT(results(), ElementsAre("a.png", "a.wav", "c.png", "c.wav", "d.png", "d.wav"))
          << how << ": nothing half-written is left";
      std::filesystem::remove_all(in("out"));
    }
  }
}

TEST_F(Isolation, EndsWhereItsCallerWaitsForNoProcess) {
  signal(SIGCHLD, SIG_IGN);  // which a program inherits
  const int process =
      startProgram(folder, {"a.wav", "c.wav", "-o", "out", "-q", "--plugin", plugin("echo")});
  signal(SIGCHLD, SIG_DFL);
  const Outcome outcome = waitForProgram(process, folder);
  EXPECT_EQ(outcome.status, 0) << outcome.error;
  EXPECT_THAT(results(), ElementsAre("a.wav", "c.wav"));
}

TEST_F(Isolation, WaitsForRoomWhereTheSystemTakesNoMoreProcesses) {
#ifdef TRELVAN_SANITIZED
  GTEST_SKIP() << "the sanitizer wants descriptors itself";
#endif
  Surroundings narrow;
  narrow.openFilesLimit = 20;
  std::vector<std::string> words = {"-o", "out", "-q", "-j", "30", "--plugin", plugin("echo")};
  for (int file = 0; file < 30; ++file) {
    words.push_back(std::to_string(file) + ".wav");
    std::filesystem::create_symlink("a.wav", in(words.back()));
  }
  const Outcome outcome = widen(words, narrow);
  EXPECT_EQ(outcome.status, 0) << outcome.error;
  EXPECT_EQ(results().size(), 30U);
}

TEST_F(Isolation, IsTheDefaultForSeveralFilesAndForeignEffects) {
#ifdef TRELVAN_SANITIZED
  GTEST_SKIP() << "the sanitizer handles crashes itself";
#endif
  const std::vector<std::string> words = {"b.wav", "-o", "out.wav", "--plugin", plugin("brittle")};
  EXPECT_EQ(widen(words).status, -SIGSEGV) << "one file has nobody to spare";
  auto isolated = words;
  isolated.emplace_back("--isolate");
  expectRefusal(widen(isolated), 1, "b.wav: the effect's process crashed (Segmentation fault)");
  EXPECT_EQ(all({"--plugin", plugin("brittle"), "--no-isolate"}).status, -SIGSEGV);
  EXPECT_EQ(all({"--plugin", plugin("brittle")}).status, 1);
}

TEST_F(Isolation, SaysOnceWhatIsWrongWithTheEffectOrItsState) {
  expectRefusal(all({"--isolate", "--preset", "nonsense"}), 1, "no preset \"nonsense\"");
  expectRefusal(all({"--plugin", plugin("nulleffect")}), 1, "no effect was made");
  expectRefusal(all({"--isolate", "--set", "width=2"}), 2, "--set width");
  EXPECT_FALSE(std::filesystem::exists(in("out")));
}

TEST_F(Isolation, SavesTheStateThatResults) {
  ASSERT_EQ(all({"--preset", "3", "--save-state", "one"}).status, 0);
  ASSERT_EQ(all({"--preset", "3", "--save-state", "two", "--isolate", "-f"}).status, 0);
  EXPECT_EQ(textOf(in("two")), textOf(in("one")));
  EXPECT_FALSE(textOf(in("one")).empty());
}

TEST_F(Isolation, LeavesNothingOfAnInterruptedRun) {
  const std::filesystem::path started = root / "started";
  for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
    std::filesystem::remove(started);
    const int process = startProgram(
        folder, {"a.wav", "c.wav", "-o", "out", "-j", "2", "--json", "--plugin", plugin("waits")},
        {{{"WIDEN_TEST_FILE", started.string()}}});
    for (int i = 0; i < 1000 && !std::filesystem::exists(started); ++i) usleep(10000);
    EXPECT_TRUE(std::filesystem::exists(in("out")));
    kill(process, number);
    const Outcome outcome = waitForProgram(process, folder);
    EXPECT_EQ(outcome.status, -number) << "it ends as the signal says";
    EXPECT_EQ(outcome.out + outcome.error, "");
    EXPECT_THAT(names(), ElementsAre("a.wav", "b.wav", "c.wav", "d.wav"));
  }
}

TEST_F(Isolation, EndsWithAProgramThatIsKilled) {
  Sound sound;
  sound.channels = 1;
  sound.samples.assign(1 << 22, 0.0);  // frames: 64 blocks of what one message of progress is for
  for (const char* name : {"a.wav", "c.wav"})
    writeSound(in(name), sound, SF_FORMAT_WAV | SF_FORMAT_PCM_16);
  const int process = startProgram(folder, {"a.wav", "c.wav", "-o", "out", "-j", "2", "--block",
                                            "65536", "--plugin", plugin("slow")});
  const auto isAtWork = [&] { return std::filesystem::exists(in("out")) && results().size() == 2; };
  for (int i = 0; i < 1000 && !isAtWork(); ++i) usleep(1000);
  ASSERT_TRUE(isAtWork());
  kill(process, SIGKILL);
  waitForProgram(process, folder);
  for (int i = 0; i < 1000 && !results().empty(); ++i) usleep(10000);
  EXPECT_THAT(results(), IsEmpty());
}
