// The seam of the editor's pacing: the system's ticks, and letting the host's event loop run.
#pragma once

#include <cstdint>

std::uint32_t platformTickCount();          // 1/60 s since the system started
void platformRunEventLoop(double seconds);  // user-interface thread

// Milliseconds of a tick count. The product wraps at 32 bits, so the value starts again after some
// 19.9 hours.
constexpr std::uint32_t ticksToMilliseconds(std::uint32_t ticks) {
  return ticks * 1000U / 60U;
}
