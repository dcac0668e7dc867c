// What is asked of whole blocks of samples.
#include "host/base/blockarithmetic.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

// Sums and maxima are kept so many times over: none waits for the one before it.
constexpr int kLanes = 8;
template <typename Sample>
using Lanes = std::array<Sample, kLanes>;

}  // namespace

template <typename Sample>
Sample largestMagnitude(const Sample* samples, int count) {
  Lanes<Sample> largest{};
  int i = 0;
  for (; i + kLanes <= count; i += kLanes) {
    for (std::size_t lane = 0; lane < kLanes; ++lane) {
      const Sample magnitude = std::abs(samples[i + static_cast<int>(lane)]);
      largest[lane] = largest[lane] < magnitude ? magnitude : largest[lane];
    }
  }
  for (; i < count; ++i) largest[0] = std::max(largest[0], std::abs(samples[i]));
  return *std::max_element(largest.begin(), largest.end());
}

template <typename Sample>
bool allFinite(const Sample* samples, int count) {
  Lanes<Sample> sums{};  // of zeros; of what is no number where something is not finite
  int i = 0;
  for (; i + kLanes <= count; i += kLanes) {
    for (std::size_t lane = 0; lane < kLanes; ++lane)
      sums[lane] += samples[i + static_cast<int>(lane)] * Sample{};
  }
  for (; i < count; ++i) sums[0] += samples[i] * Sample{};
  return std::none_of(sums.begin(), sums.end(), [](Sample sum) { return std::isnan(sum); });
}

template float largestMagnitude(const float*, int);
template double largestMagnitude(const double*, int);
template bool allFinite(const float*, int);
template bool allFinite(const double*, int);
