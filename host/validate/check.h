// One thing that the validator asks of an effect, and the lists of them.
#pragma once

#include <span>
#include <vector>

#include "host/validate/trial.h"

struct Check {
  const char* name;  // a sentence about a sound effect; names it on the command line too
  int strictness;    // 1..10: done from this one on
  int seconds;       // longer than that, it hangs
  void (*run)(Trial&);
};

// By subject, one file each.
std::span<const Check> loadingChecks();
std::span<const Check> lifeChecks();
std::span<const Check> remainsChecks();
std::span<const Check> hostChecks();
std::span<const Check> textChecks();
std::span<const Check> answerChecks();
std::span<const Check> indexChecks();
std::span<const Check> parameterChecks();
std::span<const Check> threadChecks();
std::span<const Check> memoryChecks();
std::span<const Check> soundChecks();
std::span<const Check> bufferChecks();
std::span<const Check> boundaryChecks();
std::span<const Check> divisionChecks();
std::span<const Check> pinChecks();
std::span<const Check> switchingChecks();
std::span<const Check> systemCallChecks();
std::span<const Check> hostModeChecks();
std::span<const Check> damagedSoundChecks();
std::span<const Check> realtimeChecks();
std::span<const Check> surroundingsChecks();
std::span<const Check> stateChecks();
std::span<const Check> restoringChecks();
std::span<const Check> stateThreadChecks();
std::span<const Check> damagedStateChecks();
std::span<const Check> editorChecks();
std::span<const Check> editorWorkChecks();
std::span<const Check> editorEndChecks();

// All of them, in the order in which they are done.
std::vector<Check> allChecks();
