// Watches the calling thread for what the audio thread must never do.
#pragma once

#include <cstddef>

// Counts from its construction until its destruction, on the thread that made it. One at a time on
// a thread. Memory asked for through operator new is seen everywhere; malloc and mutexes where the
// system lets a program stand in front of them.
class RealtimeWatch {
 public:
  RealtimeWatch();
  ~RealtimeWatch();
  RealtimeWatch(const RealtimeWatch&) = delete;
  RealtimeWatch& operator=(const RealtimeWatch&) = delete;

  static std::size_t allocations();
  static std::size_t locks();

  // Called by the replaced functions; any thread.
  static void noteAllocation() noexcept;
  static void noteLock() noexcept;
};
