// Ticks and waiting on macOS: the system's tick count, and the event loop of the host's thread.
#include "editor/base/pacing.h"

#include <Carbon/Carbon.h>

std::uint32_t platformTickCount() {
  return TickCount();
}

void platformRunEventLoop(double seconds) {
  RunCurrentEventLoop(seconds);
}
