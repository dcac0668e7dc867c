// Blocks of samples as a file holds them.
#pragma once

#include "host/sound/soundformat.h"

// To the nearest whole number, of two the even one, as std::nearbyint does it, for magnitudes below
// 2^51. Beside the addend there is no room for bits below 1; unlike a call it is done with several
// numbers at a time.
inline double nearestWhole(double value) {
  constexpr double kAddend = 6755399441055744.0;  // 1.5 * 2^52
  return (value + kAddend) - kAddend;
}

// The whole number of steps that such an integer file holds for a sample; fullScale: its steps from
// 0 to 1.
inline double heldSteps(double sample, double fullScale) {
  double steps = sample * fullScale;
  steps = steps < -fullScale ? -fullScale : steps;
  steps = steps > fullScale - 1.0 ? fullScale - 1.0 : steps;
  return nearestWhole(steps);
}

// Each becomes its heldSample.
void holdSamples(SampleFormat format, double* samples, int count);
