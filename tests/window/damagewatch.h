// Which parts of a window are drawn on, as the X server reports them.
#pragma once

#include <vector>

#include "testdisplay.h"

// Watches from its making on, the window's children included. Areas are the window's pixels.
class DamageWatch {
 public:
  DamageWatch(TestDisplay& watched, xcb_window_t window);
  ~DamageWatch();
  DamageWatch(const DamageWatch&) = delete;
  DamageWatch& operator=(const DamageWatch&) = delete;

  // Each rectangle drawn since the last call, as it was drawn.
  std::vector<Area> take();

 private:
  TestDisplay& display;
  std::uint32_t id;
  std::uint8_t eventType;
};
