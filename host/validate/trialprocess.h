// Runs one check in a process of its own, which may crash, hang or end there as it likes.
#pragma once

#include <string>

#include "host/validate/check.h"
#include "host/validate/trialhome.h"
#include "host/validate/validation.h"

struct Verdict {
  CheckOutcome outcome;
  std::string text;      // why it failed or was left out; a note where it passed
  double seconds = 0.0;  // it took
};

// What the effect writes to the standard streams is let through where one check is asked for. What
// the check leaves running is ended, and fails it. Called by a process that has one thread and has
// not loaded the plug-in. Throws Failure where the system makes no process.
Verdict runCheck(const Check& check, const ValidationRequest& request, const TrialHome& home);
