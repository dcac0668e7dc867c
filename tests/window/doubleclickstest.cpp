// Double clicks in hosts that idle as seldom as they like.
#include <chrono>
#include <thread>

#include "settingsmanager.h"
#include "windowtest.h"

namespace {

// On a default button: only a double click stores something.
class DoubleClicks : public WindowTest {
 protected:
  DoubleClicks() {
    host.openEditor();
    host.hover(places::kDefaultPreset);
  }
  static void wait(int milliseconds) {
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
  }
  void click() {
    host.display.press(1);
    host.display.release(1);
  }
  bool isStored() const { return !preferences().empty(); }

  WindowHost host;
  SettingsManager desktop;
};

}  // namespace

TEST_F(DoubleClicks, TwoQuickPressesAreOneThatTwoLatePassesSee) {
  click();
  wait(10);
  host.idle();  // it takes the first
  click();
  wait(600);
  host.idle();
  EXPECT_TRUE(isStored());
}

TEST_F(DoubleClicks, TwoQuickPressesAreOneThatALatePassSees) {
  click();
  wait(100);
  click();
  wait(500);
  host.idle();
  EXPECT_TRUE(isStored());
}

TEST_F(DoubleClicks, TwoSlowPressesAreNoneThoughOnePassSeesBoth) {
  click();
  wait(600);
  click();
  host.idle();
  EXPECT_FALSE(isStored());
}

TEST_F(DoubleClicks, FourHundredMillisecondsAreTheMostWithoutADesktop) {
  click();
  host.idle();
  wait(330);  // more than the toolkit's 250
  click();
  host.idle();
  EXPECT_TRUE(isStored());
}

TEST_F(DoubleClicks, TheDesktopsTimeIsTheMostAsItIsAtThePress) {
  const auto setTime = [this](int milliseconds) {
    XSettingsBytes settings;
    settings.number("Net/DoubleClickTime", milliseconds);
    desktop.publish(settings.bytes());
  };
  const auto twoPresses = [this](int apart) {
    click();
    wait(apart);
    click();
    host.idle();
  };
  setTime(250);
  twoPresses(330);
  EXPECT_FALSE(isStored());
  wait(300);  // the next one is a first one
  setTime(900);
  twoPresses(500);
  EXPECT_TRUE(isStored());
}
