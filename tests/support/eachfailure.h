// Makes a call again and again, each time with another of its allocations failing.
#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <functional>

#include "tests/support/failingmemory.h"

// Names the allocation whose failure ended the process.
class EndOfProcess {
 public:
  explicit EndOfProcess(long succeeding) {
    allocations = succeeding;
    before = std::set_terminate(tell);
  }
  ~EndOfProcess() { std::set_terminate(before); }
  EndOfProcess(const EndOfProcess&) = delete;
  EndOfProcess& operator=(const EndOfProcess&) = delete;

 private:
  [[noreturn]] static void tell() {
    std::fprintf(stderr, "std::terminate without memory after %ld allocations\n", allocations);
    std::abort();
  }

  static inline long allocations = 0;
  std::terminate_handler before;
};

struct FailingCall {
  std::function<void()> call;                 // may itself allocate nothing but what is tested
  std::function<void()> afterFailure;         // the host looks at what it got
  std::function<void()> callOnceMore = call;  // with all the memory it wants, after two failures
};

// Each allocation fails in two calls in a row, before one that gets all it wants. Returns how many
// allocations the call makes; in the last call none failed. Stops at the first one that
// shows a fault.
inline long failEach(const FailingCall& tested, FailingMemory::Fails fails) {
  for (long succeeding = 0;; ++succeeding) {
    SCOPED_TRACE(testing::Message() << "without memory after " << succeeding << " allocations");
    for (const int time : {1, 2}) {
      bool failed = false;
      {
        const EndOfProcess end(succeeding);
        const FailingMemory memory(succeeding, fails);
        tested.call();
        failed = memory.hasFailed();
      }
      if (!failed && time == 1) return succeeding;
      if (failed) tested.afterFailure();
    }
    tested.callOnceMore();
    if (testing::Test::HasFailure()) return succeeding;
  }
}

constexpr FailingMemory::Fails kBothWaysToFail[] = {
    FailingMemory::Fails::one,
    FailingMemory::Fails::allFromThere,
};
