// Tests of opening the manual with a fake viewer.
#include "platform/manualopener.h"

#include <glib.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>

#include "platform/modulepath.h"
#include "tests/support/fakedesktop.h"

namespace {

namespace fs = std::filesystem;
using State = ManualOpener::State;
using std::chrono::milliseconds;
using std::chrono::seconds;
using std::chrono::steady_clock;
using testing::ElementsAre;

class Manual : public testing::Test {
 protected:
  Manual() {
    fs::create_directories(home / "config");
    g_reload_user_special_dirs_cache();
  }

  void put(const std::string& file) {
    fs::create_directories(fs::path(file).parent_path());
    writeFile(file, "%PDF");
  }
  State outcome() {
    manual.start();
    const auto deadline = steady_clock::now() + seconds(20);
    while (manual.poll() == State::running && steady_clock::now() < deadline) {
      std::this_thread::sleep_for(milliseconds(1));
    }
    return manual.poll();
  }

  FakeDesktop desktop;
  TemporaryFolder home;
  ScopedVariable homeVariable{"HOME", home.path};
  ScopedVariable config{"XDG_CONFIG_HOME", home / "config"};
  std::string usersCopy = home / "Documents/Orv/Trelvan/Trelvan Operation Manual.pdf";
  ManualOpener manual;
};

TEST_F(Manual, OpensTheCopyInTheUsersDocuments) {
  put(usersCopy);
  desktop.install("xdg-open", "");
  EXPECT_EQ(outcome(), State::opened);
  EXPECT_THAT(desktop.argumentsOf("xdg-open"), ElementsAre(usersCopy));
}

TEST_F(Manual, OpensTheCopyInADocumentsFolderOfAnotherName) {
  writeFile(home / "config/user-dirs.dirs", "XDG_DOCUMENTS_DIR=\"" + home.path + "/Dokumente\"\n");
  g_reload_user_special_dirs_cache();
  const std::string translated = home / "Dokumente/Orv/Trelvan/Trelvan Operation Manual.pdf";
  put(translated);
  desktop.install("xdg-open", "");
  EXPECT_EQ(outcome(), State::opened);
  EXPECT_THAT(desktop.argumentsOf("xdg-open"), ElementsAre(translated));
}

TEST_F(Manual, IsStartedInACleanEnvironment) {
  put(usersCopy);
  const ScopedVariable library("GTK_PATH", "/host/own");
  desktop.install("xdg-open", "");
  EXPECT_EQ(outcome(), State::opened);
  EXPECT_THAT(desktop.environmentOf("xdg-open"), testing::Not(testing::HasSubstr("/host/own")));
}

// The resources of test programs are the bundle's, with the manual in them or not: this test
// follows what there is.
TEST_F(Manual, OpensTheBundlesCopyWhereTheUserHasNone) {
  const std::string bundled = resourcesFolder() + "Trelvan Operation Manual.pdf";
  desktop.install("xdg-open", "");
  if (fs::exists(bundled)) {
    EXPECT_EQ(outcome(), State::opened);
    EXPECT_THAT(desktop.argumentsOf("xdg-open"), ElementsAre(bundled));
  } else {
    EXPECT_EQ(outcome(), State::failed);
    EXPECT_FALSE(desktop.wasCalled("xdg-open"));
  }
}

TEST_F(Manual, FailsWithoutAViewer) {
  put(usersCopy);
  EXPECT_EQ(outcome(), State::failed);
}

TEST_F(Manual, FailsWhereTheViewerFails) {
  put(usersCopy);
  desktop.install("xdg-open", "exit 3");
  EXPECT_EQ(outcome(), State::failed);
}

TEST_F(Manual, NeverWaitsForTheViewer) {
  put(usersCopy);
  desktop.install("xdg-open", "exec /bin/sleep 60");
  const auto begin = steady_clock::now();
  manual.start();
  EXPECT_EQ(manual.poll(), State::running);
  EXPECT_LT(steady_clock::now() - begin, seconds(1));
  ASSERT_TRUE(desktop.isCalled("xdg-open"));
  kill(desktop.pidOf("xdg-open"), SIGKILL);
}

TEST_F(Manual, LetsAViewerThatStaysInTheForegroundLiveOn) {
  put(usersCopy);
  desktop.install("xdg-open",
                  "/bin/sleep 0.3; echo output; echo done > " + (desktop.folder / "done"));
  {
    ManualOpener shortLived;
    shortLived.start();
    ASSERT_TRUE(desktop.isCalled("xdg-open"));
  }
  // It writes to nobody and goes on all the same.
  for (int tries = 0; tries < 5000 && !fs::exists(desktop.folder / "done"); ++tries) {
    std::this_thread::sleep_for(milliseconds(1));
  }
  EXPECT_TRUE(fs::exists(desktop.folder / "done"));
}

TEST_F(Manual, CountsAViewerThatStaysAsOpened) {
  put(usersCopy);
  desktop.install("xdg-open", "exec /bin/sleep 60");
  EXPECT_EQ(outcome(), State::opened);  // after 10 seconds
  EXPECT_EQ(kill(desktop.pidOf("xdg-open"), 0), 0);
  kill(desktop.pidOf("xdg-open"), SIGKILL);
}

}  // namespace
