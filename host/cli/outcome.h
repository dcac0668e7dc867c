// What became of one file of a run.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

#include "host/convert/conversion.h"
#include "host/convert/jobs.h"
#include "host/options/arguments.h"
#include "host/vst/pluginmodule.h"

// In words for the person; empty where there is nothing to say.
struct FileOutcome {
  std::string report;
  std::string warning;  // of several each in a line
  std::string failure;
  std::string document = {};  // with --json: the file's part of it; empty where it failed

  bool skipped = false;  // its output was there

  bool failed() const { return !failure.empty(); }
};

// What is clear without converting it: it cannot be done, or its output is left as it is.
std::optional<FileOutcome> outcomeBefore(const Arguments& arguments, const Job& job);

// What `work` fills in, or how it failed. input: for messages. Throws nothing.
FileOutcome outcomeFor(const std::filesystem::path& input,
                       const std::function<void(FileOutcome&)>& work);

// Converts it if that is to be done. Throws nothing. Any thread.
FileOutcome outcomeOf(PluginModule& module, const Arguments& arguments, const Job& job,
                      const Progress& progress);

// As bytes, for another process, and back.
std::string packed(const FileOutcome& outcome);
FileOutcome unpacked(const std::string& bytes);
