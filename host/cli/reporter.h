// Tells the person what became of the files of a run, in the order in which they were named.
#pragma once

#include <cstddef>
#include <mutex>
#include <optional>
#include <vector>

#include "host/cli/console.h"
#include "host/cli/outcome.h"
#include "host/convert/jobs.h"

// What was found about the inputs before any is converted.
void tellFindings(const Jobs& jobs, Console& console);

// Any thread.
class Reporter {
 public:
  Reporter(std::size_t count, Console& console);

  // Outcomes come in any order; each is shown when all before it have been.
  void add(std::size_t index, FileOutcome outcome);

  bool allDone() const { return !failed; }

 private:
  void show(const FileOutcome& outcome);

  std::mutex lock;
  std::vector<std::optional<FileOutcome>> outcomes;
  std::size_t next = 0;
  bool failed = false;
  Console& console;
};
