// What became of all files of a run: how many were done, and the document for scripts.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "host/cli/outcome.h"
#include "host/convert/jobs.h"

// One thread at a time.
class Summary {
 public:
  // In the order in which the files were named.
  void add(const Job& job, const FileOutcome& outcome);

  // "12 files: 10 done, 1 skipped, 1 failed, 2 with warnings"; empty for a single file.
  std::string line() const;
  // With --json. errors: what belongs to no file.
  std::string document(const std::vector<std::string>& errors) const;

 private:
  struct File {
    std::string input;
    std::string output;
    std::string failure;
    std::string document;  // its part; empty where it failed and where it was skipped
  };
  std::size_t done() const { return files.size() - failed - skipped; }

  std::vector<File> files;
  std::size_t failed = 0;
  std::size_t skipped = 0;
  std::size_t warned = 0;
};
