// Opens the product manual and says where that fails.
#pragma once

#include "platform/manualopener.h"

// User-interface thread.
class Manual {
 public:
  void open();   // starts the viewer and returns
  void watch();  // from every idle pass; shows an alert where the viewer could not be started

 private:
  ManualOpener opener;
  bool awaited = false;
};
