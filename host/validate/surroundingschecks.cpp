// Checks that an effect leaves its host's surroundings alone, and bears them.
#include "host/validate/check.h"

std::span<const Check> surroundingsChecks() {
  return {};
}
