// Tests of the programs that run beside the host.
#include "platform/linux/childprogram.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <thread>

#include "tests/support/failingmemory.h"
#include "tests/support/temporaryfolder.h"

namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;
using std::chrono::steady_clock;

// Polls until it has ended, for a while.
bool ends(ChildProgram& program, seconds limit = seconds(10)) {
  const auto deadline = steady_clock::now() + limit;
  while (program.poll() != ChildProgram::State::ended) {
    if (steady_clock::now() > deadline) return false;
    std::this_thread::sleep_for(milliseconds(1));
  }
  return true;
}

bool isAlive(const std::string& pid) {
  return kill(std::stoi(pid), 0) == 0;
}

// Waits until a script has written a line there.
std::string lineIn(const std::string& path) {
  for (int tries = 0; tries < 5000; ++tries) {
    const std::string text = contentOf(path);
    if (!text.empty() && text.back() == '\n') return text.substr(0, text.size() - 1);
    std::this_thread::sleep_for(milliseconds(1));
  }
  return {};
}

bool goesAway(const std::string& pid) {
  for (int tries = 0; tries < 5000 && isAlive(pid); ++tries)
    std::this_thread::sleep_for(milliseconds(1));
  return !isAlive(pid);
}

class Child : public testing::Test {
 protected:
  // A script's full path.
  std::string script(const std::string& body) {
    writeProgram(folder / "script", body);
    return folder / "script";
  }

  TemporaryFolder folder;
  ChildProgram program;
};

TEST_F(Child, GetsItsArgumentsAsTheyAre) {
  const std::vector<std::string> odd = {"",   " two  spaces ", "$HOME `id` \"'\\",
                                        "-x", "line\nbreak",   "\xff\xfe"};
  std::vector<std::string> arguments = {script("printf '[%s]' \"$@\"")};
  arguments.insert(arguments.end(), odd.begin(), odd.end());
  ASSERT_TRUE(program.start(arguments));
  ASSERT_TRUE(ends(program));
  std::string expected;
  for (const std::string& argument : odd) expected += "[" + argument + "]";
  EXPECT_EQ(program.output(), expected);
  EXPECT_EQ(program.exitStatus(), 0);
}

TEST_F(Child, TellsHowItEnded) {
  ASSERT_TRUE(program.start({script("exit 37")}));
  ASSERT_TRUE(ends(program));
  EXPECT_EQ(program.exitStatus(), 37);
  ASSERT_TRUE(program.start({script("kill -SEGV $$")}));
  ASSERT_TRUE(ends(program));
  EXPECT_EQ(program.exitStatus(), ChildProgram::kSignalBase + SIGSEGV);
}

// Both are called where an owner ends, and nothing may be thrown there.
TEST_F(Child, IsEndedAndLeftWithoutAnyMemory) {
  const std::string writer =
      script("printf '%0100d' 0; echo $$ >'" + (folder / "pid") + "'; exec /bin/sleep 60");
  for (const auto ending : {&ChildProgram::end, &ChildProgram::leave}) {
    ASSERT_TRUE(program.start({writer}));
    const std::string pid = lineIn(folder / "pid");
    {
      const FailingMemory memory(0, FailingMemory::Fails::allFromThere);
      (program.*ending)();
    }
    EXPECT_EQ(program.poll(), ChildProgram::State::none);
    EXPECT_TRUE(goesAway(pid));
    std::filesystem::remove(folder / "pid");
  }
}

TEST_F(Child, DoesNotStartWhereThereIsNoProgram) {
  EXPECT_FALSE(program.start({folder / "missing"}));
  EXPECT_EQ(program.poll(), ChildProgram::State::none);
  writeFile(folder / "plain", "text");
  EXPECT_FALSE(program.start({folder / "plain"}));
}

TEST_F(Child, HasAnEnvironmentWithoutWhatHostsPutThere) {
  const ScopedVariable preload("LD_PRELOAD", nullptr);
  const char* const hosts[] = {"LD_LIBRARY_PATH",
                               "LD_AUDIT",
                               "GTK_PATH",
                               "GTK_MODULES",
                               "GIO_EXTRA_MODULES",
                               "QT_PLUGIN_PATH",
                               "GDK_PIXBUF_MODULE_FILE",
                               "PYTHONHOME",
                               "PYTHONPATH"};
  std::vector<std::unique_ptr<ScopedVariable>> variables;
  for (const char* name : hosts)
    variables.push_back(std::make_unique<ScopedVariable>(name, "/host/own"));
  const ScopedVariable display("DISPLAY", ":17");
  const ScopedVariable language("LANG", "de_DE.UTF-8");
  const ScopedVariable similar("LDAP_SERVER", "stays");
  ASSERT_TRUE(program.start({script("/usr/bin/env")}));
  ASSERT_TRUE(ends(program));
  EXPECT_THAT(program.output(), testing::Not(testing::HasSubstr("/host/own")));
  for (const char* kept : {"DISPLAY=:17\n", "LANG=de_DE.UTF-8\n", "LDAP_SERVER=stays\n", "PATH="}) {
    EXPECT_THAT(program.output(), testing::HasSubstr(kept));
  }
}

