// In-place text entry, on GNUstep with the real label and real keys and clicks.
#include <chrono>
#include <cstdint>
#include <string>
#include <thread>

#include "editor/corvtextedit.h"

#import "cocoatest.h"
#import "editor/mac/textentrywindow.h"
#include "lib/vstguiinit.h"
#include "testdisplay.h"

#import <objc/runtime.h>

namespace {

using VSTGUI::CColor;
using VSTGUI::CRect;

constexpr std::uint32_t kReturn = 0xFF0D;  // X11's key symbols
constexpr std::uint32_t kKeypadEnter = 0xFF8D;
constexpr std::uint32_t kEscape = 0xFF1B;
constexpr std::uint32_t kTab = 0xFF09;
constexpr std::uint32_t kEnd = 0xFF57;
constexpr std::uint32_t kControl = 0xFFE3;
constexpr std::uint32_t kAlt = 0xFFE9;  // GNUstep's Command
constexpr double kScreenHeight = 800;   // pixels, as the display was started

struct Listener : VSTGUI::IControlListener {
  void valueChanged(VSTGUI::CControl* control) override {
    calls += "value ";
    text = static_cast<COrvTextEdit*>(control)->getText().getString();
    if (onChange) onChange();
  }
  void controlBeginEdit(VSTGUI::CControl*) override { calls += "begin "; }
  void controlEndEdit(VSTGUI::CControl*) override { calls += "end "; }
  std::string calls, text;
  std::function<void()> onChange;
};

NSColor* color(double red, double green, double blue, double alpha) {
  return [NSColor colorWithCalibratedRed:red green:green blue:blue alpha:alpha];
}

bool same(id one, NSColor* other) { return [one isEqual:other]; }

// The window's messages that a test counts in the place of the real ones.
int confirmations = 0;
void countConfirmation(id, SEL, id) { ++confirmations; }

class TextEntryMac : public CocoaTest {
 protected:
  static void SetUpTestSuite() { VSTGUI::init(nullptr); }
  static void TearDownTestSuite() { VSTGUI::exit(); }

  void SetUp() override {
    CocoaTest::SetUp();
    [NSApp unhideWithoutActivation];
    [NSApp activateIgnoringOtherApps:YES];
    frame = new VSTGUI::CFrame(CRect(0, 0, 1000, 700), nullptr);
    makeLabel("Init 01");
  }
  void TearDown() override {
    if (frame != nullptr) removeLabel();
    CocoaTest::TearDown();
  }

  void makeLabel(const char* text) {
    if (label != nullptr) frame->removeView(label);
    label = new COrvTextEdit(CRect(100, 200, 340, 224), &listener, 1000, text, nullptr, 0, false);
    label->setFont(VSTGUI::makeOwned<VSTGUI::CFontDesc>("DejaVuSans", 14));
    label->setFontColor(CColor(255, 255, 0, 255));
    frame->addView(label);
    frame->attached(frame);
  }
  void removeLabel() {
    frame->removeAll();
    frame->forget();
    frame = nullptr;
  }

  VSTGUI::CMouseEventResult press(std::int32_t button = VSTGUI::kLButton) {
    NSAutoreleasePool* inner = [[NSAutoreleasePool alloc] init];
    VSTGUI::CPoint where(110, 205);
    const auto result = label->onMouseDown(where, VSTGUI::CButtonState(button));
    [inner release];
    return result;
  }

  static OrvMCSystemBoxWindow* window() {
    for (NSWindow* candidate in [NSApp windows]) {
      if ([candidate isKindOfClass:[OrvMCSystemBoxWindow class]]) {
        return static_cast<OrvMCSystemBoxWindow*>(candidate);
      }
    }
    return nil;
  }
  static NSTextField* field() { return [[[window() contentView] subviews] objectAtIndex:0]; }
  static NSTextView* fieldEditor() { return static_cast<NSTextView*>([window() fieldEditor:NO forObject:field()]); }

