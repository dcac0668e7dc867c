// Tests of the alert that nobody waits for, with fake dialog programs.
#include "platform/xplatalert.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>

#include "tests/support/fakedesktop.h"

namespace {

class XplatAlert : public testing::Test {
 protected:
  FakeDesktop desktop;
};

TEST_F(XplatAlert, IsStartedAndNotWaitedFor) {
  desktop.install("zenity", "exec /bin/sleep 60");
  XPlatDisplayAlert("text");
  ASSERT_TRUE(desktop.isCalled("zenity"));
  const int shown = desktop.pidOf("zenity");
  EXPECT_THAT(desktop.argumentsOf("zenity"), testing::Contains("--text=text"));
  EXPECT_EQ(kill(shown, 0), 0);
  desktop.install("zenity", "");
  XPlatDisplayAlert("the next");  // which takes its place
  ASSERT_TRUE(desktop.isCalled("zenity", 2));
  EXPECT_NE(kill(shown, 0), 0);
}

TEST_F(XplatAlert, ReturnsSilentlyWithoutAProgramADisplayOrAText) {
  testing::internal::CaptureStderr();
  XPlatDisplayAlert("text");
  desktop.install("zenity", "");
  XPlatDisplayAlert(nullptr);
  desktop.display.set(nullptr);
  XPlatDisplayAlert("text");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  EXPECT_FALSE(desktop.wasCalled("zenity"));
}

}  // namespace
