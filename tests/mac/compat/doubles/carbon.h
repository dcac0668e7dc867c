// What tests ask of Carbon's test double.
#pragma once

#include <cstdint>

namespace carbondouble {
extern std::uint32_t ticks;             // what TickCount returns
extern std::uint32_t doubleClickTicks;  // what GetDblTime returns
extern double secondsRun;               // that the event loop was asked to run
}  // namespace carbondouble
