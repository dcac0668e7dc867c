// The validator's part of the command line.
#pragma once

#include <string>

#include "host/options/arguments.h"
#include "host/options/commandline.h"

// As they were typed.
struct ValidatorWords {
  std::string plugin, seed, check;
  int strictness = ValidatorArguments().strictness;
};

// words: outlives the parsing.
void addValidatorOptions(CommandLine& line, ValidatorWords& words);
// After the parsing, when everything else is in `arguments`. Throws UsageFailure.
void takeValidator(const CommandLine& line, const ValidatorWords& words, Arguments& arguments);
