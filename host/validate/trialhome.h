// A home folder for the checks, so that a person's own settings are neither read nor written.
#pragma once

#include <filesystem>

// While it lives, what this process starts finds its home and its configuration there; removed with
// what was put into it.
class TrialHome {
 public:
  TrialHome();  // throws Failure where no temporary folder can be made
  ~TrialHome();
  TrialHome(const TrialHome&) = delete;
  TrialHome& operator=(const TrialHome&) = delete;

 private:
  std::filesystem::path folder;
};
