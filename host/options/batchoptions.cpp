// The part of the command line about many files.
#include "host/options/batchoptions.h"

#include "host/options/given.h"

void addBatchOptions(CLI::App& app, BatchWords& words, Arguments& arguments) {
  const std::string batch = "Many files";
  app.add_option("-j,--jobs", arguments.jobs, "Files at the same time; 0: one for each processor")
      ->group(batch)
      ->check(CLI::Range(0, Arguments::kMostJobs).description(""))
      ->type_name("N");
  app.add_option("--suffix", words.suffix,
                 "Put TEXT after the names; without -o outputs lie beside their inputs")
      ->group(batch)
      ->type_name("TEXT");
  app.add_flag("--skip-existing", arguments.skipExisting, "Leave out what is already there")
      ->group(batch);
  app.add_flag("--dry-run", arguments.dryRun, "Say what would be done, and write nothing")
      ->group(batch);
  app.add_flag("--isolate,!--no-isolate", words.isolate,
               "A process for each file, so that a crash fails one; default with --plugin")
      ->group(batch);
}

void takeBatchOptions(const CLI::App& app, const BatchWords& words, Arguments& arguments) {
  arguments.suffix = given(app, "--suffix", words.suffix);
  if (words.suffix.find('/') != std::string::npos)
    throw UsageFailure("--suffix: \"" + words.suffix + "\" is part of a name; leave the / out");
  if (arguments.skipExisting && arguments.force) {
    throw UsageFailure(
        "--skip-existing keeps what is already there and --force replaces it: "
        "leave one out");
  }
  if (app.count("--isolate") != 0) arguments.isolate = words.isolate;
}
