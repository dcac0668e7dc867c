// What goes with the standard input and output in place of files.
#include "host/convert/streamjobs.h"

#include <algorithm>
#include <string>

#include "host/base/standardstreams.h"
#include "host/base/text.h"
#include "host/convert/inputsearch.h"

namespace {

bool meansFolder(const std::filesystem::path& path) {
  return !path.has_filename() || isFolder(path);
}

void checkHasName(const std::string& path) {
  if (meansFolder(path))
    throw UsageFailure(path + ": is a folder, and the standard input has no name: name a file");
}

}  // namespace

void checkStreams(const Arguments& arguments) {
  const auto& inputs = arguments.inputs;
  if (std::none_of(inputs.begin(), inputs.end(), isStandardStream)) return;
  if (inputs.size() > 1)
    throw UsageFailure("the standard input is one sound: it goes without other inputs");
  if (!arguments.output)
    throw UsageFailure("the standard input has no name: name the output by -o OUT");
  checkHasName(*arguments.output);
  if (arguments.plot) checkHasName(*arguments.plot);
}

Job streamJob(const Arguments& arguments) {
  if (arguments.inputs.size() > 1 || isFolder(arguments.inputs.front()))
    throw UsageFailure("the standard output takes one sound; name a folder for several");
  Job job{arguments.inputs.front(), *arguments.output, {}, {}};
  if (!arguments.plot) return job;
  job.plot = *arguments.plot;
  if (meansFolder(*job.plot) || !sameLetters(job.plot->extension().string(), ".png"))
    throw UsageFailure(job.plot->string() + ": the picture is a PNG; name it .png");
  return job;
}
