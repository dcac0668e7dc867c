// Tests of the alert with fake dialog programs.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/xplatalert.h"
#include "tests/support/fakedesktop.h"

namespace {

using testing::ElementsAre;

constexpr char kOdd[] = "-a <b>bold</b> & \\n line\nnext";

class Alert : public testing::Test {
 protected:
  // Shows it and expects nothing on the error stream.
  static void show(const char* message) {
    testing::internal::CaptureStderr();
    XPlatDisplayAlert(message);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  }

  FakeDesktop desktop;
};

TEST_F(Alert, ReturnsWhenTheUserHasDismissedIt) {
  desktop.install("zenity", "/bin/sleep 0.3");
  const auto begin = std::chrono::steady_clock::now();
  show("text");
  EXPECT_GE(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(300));
}

TEST_F(Alert, GivesZenityTheTextAsData) {
  desktop.install("zenity", "echo noise >&2");
  show(kOdd);
  EXPECT_THAT(
      desktop.argumentsOf("zenity"),
      ElementsAre("--warning", "--no-markup", "--title=Trelvan", std::string("--text=") + kOdd));
}

TEST_F(Alert, GivesKdialogTheTextAsData) {
  desktop.install("kdialog", "");
  show(kOdd);
  EXPECT_THAT(desktop.argumentsOf("kdialog"),
              ElementsAre("--title", "Trelvan", "--sorry",
                          "<qt> -a &lt;b&gt;bold&lt;/b&gt; &amp; \\\\n line<br/>next</qt>"));
  show("plain & simple\n\\n");
  EXPECT_THAT(desktop.argumentsOf("kdialog", 2),
              ElementsAre("--title", "Trelvan", "--sorry", "plain & simple\n\\\\n"));
}

TEST_F(Alert, FallsBackToXmessage) {
  desktop.install("xmessage", "");
  show(kOdd);
  EXPECT_THAT(desktop.argumentsOf("xmessage"),
              ElementsAre("-center", "-title", "Trelvan", "-buttons", "OK:0", "-default", "OK",
                          std::string(" ") + kOdd));
}

TEST_F(Alert, MakesTheTextUtf8) {
  desktop.install("zenity", "");
  show(
      "a\xff"
      "b");
  EXPECT_THAT(desktop.argumentsOf("zenity"), testing::Contains("--text=a\xef\xbf\xbd"
                                                               "b"));
}

TEST_F(Alert, IsShownOnce) {
  desktop.install("zenity", "exit 1");  // closed by its window's button
  desktop.install("xmessage", "");
  show("text");
  EXPECT_TRUE(desktop.wasCalled("zenity"));
  EXPECT_FALSE(desktop.wasCalled("xmessage"));
}

TEST_F(Alert, TriesTheNextProgramWhereOneDoesNotWork) {
  desktop.install("zenity", "exit 127");
  desktop.install("xmessage", "");
  show("text");
  EXPECT_TRUE(desktop.wasCalled("xmessage"));
}

TEST_F(Alert, ReturnsAtOnceAndSilentlyWithoutAProgram) {
  show("text");
  desktop.install("zenity", "exit 255");
  show("text");
}

TEST_F(Alert, ReturnsAtOnceWithoutADisplay) {
  desktop.install("zenity", "");
  desktop.display.set(nullptr);
  show("text");
  EXPECT_FALSE(desktop.wasCalled("zenity"));
}

TEST_F(Alert, ReturnsAtOnceWithoutAText) {
  desktop.install("zenity", "");
  show(nullptr);
  EXPECT_FALSE(desktop.wasCalled("zenity"));
}

}  // namespace
