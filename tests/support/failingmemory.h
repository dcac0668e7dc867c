// Lets the program's memory run out at a chosen allocation. Link failingmemory.cpp, which replaces
// operator new.
#pragma once

// While one lives, `succeeding` allocations by operator new are left before one fails, the nothrow
// ones included. One thread.
class FailingMemory {
 public:
  enum class Fails { one, allFromThere };

  explicit FailingMemory(long succeeding, Fails fails = Fails::one);
  ~FailingMemory();
  FailingMemory(const FailingMemory&) = delete;
  FailingMemory& operator=(const FailingMemory&) = delete;

  bool hasFailed() const;
};
