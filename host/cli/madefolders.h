// Folders that a run makes for its results.
#pragma once

#include <filesystem>
#include <vector>

class MadeFolders {
 public:
  // In this order. Throws Failure where one cannot be made; those before it go again.
  explicit MadeFolders(const std::vector<std::filesystem::path>& folders);
  ~MadeFolders();  // those that stayed empty go again
  MadeFolders(const MadeFolders&) = delete;
  MadeFolders& operator=(const MadeFolders&) = delete;

 private:
  void removeEmpty();

  std::vector<std::filesystem::path> made;
};
