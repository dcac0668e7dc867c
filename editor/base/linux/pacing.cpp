// Ticks from the monotonic clock. There is no event loop of the host's that a plug-in could run
// here, so it just waits.
#include "editor/base/pacing.h"

#include <chrono>
#include <thread>

std::uint32_t platformTickCount() {
  using Ticks = std::chrono::duration<std::uint64_t, std::ratio<1, 60>>;
  const auto sinceStart = std::chrono::steady_clock::now().time_since_epoch();
  return static_cast<std::uint32_t>(std::chrono::duration_cast<Ticks>(sinceStart).count());
}

void platformRunEventLoop(double seconds) {
  std::this_thread::sleep_for(std::chrono::duration<double>(seconds));
}
