// Tests with a folder for their files, gone with the test.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "tests/support/temporaryfolder.h"

class FolderTest : public testing::Test {
 protected:
  FolderTest() { std::filesystem::create_directory(folder); }

  std::filesystem::path in(const std::string& name) const { return folder / name; }

  // Names in the folder, hidden ones too, sorted.
  std::vector<std::string> names() const {
    std::vector<std::string> all;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
      all.push_back(entry.path().filename().string());
    std::sort(all.begin(), all.end());
    return all;
  }

  // For effects in this process and its children, from here on; empty at first.
  void useOwnPreferences() const {
    setenv("XDG_CONFIG_HOME", (root / "config").c_str(), 1);
    setenv("TRELVAN_PREFERENCES", preferencesOf(root).c_str(), 1);
  }

  static void writeText(const std::filesystem::path& file, const std::string& text) {
    writeFile(file, text);
  }
  static std::string textOf(const std::filesystem::path& file) { return contentOf(file); }

 private:
  const TemporaryFolder made;

 protected:
  const std::filesystem::path root{made.path};         // for what the test needs beside its files
  const std::filesystem::path folder{root / "files"};  // empty at first
};
