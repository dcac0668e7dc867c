// Turns the X server's events of the mouse into the toolkit's.
#include "editor/base/linux/windowinput.h"

#include "editor/base/linux/handledevent.h"
#include "lib/events.h"

using VSTGUI::MouseButton;

namespace {

WindowInput* all = nullptr;

constexpr std::uint32_t kMouse = XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_BUTTON_RELEASE |
                                 XCB_EVENT_MASK_POINTER_MOTION | XCB_EVENT_MASK_ENTER_WINDOW |
                                 XCB_EVENT_MASK_LEAVE_WINDOW;
constexpr std::uint32_t kKeys = XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_KEY_RELEASE;
// what else the toolkit's window listens to and acts on
constexpr std::uint32_t kDrawing = XCB_EVENT_MASK_EXPOSURE | XCB_EVENT_MASK_PROPERTY_CHANGE;

int typeOf(std::uint8_t responseType) {
  return responseType & 0x7F;  // the high bit marks events sent by clients
}

// place and modifiers, which all of the mouse's events have
template <typename XEvent>
void fill(VSTGUI::MousePositionEvent& event, const XEvent& from) {
  event.mousePosition(from.event_x, from.event_y);
  if ((from.state & XCB_MOD_MASK_CONTROL) != 0) event.modifiers.add(VSTGUI::ModifierKey::Control);
  if ((from.state & XCB_MOD_MASK_SHIFT) != 0) event.modifiers.add(VSTGUI::ModifierKey::Shift);
  if ((from.state & (XCB_MOD_MASK_1 | XCB_MOD_MASK_5)) != 0)  // Alt, and AltGr
    event.modifiers.add(VSTGUI::ModifierKey::Alt);
}

void addButton(VSTGUI::MouseEvent& event, xcb_button_t button) {
  if (button == XCB_BUTTON_INDEX_1) event.buttonState.add(MouseButton::Left);
  if (button == XCB_BUTTON_INDEX_2) event.buttonState.add(MouseButton::Middle);
  if (button == XCB_BUTTON_INDEX_3) event.buttonState.add(MouseButton::Right);
}

void addHeldButtons(VSTGUI::MouseEvent& event, std::uint16_t state) {
  if ((state & XCB_BUTTON_MASK_1) != 0) event.buttonState.add(MouseButton::Left);
  if ((state & XCB_BUTTON_MASK_2) != 0) event.buttonState.add(MouseButton::Middle);
  if ((state & XCB_BUTTON_MASK_3) != 0) event.buttonState.add(MouseButton::Right);
}

}  // namespace

WindowInput::WindowInput(VSTGUI::CFrame* opening, xcb_window_t ours)
    : frame(opening),
      link(VSTGUI::X11::RunLoop::instance().getXcbConnection()),
      own(ours),
      next(all) {
  VSTGUI::X11::RunLoop::instance().registerWindowEventHandler(own, this);
  all = this;
  selectEvents(own, kMouse);
}

WindowInput::~WindowInput() {
  WindowInput** place = &all;
  while (*place != this) place = &(*place)->next;
  *place = next;
  VSTGUI::X11::RunLoop::instance().unregisterWindowEventHandler(own);
}

WindowInput* WindowInput::of(const VSTGUI::CFrame* asked) {
  WindowInput* input = all;
  while (input != nullptr && input->frame != asked) input = input->next;
  return input;
}

// Of all windows: null, it is none of ours.
const WindowInput* WindowInput::withWindow(xcb_window_t window) {
  const WindowInput* input = all;
  while (input != nullptr && input->own != window) input = input->next;
  return input;
}

void WindowInput::selectEvents(xcb_window_t window, std::uint32_t mask) const {
  xcb_change_window_attributes(link, window, XCB_CW_EVENT_MASK, &mask);
}

void WindowInput::opened(xcb_window_t toolkits) const {
  selectEvents(toolkits, kDrawing);
}

