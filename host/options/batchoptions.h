// The part of the command line about many files.
#pragma once

#include <CLI/CLI.hpp>

#include "host/options/arguments.h"

// arguments: outlives the parsing.
void addBatchOptions(CLI::App& app, Arguments& arguments);
