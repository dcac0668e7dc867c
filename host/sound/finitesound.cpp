// Looks for values in a sound that are no numbers.
#include "host/sound/finitesound.h"

#include <cmath>

#include "host/base/blockarithmetic.h"
#include "host/base/failure.h"
#include "host/base/text.h"

void checkFinite(const double* left, const double* right, int frames, std::int64_t first,
                 int sampleRate, const std::string& what) {
  if (allFinite(left, frames) && allFinite(right, frames)) return;
  for (int frame = 0; frame < frames; ++frame) {
    if (std::isfinite(left[frame]) && std::isfinite(right[frame])) continue;
    throw Failure(what + " a value that is not a number at " +
                  durationText(first + frame, sampleRate));
  }
}
