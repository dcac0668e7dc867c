// Takes one sound file through an effect.
#pragma once

#include <cstdint>
#include <functional>
#include "host/options/arguments.h"

#include "host/convert/jobs.h"
#include "host/convert/report.h"
#include "host/vst/pluginmodule.h"

using Progress = std::function<void(std::int64_t frames)>;  // that came in since the last call

// Makes an effect of its own, in the state that the arguments ask for. Memory does not grow with
// the file. Throws Failure, and leaves no output then. Any thread; several conversions may
// share a module.
Conversion convert(PluginModule& module, const Arguments& arguments, const Job& job,
                   const Progress& progress);
