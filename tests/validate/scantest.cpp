// What the check of scanning says of binaries that cannot be scanned, and what outlives it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>

#include "tests/validate/validatetest.h"

namespace {

constexpr const char* kScan = "a scan of it is short";
constexpr int kPatience = 10000;  // ms

}  // namespace

TEST(AScan, TellsWhyABinaryCannotBeLoaded) {
  const ValidatorRun run = validateFile(VALIDATE_PAGE, {"--check", kScan});
  EXPECT_EQ(run.status, 1) << run.text;
  EXPECT_THAT(run.text, testing::HasSubstr("cannot be loaded"));
  EXPECT_THAT(run.text, testing::Not(testing::HasSubstr("ends the process")));
}

// Every process of the validator's has the pipe's end, which is closed when the last has gone.
TEST(AScan, IsEndedWithTheValidator) {
  int ends[2];
  ASSERT_EQ(pipe(ends), 0);
  const pid_t validator = fork();
  ASSERT_GE(validator, 0);
  if (validator == 0) {
    close(ends[0]);
    setenv("HANGS_IN_A_SCAN_TELLS", std::to_string(ends[1]).c_str(), 1);
    const std::string plugin = pluginFile("hangsinascan");
    execl(WIDEN_PROGRAM, WIDEN_PROGRAM, "--validate", plugin.c_str(), "--check", kScan, nullptr);
    _exit(127);
  }
  close(ends[1]);
  char heard = 0;
  pollfd waiting{ends[0], POLLIN, 0};
  EXPECT_EQ(poll(&waiting, 1, kPatience), 1);
  EXPECT_EQ(read(ends[0], &heard, 1), 1) << "no scan has begun";
  kill(validator, SIGKILL);
  waitpid(validator, nullptr, 0);
  EXPECT_EQ(poll(&waiting, 1, kPatience), 1) << "the scan goes on without its validator";
  EXPECT_EQ(read(ends[0], &heard, 1), 0);
  close(ends[0]);
}
