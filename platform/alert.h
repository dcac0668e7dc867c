// A warning beside which the host goes on, where the system lets it.
#pragma once

#include <memory>

// One warning at a time: it is started, asked for from the idle pass, and ended with its owner.
// User-interface thread only.
class Alert {
 public:
  enum class State {
    none,  // not started, or ended
    running,
    dismissed,
    unavailable,  // this desktop has nothing that shows it
  };

  Alert();
  ~Alert();  // ends it
  Alert(const Alert&) = delete;
  Alert& operator=(const Alert&) = delete;

  // Shows the text with one button "OK". Ends the one before. The outcome comes from poll; where
  // memory runs out this throws, and all is as before.
  void start(const char* message);
  // Microseconds, but for the start of another program where the first does not work.
  State poll();
  void cancel();

 private:
  struct System;
  std::unique_ptr<System> system;
};
