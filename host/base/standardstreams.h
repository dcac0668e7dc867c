// The standard input and output as files of sound: "-" on the command line.
#pragma once

#include <filesystem>

inline bool isStandardStream(const std::filesystem::path& named) {
  return named == "-";
}
// For messages: the file's own name, or what "-" stands for.
std::filesystem::path shownInput(const std::filesystem::path& named);
std::filesystem::path shownOutput(const std::filesystem::path& named);

// The standard output, for sound alone: from the first call on whatever else is printed there, by
// this program or by an effect, goes to the standard error stream. Called first before an effect is
// loaded and a thread begun. Throws Failure: a terminal, or there is none.
int standardOutputForSound();
// The same for a document. Throws Failure. A terminal may show it.
int standardOutputForDocument();
