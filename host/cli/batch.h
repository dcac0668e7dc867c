// Converts all files of a run, several at a time if asked.
#pragma once

#include <filesystem>

#include "host/cli/console.h"
#include "host/convert/jobs.h"
#include "host/options/arguments.h"
#include "host/vst/pluginmodule.h"

// Reports each file in the order in which they were named; a file that fails is reported and the
// others go on. True if all were done.
bool convertAll(PluginModule& module, const Arguments& arguments, const Jobs& jobs,
                Console& console);

// The same with a process for each file, where the effect can crash without harm to the others.
// From the program's only thread, while an OrderlyEnd lives: a signal lets the processes clean up.
bool convertAllIsolated(const std::filesystem::path& plugin, const Arguments& arguments,
                        const Jobs& jobs, Console& console);
