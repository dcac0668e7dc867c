// Tests of the alert with fake dialog programs.
#include "platform/alert.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>

#include <new>

#include "tests/support/failingmemory.h"
#include "tests/support/fakedesktop.h"

namespace {

using testing::ElementsAre;

constexpr char kOdd[] = "-a <b>bold</b> & \\n line\nnext";

class AlertTest : public testing::Test {
 protected:
  // Shows it until its outcome is there, and expects nothing on the error stream.
  Alert::State show(const char* message) {
    testing::internal::CaptureStderr();
    alert.start(message);
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (alert.poll() == Alert::State::running && std::chrono::steady_clock::now() < deadline)
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    return alert.poll();
  }

  FakeDesktop desktop;
  Alert alert;
};

TEST_F(AlertTest, IsNoneBeforeItIsStarted) {
  EXPECT_EQ(alert.poll(), Alert::State::none);
  alert.cancel();
  EXPECT_EQ(alert.poll(), Alert::State::none);
}

TEST_F(AlertTest, RunsUntilTheUserHasDismissedIt) {
  desktop.install("zenity",
                  "while [ ! -e " + (desktop.folder / "ok") + " ]; do /bin/sleep 0.01; done");
  alert.start("text");
  ASSERT_TRUE(desktop.isCalled("zenity"));
  for (int i = 0; i < 50; ++i) {
    EXPECT_EQ(alert.poll(), Alert::State::running);
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  writeFile(desktop.folder / "ok", "");
  for (int i = 0; i < 5000 && alert.poll() == Alert::State::running; ++i)
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  EXPECT_EQ(alert.poll(), Alert::State::dismissed);
  EXPECT_EQ(alert.poll(), Alert::State::dismissed) << "until it is started again or cancelled";
}

TEST_F(AlertTest, EndsWhenItIsCancelledAndWithItsOwner) {
  desktop.install("zenity", "exec /bin/sleep 60");
  alert.start("text");
  ASSERT_TRUE(desktop.isCalled("zenity"));
  alert.cancel();
  EXPECT_NE(kill(desktop.pidOf("zenity"), 0), 0);
  EXPECT_EQ(alert.poll(), Alert::State::none);
  {
    Alert owned;
    owned.start("text");
    ASSERT_TRUE(desktop.isCalled("zenity", 2));
  }
  EXPECT_NE(kill(desktop.pidOf("zenity"), 0), 0);
}

TEST_F(AlertTest, EndsTheOneBefore) {
  desktop.install("zenity", "exec /bin/sleep 60");
  alert.start("first");
  ASSERT_TRUE(desktop.isCalled("zenity"));
  const int first = desktop.pidOf("zenity");
  alert.start("second");
  ASSERT_TRUE(desktop.isCalled("zenity", 2));
  EXPECT_NE(kill(first, 0), 0);
  EXPECT_EQ(alert.poll(), Alert::State::running);
}

TEST_F(AlertTest, GivesZenityTheTextAsData) {
  desktop.install("zenity", "echo noise >&2");
  EXPECT_EQ(show(kOdd), Alert::State::dismissed);
  EXPECT_THAT(
      desktop.argumentsOf("zenity"),
      ElementsAre("--warning", "--no-markup", "--title=Trelvan", std::string("--text=") + kOdd));
}

TEST_F(AlertTest, GivesKdialogTheTextAsData) {
  desktop.install("kdialog", "");
  show(kOdd);
  EXPECT_THAT(desktop.argumentsOf("kdialog"),
              ElementsAre("--title", "Trelvan", "--sorry",
                          "<qt> -a &lt;b&gt;bold&lt;/b&gt; &amp; \\\\n line<br/>next</qt>"));
  show("plain & simple\n\\n");
  EXPECT_THAT(desktop.argumentsOf("kdialog", 2),
              ElementsAre("--title", "Trelvan", "--sorry", "plain & simple\n\\\\n"));
}

TEST_F(AlertTest, FallsBackToXmessage) {
  desktop.install("xmessage", "");
  EXPECT_EQ(show(kOdd), Alert::State::dismissed);
  EXPECT_THAT(desktop.argumentsOf("xmessage"),
              ElementsAre("-center", "-title", "Trelvan", "-buttons", "OK:0", "-default", "OK",
                          std::string(" ") + kOdd));
}

TEST_F(AlertTest, MakesTheTextUtf8) {
  desktop.install("zenity", "");
  show(
      "a\xff"
      "b");
  EXPECT_THAT(desktop.argumentsOf("zenity"), testing::Contains("--text=a\xef\xbf\xbd"
                                                               "b"));
}

TEST_F(AlertTest, IsShownOnce) {
  desktop.install("zenity", "exit 1");  // closed by its window's button
  desktop.install("xmessage", "");
  EXPECT_EQ(show("text"), Alert::State::dismissed);
  EXPECT_TRUE(desktop.wasCalled("zenity"));
  EXPECT_FALSE(desktop.wasCalled("xmessage"));
}

TEST_F(AlertTest, TriesTheNextProgramWhereOneDoesNotWork) {
  desktop.install("zenity", "exit 127");
  desktop.install("xmessage", "");
  EXPECT_EQ(show("text"), Alert::State::dismissed);
  EXPECT_TRUE(desktop.wasCalled("xmessage"));
}

TEST_F(AlertTest, SaysSilentlyThatNoProgramShowsIt) {
  EXPECT_EQ(show("text"), Alert::State::unavailable);
  desktop.install("zenity", "exit 255");
  EXPECT_EQ(show("text"), Alert::State::unavailable);
}

TEST_F(AlertTest, IsUnavailableWithoutADisplay) {
  desktop.install("zenity", "");
  desktop.display.set(nullptr);
  EXPECT_EQ(show("text"), Alert::State::unavailable);
  EXPECT_FALSE(desktop.wasCalled("zenity"));
}

TEST_F(AlertTest, WithoutMemoryItIsNotStarted) {
  desktop.install("zenity", "");
  int failures = 0;
  for (long succeeding = 0;; ++succeeding) {
    bool failed = false;
    {
      const FailingMemory memory(succeeding);
      try {
        alert.start("a text of some length, not held by a short string");
      } catch (const std::bad_alloc&) {
        failed = true;
      }
    }
    if (!failed) break;
    ++failures;
    ASSERT_EQ(alert.poll(), Alert::State::none) << succeeding << " allocations";
  }
  EXPECT_GT(failures, 0);
}

// Presses are kept from the window while an alert runs: one that waited for nothing would keep them
// for good.
TEST_F(AlertTest, WithoutMemoryForTheNextProgramItIsTriedAgain) {
  desktop.install("zenity", "exit 127");
  desktop.install("xmessage", "");
  int failures = 0;
  for (long succeeding = 0;; ++succeeding) {
    alert.start("a text of some length, not held by a short string");
    bool failed = false;
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    for (bool running = true; running && std::chrono::steady_clock::now() < deadline;) {
      const FailingMemory memory(succeeding);
      try {
        running = alert.poll() == Alert::State::running;
      } catch (const std::bad_alloc&) {
        failed = true;
        running = false;
      }
    }
    while (alert.poll() == Alert::State::running && std::chrono::steady_clock::now() < deadline)
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    ASSERT_EQ(alert.poll(), Alert::State::dismissed) << succeeding << " allocations";
    if (!failed) break;
    ++failures;
  }
  EXPECT_GT(failures, 0);
}

}  // namespace
