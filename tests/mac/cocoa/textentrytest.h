// A label in an unopened frame, the window of its text entry, and a user with keys and a mouse.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <string>
#include <thread>

#import "cocoatest.h"
#include "editor/controls/corvtextedit.h"
#import "editor/controls/mac/textentrywindow.h"
#include "lib/vstguiinit.h"
#include "testdisplay.h"

namespace textentry {

inline constexpr std::uint32_t kReturn = 0xFF0D;  // X11's key symbols
inline constexpr std::uint32_t kKeypadEnter = 0xFF8D;
inline constexpr std::uint32_t kEscape = 0xFF1B;
inline constexpr std::uint32_t kTab = 0xFF09;
inline constexpr std::uint32_t kEnd = 0xFF57;
inline constexpr std::uint32_t kControl = 0xFFE3;
inline constexpr std::uint32_t kAlt = 0xFFE9;  // GNUstep's Command

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

}  // namespace textentry

class TextEntryOnMac : public CocoaTest {
 protected:
  static void SetUpTestSuite() { VSTGUI::init(nullptr); }
  static void TearDownTestSuite() { VSTGUI::exit(); }

  void SetUp() override {
    CocoaTest::SetUp();
    [NSApp unhideWithoutActivation];
    [NSApp activateIgnoringOtherApps:YES];
    frame = new VSTGUI::CFrame(VSTGUI::CRect(0, 0, 1000, 700), nullptr);
    makeLabel("Init 01");
  }
  void TearDown() override {
    if (frame != nullptr) removeLabel();
    CocoaTest::TearDown();
  }

  void makeLabel(const char* text) {
    if (label != nullptr) frame->removeView(label);
    label = new COrvTextEdit(VSTGUI::CRect(100, 200, 340, 224), &listener, 1000, text, nullptr, 0,
                             false);
    label->setFont(VSTGUI::makeOwned<VSTGUI::CFontDesc>("DejaVuSans", 14));
    label->setFontColor(VSTGUI::CColor(255, 255, 0, 255));
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
  static NSTextView* fieldEditor() {
    return static_cast<NSTextView*>([window() fieldEditor:NO forObject:field()]);
  }

  // Opens the entry and waits until keys would reach it.
  void open() {
    press();
    ASSERT_TRUE(label->isBeingEdited());
    const auto xWindow =
        static_cast<xcb_window_t>(reinterpret_cast<std::uintptr_t>([window() windowRef]));
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
    // on its own: a field that is pressed waits for the release, and lets no timer fire
    std::thread finger([] {
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
    type({textentry::kEscape});
    expectCancelled();
  }

  VSTGUI::CFrame* frame = nullptr;
  COrvTextEdit* label = nullptr;
  textentry::Listener listener;
  TestDisplay display;
};
