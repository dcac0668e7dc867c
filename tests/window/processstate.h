// What this process holds: memory, open files, threads.
#pragma once

#include <malloc.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>

// kB in memory.
inline long residentMemory() {
  long total = 0, resident = 0;  // pages
  std::ifstream("/proc/self/statm") >> total >> resident;
  return resident * (sysconf(_SC_PAGESIZE) / 1024);
}
// Bytes that are allocated and not freed.
inline long heapInUse() {
  return static_cast<long>(mallinfo2().uordblks + mallinfo2().hblkhd);
}

inline long openFiles() {
  using Files = std::filesystem::directory_iterator;
  return std::distance(Files("/proc/self/fd"), Files());
}

inline long threadCount() {
  using Tasks = std::filesystem::directory_iterator;
  return std::distance(Tasks("/proc/self/task"), Tasks());
}
