// What the user has to be told: in an alert of the desktop's, or in the window where there is none.
#pragma once

#include <list>
#include <string>

#include "platform/alert.h"
#include "presetsystem/bar/barwindow.h"

// One message after the other, each dismissed by the user, while the host goes on. They wait for
// the user to let go of the mouse, the list and the name: a dialog that came up meanwhile could not
// be clicked while the list has the pointer. They end with the window. User-interface thread.
class Messages {
 public:
  explicit Messages(BarWindow& servedWindow) : window(servedWindow) {}

  // It is shown from a later idle pass. Without the memory for it this throws, and there is none.
  void say(const std::string& text) { waiting.push_back(text); }

  bool running() const { return alertRuns; }  // in an alert
  void watch();                               // from every idle pass
  void end();                                 // the window closes

 private:
  BarWindow& window;
  Alert alert;
  std::list<std::string> waiting;  // the first is shown while an alert runs
  bool alertRuns = false;
};
