// Checks of what an effect says of itself: its texts, programs, pins and answers.
#include "host/validate/check.h"

std::span<const Check> textChecks() {
  return {};
}
