// What is asked of whole blocks of samples.
#include "host/base/blockarithmetic.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

namespace {

// Longer than what is done at a time, by every rest.
constexpr int kLongest = 40;  // samples

}  // namespace

TEST(BlockArithmetic, FindsTheLargestMagnitudeAnywhere) {
  EXPECT_EQ(largestMagnitude<double>(nullptr, 0), 0.0);
  for (int count = 1; count <= kLongest; ++count) {
    for (int place = 0; place < count; ++place) {
      std::vector<double> samples(static_cast<std::size_t>(count), 0.25);
      samples[static_cast<std::size_t>(place)] = -0.5;
      EXPECT_EQ(largestMagnitude(samples.data(), count), 0.5) << place << " of " << count;
    }
  }
}

TEST(BlockArithmetic, FindsWhatIsNotFiniteAnywhere) {
  constexpr double kLargest = std::numeric_limits<double>::max();
  constexpr double kInfinite = std::numeric_limits<double>::infinity();
  for (int count = 1; count <= kLongest; ++count) {
    std::vector<double> samples(static_cast<std::size_t>(count), kLargest);
    EXPECT_TRUE(allFinite(samples.data(), count)) << "sums of large numbers are no infinity";
    for (const double bad : {kInfinite, -kInfinite, std::nan("")}) {
      for (int place = 0; place < count; ++place) {
        std::vector<double> damaged = samples;
        damaged[static_cast<std::size_t>(place)] = bad;
        EXPECT_FALSE(allFinite(damaged.data(), count)) << place << " of " << count;
      }
    }
  }
}
