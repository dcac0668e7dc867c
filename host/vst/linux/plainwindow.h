// A plain X11 window for an effect's own.
#pragma once

#include <xcb/xcb.h>

#include <memory>
#include <string>

// On a connection of its own. One size only, which the program sets; the user closes it through the
// window manager. One thread.
class PlainWindow {
 public:
  // Pixels. title: UTF-8. Throws Failure where there is no display.
  PlainWindow(int width, int height, const std::string& title);

  void* handle() const { return reinterpret_cast<void*>(static_cast<std::uintptr_t>(window)); }
  void resize(int width, int height);
  // False once the user wants it closed, or the display is gone.
  bool wanted();

 private:
  struct Disconnect {
    void operator()(xcb_connection_t* open) const { xcb_disconnect(open); }
  };

  xcb_atom_t atom(const char* name);
  void setText(xcb_atom_t property, xcb_atom_t type, const std::string& text);
  void setNames(const std::string& title);
  void setSizeHints(int width, int height);

  std::unique_ptr<xcb_connection_t, Disconnect> connection;
  xcb_window_t window = XCB_WINDOW_NONE;
  xcb_atom_t closing = XCB_ATOM_NONE;
};
