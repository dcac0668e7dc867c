// Blocks of samples as a file holds them.
#include "host/sound/heldsamples.h"

#include <algorithm>
#include <cstdint>

void holdSamples(SampleFormat format, double* samples, int count) {
  if (integerBits(format) == 0) {
    std::transform(samples, samples + count, samples,
                   [format](double sample) { return heldSample(format, sample); });
    return;
  }
  const auto fullScale = static_cast<double>(std::uint64_t{1} << (integerBits(format) - 1));
  const double step = 1.0 / fullScale;  // a power of two: no rounding
  for (int i = 0; i < count; ++i) samples[i] = heldSteps(samples[i], fullScale) * step;
}
