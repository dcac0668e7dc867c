// Checks of what a thread that processes must never do.
#include "host/validate/check.h"

std::span<const Check> realtimeChecks() {
  return {};
}
