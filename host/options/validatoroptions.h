// The validator's part of the command line.
#pragma once

#include <CLI/CLI.hpp>
#include <string>

#include "host/options/arguments.h"

// As they were typed.
struct ValidatorWords {
  std::string plugin, seed, check;
  int strictness = ValidatorArguments().strictness;
};

// words: outlives the parsing.
void addValidatorOptions(CLI::App& app, ValidatorWords& words);
// After the parsing, when everything else is in `arguments`. Throws UsageFailure.
void takeValidator(const CLI::App& app, const ValidatorWords& words, Arguments& arguments);
