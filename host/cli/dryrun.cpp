// What a run would do, said instead of done.
#include "host/cli/dryrun.h"

#include <algorithm>
#include <filesystem>
#include <string>
#include <system_error>

#include "host/base/failure.h"
#include "host/base/standardstreams.h"
#include "host/base/temporaryfile.h"
#include "host/base/text.h"
#include "host/cli/outcome.h"
#include "host/cli/reporter.h"
#include "host/sound/soundreader.h"

namespace {

namespace fs = std::filesystem;

bool isThere(const fs::path& path) {
  std::error_code error;
  return fs::exists(path, error);
}

void checkFolders(const std::vector<fs::path>& folders) {
  for (const fs::path& folder : folders) {
    const fs::path above = (folder / "").parent_path().parent_path();
    const bool willBeThere = std::find(folders.begin(), folders.end(), above) != folders.end();
    if (!willBeThere && !isThere(above.empty() ? fs::path(".") : above))
      throw Failure(folder.string() + ": cannot be made (there is no folder " + above.string() +
                    ")");
  }
}

// Into a folder that is there, or that the run makes.
void checkCanBePut(const fs::path& target, const Arguments& arguments, const Jobs& jobs) {
  if (isStandardStream(target)) return;
  checkTarget(target, arguments.force);
  const fs::path folder = target.parent_path();
  const auto& made = jobs.foldersToBeMade;
  if (folder.empty() || isThere(folder) ||
      std::find(made.begin(), made.end(), folder) != made.end())
    return;
  throw cannotWrite(target, "there is no folder " + folder.string());
}

std::string planOf(const Arguments& arguments, const Jobs& jobs, const Job& job) {
  if (const auto known = outcomeBefore(arguments, job)) {
    if (known->failed()) throw Failure(known->failure);
    return known->report;
  }
  std::error_code error;
  const bool isStream = isStandardStream(job.input);  // those are read once
  if (!isStream && (!isThere(job.input) || fs::is_regular_file(job.input, error)))
    SoundReader reader(job.input, {arguments.salvage});
  checkCanBePut(job.output, arguments, jobs);
  if (job.plot) checkCanBePut(*job.plot, arguments, jobs);
  std::string text = shownInput(job.input).string() + " -> " + shownOutput(job.output).string();
  if (isThere(job.output)) text += ", replaced";
  if (job.plot) text += ", picture " + job.plot->string();
  return onOneLine(text);
}

}  // namespace

bool tellWhatWouldBeDone(const Arguments& arguments, const Jobs& jobs, Console& console) {
  checkFolders(jobs.foldersToBeMade);
  bool all = jobs.failures.empty();
  tellFindings(jobs, console);
  for (const Job& job : jobs.list) {
    try {
      console.say(planOf(arguments, jobs, job));
    } catch (const Failure& failure) {
      console.warn(failure.what());
      all = false;
    }
  }
  return all;
}
