// The part of the command line about figures: for scripts, and of files that are only looked at.
#pragma once

#include <CLI/CLI.hpp>

#include "host/options/arguments.h"

// arguments: outlives the parsing.
void addFigureOptions(CLI::App& app, Arguments& arguments);
// After the parsing, when everything else is in `arguments`. Throws UsageFailure.
void checkFigureOptions(const CLI::App& app, const Arguments& arguments);
