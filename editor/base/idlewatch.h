// Idles a window whose host does not.
#pragma once

#include <memory>

class AEffGUIEditor;

// Some hosts open an editor and never idle it: nothing would be drawn, and no press taken. While
// this lives, a window that has had no idle call for a moment gets its own, from the event loop
// that the desktop's toolkits and so most hosts run; only on the thread that made this, and not
// where another thread idles the window. Where nobody runs such a loop nothing happens.
class IdleWatch {
 public:
  explicit IdleWatch(AEffGUIEditor* editor);  // not owned
  ~IdleWatch();                               // from inside the idle too
  IdleWatch(const IdleWatch&) = delete;
  IdleWatch& operator=(const IdleWatch&) = delete;

  void idled();  // the editor idles: whoever called it is told apart here

 private:
  struct System;
  std::shared_ptr<System> system;
};
