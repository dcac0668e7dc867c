// Where the text entry's window shows, how it looks, and how long it lives.
#import <objc/runtime.h>

#include "textentrytest.h"
#include "vstgui.h"

namespace {

using VSTGUI::CColor;

constexpr double kScreenHeight = 768;  // pixels, as the display was started
constexpr TextEntryPlace kPlace{
    .x = 10, .y = 20, .width = 30, .height = 12, .globalX = 400.5, .globalY = 300.25};

NSColor* color(double red, double green, double blue, double alpha) {
  return [NSColor colorWithCalibratedRed:red green:green blue:blue alpha:alpha];
}

bool same(id one, NSColor* other) { return [one isEqual:other]; }

double screenHeight = 0;  // what the screens say while a test has put this in the place of theirs
NSRect frameOfOtherHeight(id, SEL) { return NSMakeRect(0, 0, 1024, screenHeight); }

// The window's messages that a test counts in the place of the real ones.
int confirmations = 0;
void countConfirmation(id, SEL, id) { ++confirmations; }

// What the window was like when it was shown, and the real message. GNUstep's windows forget their
// behaviour.
int shows = 0;
NSInteger levelWhenShown = 0;
NSUInteger behavior = 0;
NSUInteger behaviorWhenShown = 0;
NSView* firstWhenShown = nil;
void (*reallyShow)(id, SEL, id) = nullptr;
void noteBehavior(id, SEL, NSWindowCollectionBehavior wanted) { behavior = wanted; }
void noteAndShow(id self, SEL command, id sender) {
  if (shows++ == 0) {
    levelWhenShown = [static_cast<NSWindow*>(self) level];
    behaviorWhenShown = behavior;
    firstWhenShown = [static_cast<NSWindow*>(self) initialFirstResponder];
  }
  reallyShow(self, command, sender);
}

// ---- where and how it shows ----

TEST_F(TextEntryOnMac, CoversTheFirstScreen) {
  open();
  const NSRect screen = [[[NSScreen screens] objectAtIndex:0] frame];
  EXPECT_EQ(screen.size.height, kScreenHeight);
  EXPECT_TRUE(NSEqualRects([window() frame], screen));
  EXPECT_FALSE([window() isOpaque]);
  EXPECT_FALSE([window() ignoresMouseEvents]);
  EXPECT_TRUE(same([window() backgroundColor], [NSColor clearColor]));
  EXPECT_EQ([window() level], CGWindowLevelForKey(kCGStatusWindowLevelKey));
  EXPECT_TRUE([window() isReleasedWhenClosed]);
  label->endEntry(false);
}

// In another order the system shows it in the space that is under a host in full screen; and finds
// a first responder itself.
TEST_F(TextEntryOnMac, IsSetUpBeforeItIsShown) {
  Method show = class_getInstanceMethod([NSWindow class], @selector(makeKeyAndOrderFront:));
  reallyShow = reinterpret_cast<void (*)(id, SEL, id)>(
      method_setImplementation(show, reinterpret_cast<IMP>(noteAndShow)));
  Method set = class_getInstanceMethod([NSWindow class], @selector(setCollectionBehavior:));
  const IMP reallySet = method_setImplementation(set, reinterpret_cast<IMP>(noteBehavior));
  TextEntry entry;
  const bool opened = entry.open(label, kPlace);
  method_setImplementation(set, reallySet);
  method_setImplementation(show, reinterpret_cast<IMP>(reallyShow));
  ASSERT_TRUE(opened);
  EXPECT_EQ(shows, 1);
  EXPECT_EQ(levelWhenShown, CGWindowLevelForKey(kCGStatusWindowLevelKey));
  EXPECT_EQ(behaviorWhenShown,
            static_cast<NSUInteger>(NSWindowCollectionBehaviorFullScreenAuxiliary));
  EXPECT_EQ(firstWhenShown, field());
}

TEST_F(TextEntryOnMac, LiesOverTheLabel) {
  open();
  // The label is 240 by 24 at 100, 200; the field 2 higher than the font, and (24 - 14 - 1) / 2
  // below the label's top.
  EXPECT_TRUE(NSEqualRects([field() frame], NSMakeRect(100, kScreenHeight - 204.5 - 16, 240, 16)));
  label->endEntry(false);
}

TEST_F(TextEntryOnMac, CountsTheFramesPlaceFromTheTopOfTheScreen) {
  TextEntry entry;
  ASSERT_TRUE(entry.open(label, kPlace));
  // 768 - 300.25, truncated, is 467.
  EXPECT_TRUE(NSEqualRects([field() frame], NSMakeRect(410.5, 467 - 20 - 12, 30, 12)));
}

TEST_F(TextEntryOnMac, CountsFromTheBottomOfAFirstScreenOfAnyHeight) {
  Method frameMethod = class_getInstanceMethod([NSScreen class], @selector(frame));
  // Height, and the frame's top from the bottom: the height without its fraction, less 300.25,
  // without its fraction.
  const std::pair<double, double> screens[] = {{600, 299}, {1080, 779}, {1440.75, 1139}};
  for (const auto& [height, top] : screens) {
    screenHeight = height;
    const IMP own =
        method_setImplementation(frameMethod, reinterpret_cast<IMP>(frameOfOtherHeight));
    TextEntry entry;
    const bool opened = entry.open(label, kPlace);
    method_setImplementation(frameMethod, own);
    ASSERT_TRUE(opened);
    EXPECT_TRUE(NSEqualRects([field() frame], NSMakeRect(410.5, top - 20 - 12, 30, 12))) << height;
    entry.abandon();
    drainPool();
  }
}

TEST_F(TextEntryOnMac, LooksLikeTheLabel) {
  open();
  NSTextField* shown = field();
  EXPECT_FALSE([shown isBezeled]);
  EXPECT_FALSE([shown drawsBackground]);
  EXPECT_TRUE([shown isEditable]);
  EXPECT_TRUE([shown isSelectable]);
  EXPECT_TRUE([shown isEnabled]);
  EXPECT_EQ([shown alignment], NSTextAlignmentCenter);
  EXPECT_FALSE([[shown cell] wraps]);
  EXPECT_STREQ([[[shown font] fontName] UTF8String], "DejaVuSans");
  EXPECT_EQ([[shown font] pointSize], 14);
  EXPECT_TRUE(same([shown textColor], color(1, 1, 0, 1)));
  label->endEntry(false);
}

TEST_F(TextEntryOnMac, KeepsTheFieldsFontWhereTheLabelsIsMissing) {
  label->setFont(VSTGUI::makeOwned<VSTGUI::CFontDesc>("No Such Font", 14));
  open();
  EXPECT_NE([field() font], nil);
  label->endEntry(false);
}

TEST_F(TextEntryOnMac, SelectsAllTextAtFirst) {
  open();
  EXPECT_EQ([fieldEditor() selectedRange].location, 0U);
  EXPECT_EQ([fieldEditor() selectedRange].length, 7U);
  label->endEntry(false);
}

// ---- colours ----

TEST_F(TextEntryOnMac, TakesTheEditionColorForItsText) {
  label->setCustomFontEditionColor(CColor(51, 102, 255, 204));
  open();
  EXPECT_TRUE(same([field() textColor], color(51 / 255., 102 / 255., 1, 204 / 255.)));
  label->endEntry(false);
}

TEST_F(TextEntryOnMac, TakesTheCaretColor) {
  label->setCustomCaretColor(CColor(0, 255, 0, 255));
  open();
  EXPECT_TRUE(same([fieldEditor() insertionPointColor], color(0, 1, 0, 1)));
  label->endEntry(false);
}

TEST_F(TextEntryOnMac, LeavesTheSelectionsColorsAloneWithoutOwnOnes) {
  // Those of a field editor that nobody has set up.
  NSTextView* plain = [[[NSTextView alloc] initWithFrame:NSMakeRect(0, 0, 10, 10)] autorelease];
  open();
  EXPECT_TRUE([fieldEditor() selectedTextAttributes] == [plain selectedTextAttributes] ||
              [[fieldEditor() selectedTextAttributes] isEqual:[plain selectedTextAttributes]]);
  label->endEntry(false);
}

TEST_F(TextEntryOnMac, SetsTheSelectionsBackgroundAlone) {
  label->setCustomHighlightColor(CColor(0, 0, 255, 255));
  open();
  NSDictionary* attributes = [fieldEditor() selectedTextAttributes];
  EXPECT_TRUE(same([attributes objectForKey:NSBackgroundColorAttributeName], color(0, 0, 1, 1)));
  EXPECT_FALSE(same([attributes objectForKey:NSForegroundColorAttributeName], color(0, 0, 1, 1)));
  label->endEntry(false);
}

TEST_F(TextEntryOnMac, SetsTheSelectionsTextAlone) {
  label->setCustomFontHighlightedColor(CColor(0, 255, 255, 255));
  open();
  NSDictionary* attributes = [fieldEditor() selectedTextAttributes];
  EXPECT_TRUE(same([attributes objectForKey:NSForegroundColorAttributeName], color(0, 1, 1, 1)));
  EXPECT_FALSE(same([attributes objectForKey:NSBackgroundColorAttributeName], color(0, 1, 1, 1)));
  label->endEntry(false);
}

TEST_F(TextEntryOnMac, SetsBothOfTheSelectionsColors) {
  label->setCustomHighlightColor(CColor(0, 0, 255, 255));
  label->setCustomFontHighlightedColor(CColor(0, 255, 255, 255));
  open();
  NSDictionary* attributes = [fieldEditor() selectedTextAttributes];
  EXPECT_EQ([attributes count], 2U);
  EXPECT_TRUE(same([attributes objectForKey:NSBackgroundColorAttributeName], color(0, 0, 1, 1)));
  EXPECT_TRUE(same([attributes objectForKey:NSForegroundColorAttributeName], color(0, 1, 1, 1)));
  label->endEntry(false);
}

// ---- lives ----

TEST_F(TextEntryOnMac, GoesWithoutAWordWhenTheLabelIsRemoved) {
  open();
  type({'q'});
  const VSTGUI::SharedPointer<COrvTextEdit> kept(label);
  removeLabel();
  EXPECT_EQ(listener.calls, "");
  EXPECT_EQ(kept->getText().getString(), "Init 01");
  expectGone();
}

TEST_F(TextEntryOnMac, MayLoseItsLabelInsideTheListener) {
  open();
  listener.onChange = [this] { frame->removeView(label); };
  type({'q', textentry::kReturn});
  EXPECT_TRUE(pump([this] { return listener.calls == "begin value end "; }));
  EXPECT_EQ(listener.text, "q");
  expectGone();
}

TEST_F(TextEntryOnMac, MayBeAskedToEndInsideTheListener) {
  open();
  OrvMCSystemBoxWindow* running = window();
  listener.onChange = [&] {
    [running cancelEditing:nil];
    [running close];
  };
  type({'q', textentry::kReturn});
  expectConfirmed("q");
}

// The system still uses the window and the field in the callback that ends them.
TEST_F(TextEntryOnMac, StaysAliveUntilThePoolGoes) {
  open();
  pumpFor(0.2);
  OrvMCSystemBoxWindow* running = window();
  drainPool();  // with the lists in which they were found, which hold them too
  NSAutoreleasePool* inner = [[NSAutoreleasePool alloc] init];
  [running confirmEditing:nil];
  EXPECT_EQ(alive("OrvMCSystemBoxWindow"), 1);
  EXPECT_EQ(alive("OrvMCMyTextField"), 1);
  [inner release];
  expectGone();
}

TEST_F(TextEntryOnMac, ListensForResigningTwiceAndNotAnyMoreWhenItHasEnded) {
  open();
  OrvMCSystemBoxWindow* running = [window() retain];
  Method method = class_getInstanceMethod([OrvMCSystemBoxWindow class], @selector(confirmEditing:));
  const IMP real = method_setImplementation(method, reinterpret_cast<IMP>(countConfirmation));
  confirmations = 0;
  [[NSNotificationCenter defaultCenter] postNotificationName:NSWindowDidResignMainNotification
                                                      object:running];
  EXPECT_EQ(confirmations, 2);
  [[NSNotificationCenter defaultCenter] postNotificationName:NSWindowDidResignMainNotification
                                                      object:NSApp];
  EXPECT_EQ(confirmations, 2) << "another window's resigning is not its own";
  label->endEntry(false);
  confirmations = 0;
  [[NSNotificationCenter defaultCenter] postNotificationName:NSWindowDidResignMainNotification
                                                      object:running];
  EXPECT_EQ(confirmations, 0);
  method_setImplementation(method, real);
  [running release];
}

}  // namespace
