// Refuses runs that would destroy what they read or wrote.
#include "host/convert/overlaps.h"

#include <sys/stat.h>

#include <map>
#include <set>
#include <string>
#include <system_error>
#include <utility>

#include "host/base/standardstreams.h"

namespace {

namespace fs = std::filesystem;

// A file that does not exist yet counts by its place.
fs::path identity(const fs::path& path) {
  std::error_code error;
  const fs::path whole = fs::absolute(path, error);  // "a" is "./a", there or not
  const fs::path canonical = fs::weakly_canonical(whole, error);
  return error ? whole.lexically_normal() : canonical;
}

// Each is looked up once, however many targets there are.
class Inputs {
 public:
  explicit Inputs(const std::vector<Job>& jobs) {
    struct stat file {};
    for (const Job& job : jobs) {
      places.insert(identity(job.input));
      if (stat(job.input.c_str(), &file) == 0) files.emplace(file.st_dev, file.st_ino);
    }
  }

  bool contain(const fs::path& target, const fs::path& place) const {
    struct stat file {};
    return places.contains(place) ||
           (stat(target.c_str(), &file) == 0 && files.contains({file.st_dev, file.st_ino}));
  }

 private:
  std::set<fs::path> places;
  std::set<std::pair<dev_t, ino_t>> files;  // those that are there: a hard link has another place
};

}  // namespace

void checkNothingIsDestroyed(const std::vector<Job>& jobs, const Arguments& arguments) {
  const Inputs inputs(jobs);
  std::map<fs::path, std::string> writers;  // identity of a target, and what it is for
  const auto claim = [&](const fs::path& target, const std::string& purpose) {
    if (target.empty() || isStandardStream(target)) return;
    const fs::path place = identity(target);
    if (inputs.contain(target, place))
      throw UsageFailure(target.string() + ": is an input; name another output");
    const auto [other, first] = writers.emplace(place, purpose);
    if (!first) {
      throw UsageFailure(target.string() + ": would be written for both " + other->second +
                         " and " + purpose);
    }
  };
  for (const Job& job : jobs) {
    claim(job.output, job.input.string());
    if (job.plot) claim(*job.plot, job.input.string());
  }
  if (arguments.saveState) claim(*arguments.saveState, "--save-state");
  if (arguments.saved.preset) claim(*arguments.saved.preset, "--save-preset");
  if (arguments.saved.bank) claim(*arguments.saved.bank, "--save-bank");
}
