// The seam between the toolkit's frame and the host's window.
#pragma once

#include <functional>
#include <memory>

namespace VSTGUI {
class CFrame;
}

// One window of one editor. All calls on the thread that opens it, which hosts choose.
class FrameWindow {
 public:
  virtual ~FrameWindow() = default;

  // Opens `frame` in the host's window at 0,0 in the frame's size. False: there is no usable display, and the frame is
  // as it was.
  virtual bool open(VSTGUI::CFrame* frame, void* hostWindow) = 0;
  // Ends the frame, which is forgotten, at once or as soon as the toolkit is out of its event handling.
  virtual void close() = 0;
  // Handles what has arrived: mouse, keys, timers, drawing. From the editor's idle.
  virtual void pump() = 0;
  // Does work that reaches controls from outside the pump: a close from inside it takes effect when it is done. The
  // object may be gone by then.
  virtual void during(const std::function<void()>& work) { work(); }
  // True once since the last call when the keyboard has left the window.
  virtual bool keyboardLost() = 0;

  static std::unique_ptr<FrameWindow> create();
};
