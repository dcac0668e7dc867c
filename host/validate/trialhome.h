// Home folders for the checks, so that a person's own settings are neither read nor written.
#pragma once

#include <sys/types.h>

#include <filesystem>

// Made while this process has one thread. Everything that its checks put into their homes, and what
// is left of the check that is running, goes with it, however this process ends: a second process
// sees to that.
class TrialHome {
 public:
  TrialHome();  // throws Failure where no temporary folder can be made
  ~TrialHome();
  TrialHome(const TrialHome&) = delete;
  TrialHome& operator=(const TrialHome&) = delete;

  // The check that runs in this process group ends with the validator; 0: none runs.
  void tellRunning(pid_t group) const;
  // In a check's process: an empty home of its own. No longer a reason for the folder to stay.
  void enter() const;

  pid_t keeper() const { return second; }  // the second process

 private:
  std::filesystem::path folder;
  int lifeline = -1;  // its other end is the second process's
  pid_t second = 0;
};
