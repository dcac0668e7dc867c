// What becomes of the programs beside the host when its process ends, in one way or another.
#include "platform/linux/orphanguard.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <unistd.h>

#include <chrono>
#include <functional>
#include <thread>

#include "editor/base/filedialog.h"
#include "platform/linux/childprogram.h"
#include "platform/xplatalert.h"
#include "tests/support/fakedesktop.h"
#include "tests/support/ownprocess.h"

namespace {

using std::chrono::milliseconds;

// Gone, or ended and not yet collected by whoever has inherited it.
bool isGone(int process) {
  const std::string status = contentOf("/proc/" + std::to_string(process) + "/stat");
  const std::size_t name = status.rfind(')');
  return name == std::string::npos || status[name + 2] == 'Z';
}

bool goesAway(int process) {
  for (int tries = 0; tries < 10000 && !isGone(process); ++tries)
    std::this_thread::sleep_for(milliseconds(1));
  return isGone(process);
}

class HostsEnd : public testing::Test {
 protected:
  HostsEnd() { desktop.install("zenity", "exec /bin/sleep 60"); }

  std::vector<std::string> program() const { return {desktop.programs() + "/zenity"}; }

  // A host that does this and then waits to be killed.
  pid_t host(const std::function<void()>& work) const {
    const pid_t process = fork();
    if (process == 0) {
      work();
      while (true) pause();
    }
    return process;
  }
  void endHost(pid_t process) {
    kill(process, SIGKILL);
    waitpid(process, nullptr, 0);
  }
  int shown() const {
    EXPECT_TRUE(desktop.isCalled("zenity"));
    return desktop.pidOf("zenity");
  }

  FakeDesktop desktop;
};

TEST_F(HostsEnd, EndsAProgramThoughTheHostIsKilled) {
  const pid_t process = host([this] { (new ChildProgram)->start(program()); });
  const int dialog = shown();
  EXPECT_FALSE(isGone(dialog));
  endHost(process);
  EXPECT_TRUE(goesAway(dialog));
}

TEST_F(HostsEnd, EndsAProgramThoughNobodyEndsTheHostsObjects) {
  const pid_t process = fork();
  if (process == 0) {
    (new ChildProgram)->start(program());
    while (!desktop.wasCalled("zenity")) usleep(1000);
    _exit(0);
  }
  EXPECT_TRUE(succeeded(process));
  EXPECT_TRUE(goesAway(shown()));
}

TEST_F(HostsEnd, EndsAProgramThatDoesNotWantTo) {
  const std::string deaf = desktop.folder / "deaf";
  desktop.install("zenity", "trap '' TERM; echo >" + deaf + "; while :; do /bin/sleep 1; done");
  const pid_t process = host([this] { (new ChildProgram)->start(program()); });
  const int dialog = shown();
  while (!std::filesystem::exists(deaf)) usleep(1000);
  endHost(process);
  EXPECT_TRUE(goesAway(dialog));
}

// The thread that opens a dialog may end long before the host does.
TEST_F(HostsEnd, IsNotTheEndOfTheThreadThatStartedTheProgram) {
  ChildProgram owned;
  std::thread([&] { ASSERT_TRUE(owned.start(program())); }).join();
  const int dialog = shown();
  std::this_thread::sleep_for(milliseconds(200));
  EXPECT_FALSE(isGone(dialog));
  EXPECT_EQ(owned.poll(), ChildProgram::State::running);
}

TEST_F(HostsEnd, LeavesAProgramThatHasALifeOfItsOwn) {
  const pid_t process =
      host([this] { (new ChildProgram)->start(program(), ChildProgram::Lifetime::itsOwn); });
  const int viewer = shown();
  endHost(process);
  std::this_thread::sleep_for(milliseconds(300));
  EXPECT_FALSE(isGone(viewer));
  kill(viewer, SIGKILL);
}

// What a dialog has started and left, a service of the desktop's for instance, is not the host's.
TEST_F(HostsEnd, LeavesWhatAProgramHasLeftThatHasEnded) {
  desktop.install("zenity", "/bin/sleep 60 >/dev/null & echo $! >" + (desktop.folder / "service"));
  const pid_t process = host([this] {
    auto* dialog = new ChildProgram;
    dialog->start(program());
    dialog->wait();
    writeFile(desktop.folder / "ended", "");
  });
  while (!std::filesystem::exists(desktop.folder / "ended")) usleep(1000);
  const int service = std::stoi(contentOf(desktop.folder / "service"));
  endHost(process);
  std::this_thread::sleep_for(milliseconds(300));
  EXPECT_FALSE(isGone(service));
  kill(service, SIGKILL);
}

TEST_F(HostsEnd, EndsAFileDialog) {
  const pid_t process = host([] { (new FileDialog)->start(FileDialogRequest()); });
  const int dialog = shown();
  endHost(process);
  EXPECT_TRUE(goesAway(dialog));
}

TEST_F(HostsEnd, EndsAnAlert) {
  const pid_t process = host([] { XPlatDisplayAlert("text"); });
  const int alert = shown();
  endHost(process);
  EXPECT_TRUE(goesAway(alert));
}

}  // namespace
