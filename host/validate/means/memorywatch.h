// Watches a thread for memory that it asks for or gives back, and for locks that it takes.
#pragma once

#include <cstddef>
#include <string>

// Counts from its construction until its destruction what happens on the thread that made it,
// whichever binary does it. One at a time on a thread.
class MemoryWatch {
 public:
  MemoryWatch();
  ~MemoryWatch();
  MemoryWatch(const MemoryWatch&) = delete;
  MemoryWatch& operator=(const MemoryWatch&) = delete;

  // Whether this program stands in front of the system's functions, as widen does; where it does
  // not (macOS, sanitizers), nothing is counted.
  static bool works();

  // Of the calling thread; they stand until its next watch begins.
  static std::size_t allocations();
  static std::size_t releases();
  static std::size_t locks();
  // Who did the first thing of those: "libexample.so+0x1a2b"; empty where nobody did.
  static std::string culprit();

  // For the functions that stand in front. caller: the address that they return to.
  // False: there is to be no memory for this call.
  static bool allowsAllocation(const void* caller) noexcept;
  static void noteRelease(const void* caller) noexcept;
  static void noteLock(const void* caller) noexcept;
};
