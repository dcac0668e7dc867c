// A home folder for the checks, so that a person's own settings are neither read nor written.
#pragma once

// While it lives, what this process starts finds its home and its configuration there. It is
// removed with what was put into it, however this process ends.
class TrialHome {
 public:
  // Throws Failure where no temporary folder can be made. While this process has one thread.
  TrialHome();
  ~TrialHome();
  TrialHome(const TrialHome&) = delete;
  TrialHome& operator=(const TrialHome&) = delete;

 private:
  int lifeline;  // its other end is read by the process that removes the folder
  int remover;   // that process
};
