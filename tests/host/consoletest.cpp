// What the person sees: progress on a terminal for long files, and none elsewhere.
#include "host/cli/console.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sndfile.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

#include <string>

#include "tests/host/program.h"
#include "tests/host/sounds.h"

namespace {

using testing::HasSubstr;

class Consoles : public ProgramTest {
 protected:
  // Everything that appears on a terminal which is the program's standard error stream.
  std::string onTerminal(const std::vector<std::string>& words) const {
    const int terminal = posix_openpt(O_RDWR | O_NOCTTY);
    EXPECT_GE(terminal, 0);
    grantpt(terminal);
    unlockpt(terminal);
    const std::string name = ptsname(terminal);
    std::vector<std::string> all = {WIDEN_PROGRAM};
    all.insert(all.end(), words.begin(), words.end());
    std::vector<char*> pointers;
    pointers.reserve(all.size() + 1);
    for (std::string& word : all) pointers.push_back(word.data());
    pointers.push_back(nullptr);
    const int keepOpen = open(name.c_str(), O_RDWR | O_NOCTTY);
    const int process = fork();
    if (process == 0) {
      if (chdir(folder.c_str()) != 0 || dup2(keepOpen, STDERR_FILENO) < 0) _exit(100);
      const int nowhere = open("/dev/null", O_WRONLY);
      dup2(nowhere, STDOUT_FILENO);
      setenv("LSAN_OPTIONS", "suppressions=" WIDEN_LEAKS, 1);
      alarm(30);
      execv(WIDEN_PROGRAM, pointers.data());
      _exit(102);
    }
    close(keepOpen);
    std::string seen;
    char piece[256];
    ssize_t count = 0;
    while ((count = read(terminal, piece, sizeof piece)) > 0)
      seen.append(piece, static_cast<std::size_t>(count));
    waitpid(process, nullptr, 0);
    close(terminal);
    return seen;
  }
};

}  // namespace

// 49 blocks of 25 ms: well beyond the half second that passes without a word.
TEST_F(Consoles, ShowProgressOnATerminalForLongFiles) {
  writeSound(in("a.wav"), noise(200000, 1, 1), SF_FORMAT_WAV | SF_FORMAT_PCM_16);
  const std::string seen =
      onTerminal({"a.wav", "-o", "b.wav", "--plugin", plugin("slow"), "--block", "4096"});
  EXPECT_THAT(seen, HasSubstr(" %"));
  EXPECT_THAT(seen, HasSubstr("s left"));
  EXPECT_TRUE(seen.ends_with("\r\033[K")) << "the line is gone in the end";
}

TEST_F(Consoles, ShowNoProgressForShortFilesOrWhenQuietOrWithoutATerminal) {
  writeSound(in("a.wav"), noise(200000, 1, 1), SF_FORMAT_WAV | SF_FORMAT_PCM_16);
  EXPECT_EQ(onTerminal({"a.wav", "-o", "short.wav", "--process", "off"}), "");
  EXPECT_EQ(
      onTerminal({"a.wav", "-o", "quiet.wav", "-q", "--plugin", plugin("slow"), "--block", "8192"}),
      "");
  EXPECT_EQ(
      widen({"a.wav", "-o", "piped.wav", "--plugin", plugin("slow"), "--block", "8192"}).error, "");
}

TEST_F(Consoles, AreQuietWhenAsked) {
  writeSound(in("a.wav"), noise(100, 1, 1), SF_FORMAT_WAV | SF_FORMAT_PCM_16);
  const Outcome outcome = widen({"a.wav", "-o", "b.wav", "--quiet"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.error, "");
  EXPECT_THAT(widen({"-q", "--list-presets"}).out, HasSubstr("mix 1"))
      << "what was asked for is shown all the same";
}
