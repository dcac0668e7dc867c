// The validator itself: what it prints, how it ends, and what it leaves behind.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <regex>
#include <sstream>
#include <string>
#include <thread>

#include "tests/support/temporaryfolder.h"
#include "tests/validate/validatetest.h"

namespace {

using testing::HasSubstr;
namespace fs = std::filesystem;

constexpr const char* kLives = "an effect is made, opened, closed and unloaded";

// The lines that begin so, without the time that a check took.
std::string linesThatBegin(const std::string& text, const std::string& opening) {
  std::istringstream lines(text);
  std::string found;
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with(opening))
      found += std::regex_replace(line, std::regex(R"(\([\d.]+ s\))"), "") + "\n";
  }
  return found;
}

int countOf(const std::string& text, const std::string& opening) {
  const std::string lines = linesThatBegin(text, opening);
  return static_cast<int>(std::count(lines.begin(), lines.end(), '\n'));
}

template <typename Condition>
bool becomesTrue(Condition&& condition) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
  while (!condition() && std::chrono::steady_clock::now() < end)
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  return condition();
}

pid_t processIn(const fs::path& file) {
  pid_t process = 0;
  std::ifstream(file) >> process;
  return process;
}

// Temporary files and home in folders of the test.
class Validator : public testing::Test {
 protected:
  Validator() {
    fs::create_directory(temporary);
    fs::create_directory(home);
    setenv("TMPDIR", temporary.c_str(), 1);
    setenv("HOME", home.c_str(), 1);
    setenv("VALIDATE_TOLD_PROCESS", told.c_str(), 1);
  }
  ~Validator() override {
    unsetenv("TMPDIR");
    unsetenv("VALIDATE_TOLD_PROCESS");
  }

  TemporaryFolder folder;
  const fs::path temporary = fs::path(folder.path) / "temporary";
  const fs::path home = fs::path(folder.path) / "home";
  const fs::path told = fs::path(folder.path) / "told";
};

}  // namespace

TEST_F(Validator, CountsWhatItSaidAndEndsAccordingly) {
  const ValidatorRun sound = validateFile(pluginFile("sound"), {"--strictness", "3"});
  EXPECT_EQ(sound.status, 0) << sound.text;
  const int passed = countOf(sound.text, "pass ");
  const int leftOut = countOf(sound.text, "left out ");
  EXPECT_GT(passed, 5);
  std::ostringstream last;
  last << passed + leftOut << " checks: " << passed << " passed, 0 failed, " << leftOut
       << " left out\n";
  EXPECT_TRUE(sound.text.ends_with(last.str())) << sound.text << last.str();

  const ValidatorRun broken = validateBroken("crashesonclose", kLives);
  EXPECT_EQ(broken.status, 1);
  EXPECT_TRUE(broken.text.ends_with("1 check: 0 passed, 1 failed, 0 left out\n")) << broken.text;

  const ValidatorRun unknown = validateFile(pluginFile("sound"), {"--check", "no such check"});
  EXPECT_EQ(unknown.status, 2);
  EXPECT_THAT(unknown.text, HasSubstr("no check is named \"no such check\""));
}

TEST_F(Validator, DoesMoreTheStricterItIs) {
  int before = 0;
  for (const char* strictness : {"1", "2", "3"}) {
    const ValidatorRun run = validateFile(pluginFile("sound"), {"--strictness", strictness});
    const int checks = countOf(run.text, "pass ") + countOf(run.text, "left out ");
    EXPECT_GT(checks, before) << strictness;
    before = checks;
  }
}

TEST_F(Validator, MeetsTheSameWithTheSameSeed) {
  const auto failure = [](const char* seed) {
    const ValidatorRun run =
        validateFile(pluginFile("roundswithblocks"),
                     {"--seed", seed, "--check", "blocks of any size give the same bits"});
    return linesThatBegin(run.text, "FAIL ");
  };
  const std::string first = failure("7");
  EXPECT_FALSE(first.empty());
  EXPECT_EQ(failure("7"), first);
  bool differs = false;
  for (const char* seed : {"8", "9", "10", "11"}) differs = differs || failure(seed) != first;
  EXPECT_TRUE(differs) << "of five seeds one meets something else";
}

TEST_F(Validator, PrintsTheCommandThatDoesAFailedCheckAgain) {
  const fs::path odd = fs::path(folder.path) / "it's \"a\" $folder";
  fs::create_directory(odd);
  fs::copy_file(pluginFile("crashesonclose"), odd / "crashesonclose.so");
  const ValidatorRun run = validateFile(pluginFile("crashesonclose"), {"--strictness", "1"});
  const ValidatorRun there =
      validateCommand("cd '" + folder.path +
                      "' && " WIDEN_PROGRAM " --validate it*/crashesonclose.so --strictness 1");
  EXPECT_EQ(there.status, 1) << there.text;
  std::smatch command;
  ASSERT_TRUE(std::regex_search(there.text, command, std::regex("again: widen (.*)\n")))
      << there.text;
  const ValidatorRun again =
      validateCommand("cd '" + folder.path + "' && " WIDEN_PROGRAM " " + command[1].str());
  EXPECT_EQ(again.status, 1) << again.text;
  EXPECT_EQ(linesThatBegin(again.text, "FAIL "), linesThatBegin(run.text, "FAIL "));
}

TEST_F(Validator, TellsAnEffectThatEndsItsProcess) {
  const ValidatorRun run = validateBroken("exitsonopen", kLives);
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.text, HasSubstr("ends the host's process (exit status 3) while: making"));
}

TEST_F(Validator, EndsAProcessInASessionOfItsOwnThatAnEffectHasStarted) {
  if (!VALIDATE_EVERY_CHECK) GTEST_SKIP() << "this system does not tell whose it was";
  const ValidatorRun run = validateBroken("startsaserver", kLives);
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.text, HasSubstr("leaves a process running"));
  const pid_t server = processIn(told);
  ASSERT_GT(server, 0);
  EXPECT_TRUE(becomesTrue([&] { return kill(server, 0) != 0; }));
}

TEST_F(Validator, GivesEachCheckAnEmptyHomeAndLeavesThePersonsAlone) {
  const ValidatorRun run = validateFile(pluginFile("trustsitshome"), {"--strictness", "2"});
  EXPECT_EQ(run.status, 0) << run.text;
  EXPECT_GT(countOf(run.text, "pass "), 3);
  EXPECT_TRUE(fs::is_empty(home));
  EXPECT_TRUE(fs::is_empty(temporary));
}

TEST_F(Validator, LeavesNothingBehindWhereItIsKilled) {
  const pid_t validator = fork();
  if (validator == 0) {
    execl(WIDEN_PROGRAM, WIDEN_PROGRAM, "--validate", pluginFile("hangsonopen").c_str(), "--check",
          kLives, nullptr);
    _exit(127);
  }
  ASSERT_TRUE(becomesTrue([&] { return processIn(told) > 0; }));
  EXPECT_FALSE(fs::is_empty(temporary));
  kill(validator, SIGKILL);
  waitpid(validator, nullptr, 0);
  const pid_t hanging = processIn(told);
  EXPECT_TRUE(becomesTrue([&] { return kill(hanging, 0) != 0; })) << "the check";
  EXPECT_TRUE(becomesTrue([&] { return fs::is_empty(temporary); })) << "its home";
}
