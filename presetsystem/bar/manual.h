// Opens the product manual and says where that fails.
#pragma once

#include "platform/manualopener.h"

class Messages;

// User-interface thread.
class Manual {
 public:
  explicit Manual(Messages& heard) : messages(heard) {}

  void open();   // starts the viewer and returns
  void watch();  // from every idle pass; says so where the viewer could not be started
  void end() { awaited = false; }  // the window closes; the viewer stays

 private:
  Messages& messages;
  ManualOpener opener;
  bool awaited = false;  // somebody waits to be told
};
