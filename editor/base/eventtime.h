// The seam of double clicks: when the event that is handled was made, and how fast the desktop
// wants two clicks.
#pragma once

#include <cstdint>

// Milliseconds of one clock. Outside of an event: now. On the thread of the windows.
std::uint64_t eventMilliseconds();
std::uint32_t longestDoubleClick();  // ms from the first press to the second
