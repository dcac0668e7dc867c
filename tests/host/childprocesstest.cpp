// Work in a process of its own.
#include "host/cli/childprocess.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>

#include "tests/support/signalwords.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Send = ChildProcess::Send;

std::vector<std::string> allOf(ChildProcess& process) {
  std::vector<std::string> messages;
  while (process.receive(messages)) waitForAny({&process});
  return messages;
}

}  // namespace

TEST(ChildProcess, SendsMessagesOfAnyLength) {
  const std::string large(1000000, 'x');
  const std::string zero(3, '\0');
  ChildProcess process(
      [&](const Send& send) {
        for (const std::string& message : {std::string(), large, zero}) send(message);
      },
      {});
  EXPECT_THAT(allOf(process), ElementsAre("", large, zero));
  EXPECT_EQ(process.ending(), "exited (status 0)");
}

TEST(ChildProcess, TellsHowItEnded) {
  for (const auto& [number, text] :
       {std::pair{SIGKILL, "was ended (Killed)"}, {SIGTRAP, "crashed (Trace/breakpoint trap)"}}) {
    ChildProcess process(
        [signal = number](const Send& send) {
          send("before");
          raise(signal);
        },
        {});
    EXPECT_THAT(allOf(process), ElementsAre("before"));
    EXPECT_EQ(inLinuxWords(process.ending()), text);
  }
  ChildProcess process([](const Send&) { _exit(3); }, {});
  EXPECT_THAT(allOf(process), IsEmpty());
  EXPECT_EQ(process.ending(), "exited (status 3)");
}

// As an effect's helper does that outlives its effect.
TEST(ChildProcess, IsNotWaitedForLongerThanItLives) {
  const auto begin = std::chrono::steady_clock::now();
  ChildProcess process(
      [](const Send& send) {
        if (fork() == 0) sleep(10);  // s; holds the pipe
        send("done");
      },
      {});
  EXPECT_THAT(allOf(process), ElementsAre("done"));
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(5));
}

TEST(ChildProcess, EndsWithItsObject) {
  int ends[2];
  ASSERT_EQ(pipe(ends), 0);
  {
    ChildProcess process([](const Send&) { pause(); }, {});
  }
  close(ends[1]);
  char byte = 0;
  EXPECT_EQ(read(ends[0], &byte, 1), 0) << "nobody holds the pipe any more";
  close(ends[0]);
  EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1) << "nothing is left to wait for";
}

// Nobody is there to end it.
TEST(ChildProcess, EndsWhenItsMessagesGoNowhere) {
  int ends[2];
  ASSERT_EQ(pipe(ends), 0);
  const auto talk = [](const Send& send) {
    while (true) send("still here");
  };
  const auto hang = [&](const Send&) {
    close(ends[1]);
    sleep(10);  // s
  };
  const auto begin = std::chrono::steady_clock::now();
  if (fork() == 0) {
    ChildProcess first(talk, {});
    ChildProcess second(hang, {&first});  // must not keep the first one's pipe open
    raise(SIGKILL);
  }
  close(ends[1]);
  char byte = 0;
  EXPECT_EQ(read(ends[0], &byte, 1), 0) << "nobody holds the pipe any more";
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(5));
  close(ends[0]);
  while (waitpid(-1, nullptr, 0) > 0) {
  }
}
