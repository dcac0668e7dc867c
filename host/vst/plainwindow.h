// A plain window of the system's for an effect's own.
#pragma once

#include <memory>
#include <string>

// One size only, which the program sets; the user closes it. One thread: on macOS the first one.
class PlainWindow {
 public:
  // Pixels, on macOS points. title: UTF-8. Throws Failure where there is no display.
  PlainWindow(int width, int height, const std::string& title);
  ~PlainWindow();
  PlainWindow(const PlainWindow&) = delete;
  PlainWindow& operator=(const PlainWindow&) = delete;

  // What effEditOpen takes: an X11 window's number, an NSView.
  void* handle() const;
  void resize(int width, int height);
  // Takes what the system has to tell meanwhile. False once the user wants the window closed, or
  // the display is gone.
  bool wanted();

 private:
  struct System;
  std::unique_ptr<System> system;
};
