// --analyse: the figures of all files of a run, without an effect.
#pragma once

#include "host/cli/console.h"
#include "host/options/arguments.h"

// As convertAll. True if all could be read.
bool analyseAll(const Arguments& arguments, Console& console);
