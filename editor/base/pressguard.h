// Keeps presses, the wheel and keys from the window's controls while something else has the user's
// attention.
#pragma once

#include <functional>
#include <utility>

#include "lib/events.h"
#include "lib/iviewlistener.h"
#include "vstgui.h"

// On a frame while that is open; asks `closed` at each event that would begin something, and
// swallows it where the answer is true. A file dialog is such a time: a second press on a button
// would open a second dialog, and a preset that wheel or press choose meanwhile would be
// overwritten by the file. Releases and movements pass: what began before comes to its end.
// User-interface thread.
class PressGuard final : public VSTGUI::IMouseObserver,
                         public VSTGUI::IKeyboardHook,
                         public VSTGUI::IViewEventListener {
 public:
  explicit PressGuard(std::function<bool()> isClosed) : closed(std::move(isClosed)) {}

  void watch(VSTGUI::CFrame& frame) {
    frame.registerMouseObserver(this);
    frame.registerKeyboardHook(this);
    frame.registerViewEventListener(this);
  }
  void leave(VSTGUI::CFrame& frame) {
    frame.unregisterMouseObserver(this);
    frame.unregisterKeyboardHook(this);
    frame.unregisterViewEventListener(this);
  }

  bool isHeld() const { return held; }  // a mouse button is down that has reached the controls

  void onMouseEvent(VSTGUI::MouseEvent& event, VSTGUI::CFrame*) override {
    swallow(event);
    if (event.type == VSTGUI::EventType::MouseDown) {
      held = held || !event.consumed;
    } else if (event.type == VSTGUI::EventType::MouseUp || event.buttonState.empty()) {
      held = false;
    }
  }
  void onKeyboardEvent(VSTGUI::KeyboardEvent& event, VSTGUI::CFrame*) override { swallow(event); }
  // the wheel, which mouse observers are not told of
  void viewOnEvent(VSTGUI::CView*, VSTGUI::Event& event) override { swallow(event); }
  void onMouseEntered(VSTGUI::CView*, VSTGUI::CFrame*) override {}
  void onMouseExited(VSTGUI::CView*, VSTGUI::CFrame*) override {}

 private:
  void swallow(VSTGUI::Event& event) {
    const bool begins = event.type == VSTGUI::EventType::MouseDown ||
                        event.type == VSTGUI::EventType::MouseWheel ||
                        event.type == VSTGUI::EventType::KeyDown;
    if (begins && closed()) event.consumed = true;
  }

  std::function<bool()> closed;
  bool held = false;
};
