// The part of the command line about files: what is read, what is written, how it sounds out.
#pragma once

#include <CLI/CLI.hpp>
#include <string>

#include "host/options/arguments.h"

// As they were typed.
struct FileWords {
  std::string output, type, format, quality, tail, plot;
};

// Both outlive the parsing.
void addFileOptions(CLI::App& app, FileWords& words, Arguments& arguments);
// After the parsing. Throws UsageFailure.
void takeFileOptions(const CLI::App& app, const FileWords& words, Arguments& arguments);
