// Which files a run reads and writes.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "host/options/arguments.h"

struct Job {
  std::filesystem::path input;
  std::filesystem::path output;
  std::optional<std::filesystem::path> plot;
  std::string refusal;  // why it cannot be done, where that is known before; else empty
};

struct Jobs {
  std::vector<Job> list;                               // as the inputs were named
  std::vector<std::filesystem::path> foldersToBeMade;  // for the outputs; missing now; from above
  std::vector<std::string> failures;  // what is wrong with folders among the inputs
  std::vector<std::string> notes;     // inputs that were left out, and why
};

// Works the targets out and refuses what would destroy something: an output that is an input, two
// outputs of one name. Looks at the file system and changes nothing. Throws UsageFailure, and
// Failure for what stands in the way. One of several files that cannot be done has a refusal.
Jobs planJobs(const Arguments& arguments);
