// Which files a run reads and writes.
#pragma once

#include <filesystem>
#include <optional>
#include <vector>

#include "host/options/arguments.h"

struct Job {
  std::filesystem::path input;
  std::filesystem::path output;
  std::optional<std::filesystem::path> plot;
};

struct Jobs {
  std::vector<Job> list;                               // as the inputs were named
  std::vector<std::filesystem::path> foldersToBeMade;  // for the outputs; missing now
};

// Works the targets out and refuses what would destroy something: an output that is an input, two
// outputs of one name. Looks at the file system and changes nothing. Throws UsageFailure, and
// Failure for what stands in the way.
Jobs planJobs(const Arguments& arguments);
