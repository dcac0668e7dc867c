// Lets a binary's allocations fail.
#pragma once

#include "host/validate/means/mappedrange.h"

// While it lives, allocations on the thread that made it get no memory where this binary's own code
// asks; libraries that it calls get theirs. One at a time on a thread. Nothing fails where
// MemoryWatch does not work.
class MemoryShortage {
 public:
  enum class Fails { one, allFromThere };

  // succeeding: so many allocations get memory before the first that does not.
  MemoryShortage(const MappedRange& binary, long succeeding, Fails fails);
  ~MemoryShortage();
  MemoryShortage(const MemoryShortage&) = delete;
  MemoryShortage& operator=(const MemoryShortage&) = delete;

  // Of the calling thread; it stands until its next shortage.
  static bool hasFailed();

  // For the functions in front of the system's. caller: the address that they return to.
  static bool allows(const void* caller) noexcept;
};
