// Parts of paths, and what lies at them.
#pragma once

#include <sys/stat.h>
#include <unistd.h>

#include <climits>
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

// Where a path leads whose last name is a symbolic link, also to nothing. Empty where that cannot
// be told: links in a circle, and those of the system's own folders, as /dev/stdout is one, which
// stand for what a process has open and not for the name that they show.
inline std::string withoutLinks(std::string path) {
  constexpr int kMostLinks = 40;  // one after the other, as systems follow them
  for (int links = 0; links < kMostLinks; ++links) {
    char target[PATH_MAX];
    const ssize_t length = readlink(path.c_str(), target, sizeof target);
    if (length < 0) return path;
    if (path.starts_with("/dev/") || path.starts_with("/proc/")) return {};
    const std::string next(target, static_cast<std::size_t>(length));
    path = next.starts_with('/') ? next : folderPart(path).append(next);
  }
  return {};
}
