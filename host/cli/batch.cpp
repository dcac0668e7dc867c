// Converts all files of a run.
#include "host/cli/batch.h"

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <functional>
#include <system_error>
#include <thread>
#include <vector>

#include "host/cli/isolation.h"
#include "host/cli/madefolders.h"
#include "host/cli/outcome.h"
#include "host/cli/reporter.h"
#include "host/sound/framecount.h"

namespace {

void expectAll(const Jobs& jobs, Console& console) {
  if (!console.showsProgress()) return;
  std::int64_t frames = 0;
  for (const Job& job : jobs.list) frames += statedFrames(job.input);
  console.expect(frames, static_cast<int>(jobs.list.size()));
}

std::size_t countAtOnce(const Arguments& arguments, std::size_t files) {
  const std::size_t asked = arguments.jobs == 0 ? std::max(1U, std::thread::hardware_concurrency())
                                                : static_cast<std::size_t>(arguments.jobs);
  return std::min(asked, files);
}

// True if all were done.
bool convertAndReport(const Jobs& jobs, Console& console,
                      const std::function<void(Reporter&)>& convertThem) {
  const MadeFolders folders(jobs.foldersToBeMade);
  tellFindings(jobs, console);
  expectAll(jobs, console);
  Reporter reporter(jobs.list.size(), console);
  convertThem(reporter);
  return reporter.allDone() && jobs.failures.empty();
}

void convertInThreads(PluginModule& module, const Arguments& arguments, const Jobs& jobs,
                      Console& console, Reporter& reporter) {
  std::atomic<std::size_t> next = 0;
  const auto work = [&] {
    for (std::size_t index = next++; index < jobs.list.size(); index = next++) {
      reporter.add(index, outcomeOf(module, arguments, jobs.list[index],
                                    [&](std::int64_t frames) { console.advance(frames); }));
    }
  };
  std::vector<std::thread> helpers;
  for (std::size_t count = 1; count < countAtOnce(arguments, jobs.list.size()); ++count) {
    try {
      helpers.emplace_back(work);
    } catch (const std::system_error&) {
      break;  // fewer threads do it too
    }
  }
  work();
  for (std::thread& helper : helpers) helper.join();
}

}  // namespace

bool convertAll(PluginModule& module, const Arguments& arguments, const Jobs& jobs,
                Console& console) {
  return convertAndReport(jobs, console, [&](Reporter& reporter) {
    convertInThreads(module, arguments, jobs, console, reporter);
  });
}

bool convertAllIsolated(const std::filesystem::path& plugin, const Arguments& arguments,
                        const Jobs& jobs, Console& console) {
  return convertAndReport(jobs, console, [&](Reporter& reporter) {
    convertIsolated(plugin, arguments, jobs, countAtOnce(arguments, jobs.list.size()), console,
                    reporter);
  });
}
