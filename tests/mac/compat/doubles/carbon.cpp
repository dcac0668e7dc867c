// Carbon's three functions as a test sets them.
#include "carbon.h"

#include <Carbon/Carbon.h>

namespace carbondouble {
uint32_t ticks = 0;
uint32_t doubleClickTicks = 0;
double secondsRun = 0;
}  // namespace carbondouble

uint32_t TickCount() {
  return carbondouble::ticks;
}

uint32_t GetDblTime() {
  return carbondouble::doubleClickTicks;
}

OSStatus RunCurrentEventLoop(EventTimeout inTimeout) {
  carbondouble::secondsRun += inTimeout;
  return 0;
}
