// The part of the command line about many files.
#pragma once

#include <string>

#include "host/options/arguments.h"
#include "host/options/commandline.h"

// As they were typed.
struct BatchWords {
  std::string suffix;
  bool isolate = false;
};

// Both outlive the parsing.
void addBatchOptions(CommandLine& line, BatchWords& words, Arguments& arguments);
// After the parsing. Throws UsageFailure.
void takeBatchOptions(const CommandLine& line, const BatchWords& words, Arguments& arguments);
