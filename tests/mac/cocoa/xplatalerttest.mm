// The alert, on GNUstep, dismissed by real keys and a real click.
#include "platform/xplatalert.h"

#import <objc/runtime.h>

#include <chrono>
#include <cstdint>
#include <memory>
#include <thread>

#import "cocoatest.h"
#include "testdisplay.h"

namespace {

constexpr std::uint32_t kReturn = 0xFF0D;  // X11's key symbols
constexpr std::uint32_t kEscape = 0xFF1B;

NSView* viewWith(NSView* view, const std::function<bool(NSView*)>& wanted) {
  if (wanted(view)) return view;
  for (NSView* child in [view subviews]) {
    if (NSView* found = viewWith(child, wanted)) return found;
  }
  return nil;
}

class XplatAlertMac : public CocoaTest {
 protected:
  // Shows the alert and, while it is up and has the keyboard, lets the user act twice a second: a
  // key that comes too soon after the window gets lost here.
  void show(const char* message, std::function<void(NSWindow*)> user) {
    constexpr int kHalfSecond = 10;  // ticks
    const auto ended = std::make_shared<bool>(false);
    repeatUntilDone([this, user, ended, ticks = 0]() mutable {
      if (*ended) return true;
      NSWindow* panel = [NSApp modalWindow];
      if (panel == nil) return false;
      const auto window =
          static_cast<xcb_window_t>(reinterpret_cast<std::uintptr_t>([panel windowRef]));
      if (display.focused() != window) display.focus(window);
      // GNUstep 0.32 does not take that from the focus
      if (![panel isKeyWindow]) [panel makeKeyWindow];
      if ([panel isKeyWindow] && ++ticks % kHalfSecond == 5) user(panel);
      return false;
    });
    XPlatDisplayAlert(message);
    *ended = true;
    EXPECT_EQ([NSApp modalWindow], nil);
    pumpFor(0.1);
    drainPool();
    EXPECT_EQ(alive("NSAlert"), 0);
  }

  static bool shows(NSWindow* panel, NSString* text) {
    return viewWith([panel contentView], [text](NSView* view) {
             return [view isKindOfClass:[NSTextField class]] &&
                    [[static_cast<NSTextField*>(view) stringValue] isEqualToString:text];
           }) != nil;
  }

  static int buttons(NSWindow* panel) {
    int count = 0;
    viewWith([panel contentView], [&count](NSView* view) {
      const bool button = [view isKindOfClass:[NSButton class]];
      // GNUstep's own icon is a button too, without an action.
      count += button && [static_cast<NSButton*>(view) action] != nullptr ? 1 : 0;
      return false;
    });
    return count;
  }

  TestDisplay display;
};

// What the alert is like in the place of being run.
NSAlertStyle styleWhenRun = NSInformationalAlertStyle;
NSInteger noteStyle(id self, SEL) {
  styleWhenRun = [static_cast<NSAlert*>(self) alertStyle];
  return 0;
}

TEST_F(XplatAlertMac, IsAWarning) {
  for (const NSAlertStyle before : {NSInformationalAlertStyle, NSCriticalAlertStyle}) {
    styleWhenRun = before;
    Method run = class_getInstanceMethod([NSAlert class], @selector(runModal));
    const IMP real = method_setImplementation(run, reinterpret_cast<IMP>(noteStyle));
    XPlatDisplayAlert("text");
    method_setImplementation(run, real);
    EXPECT_EQ(styleWhenRun, NSWarningAlertStyle);
  }
}

TEST_F(XplatAlertMac, ShowsTheMessageAndOneButton) {
  bool message = false;
  int buttonCount = 0;
  show("Could not open manual file:\n~/\"Documents\"", [&](NSWindow* panel) {
    message = shows(panel, @"Could not open manual file:\n~/\"Documents\"");
    buttonCount = buttons(panel);
    display.tap(kReturn);
  });
  EXPECT_TRUE(message);
  EXPECT_EQ(buttonCount, 1);
}

TEST_F(XplatAlertMac, IsDismissedByEscape) {
  show("text", [this](NSWindow*) { display.tap(kEscape); });
}

TEST_F(XplatAlertMac, IsDismissedByAClickOnOk) {
  std::thread finger;
  show("text", [this, &finger](NSWindow* panel) {
    if (finger.joinable()) finger.join();
    NSView* button = viewWith([panel contentView], [](NSView* view) {
      return [view isKindOfClass:[NSButton class]] &&
             [[static_cast<NSButton*>(view) title] isEqualToString:@"OK"];
    });
    const NSRect frame = [button convertRect:[button bounds] toView:nil];
    const NSPoint middle = [panel convertBaseToScreen:NSMakePoint(NSMidX(frame), NSMidY(frame))];
    const double height = [[[NSScreen screens] objectAtIndex:0] frame].size.height;
    display.moveTo(static_cast<int>(middle.x), static_cast<int>(height - middle.y));
    finger = std::thread([] {  // on its own: a button that is pressed waits for the release
      TestDisplay own;
      own.press(1);
      std::this_thread::sleep_for(std::chrono::milliseconds(150));
      own.release(1);
    });
  });
  finger.join();
}

TEST_F(XplatAlertMac, ShowsBytesAbove127AsRomanCharacters) {
  bool message = false;
  show("M\x8Asik", [&](NSWindow* panel) {
    message = shows(panel, [NSString stringWithUTF8String:"M\xC3\xA4sik"]);
    display.tap(kReturn);
  });
  EXPECT_TRUE(message);
}

TEST_F(XplatAlertMac, TakesNoMessage) {
  show(nullptr, [this](NSWindow*) { display.tap(kReturn); });
}

}  // namespace
