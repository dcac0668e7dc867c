// Opens the product manual, a PDF, with the desktop's viewer.
#pragma once

#include <memory>

// Where the manual is below the user's home folder.
constexpr char kManualPath[] = "Documents/Orv/Trelvan/Trelvan Operation Manual.pdf";

// User-interface thread only. The viewer outlives the object.
class ManualOpener {
 public:
  enum class State {
    none,     // not started, or let go
    running,  // the viewer is being started
    opened,
    failed,  // there is no manual, or nothing that shows it
  };

  ManualOpener();
  ~ManualOpener();
  ManualOpener(const ManualOpener&) = delete;
  ManualOpener& operator=(const ManualOpener&) = delete;

  // Does not wait for the viewer where the system can start one without waiting.
  void start();
  // Never blocks. A viewer that has not failed after some seconds counts as opened.
  State poll();

 private:
  struct System;
  std::unique_ptr<System> system;
};
