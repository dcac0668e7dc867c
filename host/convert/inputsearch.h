// The sound files that the inputs of a command line stand for.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

struct FoundInput {
  std::filesystem::path file;
  // Where its output goes, below the folder for outputs. Empty for a file that was named itself.
  std::filesystem::path below;
};

struct FoundInputs {
  std::vector<FoundInput> files;      // in the order of the inputs; a folder's by name
  std::vector<std::string> failures;  // folders that cannot be read, and named ones without sound
};

// A file stands for itself, there or not. A folder stands for the sound files in it and below it,
// told by their extensions, without hidden ones and without folders that are links.
//
// The files of a folder lie below it as they do in there; where it is not the only input, below the
// folder's own name. outputs: where the results go, empty if nowhere in particular; not searched
// where it lies in an input.
FoundInputs findInputs(const std::vector<std::string>& named, const std::filesystem::path& outputs);

bool isFolder(const std::filesystem::path& path);
