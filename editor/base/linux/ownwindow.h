// A window of our own between the host's and the toolkit's.
#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <memory>

#include "editor/base/linux/ownconnection.h"

// At the origin of the host's window, and shown. It has the root's depth and visual: in a host's
// window with an alpha channel the toolkit's own would inherit the depth and stay blank. It also
// takes the toolkit's window with it when it goes, which the toolkit leaves there.
class OwnWindow {
 public:
  OwnWindow(std::shared_ptr<OwnConnection> shared, xcb_window_t parent, std::uint16_t width,
            std::uint16_t height);
  ~OwnWindow();
  OwnWindow(const OwnWindow&) = delete;
  OwnWindow& operator=(const OwnWindow&) = delete;

  // False: the host's window is none on this server, or stands on a screen on which the toolkit
  // does not draw.
  bool isThere() const { return there; }
  xcb_window_t id() const { return window; }
  void show(xcb_window_t inner) const;  // the toolkit's
  const std::shared_ptr<OwnConnection>& link() const { return connection; }

 private:
  const xcb_screen_t& screen() const;
  bool isOnScreen(xcb_window_t parent) const;

  std::shared_ptr<OwnConnection> connection;
  xcb_window_t window = 0;
  bool there = false;
};
