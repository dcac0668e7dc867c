// One source file as the layout rules see it: its opening comment, its includes and its conditions.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

struct SourceFile {
  struct Include {
    int line;
    std::string target;  // as written
  };

  std::string path;            // from the tree's root, with slashes
  std::string openingComment;  // the comment that starts on the first line; empty where there is none
  std::vector<Include> includes;
  std::vector<int> systemConditions;  // lines of #if and the like that ask for an operating system
};

// C, C++ and Objective-C files by their extension.
bool isSource(const std::filesystem::path& path);

SourceFile readSource(const std::filesystem::path& root, const std::string& path);
