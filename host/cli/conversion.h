// Takes one sound file through an effect.
#pragma once

#include "host/cli/arguments.h"
#include "host/cli/console.h"
#include "host/cli/jobs.h"
#include "host/cli/report.h"
#include "host/vst/pluginmodule.h"

// Makes an effect of its own, in the state that the arguments ask for. Memory does not grow with
// the file. Throws Failure, and leaves no output then. Any thread; several conversions may
// share a module.
Conversion convert(PluginModule& module, const Arguments& arguments, const Job& job,
                   Console& console);
