// What is done with whole blocks of samples.
#include "host/sound/blockarithmetic.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

namespace {

// Sums and maxima are kept so many times over: none waits for the one before it.
constexpr int kLanes = 8;
using Lanes = std::array<double, kLanes>;

}  // namespace

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

double largestMagnitude(const double* samples, int count) {
  Lanes largest{};
  int i = 0;
  for (; i + kLanes <= count; i += kLanes) {
    for (std::size_t lane = 0; lane < kLanes; ++lane) {
      const double magnitude = std::abs(samples[i + static_cast<int>(lane)]);
      largest[lane] = largest[lane] < magnitude ? magnitude : largest[lane];
    }
  }
  for (; i < count; ++i) largest[0] = std::max(largest[0], std::abs(samples[i]));
  return *std::max_element(largest.begin(), largest.end());
}

bool allFinite(const double* samples, int count) {
  Lanes sums{};  // of zeros; of what is no number where something is not finite
  int i = 0;
  for (; i + kLanes <= count; i += kLanes) {
    for (std::size_t lane = 0; lane < kLanes; ++lane)
      sums[lane] += samples[i + static_cast<int>(lane)] * 0.0;
  }
  for (; i < count; ++i) sums[0] += samples[i] * 0.0;
  return std::none_of(sums.begin(), sums.end(), [](double sum) { return std::isnan(sum); });
}
