// Scripts that make shells complete widen's options and their values, written from the options
// themselves.
#pragma once

#include <string>
#include <vector>

#include "host/options/commandline.h"

enum class ValueKind {
  none,    // a flag
  free,    // nothing can be proposed
  words,   // one of some words
  files,   // with one of some extensions, or any
  preset,  // the name of one of Trelvan's, or a file
};

struct CompletedOption {
  std::string shortName;  // "o", may be empty
  std::string longName;   // "output"
  std::string help;
  ValueKind kind = ValueKind::none;
  bool valueOptional = false;
  std::vector<std::string> choices;  // words, or extensions
};

// In the order of the help.
std::vector<CompletedOption> completedOptions(const CommandLine& line);
// shell: "bash", "zsh" or "fish". Throws UsageFailure.
std::string completionFor(const std::string& shell, const CommandLine& line);
// What it chooses from.
std::string bashCompletion(const std::vector<CompletedOption>& options);
std::string zshCompletion(const std::vector<CompletedOption>& options);
std::string fishCompletion(const std::vector<CompletedOption>& options);

// The texts with `separator` between them.
std::string joined(const std::vector<std::string>& texts, const std::string& separator);
