// The part of the command line about the effect itself: which, how it is run, what it is asked.
#pragma once

#include <string>

#include "host/options/arguments.h"
#include "host/options/commandline.h"

// As they were typed.
struct EffectWords {
  std::string plugin;
  bool once = false;   // --single
  bool twice = false;  // --double
};

// Both outlive the parsing.
void addEffectOptions(CommandLine& line, EffectWords& words, Arguments& arguments);
// After the parsing. Throws UsageFailure.
void takeEffectOptions(const CommandLine& line, const EffectWords& words, Arguments& arguments);
