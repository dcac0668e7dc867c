// Who has the keyboard, and giving it back.
#pragma once

#include <xcb/xcb.h>

#include <cstdint>

struct InputFocus {
  xcb_window_t window = XCB_INPUT_FOCUS_POINTER_ROOT;    // none, the pointer's, or a window's id
  std::uint8_t whenGone = XCB_INPUT_FOCUS_POINTER_ROOT;  // who has it after that window
};

InputFocus inputFocus(xcb_connection_t* link);
// With its parent after it. Returns when it has happened, and whoever watches it has been told.
void setInputFocus(xcb_connection_t* link, xcb_window_t window);

// Whether the keyboard is in the same top-level window as `inner`, or follows the pointer, or is
// nobody's.
bool isAround(xcb_connection_t* link, const InputFocus& focus, xcb_window_t inner);

// To `before`; where that has gone or cannot be seen, to the top-level window around `inner`, else
// to whatever the pointer is in.
void giveBack(xcb_connection_t* link, const InputFocus& before, xcb_window_t inner);
