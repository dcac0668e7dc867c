// The part of the command line about files: what is read, what is written, how it sounds out.
#pragma once

#include <string>

#include "host/options/arguments.h"
#include "host/options/commandline.h"

// As they were typed.
struct FileWords {
  std::string output, type, format, quality, tail, plot;
};

// Both outlive the parsing.
void addFileOptions(CommandLine& line, FileWords& words, Arguments& arguments);
// After the parsing. Throws UsageFailure.
void takeFileOptions(const CommandLine& line, const FileWords& words, Arguments& arguments);
