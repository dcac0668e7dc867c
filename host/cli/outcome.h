// What became of one file of a run.
#pragma once

#include <string>

#include "host/convert/conversion.h"
#include "host/convert/jobs.h"
#include "host/options/arguments.h"
#include "host/vst/pluginmodule.h"

// In words for the person; empty where there is nothing to say.
struct FileOutcome {
  std::string report;
  std::string warning;
  std::string failure;

  bool failed() const { return !failure.empty(); }
};

// Converts it. Throws nothing. Any thread.
FileOutcome outcomeOf(PluginModule& module, const Arguments& arguments, const Job& job,
                      const Progress& progress);
