// What the file dialogs open with: the folder and the names of the files that were used last.
#pragma once

#include <cstddef>
#include <cstring>

// Kept from one run of the host to the next. User-interface thread.
struct FilePlaces {
  static constexpr std::size_t kSize = 257;  // bytes, the last one spare

  char currentDirectory[kSize] = {};  // ends in "/"
  char bankFileName[kSize] = {};
  char presetFileName[kSize] = {};

  // Allocates nothing: an instance compares them while it ends, where no memory may be left.
  bool operator==(const FilePlaces& other) const {
    return std::strcmp(currentDirectory, other.currentDirectory) == 0 &&
           std::strcmp(bankFileName, other.bankFileName) == 0 &&
           std::strcmp(presetFileName, other.presetFileName) == 0;
  }
};
