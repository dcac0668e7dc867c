// A folder for one test's files, gone with the test.
#pragma once

#include <gtest/gtest.h>
#include <stdlib.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

class TempFolder : public testing::Test {
 protected:
  TempFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "widen-XXXXXX").string();
    root = std::filesystem::canonical(mkdtemp(name.data()));
    folder = root / "files";
    std::filesystem::create_directory(folder);
  }
  ~TempFolder() override {
    std::error_code ignored;
    std::filesystem::remove_all(root, ignored);
  }

  std::filesystem::path in(const std::string& name) const { return folder / name; }

  // Names in the folder, hidden ones too, sorted.
  std::vector<std::string> names() const {
    std::vector<std::string> all;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
      all.push_back(entry.path().filename().string());
    std::sort(all.begin(), all.end());
    return all;
  }

  static void writeText(const std::filesystem::path& file, const std::string& text) {
    std::ofstream(file, std::ios::binary) << text;
  }
  static std::string textOf(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
  }

  std::filesystem::path root;    // for what the test needs beside its files
  std::filesystem::path folder;  // below it, empty at first
};
