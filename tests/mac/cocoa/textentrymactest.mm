// What opens and ends the text entry, and what becomes of the text.
#include "textentrytest.h"

#include "vstgui.h"

namespace {

using namespace textentry;

// ---- what ends it ----

TEST_F(TextEntryOnMac, ReturnConfirms) {
  open();
  type({'a', 'b', kReturn});
  expectConfirmed("ab");
}

TEST_F(TextEntryOnMac, KeypadEnterConfirms) {
  open();
  type({'a', 'b', kKeypadEnter});
  expectConfirmed("ab");
}

TEST_F(TextEntryOnMac, EscapeCancels) {
  open();
  type({'a', 'b', kEscape});
  expectCancelled();
}

TEST_F(TextEntryOnMac, AClickElsewhereConfirms) {
  open();
  click(900, 600);
  expectConfirmed("Init 01");
}

TEST_F(TextEntryOnMac, AClickInTheFieldMovesTheCaret) {
  open();
  click(330, 212);
  type({'x', kReturn});
  ASSERT_TRUE(ends());
  EXPECT_EQ(listener.calls, "begin value end ");
  const std::string text = label->getText().getString();
  EXPECT_EQ(text.size(), 8U) << text;  // one letter more, so the selection was gone
  EXPECT_NE(text.find('x'), std::string::npos);
}

TEST_F(TextEntryOnMac, AKeyWithCommandConfirms) {
  open();
  typeWith(kAlt, 'c');
  expectConfirmed("Init 01");
}

TEST_F(TextEntryOnMac, AKeyWithControlDoesNotEndIt) {
  open();
  typeWith(kControl, 'c');
  expectStaysOpen();
}

TEST_F(TextEntryOnMac, TabDoesNotEndIt) {
  open();
  type({kTab});
  expectStaysOpen();
}

TEST_F(TextEntryOnMac, AnotherWindowThatBecomesMainConfirms) {
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

TEST_F(TextEntryOnMac, AnotherApplicationConfirms) {
  open();
  [NSApp deactivate];
  expectConfirmed("Init 01");
}

TEST_F(TextEntryOnMac, HidingTheApplicationConfirms) {
  open();
  [NSApp hide:nil];
  expectConfirmed("Init 01");
}

TEST_F(TextEntryOnMac, AnotherProgramsWindowConfirms) {
  open();
  const xcb_window_t other = display.makeWindow({800, 700, 1000, 760});
  display.focus(other);
  expectConfirmed("Init 01");
  display.destroyWindow(other);
}

TEST_F(TextEntryOnMac, WhoeverClosesTheWindowConfirms) {
  open();
  // as where it is not the main window
  [[NSNotificationCenter defaultCenter] removeObserver:window()];
  [window() close];
  expectConfirmed("Init 01");
}

TEST_F(TextEntryOnMac, EndsFromTheLabelsSideToo) {
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

TEST_F(TextEntryOnMac, EndsOnce) {
  open();
  OrvMCSystemBoxWindow* running = window();
  [running confirmEditing:nil];
  [running cancelEditing:nil];
  [running confirmEditing:nil];
  expectConfirmed("Init 01");
}

// ---- the press that opens it ----

TEST_F(TextEntryOnMac, ARightClickOpensItToo) {
  press(VSTGUI::kRButton);
  EXPECT_TRUE(label->isBeingEdited());
  label->endEntry(false);
}

TEST_F(TextEntryOnMac, ASecondPressIsSwallowed) {
  open();
  OrvMCSystemBoxWindow* first = window();
  EXPECT_EQ(press(VSTGUI::kRButton), VSTGUI::kMouseEventHandled);
  EXPECT_EQ(alive("OrvMCSystemBoxWindow"), 1);
  EXPECT_EQ(window(), first);
  type({'q', kReturn});
  expectConfirmed("q");
}

TEST_F(TextEntryOnMac, OpensAgain) {
  open();
  type({'a', kReturn});
  expectConfirmed("a");
  listener.calls.clear();
  open();
  type({'b', kReturn});
  expectConfirmed("b");
}

// ---- the text ----

TEST_F(TextEntryOnMac, KeepsCharactersOfEveryLanguage) {
  const std::string text = "h\xC3\xA9\xC3\x9F \xE4\xB8\x96";
  makeLabel(text.c_str());
  open();
  type({kEnd, 'x', kReturn});
  expectConfirmed(text + "x");
}

TEST_F(TextEntryOnMac, LeavesOutACharacterThatWasCut) {
  makeLabel("Hall \xC3");
  open();
  EXPECT_STREQ([[field() stringValue] UTF8String], "Hall ");
  label->endEntry(false);
}

}  // namespace
