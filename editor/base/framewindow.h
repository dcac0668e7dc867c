// The seam between the toolkit's frame and the host's window.
#pragma once

#include <functional>
#include <memory>

namespace VSTGUI {
class CFrame;
}

// One window of one editor. All calls on the thread that opens it, which hosts choose.
class FrameWindow final {
 public:
  FrameWindow();
  ~FrameWindow();  // closes
  FrameWindow(const FrameWindow&) = delete;
  FrameWindow& operator=(const FrameWindow&) = delete;

  // Opens `frame` in the host's window at 0,0 in the frame's size. False: there is no usable
  // display, and the frame is as it was.
  bool open(VSTGUI::CFrame* frame, void* hostWindow);
  // Ends the frame, which is forgotten, at once or as soon as the toolkit is out of
  // its event handling.
  void close();
  // Handles what has arrived: mouse, keys, timers, drawing. From the editor's idle, while open. The
  // object may be gone by its end, as by that of `during`.
  void pump();
  // Does work that reaches controls from outside the pump, while open: a close from inside it takes
  // effect when it is done.
  void during(const std::function<void()>& work);
  // True once since the last call when the keyboard has left the window.
  bool keyboardLost();

 private:
  struct System;
  std::unique_ptr<System> system;  // while open
};