TEST_F(Child, HasNoneOfTheHostsFilesAndNoInput) {
  // without close-on-exec, as many hosts open theirs
  const int hosts = open("/dev/null", O_RDONLY);
  ASSERT_TRUE(program.start({script("/bin/ls /proc/$$/fd; /bin/cat; echo error >&2")}));
  ASSERT_TRUE(ends(program));
  close(hosts);
  // The shell reads its script through a number of its own from 10 upwards.
  std::vector<int> numbers;
  std::istringstream lines(program.output());
  for (int number; lines >> number;) numbers.push_back(number);
  EXPECT_THAT(numbers, testing::IsSupersetOf({0, 1, 2}));
  for (const int number : numbers) EXPECT_TRUE(number < 3 || number >= 10) << number;
}

TEST_F(Child, StartsWithDefaultSignalHandlingWhateverTheHostHas) {
  struct sigaction old {};
  struct sigaction ignore {};
  ignore.sa_handler = SIG_IGN;
  sigaction(SIGUSR1, &ignore, &old);
  sigset_t blocked, before;
  sigfillset(&blocked);
  pthread_sigmask(SIG_SETMASK, &blocked, &before);
  const bool started =
      program.start({"/bin/sed", "-n", "s/Sig[BI][lg][kn]://p", "/proc/self/status"});
  pthread_sigmask(SIG_SETMASK, &before, nullptr);
  sigaction(SIGUSR1, &old, nullptr);
  ASSERT_TRUE(started);
  ASSERT_TRUE(ends(program));
  std::istringstream lines(program.output());
  std::uint64_t blockedThere = 1, ignoredThere = 1;  // bit n - 1 for signal n
  lines >> std::hex >> blockedThere >> ignoredThere;
  // signals 1 to 31; the next two are the library's own
  constexpr std::uint64_t kNamed = 0x7FFFFFFF;
  EXPECT_EQ(blockedThere, 0U);
  EXPECT_EQ(ignoredThere & kNamed, 0U);
}

TEST_F(Child, LeavesTheHostsHandlerForEndedChildrenAlone) {
  struct sigaction before {
  }, after{};
  sigaction(SIGCHLD, nullptr, &before);
  ASSERT_TRUE(program.start({script("exit 0")}));
  ASSERT_TRUE(ends(program));
  sigaction(SIGCHLD, nullptr, &after);
  EXPECT_EQ(before.sa_handler, after.sa_handler);
  EXPECT_EQ(before.sa_flags, after.sa_flags);
}

TEST_F(Child, LeavesNoZombie) {
  ASSERT_TRUE(program.start({script("exit 0")}));
  ASSERT_TRUE(ends(program));
  EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
  EXPECT_EQ(errno, ECHILD);
  ASSERT_TRUE(program.start({script("exec /bin/sleep 60")}));
  program.end();
  EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
  EXPECT_EQ(errno, ECHILD);
}

TEST_F(Child, WorksWhereTheHostIgnoresEndedChildren) {
  struct sigaction old {};
  struct sigaction ignore {};
  ignore.sa_handler = SIG_IGN;
  sigaction(SIGCHLD, &ignore, &old);
  const bool started = program.start({script("echo /chosen; exit 0")});
  const bool ended = ends(program);
  sigaction(SIGCHLD, &old, nullptr);
  EXPECT_TRUE(started);
  EXPECT_TRUE(ended);
  EXPECT_EQ(program.output(), "/chosen\n");
  EXPECT_EQ(program.exitStatus(), ChildProgram::kUnknownStatus);
}

TEST_F(Child, WorksWhereTheHostCollectsEveryChildItself) {
  struct sigaction old {};
  struct sigaction collect {};
  collect.sa_handler = [](int) {
    const int error = errno;
    while (waitpid(-1, nullptr, WNOHANG) > 0) {
    }
    errno = error;
  };
  sigaction(SIGCHLD, &collect, &old);
  const bool started = program.start({script("echo /chosen; exit 0")});
  const bool ended = ends(program);
  sigaction(SIGCHLD, &old, nullptr);
  EXPECT_TRUE(started);
  EXPECT_TRUE(ended);
  EXPECT_EQ(program.output(), "/chosen\n");
}

TEST_F(Child, EndsWhenAskedAndWithItItsOwnChildren) {
  ASSERT_TRUE(program.start({script("/bin/sleep 60 & echo $! > " + folder.path +
                                    "/grandchild; echo $$ > " + folder.path + "/child; wait")}));
  const std::string child = lineIn(folder / "child");
  const std::string grandchild = lineIn(folder / "grandchild");
  ASSERT_FALSE(child.empty());
  program.end();
  EXPECT_FALSE(isAlive(child));
  EXPECT_TRUE(goesAway(grandchild));
  EXPECT_EQ(program.poll(), ChildProgram::State::none);
}

