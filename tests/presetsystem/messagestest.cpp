// Tests of what the user is told: which message, when, and where.
#include "presetsystem/bar/messages.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>

#include <new>

#include "tests/support/failingmemory.h"
#include "tests/support/fakedesktop.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Window : public BarWindow {
 public:
  bool isShown() const override { return shown; }
  std::uintptr_t hostWindow() const override { return 0; }
  void redraw() override {}
  bool isAtRest() const override { return atRest; }
  void showMessage(const std::string& text) override {
    if (!hasMemory) throw std::bad_alloc();
    panels.push_back(text);
  }

  bool shown = true;
  bool atRest = true;
  bool hasMemory = true;
  std::vector<std::string> panels;
};

class MessagesTest : public testing::Test {
 protected:
  void passes(int count = 50) {
    for (int pass = 0; pass < count; ++pass) {
      messages.watch();
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
  }
  void passUntilIdle() {
    for (int pass = 0; pass < 5000 && messages.running(); ++pass) passes(1);
    EXPECT_FALSE(messages.running());
  }

  FakeDesktop desktop;
  Window window;
  Messages messages{window};
};

TEST_F(MessagesTest, AreShownByTheDesktopWhileTheHostGoesOn) {
  desktop.install("zenity",
                  "while [ ! -e " + (desktop.folder / "ok") + " ]; do /bin/sleep 0.01; done");
  messages.say("text");
  EXPECT_FALSE(messages.running());
  messages.watch();
  EXPECT_TRUE(messages.running());
  ASSERT_TRUE(desktop.isCalled("zenity"));
  EXPECT_THAT(desktop.argumentsOf("zenity"), testing::Contains("--text=text"));
  passes();
  EXPECT_TRUE(messages.running());
  writeFile(desktop.folder / "ok", "");
  passUntilIdle();
  passes();
  EXPECT_FALSE(desktop.wasCalled("zenity", 2)) << "once";
  EXPECT_THAT(window.panels, IsEmpty());
}

TEST_F(MessagesTest, AreShownByTheWindowWhereTheDesktopHasNothing) {
  messages.say("text");
  messages.watch();
  EXPECT_FALSE(messages.running()) << "the panel is the window's own";
  passes();
  EXPECT_THAT(window.panels, ElementsAre("text"));
}

TEST_F(MessagesTest, AreShownByTheWindowWhereTheDesktopsProgramsDoNotWork) {
  desktop.install("zenity", "exit 255");
  messages.say("text");
  messages.watch();
  passUntilIdle();
  EXPECT_THAT(window.panels, ElementsAre("text"));
}

TEST_F(MessagesTest, ComeOneAfterTheOther) {
  desktop.install("xmessage", "");
  messages.say("first");
  messages.say("second");
  for (int pass = 0; pass < 5000 && !desktop.wasCalled("xmessage", 2); ++pass) passes(1);
  EXPECT_EQ(desktop.argumentsOf("xmessage").back(), "first");
  EXPECT_EQ(desktop.argumentsOf("xmessage", 2).back(), "second");
}

// A list has the pointer to itself: nobody could click the alert's button.
TEST_F(MessagesTest, WaitUntilTheWindowIsAtRestAndShown) {
  for (bool Window::*state : {&Window::atRest, &Window::shown}) {
    window.panels.clear();
    window.*state = false;
    messages.say("text");
    passes();
    EXPECT_THAT(window.panels, IsEmpty());
    window.*state = true;
    passes(2);
    EXPECT_THAT(window.panels, ElementsAre("text"));
  }
}

// An alert that stands ends by itself, whatever the user does in the window.
TEST_F(MessagesTest, AnAlertIsFollowedWhileTheWindowIsNotAtRest) {
  desktop.install("zenity", "");
  messages.say("text");
  messages.watch();
  window.atRest = false;
  passUntilIdle();
}

TEST_F(MessagesTest, EndWithTheWindow) {
  desktop.install("zenity", "exec /bin/sleep 60");
  messages.say("first");
  messages.say("second");
  messages.watch();
  ASSERT_TRUE(desktop.isCalled("zenity"));
  messages.end();
  EXPECT_NE(kill(desktop.pidOf("zenity"), 0), 0);
  EXPECT_FALSE(messages.running());
  passes();
  EXPECT_FALSE(desktop.wasCalled("zenity", 2));
}

TEST_F(MessagesTest, AreShownLaterWhereThereIsNoMemoryNow) {
  messages.say("text");
  window.hasMemory = false;
  for (int pass = 0; pass < 3; ++pass) EXPECT_THROW(messages.watch(), std::bad_alloc);
  window.hasMemory = true;
  messages.watch();
  EXPECT_THAT(window.panels, ElementsAre("text"));
  passes(3);
  EXPECT_THAT(window.panels, ElementsAre("text"));
  EXPECT_FALSE(messages.running());
}

}  // namespace
