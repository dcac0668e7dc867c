// What this process and its X server hold: memory and open files.
#pragma once

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

// kB of a process that are in memory.
inline long residentOf(const std::string& process) {
  long total = 0, resident = 0;  // pages
  std::ifstream("/proc/" + process + "/statm") >> total >> resident;
  return resident * (sysconf(_SC_PAGESIZE) / 1024);
}
inline long resident() { return residentOf("self"); }
inline long residentOfServer() {
  const char* server = std::getenv("XVFB_PID");
  return server != nullptr ? residentOf(server) : 0;
}

inline long openFiles() {
  using Files = std::filesystem::directory_iterator;
  return std::distance(Files("/proc/self/fd"), Files());
}

inline long threadCount() {
  using Tasks = std::filesystem::directory_iterator;
  return std::distance(Tasks("/proc/self/task"), Tasks());
}
