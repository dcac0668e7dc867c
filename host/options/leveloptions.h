// The part of the command line about the level of what is written.
#pragma once

#include <CLI/CLI.hpp>
#include <string>

#include "host/options/arguments.h"

// As they were typed.
struct LevelWords {
  std::string gain, normalize;
};

// Both outlive the parsing.
void addLevelOptions(CLI::App& app, LevelWords& words, Arguments& arguments);
// After the parsing. Throws UsageFailure.
void takeLevelOptions(const CLI::App& app, const LevelWords& words, Arguments& arguments);
