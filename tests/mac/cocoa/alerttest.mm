// The alert that its owner asks for, on GNUstep.
#include "platform/alert.h"

#include <cstdint>
#include <memory>

#import "cocoatest.h"
#include "testdisplay.h"

namespace {

constexpr std::uint32_t kReturn = 0xFF0D;  // X11's key symbol

class AlertOnMac : public CocoaTest {
 protected:
  // Lets the user act, while an alert is up and has the keyboard, until it has gone.
  void whileUp(const std::function<void()>& user) {
    const auto seen = std::make_shared<bool>(false);
    repeatUntilDone([this, user, seen, ticks = 0]() mutable {
      NSWindow* panel = [NSApp modalWindow];
      if (panel == nil) return static_cast<bool>(*seen);
      *seen = true;
      const auto window =
          static_cast<xcb_window_t>(reinterpret_cast<std::uintptr_t>([panel windowRef]));
      if (display.focused() != window) display.focus(window);
      if (![panel isKeyWindow]) [panel makeKeyWindow];
      // twice a second: a key that comes too soon after the window gets lost here
      if ([panel isKeyWindow] && ++ticks % 10 == 5) user();
      return false;
    });
    EXPECT_TRUE(pump([seen] { return *seen && [NSApp modalWindow] == nil; }));
  }

  TestDisplay display;
};

TEST_F(AlertOnMac, IsStartedAndAskedFor) {
  Alert alert;
  EXPECT_EQ(alert.poll(), Alert::State::none);
  alert.start("text");
  EXPECT_EQ([NSApp modalWindow], nil) << "not from inside the call";
  EXPECT_EQ(alert.poll(), Alert::State::running);
  whileUp([&] {
    EXPECT_EQ(alert.poll(), Alert::State::running);
    display.tap(kReturn);
  });
  EXPECT_EQ(alert.poll(), Alert::State::dismissed);
  alert.cancel();
  drainPool();
  EXPECT_EQ(alive("Orv_Tlvn_Alert"), 0);
}

TEST_F(AlertOnMac, IsNotShownWhenItIsCancelledBefore) {
  Alert alert;
  alert.start("text");
  alert.cancel();
  pumpFor(0.5);
  EXPECT_EQ([NSApp modalWindow], nil);
  EXPECT_EQ(alert.poll(), Alert::State::none);
  drainPool();
  EXPECT_EQ(alive("Orv_Tlvn_Alert"), 0);
}

// The host runs its own code while the alert is up.
TEST_F(AlertOnMac, MayLoseItsOwnerWhileItIsUp) {
  auto alert = std::make_unique<Alert>();
  alert->start("text");
  whileUp([&] {
    alert.reset();
    display.tap(kReturn);
  });
  drainPool();
  EXPECT_EQ(alive("Orv_Tlvn_Alert"), 0);
}

}  // namespace
