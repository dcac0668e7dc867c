// The part of the command line about the level of what is written.
#pragma once

#include <string>

#include "host/options/arguments.h"
#include "host/options/commandline.h"

// As they were typed.
struct LevelWords {
  std::string gain, normalize;
};

// Both outlive the parsing.
void addLevelOptions(CommandLine& line, LevelWords& words, Arguments& arguments);
// After the parsing. Throws UsageFailure.
void takeLevelOptions(const CommandLine& line, const LevelWords& words, Arguments& arguments);
