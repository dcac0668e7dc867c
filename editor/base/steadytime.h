// Milliseconds of a clock that never goes back.
#pragma once

#include <chrono>
#include <cstdint>

// Since some time before the first question. Any thread.
inline std::uint64_t steadyMilliseconds() {
  const auto since = std::chrono::steady_clock::now().time_since_epoch();
  return static_cast<std::uint64_t>(
      std::chrono::duration_cast<std::chrono::milliseconds>(since).count());
}
