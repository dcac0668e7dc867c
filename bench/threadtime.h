// The calling thread's own clock.
#pragma once

#include <ctime>

inline double threadTime() {            // ns
  constexpr double kNanoseconds = 1e9;  // in a second
  timespec now{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) * kNanoseconds + static_cast<double>(now.tv_nsec);
}
