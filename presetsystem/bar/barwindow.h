// What the parts of the preset bar may know of the window that they serve.
#pragma once

#include <cstdint>

// User-interface thread.
class BarWindow {
 public:
  virtual bool isShown() const = 0;
  virtual std::uintptr_t hostWindow() const = 0;  // X11 window id, NSView*; 0: none
  virtual void redraw() = 0;                      // nothing where it is not shown

 protected:
  ~BarWindow() = default;
};