  // Opens the entry and waits until keys would reach it.
  void open() {
    press();
    ASSERT_TRUE(label->isBeingEdited());
    const auto xWindow = static_cast<xcb_window_t>(reinterpret_cast<std::uintptr_t>([window() windowRef]));
    ASSERT_TRUE(pump([&] {
      if (display.focused() != xWindow) display.focus(xWindow);
      return [window() isKeyWindow] && [window() isMainWindow] && display.focused() == xWindow;
    }));
    pumpFor(0.1);
  }
  void type(std::initializer_list<std::uint32_t> keys) {
    for (const std::uint32_t key : keys) {
      display.tap(key);
      pumpFor(0.03);
    }
  }
  void typeWith(std::uint32_t modifier, std::uint32_t key) {
    display.keyDown(modifier);
    pumpFor(0.05);
    display.tap(key);
    pumpFor(0.05);
    display.keyUp(modifier);
  }
  void click(double x, double y) {  // from the screen's top left
    display.moveTo(static_cast<int>(x), static_cast<int>(y));
    std::thread finger([] {  // on its own: a field that is pressed waits for the release, and lets no timer fire
      TestDisplay own;
      std::this_thread::sleep_for(std::chrono::milliseconds(100));
      own.press(1);
      std::this_thread::sleep_for(std::chrono::milliseconds(150));
      own.release(1);
    });
    pumpFor(0.4);
    finger.join();
    pumpFor(0.1);
  }

  bool ends() {
    return pump([this] { return !label->isBeingEdited(); });
  }
  void expectConfirmed(const std::string& text) {
    ASSERT_TRUE(ends());
    EXPECT_EQ(label->getText().getString(), text);
    EXPECT_EQ(listener.calls, "begin value end ");
    EXPECT_EQ(listener.text, text);
    expectGone();
  }
  void expectCancelled() {
    ASSERT_TRUE(ends());
    EXPECT_EQ(label->getText().getString(), "Init 01");
    EXPECT_EQ(listener.calls, "");
    expectGone();
  }
  void expectGone() {
    drainPool();
    EXPECT_EQ(alive("OrvMCSystemBoxWindow"), 0);
    EXPECT_EQ(alive("OrvMCMyTextField"), 0);
  }
  // Still open after a moment; then Escape.
  void expectStaysOpen() {
    pumpFor(0.3);
    EXPECT_TRUE(label->isBeingEdited());
    type({kEscape});
    expectCancelled();
  }

