// The plain window of widen's, on GNUstep.
#include "host/vst/plainwindow.h"

#include <unistd.h>

#include <cstdint>
#include <memory>

#import "cocoatest.h"
#include "testdisplay.h"

@interface KeyCounter : NSView {
 @public
  int keys;
}
@end

@implementation KeyCounter
- (BOOL)acceptsFirstResponder {
  return YES;
}
- (void)keyDown:(NSEvent*)event {
  (void)event;
  ++keys;
}
@end

@implementation NSApplication (ActivationPolicy)
- (BOOL)setActivationPolicy:(NSInteger)policy {
  (void)policy;
  return YES;
}
@end

namespace {

class PlainWindowMac : public CocoaTest {
 protected:
  static NSWindow* shown() { return [static_cast<NSView*>(window().handle()) window]; }
  static PlainWindow& window() { return *open; }

  void TearDown() override {
    open.reset();
    CocoaTest::TearDown();
    EXPECT_EQ(alive("WidenWindowDelegate"), 0);
  }

  static inline std::unique_ptr<PlainWindow> open;
};

TEST_F(PlainWindowMac, ShowsItsTitleAroundAContentOfTheSize) {
  open = std::make_unique<PlainWindow>(302, 251, "Orv Tr\xC3\xA4lvan");
  EXPECT_TRUE([shown() isVisible]);
  EXPECT_STREQ([[shown() title] UTF8String], "Orv Tr\xC3\xA4lvan");
  EXPECT_TRUE(NSEqualSizes([[shown() contentView] frame].size, NSMakeSize(302, 251)));
  EXPECT_EQ([shown() styleMask] & NSResizableWindowMask, 0U);
}

TEST_F(PlainWindowMac, GrowsDownwards) {
  open = std::make_unique<PlainWindow>(302, 251, "title");
  const NSRect before = [shown() frame];
  window().resize(400, 300);
  EXPECT_TRUE(NSEqualSizes([[shown() contentView] frame].size, NSMakeSize(400, 300)));
  EXPECT_EQ(NSMaxY([shown() frame]), NSMaxY(before));
  EXPECT_EQ([shown() frame].origin.x, before.origin.x);
}

TEST_F(PlainWindowMac, IsWantedUntilTheUserClosesItAndStaysForTheEffectMeanwhile) {
  open = std::make_unique<PlainWindow>(302, 251, "title");
  EXPECT_TRUE(window().wanted());
  [shown() performClose:nil];
  EXPECT_FALSE(window().wanted());
  EXPECT_TRUE([shown() isVisible]) << "the effect's view is still in it";
}

TEST_F(PlainWindowMac, GivesKeysToTheEffectsViewAndTimersTheirTurn) {
  TestDisplay display;
  open = std::make_unique<PlainWindow>(302, 251, "title");
  KeyCounter* view = [[[KeyCounter alloc] initWithFrame:NSMakeRect(0, 0, 9, 9)] autorelease];
  [static_cast<NSView*>(window().handle()) addSubview:view];
  [shown() makeFirstResponder:view];
  const auto xWindow =
      static_cast<xcb_window_t>(reinterpret_cast<std::uintptr_t>([shown() windowRef]));
  // From a timer: a key that comes before the window has the keyboard is lost.
  repeatUntilDone([&] {
    if (display.focused() != xWindow) display.focus(xWindow);
    if ([shown() isKeyWindow]) display.tap('a');
    return view->keys > 0;
  });
  for (int i = 0; i < 2000 && view->keys == 0; ++i) {
    window().wanted();
    usleep(5000);  // microseconds
  }
  EXPECT_GT(view->keys, 0);
}

TEST_F(PlainWindowMac, GoesWithItsOwner) {
  const int before = alive("NSWindow");
  open = std::make_unique<PlainWindow>(302, 251, "title");
  EXPECT_EQ(alive("NSWindow"), before + 1);
  window().wanted();
  open.reset();
  drainPool();
  EXPECT_EQ(alive("NSWindow"), before);
}

}  // namespace
