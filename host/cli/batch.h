// Converts all files of a run, several at a time if asked.
#pragma once

#include "host/cli/arguments.h"
#include "host/cli/console.h"
#include "host/cli/jobs.h"
#include "host/vst/pluginmodule.h"

// Reports each file in the order in which they were named; a file that fails is reported and the
// others go on. True if all were done.
bool convertAll(PluginModule& module, const Arguments& arguments, const Jobs& jobs,
                Console& console);
