// Which files a run reads and writes.
#include "host/convert/jobs.h"

#include <algorithm>
#include <map>
#include <set>
#include <system_error>
#include <utility>

#include "host/base/text.h"
#include "host/convert/inputsearch.h"
#include "host/convert/outputnames.h"
#include "host/convert/overlaps.h"
#include "host/convert/streamjobs.h"
#include "host/sound/soundformat.h"

namespace {

namespace fs = std::filesystem;

bool meansFolder(const fs::path& path, bool severalFiles) {
  return severalFiles || !path.has_filename() || isFolder(path);
}

// Where several files cannot go. A folder may be called like a file, if that is said.
void checkIsNoFile(const fs::path& folder, bool isNamedLikeFile) {
  std::error_code error;
  if (isFolder(folder)) return;
  if (fs::exists(folder, error))
    throw Failure(folder.string() + ": is not a folder, but several files are to go there");
  if (isNamedLikeFile && folder.has_filename()) {
    throw UsageFailure(folder.string() + ": several files go into a folder; name one (" +
                       folder.string() + "/ if it is to be called so)");
  }
}

// The folders that are missing, each after the one that it lies in.
class MissingFolders {
 public:
  // file: below the folder `named`, whose own parents are not made.
  void noteAbove(const fs::path& file, const fs::path& named) {
    const fs::path top = (named / "").parent_path();  // without a slash at its end
    const fs::path folder = file.parent_path();
    if (seen.contains(folder)) return;
    if (folder != top) noteAbove(folder, top);
    seen.insert(folder);
    std::error_code error;
    if (isFolder(folder)) return;
    if (fs::exists(folder, error)) throw Failure(folder.string() + ": is not a folder");
    list.push_back(folder);
  }

  std::vector<fs::path> list;

 private:
  std::set<fs::path> seen;
};

std::string typeProblem(const fs::path& output, const Arguments& arguments) {
  const auto type = fileTypeOf(output);
  const std::string name = output.string() + ": ";
  if (!type) return name + "unknown kind of output; " + writtenExtensions() + " can be written";
  if (arguments.type && *type != *fileTypeNamed(*arguments.type))
    return name + "is not of --type " + *arguments.type + "; leave --type out";
  if (arguments.quality && !isLossy(*type))
    return name + textOf(*type) + " is not lossy; leave --quality out";
  if (arguments.format && isLossy(*type))
    return name + textOf(*type) + " has no sample format; leave --format out";
  if (arguments.format && !canHold(*type, *arguments.format))
    return name + textOf(*type) + " cannot hold " + textOf(*arguments.format) + " samples";
  return {};
}

// Results of an earlier run of the same kind lie beside their inputs, where a folder or a pattern
// of the shell finds them as well.
void leaveResultsOut(Jobs& jobs) {
  const auto placeOf = [](const fs::path& path) { return fs::absolute(path).lexically_normal(); };
  std::map<fs::path, fs::path> results;
  for (const Job& job : jobs.list) results.emplace(placeOf(job.output), job.input);
  std::erase_if(jobs.list, [&](const Job& job) {
    const auto result = results.find(placeOf(job.input));
    if (result == results.end() || result->second == job.input) return false;
    jobs.notes.push_back(job.input.string() + ": left out (it is the result of " +
                         result->second.string() + ")");
    return true;
  });
}

// Of several files each fails by itself.
void checkTypes(Jobs& jobs, const Arguments& arguments, bool several) {
  for (Job& job : jobs.list) {
    job.refusal = typeProblem(job.output, arguments);
    if (!job.refusal.empty() && !several) throw UsageFailure(job.refusal);
  }
}

void moveBesideInputs(Jobs& jobs, std::vector<FoundInput> inputs, const OutputNaming& naming) {
  for (FoundInput& input : inputs) input.below = input.file.parent_path();
  const std::vector<fs::path> outputs = outputNames(inputs, naming);
  for (std::size_t i = 0; i < outputs.size(); ++i) jobs.list[i].output = outputs[i];
}

void planPictures(Jobs& jobs, const std::vector<fs::path>& names, const fs::path& picture,
                  bool several) {
  const bool intoFolder = meansFolder(picture, several);
  if (intoFolder) checkIsNoFile(picture, sameLetters(picture.extension().string(), ".png"));
  if (!intoFolder && !sameLetters(picture.extension().string(), ".png"))
    throw UsageFailure(picture.string() + ": the picture is a PNG; name it .png");
  const std::vector<fs::path> pictures = pictureNames(names);
  for (std::size_t i = 0; i < jobs.list.size(); ++i)
    jobs.list[i].plot = intoFolder ? picture / pictures[i] : picture;
}

}  // namespace

Jobs planJobs(const Arguments& arguments) {
  checkStreams(arguments);
  if (arguments.output == "-") {
    Jobs stream{{streamJob(arguments)}, {}, {}, {}};
    checkNothingIsDestroyed(stream.list, arguments);
    return stream;
  }
  const bool several = arguments.inputs.size() > 1 || isFolder(arguments.inputs.front());
  const bool besideInputs = !arguments.output;
  const fs::path output = arguments.output.value_or("");
  const bool intoFolder = besideInputs || meansFolder(output, several);
  if (intoFolder && !besideInputs) checkIsNoFile(output, fileTypeOf(output).has_value());
  if (arguments.suffix && !intoFolder)
    throw UsageFailure("--suffix: " + output.string() + " is a whole name; name a folder");

  FoundInputs found = findInputs(arguments.inputs, output);
  const OutputNaming naming{arguments.suffix.value_or(""), arguments.type};
  const std::vector<fs::path> names = outputNames(found.files, naming);
  Jobs jobs;
  for (std::size_t i = 0; i < names.size(); ++i)
    jobs.list.push_back({found.files[i].file, intoFolder ? output / names[i] : output, {}, {}});
  if (arguments.plot) planPictures(jobs, names, *arguments.plot, several);
  if (besideInputs) moveBesideInputs(jobs, std::move(found.files), naming);
  jobs.failures = std::move(found.failures);

  if (arguments.suffix) leaveResultsOut(jobs);
  checkTypes(jobs, arguments, several);
  checkNothingIsDestroyed(jobs.list, arguments);
  MissingFolders missing;
  if (intoFolder && !besideInputs) {
    for (const Job& job : jobs.list) missing.noteAbove(job.output, output);
  }
  if (arguments.plot && meansFolder(*arguments.plot, several)) {
    for (const Job& job : jobs.list) missing.noteAbove(*job.plot, *arguments.plot);
  }
  jobs.foldersToBeMade = std::move(missing.list);
  return jobs;
}
