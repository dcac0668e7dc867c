// Tells the person what became of the files of a run, in the order in which they were named.
#pragma once

#include <cstddef>
#include <mutex>
#include <optional>
#include <vector>

#include "host/cli/console.h"
#include "host/cli/outcome.h"
#include "host/cli/summary.h"
#include "host/convert/jobs.h"

// What was found about the inputs before any is converted.
void tellFindings(const Jobs& jobs, Console& console);
// How much is to come, for the progress.
void expectAll(const Jobs& jobs, Console& console);

// Any thread.
class Reporter {
 public:
  // jobs: outlives it.
  Reporter(const Jobs& jobs, const Arguments& arguments, Console& console);

  // Outcomes come in any order; each is shown when all before it have been.
  void add(std::size_t index, FileOutcome outcome);

  // After the last one: how many were done, and with --json the document; neither where a signal
  // ended the run before.
  void finish();

  bool allDone() const { return !failed; }

 private:
  void show(const FileOutcome& outcome);

  const Jobs& jobs;
  const bool document;   // is wanted
  const bool answering;  // reports are what was asked for
  std::mutex lock;
  std::vector<std::optional<FileOutcome>> outcomes;
  std::size_t next = 0;
  bool failed = false;
  Summary summary;
  Console& console;
};
