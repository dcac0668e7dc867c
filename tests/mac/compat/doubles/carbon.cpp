// Carbon's two functions as a test sets them.
#include "carbon.h"

#include <Carbon/Carbon.h>

namespace carbondouble {
uint32_t ticks = 0;
double secondsRun = 0;
}  // namespace carbondouble

uint32_t TickCount() {
  return carbondouble::ticks;
}

OSStatus RunCurrentEventLoop(EventTimeout inTimeout) {
  carbondouble::secondsRun += inTimeout;
  return 0;
}
