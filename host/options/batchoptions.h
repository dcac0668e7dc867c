// The part of the command line about many files.
#pragma once

#include <CLI/CLI.hpp>
#include <string>

#include "host/options/arguments.h"

// As they were typed.
struct BatchWords {
  std::string suffix;
  bool isolate = false;
};

// Both outlive the parsing.
void addBatchOptions(CLI::App& app, BatchWords& words, Arguments& arguments);
// After the parsing. Throws UsageFailure.
void takeBatchOptions(const CLI::App& app, const BatchWords& words, Arguments& arguments);