void WindowInput::takePointer(bool take) {
  if (!take && pointerUsers == 0) return;
  pointerUsers += take ? 1 : -1;
  if (!take && pointerUsers == 0) {
    xcb_ungrab_pointer(link, XCB_CURRENT_TIME);
  } else if (take && pointerUsers == 1) {
    const xcb_grab_pointer_cookie_t asked =
        xcb_grab_pointer(link, 0, own, kMouse, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC, XCB_NONE,
                         XCB_NONE, XCB_CURRENT_TIME);
    xcb_discard_reply(link, asked.sequence);  // somebody else's grab is no failure of ours
  }
  xcb_flush(link);
}

// What the focus is given to in the end is not ours to choose: a window manager or the host may
// have moved it on meanwhile.
void WindowInput::takeKeyboard(bool take) {
  if (!take && keyboardUsers == 0) return;
  keyboardUsers += take ? 1 : -1;
  if (keyboardUsers > (take ? 1 : 0)) return;
  if (take) {
    keys.emplace(link);
  } else {
    keys.reset();
  }
  selectEvents(own, take ? kMouse | kKeys : kMouse);
  const InputFocus now = inputFocus(link);
  if (take) {
    const WindowInput* other = withWindow(now.window);
    before = now;
    beforeAll = other != nullptr && other->keyboardUsers > 0 ? other->beforeAll : now;
    setInputFocus(link, own);
  } else if (now.window == own && before.window != own) {
    const WindowInput* other = withWindow(before.window);
    giveBack(link, other != nullptr && other->keyboardUsers == 0 ? beforeAll : before, own);
  }
}

bool WindowInput::isKeyboardWithHost() const {
  return isAround(link, inputFocus(link), own);
}

void WindowInput::wheel(const xcb_button_press_event_t& event) {
  VSTGUI::MouseWheelEvent turned;
  fill(turned, event);
  if (event.detail == 4) turned.deltaY = 1;  // up
  if (event.detail == 5) turned.deltaY = -1;
  if (event.detail == 6) turned.deltaX = -1;  // left
  if (event.detail == 7) turned.deltaX = 1;
  frame->dispatchEvent(turned);
}

// The toolkit has put its event of this key together.
void WindowInput::onEvent(xcb_key_press_event_t& event) {
  if (keyboardUsers == 0) return;  // pressed before the server had heard that it is given back
  const HandledEvent handled(event.time);
  VSTGUI::KeyboardEvent key(VSTGUI::X11::RunLoop::instance().getCurrentKeyEvent());
  if (keys && key.virt == VSTGUI::VirtualKey::None)
    key.character = keys->character(event, key.character);
  frame->dispatchEvent(key);
}

void WindowInput::onEvent(xcb_button_press_event_t& event) {
  const HandledEvent handled(event.time);
  const bool isPress = typeOf(event.response_type) == XCB_BUTTON_PRESS;
  if (event.detail >= 4 && event.detail <= 7) {
    if (isPress) wheel(event);
  } else if (isPress) {
    VSTGUI::MouseDownEvent pressed;
    fill(pressed, event);
    addButton(pressed, event.detail);
    frame->dispatchEvent(pressed);
  } else {
    VSTGUI::MouseUpEvent released;
    fill(released, event);
    addButton(released, event.detail);
    frame->dispatchEvent(released);
  }
}

void WindowInput::onEvent(xcb_motion_notify_event_t& event) {
  const HandledEvent handled(event.time);
  VSTGUI::MouseMoveEvent moved;
  fill(moved, event);
  addHeldButtons(moved, event.state);
  frame->dispatchEvent(moved);
}

void WindowInput::onEvent(xcb_enter_notify_event_t& event) {
  if (typeOf(event.response_type) != XCB_LEAVE_NOTIFY) return;
  if (event.detail == XCB_NOTIFY_DETAIL_INFERIOR) return;  // to the toolkit's window in ours
  const HandledEvent handled(event.time);
  VSTGUI::MouseExitEvent left;
  fill(left, event);
  addHeldButtons(left, event.state);
  frame->dispatchEvent(left);
}
