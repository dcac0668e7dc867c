// Keeps presses from the window's controls while something else has the user's attention.
#pragma once

#include <functional>
#include <utility>

#include "lib/events.h"
#include "vstgui.h"

// Registered with a frame while it is open; asks `closed` at each press, and swallows it where the
// answer is true. The file dialog is such a time: a second press on a button would open a second
// dialog, and a preset chosen meanwhile would be overwritten by the file. User-interface thread.
class PressGuard final : public VSTGUI::IMouseObserver {
 public:
  explicit PressGuard(std::function<bool()> isClosed) : closed(std::move(isClosed)) {}

  void onMouseEvent(VSTGUI::MouseEvent& event, VSTGUI::CFrame*) override {
    if (event.type == VSTGUI::EventType::MouseDown && closed()) event.consumed = true;
  }
  void onMouseEntered(VSTGUI::CView*, VSTGUI::CFrame*) override {}
  void onMouseExited(VSTGUI::CView*, VSTGUI::CFrame*) override {}

 private:
  std::function<bool()> closed;
};
