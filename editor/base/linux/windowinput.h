// The mouse and the keyboard of a window.
#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <optional>

#include "editor/base/linux/inputfocus.h"
#include "editor/base/linux/keyboardmap.h"
#include "lib/platform/linux/x11platform.h"
#include "vstgui.h"

// The toolkit's own window takes the X input focus with each press that a control consumes, and the
// keys whenever the pointer is in it, so that the host's transport no longer obeys. It also keeps
// the events' times to itself, and never takes the reply to what it asks the server at each
// movement of the pointer. So the events of the mouse are taken off that window, and reach ours
// around it; they come on the toolkit's connection still, in one row with the keys. Keys are taken
// while a view asks for them. Made before the frame's opening and gone after its end.
// User-interface thread.
class WindowInput final : public VSTGUI::X11::IFrameEventHandler {
 public:
  WindowInput(VSTGUI::CFrame* frame, xcb_window_t own);  // the toolkit is connected
  ~WindowInput();
  WindowInput(const WindowInput&) = delete;
  WindowInput& operator=(const WindowInput&) = delete;

  static WindowInput* of(const VSTGUI::CFrame* frame);  // null: not open

  void opened(xcb_window_t toolkits) const;  // takes no memory

  // Each as often given back as taken; what nobody has taken stays as it is. The pointer: presses
  // outside the window, in the host's own area, come too.
  void takePointer(bool take);
  void takeKeyboard(bool take);
  bool isKeyboardWithHost() const;

  void onEvent(xcb_button_press_event_t& event) override;  // a release too
  void onEvent(xcb_motion_notify_event_t& event) override;
  void onEvent(xcb_enter_notify_event_t& event) override;  // a leaving too
  void onEvent(xcb_key_press_event_t& event) override;     // a release too
  void onEvent(xcb_map_notify_event_t& /*event*/) override {}
  void onEvent(xcb_focus_in_event_t& /*event*/) override {}
  void onEvent(xcb_expose_event_t& /*event*/) override {}
  void onEvent(xcb_property_notify_event_t& /*event*/) override {}
  void onEvent(xcb_selection_notify_event_t& /*event*/) override {}
  void onEvent(xcb_client_message_event_t& /*event*/, xcb_window_t /*proxy*/) override {}

 private:
  void wheel(const xcb_button_press_event_t& event);
  static const WindowInput* withWindow(xcb_window_t window);
  void selectEvents(xcb_window_t window, std::uint32_t mask) const;

  VSTGUI::CFrame* frame;
  xcb_connection_t* link;  // the toolkit's
  xcb_window_t own;
  int pointerUsers = 0, keyboardUsers = 0;
  InputFocus before;                // the keyboard was taken
  InputFocus beforeAll;             // the same, before another of our windows took it
  std::optional<KeyboardMap> keys;  // while it is
  WindowInput* next;                // of all: a list that needs no memory
};
