// Converts all files of a run.
#include "host/cli/batch.h"

#include <algorithm>
#include <atomic>
#include <string>
#include <system_error>
#include <thread>
#include <vector>

#include "host/base/failure.h"
#include "host/cli/outcome.h"
#include "host/cli/reporter.h"
#include "host/sound/soundreader.h"

namespace {

namespace fs = std::filesystem;

// For the progress alone; a file that cannot be opened counts nothing and fails in its turn. A pipe
// is left alone: it can be read once.
std::int64_t framesOf(const Jobs& jobs) {
  std::int64_t frames = 0;
  for (const Job& job : jobs.list) {
    std::error_code error;
    if (!fs::is_regular_file(job.input, error)) continue;
    try {
      frames += SoundReader(job.input).frames().value_or(0);
    } catch (const Failure&) {
      continue;
    }
  }
  return frames;
}

class MadeFolders {
 public:
  explicit MadeFolders(const std::vector<fs::path>& folders) {
    for (const fs::path& folder : folders) {
      std::error_code error;
      if (!fs::create_directory(folder, error)) {
        throw Failure(folder.string() + ": cannot be made (" +
                      (error ? error.message() : "it is in the way") + ")");
      }
      made.push_back(folder);
    }
  }
  // Those that stayed empty go again.
  ~MadeFolders() {
    std::error_code notEmpty;
    for (const fs::path& folder : made) fs::remove(folder, notEmpty);
  }
  MadeFolders(const MadeFolders&) = delete;
  MadeFolders& operator=(const MadeFolders&) = delete;

 private:
  std::vector<fs::path> made;
};

std::size_t threadCount(const Arguments& arguments, std::size_t files) {
  const std::size_t asked = arguments.jobs == 0 ? std::max(1U, std::thread::hardware_concurrency())
                                                : static_cast<std::size_t>(arguments.jobs);
  return std::min(asked, files);
}

}  // namespace

bool convertAll(PluginModule& module, const Arguments& arguments, const Jobs& jobs,
                Console& console) {
  const MadeFolders folders(jobs.foldersToBeMade);
  if (console.showsProgress()) console.expect(framesOf(jobs), static_cast<int>(jobs.list.size()));
  Reporter reporter(jobs.list.size(), console);
  std::atomic<std::size_t> next = 0;
  const auto work = [&] {
    for (std::size_t index = next++; index < jobs.list.size(); index = next++) {
      reporter.add(index, outcomeOf(module, arguments, jobs.list[index],
                                    [&](std::int64_t frames) { console.advance(frames); }));
    }
  };
  std::vector<std::thread> helpers;
  for (std::size_t count = 1; count < threadCount(arguments, jobs.list.size()); ++count) {
    try {
      helpers.emplace_back(work);
    } catch (const std::system_error&) {
      break;  // fewer threads do it too
    }
  }
  work();
  for (std::thread& helper : helpers) helper.join();
  return reporter.allDone();
}