  VSTGUI::CFrame* frame = nullptr;
  COrvTextEdit* label = nullptr;
  Listener listener;
  TestDisplay display;
};

// ---- what ends it ----

TEST_F(TextEntryMac, ReturnConfirms) {
  open();
  type({'a', 'b', kReturn});
  expectConfirmed("ab");
}

TEST_F(TextEntryMac, KeypadEnterConfirms) {
  open();
  type({'a', 'b', kKeypadEnter});
  expectConfirmed("ab");
}

TEST_F(TextEntryMac, EscapeCancels) {
  open();
  type({'a', 'b', kEscape});
  expectCancelled();
}

TEST_F(TextEntryMac, AClickElsewhereConfirms) {
  open();
  click(900, 600);
  expectConfirmed("Init 01");
}

TEST_F(TextEntryMac, AClickInTheFieldMovesTheCaret) {
  open();
  click(330, 212);
  type({'x', kReturn});
  ASSERT_TRUE(ends());
  EXPECT_EQ(listener.calls, "begin value end ");
  const std::string text = label->getText().getString();
  EXPECT_EQ(text.size(), 8U) << text;  // one letter more, so the selection was gone
  EXPECT_NE(text.find('x'), std::string::npos);
}

TEST_F(TextEntryMac, AKeyWithCommandConfirms) {
  open();
  typeWith(kAlt, 'c');
  expectConfirmed("Init 01");
}

TEST_F(TextEntryMac, AKeyWithControlDoesNotEndIt) {
  open();
  typeWith(kControl, 'c');
  expectStaysOpen();
}

TEST_F(TextEntryMac, TabDoesNotEndIt) {
  open();
  type({kTab});
  expectStaysOpen();
}

TEST_F(TextEntryMac, AnotherWindowThatBecomesMainConfirms) {
  open();
  NSWindow* other = [[NSWindow alloc] initWithContentRect:NSMakeRect(50, 50, 200, 100)
                                                styleMask:NSTitledWindowMask
                                                  backing:NSBackingStoreBuffered
                                                    defer:NO];
  [other setReleasedWhenClosed:NO];
  [other makeKeyAndOrderFront:nil];
  [other makeMainWindow];
  expectConfirmed("Init 01");
  [other close];
  [other release];
}

TEST_F(TextEntryMac, AnotherApplicationConfirms) {
  open();
  [NSApp deactivate];
  expectConfirmed("Init 01");
}

TEST_F(TextEntryMac, HidingTheApplicationConfirms) {
  open();
  [NSApp hide:nil];
  expectConfirmed("Init 01");
}

TEST_F(TextEntryMac, AnotherProgramsWindowConfirms) {
  open();
  const xcb_window_t other = display.makeWindow({1000, 700, 1200, 780});
  display.focus(other);
  expectConfirmed("Init 01");
  display.destroyWindow(other);
}

TEST_F(TextEntryMac, WhoeverClosesTheWindowConfirms) {
  open();
  [window() close];
  expectConfirmed("Init 01");
}

TEST_F(TextEntryMac, EndsFromTheLabelsSideToo) {
  open();
  type({'q'});
  label->endEntry(true);
  expectConfirmed("q");
  listener.calls.clear();
  label->setText("Init 01");
  open();
  type({'q'});
  label->endEntry(false);
  expectCancelled();
}

TEST_F(TextEntryMac, EndsOnce) {
  open();
  OrvMCSystemBoxWindow* running = window();
  [running confirmEditing:nil];
  [running cancelEditing:nil];
  [running confirmEditing:nil];
  expectConfirmed("Init 01");
}

// ---- the press that opens it ----

TEST_F(TextEntryMac, ARightClickOpensItToo) {
  press(VSTGUI::kRButton);
  EXPECT_TRUE(label->isBeingEdited());
  label->endEntry(false);
}

TEST_F(TextEntryMac, ASecondPressIsSwallowed) {
  open();
  OrvMCSystemBoxWindow* first = window();
  EXPECT_EQ(press(VSTGUI::kRButton), VSTGUI::kMouseEventHandled);
  EXPECT_EQ(alive("OrvMCSystemBoxWindow"), 1);
  EXPECT_EQ(window(), first);
  type({'q', kReturn});
  expectConfirmed("q");
}

TEST_F(TextEntryMac, OpensAgain) {
  open();
  type({'a', kReturn});
  expectConfirmed("a");
  listener.calls.clear();
  open();
  type({'b', kReturn});
  expectConfirmed("b");
}

// ---- the text ----

TEST_F(TextEntryMac, KeepsCharactersOfEveryLanguage) {
  const std::string text = "h\xC3\xA9\xC3\x9F \xE4\xB8\x96";
  makeLabel(text.c_str());
  open();
  type({kEnd, 'x', kReturn});
  expectConfirmed(text + "x");
}

TEST_F(TextEntryMac, LeavesOutACharacterThatWasCut) {
  makeLabel("Hall \xC3");
  open();
  EXPECT_STREQ([[field() stringValue] UTF8String], "Hall ");
  label->endEntry(false);
}

// ---- where and how it shows ----

TEST_F(TextEntryMac, CoversTheFirstScreen) {
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

TEST_F(TextEntryMac, LiesOverTheLabel) {
  open();
  // The label is 240 by 24 at 100, 200; the field 2 higher than the font, and (24 - 14 - 1) / 2 below the label's top.
  EXPECT_TRUE(NSEqualRects([field() frame], NSMakeRect(100, kScreenHeight - 204.5 - 16, 240, 16)));
  label->endEntry(false);
}

TEST_F(TextEntryMac, CountsTheFramesPlaceFromTheTopOfTheScreen) {
  auto entry = openTextEntry(label, {.x = 10, .y = 20, .width = 30, .height = 12, .globalX = 400.5, .globalY = 300.25});
  ASSERT_NE(entry, nullptr);
  // 800 - 300.25, truncated, is 499.
  EXPECT_TRUE(NSEqualRects([field() frame], NSMakeRect(410.5, 499 - 20 - 12, 30, 12)));
}

TEST_F(TextEntryMac, LooksLikeTheLabel) {
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

TEST_F(TextEntryMac, KeepsTheFieldsFontWhereTheLabelsIsMissing) {
  label->setFont(VSTGUI::makeOwned<VSTGUI::CFontDesc>("No Such Font", 14));
  open();
  EXPECT_NE([field() font], nil);
  label->endEntry(false);
}

TEST_F(TextEntryMac, SelectsAllTextAtFirst) {
  open();
  EXPECT_EQ([fieldEditor() selectedRange].location, 0U);
  EXPECT_EQ([fieldEditor() selectedRange].length, 7U);
  label->endEntry(false);
}

// ---- colours ----

TEST_F(TextEntryMac, TakesTheEditionColorForItsText) {
  label->setCustomFontEditionColor(CColor(51, 102, 255, 204));
  open();
  EXPECT_TRUE(same([field() textColor], color(51 / 255., 102 / 255., 1, 204 / 255.)));
  label->endEntry(false);
}

TEST_F(TextEntryMac, TakesTheCaretColor) {
  label->setCustomCaretColor(CColor(0, 255, 0, 255));
  open();
  EXPECT_TRUE(same([fieldEditor() insertionPointColor], color(0, 1, 0, 1)));
  label->endEntry(false);
}

TEST_F(TextEntryMac, LeavesTheSelectionsColorsAloneWithoutOwnOnes) {
  // Those of a field editor that nobody has set up.
  NSTextView* plain = [[[NSTextView alloc] initWithFrame:NSMakeRect(0, 0, 10, 10)] autorelease];
  open();
  EXPECT_TRUE([fieldEditor() selectedTextAttributes] == [plain selectedTextAttributes] ||
              [[fieldEditor() selectedTextAttributes] isEqual:[plain selectedTextAttributes]]);
  label->endEntry(false);
}

TEST_F(TextEntryMac, SetsTheSelectionsBackgroundAlone) {
  label->setCustomHighlightColor(CColor(0, 0, 255, 255));
  open();
  NSDictionary* attributes = [fieldEditor() selectedTextAttributes];
  EXPECT_TRUE(same([attributes objectForKey:NSBackgroundColorAttributeName], color(0, 0, 1, 1)));
  EXPECT_FALSE(same([attributes objectForKey:NSForegroundColorAttributeName], color(0, 0, 1, 1)));
  label->endEntry(false);
}

TEST_F(TextEntryMac, SetsTheSelectionsTextAlone) {
  label->setCustomFontHighlightedColor(CColor(0, 255, 255, 255));
  open();
  NSDictionary* attributes = [fieldEditor() selectedTextAttributes];
  EXPECT_TRUE(same([attributes objectForKey:NSForegroundColorAttributeName], color(0, 1, 1, 1)));
  EXPECT_FALSE(same([attributes objectForKey:NSBackgroundColorAttributeName], color(0, 1, 1, 1)));
  label->endEntry(false);
}

TEST_F(TextEntryMac, SetsBothOfTheSelectionsColors) {
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

TEST_F(TextEntryMac, GoesWithoutAWordWhenTheLabelIsRemoved) {
  open();
  type({'q'});
  const VSTGUI::SharedPointer<COrvTextEdit> kept(label);
  removeLabel();
  EXPECT_EQ(listener.calls, "");
  EXPECT_EQ(kept->getText().getString(), "Init 01");
  expectGone();
}

TEST_F(TextEntryMac, MayLoseItsLabelInsideTheListener) {
  open();
  listener.onChange = [this] { frame->removeView(label); };
  type({'q', kReturn});
  EXPECT_TRUE(pump([this] { return listener.calls == "begin value end "; }));
  EXPECT_EQ(listener.text, "q");
  expectGone();
}

TEST_F(TextEntryMac, MayBeAskedToEndInsideTheListener) {
  open();
  OrvMCSystemBoxWindow* running = window();
  listener.onChange = [&] {
    [running cancelEditing:nil];
    [running close];
  };
  type({'q', kReturn});
  expectConfirmed("q");
}

// The system still uses the window and the field in the callback that ends them.
TEST_F(TextEntryMac, StaysAliveUntilThePoolGoes) {
  open();
  pumpFor(0.2);
  NSAutoreleasePool* inner = [[NSAutoreleasePool alloc] init];
  [window() confirmEditing:nil];
  EXPECT_EQ(alive("OrvMCSystemBoxWindow"), 1);
  EXPECT_EQ(alive("OrvMCMyTextField"), 1);
  [inner release];
  expectGone();
}

TEST_F(TextEntryMac, ListensForResigningTwiceAndNotAnyMoreWhenItHasEnded) {
  open();
  OrvMCSystemBoxWindow* running = [window() retain];
  Method method = class_getInstanceMethod([OrvMCSystemBoxWindow class], @selector(confirmEditing:));
  const IMP real = method_setImplementation(method, reinterpret_cast<IMP>(countConfirmation));
  confirmations = 0;
  [[NSNotificationCenter defaultCenter] postNotificationName:NSWindowDidResignMainNotification object:running];
  EXPECT_EQ(confirmations, 2);
  label->endEntry(false);
  confirmations = 0;
  [[NSNotificationCenter defaultCenter] postNotificationName:NSWindowDidResignMainNotification object:running];
  EXPECT_EQ(confirmations, 0);
  method_setImplementation(method, real);
  [running release];
}

}  // namespace
