// An X11 client of the tests' own: windows to put the editor in, a pointer and a keyboard, and
// pictures of the screen.
#pragma once

#include <xcb/xcb.h>

#include <chrono>
#include <cstdint>
#include <functional>

#include "picture.h"

constexpr std::chrono::milliseconds kRedrawTime{17};  // the toolkit draws from a timer of 16

// One connection to the display that DISPLAY names. Coordinates are the screen's. An event that an
// operation makes has reached its receiver's connection when the operation returns.
class TestDisplay {
 public:
  TestDisplay();  // throws where there is no display
  ~TestDisplay();
  TestDisplay(const TestDisplay&) = delete;
  TestDisplay& operator=(const TestDisplay&) = delete;

  xcb_connection_t* link() const { return connection; }
  xcb_window_t root() const { return screen->root; }

  // A white top-level window that no window manager moves. alpha: of 32 bits, as some
  // hosts have theirs.
  xcb_window_t makeWindow(const Area& place, bool alpha = false);
  void destroyWindow(xcb_window_t window);
  void resizeWindow(xcb_window_t window, int width, int height);
  int childrenOf(xcb_window_t window);
  int clients();     // connections to the server
  long resources();  // windows, pixmaps, cursors and all else that the server keeps for its clients
  bool exists(xcb_window_t window);

  void moveTo(int x, int y);
  void press(int button);  // 1 left, 2 middle, 3 right, 4 wheel up, 5 wheel down
  void release(int button);
  void keyDown(std::uint32_t keysym);
  void keyUp(std::uint32_t keysym);
  void tap(std::uint32_t keysym);  // down and up, with Shift where the keyboard needs it
  void focus(xcb_window_t window);
  xcb_window_t focused();

  Picture picture(const Area& area);  // as a person would see it
  // The same once it stays as it is; pass: what happens between two looks, drawing included.
  Picture stillPicture(const Area& area, const std::function<void()>& pass);
  Picture cursor();  // the pointer's shape
  void sync();       // everything asked for before has happened

 private:
  struct Key {
    xcb_keycode_t code;
    bool shifted;
  };
  Key keyOf(std::uint32_t keysym);
  void fake(std::uint8_t type, std::uint8_t detail, int x = 0, int y = 0);

  xcb_connection_t* connection;
  const xcb_screen_t* screen;
};
