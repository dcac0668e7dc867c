// What the parts of the preset bar may know of the window that they serve.
#pragma once

#include <cstdint>
#include <string>

// User-interface thread.
class BarWindow {
 public:
  virtual bool isShown() const = 0;
  virtual std::uintptr_t hostWindow() const = 0;  // X11 window id, NSView*; 0: none
  virtual void redraw() = 0;                      // nothing where it is not shown
  // Nothing holds the mouse or has it to itself, and nothing is being typed.
  virtual bool isAtRest() const = 0;
  virtual void showMessage(const std::string& text) = 0;  // in the window, which is shown

 protected:
  ~BarWindow() = default;
};