TEST_F(Child, EndsSoonEvenIfItDoesNotWantTo) {
  ASSERT_TRUE(program.start({script("trap '' TERM; echo $$ > " + folder.path +
                                    "/child; while :; do /bin/sleep 1; done")}));
  const std::string child = lineIn(folder / "child");
  ASSERT_FALSE(child.empty());
  const auto begin = steady_clock::now();
  program.end();
  EXPECT_LT(steady_clock::now() - begin, seconds(2));  // 0.2 s where nothing else runs
  EXPECT_FALSE(isAlive(child));
}

TEST_F(Child, EndsWithItsOwner) {
  std::string child;
  {
    ChildProgram owned;
    ASSERT_TRUE(owned.start({script("echo $$ > " + folder.path + "/child; exec /bin/sleep 60")}));
    child = lineIn(folder / "child");
  }
  ASSERT_FALSE(child.empty());
  EXPECT_FALSE(isAlive(child));
}

TEST_F(Child, LeavesWhatItHasStartedRunningWhenItIsLeft) {
  ASSERT_TRUE(program.start(
      {script("/bin/sleep 60 >/dev/null & echo $! > " + folder.path + "/grandchild; wait")}));
  const std::string grandchild = lineIn(folder / "grandchild");
  ASSERT_FALSE(grandchild.empty());
  program.leave();
  EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
  EXPECT_EQ(errno, ECHILD);
  EXPECT_TRUE(isAlive(grandchild));
  kill(std::stoi(grandchild), SIGKILL);
}

TEST_F(Child, IsPolledWithoutWaiting) {
  ASSERT_TRUE(program.start({script("exec /bin/sleep 60")}));
  const auto begin = steady_clock::now();
  for (int poll = 0; poll < 100; ++poll) EXPECT_EQ(program.poll(), ChildProgram::State::running);
  EXPECT_LT(steady_clock::now() - begin, seconds(1));
}

TEST_F(Child, HasEndedEvenIfAChildOfItsOwnKeepsTheOutputOpen) {
  ASSERT_TRUE(program.start(
      {script("/bin/sleep 5 & echo $! > " + folder.path + "/grandchild; echo /chosen")}));
  const auto begin = steady_clock::now();
  ASSERT_TRUE(ends(program));
  EXPECT_LT(steady_clock::now() - begin, seconds(4));
  EXPECT_EQ(program.output(), "/chosen\n");
  kill(std::stoi(lineIn(folder / "grandchild")), SIGKILL);
}

TEST_F(Child, MayWriteMoreThanIsKept) {
  ASSERT_TRUE(program.start({script("/usr/bin/head -c 1000000 /dev/zero")}));
  program.wait();
  EXPECT_EQ(program.poll(), ChildProgram::State::ended);
  EXPECT_EQ(program.exitStatus(), 0);
  EXPECT_EQ(program.output().size(), 65536U);
}

TEST_F(Child, IsWaitedForEvenWithItsOutputClosed) {
  ASSERT_TRUE(program.start({script("exec >&-; /bin/sleep 0.3; exit 3")}));
  const auto begin = steady_clock::now();
  program.wait();
  EXPECT_GE(steady_clock::now() - begin, milliseconds(250));
  EXPECT_EQ(program.exitStatus(), 3);
}

TEST_F(Child, ReplacesTheOneBefore) {
  ASSERT_TRUE(
      program.start({script("echo first > " + folder.path + "/child; exec /bin/sleep 60")}));
  ASSERT_EQ(lineIn(folder / "child"), "first");
  ASSERT_TRUE(program.start({script("echo second")}));
  ASSERT_TRUE(ends(program));
  EXPECT_EQ(program.output(), "second\n");
  EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
}

TEST(FindProgram, TakesTheFirstFileThatMayRun) {
  const TemporaryFolder first, second, third;
  std::filesystem::create_directory(first / "tool");
  writeFile(second / "tool", "not to be run");
  chmod((second / "tool").c_str(), 0644);
  writeProgram(third / "tool", "");
  const ScopedVariable path("PATH", first.path + ":" + second.path + "::" + third.path);
  EXPECT_EQ(findProgram("tool"), third / "tool");
  EXPECT_EQ(findProgram("missing"), "");
}

TEST(FindProgram, LooksNowhereInTheWorkingFolder) {
  const TemporaryFolder folder;
  writeProgram(folder / "tool", "");
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(folder.path);
  for (const char* relative : {"", ":", ".", "./", "a::b"}) {
    const ScopedVariable path("PATH", relative);
    EXPECT_EQ(findProgram("tool"), "") << relative;
  }
  const ScopedVariable none("PATH", nullptr);
  EXPECT_EQ(findProgram("tool"), "");
  std::filesystem::current_path(before);
}

}  // namespace
