// What the process holds of the system: counted in /proc.
#include "host/validate/processcount.h"

#include <filesystem>
#include <fstream>
#include <string>
#include <system_error>

namespace {

int entries(const char* folder) {
  std::error_code gone;
  int count = 0;
  for (std::filesystem::directory_iterator at(folder, gone), end; !gone && at != end;
       at.increment(gone))
    ++count;
  return count;
}

int childrenOfAllThreads() {
  std::error_code gone;
  int count = 0;
  for (std::filesystem::directory_iterator at("/proc/self/task", gone), end; !gone && at != end;
       at.increment(gone)) {
    std::ifstream children(at->path() / "children");
    for (std::string id; children >> id;) ++count;
  }
  return count;
}

}  // namespace

ProcessCount countProcess() {
  return {entries("/proc/self/task"), entries("/proc/self/fd"), childrenOfAllThreads()};
}
