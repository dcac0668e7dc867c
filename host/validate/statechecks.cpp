// Checks of the state: saved, loaded, damaged, foreign, at any time.
#include "host/validate/check.h"

std::span<const Check> stateChecks() {
  return {};
}
