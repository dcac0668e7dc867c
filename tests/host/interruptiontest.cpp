// Files that must not outlive the program when a signal ends it.
#include "host/base/interruption.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sndfile.h>
#include <unistd.h>

#include "tests/host/program.h"
#include "tests/host/sounds.h"
#include "tests/support/sanitized.h"

namespace {

using testing::ElementsAre;

class Interruptions : public ProgramTest {
 protected:
  Interruptions() {
    writeSound(in("a.wav"), noise(10000, 2, 1), SF_FORMAT_WAV | SF_FORMAT_PCM_16);
    writeSound(in("b.wav"), noise(10000, 2, 2), SF_FORMAT_WAV | SF_FORMAT_PCM_16);
  }

  // Starts a conversion, waits until the effect has it, and ends it.
  Outcome interrupted(int signalNumber, const std::vector<std::string>& words) {
    const std::filesystem::path started = root / "started";
    std::filesystem::remove(started);
    const int process = startProgram(folder, words, {{{"WIDEN_TEST_FILE", started.string()}}});
    for (int i = 0; i < 1000 && !std::filesystem::exists(started); ++i) usleep(10000);
    EXPECT_TRUE(std::filesystem::exists(started));
    EXPECT_GT(names().size(), 2U) << "an unfinished file is there";
    kill(process, signalNumber);
    return waitForProgram(process, folder);
  }
};

}  // namespace

TEST_F(Interruptions, LeaveNoUnfinishedFileBehind) {
  for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
    const Outcome outcome =
        interrupted(number, {"a.wav", "-o", "out.wav", "--plugin", plugin("waits")});
    EXPECT_EQ(outcome.status, -number) << "it ends as the signal says, so that a shell stops too";
    EXPECT_THAT(names(), ElementsAre("a.wav", "b.wav"));
  }
}

TEST_F(Interruptions, LeaveNoneOfSeveralFiles) {
  std::filesystem::create_directory(in("out"));
  for (const char* isolation : {"--isolate", "--no-isolate"}) {
    const Outcome outcome = interrupted(
        SIGINT, {"a.wav", "b.wav", "-o", "out", "-j", "2", isolation, "--plugin", plugin("waits")});
    EXPECT_EQ(outcome.status, -SIGINT) << isolation;
    EXPECT_TRUE(std::filesystem::is_empty(in("out"))) << isolation;
  }
}

// Else the next file that is opened would take the stream's place, and get the reports
// of other files.
TEST_F(Interruptions, FindNoSoundFileInPlaceOfAClosedStream) {
  if (!std::filesystem::exists("/proc/self/fd"))
    GTEST_SKIP() << "looks at the open files of a process there";
  const std::filesystem::path started = root / "started";
  Surroundings closed{{{"WIDEN_TEST_FILE", started.string()}}};
  closed.standardOutput = "closed";
  const int process =
      startProgram(folder, {"a.wav", "-o", "out.wav", "--plugin", plugin("waits")}, closed);
  for (int i = 0; i < 1000 && !std::filesystem::exists(started); ++i) usleep(10000);
  EXPECT_EQ(std::filesystem::read_symlink("/proc/" + std::to_string(process) + "/fd/1"),
            "/dev/null");
  kill(process, SIGTERM);
  waitForProgram(process, folder);
}

TEST_F(Interruptions, KeepAnExistingFileAsItWas) {
  writeText(in("out.wav"), "old");
  interrupted(SIGINT, {"a.wav", "-o", "out.wav", "--force", "--plugin", plugin("waits")});
  EXPECT_EQ(textOf(in("out.wav")), "old");
  EXPECT_THAT(names(), ElementsAre("a.wav", "b.wav", "out.wav"));
}

TEST_F(Interruptions, CleanUpAfterACrash) {
#ifdef TRELVAN_SANITIZED
  GTEST_SKIP() << "the sanitizer handles crashes itself";
#endif
  const Outcome outcome = widen({"a.wav", "-o", "out.wav", "--plugin", plugin("crashes")});
  EXPECT_EQ(outcome.status, -SIGSEGV);
  EXPECT_EQ(outcome.error,
            "widen: crashed, most likely inside the effect; unfinished files were removed\n");
  EXPECT_THAT(names(), ElementsAre("a.wav", "b.wav"));
}

// In threads too, of which each has a stack of its own.
TEST_F(Interruptions, CleanUpAfterACrashOfEveryKind) {
#ifdef TRELVAN_SANITIZED
  GTEST_SKIP() << "the sanitizer handles crashes itself";
#endif
  for (const auto& [how, signalNumber] : {std::pair{"overflow", SIGSEGV}, {"abort", SIGABRT}}) {
    const Surroundings ending{{{"WIDEN_TEST_END", how}}};
    for (const char* jobs : {"1", "2"}) {
      const Outcome outcome = widen({"a.wav", "b.wav", "-o", "out", "-j", jobs, "--no-isolate",
                                     "--plugin", plugin("crashes")},
                                    ending);
      EXPECT_EQ(outcome.status, -signalNumber) << how << " -j " << jobs;
      EXPECT_THAT(outcome.error, testing::StartsWith("widen: crashed, most likely inside"))
          << how << " -j " << jobs;
      EXPECT_TRUE(std::filesystem::is_empty(in("out"))) << how << " -j " << jobs;
      std::filesystem::remove_all(in("out"));
    }
  }
}

TEST_F(Interruptions, FailWhereTheEffectEndsTheProgramAsIfAllWereDone) {
  const Outcome outcome = widen({"a.wav", "-o", "out.wav", "--plugin", plugin("crashes")},
                                {{{"WIDEN_TEST_END", "exit"}}});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.error, "widen: the effect ended the program; unfinished files were removed\n");
  EXPECT_THAT(names(), ElementsAre("a.wav", "b.wav"));
}

TEST_F(Interruptions, LeaveAFileOnlyWhereNothingCanBeDoneUntilTheNextRun) {
  const std::filesystem::path started = root / "started";
  const int process = startProgram(folder, {"a.wav", "-o", "out.wav", "--plugin", plugin("waits")},
                                   {{{"WIDEN_TEST_FILE", started.string()}}});
  for (int i = 0; i < 1000 && !std::filesystem::exists(started); ++i) usleep(10000);
  ASSERT_EQ(widen({"b.wav", "-o", "b-wide.wav"}).status, 0);
  EXPECT_EQ(names().size(), 4U) << "the other one's unfinished file is left alone";
  kill(process, SIGKILL);
  EXPECT_EQ(waitForProgram(process, folder).status, -SIGKILL);
  EXPECT_EQ(names().size(), 4U);
  ASSERT_EQ(widen({"a.wav", "-o", "a-wide.wav"}).status, 0);
  EXPECT_THAT(names(), ElementsAre("a-wide.wav", "a.wav", "b-wide.wav", "b.wav"));
}

TEST_F(Interruptions, HandOutAsManySlotsAsAreFree) {
  const char* path = "/nonexistent/file";
  std::vector<int> slots;
  for (int slot = 0; (slot = removeOnSignal(path)) >= 0;) slots.push_back(slot);
  EXPECT_GT(slots.size(), 500U);
  forgetOnSignal(slots[3]);
  EXPECT_EQ(removeOnSignal(path), slots[3]);
  for (const int slot : slots) forgetOnSignal(slot);
  forgetOnSignal(-1);
  EXPECT_FALSE(endedBySignal());
}
