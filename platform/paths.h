// Parts of paths, and what lies at them.
#pragma once

#include <sys/stat.h>

#include <string>

// Any thread. A folder ends in "/".

inline bool isFolder(const std::string& path) {
  struct stat status {};
  return stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

inline bool isFile(const std::string& path) {
  struct stat status {};
  return stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

// "/a/b" -> "/a/" and "b"; without a "/" the whole is the name.
inline std::string folderPart(const std::string& path) {
  return path.substr(0, path.rfind('/') + 1);
}
inline std::string namePart(const std::string& path) {
  return path.substr(path.rfind('/') + 1);
}
