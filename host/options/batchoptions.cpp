// The part of the command line about many files.
#include "host/options/batchoptions.h"

#include <string>

void addBatchOptions(CLI::App& app, Arguments& arguments) {
  const std::string batch = "Many files";
  app.add_option("-j,--jobs", arguments.jobs, "Files at the same time; 0: one for each processor")
      ->group(batch)
      ->check(CLI::Range(0, Arguments::kMostJobs).description(""))
      ->type_name("N");
}
