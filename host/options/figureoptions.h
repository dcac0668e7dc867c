// The part of the command line about figures: for scripts, and of files that are only looked at.
#pragma once

#include "host/options/arguments.h"
#include "host/options/commandline.h"

// arguments: outlives the parsing.
void addFigureOptions(CommandLine& line, Arguments& arguments);
// After the parsing, when everything else is in `arguments`. Throws UsageFailure.
void checkFigureOptions(const CommandLine& line, const Arguments& arguments);
