// The part of the command line about many files.
#include "host/options/batchoptions.h"

void addBatchOptions(CommandLine& line, BatchWords& words, Arguments& arguments) {
  const std::string batch = "Many files";
  line.option("-j,--jobs", arguments.jobs, "Files at the same time; 0: one for each processor")
      .group(batch)
      .range(0, Arguments::kMostJobs)
      .valueName("N");
  line.option("--suffix", words.suffix,
              "Put TEXT after the names; without -o outputs lie beside their inputs")
      .group(batch)
      .valueName("TEXT");
  line.flag("--skip-existing", arguments.skipExisting, "Leave out what is already there")
      .group(batch);
  line.flag("--dry-run", arguments.dryRun, "Say what would be done, and write nothing")
      .group(batch);
  line.flag("--isolate,!--no-isolate", words.isolate,
            "A process for each file, so that a crash fails one; default with --plugin")
      .group(batch);
}

void takeBatchOptions(const CommandLine& line, const BatchWords& words, Arguments& arguments) {
  arguments.suffix = line.given("--suffix", words.suffix);
  if (words.suffix.find('/') != std::string::npos)
    throw UsageFailure("--suffix: \"" + words.suffix + "\" is part of a name; leave the / out");
  if (arguments.skipExisting && arguments.force) {
    throw UsageFailure(
        "--skip-existing keeps what is already there and --force replaces it: "
        "leave one out");
  }
  if (line.has("--isolate")) arguments.isolate = words.isolate;
}
