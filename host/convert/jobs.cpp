// Which files a run reads and writes.
#include "host/convert/jobs.h"

#include <algorithm>
#include <cctype>
#include <map>
#include <string>
#include <system_error>

#include "host/base/text.h"
#include "host/sound/soundformat.h"

namespace {

namespace fs = std::filesystem;

bool meansFolder(const fs::path& path, bool severalFiles) {
  std::error_code error;
  return severalFiles || !path.has_filename() || fs::is_directory(path, error);
}

void checkFolder(const fs::path& folder, Jobs& jobs) {
  std::error_code error;
  if (fs::is_directory(folder, error)) return;
  if (fs::exists(folder, error))
    throw Failure(folder.string() + ": is not a folder, but several files are to go there");
  auto& made = jobs.foldersToBeMade;
  if (std::find(made.begin(), made.end(), folder) == made.end()) made.push_back(folder);
}

// The same file under whatever name; a file that does not exist yet counts by its place.
fs::path identity(const fs::path& path) {
  std::error_code error;
  const fs::path canonical = fs::weakly_canonical(path, error);
  return error ? fs::absolute(path, error).lexically_normal() : canonical;
}

void checkOutputType(const fs::path& output, const Arguments& arguments) {
  const auto type = fileTypeOf(output);
  if (!type)
    throw UsageFailure(output.string() + ": unknown kind of output; " + writtenExtensions() +
                       " can be written");
  if (arguments.type && *type != *fileTypeNamed(*arguments.type)) {
    throw UsageFailure(output.string() + ": is not of --type " + *arguments.type +
                       "; leave --type out");
  }
  if (arguments.quality && !isLossy(*type)) {
    throw UsageFailure(output.string() + ": " + textOf(*type) +
                       " is not lossy; leave --quality out");
  }
  if (arguments.format && isLossy(*type)) {
    throw UsageFailure(output.string() + ": " + textOf(*type) +
                       " has no sample format; leave --format out");
  }
  if (arguments.format && !canHold(*type, *arguments.format)) {
    throw UsageFailure(output.string() + ": " + textOf(*type) + " cannot hold " +
                       textOf(*arguments.format) + " samples");
  }
}

// A lossy input is not encoded once more unless that is asked for.
fs::path outputName(const fs::path& input, const Arguments& arguments) {
  const auto type = fileTypeOf(input);
  const bool kept =
      arguments.type ? type == fileTypeNamed(*arguments.type) : type && !isLossy(*type);
  return kept ? input.filename()
              : fs::path(input.stem().string() + "." + arguments.type.value_or("wav"));
}

fs::path plotName(const fs::path& input) {
  return input.stem().string() + ".png";
}

void checkNothingIsDestroyed(const std::vector<Job>& jobs) {
  std::map<fs::path, fs::path> writers;  // identity of a target, and the input that it is for
  const auto claim = [&](const fs::path& target, const fs::path& input) {
    std::error_code error;
    for (const Job& job : jobs) {
      if (identity(job.input) == identity(target) || fs::equivalent(job.input, target, error)) {
        throw UsageFailure(target.string() + ": is an input; name another output");
      }
    }
    const auto [other, first] = writers.emplace(identity(target), input);
    if (!first) {
      throw UsageFailure(target.string() + ": would be written for both " + other->second.string() +
                         " and " + input.string());
    }
  };
  for (const Job& job : jobs) {
    claim(job.output, job.input);
    if (job.plot) claim(*job.plot, job.input);
  }
}

}  // namespace

Jobs planJobs(const Arguments& arguments) {
  Jobs jobs;
  const bool several = arguments.inputs.size() > 1;
  const fs::path output = *arguments.output;
  const bool intoFolder = meansFolder(output, several);
  if (intoFolder) checkFolder(output, jobs);
  const bool plotsIntoFolder = arguments.plot && meansFolder(*arguments.plot, several);
  if (plotsIntoFolder) checkFolder(*arguments.plot, jobs);
  for (const std::string& input : arguments.inputs) {
    Job job{input, intoFolder ? output / outputName(input, arguments) : output, std::nullopt};
    checkOutputType(job.output, arguments);
    if (arguments.plot) {
      const fs::path plot = *arguments.plot;
      job.plot = plotsIntoFolder ? plot / plotName(input) : plot;
    }
    if (job.plot && !sameLetters(job.plot->extension().string(), ".png")) {
      throw UsageFailure(job.plot->string() + ": the picture is a PNG; name it .png");
    }
    jobs.list.push_back(std::move(job));
  }
  checkNothingIsDestroyed(jobs.list);
  return jobs;
}
