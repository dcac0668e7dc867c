// The application's run loop hands events over as they happen, so the clock is theirs. How far
// apart the presses of a double click may be is the user's choice.
#include "editor/base/eventtime.h"

#include <Carbon/Carbon.h>

#include "editor/base/pacing.h"
#include "editor/base/steadytime.h"

std::uint64_t eventMilliseconds() {
  return steadyMilliseconds();
}

std::uint32_t longestDoubleClick() {
  return ticksToMilliseconds(GetDblTime());
}
