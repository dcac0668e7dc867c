// Converts all files of a run.
#include "host/cli/batch.h"

#include <functional>

#include "host/base/interruption.h"
#include "host/cli/isolation.h"
#include "host/cli/madefolders.h"
#include "host/cli/outcome.h"
#include "host/cli/reporter.h"
#include "host/cli/workers.h"

namespace {

// True if all were done.
bool convertAndReport(const Arguments& arguments, const Jobs& jobs, Console& console,
                      const std::function<void(Reporter&)>& convertThem) {
  const MadeFolders folders(jobs.foldersToBeMade);
  tellFindings(jobs, console);
  expectAll(jobs, console);
  Reporter reporter(jobs, arguments, console);
  convertThem(reporter);
  if (OrderlyEnd::isAsked()) return false;  // nobody waits for a sum
  reporter.finish();
  return reporter.allDone() && jobs.failures.empty();
}

}  // namespace

bool convertAll(PluginModule& module, const Arguments& arguments, const Jobs& jobs,
                Console& console) {
  return convertAndReport(arguments, jobs, console, [&](Reporter& reporter) {
    workOnAll(jobs.list.size(), arguments.jobs, [&](std::size_t index) {
      reporter.add(index, outcomeOf(module, arguments, jobs.list[index],
                                    [&](std::int64_t frames) { console.advance(frames); }));
    });
  });
}

bool convertAllIsolated(const std::filesystem::path& plugin, const Arguments& arguments,
                        const Jobs& jobs, Console& console) {
  return convertAndReport(arguments, jobs, console, [&](Reporter& reporter) {
    convertIsolated(plugin, arguments, jobs, workersFor(jobs.list.size(), arguments.jobs), console,
                    reporter);
  });
}
